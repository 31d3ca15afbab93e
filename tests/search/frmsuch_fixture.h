// The find dialog on a whole main window without a window.
#pragma once

#include "search/attach.h"
#include "search/frmsuch.h"
#include "tests/support/main_window.h"

namespace tests {

using namespace ui::literals;

class FrmsuchTest : public MainWindowTest {
 protected:
  FrmsuchTest() : part(search::attach(*H)), D(part->dialog()) { start(); }

  void showText(const std::string& text) {
    T1.setText(text);
    T1.select(0, 0);
  }
  void openDialog() { ASSERT_TRUE(H->runCommand(mnusuch)); }
  void find(const std::string& terms) {
    if (D.closed()) openDialog();
    D.Text1.userSet(terms);
  }
  std::string selected() const {
    return std::to_string(T1.selStart()) + "+" + std::to_string(T1.selLength());
  }
  std::string info() const { return D.lbinf.caption().bytes; }
  std::vector<std::string> rows() const {
    std::vector<std::string> all;
    for (const ui::Text& row : D.List1.items()) all.push_back(row.bytes);
    return all;
  }
  void expectEnd() { expectBox("Suchen", "Zebna damTavrda.\r\n\r\nmeti araa!!  "_keyboard, app::kAnswerOk); }
  // Presses find-next until the end: what was selected, in order, with the document's title.
  std::vector<std::string> walk() {
    std::vector<std::string> steps;
    bool ended = false;
    platform.modal.push_back([&](ui::Form& box) {
      ended = true;
      press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerOk);
    });
    while (!ended && steps.size() < 100) {
      D.Czuch.click();
      if (ended) break;
      const std::int16_t shown = H->CurrentItemIndex;
      steps.push_back((shown < 0 ? "" : H->WebProject.Item(shown).FileTitle + " ") + selected());
    }
    return steps;
  }
  void openThree() {
    for (const auto& [name, text] :
         {std::pair{"a.html", "one two one"}, {"b.css", "none"}, {"c.html", "one"}}) {
      open(folder.make(name, text));
    }
  }
  void typeInto(ui::TextBox& box, int key) { box.userSet(box.text() + box.keyPress(key)); }

  using Steps = std::vector<std::string>;
  std::unique_ptr<search::Search> part;
  search::frmsuch& D;
};

}  // namespace tests
