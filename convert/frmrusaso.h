// The dialog that shows which key types which Russian letter.
#pragma once

#include "resources/ids.h"
#include "ui/controls.h"

namespace convert {

class frmrusaso : public ui::Form {
 public:
  frmrusaso();
  ui::ListView LV{*this, IDC_frmrusaso_LV};
  ui::Button CEXIT{*this, IDC_frmrusaso_CEXIT};
};

}  // namespace convert
