// Shows what a conversion of the shown page's letters would change, takes the user's word on what is
// uncertain, and does it as one step.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "convert/font_table.h"
#include "convert/page_review.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/picture.h"

namespace convert {

ui::Text formName(Form form);  // for the user

// The fonts by which texts are known: the program's, and before them those of a FONTS.txt beside the program;
// `bad` are the numbers of its lines that name no form. Throws base::Error when it cannot be read.
FontTable fontsOfUser(ui::Platform& platform, std::vector<std::size_t>& bad);

class frmletters : public ui::Form {
 public:
  explicit frmletters(app::Workbench& bench);

  ui::Label Lto{*this, IDC_frmletters_Lto};
  ui::ComboBox CBto{*this, IDC_frmletters_CBto};
  ui::Label Lfrom{*this, IDC_frmletters_Lfrom};
  ui::ComboBox CBfrom{*this, IDC_frmletters_CBfrom};
  ui::Label Lfonts{*this, IDC_frmletters_Lfonts};
  ui::ComboBox CBfonts{*this, IDC_frmletters_CBfonts};
  ui::Label Lnew{*this, IDC_frmletters_Lnew};
  ui::TextBox Tnew{*this, IDC_frmletters_Tnew};
  ui::CheckBox CKcomments{*this, IDC_frmletters_CKcomments};
  ui::CheckBox CKscripts{*this, IDC_frmletters_CKscripts};
  ui::ListView LV{*this, IDC_frmletters_LV};
  ui::Label Lform{*this, IDC_frmletters_Lform};
  ui::ComboBox CBform{*this, IDC_frmletters_CBform};
  ui::Label Lpage{*this, IDC_frmletters_Lpage};
  ui::PictureBox Ppage{*this, IDC_frmletters_Ppage};
  ui::Label Lsum{*this, IDC_frmletters_Lsum};
  ui::Button COK{*this, IDC_frmletters_COK};
  ui::Button CEXIT{*this, IDC_frmletters_CEXIT};

  void load() override;

  // For the shown document, or what is selected in it. Says why when there is nothing to look at.
  void openWindow();

 private:
  // A row of the list: a heading (no change), a text, or the word that there are more of a group.
  struct Row {
    std::size_t group;
    std::optional<std::uint32_t> change;
    bool more = false;
  };

  std::optional<std::string> pageOfDocument();  // nothing: the user was told why not
  PlanOptions wanted() const;
  void readSettings();
  void keepSettings();
  void planAgain();
  void showRows();
  ui::ListView::Item itemOf(const Row& row) const;
  ui::ListView::Item headingOf(const ReviewGroup& group) const;
  void showSum();
  void showForm();  // of the selected row
  void selectAgain(const std::optional<Row>& before, std::optional<std::uint32_t> begin, ChangeKind kind);
  const Row* selectedRow() const;
  std::vector<std::uint32_t> changesOf(const Row& row) const;
  template <class Act>
  void changeRows(Act act);
  void LV_SelectionChanged();
  void LV_Checked(int row);
  void CBform_Changed();
  void lookAt(std::uint32_t change);
  void scroll(int lines);
  bool Ppage_KeyDown(int key);
  void paintPage(ui::Canvas& canvas);
  void COK_Click();

  app::Workbench& bench_;
  FontTable fonts_;
  std::string page_;
  bool fromUtf16_ = false;
  std::optional<markup::Range> selection_;
  std::optional<PageReview> review_;
  std::vector<Row> rows_;
  std::vector<std::size_t> shown_;  // texts of each group that the list holds
  bool filling_ = false;
  std::size_t top_ = 0;        // of the page, in the picture
  std::size_t lineBytes_ = 0;  // a line there holds
  int pageRows_ = 1;
  std::optional<std::uint32_t> lookedAt_;
};

}  // namespace convert
