// Captions of the top menus. Several subsystems add rows to one menu and find it by its caption.
#pragma once

namespace app {

inline constexpr const char* kFileMenu = "&ფაილი";
inline constexpr const char* kEditMenu = "&რედაქტირება";
inline constexpr const char* kTypingMenu = "&კრეფა";
inline constexpr const char* kTagsMenu = "&ტეგები";
inline constexpr const char* kLinesMenu = "&სტრიქონები";
inline constexpr const char* kViewMenu = "&ხედი";
inline constexpr const char* kHelpMenu = "&დახმარება";

}  // namespace app
