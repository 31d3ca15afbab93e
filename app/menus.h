// The menus of the bar. Rows of several subsystems are in one menu and name it.
#pragma once

#include "app/command.h"

namespace app {

inline const Menu kFileMenu{.caption = "&ფაილი", .place = {nullptr, 1}};
inline const Menu kEditMenu{.caption = "&რედაქტირება", .place = {nullptr, 2}};
inline const Menu kTypingMenu{.caption = "&კრეფა", .place = {nullptr, 3}};
inline const Menu kTagsMenu{.caption = "&ტეგები", .place = {nullptr, 4}};
inline const Menu kLinesMenu{.caption = "&სტრიქონები", .place = {nullptr, 5}};
inline const Menu kViewMenu{.caption = "&ხედი", .place = {nullptr, 6}};
inline const Menu kHelpMenu{.caption = "&დახმარება", .place = {nullptr, 7}};

}  // namespace app
