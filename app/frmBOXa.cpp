#include "app/frmBOXa.h"

#include "base/text.h"

namespace app {

frmBOXa::frmBOXa(Kind kind, ui::Text text, ui::Text title, ui::IconBox::Sign sign)
    : Form("frmBOXa", IDD_frmBOXa), kind_(kind) {
  setCaption(std::move(title));
  LBtext.autosize = true;
  LBtext.setCaption(std::move(text));
  Picon.sign = sign;
  Picon.setVisible(sign != ui::IconBox::Sign::None);

  const bool asks = kind == Kind::YesNo || kind == Kind::YesNoCancel;
  Tanswer.setVisible(kind == Kind::Input);
  LV.setVisible(kind == Kind::Choice);
  LV.checkBoxes = true;
  COK.setVisible(!asks);
  Cyes.setVisible(asks);
  Cno.setVisible(asks);
  CEXIT.setVisible(kind != Kind::Message && kind != Kind::YesNo);

  COK.setCaption("&OK");
  Cyes.setCaption("&დიახ");
  Cno.setCaption("&არა");
  CEXIT.setCaption("&გაუქმება");
  Tanswer.hint = LBtext.caption();
  LV.hint = LBtext.caption();

  COK.clicked.connect([this] { press(kAnswerOk); });
  Cyes.clicked.connect([this] { press(kAnswerYes); });
  Cno.clicked.connect([this] { press(kAnswerNo); });
  CEXIT.clicked.connect([this] { press(kAnswerCancel); });
  Tanswer.changed.connect([this] { Tanswer_Change(); });
  defaultButton = asks ? &Cyes : &COK;
  cancelButton = kind == Kind::Message ? &COK : kind == Kind::YesNo ? &Cno : &CEXIT;
  if (kind == Kind::Input) Tanswer_Change();
}

bool frmBOXa::queryClose() {
  answer_ = kind_ == Kind::YesNo ? kAnswerNo : kAnswerCancel;
  return true;
}

void frmBOXa::press(const char* answer) {
  answer_ = answer;
  close();
}

void frmBOXa::Tanswer_Change() {
  const std::string& typed = Tanswer.text();
  COK.setEnabled(!(blanksCount ? std::string_view(typed) : base::trimSpaces(typed)).empty());
}

}  // namespace app
