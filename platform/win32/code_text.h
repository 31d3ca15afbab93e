// Byte text as the rich-text control holds it: one CR for each line end, stand-ins for what it cannot hold;
// and the way between positions there and positions in the bytes. No window needed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace win32 {

// What a line end of a document is in its bytes.
enum class LineEnd { CrLf, Lf, Cr };

// CR LF where there is one, else what the text uses; a text without line ends gets CR LF.
LineEnd lineEndOf(std::string_view bytes);
std::string_view bytesOf(LineEnd lineEnd);

// Every byte one character (a line end: one CR). Line ends of another kind, NUL, and the bytes that no letter
// of Windows-1252 stands for become stand-ins: the control shows nothing at all for U+0081 and its like.
std::wstring controlFromBytes(std::string_view bytes, LineEnd lineEnd);

// The character that holds a byte other than those of line ends; the byte that a character holds, if any.
wchar_t controlCharOf(std::uint8_t byte);
std::optional<std::uint8_t> byteOfControlChar(wchar_t c);

// Places of the line ends, both ways between control positions and byte positions.
class LineBreaks {
 public:
  void clear(LineEnd lineEnd);
  void add(int controlPosition) { places_.push_back(controlPosition); }
  int byteOf(int controlPosition) const;
  int controlOf(int byte) const;          // inside a line end: before it
  int lineOf(int controlPosition) const;  // from 0
  int startOf(int line) const;            // control position of the line's first character

 private:
  int before(int controlPosition) const;
  std::vector<int> places_;  // control positions of the line ends, ascending
  int extra_ = 1;            // bytes that a line end has beyond one
};

// The control's text (one CR a line end) as bytes, and its line ends. False when it holds a character that is
// neither a byte's nor a stand-in; then the two outputs are not complete.
bool bytesFromControl(std::wstring_view control, LineEnd lineEnd, std::string& bytes, LineBreaks& breaks);

// Line ends of any kind made into the document's.
std::string withLineEnds(std::string_view bytes, LineEnd lineEnd);

}  // namespace win32
