#include "ui/controls.h"

#include <algorithm>
#include <stdexcept>

namespace ui {
namespace {

template <class Items>
int rowIn(const Items& items, int row) {
  return row >= 0 && row < static_cast<int>(items.size()) ? row : -1;
}

}  // namespace

void CheckBox::setChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  tell(Aspect::Value);
}

void CheckBox::userSet(bool checked) {
  if (checked == checked_) return;
  setChecked(checked);
  changed();
}

void CheckBox::setGreyed(bool greyed) {
  if (greyed == greyed_) return;
  greyed_ = greyed;
  tell(Aspect::Value);
}

void OptionButton::choose() {
  for (Control* control : form_.controls()) {
    if (control->kind() != ControlKind::OptionButton) continue;
    auto* const option = static_cast<OptionButton*>(control);
    if (option->group_ != group_) continue;
    option->chosen_ = option == this;
    option->tell(Aspect::Value);
  }
}

void OptionButton::userChoose() {
  if (chosen_) return;
  choose();
  changed();
}

void TextBox::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  tell(Aspect::Text);
}

void TextBox::userSet(std::string text) {
  if (text == text_) return;
  setText(std::move(text));
  changed();
}

void TextBox::setFont(Font font) {
  if (font == font_) return;
  font_ = std::move(font);
  tell(Aspect::Font);
}

void TextBox::select(int start, int length) {
  const int size = static_cast<int>(text_.size());
  selection_.start = std::clamp(start, 0, size);
  selection_.length = std::clamp(length, 0, size - selection_.start);
  tell(Aspect::Selection);
}

void TextBox::insert(std::string_view text) {
  const Selection at = selection();
  const std::size_t start = std::min(static_cast<std::size_t>(std::max(at.start, 0)), text_.size());
  std::string changedText = text_;
  changedText.replace(start, static_cast<std::size_t>(std::max(at.length, 0)), text);
  setText(std::move(changedText));
  select(static_cast<int>(start + text.size()), 0);
  changed();
}

void ListBox::setItems(std::vector<Text> items) {
  items_ = std::move(items);
  selected_ = -1;
  tell(Aspect::Items);
}

void ListBox::setSelected(int row) {
  selected_ = rowIn(items_, row);
  tell(Aspect::Selection);
}

void ListBox::userSelect(int row) {
  setSelected(row);
  selectionChanged();
}

void ListView::setItems(std::vector<Item> items) {
  items_ = std::move(items);
  selected_ = -1;
  tell(Aspect::Items);
}

void ListView::setSelected(int row) {
  selected_ = rowIn(items_, row);
  tell(Aspect::Selection);
}

void ListView::setChecked(int row, bool checked) {
  if (rowIn(items_, row) < 0) return;
  items_[static_cast<std::size_t>(row)].checked = checked;
  tell(Aspect::Value);
}

void ListView::userSelect(int row) {
  setSelected(row);
  selectionChanged();
}

void ListView::userCheck(int row, bool checked) {
  setChecked(row, checked);
  if (rowIn(items_, row) >= 0) rowChecked(row);
}

void ListView::userEdit(int row, std::string text) {
  if (rowIn(items_, row) < 0 || !labelEdited || !labelEdited(row, text)) return;
  items_[static_cast<std::size_t>(row)].text = std::move(text);
  tell(Aspect::Items);
  tell(Aspect::Selection);
}

void TreeView::setNodes(std::vector<Node> nodes) {
  nodes_ = std::move(nodes);
  selected_ = -1;
  tell(Aspect::Items);
}

void TreeView::setNodeText(int node, Text text) {
  if (rowIn(nodes_, node) < 0) return;
  nodes_[static_cast<std::size_t>(node)].text = std::move(text);
  tell(Aspect::Text);
}

void TreeView::setSelected(int node) {
  selected_ = rowIn(nodes_, node);
  tell(Aspect::Selection);
}

void TreeView::userSelect(int node) {
  setSelected(node);
  if (selected_ >= 0) nodeClicked(selected_);
}

void StatusBar::setPanel(std::string_view key, Text text) {
  for (Panel& panel : panels_) {
    if (panel.key != key) continue;
    if (panel.text == text) return;
    panel.text = std::move(text);
    tell(Aspect::Text);
    return;
  }
}

void StatusBar::userClick(std::size_t panel) {
  if (panel < panels_.size()) panelClicked(panels_[panel].key);
}

void StatusBar::setWhole(Text text) {
  if (text == whole_) return;
  whole_ = std::move(text);
  tell(Aspect::Value);
}

const Text& StatusBar::panel(std::string_view key) const {
  for (const Panel& panel : panels_) {
    if (panel.key == key) return panel.text;
  }
  throw std::logic_error("no such status panel");
}

}  // namespace ui
