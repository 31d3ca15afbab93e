// The menu of the find dialog: what can be put into its fields, and the last find texts.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "ui/menu.h"

namespace search {

// `history` are byte texts, the latest first; item i of its submenu has the command mnuhistory + i.
std::vector<ui::MenuItem> mnual(const std::deque<std::string>& history);

}  // namespace search
