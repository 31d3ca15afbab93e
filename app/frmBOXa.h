// The program's own message box, input box and choice list.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"

namespace app {

// Standard answer codes as text. Only Yes and Cancel are tested by callers; anything else counts as No.
inline constexpr const char* kAnswerOk = "1";
inline constexpr const char* kAnswerCancel = "2";
inline constexpr const char* kAnswerYes = "6";
inline constexpr const char* kAnswerNo = "7";

class frmBOXa : public ui::Form {
 public:
  enum class Kind { Message, YesNo, YesNoCancel, Input, Choice };
  frmBOXa(Kind kind, const ui::Text& text, ui::Text title, ui::IconBox::Sign sign);

  ui::IconBox Picon{*this, IDC_frmBOXa_Picon};
  ui::TextBox Tlist{*this, IDC_frmBOXa_Tlist};  // of a long text all but the question, which stays in sight
  ui::Label LBtext{*this, IDC_frmBOXa_LBtext};
  ui::TextBox Tanswer{*this, IDC_frmBOXa_Tanswer};
  ui::ListView LV{*this, IDC_frmBOXa_LV};
  ui::Button COK{*this, IDC_frmBOXa_COK};
  ui::Button Cyes{*this, IDC_frmBOXa_Cyes};
  ui::Button Cno{*this, IDC_frmBOXa_Cno};
  ui::Button CEXIT{*this, IDC_frmBOXa_CEXIT};

  // An answer of blanks alone is one, too; else it is as good as none.
  bool blanksCount = false;
  // Below the question, all ticked.
  void setRows(const std::vector<std::string>& rows);
  std::vector<std::size_t> ticked() const;

  const std::string& answer() const { return answer_; }
  std::string text() const;                      // all of it, as the user reads it; UTF-8
  std::function<void(const std::string&)> copy;  // what Ctrl+C does with the text
  void load() override;
  bool queryClose() override;
  bool keyPressed(const ui::Shortcut& key) override;

 private:
  void showText(const ui::Text& text);
  void press(const char* answer);
  void Tanswer_Change();

  Kind kind_;
  std::string answer_ = kAnswerCancel;  // also when the window is closed without a button
};

}  // namespace app
