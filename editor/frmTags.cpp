#include "editor/frmTags.h"

#include "base/text.h"

namespace editor {

frmTags::frmTags(ui::Platform& platform) : Form("frmTags", IDD_frmTags), platform_(platform) {
  Tsearch.hint = "სახელის დასაწყისი";
  MBOK.setCaption("&OK");
  MBexit.setCaption("&გამოსვლა");
  List1.stretches = true;
  Tsearch.changed.connect([this] { Tsearch_Change(); });
  List1.selectionChanged.connect([this] { List1_Click(); });
  List1.doubleClicked.connect([this] {
    List1_Click();  // a row that was selected already is not clicked anew
    MBOK.click();
  });
  MBOK.clicked.connect([this] { close(); });
  MBexit.clicked.connect([this] { MBexit_Click(); });
  defaultButton = &MBOK;
  cancelButton = &MBexit;
}

std::string frmTags::Tagsload() {
  mode_ = Mode::Tags;
  setCaption("ტეგების სია");
  List1.hint = "ტეგები";
  entries_ = parseTagList(platform_.resource("HTMLKODS"));
  std::vector<std::string> names;
  for (const TagEntry& entry : entries_) names.push_back(entry.name);
  return run(std::move(names));
}

std::string frmTags::fontebisdatenva() {
  mode_ = Mode::Fonts;
  setCaption("შრიფტები");
  List1.hint = "შრიფტები";
  return run(platform_.fontNames());
}

std::string frmTags::run(std::vector<std::string> names) {
  Tsearch.setText("");
  List1.setItems({names.begin(), names.end()});
  List1.setSelected(0);
  result_.clear();  // the first row is a beginning, not a choice
  platform_.showModal(*this);
  return result_;
}

void frmTags::List1_Click() {
  result_.clear();
  if (List1.selected() < 0) return;
  const auto row = static_cast<std::size_t>(List1.selected());
  result_ = mode_ == Mode::Tags ? pickedCode(entries_[row]) : List1.items()[row].bytes;
}

// The first name that begins like the typed text; the selection stays where none does. An emptied field
// chooses nothing.
void frmTags::Tsearch_Change() {
  const std::string& typed = Tsearch.text();
  if (typed.empty()) {
    List1.setSelected(0);
    result_.clear();
    return;
  }
  for (std::size_t i = 0; i < List1.items().size(); ++i) {
    if (!base::equalNoCase(List1.items()[i].bytes.substr(0, typed.size()), typed)) continue;
    List1.setSelected(static_cast<int>(i));
    List1_Click();
    return;
  }
}

void frmTags::MBexit_Click() {
  result_.clear();
  close();
}

bool frmTags::queryClose() {
  result_.clear();
  return true;
}

}  // namespace editor
