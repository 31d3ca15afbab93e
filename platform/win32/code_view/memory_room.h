// How much text the process can take, asked before it is tried: a control that runs out of memory in the
// middle of an edit is left without its text.
#pragma once

#include <cstddef>

namespace win32 {

// For a new document with its styles and lines.
bool roomForDocument(std::size_t size);
// For exchanging `removed` bytes of a text of `size` bytes for `added` ones, both kept in the history.
bool roomForChange(std::size_t size, std::size_t removed, std::size_t added);

}  // namespace win32
