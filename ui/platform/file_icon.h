// Small pictures for kinds of files, in lists and in the tree. The platform has one drawing for each.
#pragma once

#include <map>

namespace ui {

enum class FileIcon { Page, Style, Script, Server, Xml, Php, Picture, Sound, Text, Settings, Project, Other };
inline constexpr int kFileIcons = 12;

// What a control draws for the image numbers of its rows; rows of other numbers have no picture.
using FileIcons = std::map<int, FileIcon>;

}  // namespace ui
