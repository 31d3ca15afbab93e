#include "convert/letter_statistics.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "convert/form_codec.h"
#include "convert/letter_data.h"

namespace convert {
namespace {

// In steps of the tables.
constexpr int kNoLetter = 15;     // a byte or key that is no letter of the form
constexpr int kOldLetter = 12;    // a Georgian letter that nobody writes now
constexpr int kNoise = 8;         // any letter of 64
constexpr int kNoiseWord = 3;     // the end of a word of such
constexpr int kAccent = 4;        // a Western letter with an accent
constexpr int kBesideAscii = 9;   // the same in a word of ASCII letters
constexpr int kSwitch = 12;       // from one alphabet to another inside a word
constexpr int kInnerCapital = 9;  // behind a small letter
constexpr int kCapital = 1;       // behind another capital
constexpr int kFirstCapital = 3;

// The longest text whose costs fit their sums.
constexpr std::size_t kLongest = 1200;

// How likely a letter is behind two others, from the data that the program carries. Letters are numbered from
// 1; 0 stands for everything else.
class Trigrams {
 public:
  Trigrams(std::string_view packed, std::size_t size) : packed_(packed), size_(size) {}
  int cost(std::size_t a, std::size_t b, std::size_t c) const {
    const std::size_t at = (a * size_ + b) * size_ + c;
    const auto pair = static_cast<std::uint8_t>(packed_[at / 2]);
    return at % 2 == 0 ? pair & 15 : pair >> 4;
  }

 private:
  std::string_view packed_;
  std::size_t size_;
};

constexpr std::uint8_t kForeign = 0xFF;  // no letter of the form
constexpr std::uint8_t kOld = 0xFE;

std::uint8_t georgianNumber(char32_t c) {
  if (c >= kFirstGeorgian && c <= kLastModern) return static_cast<std::uint8_t>(c - kFirstGeorgian + 1);
  return isGeorgian(c) ? kOld : kForeign;
}

// The cost of the letter numbered c behind those numbered a and b.
int letterCost(const Trigrams& model, std::uint8_t a, std::uint8_t b, std::uint8_t c) {
  if (c >= kOld) return c == kOld ? kOldLetter : kNoLetter;
  if (b >= kOld) a = b = 0;
  if (a >= kOld || b == 0) a = 0;
  return model.cost(a, b, c);
}

int capitalCost(bool isLetterBefore, bool capitalBefore, bool capital) {
  if (!capital) return 0;
  return !isLetterBefore ? kFirstCapital : capitalBefore ? kCapital : kInnerCapital;
}

// Tables over symbols, with the costs of several forms side by side in one number: a text is read once for
// all.

// 8-bit texts. Symbols: 0 no letter, 1..64 the letters C0..FF, 65 an ASCII letter. Lanes of 8 bits: legacy,
// academy, Russian, Western.
class EightBitTable {
 public:
  static constexpr std::size_t kSymbols = 66;
  static constexpr std::uint8_t kAscii = 65;

  EightBitTable() : costs_(kSymbols * kSymbols * kSymbols) {
    std::size_t at = 0;
    for (std::size_t a = 0; a < kSymbols; ++a) {
      for (std::size_t b = 0; b < kSymbols; ++b) {
        for (std::size_t c = 0; c < kSymbols; ++c) costs_[at++] = lanes(a, b, c);
      }
    }
  }

  // Sums in 16 bits: legacy and Russian in the first, academy and Western in the second number.
  void sum(const std::uint8_t* symbols, std::size_t size, EightBitCosts& costs) const {
    std::uint32_t even = 0;
    std::uint32_t odd = 0;
    std::size_t before = 0;  // (a * kSymbols + b) * kSymbols
    std::size_t last = 0;
    std::uint32_t letters = 0;
    for (std::size_t i = 0; i <= size; ++i) {
      const std::size_t symbol = i < size ? symbols[i] : 0;
      const std::uint32_t one = costs_[before + symbol];
      even += one & 0x00FF00FF;
      odd += (one >> 8) & 0x00FF00FF;
      before = (last * kSymbols + symbol) * kSymbols;
      last = symbol;
      letters += static_cast<std::uint8_t>(symbol - 1) < 64 ? 1 : 0;
    }
    costs.letters = letters;
    costs.legacy = static_cast<int>(even & 0xFFFF);
    costs.russian = static_cast<int>(even >> 16);
    costs.academy = static_cast<int>(odd & 0xFFFF);
    costs.western = static_cast<int>(odd >> 16);
    costs.noise = static_cast<int>(letters * kNoise + letters * kNoiseWord / 6);
  }

 private:
  static bool isLetter(std::size_t symbol) { return symbol > 0 && symbol < kAscii; }

  using Numbers = std::array<std::uint8_t, kSymbols>;

  // The letter without its accent; '?' for the two signs among them.
  static constexpr std::string_view kPlain =
      "aaaaaaaceeeeiiiidnooooo?ouuuuytsaaaaaaaceeeeiiiidnooooo?ouuuuyty";
  static_assert(kPlain.size() == 64);

  static Numbers numbersOf(Form form) {
    Numbers numbers{};
    for (std::size_t i = 1; i < kAscii; ++i) {
      const char plain = kPlain[i - 1];
      numbers[i] = form == Form::Russian ? static_cast<std::uint8_t>((i - 1) % 32 + 1)
                   : form == Form::Western
                       ? (plain == '?' ? kForeign : static_cast<std::uint8_t>(plain - 'a' + 1))
                       : georgianNumber(charactersOf(form)[0xC0 + i - 1]);
    }
    return numbers;
  }

  std::uint32_t lanes(std::size_t a, std::size_t b, std::size_t c) const {
    const auto lane = [&](const Trigrams& model, const Numbers& numbers, bool western) {
      if (c == kAscii) return !isLetter(b) ? 0 : western ? kAccent : endCost(model, numbers, a, b) + kSwitch;
      if (c == 0) return isLetter(b) ? endCost(model, numbers, a, b) : 0;
      if (western && (b == kAscii || numbers[c] == kForeign)) return kBesideAscii;
      return letterCost(model, numbers[a], numbers[b], numbers[c]) + (b == kAscii ? kSwitch : 0) +
             (western ? kAccent : 0);
    };
    const bool capital = c >= 1 && c <= 32;
    const int capitals = capitalCost(isLetter(b), b <= 32, capital);
    const auto legacy = static_cast<std::uint32_t>(lane(georgian_, legacy_, false));
    const auto academy = static_cast<std::uint32_t>(lane(georgian_, academy_, false));
    const auto russian = static_cast<std::uint32_t>(lane(russianModel_, russian_, false) + capitals);
    const auto western = static_cast<std::uint32_t>(lane(westernModel_, western_, true));
    return legacy | academy << 8 | russian << 16 | western << 24;
  }

  static int endCost(const Trigrams& model, const Numbers& numbers, std::size_t a, std::size_t b) {
    return numbers[b] >= kOld ? 0 : letterCost(model, numbers[a], numbers[b], 0);
  }

  Trigrams georgian_{georgianCosts(), 34}, russianModel_{russianCosts(), 33},
      westernModel_{westernCosts(), 27};
  Numbers legacy_ = numbersOf(Form::Legacy), academy_ = numbersOf(Form::Academy),
          russian_ = numbersOf(Form::Russian), western_ = numbersOf(Form::Western);
  std::vector<std::uint32_t> costs_;
};

// ASCII texts. Symbols: 0 no letter, 1..26 small ones, 27..52 capitals. Lanes of 8 bits: keyboard, Latin.
class LatinTable {
 public:
  static constexpr std::size_t kSymbols = 53;

  LatinTable() : costs_(kSymbols * kSymbols * kSymbols) {
    for (std::size_t i = 1; i < kSymbols; ++i) {
      const auto key = static_cast<std::uint8_t>(i <= 26 ? 'a' + i - 1 : 'A' + i - 27);
      const char32_t letter = keyboardLetter(key);
      keys_[i] = letter == 0 ? kForeign : georgianNumber(letter);
      symbols_[key] = static_cast<std::uint8_t>(i);
    }
    std::size_t at = 0;
    for (std::size_t a = 0; a < kSymbols; ++a) {
      for (std::size_t b = 0; b < kSymbols; ++b) {
        for (std::size_t c = 0; c < kSymbols; ++c) costs_[at++] = lanes(a, b, c);
      }
    }
  }

  const std::array<std::uint8_t, 256>& symbols() const { return symbols_; }

  // `symbols` gives the symbol of the i-th of `size` bytes.
  template <class Symbols>
  LatinCosts sum(std::size_t size, Symbols symbols) const {
    std::uint32_t sums = 0;
    std::size_t before = 0;
    std::size_t last = 0;
    std::uint32_t letters = 0;
    std::uint32_t words = 0;
    for (std::size_t i = 0; i <= size; ++i) {
      const std::size_t symbol = i < size ? symbols(i) : 0;
      const std::uint32_t one = costs_[before + symbol];
      sums += (one & 0xFF) | (one & 0xFF00) << 8;
      letters += symbol != 0 ? 1 : 0;
      words += symbol == 0 && last != 0 ? 1 : 0;
      before = (last * kSymbols + symbol) * kSymbols;
      last = symbol;
    }
    return {letters, static_cast<int>(sums & 0xFFFF), static_cast<int>(sums >> 16),
            static_cast<int>(letters * kNoise + words * kNoiseWord)};
  }

 private:
  static std::uint8_t plain(std::size_t symbol) {
    return static_cast<std::uint8_t>(symbol > 26 ? symbol - 26 : symbol);
  }

  std::uint16_t lanes(std::size_t a, std::size_t b, std::size_t c) const {
    if (c == 0 && b == 0) return 0;
    const int keyboard = c == 0 && keys_[b] >= kOld ? 0 : letterCost(georgian_, keys_[a], keys_[b], keys_[c]);
    const int latin =
        letterCost(western_, plain(a), plain(b), plain(c)) + capitalCost(b != 0, b > 26, c > 26);
    return static_cast<std::uint16_t>(keyboard | latin << 8);
  }

  Trigrams georgian_{georgianCosts(), 34}, western_{westernCosts(), 27};
  std::array<std::uint8_t, kSymbols> keys_{};
  std::array<std::uint8_t, 256> symbols_{};
  std::vector<std::uint16_t> costs_;
};

const EightBitTable& eightBitTable() {
  static const EightBitTable table;
  return table;
}
const LatinTable& latinTable() {
  static const LatinTable table;
  return table;
}

bool isAsciiLetter(std::uint8_t byte) {
  return static_cast<std::uint8_t>((byte | 0x20) - 'a') < 26;
}

// Of a byte that is a character by itself.
std::uint8_t eightBitSymbol(std::uint8_t byte) {
  return byte >= 0xC0          ? static_cast<std::uint8_t>(byte - 0xC0 + 1)
         : isAsciiLetter(byte) ? EightBitTable::kAscii
                               : 0;
}

// What there is in a text, at a glance.
struct Glance {
  std::uint8_t high = 0;
  std::uint32_t ampersands = 0;
  std::uint32_t letters = 0;   // ASCII
  std::uint32_t eight = 0;     // C0..FF
  std::uint32_t pairs = 0;     // bytes that may begin a UTF-8 character, before ones that may go on with it
  std::uint32_t other = 0;     // 80..BF
  std::uint32_t georgian = 0;  // Georgian letters in UTF-8 (10A0..10FF)
  std::uint32_t notLegacy = 0;
  std::uint32_t notAcademy = 0;
};

// Sixteen bytes that are counted side by side (vector extensions of GCC and Clang: no intrinsics of one
// processor).
constexpr std::size_t kLanes = 16;
using Lanes = std::uint8_t __attribute__((vector_size(kLanes)));

Lanes lanesAt(const std::uint8_t* bytes) {
  Lanes lanes;
  std::memcpy(&lanes, bytes, kLanes);
  return lanes;
}

std::uint32_t sumOf(Lanes lanes) {
  constexpr std::uint64_t kEven = 0x00FF00FF00FF00FF;
  constexpr std::uint64_t kOnes = 0x0001000100010001;
  std::array<std::uint64_t, 2> halves;
  std::memcpy(halves.data(), &lanes, kLanes);
  std::uint64_t sums = 0;
  for (const std::uint64_t half : halves) sums += (half & kEven) + ((half >> 8) & kEven);
  return static_cast<std::uint32_t>((sums * kOnes) >> 48);
}

// NULs behind the text count as nothing, so that no lane is left over.
Glance glanceAt(std::string_view text) {
  constexpr std::size_t kBlock = 192;  // bytes; no lane counts beyond 12
  Glance seen;
  constexpr std::size_t kBefore = 2;
  std::array<std::uint8_t, kBefore + kBlock + kLanes> padded{};  // the bytes before the block, and it
  for (std::size_t begin = 0; begin < text.size(); begin += kBlock) {
    const std::size_t size = std::min(kBlock, text.size() - begin);
    std::uint8_t* const block = padded.data() + kBefore;
    if (begin > 0) std::memcpy(padded.data(), text.data() + begin - kBefore, kBefore);
    std::memcpy(block, text.data() + begin, size);
    std::memset(block + size, 0, kLanes);
    Lanes high{}, ampersands{}, letters{}, eight{}, other{}, pairs{}, notLegacy{}, notAcademy{}, georgian{};
    for (std::size_t i = 0; i < size; i += kLanes) {
      const Lanes byte = lanesAt(block + i);
      const Lanes before = lanesAt(block + i - 1);
      const Lanes lower = (byte | 0x20) - 'a';
      const Lanes follows = (byte & 0xC0) == 0x80;
      // A comparison gives -1 where it holds.
      high |= byte;
      ampersands -= byte == '&';
      letters -= lower < 26;
      eight -= byte >= 0xC0;
      other -= follows;
      pairs -= follows & (before >= 0xC2);
      notLegacy -= (byte >= 0xE5) | (byte == 0xC7) | (byte == 0xCE) | (byte == 0xD5) | (byte == 0xE2);
      notAcademy -= byte >= 0xE1;
      const Lanes letter = ((before == 0x82) & (byte >= 0xA0)) | ((before == 0x83) & (byte != 0xBB));
      georgian -= letter & follows & (lanesAt(block + i - kBefore) == 0xE1);
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) seen.high |= high[lane];
    seen.ampersands += sumOf(ampersands);
    seen.letters += sumOf(letters);
    if (seen.high < 0x80) continue;
    seen.eight += sumOf(eight);
    seen.other += sumOf(other);
    seen.pairs += sumOf(pairs);
    seen.notLegacy += sumOf(notLegacy);
    seen.notAcademy += sumOf(notAcademy);
    seen.georgian += sumOf(georgian);
  }
  return seen;
}

// Symbols of every kind, one by one.
class Reader {
 public:
  Reader(std::string_view text, Reading reading, Statistics& found)
      : text_(text), reading_(reading), found_(found) {}

  void run() {
    bool afterByte = false;
    for (std::size_t at = 0; at < text_.size();) {
      if (simple(at)) {
        afterByte = false;
        continue;
      }
      const Symbol symbol = symbolAt(text_, at, reading_, afterByte);
      afterByte = symbol.source == Source::Byte;
      std::uint32_t size = symbol.size;
      std::uint8_t eight = 0;
      std::uint8_t latin = 0;
      if (symbol.source == Source::Ascii) {
        eight = eightBitSymbol(static_cast<std::uint8_t>(symbol.character));
        latin = latinTable().symbols()[symbol.character];
      } else if (symbol.source != Source::Literal) {
        eight = character(symbol, at, size);
      }
      eight_[count_] = eight;
      latin_[count_++] = latin;
      at += size;
    }
    if (found_.bytes + found_.utf8 + found_.references > 0)
      eightBitTable().sum(eight_.data(), count_, found_.eight);
    found_.latin = latinTable().sum(count_, [&](std::size_t i) { return latin_[i]; });
  }

 private:
  // Counts what most texts are full of and is read in one way only, and goes behind it: ASCII but references,
  // Georgian letters in UTF-8, which are never a byte of something else. False: it is another character.
  bool simple(std::size_t& at) {
    const auto first = static_cast<std::uint8_t>(text_[at]);
    if (first < 0x80 && first != '&') {
      eight_[count_] = eightBitSymbol(first);
      latin_[count_++] = latinTable().symbols()[first];
      ++at;
      return true;
    }
    if (first != 0xE1 || text_.size() - at < 3) return false;
    const auto second = static_cast<std::uint8_t>(text_[at + 1]);
    const auto third = static_cast<std::uint8_t>(text_[at + 2]);
    if ((third & 0xC0) != 0x80) return false;
    const auto letter = static_cast<char32_t>(0x1000 | (second & 0x3F) << 6 | (third & 0x3F));
    if ((second & 0xC0) != 0x80 || !isGeorgian(letter)) return false;
    ++found_.georgianUtf8;
    eight_[count_] = latin_[count_] = 0;
    ++count_;
    at += 3;
    return true;
  }

  // Counts it, and gives its symbol as one of an 8-bit text.
  std::uint8_t character(const Symbol& symbol, std::size_t at, std::uint32_t& size) {
    const bool utf8 = symbol.source == Source::Utf8;
    if (symbol.source != Source::Byte) {
      if (const auto repaired = repairedAt(text_, at, reading_)) {
        ++(repaired->sure ? found_.doubled : found_.doubledPairs);
        size = repaired->size;
        return 0;
      }
    }
    const std::uint8_t byte = eightBitOf(symbol);
    if (byte >= 0xC0) {
      ++(symbol.source == Source::Byte ? found_.bytes : utf8 ? found_.utf8 : found_.references);
      const Glance one = glanceAt({reinterpret_cast<const char*>(&byte), 1});
      found_.notLegacy += one.notLegacy;
      found_.notAcademy += one.notAcademy;
      return eightBitSymbol(byte);
    }
    if (symbol.source == Source::Byte) {
      ++found_.otherBytes;
    } else if (isGeorgian(symbol.character)) {
      ++(utf8 ? found_.georgianUtf8 : found_.georgianReferences);
      found_.brokenReferences += symbol.sound ? 0 : 1;
    } else if (isCyrillic(symbol.character)) {
      ++(utf8 ? found_.cyrillicUtf8 : found_.cyrillicReferences);
      found_.brokenReferences += symbol.sound ? 0 : 1;
    } else if (utf8) {
      ++found_.otherUtf8;
    }
    return 0;
  }

  std::string_view text_;
  Reading reading_;
  Statistics& found_;
  std::array<std::uint8_t, kLongest> eight_, latin_;
  std::size_t count_ = 0;
};

LatinCosts latinOf(std::string_view text, const Glance& seen) {
  const auto& symbols = latinTable().symbols();
  LatinCosts costs = latinTable().sum(
      text.size(), [&](std::size_t i) { return symbols[static_cast<std::uint8_t>(text[i])]; });
  costs.letters = seen.letters;
  return costs;
}

}  // namespace

Statistics statisticsOf(std::string_view text, Reading reading, std::size_t enough) {
  text = text.substr(0, kLongest);
  Statistics found;
  const Glance seen = glanceAt(text);
  const bool references = reading.references && seen.ampersands > 0;
  // Georgian UTF-8 is read in one way only, without a look at each letter.
  if (!references && seen.high >= 0x80 && 3 * seen.georgian == seen.eight + seen.other) {
    found.georgianUtf8 = seen.georgian;
    if (seen.letters > 0) found.latin = latinOf(text, seen);
    return found;
  }
  // UTF-8 of three bytes is seen even among 8-bit letters.
  const bool utf8 = seen.pairs > 0 && (!reading.pairsAreBytes || text.find('\xE1') != std::string_view::npos);
  if (references || utf8) {
    Reader(text, reading, found).run();
    return found;
  }
  const std::string_view counted = text.substr(0, enough);
  if (seen.high >= 0x80) {
    std::array<std::uint8_t, kLongest> symbols;
    static constexpr auto kSymbols = [] {
      std::array<std::uint8_t, 256> made{};
      for (std::size_t i = 0; i < made.size(); ++i) {
        const std::size_t lower = (i | 0x20) - 'a';
        made[i] = static_cast<std::uint8_t>(i >= 0xC0 ? i - 0xC0 + 1 : i < 0x80 && lower < 26 ? 65 : 0);
      }
      return made;
    }();
    for (std::size_t i = 0; i < counted.size(); ++i) {
      symbols[i] = kSymbols[static_cast<std::uint8_t>(counted[i])];
    }
    eightBitTable().sum(symbols.data(), counted.size(), found.eight);
    found.bytes = found.eight.letters = seen.eight;
    found.otherBytes = seen.other;
    found.notLegacy = seen.notLegacy;
    found.notAcademy = seen.notAcademy;
  }
  if (seen.letters > 0) found.latin = latinOf(counted, seen);
  return found;
}

std::optional<BytesAtAGlance> bytesAtAGlance(std::string_view text, Reading reading) {
  const Glance seen = glanceAt(text);
  if (seen.high < 0x80 || (reading.references && seen.ampersands > 0)) return std::nullopt;
  if (seen.pairs > 0 && !reading.pairsAreBytes) return std::nullopt;
  if (seen.pairs > 0 && text.find('\xE1') != std::string_view::npos) return std::nullopt;
  return BytesAtAGlance{seen.eight, seen.other, seen.letters, seen.notLegacy, seen.notAcademy};
}

int keyboardGain(std::string_view word) {
  const auto& symbols = latinTable().symbols();
  const LatinCosts costs = latinTable().sum(std::min(word.size(), kLongest), [&](std::size_t i) {
    return symbols[static_cast<std::uint8_t>(word[i])];
  });
  return std::min(costs.latin, costs.noise) - costs.keyboard;
}

}  // namespace convert
