// The library of saved pages: new documents are made from them, and the shown document becomes one.
#pragma once

#include <optional>
#include <string>

#include "app/workbench.h"
#include "generators/page_library.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace generators {

class frmMatrix : public ui::Form {
 public:
  // The pages of the folder "Pages" beside the program; throws base::Error when it cannot be read.
  explicit frmMatrix(app::Workbench& bench);

  ui::ListBox List1{*this, IDC_frmMatrix_List1};
  ui::TextBox Tpreview{*this, IDC_frmMatrix_Tpreview, ui::TextBox::Holds::Bytes};
  ui::Label Linfo{*this, IDC_frmMatrix_Linfo};
  ui::Button Cnew{*this, IDC_frmMatrix_Cnew};
  ui::Button Csave{*this, IDC_frmMatrix_Csave};
  ui::Button Csamples{*this, IDC_frmMatrix_Csamples};
  ui::Button Crename{*this, IDC_frmMatrix_Crename};
  ui::Button Cdelete{*this, IDC_frmMatrix_Cdelete};
  ui::Button CEXIT{*this, IDC_frmMatrix_CEXIT};

  bool keyPressed(const ui::Shortcut& key) override;

 private:
  void setTexts();
  void connect();
  void List1_Click();
  void Cnew_Click();
  void Csave_Click();
  void Csamples_Click();
  void Crename_Click();
  void Cdelete_Click();
  void showList(const std::string& selected);
  std::string selected() const;  // empty: none
  // A name that a file can have; nothing when cancelled.
  std::optional<std::string> askName(const char* title, std::string proposal, std::string_view extension);

  app::Workbench& bench_;
  PageLibrary pages_;
};

// The menu row that shows the library; `bench` must outlive it.
void addSavedPages(app::Workbench& bench);

}  // namespace generators
