// The fonts that the program brings; tools/make_fonts.py makes them.
#pragma once

#include <array>

namespace base {

inline constexpr const char* kSansFont = "Zervo Sans";    // interface texts
inline constexpr const char* kIsoFont = "Zervo ISO";      // bytes of the legacy encoding
inline constexpr const char* kAsciiFont = "Zervo ASCII";  // Latin letters of the keyboard layout
inline constexpr const char* kRussianFont = "Zervo RUS";  // bytes of Windows-1251
inline constexpr const char* kMonoFont = "Zervo Mono";    // UTF-8

// Of the typing modes, by number: where the settings name none.
inline constexpr std::array<const char*, 4> kTypingFonts = {kRussianFont, kIsoFont, kAsciiFont, kIsoFont};

}  // namespace base
