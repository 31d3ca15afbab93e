#include "editor/frmkod.h"

#include "app/mdlsaerto.h"
#include "editor/shown_bytes.h"
#include "markup/pieces.h"

namespace editor {

frmkod::frmkod(const std::string& tag) : Form("frmkod", IDD_frmkod), tag_(markup::parseTag(tag)) {
  setCaption("ტეგის ატრიბუტები");
  LV.stretches = true;
  Ltag.setCaption(shownBytes("<" + tag_.name + ">"));
  Lname.setCaption("&სახელი:");
  Lvalue.setCaption("&მნიშვნელობა:");
  COK.setCaption("&OK");
  CEXIT.setCaption("&გაუქმება");
  LV.hint = "ატრიბუტები";
  LV.columns = {{"სახელი", 80}, {"მნიშვნელობა", 140}};
  Tname.hint = "ატრიბუტის სახელი";
  Tvalue.hint = "ატრიბუტის მნიშვნელობა";
  std::vector<PairGrid::Row> rows;
  for (const markup::TagText::Attribute& attribute : tag_.attributes) {
    rows.push_back({attribute.name, attribute.value, static_cast<int>(rows.size()), false});
  }
  grid_.setRows(std::move(rows));
  COK.clicked.connect([this] { COK_Click(); });
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

std::string frmkod::ask(ui::Platform& platform) {
  platform.showModal(*this);
  return result_;
}

void frmkod::COK_Click() {
  grid_.commit();
  markup::TagText edited{tag_.name, {}, tag_.tail};
  for (const PairGrid::Row& row : grid_.rows()) {
    const auto* origin = row.origin < 0 ? nullptr : &tag_.attributes[static_cast<std::size_t>(row.origin)];
    if (origin != nullptr && !row.changed) {
      edited.attributes.push_back(*origin);
      continue;
    }
    // A name alone stays alone until it gets a value.
    const bool hasValue = !row.second.empty() || (origin != nullptr && origin->hasValue);
    edited.attributes.push_back({row.first, row.second, hasValue, {}});
  }
  result_ = markup::formatTag(edited);
  close();
}

void editTag(app::Workbench& bench) {
  ui::CodeView& T1 = bench.codeView();
  const auto place = markup::tagAt(T1.text(), static_cast<std::size_t>(T1.selStart()));
  if (!place) {
    app::messageBox(bench.platform(), "კურსორთან ტეგი არ არის.", "ტეგის ატრიბუტები");
    return;
  }
  const std::string old(T1.text().substr(place->start, place->end - place->start));
  frmkod form(old);
  form.Tvalue.readAs(T1);
  const std::string edited = form.ask(bench.platform());
  if (!edited.empty() && edited != old) {
    T1.select(static_cast<int>(place->start), static_cast<int>(old.size()));
    T1.replaceSelection(edited);
    T1.select(static_cast<int>(place->start), static_cast<int>(edited.size()));
  }
  T1.setFocus();
}

}  // namespace editor
