#include "convert/page_review.h"

#include <algorithm>
#include <utility>

#include "base/cp1252.h"
#include "base/path.h"
#include "base/utf8.h"

namespace convert {
namespace {

// Of one text, as far as it is shown on a line: on one line, blanks as one, cut where a character ends.
std::string oneLine(std::string_view letters, std::size_t most) {
  std::string line;
  for (const char c : letters) {
    if (line.size() >= most && (static_cast<std::uint8_t>(c) & 0xC0U) != 0x80) return line + "…";
    const bool blank = static_cast<std::uint8_t>(c) <= ' ' || c == 0x7F;
    if (!blank)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  while (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

Form likelyForm(Form page, Form found) {
  if (page == Form::Legacy || page == Form::Academy || page == Form::Keyboard || page == Form::Russian ||
      page == Form::DoubleUtf8) {
    return page;
  }
  return found == Form::Keyboard ? Form::Keyboard : Form::Legacy;
}

}  // namespace

std::string rawLetters(std::string_view bytes, bool pairsAreBytes) {
  std::string letters;
  letters.reserve(bytes.size() + bytes.size() / 2);
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t before = at;
    const auto character = base::nextUtf8(bytes, at);
    if (character && !(pairsAreBytes && at - before == 2)) {
      letters += bytes.substr(before, at - before);
    } else {
      at = before + 1;
      base::appendUtf8(letters, base::charOfByte(static_cast<std::uint8_t>(bytes[before])));
    }
  }
  return letters;
}

PageReview::PageReview(std::string_view page, PlanOptions options)
    : page_(page), options_(std::move(options)) {
  replan();
}

void PageReview::setOptions(PlanOptions options) {
  options_ = std::move(options);
  replan();
}

void PageReview::replan() {
  options_.choices = &choices_;
  plan_ = makePlan(page_, options_);
  options_.choices = nullptr;
  for (Change& change : plan_.changes) {
    if (change.kind == ChangeKind::Font && leftFonts_.contains(keyOf(change))) change.apply = false;
  }
  group();
}

PageReview::Home PageReview::homeOf(const Change& change) const {
  switch (change.kind) {
    case ChangeKind::Font:
      return {ReviewGroup::Kind::Fonts, Form::Unknown};
    case ChangeKind::Bytes:
    case ChangeKind::Charset:
      return {ReviewGroup::Kind::Needed, Form::Unknown};
    case ChangeKind::Letters:
      break;
  }
  const auto home = homes_.find(change.begin);
  if (home != homes_.end()) return home->second;
  if (change.verdict.uncertain) return {ReviewGroup::Kind::Uncertain, Form::Unknown};
  return {ReviewGroup::Kind::Form, change.verdict.form};
}

void PageReview::group() {
  groups_.clear();
  texts_ = uncertain_ = 0;
  std::vector<std::uint64_t> weights;
  std::vector<std::uint64_t> sums;
  lines_.clear();
  LineCounter lines(page_);
  for (std::uint32_t i = 0; i < plan_.changes.size(); ++i) {
    const Change& change = plan_.changes[i];
    lines_.push_back(static_cast<std::uint32_t>(lines.lineOf(change.begin)));
    const Home home = homeOf(change);
    auto group = std::ranges::find_if(groups_, [&](const ReviewGroup& other) {
      return other.kind == home.kind && other.form == home.form;
    });
    if (group == groups_.end()) {
      group = groups_.insert(group, {home.kind, home.form, {}, 0, 0, 0});
      weights.push_back(0);
      sums.push_back(0);
    }
    group->changes.push_back(i);
    group->letters += change.verdict.letters;
    group->ticked += ticked(i) ? 1U : 0U;
    const std::size_t weight = std::max<std::size_t>(1, change.verdict.letters);
    const auto place = static_cast<std::size_t>(group - groups_.begin());
    weights[place] += weight;
    sums[place] += std::uint64_t{weight} * change.verdict.confidence;
    group->confidence = static_cast<int>(sums[place] / weights[place]);
    if (change.kind != ChangeKind::Letters) continue;
    if (ticked(i))
      ++texts_;
    else if (change.verdict.uncertain)
      ++uncertain_;
  }
  std::ranges::stable_sort(groups_, [](const ReviewGroup& a, const ReviewGroup& b) {
    if (a.kind != b.kind) return a.kind < b.kind;
    return a.letters > b.letters;
  });
}

bool PageReview::optional(std::uint32_t change) const {
  const ChangeKind kind = plan_.changes[change].kind;
  return kind == ChangeKind::Letters || kind == ChangeKind::Font;
}

bool PageReview::ticked(std::uint32_t change) const {
  const Change& wanted = plan_.changes[change];
  // Of a text that holds letters of no key all other words are converted.
  const bool left = wanted.verdict.uncertain && wanted.verdict.reason != Reason::NoKey;
  return wanted.apply && !(wanted.kind == ChangeKind::Letters && left);
}

void PageReview::tick(const std::vector<std::uint32_t>& changes, bool on) {
  for (const std::uint32_t index : changes) {
    const Change& change = plan_.changes[index];
    if (!optional(index) || ticked(index) == on) continue;
    if (change.kind == ChangeKind::Font) {
      if (on)
        leftFonts_.erase(keyOf(change));
      else
        leftFonts_.insert(keyOf(change));
      continue;
    }
    homes_.emplace(change.begin, homeOf(change));
    Choice& choice = choices_[change.begin];
    choice.leave = !on;
    if (!on || !change.verdict.uncertain) continue;
    choice.form = likelyForm(plan_.detection.page.form, change.verdict.form);
  }
  replan();
}

void PageReview::choose(const std::vector<std::uint32_t>& changes, std::optional<Form> form) {
  for (const std::uint32_t index : changes) {
    const Change& change = plan_.changes[index];
    if (change.kind != ChangeKind::Letters) continue;
    homes_.emplace(change.begin, homeOf(change));
    choices_[change.begin] = {form, false};
  }
  replan();
}

bool PageReview::chosen(std::uint32_t change) const {
  const auto choice = choices_.find(plan_.changes[change].begin);
  return plan_.changes[change].kind == ChangeKind::Letters && choice != choices_.end() &&
         choice->second.form.has_value();
}

std::optional<std::uint32_t> PageReview::changeAt(std::uint32_t begin, ChangeKind kind) const {
  auto at = std::ranges::lower_bound(plan_.changes, begin, {}, &Change::begin);
  while (at != plan_.changes.end() && at->begin == begin && at->kind != kind) ++at;
  if (at == plan_.changes.end() || at->begin != begin) return std::nullopt;
  return static_cast<std::uint32_t>(at - plan_.changes.begin());
}

std::string PageReview::raw(std::string_view bytes) const {
  return rawLetters(bytes, plan_.detection.reading.pairsAreBytes);
}

std::string PageReview::before(std::uint32_t change, std::size_t most) const {
  return oneLine(raw(plan_.oldBytes(page_, plan_.changes[change])), most);
}

std::string PageReview::written(std::uint32_t change) const {
  const Change& wanted = plan_.changes[change];
  std::string out;
  if (wanted.apply && !plan_.stays(wanted))
    plan_.appendNewBytes(page_, wanted, out);
  else
    plan_.appendLeft(page_, wanted, out);
  return out;
}

std::string PageReview::after(std::uint32_t change, std::size_t most) const {
  std::string letters = written(change);
  if (plan_.changes[change].kind == ChangeKind::Letters && ticked(change)) {
    letters = PagePlan::readable(letters, Form::References);
  }
  return oneLine(letters, most);
}

bool PageReview::changesAnything() const {
  for (std::uint32_t i = 0; i < plan_.changes.size(); ++i) {
    if (ticked(i)) return true;
  }
  return false;
}

std::size_t PageReview::placeInResult(std::size_t old) const {
  std::size_t place = old;
  std::size_t done = 0;
  std::string out;
  for (std::uint32_t i = 0; i < plan_.changes.size(); ++i) {
    const Change& change = plan_.changes[i];
    if (change.begin >= old) break;
    if (change.begin < done) continue;
    done = change.end;
    out = written(i);
    const std::size_t size = change.end - change.begin;
    if (old >= change.end) {
      place += out.size() - size;  // may be less than 0 on the way: it comes out right
      continue;
    }
    // Inside: as far in the new text as in the old one, and at a character.
    place = place - (old - change.begin) + out.size() * (old - change.begin) / size;
    std::size_t inside = out.size() * (old - change.begin) / size;
    const std::size_t start = place - inside;
    while (inside > 0 && inside < out.size() && (static_cast<std::uint8_t>(out[inside]) & 0xC0U) == 0x80) {
      --inside;
    }
    place = start + inside;
    break;
  }
  return place;
}

}  // namespace convert
