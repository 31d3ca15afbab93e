#include "convert/letter_writer.h"

#include <algorithm>
#include <array>

#include "base/utf8.h"
#include "convert/form_codec.h"
#include "convert/letter_statistics.h"

namespace convert {
namespace {

// In a text whose font does not say otherwise a word stays Latin that is so much likelier so, together with
// three quarters of what speaks for the words beside it.
constexpr int kPlainlyLatin = -22;
constexpr int kMostBeside = 20;
// A word with a capital before small letters, a name: by itself.
constexpr int kLatinName = -20;

bool isLetter(char c) {
  return static_cast<std::uint8_t>((c | 0x20) - 'a') < 26;
}
bool isSpace(char c) {
  return c == ' ' || (c >= 9 && c <= 13);
}

// The UTF-8 of every byte of an 8-bit form: up to three bytes, the first lowest, and their number in the top
// byte.
using EncodedBytes = std::array<std::uint32_t, 256>;

std::uint32_t encodeOne(char32_t character) {
  std::string bytes;
  base::appendUtf8(bytes, character);
  std::uint32_t made = 0;
  for (std::size_t k = bytes.size(); k-- > 0;) made = made << 8 | static_cast<std::uint8_t>(bytes[k]);
  return made | static_cast<std::uint32_t>(bytes.size()) << 24;
}

EncodedBytes encode(Form form) {
  EncodedBytes made{};
  for (std::size_t i = 0; i < made.size(); ++i) made[i] = encodeOne(charactersOf(form)[i]);
  return made;
}

const EncodedBytes& encodedBytes(Form form) {
  static const EncodedBytes legacy = encode(Form::Legacy), academy = encode(Form::Academy),
                            russian = encode(Form::Russian), western = encode(Form::Western);
  return form == Form::Legacy    ? legacy
         : form == Form::Academy ? academy
         : form == Form::Russian ? russian
                                 : western;
}

// Of keys the Georgian letters, of all else what Western text has.
const EncodedBytes& encodedKeys() {
  static const EncodedBytes made = [] {
    EncodedBytes keys = encode(Form::Western);
    for (std::size_t i = 0; i < 0x80; ++i) {
      const char32_t letter = keyboardLetter(static_cast<std::uint8_t>(i));
      if (letter != 0) keys[i] = encodeOne(letter);
    }
    return keys;
  }();
  return made;
}

// Whether every byte is a character by itself.
bool bytesAlone(std::string_view text, Reading reading) {
  if (reading.references && text.find('&') != std::string_view::npos) return false;
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const std::uint8_t lead = reading.pairsAreBytes ? 0xE0 : 0xC2;
  std::uint8_t pairs = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    pairs |= static_cast<std::uint8_t>(((bytes[i] & 0xC0) == 0x80) & (bytes[i - 1] >= lead));
  }
  return pairs == 0;
}

void appendEncoded(std::string_view text, const EncodedBytes& encoded, std::string& out) {
  constexpr std::size_t kBlock = 1000;
  std::array<char, 3 * kBlock + 1> buffer;
  while (!text.empty()) {
    char* to = buffer.data();
    for (const char c : text.substr(0, kBlock)) {
      const std::uint32_t one = encoded[static_cast<std::uint8_t>(c)];
      for (int i = 0; i < 4; ++i) to[i] = static_cast<char>(one >> (8 * i));
      to += one >> 24;
    }
    out.append(buffer.data(), to);
    text.remove_prefix(std::min(kBlock, text.size()));
  }
}

void appendHex(char32_t number, int digits, std::string& out) {
  for (int i = digits - 1; i >= 0; --i) out += "0123456789ABCDEF"[(number >> (4 * i)) & 15];
}

void write(char32_t c, Writing writing, std::string& out) {
  switch (writing) {
    case Writing::Utf8:
      return base::appendUtf8(out, c);
    case Writing::References:
      out += "&#" + std::to_string(static_cast<std::uint32_t>(c)) + ";";
      return;
    case Writing::ScriptEscapes:
      for (const char32_t unit : {c < 0x10000 ? 0 : 0xD800 + ((c - 0x10000) >> 10),
                                  c < 0x10000 ? c : 0xDC00 + ((c - 0x10000) & 0x3FF)}) {
        if (unit == 0) continue;
        out += "\\u";
        appendHex(unit, 4, out);
      }
      return;
    case Writing::CssEscapes:
      out += '\\';
      appendHex(c, c < 0x10000 ? 4 : 6, out);
      out += ' ';
      return;
  }
}

// Behind the escape that begins with the backslash at `at`: "\00C1 ", "\u10D0", "\n". The hexadecimal digits
// of the longest one of CSS (CSS Syntax, 4.3.7), so that no letter of one is taken for a key; never a
// byte that is no ASCII.
std::size_t escapeEnd(std::string_view text, std::size_t at) {
  constexpr std::size_t kMostDigits = 6;
  std::size_t end = at + 1;
  if (end < text.size() && (text[end] == 'u' || text[end] == 'x')) ++end;
  const auto isHex = [](char c) {
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
  };
  const std::size_t most = std::min(end + kMostDigits, text.size());
  while (end < most && isHex(text[end])) ++end;
  const bool character = end == at + 1 && end < text.size() && static_cast<std::uint8_t>(text[end]) < 0x80;
  return character ? end + 1 : end;
}

// The words of a text one after the other.
class Words {
 public:
  Words(std::string_view text, const Verdict& verdict)
      : text_(text),
        all_(verdict.reason == Reason::Chosen),
        font_(verdict.reason == Reason::Font || verdict.reason == Reason::NoKey) {}

  // Behind the letters that begin at `at`.
  std::size_t endOf(std::size_t at) const {
    while (at < text_.size() && isLetter(text_[at])) ++at;
    return at;
  }

  enum class Fate : std::uint8_t { Converted, Kept, NoKey };
  // For words in ascending order.
  Fate fateOf(std::size_t begin, std::size_t end) {
    if (all_) return Fate::Converted;
    if (begin >= tokenEnd_) readToken(begin);
    if (address_) return Fate::Kept;
    for (std::size_t i = begin; i < end; ++i) {
      if (keyboardLetter(static_cast<std::uint8_t>(text_[i])) == 0) return font_ ? Fate::NoKey : Fate::Kept;
    }
    if (font_) return Fate::Converted;
    return staysLatin(begin, end) ? Fate::Kept : Fate::Converted;
  }

 private:
  bool staysLatin(std::size_t begin, std::size_t end) {
    const int own = begin == nextBegin_ ? nextGain_ : gainOf(begin, end);
    const int before = lastGain_;
    std::size_t next = end;
    while (next < text_.size() && !isLetter(text_[next])) ++next;
    nextBegin_ = next;
    nextGain_ = next < text_.size() ? gainOf(next, endOf(next)) : 0;
    lastGain_ = own;
    if (own >= 0) return false;
    const auto capital = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto capitals = std::count_if(text_.begin() + static_cast<std::ptrdiff_t>(begin),
                                        text_.begin() + static_cast<std::ptrdiff_t>(end), capital);
    if (end - begin > 1 && static_cast<std::size_t>(capitals) == end - begin) return true;
    if (capitals == 1 && capital(text_[begin]) && own <= kLatinName) return true;
    const int beside =
        std::clamp(before, -kMostBeside, kMostBeside) + std::clamp(nextGain_, -kMostBeside, kMostBeside);
    return own + beside * 3 / 4 <= kPlainlyLatin;
  }

  int gainOf(std::size_t begin, std::size_t end) const {
    return keyboardGain(text_.substr(begin, end - begin));
  }

  // What stands between white space around a word: an address?
  void readToken(std::size_t at) {
    std::size_t begin = at;
    while (begin > tokenEnd_ && !isSpace(text_[begin - 1])) --begin;
    tokenEnd_ = at;
    while (tokenEnd_ < text_.size() && !isSpace(text_[tokenEnd_])) ++tokenEnd_;
    const std::string_view token = text_.substr(begin, tokenEnd_ - begin);
    address_ = token.find('@') != std::string_view::npos || token.find("://") != std::string_view::npos ||
               token.find("www.") != std::string_view::npos;
  }

  std::string_view text_;
  bool all_;
  bool font_;
  std::size_t nextBegin_ = std::string_view::npos;
  int nextGain_ = 0;
  int lastGain_ = 0;
  std::size_t tokenEnd_ = 0;
  bool address_ = false;
};

class Writer {
 public:
  Writer(std::string_view text, const Verdict& verdict, Reading reading, Writing writing, std::string& out)
      : text_(text),
        verdict_(verdict),
        reading_(reading),
        writing_(writing),
        out_(out),
        words_(text, verdict) {}

  void run() {
    const EncodedBytes& encoded = encodedBytes(verdict_.eight);
    const bool escapes = verdict_.keyboard && reading_.escapes && text_.find('\\') != std::string_view::npos;
    const bool whole =
        !verdict_.keyboard || (verdict_.wholeKeyboard && verdict_.eight == Form::Western && !escapes);
    if (writing_ == Writing::Utf8 && whole && bytesAlone(text_, reading_)) {
      return appendEncoded(text_, verdict_.keyboard ? encodedKeys() : encoded, out_);
    }
    bool afterByte = false;
    std::size_t done = 0;  // bytes before are written
    std::size_t at = 0;
    const auto flush = [&] { out_.append(text_.substr(done, at - done)); };
    while (at < text_.size()) {
      const auto byte = static_cast<std::uint8_t>(text_[at]);
      if (byte < 0x80) {
        afterByte = false;
        if (byte == '&' && reading_.references) {
          flush();
          at += symbol(at, afterByte);
          done = at;
        } else if (verdict_.keyboard && isLetter(text_[at])) {
          flush();
          at = word(at);
          done = at;
        } else if (byte == '\\' && reading_.escapes) {
          at = escapeEnd(text_, at);
        } else {
          ++at;
        }
        continue;
      }
      flush();
      const bool follows = at + 1 < text_.size() && (static_cast<std::uint8_t>(text_[at + 1]) & 0xC0) == 0x80;
      if (writing_ == Writing::Utf8 && (!follows || (byte < 0xE0 && (reading_.pairsAreBytes || afterByte)))) {
        appendEncoded(text_.substr(at, 1), encoded, out_);
        afterByte = true;
        ++at;
      } else {
        at += symbol(at, afterByte);
      }
      done = at;
    }
    flush();
  }

 private:
  std::size_t word(std::size_t at) {
    const std::size_t end = words_.endOf(at);
    const bool converted = words_.fateOf(at, end) == Words::Fate::Converted;
    if (!converted || writing_ == Writing::Utf8) {
      if (converted)
        appendEncoded(text_.substr(at, end - at), encodedKeys(), out_);
      else
        out_.append(text_.substr(at, end - at));
      return end;
    }
    for (; at < end; ++at) {
      const char32_t letter = keyboardLetter(static_cast<std::uint8_t>(text_[at]));
      if (letter == 0)
        out_ += text_[at];
      else
        write(letter, writing_, out_);
    }
    return end;
  }

  // Writes the one at `at`, returns its size.
  std::size_t symbol(std::size_t at, bool& afterByte) {
    const Symbol symbol = symbolAt(text_, at, reading_, afterByte);
    afterByte = symbol.source == Source::Byte;
    if (symbol.source == Source::Byte) {
      write(charactersOf(verdict_.eight)[symbol.character], writing_, out_);
      return symbol.size;
    }
    if (symbol.source == Source::Utf8 || symbol.source == Source::Reference) {
      if (verdict_.repair) {
        if (const auto repaired = repairedAt(text_, at, reading_)) {
          write(repaired->character, writing_, out_);
          return repaired->size;
        }
      }
      const std::uint8_t byte = eightBitOf(symbol);
      const bool yo = verdict_.eight == Form::Russian && (byte == 0xA8 || byte == 0xB8);
      const bool eight = verdict_.eightEverywhere && (byte >= 0xC0 || yo);
      const char32_t character = eight ? charactersOf(verdict_.eight)[byte] : symbol.character;
      const bool ours = eight || isGeorgian(character) || isCyrillic(character);
      const bool written = symbol.source == Source::Utf8
                               ? eight || writing_ != Writing::Utf8
                               : ours && (eight || writing_ == Writing::Utf8 || !symbol.sound);
      if (written) {
        write(character, writing_, out_);
        return symbol.size;
      }
    }
    out_.append(text_.substr(at, symbol.size));
    return symbol.size;
  }

  std::string_view text_;
  const Verdict& verdict_;
  Reading reading_;
  Writing writing_;
  std::string& out_;
  Words words_;
};

}  // namespace

void appendLetters(std::string_view text, const Verdict& verdict, Reading reading, Writing writing,
                   std::string& out) {
  if (!verdict.afterwards) return Writer(text, verdict, reading, writing, out).run();
  Verdict first = verdict;
  first.afterwards = false;
  std::string utf8;
  Writer(text, first, reading, Writing::Utf8, utf8).run();
  Verdict second;
  second.repair = true;
  Writer(utf8, second, {reading.references, false}, writing, out).run();
}

KeyboardWords keyboardWords(std::string_view text, const Verdict& verdict, Reading reading) {
  KeyboardWords counts;
  Words words(text, verdict);
  for (std::size_t at = 0; at < text.size();) {
    if (!isLetter(text[at])) {
      at = text[at] == '\\' && reading.escapes ? escapeEnd(text, at) : at + 1;
      continue;
    }
    const std::size_t end = words.endOf(at);
    const auto letters = static_cast<std::uint32_t>(end - at);
    switch (words.fateOf(at, end)) {
      case Words::Fate::Converted:
        counts.converted += letters;
        break;
      case Words::Fate::NoKey:
        counts.noKey += letters;
        [[fallthrough]];
      case Words::Fate::Kept:
        counts.left += letters;
        break;
    }
    at = end;
  }
  return counts;
}

void appendReencoded(std::string_view text, Form eight, Reading reading, std::string& out) {
  bool afterByte = false;
  reading.references = false;
  for (std::size_t at = 0; at < text.size();) {
    const Symbol symbol = symbolAt(text, at, reading, afterByte);
    afterByte = symbol.source == Source::Byte;
    if (afterByte)
      base::appendUtf8(out, charactersOf(eight)[symbol.character]);
    else
      out.append(text.substr(at, symbol.size));
    at += symbol.size;
  }
}

}  // namespace convert
