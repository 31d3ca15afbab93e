// The tag palette: the codes of the tag list in groups, beside the code view.
#pragma once

#include <string>
#include <vector>

#include "app/workbench.h"
#include "editor/tag_list.h"

namespace editor {

inline constexpr int kPaletteGroups = 7;

// From 0: structure, text, lists, tables, forms, frames, script. A name that no group knows is put among the
// tags of text.
int paletteGroupOf(std::string_view tagName);

class TagPalette {
 public:
  // Fills the workbench's palette and works on it as long as both live.
  explicit TagPalette(app::Workbench& bench);

 private:
  void showGroup(int group);
  bool keyPressed(const ui::Shortcut& key);
  void insertCodeOf(int row);

  app::Workbench& bench_;
  std::vector<std::vector<TagEntry>> groups_;
};

}  // namespace editor
