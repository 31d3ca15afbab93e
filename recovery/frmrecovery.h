// What can be got back after an end of the program that was not orderly.
#pragma once

#include <vector>

#include "app/workbench.h"
#include "recovery/journal.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace recovery {

class frmrecovery : public ui::Form {
 public:
  // `texts` outlive the form.
  frmrecovery(app::Workbench& bench, std::vector<const KeptText*> texts);

  ui::Label Lwhat{*this, IDC_frmrecovery_Lwhat};
  ui::ListView LV{*this, IDC_frmrecovery_LV};
  ui::Label Lfirst{*this, IDC_frmrecovery_Lfirst};
  ui::TextBox Tfirst{*this, IDC_frmrecovery_Tfirst, ui::TextBox::Holds::Bytes};
  ui::Button COK{*this, IDC_frmrecovery_COK};
  ui::Button Cdelete{*this, IDC_frmrecovery_Cdelete};
  ui::Button CEXIT{*this, IDC_frmrecovery_CEXIT};

  enum class Answer { Later, TakeBack, Delete };
  Answer answer() const { return answer_; }
  bool chosen(std::size_t text) const { return LV.items()[text].checked; }

 private:
  void LV_Change();
  void Cdelete_Click();
  app::Workbench& bench_;
  std::vector<const KeptText*> texts_;
  Answer answer_ = Answer::Later;
};

}  // namespace recovery
