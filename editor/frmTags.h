// The tag list, and the same window as a picker of a font.
#pragma once

#include <string>
#include <vector>

#include "editor/list_keys.h"
#include "editor/tag_list.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"

namespace editor {

class frmTags : public ui::Form {
 public:
  explicit frmTags(ui::Platform& platform);

  ui::TextBox Tsearch{*this, IDC_frmTags_Tsearch};
  ui::ListBox List1{*this, IDC_frmTags_List1};
  ui::Button MBOK{*this, IDC_frmTags_MBOK};
  ui::Button MBexit{*this, IDC_frmTags_MBexit};

  // Shows the window; the picked tag's code, empty when the user leaves.
  std::string Tagsload();
  // Shows the fonts of the screen; the picked font's name (UTF-8), empty when the user leaves.
  std::string fontebisdatenva();

  bool queryClose() override;
  bool keyPressed(const ui::Shortcut& key) override { return stepThrough(List1, key); }

 private:
  std::string run(std::vector<std::string> names);
  void List1_Click();
  void Tsearch_Change();
  void MBexit_Click();

  enum class Mode { Tags = 1, Fonts };
  ui::Platform& platform_;
  Mode mode_ = Mode::Tags;
  std::vector<TagEntry> entries_;
  std::string result_;
};

}  // namespace editor
