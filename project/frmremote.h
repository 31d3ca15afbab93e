// The server's side of an account: shows its folders, changes them, and brings pages here and back again.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "project/frmserver.h"
#include "publish/publisher.h"
#include "resources/ids.h"

namespace project {

// What came from the server, as it was then; by path below the account's folder.
using FetchedFiles = std::map<std::string, publish::Item, std::less<>>;

class frmremote : public ServerForm {
 public:
  // `folder` of this computer is where the account's folder is. `bench` and `fetched` must outlive the form.
  frmremote(app::Workbench& bench, publish::Account account, const publish::MakeTransport& connect,
            std::string folder, FetchedFiles& fetched);

  ui::Label Lplace{*this, IDC_frmremote_Lplace};
  ui::ListView LV{*this, IDC_frmremote_LV};
  ui::Button Copen{*this, IDC_frmremote_Copen};
  ui::Button Cup{*this, IDC_frmremote_Cup};
  ui::Button Crefresh{*this, IDC_frmremote_Crefresh};
  ui::Button Cdownload{*this, IDC_frmremote_Cdownload};
  ui::Button Csend{*this, IDC_frmremote_Csend};
  ui::Button Cmake{*this, IDC_frmremote_Cmake};
  ui::Button Crename{*this, IDC_frmremote_Crename};
  ui::Button Cdelete{*this, IDC_frmremote_Cdelete};
  ui::Button Cstop{*this, IDC_frmremote_Cstop};
  ui::Label Lprogress{*this, IDC_frmremote_Lprogress};
  ui::Button CEXIT{*this, IDC_frmremote_CEXIT};

  // The file here that the user wants to see in the editor; empty: none.
  const std::string& wanted() const { return wanted_; }

  void shown() override;
  bool keyPressed(const ui::Shortcut& key) override;

 private:
  void Copen_Click();
  void Cup_Click();
  void Cdownload_Click();
  void Csend_Click();
  void Cmake_Click();
  void Crename_Click();
  void Cdelete_Click();

  void take(const PublishWork::News& news) override;
  void ended(const std::string& why) override;
  // What is done at the server, and the folder anew behind it.
  bool change(const std::string& doing, const std::function<void()>& task);
  bool list(const std::string& folder);
  // False: it is not here, and the user knows.
  bool fetch(const std::string& path);
  bool sendOnce(const publish::Item& item);
  std::optional<std::string> askName(const std::string& prompt, const std::string& first);
  bool isUnsaved(const std::string& file);

  const publish::Entry* chosen() const;
  const publish::Entry* named(const std::string& name) const;
  std::string pathOf(const std::string& name) const;
  std::string localPath(const std::string& path) const;
  bool changedHere(const publish::Item& item) const;
  std::string stateOf(const std::string& path) const;
  void showRows();
  void showButtons();

  const std::string folder_;
  const std::string address_;
  FetchedFiles& fetched_;
  std::unique_ptr<publish::Publisher> publisher_;
  std::string place_;  // the folder that is shown, below the account's
  std::vector<publish::Entry> entries_;
  std::optional<publish::Failure> failure_;  // of the file that was sent last
  std::string wanted_;
};

}  // namespace project
