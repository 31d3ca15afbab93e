// A paragraph and how its lines stand.
#pragma once

#include <string>

#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"

namespace editor {

class frmabzac : public ui::Form {
 public:
  frmabzac();

  ui::OptionButton OPnone{*this, IDC_frmabzac_OPnone, 1};
  ui::OptionButton OPleft{*this, IDC_frmabzac_OPleft, 1};
  ui::OptionButton OPcenter{*this, IDC_frmabzac_OPcenter, 1};
  ui::OptionButton OPright{*this, IDC_frmabzac_OPright, 1};
  ui::OptionButton OPjustify{*this, IDC_frmabzac_OPjustify, 1};
  ui::Button COK{*this, IDC_frmabzac_COK};
  ui::Button CEXIT{*this, IDC_frmabzac_CEXIT};

  // Shows the window; the paragraph's opening tag, empty when cancelled.
  std::string ask(ui::Platform& platform);

 private:
  void COK_Click();
  std::string result_;
};

}  // namespace editor
