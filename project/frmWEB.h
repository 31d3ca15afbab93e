// The dialog that makes a web project: a name, a folder, and the files that go into it.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace project {

// Image number of the file list by the extension, which is compared in upper case.
int fileIcon(const std::string& name);

class frmWEB : public ui::Form {
 public:
  explicit frmWEB(app::Workbench& bench);

  ui::Label Lpname{*this, IDC_frmWEB_Lpname};
  ui::TextBox Tpname{*this, IDC_frmWEB_Tpname};
  ui::Label Lwebpath{*this, IDC_frmWEB_Lwebpath};
  ui::TextBox Twebpath{*this, IDC_frmWEB_Twebpath};
  ui::Label Label1{*this, IDC_frmWEB_Label1};
  ui::ListView LV{*this, IDC_frmWEB_LV};
  std::array<std::unique_ptr<ui::Button>, 6> COK;
  ui::Label LBinfo{*this, IDC_frmWEB_LBinfo};

  std::string HTMLheaderi(const std::string& title) const;
  bool keyPressed(const ui::Shortcut& key) override;
  bool queryClose() override { return !writing_; }

 private:
  void addPage();
  void addFiles();
  void removeFile();
  void chooseFolder();
  void create();
  struct NewItem {
    std::string name, source;  // no source: a new page
  };
  void addItems(const std::vector<NewItem>& added);
  std::optional<std::string> nameFor(const std::string& path, const std::set<std::string>& listed);
  bool LV_AfterLabelEdit(int row, std::string& text);
  void Tpname_Change();
  void enableCreate();
  void showInfo(int button);
  bool isListed(const std::string& name, int except) const;
  // What to do with files of the project folder that would be replaced. False: the user cancelled.
  bool mayReplace(const std::string& folder, bool& replace) const;
  bool writeFiles(const std::string& folder, bool replace, std::string& missing);
  std::string projectText(std::string& missing) const;

  app::Workbench& bench_;
  bool writing_ = false;  // files are being made: nothing else is done until Esc or the end
  int infoButton_;        // whose description is shown; 6: none
};

}  // namespace project
