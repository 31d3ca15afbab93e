// In what form each text of a page is, and the page.
//
// Evidence, in this order: byte-order mark and valid UTF-8; the declared character set, a hint only; fonts;
// letter statistics. Short texts are judged by what the page and their neighbours are.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>

#include "convert/forms.h"
#include "convert/page_census.h"
#include "convert/page_parts.h"
#include "convert/symbols.h"

namespace convert {

enum class Reason : std::uint8_t {
  Valid,      // UTF-8 or references: no guess
  Font,       // its font says so
  Letters,    // by statistics
  Page,       // too short to tell: like the rest of the page
  Chosen,     // by the user
  Doubled,    // UTF-8 that was encoded again
  NoKey,      // letters that no key of the keyboard layout has
  Reencoded,  // no text: bytes that must become UTF-8 with the page
  Declared,   // the declaration of the character set
};
std::string_view nameOf(Reason reason);

// How the letters of a text are read.
struct Verdict {
  Form form = Form::Ascii;       // of most of its letters, for the reader
  Form eight = Form::Western;    // what its bytes 80..FF are
  bool eightEverywhere = false;  // so are Latin-1 letters in UTF-8 and references
  bool keyboard = false;         // its Latin letters are Georgian
  bool wholeKeyboard = false;    // all of them, without a look at the words
  bool repair = false;           // UTF-8 encoded again is put right
  bool afterwards = false;       // the same once more, after its bytes have become UTF-8
  bool uncertain = false;        // left as it is, and reported
  // There is something in it that a conversion to UTF-8 changes, or one to references.
  bool changesToUtf8 = false;
  bool changesToReferences = false;
  Reason reason = Reason::Valid;
  std::uint8_t confidence = 100;  // percent
  std::uint16_t letters = 0;      // in that form; 65535 or more
};

// So many pairs of characters that can be one of UTF-8 encoded twice are no chance, where nothing else is
// among them.
inline constexpr std::uint32_t kManyPairs = 3;

struct PageVerdict {
  Form form = Form::Ascii;
  std::uint8_t confidence = 100;  // percent
  std::size_t letters = 0;        // in that form; of a mixed page all that are not plain Latin
  Trouble trouble = Trouble::None;
};

struct Detection {
  PageVerdict page;
  PageCensus census;
  Reading reading;  // for all symbols of the page; references as each piece says
  PageParts parts;
  std::deque<Verdict> verdicts;  // for each piece

  // Beside plain ASCII.
  bool severalForms() const;
};

struct DetectorOptions {
  PartsWanted parts;
  // All letters are in this form; none: found out.
  std::optional<Form> from;
};

// Pages with a Trouble other than ForeignCharset are not looked at further.
Detection detect(std::string_view page, const DetectorOptions& options);

inline Reading readingOf(const Detection& detection, const PagePiece& piece) {
  return {piece.references, detection.reading.pairsAreBytes, detection.reading.oddOnesAreBytes,
          hasEscapes(piece.place)};
}

}  // namespace convert
