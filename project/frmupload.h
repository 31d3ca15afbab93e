// Uploads a file or all saved documents to an FTP server, and keeps the accounts for it.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/workbench.h"
#include "project/ftp_accounts.h"
#include "project/mdlFTP.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace project {

class frmupload : public ui::Form {
 public:
  // `bench` and `ftp` must outlive the form.
  frmupload(app::Workbench& bench, ui::Ftp& ftp);

  ui::Label Laccount{*this, IDC_frmupload_Laccount};
  ui::ComboBox CBaccount{*this, IDC_frmupload_CBaccount};
  ui::TextBox CBdir{*this, IDC_frmupload_CBdir};
  ui::Label Lfile{*this, IDC_frmupload_Lfile};
  ui::TextBox Tfile{*this, IDC_frmupload_Tfile};
  ui::Button Cfile{*this, IDC_frmupload_Cfile};
  ui::CheckBox CKalopF{*this, IDC_frmupload_CKalopF};
  ui::Label Frame1{*this, IDC_frmupload_Frame1};
  ui::OptionButton OPA{*this, IDC_frmupload_OPA, 1};
  ui::OptionButton OPB{*this, IDC_frmupload_OPB, 1};
  ui::CheckBox CKpassive{*this, IDC_frmupload_CKpassive};
  ui::Label Lsilence{*this, IDC_frmupload_Lsilence};
  ui::TextBox Tsilence{*this, IDC_frmupload_Tsilence};
  ui::Button Cupload{*this, IDC_frmupload_Cupload};
  ui::Button Command3{*this, IDC_frmupload_Command3};  // stops a run
  ui::Button Command4{*this, IDC_frmupload_Command4};  // opens the accounts
  ui::Button Command1{*this, IDC_frmupload_Command1};  // closes
  ui::ProgressBar Bar{*this, IDC_frmupload_Bar};
  ui::Label PST{*this, IDC_frmupload_PST};
  ui::TextBox Tinf{*this, IDC_frmupload_Tinf};

  // The account frame.
  ui::Label FR2{*this, IDC_frmupload_FR2};
  ui::ListBox List1{*this, IDC_frmupload_List1};
  std::array<std::unique_ptr<ui::Label>, 5> Label2;
  std::array<std::unique_ptr<ui::TextBox>, 5> Text2;
  ui::CheckBox CKshow{*this, IDC_frmupload_CKshow};
  std::array<std::unique_ptr<ui::Button>, 4> Command2;

  bool uploading = false;

  void load() override;
  bool queryClose() override;

 private:
  void loadAccounts();
  void showAccounts();
  void CBaccount_Click();
  void List1_Click();
  void addAccount();
  void keepAccount();
  void removeAccount();
  void saveAccounts();
  void showFrame(bool on);
  void setRunning(bool on);
  void Cfile_Click();
  void Cupload_Click();
  void keepSettings();
  void upload(const std::string& account);
  // Writes what the user has not asked for; that it fails is told once in the program's life: a folder that
  // cannot be written stays so.
  void writeUnasked(const std::function<void()>& write);
  void appendLog(const std::string& line);
  std::string iniPath() const;
  std::string lineAt(int position);
  std::vector<std::string> lines();

  app::Workbench& bench_;
  mdlFTP ftp_;
  app::ColectionMain accounts_;  // a line of the file is a record's value
  std::string connectedLine_;    // the account that an open connection belongs to
  int edited_ = -1;              // position of the account in the boxes; -1: a new one
  bool damaged_ = false;         // the file was, and has not been written since
  bool toldReadOnly_ = false;
  bool stop_ = false;
  bool closeBehindRun_ = false;
};

}  // namespace project
