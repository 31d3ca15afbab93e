// A long RTF text as several short ones: the control takes time that grows with the square of one stream.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace win32 {

// Complete RTF texts that give the whole when they are inserted one behind the other. Each repeats the
// header, and the colour and style in force where it begins. Bytes that the control cannot hold (\'00, and
// \'0a and
// \'0d, which stand for a lone LF and CR) become stand-ins.
std::vector<std::string> rtfPieces(std::string_view rtf);

}  // namespace win32
