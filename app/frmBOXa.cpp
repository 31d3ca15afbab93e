#include "app/frmBOXa.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"

namespace app {
namespace {

constexpr int kMostLines = 12;  // what a label shows at a glance
constexpr int kMostLetters = 700;
constexpr int kLongestWord = 44;  // one line of the label: it breaks at blanks alone, and a path has none

// In letters of UTF-8 text.
bool isLong(std::string_view text) {
  int lines = 1, letters = 0, word = 0, longest = 0;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U) continue;  // within a letter
    ++letters;
    if (c == '\n') ++lines;
    word = c == ' ' || c == '\r' || c == '\n' ? 0 : word + 1;
    longest = std::max(longest, word);
  }
  return lines > kMostLines || letters > kMostLetters || longest > kLongestWord;
}

}  // namespace

frmBOXa::frmBOXa(Kind kind, const ui::Text& text, ui::Text title, ui::IconBox::Sign sign)
    : Form("frmBOXa", IDD_frmBOXa), kind_(kind) {
  setCaption(std::move(title));
  LBtext.autosize = true;
  Picon.sign = sign;
  Picon.setVisible(sign != ui::IconBox::Sign::None);

  const bool asks = kind == Kind::YesNo || kind == Kind::YesNoCancel;
  Tanswer.setVisible(kind == Kind::Input);
  LV.setVisible(kind == Kind::Choice);
  LV.checkBoxes = true;
  COK.setVisible(!asks);
  showText(text);
  LV.stretches = Tlist.stretches = true;
  Cyes.setVisible(asks);
  Cno.setVisible(asks);
  CEXIT.setVisible(kind != Kind::Message && kind != Kind::YesNo);

  COK.setCaption("&OK");
  Cyes.setCaption("&დიახ");
  Cno.setCaption("&არა");
  CEXIT.setCaption("&გაუქმება");
  Tlist.hint = "შეტყობინების ტექსტი";
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

// Not in the text: with the keyboard there all of it would be selected, and its end shown.
void frmBOXa::load() {
  if (Tlist.visible() && !Tanswer.visible() && !LV.visible()) defaultButton->setFocus();
}

void frmBOXa::showText(const ui::Text& text) {
  const std::string shown = ui::display(text);
  Tlist.setVisible(isLong(shown));
  if (!Tlist.visible()) {
    LBtext.setCaption(text);
    return;
  }
  constexpr std::string_view kParagraph = "\r\n\r\n";
  const std::size_t last = kind_ == Kind::Message ? std::string::npos : shown.rfind(kParagraph);
  Tlist.setText(shown.substr(0, last));
  if (last != std::string::npos) LBtext.setCaption(shown.substr(last + kParagraph.size()));
  LBtext.setVisible(!LBtext.caption().empty());
}

std::string frmBOXa::text() const {
  std::string label = ui::display(LBtext.caption());
  if (!Tlist.visible()) return label;
  return label.empty() ? Tlist.text() : Tlist.text() + "\r\n\r\n" + label;
}

bool frmBOXa::keyPressed(const ui::Shortcut& key) {
  if (key != ui::ctrl('C') || kind_ == Kind::Input || !copy) return false;
  const auto part = Tlist.selection();
  copy(part.length > 0
           ? Tlist.text().substr(static_cast<std::size_t>(part.start), static_cast<std::size_t>(part.length))
           : text());
  return true;
}

bool frmBOXa::queryClose() {
  answer_ = kind_ == Kind::YesNo ? kAnswerNo : kAnswerCancel;
  return true;
}

void frmBOXa::setRows(const std::vector<std::string>& rows) {
  std::vector<ui::ListView::Item> items;
  for (const std::string& row : rows) {
    ui::ListView::Item item;
    item.text = row;
    item.checked = true;
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  LV.setVisible(!rows.empty());
}

std::vector<std::size_t> frmBOXa::ticked() const {
  std::vector<std::size_t> all;
  for (std::size_t i = 0; i < LV.items().size(); ++i) {
    if (LV.items()[i].checked) all.push_back(i);
  }
  return all;
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
