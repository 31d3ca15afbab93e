// The CSS style builder: the properties of one rule or STYLE attribute in groups, as the resource `CSSKODS`
// lists them.
#pragma once

#include <string>
#include <vector>

#include "app/workbench.h"
#include "markup/css_edit.h"
#include "markup/css_properties.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace generators {

class frmCSSstile : public ui::Form {
 public:
  // `edit` is changed in place while the user works; it and `bench` must outlive the form.
  frmCSSstile(app::Workbench& bench, markup::CssEdit& edit, markup::CssProperties properties);

  ui::Label Lwhere{*this, IDC_frmCSSstile_Lwhere};
  ui::Label Lselector{*this, IDC_frmCSSstile_Lselector};
  ui::TextBox Tselector{*this, IDC_frmCSSstile_Tselector, ui::TextBox::Holds::Bytes};
  ui::Label Lgroup{*this, IDC_frmCSSstile_Lgroup};
  ui::ListBox List1{*this, IDC_frmCSSstile_List1};  // "what stands there", then the groups of the resource
  ui::Label Llist{*this, IDC_frmCSSstile_Llist};
  ui::ListView LV{*this, IDC_frmCSSstile_LV};
  ui::Label Lvalue{*this, IDC_frmCSSstile_Lvalue};
  ui::TextBox Tvalue{*this, IDC_frmCSSstile_Tvalue, ui::TextBox::Holds::Bytes};
  ui::CheckBox CKimportant{*this, IDC_frmCSSstile_CKimportant};
  ui::Button Cclear{*this, IDC_frmCSSstile_Cclear};
  ui::Label Lkeyword{*this, IDC_frmCSSstile_Lkeyword};
  ui::ComboBox CBkeyword{*this, IDC_frmCSSstile_CBkeyword};
  ui::Label Lunit{*this, IDC_frmCSSstile_Lunit};
  ui::ComboBox CBunit{*this, IDC_frmCSSstile_CBunit};
  ui::Button Ccolor{*this, IDC_frmCSSstile_Ccolor};
  ui::Button Cfile{*this, IDC_frmCSSstile_Cfile};
  ui::Label Lpreview{*this, IDC_frmCSSstile_Lpreview};
  ui::TextBox Tpreview{*this, IDC_frmCSSstile_Tpreview, ui::TextBox::Holds::Bytes};
  ui::Button COK{*this, IDC_frmCSSstile_COK};
  ui::Button CEXIT{*this, IDC_frmCSSstile_CEXIT};

  void load() override;
  // Shows the window; true: the user wants what is in `edit` now.
  bool ask();

 private:
  // A line of the property list; `property` is not owned, nullptr: not in the resource.
  struct Row {
    std::string name;
    const markup::CssProperty* property;
    int entry;  // of edit_, -1: none yet
  };

  void setTexts();
  ui::Text placeText() const;
  void List1_Click();
  void LV_Click();
  void Tvalue_Change();
  void CKimportant_Click();
  void CBkeyword_Click();
  void CBunit_Click();
  void Ccolor_Click();
  void Cfile_Click();
  void COK_Click();

  Row* row();  // the selected one, nullptr: none
  const markup::CssProperty& propertyOf(const Row& row) const;
  std::string valueOf(const Row& row) const;
  void setValue(const std::string& value);  // by a choice, not by typing
  void keep(const std::string& typed);
  std::vector<std::string> keywordsOf(const Row& row) const;  // bytes of the document
  void showRows();
  void showValue();    // the fields below the list, after another row was chosen
  void showChoices();  // those that follow the value
  void showPreview();
  std::string documentFolder() const;
  // What is wrong with the selector or a value, said in a box; the field in question gets the focus.
  bool refused();

  app::Workbench& bench_;
  markup::CssEdit& edit_;
  markup::CssProperties properties_;
  std::vector<Row> rows_;
  std::vector<std::string> keywords_;
  bool accepted_ = false;
};

// The command: edits what stands at the caret, in one step; says so when nothing can be edited there.
void editStyle(app::Workbench& bench);

}  // namespace generators
