// Converts the letters of a whole site: a dry run, its results in a list with tick boxes, then the doing, and
// the way back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "convert/font_table.h"
#include "resources/ids.h"
#include "site/report.h"
#include "site/site.h"
#include "site/task.h"
#include "ui/controls.h"

namespace site {

class frmsite : public ui::Form {
 public:
  explicit frmsite(app::Workbench& bench);

  ui::Label Lfolder{*this, IDC_frmsite_Lfolder};
  ui::TextBox Tfolder{*this, IDC_frmsite_Tfolder};  // or a project file
  ui::Button Cfolder{*this, IDC_frmsite_Cfolder};
  ui::Button Cproject{*this, IDC_frmsite_Cproject};
  ui::Label Linclude{*this, IDC_frmsite_Linclude};
  ui::TextBox Tinclude{*this, IDC_frmsite_Tinclude};
  ui::Label Lexclude{*this, IDC_frmsite_Lexclude};
  ui::TextBox Texclude{*this, IDC_frmsite_Texclude};
  ui::Label Lto{*this, IDC_frmsite_Lto};
  ui::ComboBox CBto{*this, IDC_frmsite_CBto};
  ui::Label Lfonts{*this, IDC_frmsite_Lfonts};
  ui::ComboBox CBfonts{*this, IDC_frmsite_CBfonts};
  ui::Label Lwhere{*this, IDC_frmsite_Lwhere};
  ui::ComboBox CBwhere{*this, IDC_frmsite_CBwhere};
  ui::Label Ltarget{*this, IDC_frmsite_Ltarget};
  ui::TextBox Ttarget{*this, IDC_frmsite_Ttarget};  // the backup, or the new folder
  ui::Button Ctarget{*this, IDC_frmsite_Ctarget};
  ui::Button Cplan{*this, IDC_frmsite_Cplan};
  ui::ProgressBar Bar{*this, IDC_frmsite_Bar};
  ui::Button Cstop{*this, IDC_frmsite_Cstop};
  ui::Label Lprogress{*this, IDC_frmsite_Lprogress};
  ui::ListView LV{*this, IDC_frmsite_LV};
  ui::CheckBox CKall{*this, IDC_frmsite_CKall};
  ui::Label Lsort{*this, IDC_frmsite_Lsort};
  ui::ComboBox CBsort{*this, IDC_frmsite_CBsort};
  ui::Button Copen{*this, IDC_frmsite_Copen};
  ui::Label Lsum{*this, IDC_frmsite_Lsum};
  ui::Button Capply{*this, IDC_frmsite_Capply};
  ui::Button Creport{*this, IDC_frmsite_Creport};
  ui::Button Crestore{*this, IDC_frmsite_Crestore};
  ui::Button CEXIT{*this, IDC_frmsite_CEXIT};

  void load() override;
  bool queryClose() override;

 private:
  // What the list shows of a file.
  struct Row {
    std::string file;
    convert::Form form = convert::Form::Ascii;
    std::uint8_t confidence = 100;
    std::size_t changeCount = 0, uncertainCount = 0;
    Note note = Note::None;
    Done done = Done::Nothing;
    bool changes = false, ticked = true;
  };

  Options wanted() const;
  std::string siteFolder() const;
  bool inPlace() const { return CBwhere.selected() != 1; }
  void optionsChanged();  // what was found does not hold for them
  void proposeTarget();
  void showTargetCaption();
  void Cfolder_Click();
  void Cproject_Click();
  void Ctarget_Click();
  void Cplan_Click();
  void Capply_Click();
  void Creport_Click();
  void Crestore_Click();
  void restoreFrom(const std::string& backup, bool overwrite);
  void LV_Checked(int row);
  void LV_SelectionChanged();
  void LV_ColumnClicked(int column);
  void CBsort_Changed();
  void CKall_Changed();
  void openSelected();

  // Does it on other threads, while the window lives; false: it was stopped. Throws what `work` throws.
  bool run(std::function<void(Observer&)> work, std::function<void(FileResult&)> take);
  void setRunning(bool on);
  void showProgress(const Task::State& state, double seconds);
  std::string unsavedInSite();  // names of documents, a line each
  void takeDone(std::vector<Row> done);
  void sortRows();
  void showRows();
  void showButtons();
  void showSum();
  ui::ListView::Item itemOf(const Row& row) const;
  const Row* selectedRow() const;

  app::Workbench& bench_;
  convert::FontTable fonts_;
  std::vector<Row> rows_;  // as they are shown
  std::size_t shown_ = 0;  // so many of them
  DryRun planned_;
  bool isPlanned_ = false;  // for the options as they stand
  std::string folder_;      // of the rows' files
  std::unique_ptr<Report> report_;
  std::string proposed_;  // for Ttarget
  int column_ = -1;       // the rows are sorted by it; -1: what is uncertain first
  bool up_ = true;
  bool running_ = false, stop_ = false, closeBehindRun_ = false;
};

}  // namespace site
