// The dialog "Recent Files".
#pragma once

#include <string>

#include "app/workbench.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace recent {

// Image number by the text after the last "." of the path.
int ikonumer(const std::string& path);

class frmrecentfile : public ui::Form {
 public:
  explicit frmrecentfile(app::Workbench& bench);

  ui::ListView LV{*this, IDC_frmrecentfile_LV};
  ui::Button COK{*this, IDC_frmrecentfile_COK};
  ui::Button Copen{*this, IDC_frmrecentfile_Copen};
  ui::Button CEXIT{*this, IDC_frmrecentfile_CEXIT};
  ui::CheckBox CKonstart{*this, IDC_frmrecentfile_CKonstart};

  // The chosen path; empty: none.
  const std::string& result() const { return result_; }
  bool keyPressed(const ui::Shortcut& key) override;

 private:
  void openSelected();
  void openNew();
  void removeEntry();
  void clearList();
  void openFolder();
  void popup();
  void finish(const std::string& path);
  std::string pathOf(int row) const;

  app::Workbench& bench_;
  std::string result_;
};

// Shows the dialog; the chosen path or nothing.
std::string recentopen(app::Workbench& bench);

}  // namespace recent
