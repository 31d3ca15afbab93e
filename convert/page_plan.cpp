#include "convert/page_plan.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "base/utf8.h"
#include "convert/form_codec.h"
#include "convert/letter_statistics.h"
#include "convert/letter_writer.h"

namespace convert {
namespace {

using markup::Range;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
// Bytes written at a time.
constexpr std::size_t kBlock = std::size_t{256} * 1024;

bool isOldForm(Form form) {
  return form == Form::Legacy || form == Form::Academy || form == Form::Keyboard || form == Form::Russian;
}

bool saysUtf8(std::string_view charset) {
  const std::string name = base::upperAscii(charset);
  return name == "UTF-8" || name == "UTF8";
}

std::string_view lineEndOf(std::string_view page) {
  const std::size_t at = page.find_first_of("\r\n");
  if (at == std::string_view::npos) return base::kCrLf;
  return page.substr(at, page.substr(at, 2) == base::kCrLf ? 2 : 1);
}

bool isPlainAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

// The names of a list of fonts that are no old ones, with `instead` where the first of those stood.
std::string namesWithout(std::string_view names, const FontTable& table, std::string_view instead) {
  std::string kept;
  bool put = instead.empty();
  const auto add = [&](std::string_view name) {
    if (!kept.empty()) kept += ',';
    kept += name;
  };
  for (const std::string& name : base::split(names, ",")) {
    const auto form = table.formOf(name);
    if (!form || !isOldForm(*form)) {
      add(name);
    } else if (!put) {
      add(instead);
      put = true;
    }
  }
  return std::string(base::trimSpaces(kept));
}

class Planner {
 public:
  Planner(std::string_view page, const PlanOptions& options, PagePlan& plan)
      : page_(page), options_(options), plan_(plan) {}

  void letters() {
    Detection& found = plan_.detection;
    // As many as there will be at most, but for bytes outside texts: a second copy of them would be the most
    // that a page needs.
    const auto some = std::ranges::count_if(found.verdicts, [](const Verdict& verdict) {
      return verdict.changesToUtf8 || verdict.changesToReferences || verdict.uncertain;
    });
    plan_.changes.reserve(static_cast<std::size_t>(some) + found.parts.fonts.size() +
                          found.parts.charsets.size() + 1);
    std::size_t i = 0;
    std::size_t done = 0;
    for (const PagePiece& piece : found.parts.pieces) {
      bytesBetween(done, piece.begin);
      done = piece.end;
      text(piece, found.verdicts[i++]);
    }
    bytesBetween(done, page_.size());
  }

  void fonts() {
    if (options_.fonts == OldFonts::Keep) return;
    const std::string_view instead =
        options_.fonts == OldFonts::Exchange ? std::string_view(options_.newFonts) : "";
    const std::deque<FontUse>& fonts = plan_.detection.parts.fonts;
    for (std::size_t i = kFirstFontUse; i < fonts.size(); ++i) {
      const FontUse& use = fonts[i];
      if (use.converted == 0 || use.left > 0 || !inSelection({use.wholeBegin, use.wholeEnd})) continue;
      // Without it the text would be in another old font, which would say something else of what is left of
      // it.
      if (isOldForm(use.around) && use.around != use.form) continue;
      const std::string_view names = page_.substr(use.valueBegin, use.valueEnd - use.valueBegin);
      Change change;
      change.kind = ChangeKind::Font;
      change.verdict.form = use.form;
      // A "font" needs a name; a FACE and a font-family without any go.
      const bool mayGo = use.wholeBegin != use.valueBegin;
      change.wholeFont = mayGo && namesWithout(names, *plan_.fonts(), instead).empty();
      change.begin = change.wholeFont ? use.wholeBegin : use.valueBegin;
      change.end = change.wholeFont ? use.wholeEnd : use.valueEnd;
      plan_.changes.push_back(change);
    }
  }

  // Returns what is to be added, empty when nothing is.
  std::string charset() {
    const PageParts& parts = plan_.detection.parts;
    const PageKind kind = options_.detector.parts.kind;
    if (options_.selection || kind == PageKind::PlainText || kind == PageKind::Script) return {};
    const bool asciiNow = isPlainAscii(page_);
    if (asciiNow && plan_.changes.empty() && !options_.declareAnyway) return {};
    for (const Range charset : parts.charsets) {
      if (!saysUtf8(charset.of(page_))) addCharset(charset.begin, charset.end);
    }
    if (!parts.charsets.empty() || page_.starts_with(kUtf8Mark)) return {};
    if (asciiNow && options_.to == Target::References) return {};
    if (kind == PageKind::StyleSheet) {
      addCharset(0, 0);
      return "@charset \"utf-8\";" + std::string(lineEndOf(page_));
    }
    if (!parts.headAt) return {};
    addCharset(*parts.headAt, *parts.headAt);
    const std::string tag = parts.upperCase ? "<META CHARSET=\"UTF-8\">" : "<meta charset=\"utf-8\">";
    return std::string(lineEndOf(page_)) + tag;
  }

 private:
  bool inSelection(Range range) const {
    return !options_.selection ||
           (range.begin >= options_.selection->begin && range.end <= options_.selection->end);
  }

  const Choice* choiceOf(Range range) const {
    if (options_.choices == nullptr || options_.choices->empty()) return nullptr;
    const auto found = options_.choices->find(static_cast<std::uint32_t>(range.begin));
    return found == options_.choices->end() ? nullptr : &found->second;
  }

  void addCharset(std::size_t begin, std::size_t end) {
    Change change;
    change.begin = static_cast<std::uint32_t>(begin);
    change.end = static_cast<std::uint32_t>(end);
    change.kind = ChangeKind::Charset;
    change.verdict.reason = Reason::Declared;
    plan_.changes.push_back(change);
  }

  void text(const PagePiece& piece, Verdict verdict) {
    FontUse& font = plan_.detection.parts.fonts[piece.font];
    Range range{piece.begin, piece.end};
    // The mark of UTF-8 is no letter of the page, and a reference in its place would be one.
    if (range.begin == 0 && page_.starts_with(kUtf8Mark)) range.begin = std::min(kUtf8Mark.size(), range.end);
    if (range.empty()) return;
    if (options_.selection) {
      range = {std::max(range.begin, options_.selection->begin),
               std::min(range.end, options_.selection->end)};
      if (range.begin >= range.end || range.size() < piece.end - piece.begin) font.left += verdict.letters;
      if (range.begin >= range.end) return;
    }
    const Choice* const choice = choiceOf(range);
    if (choice != nullptr && choice->form) {
      const std::uint16_t letters = verdict.letters;
      PagePlan::choose(verdict, *choice->form);
      verdict.letters = letters;
    }
    const bool changes = options_.to == Target::Utf8 ? verdict.changesToUtf8 : verdict.changesToReferences;
    if (!changes && !verdict.uncertain) {
      if (font.form == Form::Keyboard && verdict.form == Form::Ascii) font.left += verdict.letters;
      return;
    }
    Change change;
    change.begin = static_cast<std::uint32_t>(range.begin);
    change.end = static_cast<std::uint32_t>(range.end);
    change.place = piece.place;
    change.references = piece.references;
    change.verdict = verdict;
    if (choice != nullptr && choice->leave) {
      change.apply = false;
      font.left += std::max<std::uint32_t>(1, verdict.letters);
      plan_.changes.push_back(change);
      return;
    }
    change.verdict.afterwards = repairsAfterwards(range, piece, verdict);
    if (verdict.keyboard) {
      const KeyboardWords words =
          keyboardWords(page_.substr(range.begin, range.size()), verdict, readingOf(plan_.detection, piece));
      font.converted += words.converted;
      font.left += words.left;
      change.verdict.wholeKeyboard = words.left == 0;
      if (words.noKey > 0) {
        change.verdict.uncertain = true;
        change.verdict.reason = Reason::NoKey;
      }
      const bool others = std::ranges::any_of(page_.substr(range.begin, range.size()), [](char c) {
        return static_cast<std::uint8_t>(c) >= 0x80 || c == '&';
      });
      if (words.converted == 0 && !change.verdict.uncertain && !others && choice == nullptr) return;
    } else if (verdict.uncertain) {
      font.left += verdict.letters;
    } else if (isOldForm(verdict.form)) {
      font.converted += verdict.letters;
    }
    plan_.changes.push_back(change);
  }

  // Of Western bytes, which are UTF-8 by chance or by somebody's mistake, text can come that was encoded
  // twice.
  bool repairsAfterwards(Range range, const PagePiece& piece, const Verdict& verdict) const {
    if (verdict.eight != Form::Western || plan_.detection.census.isUtf8()) return false;
    const std::string_view old = page_.substr(range.begin, range.size());
    if (old.find_first_of("\xC2\xC3\xD0\xD1\xE1\xE2") == std::string_view::npos) return false;
    std::string utf8;
    appendLetters(old, verdict, readingOf(plan_.detection, piece), Writing::Utf8, utf8);
    const Statistics found = statisticsOf(utf8, {piece.references, false});
    return found.doubled > 0 || (found.doubledPairs >= kManyPairs && found.utf8 + found.references == 0);
  }

  // Bytes outside texts are no letters to convert, but in a page of UTF-8 they must be UTF-8 too.
  void bytesBetween(std::size_t at, std::size_t end) {
    if (options_.selection || plan_.detection.census.isUtf8()) return;
    const std::string_view upTo = page_.substr(0, end);
    const Reading reading{false, plan_.detection.reading.pairsAreBytes,
                          plan_.detection.reading.oddOnesAreBytes};
    while (at < end) {
      if (static_cast<std::uint8_t>(page_[at]) < 0x80) {
        ++at;
        continue;
      }
      const std::size_t begin = at;
      bool afterByte = false;
      while (at < end && static_cast<std::uint8_t>(page_[at]) >= 0x80) {
        const Symbol symbol = symbolAt(upTo, at, reading, afterByte);
        if (symbol.source != Source::Byte) break;
        afterByte = true;
        at += symbol.size;
      }
      if (at > begin) {
        Change change;
        change.begin = static_cast<std::uint32_t>(begin);
        change.end = static_cast<std::uint32_t>(at);
        change.kind = ChangeKind::Bytes;
        change.verdict.reason = Reason::Reencoded;
        change.verdict.form = change.verdict.eight = plan_.base();
        plan_.changes.push_back(change);
      } else {
        at += symbolAt(upTo, at, reading, false).size;
      }
    }
  }

  std::string_view page_;
  const PlanOptions& options_;
  PagePlan& plan_;
};

// A declaration or font that changes takes the bytes in it along: none of them is a change of its own.
void takeAlong(std::vector<Change>& changes) {
  const auto overlap = [](const Change& a, const Change& b) { return a.end > b.begin; };
  if (std::ranges::adjacent_find(changes, overlap) == changes.end()) return;
  std::vector<Change> kept;
  std::uint32_t reach = 0;
  for (Change& change : changes) {
    if (change.kind == ChangeKind::Bytes) {
      change.begin = std::max(change.begin, reach);
      if (change.begin < change.end) kept.push_back(change);
      continue;
    }
    std::optional<Change> behind;
    if (!kept.empty() && kept.back().kind == ChangeKind::Bytes && overlap(kept.back(), change)) {
      behind = kept.back();
      kept.back().end = change.begin;
      if (kept.back().begin == change.begin) kept.pop_back();
    }
    kept.push_back(change);
    reach = change.end;
    if (behind && behind->end > reach) {
      behind->begin = reach;
      kept.push_back(*behind);
    }
  }
  changes = std::move(kept);
}

}  // namespace

PagePlan PagePlan::make(std::string_view page, const PlanOptions& options, const Verdicts& settled) {
  PagePlan plan;
  plan.target = options.to;
  plan.kind_ = options.detector.parts.kind;
  plan.selection_ = options.selection.has_value();
  plan.fonts_ =
      options.detector.parts.fonts != nullptr ? options.detector.parts.fonts : &FontTable::builtIn();
  if (options.fonts == OldFonts::Exchange) plan.newFonts_ = options.newFonts;
  plan.detection = detect(page, options.detector);
  if (plan.detection.page.trouble != Trouble::None) return plan;
  for (const auto& [piece, verdict] : settled) plan.detection.verdicts[piece] = verdict;
  const std::string declared = base::upperAscii(plan.detection.parts.declared(page));
  const bool russian =
      plan.detection.page.form == Form::Russian || declared == "WINDOWS-1251" || declared == "CP1251";
  plan.base_ = russian ? Form::Russian : Form::Western;
  Planner planner(page, options, plan);
  planner.letters();
  const auto lettersEnd = static_cast<std::ptrdiff_t>(plan.changes.size());
  planner.fonts();
  plan.addition_ = planner.charset();
  const auto middle = plan.changes.begin() + lettersEnd;
  const auto before = [](const Change& a, const Change& b) {
    return a.begin != b.begin ? a.begin < b.begin : a.end < b.end;
  };
  std::stable_sort(middle, plan.changes.end(), before);
  std::inplace_merge(plan.changes.begin(), middle, plan.changes.end(), before);
  takeAlong(plan.changes);
  return plan;
}

// Adds what the page is found to be when this plan has been done; false: nothing else.
bool PagePlan::lookAgain(std::string_view page, const PlanOptions& options, Verdicts& settled) const {
  const std::string done = applyPlan(page, *this);
  const PagePlan next = make(done, options, {});
  const std::deque<PagePiece>& pieces = detection.parts.pieces;
  const std::deque<PagePiece>& nextPieces = next.detection.parts.pieces;
  // Where a place in `done` is in the page; for places in ascending order.
  std::size_t i = 0;
  std::size_t old = 0;
  std::size_t now = 0;
  const auto placeOf = [&](std::size_t place) {
    for (; i < changes.size(); ++i) {
      const Change& change = changes[i];
      std::string put;
      if (change.apply && !stays(change))
        appendNewBytes(page, change, put);
      else
        appendLeft(page, change, put);
      const std::size_t behind = now + (change.begin - old) + put.size();
      if (behind > place) return std::min<std::size_t>(old + (place - now), change.begin);
      old = change.end;
      now = behind;
    }
    return old + (place - now);
  };
  bool more = false;
  std::size_t piece = 0;
  std::size_t nextPiece = 0;
  for (const Change& change : next.changes) {
    if (change.kind != ChangeKind::Letters || next.stays(change) ||
        next.newBytes(done, change) == next.oldBytes(done, change)) {
      continue;
    }
    while (nextPieces[nextPiece].begin < change.begin) ++nextPiece;
    Verdict verdict = next.detection.verdicts[nextPiece];
    verdict.changesToUtf8 = verdict.changesToReferences = true;
    const std::size_t begin = placeOf(change.begin);
    while (piece < pieces.size() && pieces[piece].end <= begin) ++piece;
    if (piece == pieces.size()) break;
    // Beside what this plan makes of it.
    const Verdict& first = detection.verdicts[piece];
    verdict.repair |= first.repair;
    if (first.keyboard && !verdict.keyboard) {
      verdict.keyboard = true;
      verdict.reason = first.reason;
    }
    if (first.eightEverywhere && !verdict.eightEverywhere) {
      verdict.eightEverywhere = true;
      verdict.eight = first.eight;
    }
    settled[piece] = verdict;
    more = true;
  }
  return more;
}

PagePlan makePlan(std::string_view page, const PlanOptions& options) {
  PagePlan plan = PagePlan::make(page, options, {});
  // Texts of one form are judged no other way when they have become UTF-8.
  if (!(plan.uncertain() || plan.detection.severalForms()) || options.selection || options.detector.from)
    return plan;
  constexpr int kMostLooks = 3;
  PlanOptions alone = options;
  alone.choices = nullptr;
  if (options.choices != nullptr) plan = PagePlan::make(page, alone, {});
  PagePlan::Verdicts settled;
  for (int look = 0; look < kMostLooks && plan.lookAgain(page, alone, settled); ++look) {
    plan = PagePlan::make(page, alone, settled);
  }
  return options.choices == nullptr ? plan : PagePlan::make(page, options, settled);
}

void PagePlan::appendNewBytes(std::string_view page, const Change& change, std::string& out) const {
  const std::string_view old = oldBytes(page, change);
  const Reading reading{change.references, detection.reading.pairsAreBytes, detection.reading.oddOnesAreBytes,
                        hasEscapes(change.place)};
  switch (change.kind) {
    case ChangeKind::Letters: {
      Writing writing = Writing::Utf8;
      if (target == Target::References) {
        const bool references = change.references || (kind_ == PageKind::PlainText);
        writing = change.place == Place::ScriptString ? Writing::ScriptEscapes
                  : change.place == Place::CssString  ? Writing::CssEscapes
                  : references                        ? Writing::References
                                                      : Writing::Utf8;
      }
      return appendLetters(old, change.verdict, reading, writing, out);
    }
    case ChangeKind::Bytes:
      return appendReencoded(old, change.verdict.eight, reading, out);
    case ChangeKind::Charset:
      out += old.empty() ? std::string_view(addition_)
             : std::ranges::any_of(old, [](char c) { return c >= 'A' && c <= 'Z'; }) ? "UTF-8"
                                                                                     : "utf-8";
      return;
    case ChangeKind::Font:
      if (change.wholeFont) return;
      const std::string names = namesWithout(old, *fonts_, newFonts_);
      if (names.empty()) {
        out += "sans-serif";
      } else if (selection_ || detection.census.isUtf8()) {
        out += names;
      } else {
        appendReencoded(names, base_, reading, out);
      }
      return;
  }
}

std::string PagePlan::newBytes(std::string_view page, const Change& change) const {
  std::string out;
  appendNewBytes(page, change, out);
  return out;
}

std::string PagePlan::readable(std::string_view bytes, Form form) {
  Verdict verdict;
  choose(verdict, form);
  std::string out;
  appendLetters(bytes, verdict, {true, isEightBit(form)}, Writing::Utf8, out);
  return out;
}

void PagePlan::choose(Verdict& verdict, Form form) {
  verdict = {};
  verdict.form = form;
  verdict.reason = Reason::Chosen;
  verdict.eight = isEightBit(form) ? form : Form::Western;
  verdict.eightEverywhere = isOldForm(form) && form != Form::Keyboard;
  verdict.keyboard = form == Form::Keyboard;
  verdict.repair = form == Form::DoubleUtf8;
  verdict.changesToUtf8 = verdict.changesToReferences = true;
}

bool PagePlan::uncertain() const {
  return std::ranges::any_of(changes, [](const Change& change) { return change.verdict.uncertain; });
}

bool PagePlan::changesLetters() const {
  return std::ranges::any_of(changes, [](const Change& change) {
    return change.kind == ChangeKind::Letters && !change.verdict.uncertain;
  });
}

void applyPlan(std::string_view page, const PagePlan& plan,
               const std::function<void(std::string_view)>& write) {
  std::string block;
  block.reserve(kBlock + kBlock / 4);
  std::size_t done = 0;
  const auto copy = [&](std::size_t end) {
    if (end - done < kBlock) {
      block.append(page.substr(done, end - done));
    } else {
      write(block);
      block.clear();
      write(page.substr(done, end - done));
    }
    if (block.size() >= kBlock) {
      write(block);
      block.clear();
    }
  };
  for (const Change& change : plan.changes) {
    if (change.begin < done) continue;
    copy(change.begin);
    done = change.begin;
    if (change.apply && !plan.stays(change))
      plan.appendNewBytes(page, change, block);
    else
      plan.appendLeft(page, change, block);
    done = change.end;
  }
  copy(page.size());
  write(block);
}

void PagePlan::appendLeft(std::string_view page, const Change& change, std::string& out) const {
  const std::string_view old = oldBytes(page, change);
  if (selection_)
    out += old;
  else
    appendReencoded(old, base_, detection.reading, out);
}

std::string applyPlan(std::string_view page, const PagePlan& plan) {
  // Counted first: a text that grows needs three times its room, and counting is quick.
  std::size_t size = 0;
  applyPlan(page, plan, [&](std::string_view block) { size += block.size(); });
  std::string out;
  out.reserve(size);
  applyPlan(page, plan, [&](std::string_view block) { out += block; });
  return out;
}

std::size_t LineCounter::lineOf(std::size_t offset) {
  // CR LF, LF and CR end a line each.
  for (; at_ < offset && at_ < page_.size(); ++at_) {
    if (page_[at_] == '\n' || (page_[at_] == '\r' && (at_ + 1 == page_.size() || page_[at_ + 1] != '\n')))
      ++line_;
  }
  return line_;
}

}  // namespace convert
