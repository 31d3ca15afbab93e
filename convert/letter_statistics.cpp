#include "convert/letter_statistics.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/utf8.h"
#include "convert/form_codec.h"
#include "convert/letter_data.h"

namespace convert {
namespace {

// Letters counted of one text; enough to be sure of it.
constexpr std::uint32_t kMostLetters = 256;

// In steps of the tables.
constexpr int kNoLetter = 15;   // a byte or key that is no letter of the form
constexpr int kOldLetter = 12;  // a Georgian letter that nobody writes now
constexpr int kNoise = 8;       // any letter of 64
constexpr int kNoiseEnd = 3;
constexpr int kAccent = 4;        // a Western letter with an accent
constexpr int kSwitch = 8;        // from one alphabet to another inside a word
constexpr int kInnerCapital = 9;  // behind a small letter
constexpr int kCapital = 1;       // behind another capital
constexpr int kFirstCapital = 3;

// Numbers of letters in the tables; besides these:
constexpr std::uint8_t kBoundary = 0;
constexpr std::uint8_t kForeign = 0xFF;
constexpr std::uint8_t kOld = 0xFE;

template <std::size_t kSize>
class Trigrams {
 public:
  explicit Trigrams(std::string_view packed) {
    for (std::size_t i = 0; i < costs_.size(); ++i) {
      const auto pair = static_cast<std::uint8_t>(packed[i / 2]);
      costs_[i] = i % 2 == 0 ? pair & 15 : pair >> 4;
    }
  }
  int cost(std::uint32_t before, std::uint8_t letter) const { return costs_[before + letter]; }
  // What stands before the next letter: the place of the two last ones' costs.
  static std::uint32_t next(std::uint32_t before, std::uint8_t letter) {
    return (before / kSize % kSize * kSize + letter) * kSize;
  }

 private:
  std::array<std::uint8_t, kSize * kSize * kSize> costs_;
};

using Numbers = std::array<std::uint8_t, 256>;

// The letter without its accent; 0 when it is none.
char unaccented(std::uint8_t latin1) {
  // 00D7 and 00F7 are signs.
  constexpr std::string_view kPlain = "aaaaaaaceeeeiiiidnooooo?ouuuuytsaaaaaaaceeeeiiiidnooooo?ouuuuyty";
  static_assert(kPlain.size() == 64);
  const char plain = kPlain[latin1 - 0xC0U];
  return plain == '?' ? '\0' : plain;
}

struct Tables {
  Trigrams<34> georgian{georgianCosts()};
  Trigrams<33> russian{russianCosts()};
  Trigrams<27> western{westernCosts()};
  Numbers legacyNumber{}, academyNumber{}, russianNumber{}, westernNumber{}, keyNumber{}, latinNumber{};

  static std::uint8_t georgianNumber(char32_t c) {
    if (c >= kFirstGeorgian && c <= kLastModern) return static_cast<std::uint8_t>(c - kFirstGeorgian + 1);
    return isGeorgian(c) ? kOld : kForeign;
  }

  Tables() {
    for (std::size_t i = 0; i < 256; ++i) {
      const auto byte = static_cast<std::uint8_t>(i);
      if (i >= 0xC0) {
        legacyNumber[i] = georgianNumber(charactersOf(Form::Legacy)[i]);
        academyNumber[i] = georgianNumber(charactersOf(Form::Academy)[i]);
        russianNumber[i] = static_cast<std::uint8_t>((i - 0xC0) % 32 + 1);
        const char plain = unaccented(byte);
        westernNumber[i] = plain == '\0' ? kForeign : static_cast<std::uint8_t>(plain - 'a' + 1);
      }
      const auto lower = static_cast<std::uint8_t>((i | 0x20) - 'a');
      if (i < 0x80 && lower < 26) {
        latinNumber[i] = static_cast<std::uint8_t>(lower + 1);
        const char32_t letter = keyboardLetter(byte);
        keyNumber[i] = letter == 0 ? kForeign : georgianNumber(letter);
      }
    }
  }
};

const Tables& tables() {
  static const Tables made;
  return made;
}

// One model on its way through a text.
template <class Model>
class Walker {
 public:
  explicit Walker(const Model& model) : model_(model) {}
  int cost = 0;

  void letter(std::uint8_t number) {
    if (number >= kOld) {
      cost += number == kOld ? kOldLetter : kNoLetter;
      before_ = 0;
      return;
    }
    cost += model_.cost(before_, number);
    before_ = Model::next(before_, number);
  }
  void wordEnds() {
    if (before_ == 0) return;
    cost += model_.cost(before_, kBoundary);
    before_ = 0;
  }

 private:
  const Model& model_;
  std::uint32_t before_ = 0;
};

enum class Case : std::uint8_t { None, Small, Capital };

// What the capitals of a Latin or Russian word cost.
class Capitals {
 public:
  int cost(bool capital) {
    const Case before = before_;
    before_ = capital ? Case::Capital : Case::Small;
    if (!capital) return 0;
    return before == Case::None ? kFirstCapital : before == Case::Small ? kInnerCapital : kCapital;
  }
  void wordEnds() { before_ = Case::None; }

 private:
  Case before_ = Case::None;
};

// ASCII letters as keys, and as what they are.
class LatinWalk {
 public:
  explicit LatinWalk(const Tables& tables)
      : tables_(tables), keyboard_(tables.georgian), latin_(tables.western) {}

  void letter(std::uint8_t byte) {
    if (++letters_ > kMostLetters) return;
    ++counted_;
    keyboard_.letter(tables_.keyNumber[byte]);
    latin_.letter(tables_.latinNumber[byte]);
    latin_.cost += capitals_.cost(byte < 'a');
    noise_ += kNoise;
  }
  // A Western letter between them.
  void accented(std::uint8_t number) {
    keyboard_.wordEnds();
    keyboard_.cost += kSwitch;
    latin_.letter(number);
  }
  void wordEnds() {
    keyboard_.wordEnds();
    latin_.wordEnds();
    capitals_.wordEnds();
    noise_ += kNoiseEnd;
  }
  LatinCosts costs() const { return {letters_, counted_, keyboard_.cost, latin_.cost, noise_}; }

 private:
  const Tables& tables_;
  Walker<Trigrams<34>> keyboard_;
  Walker<Trigrams<27>> latin_;
  Capitals capitals_;
  int noise_ = 0;
  std::uint32_t letters_ = 0;
  std::uint32_t counted_ = 0;
};

bool isAsciiLetter(std::uint8_t byte) {
  return static_cast<std::uint8_t>((byte | 0x20) - 'a') < 26;
}

void walkAscii(std::string_view text, LatinWalk& walk) {
  bool inWord = false;
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (isAsciiLetter(byte)) {
      walk.letter(byte);
      inWord = true;
    } else if (inWord) {
      walk.wordEnds();
      inWord = false;
    }
  }
  if (inWord) walk.wordEnds();
}

// The letters C0..FF, each as what it is in every 8-bit form.
class EightBitWalk {
 public:
  explicit EightBitWalk(const Tables& tables)
      : tables_(tables),
        legacy_(tables.georgian),
        academy_(tables.georgian),
        russian_(tables.russian),
        western_(tables.western) {}

  void letter(std::uint8_t byte) {
    ++costs_.letters;
    if (costs_.letters > kMostLetters) return;
    ++costs_.counted;
    legacy_.letter(tables_.legacyNumber[byte]);
    academy_.letter(tables_.academyNumber[byte]);
    russian_.letter(tables_.russianNumber[byte]);
    russian_.cost += capitals_.cost(byte < 0xE0);
    western_.letter(tables_.westernNumber[byte]);
    western_.cost += kAccent;
    costs_.noise += kNoise;
    if (last_ == Last::Ascii) switches_ += kSwitch;
    last_ = Last::Eight;
  }
  void ascii(std::uint8_t byte) {
    if (last_ == Last::Eight) {
      endGeorgianAndRussian();
      switches_ += kSwitch;
    }
    // Its own cost is the same in all forms; what matters is what it makes of the letters behind it.
    const int before = western_.cost;
    western_.letter(tables_.latinNumber[byte]);
    western_.cost = before;
    last_ = Last::Ascii;
  }
  void wordEnds() {
    if (last_ == Last::Eight) {
      endGeorgianAndRussian();
      western_.wordEnds();
      costs_.noise += kNoiseEnd;
    } else if (last_ == Last::Ascii) {
      const int before = western_.cost;
      western_.wordEnds();
      western_.cost = before;
    }
    last_ = Last::None;
  }
  EightBitCosts costs() const {
    EightBitCosts made = costs_;
    made.legacy = legacy_.cost + switches_;
    made.academy = academy_.cost + switches_;
    made.russian = russian_.cost + switches_;
    made.western = western_.cost;
    return made;
  }

 private:
  enum class Last : std::uint8_t { None, Ascii, Eight };

  void endGeorgianAndRussian() {
    legacy_.wordEnds();
    academy_.wordEnds();
    russian_.wordEnds();
    capitals_.wordEnds();
  }

  const Tables& tables_;
  Walker<Trigrams<34>> legacy_, academy_;
  Walker<Trigrams<33>> russian_;
  Walker<Trigrams<27>> western_;
  Capitals capitals_;
  EightBitCosts costs_;
  int switches_ = 0;
  Last last_ = Last::None;
};

bool plainAscii(std::string_view text, bool references) {
  unsigned char high = 0;
  for (const char c : text) high |= static_cast<unsigned char>(c);
  return high < 0x80 && !(references && text.find('&') != std::string_view::npos);
}

}  // namespace

Statistics statisticsOf(std::string_view text, Reading reading) {
  Statistics found;
  LatinWalk latin(tables());
  if (plainAscii(text, reading.references)) {
    walkAscii(text, latin);
    found.latin = latin.costs();
    return found;
  }
  EightBitWalk eight(tables());
  bool inWord = false;
  const auto wordEnds = [&] {
    if (!inWord) return;
    latin.wordEnds();
    eight.wordEnds();
    inWord = false;
  };
  bool afterByte = false;
  for (std::size_t at = 0; at < text.size();) {
    const Symbol symbol = symbolAt(text, at, reading, afterByte);
    afterByte = symbol.source == Source::Byte;
    at += symbol.size;
    if (symbol.source == Source::Ascii) {
      const auto byte = static_cast<std::uint8_t>(symbol.character);
      if (isAsciiLetter(byte)) {
        latin.letter(byte);
        eight.ascii(byte);
        inWord = true;
      } else {
        wordEnds();
      }
      continue;
    }
    if (symbol.source == Source::Utf8 || symbol.source == Source::Reference) {
      if (const auto repaired = repairedAt(text, at - symbol.size, reading)) {
        ++(repaired->sure ? found.doubled : found.doubledPairs);
        at += repaired->size - symbol.size;
        wordEnds();
        continue;
      }
    }
    const std::uint8_t byte = eightBitOf(symbol);
    if (byte >= 0xC0) {
      eight.letter(byte);
      latin.accented(tables().westernNumber[byte]);
      inWord = true;
      ++(symbol.source == Source::Byte   ? found.bytes
         : symbol.source == Source::Utf8 ? found.utf8
                                         : found.references);
      continue;
    }
    wordEnds();
    if (symbol.source == Source::Byte) {
      ++found.otherBytes;
    } else if (symbol.source == Source::Literal) {
    } else if (isGeorgian(symbol.character)) {
      ++(symbol.source == Source::Utf8 ? found.georgianUtf8 : found.georgianReferences);
      if (!symbol.sound) ++found.brokenReferences;
    } else if (isCyrillic(symbol.character)) {
      ++(symbol.source == Source::Utf8 ? found.cyrillicUtf8 : found.cyrillicReferences);
      if (!symbol.sound) ++found.brokenReferences;
    } else if (symbol.source == Source::Utf8) {
      ++found.otherUtf8;
    }
  }
  wordEnds();
  found.latin = latin.costs();
  found.eight = eight.costs();
  return found;
}

int keyboardGain(std::string_view word) {
  LatinWalk walk(tables());
  walkAscii(word, walk);
  const LatinCosts costs = walk.costs();
  return std::min(costs.latin, costs.noise) - costs.keyboard;
}

}  // namespace convert
