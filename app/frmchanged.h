// A file that another program has changed, beside the text of the window.
#pragma once

#include <string>
#include <string_view>

#include "resources/ids.h"
#include "ui/controls.h"

namespace app {

class frmchanged : public ui::Form {
 public:
  // `mine` and `file`: both texts; shown from where they part, as `view` shows bytes now.
  frmchanged(const std::string& path, std::string_view mine, std::string_view file, const ui::CodeView& view);

  ui::Label Lwhat{*this, IDC_frmchanged_Lwhat};
  ui::Label Lmine{*this, IDC_frmchanged_Lmine};
  ui::Label Lfile{*this, IDC_frmchanged_Lfile};
  ui::TextBox Tmine{*this, IDC_frmchanged_Tmine, ui::TextBox::Holds::Bytes};
  ui::TextBox Tfile{*this, IDC_frmchanged_Tfile, ui::TextBox::Holds::Bytes};
  ui::Button Creload{*this, IDC_frmchanged_Creload};
  ui::Button Ckeep{*this, IDC_frmchanged_Ckeep};
  ui::Button Cboth{*this, IDC_frmchanged_Cboth};
  ui::Button CEXIT{*this, IDC_frmchanged_CEXIT};

  enum class Answer { None, Reload, Keep, Both };
  Answer answer() const { return answer_; }

 private:
  Answer answer_ = Answer::None;
};

}  // namespace app
