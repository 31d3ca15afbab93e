// Where the tags of a page are, and what must not be touched between them. Bytes from 0; no text is too
// broken.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace markup {

struct Piece {
  enum class Kind {
    Text,
    Tag,       // "<NAME ...>", "</NAME>", "<!NAME ...>"
    Comment,   // "<!-- -->", and the blocks of servers: "<? ?>", "<% %>"
    Verbatim,  // what stands between the tags of PRE, SCRIPT, STYLE, TEXTAREA, XMP and LISTING
  };
  Kind kind;
  std::size_t start;
  std::size_t end;
};

// All of the text in pieces, in order. A "<" that begins no whole tag is text. Takes time in line with the
// size.
std::vector<Piece> scanMarkup(std::string_view text);

// Upper-case name of a tag's text; "/" and "!" belong to it.
std::string tagName(std::string_view tag);

// The tag that the position is in or at; the one behind it when it stands between two.
std::optional<Piece> tagAt(std::string_view text, std::size_t position);

}  // namespace markup
