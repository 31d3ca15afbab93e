// The program's own fonts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/system/handles.h"
#include "ui/code_view.h"

namespace win32 {

inline constexpr const wchar_t* kInterfaceFont = L"Zervo Sans";

// The fonts among the program's resources, usable in this process while the object lives.
class BundledFonts {
 public:
  BundledFonts();
  BundledFonts(const BundledFonts&) = delete;
  BundledFonts& operator=(const BundledFonts&) = delete;
  ~BundledFonts();

 private:
  std::vector<HANDLE> fonts_;
};

// The TrueType file of a bundled family; throws when the family is not one of them.
std::string bundledFontFile(std::string_view family);

UniqueFont interfaceFont(int dpi);
// The user's menu font; the interface font in its size where that has no Georgian letters.
UniqueFont menuFont(int dpi);
bool menuFontHasGeorgian();
// The code view's font, with the bundled one of its character set for an empty name and 11 points for no
// size.
ui::Font withDefaults(ui::Font font);
UniqueFont codeFont(const ui::Font& font, int dpi);
// The interface font where no name or no size is given.
UniqueFont pictureFont(const ui::Font& font, int dpi);

std::vector<std::string> installedFonts();  // families, sorted, UTF-8; the program's own among them

}  // namespace win32
