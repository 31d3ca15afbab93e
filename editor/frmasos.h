// Picker of a named character.
#pragma once

#include <vector>

#include "editor/entities.h"
#include "editor/list_keys.h"
#include "resources/ids.h"
#include "ui/code_view.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"

namespace editor {

class frmasos : public ui::Form {
 public:
  // Works on `T1`, which must outlive the form.
  frmasos(ui::Platform& platform, ui::CodeView& T1);

  ui::Label Lsearch{*this, IDC_frmasos_Lsearch};
  ui::TextBox Tsearch{*this, IDC_frmasos_Tsearch};
  ui::ListView LV{*this, IDC_frmasos_LV};
  ui::Button COK{*this, IDC_frmasos_COK};
  ui::Button Cencode{*this, IDC_frmasos_Cencode};
  ui::Button Cdecode{*this, IDC_frmasos_Cdecode};
  ui::Button CEXIT{*this, IDC_frmasos_CEXIT};

  void openWindow();
  bool keyPressed(const ui::Shortcut& key) override { return stepThrough(LV, key); }

 private:
  void Tsearch_Change();
  void COK_Click();
  void convert(std::string (*how)(std::string_view, PageBytes));

  ui::Platform& platform_;
  ui::CodeView& T1_;
  std::vector<const Entity*> shown_;  // the rows of LV
};

}  // namespace editor
