#include "convert/detector.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "convert/letter_statistics.h"

namespace convert {
namespace {

// Everything is measured in steps of 3/4 bit, as the tables are.
constexpr double kBitsAStep = 0.75;
constexpr int kSure = 8;      // a text that leads by less is uncertain
constexpr int kOwnLead = 14;  // a text that leads so far by itself speaks for the page
constexpr int kFontHint = 40;
constexpr int kOtherFont = 30;
constexpr int kMostLatinInFont = -80;
constexpr int kNeighbour = 4;
constexpr int kCharsetHint = 6;
constexpr int kNoisePrior = -10;
constexpr int kMostPrior = 14;
// Latin-1 letters that are well-formed, as UTF-8 or references, must be very unlike themselves.
constexpr int kWellFormedLead = 34;
// Keyboard letters in a page that shows no other sign of them.
constexpr int kKeyboardAlone = 20;
constexpr std::size_t kFewLetters = 12;
constexpr std::size_t kManyLetters = 60;
constexpr std::uint32_t kManyStrange = 3;
constexpr std::uint32_t kStrangeShare = 16;  // one of so many
constexpr std::size_t kWesternAtFirst = 12;  // letters
constexpr int kCertain = 1000;
constexpr int kMostAlike = 50;          // texts
constexpr std::size_t kBeginning = 20;  // bytes

constexpr std::array<Form, 4> kEightBit = {Form::Legacy, Form::Academy, Form::Russian, Form::Western};
constexpr std::size_t kWestern = 3;

// What was found in one piece; see Statistics.
struct Findings {
  std::uint16_t eight = 0, latin = 0, bytes = 0, utf8 = 0, references = 0, otherBytes = 0, otherUtf8 = 0;
  std::uint16_t georgianUtf8 = 0, georgianReferences = 0, cyrillicUtf8 = 0, cyrillicReferences = 0;
  std::uint16_t notLegacy = 0, notAcademy = 0;
  std::uint16_t broken = 0, doubled = 0, doubledPairs = 0;
  // What each form gains against letters drawn by lot, in steps of 3/4 bit.
  std::array<std::int16_t, 4> gains{};  // legacy, academy, russian, western
  std::int16_t keyboardGain = 0;        // against Latin letters
};

std::uint16_t u16(std::uint32_t value) {
  return static_cast<std::uint16_t>(std::min<std::uint32_t>(value, 0xFFFF));
}
std::int16_t s16(int value) {
  return static_cast<std::int16_t>(std::clamp(value, -30000, 30000));
}

Findings findingsOf(const Statistics& s) {
  Findings f;
  f.eight = u16(s.eight.letters);
  f.latin = u16(s.latin.letters);
  f.bytes = u16(s.bytes);
  f.utf8 = u16(s.utf8);
  f.references = u16(s.references);
  f.otherBytes = u16(s.otherBytes);
  f.otherUtf8 = u16(s.otherUtf8);
  f.georgianUtf8 = u16(s.georgianUtf8);
  f.georgianReferences = u16(s.georgianReferences);
  f.cyrillicUtf8 = u16(s.cyrillicUtf8);
  f.cyrillicReferences = u16(s.cyrillicReferences);
  f.notLegacy = u16(s.notLegacy);
  f.notAcademy = u16(s.notAcademy);
  f.broken = u16(s.brokenReferences);
  f.doubled = u16(s.doubled);
  f.doubledPairs = u16(s.doubledPairs);
  const std::array<int, 4> costs = {s.eight.legacy, s.eight.academy, s.eight.russian, s.eight.western};
  for (std::size_t i = 0; i < costs.size(); ++i) f.gains[i] = s16(s.eight.noise - costs[i]);
  f.keyboardGain = s16(std::min(s.latin.latin, s.latin.noise) - s.latin.keyboard);
  return f;
}

std::uint8_t confidenceOf(int lead) {
  constexpr int kAllBut = 16;  // from here on 100
  static const auto table = [] {
    std::array<std::uint8_t, kAllBut> made{};
    for (int i = 0; i < kAllBut; ++i) {
      const double doubt = std::exp2(-i * kBitsAStep);
      made[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(std::lround(100 / (1 + doubt)));
    }
    return made;
  }();
  return lead >= kAllBut ? 100 : table[static_cast<std::size_t>(std::max(lead, 0))];
}

int logPrior(double share, int lowest) {
  return std::max(lowest, static_cast<int>(std::lround(std::log2(share) / kBitsAStep)));
}

// Which of the forms' number a declared character set hints at; -1: none.
int hinted(std::string_view charset) {
  const std::string name = base::upperAscii(charset);
  if (name == "WINDOWS-1251" || name == "CP1251") return 2;
  if (name == "GEORGIAN-PS" || name == "GEOSTD8" || name == "X-GEORGIAN") return 0;
  if (name == "GEORGIAN-ACADEMY") return 1;
  return -1;
}

// Character sets whose bytes mean letters that none of the forms has.
bool isForeign(std::string_view charset) {
  const std::string name = base::upperAscii(charset);
  static constexpr std::array<std::string_view, 26> kBeginnings = {
      "ISO-8859-2",   "ISO-8859-3",   "ISO-8859-4",   "ISO-8859-5",   "ISO-8859-6",   "ISO-8859-7",
      "ISO-8859-8",   "ISO-8859-9",   "ISO-8859-10",  "ISO-8859-11",  "ISO-8859-13",  "ISO-8859-14",
      "ISO-8859-16",  "WINDOWS-1250", "WINDOWS-1253", "WINDOWS-1254", "WINDOWS-1255", "WINDOWS-1256",
      "WINDOWS-1257", "WINDOWS-1258", "KOI8",         "GB",           "BIG5",         "SHIFT",
      "EUC-",         "ISO-2022"};
  return std::ranges::any_of(kBeginnings, [&](std::string_view one) { return name.starts_with(one); });
}

// The page as a whole, from its pieces by themselves.
struct Whole {
  std::array<std::size_t, 4> eight{};  // letters of the pieces that speak for a form
  std::array<int, 4> eightPrior{};
  std::size_t keyboard = 0, latin = 0, georgian = 0, doubled = 0, broken = 0;
  int keyboardPrior = 0;
};

class Detector {
 public:
  Detector(std::string_view page, const DetectorOptions& options) : page_(page), options_(options) {}

  Detection run() {
    Trouble& trouble = found_.page.trouble;
    trouble = troubleOf(page_);
    if (trouble != Trouble::None) {
      found_.page.form = trouble == Trouble::Empty ? Form::Ascii : Form::Unknown;
      found_.page.confidence = trouble == Trouble::Empty ? 100 : 0;
      return std::move(found_);
    }
    found_.census = censusOf(page_);
    // By chance two letters and signs of an 8-bit text are a pair of UTF-8 now and then.
    found_.reading.pairsAreBytes = found_.census.loneBytes > 4 * found_.census.pairs;
    found_.reading.oddOnesAreBytes = !found_.census.isUtf8();
    found_.parts = partsOf(page_, options_.parts);
    for (const PagePiece& piece : found_.parts.pieces) {
      const std::string_view text = page_.substr(piece.begin, piece.end - piece.begin);
      findings_.push_back(look(text, readingOf(found_, piece)));
    }
    weighPage();
    std::size_t i = 0;
    for (const PagePiece& piece : found_.parts.pieces) {
      found_.verdicts.push_back(judge(piece, findings_[i++]));
    }
    judgePage();
    return std::move(found_);
  }

 private:
  // In a page whose texts have all been of one kind for a while, the next one is too unless something speaks
  // against it: of Georgian letters foreign ones among them, of Latin letters the first words.
  Findings look(std::string_view text, Reading reading) {
    if (alike_ >= kMostAlike && kind_ < 2) {
      const auto seen = bytesAtAGlance(text, reading);
      if (seen && seen->letters > seen->latin && (kind_ == 0 ? seen->notLegacy : seen->notAcademy) == 0) {
        Findings f;
        f.eight = f.bytes = u16(seen->letters);
        f.otherBytes = u16(seen->otherBytes);
        f.latin = u16(seen->latin);
        f.keyboardGain = s16(-kKeyboardAlone);
        f.gains[static_cast<std::size_t>(kind_)] = s16(std::min<int>(f.eight * 2, kKeyboardAlone));
        return f;
      }
    } else if (alike_ >= kMostAlike && text.size() > kBeginning) {
      const Findings f = findingsOf(statisticsOf(text, reading, kBeginning));
      if (kindOf(f) == kind_) return f;
    }
    const Findings f = findingsOf(statisticsOf(text, reading));
    const int kind = kindOf(f);
    if (kind < 0) return f;
    alike_ = kind == kind_ ? alike_ + 1 : 0;
    kind_ = kind;
    return f;
  }

  // A number for the kind of a text that is plainly of one; -1 for others.
  static int kindOf(const Findings& f) {
    constexpr int kLatin = 4;
    constexpr int kKeyboard = 5;
    if (f.eight == 0)
      return f.keyboardGain >= kKeyboardAlone ? kKeyboard : f.keyboardGain <= -kOwnLead ? kLatin : -1;
    for (std::size_t form = 0; form < kEightBit.size(); ++form) {
      if (likely(f, form)) return static_cast<int>(form);
    }
    return -1;
  }

  static bool likely(const Findings& f, std::size_t form) {
    int best = 0;
    for (std::size_t other = 0; other < kEightBit.size(); ++other) {
      if (other != form) best = std::max<int>(best, f.gains[other]);
    }
    return f.gains[form] - best >= kOwnLead;
  }

  Form fontForm(const PagePiece& piece) const { return found_.parts.fonts[piece.font].form; }

  void weighPage() {
    std::size_t i = 0;
    for (const PagePiece& piece : found_.parts.pieces) {
      const Findings& f = findings_[i++];
      const Form font = fontForm(piece);
      for (std::size_t form = 0; form < kEightBit.size(); ++form) {
        // Of Western letters each page has some, in well-formed ways too.
        const std::size_t letters = form == kWestern ? f.bytes : f.eight;
        if (likely(f, form) || (font == kEightBit[form] && f.gains[form] > 0)) whole_.eight[form] += letters;
      }
      const bool keyboardFont = font == Form::Keyboard;
      const bool byFont = f.latin >= 3 && keyboardFont && f.keyboardGain > -kFontHint;
      const bool alone = f.keyboardGain >= kKeyboardAlone && font != Form::Western && font != Form::Utf8;
      if (byFont || alone)
        whole_.keyboard += f.latin;
      else if (f.keyboardGain <= -kSure)
        whole_.latin += f.latin;
      whole_.georgian += f.georgianUtf8 + f.georgianReferences;
      whole_.doubled += f.doubled;
      whole_.broken += f.broken;
    }
    // Where nothing speaks for anything, a letter or two are Western.
    whole_.eight[kWestern] += kWesternAtFirst;
    double all = 4;
    for (const std::size_t letters : whole_.eight) all += static_cast<double>(letters);
    const int hint = hinted(found_.parts.declared(page_));
    for (std::size_t form = 0; form < kEightBit.size(); ++form) {
      whole_.eightPrior[form] = logPrior((static_cast<double>(whole_.eight[form]) + 1) / all, -kMostPrior) +
                                (hint == static_cast<int>(form) ? kCharsetHint : 0);
    }
    whole_.georgian += whole_.eight[0] + whole_.eight[1];
    const double ratio = (static_cast<double>(whole_.keyboard) + 1) /
                         (static_cast<double>(whole_.latin) + static_cast<double>(whole_.georgian) + 1);
    whole_.keyboardPrior = std::min(logPrior(ratio, -kMostPrior), kMostPrior / 2);
    if (whole_.keyboard < kFewLetters) whole_.keyboardPrior -= kMostPrior;
  }

  Verdict judge(const PagePiece& piece, const Findings& f) {
    if (options_.from) return finished(f, chosen(), kCertain);
    Verdict v;
    int lead = kCertain;
    if (f.eight > 0)
      judgeEightBit(piece, f, v, lead);
    else if (f.otherBytes > 0)
      v.eight = mostEightBit();
    if (f.latin > 0 && piece.place != Place::ScriptString && piece.place != Place::Comment) {
      judgeLatin(piece, f, v, lead);
    }
    judgeDoubled(f, v);
    return finished(f, v, lead);
  }

  static Verdict finished(const Findings& f, Verdict v, int lead) {
    formOf(f, v);
    const bool plain = v.form == Form::Utf8 || v.form == Form::Ascii || v.form == Form::References;
    if (plain && !v.uncertain && v.reason != Reason::Chosen) v.reason = Reason::Valid;
    v.confidence = v.form == Form::Utf8 || v.form == Form::References ? 100 : confidenceOf(lead);
    const bool letters =
        v.keyboard || v.repair || f.bytes > 0 || f.otherBytes > 0 || (v.eightEverywhere && f.eight > 0);
    v.changesToUtf8 = letters || f.georgianReferences > 0 || f.cyrillicReferences > 0 || f.broken > 0;
    v.changesToReferences = letters || f.georgianUtf8 > 0 || f.cyrillicUtf8 > 0 || f.otherUtf8 > 0 ||
                            f.utf8 > 0 || f.doubledPairs > 0 || f.broken > 0;
    return v;
  }

  // All that is not plain Latin is in one form, the user says.
  Verdict chosen() const {
    Verdict v;
    const Form from = *options_.from;
    v.reason = Reason::Chosen;
    v.eight = isEightBit(from) ? from : mostEightBit();
    v.eightEverywhere = from == Form::Legacy || from == Form::Academy || from == Form::Russian;
    v.keyboard = from == Form::Keyboard;
    v.repair = from == Form::DoubleUtf8;
    return v;
  }

  Form mostEightBit() const {
    std::size_t best = kWestern;
    for (std::size_t form = 0; form < kEightBit.size(); ++form) {
      if (whole_.eight[form] > whole_.eight[best]) best = form;
    }
    return kEightBit[best];
  }

  void judgeEightBit(const PagePiece& piece, const Findings& f, Verdict& v, int& lead) {
    const Form font = fontForm(piece);
    std::array<int, 4> totals{};
    for (std::size_t form = 0; form < kEightBit.size(); ++form) {
      totals[form] = f.gains[form] + whole_.eightPrior[form] + (font == kEightBit[form] ? kFontHint : 0) +
                     (lastEight_ == kEightBit[form] ? kNeighbour : 0);
    }
    std::size_t best = 0;
    for (std::size_t form = 1; form < totals.size(); ++form) {
      if (totals[form] > totals[best]) best = form;
    }
    // Western letters are what is left when nothing else fits; of the others some text in the language is
    // asked.
    const bool known = whole_.eight[best] >= kManyLetters && whole_.eightPrior[best] >= -kSure / 2;
    int second = best == kWestern ? -kCertain : known ? 3 * kNoisePrior : kNoisePrior;
    std::size_t own = 0;
    for (std::size_t form = 0; form < totals.size(); ++form) {
      if (form != best) second = std::max(second, totals[form]);
      if (f.gains[form] > f.gains[own]) own = form;
    }
    const int eightLead = totals[best] - second;
    v.eight = kEightBit[best];
    v.reason = font == v.eight                        ? Reason::Font
               : own == best && f.gains[best] > kSure ? Reason::Letters
                                                      : Reason::Page;
    const bool wellFormed = f.bytes == 0;
    if (best == kWestern && wellFormed) return;
    lead = eightLead;
    v.uncertain = eightLead < (wellFormed && !known ? kWellFormedLead : kSure);
    // Two alphabets in one text: neither reads all of it.
    const std::uint32_t strange = best == 0 ? f.notLegacy : best == 1 ? f.notAcademy : 0;
    if (strange == f.eight) {
      v.eight = Form::Western;
      v.uncertain = false;
      return;
    }
    if (strange >= kManyStrange && (strange >= 2 * kManyStrange || strange * kStrangeShare > f.eight))
      v.uncertain = true;
    if (wellFormed) {
      // Nothing is wrong with it as it stands, so that more is asked.
      const int against = f.gains[best] - std::max<int>(f.gains[kWestern], 0);
      const bool enough =
          against >= (f.utf8 > 0 ? kWellFormedLead : kSure) || (font == v.eight && f.utf8 == 0);
      if (!enough) {
        v.uncertain = f.references >= f.utf8 && !v.uncertain && whole_.eight[best] > 0;
        v.eight = Form::Western;
        return;
      }
    }
    if (v.uncertain) {
      v.eight = Form::Western;
      return;
    }
    v.eightEverywhere = best != kWestern;
    lastEight_ = v.eight;
  }

  void judgeLatin(const PagePiece& piece, const Findings& f, Verdict& v, int& lead) {
    const Form font = fontForm(piece);
    const bool here = font == Form::Keyboard;
    // Under a font a name or two in Latin letters are judged by themselves, word by word.
    int gain = f.keyboardGain;
    if (here && gain > kMostLatinInFont) gain = std::max(gain, kSure - kFontHint + kNeighbour);
    int total = gain + (lastKeyboard_ ? kNeighbour : -kNeighbour / 2);
    if (here)
      total += kFontHint;
    else if (font != Form::Unknown)
      total -= kOtherFont;
    if (!here) total += whole_.keyboardPrior;
    if (!here && (f.eight > 0 || f.georgianUtf8 > 0 || f.georgianReferences > 0)) total -= kOtherFont;
    if (total >= kSure) {
      v.keyboard = true;
      v.reason = here ? Reason::Font : f.keyboardGain > kSure ? Reason::Letters : Reason::Page;
      lead = std::min(lead, total);
      lastKeyboard_ = true;
    } else if (total > -kSure && (here || whole_.keyboard >= kFewLetters)) {
      v.uncertain = true;
      v.reason = here ? Reason::Font : Reason::Page;
      lead = std::min(lead, std::abs(total));
    } else {
      lastKeyboard_ = false;
    }
  }

  void judgeDoubled(const Findings& f, Verdict& v) const {
    const std::size_t pairs = f.doubledPairs;
    const bool alone = f.doubled == 0 && pairs > 0;
    v.repair = f.doubled > 0 || pairs > 0;
    if (!alone) return;
    // A pair or two may be meant as they stand.
    const bool sure = f.utf8 + f.references == 0 && (pairs >= kManyPairs || whole_.doubled >= kManyPairs);
    v.repair = sure;
    if (!sure && pairs >= 2) v.uncertain = true;
  }

  static void formOf(const Findings& f, Verdict& v) {
    struct Count {
      Form form;
      std::uint32_t letters;
    };
    const std::uint32_t utf8 = f.georgianUtf8 + f.cyrillicUtf8 + (v.eightEverywhere ? 0U : f.utf8);
    const std::uint32_t eight = v.eightEverywhere ? f.eight : f.bytes;
    const std::array<Count, 6> counts = {
        {{v.eight, v.uncertain ? 0 : eight},
         {Form::Unknown, v.uncertain ? eight : 0},
         {Form::Keyboard, v.keyboard ? f.latin : 0U},
         {Form::DoubleUtf8, v.repair ? std::uint32_t{f.doubled} + f.doubledPairs : 0},
         {Form::References, std::uint32_t{f.georgianReferences} + f.cyrillicReferences},
         {Form::Utf8, utf8}}};
    const Count* best = &counts[0];
    for (const Count& count : counts) {
      if (count.letters > best->letters) best = &count;
    }
    v.letters = u16(best->letters > 0 ? best->letters : f.latin);
    if (best->letters > 0)
      v.form = best->form;
    else if (v.uncertain)
      v.form = f.references > 0 ? Form::Unknown : Form::Keyboard;
    else
      v.form = f.otherUtf8 > 0 ? Form::Utf8 : f.otherBytes > 0 ? v.eight : Form::Ascii;
  }

  void judgePage() {
    std::array<std::size_t, kForms> letters{};
    std::array<std::size_t, kForms> leads{};
    const auto count = [&](Form form, std::size_t n, const Verdict& v) {
      letters[static_cast<std::size_t>(form)] += n;
      leads[static_cast<std::size_t>(form)] += n * v.confidence;
    };
    std::size_t signs = 0;
    for (std::size_t i = 0; i < findings_.size(); ++i) {
      const Findings& f = findings_[i];
      const Verdict& v = found_.verdicts[i];
      const std::size_t eight = v.eightEverywhere ? f.eight : f.bytes;
      count(v.uncertain ? Form::Unknown : v.eight, eight, v);
      count(v.keyboard ? Form::Keyboard : Form::Ascii, f.latin, v);
      if (v.repair) count(Form::DoubleUtf8, f.doubled + f.doubledPairs, v);
      count(Form::References, f.georgianReferences + f.cyrillicReferences, v);
      count(Form::Utf8, f.georgianUtf8 + f.cyrillicUtf8 + (v.eightEverywhere ? 0U : f.utf8), v);
      signs += f.otherUtf8;
    }
    const auto of = [&](Form form) { return letters[static_cast<std::size_t>(form)]; };
    std::size_t all = 0;
    Form best = Form::Utf8;
    for (std::size_t i = 0; i < kForms; ++i) {
      const Form form = static_cast<Form>(i);
      if (form == Form::Ascii) continue;
      all += letters[i];
      if (letters[i] > of(best)) best = form;
    }
    PageVerdict& page = found_.page;
    if (all == 0) {
      const bool plain =
          signs == 0 && found_.census.pairs + found_.census.longer + found_.census.loneBytes == 0;
      page.form = plain ? Form::Ascii : found_.census.isUtf8() ? Form::Utf8 : mostEightBit();
      page.letters = plain ? of(Form::Ascii) : signs;
      return;
    }
    // Western letters and signs stand between those of every language.
    const std::size_t minor = of(Form::Western) + of(Form::Unknown);
    const bool isMinor = best == Form::Western || best == Form::Unknown;
    const std::size_t other = isMinor ? all - minor : all - of(best) - minor;
    constexpr std::size_t kMixedLetters = 6;
    if (other >= kMixedLetters && other * 10 > all) {
      page.form = Form::Mixed;
      page.letters = all;
      page.confidence = 95;
    } else {
      page.form = best;
      page.letters = of(best);
      page.confidence = static_cast<std::uint8_t>(leads[static_cast<std::size_t>(best)] / of(best));
    }
    if (best == Form::Unknown) page.confidence = 50;
    const bool western =
        page.form == Form::Western || page.form == Form::Unknown || page.form == Form::Russian;
    if (western && !options_.from && isForeign(found_.parts.declared(page_)) && found_.census.loneBytes > 0) {
      page.trouble = Trouble::ForeignCharset;
      page.form = Form::Unknown;
      page.confidence = 0;
    }
  }

  std::string_view page_;
  const DetectorOptions& options_;
  Detection found_;
  std::deque<Findings> findings_;  // for each piece
  Whole whole_;
  int kind_ = -1;
  int alike_ = 0;
  Form lastEight_ = Form::Unknown;
  bool lastKeyboard_ = false;
};

}  // namespace

std::string_view nameOf(Reason reason) {
  static constexpr std::array<std::string_view, 9> kNames = {
      "valid", "font", "letters", "page", "chosen", "doubled", "no key", "reencoded", "declared"};
  return kNames[static_cast<std::size_t>(reason)];
}

bool Detection::severalForms() const {
  Form first = Form::Ascii;
  for (const Verdict& verdict : verdicts) {
    if (verdict.form == Form::Ascii || verdict.form == first) continue;
    if (first != Form::Ascii) return true;
    first = verdict.form;
  }
  return false;
}

Detection detect(std::string_view page, const DetectorOptions& options) {
  return Detector(page, options).run();
}

}  // namespace convert
