// Publishes a folder by SFTP, FTP over TLS or FTP: compares with the server, shows what differs, then does
// what is ticked.
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/workbench.h"
#include "project/frmremote.h"
#include "project/frmserver.h"
#include "project/ftp_accounts.h"
#include "publish/publisher.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace project {

class frmpublish : public ServerForm {
 public:
  // `bench` must outlive the form.
  frmpublish(app::Workbench& bench, publish::MakeTransport connect);

  ui::Label Laccount{*this, IDC_frmpublish_Laccount};
  ui::ComboBox CBaccount{*this, IDC_frmpublish_CBaccount};  // of FTP.ini
  ui::Label Laddress{*this, IDC_frmpublish_Laddress};
  ui::TextBox Taddress{*this, IDC_frmpublish_Taddress};
  ui::Label Luser{*this, IDC_frmpublish_Luser};
  ui::TextBox Tuser{*this, IDC_frmpublish_Tuser};
  ui::Label Lpassword{*this, IDC_frmpublish_Lpassword};
  ui::TextBox Tpassword{*this, IDC_frmpublish_Tpassword};
  ui::CheckBox CKkeep{*this, IDC_frmpublish_CKkeep};  // the password, in the system's store
  ui::Label Lkey{*this, IDC_frmpublish_Lkey};
  ui::TextBox Tkey{*this, IDC_frmpublish_Tkey};
  ui::Button Ckey{*this, IDC_frmpublish_Ckey};
  ui::Label Lfolder{*this, IDC_frmpublish_Lfolder};
  ui::TextBox Tfolder{*this, IDC_frmpublish_Tfolder};
  ui::Button Cfolder{*this, IDC_frmpublish_Cfolder};
  ui::Label Lnote{*this, IDC_frmpublish_Lnote};
  ui::Button Ccompare{*this, IDC_frmpublish_Ccompare};
  ui::Button Cstop{*this, IDC_frmpublish_Cstop};
  ui::ProgressBar Bar{*this, IDC_frmpublish_Bar};
  ui::Label Lprogress{*this, IDC_frmpublish_Lprogress};
  ui::ListView LV{*this, IDC_frmpublish_LV};
  ui::CheckBox CKall{*this, IDC_frmpublish_CKall};
  ui::Label Lsum{*this, IDC_frmpublish_Lsum};
  ui::TextBox Tlog{*this, IDC_frmpublish_Tlog};
  ui::Button Cupload{*this, IDC_frmpublish_Cupload};
  ui::Button Clog{*this, IDC_frmpublish_Clog};
  ui::Button Cremote{*this, IDC_frmpublish_Cremote};
  ui::Button CEXIT{*this, IDC_frmpublish_CEXIT};

  void load() override;
  // A page of the server that the user wants to see in the editor; told once. Empty: none.
  std::string takeWanted() { return std::exchange(wanted_, {}); }

 private:
  struct Row {
    publish::Item item;
    bool ticked = false;
    bool done = false;
    std::string state;  // empty: nothing has been tried
  };

  void CBaccount_Click();
  void Taddress_Changed();
  void Ckey_Click();
  void Cfolder_Click();
  void Ccompare_Click();
  void Cupload_Click();
  void Clog_Click();
  void Cremote_Click();
  void CKall_Changed();
  void LV_Checked(int row);

  // Empty: the fields do not say whose.
  std::string secretName() const;
  void CKkeep_Changed();
  // After the server has let us in by `account`, or by what was `typed` then.
  void keepPassword(const std::optional<std::string>& typed);

  // False, and the user knows why, when the fields do not say where to.
  bool readAccount(publish::Account& account);
  std::string unsavedInFolder(const std::string& folder);
  void take(const PublishWork::News& news) override;
  void ended(const std::string& why) override;
  void showProgress(const publish::Progress& now);
  void takeEvent(const PublishWork::Event& event);
  void whoChanged();
  void accountChanged();  // what was compared does not hold for it
  void appendLog(const std::string& line);
  void showLog();
  void showRows();
  void showButtons();
  ui::ListView::Item itemOf(const Row& row) const;

  const publish::MakeTransport connect_;
  std::vector<std::string> lines_;  // of FTP.ini
  std::vector<Row> rows_;           // without what is the same on both sides
  std::size_t same_ = 0;
  bool compared_ = false;
  std::string log_;
  bool logChanged_ = false, rowsChanged_ = false;  // since they were shown
  std::chrono::steady_clock::time_point looked_;
  std::map<std::string, FetchedFiles> fetched_;  // by folder here and address
  std::string wanted_;
  std::unique_ptr<publish::Publisher> publisher_;  // of the last comparison
};

}  // namespace project
