// The controls that forms use. set...() is the program's side and raises no event; user...() is what a peer
// (or a test in its place) calls when the user acts, and raises the control's event.
#pragma once

#include <string>
#include <vector>

#include "ui/code_view.h"
#include "ui/control.h"
#include "ui/error_gate.h"
#include "ui/form.h"
#include "ui/platform/file_icon.h"

namespace ui {

class Label : public Control {
 public:
  ControlKind kind() const override { return ControlKind::Label; }
  using Control::Control;
  // The label grows with its text and moves what stands below it; message texts have any length.
  bool autosize = false;
};

// The sign of a message box, or the program's own picture.
class IconBox : public Control {
 public:
  ControlKind kind() const override { return ControlKind::IconBox; }
  using Control::Control;
  enum class Sign { None, Information, Question, Warning, Critical, Program };
  Sign sign = Sign::None;  // set before the form is shown
};

class Button : public Control {
 public:
  ControlKind kind() const override { return ControlKind::Button; }
  using Control::Control;
  Event<> clicked;
  // The pointer came over the button (or the keyboard to it): true; it left: false.
  Event<bool> pointed;
  // Does nothing when disabled, like a real one.
  void click() {
    if (enabled() && visible()) clicked();
  }
};

class CheckBox : public Control {
 public:
  ControlKind kind() const override { return ControlKind::CheckBox; }
  using Control::Control;
  Event<> changed;
  bool checked() const { return checked_; }
  void setChecked(bool checked);
  void userSet(bool checked);
  // Shown ticked and grey: neither on nor off. checked() stays what it was.
  bool greyed() const { return greyed_; }
  void setGreyed(bool greyed);

 private:
  bool checked_ = false;
  bool greyed_ = false;
};

// Option buttons of one group exclude each other in the window (template groups) and in the model.
class OptionButton : public Control {
 public:
  ControlKind kind() const override { return ControlKind::OptionButton; }
  OptionButton(Form& form, int id, int group) : Control(form, id), form_(form), group_(group) {}
  Event<> changed;
  bool chosen() const { return chosen_; }
  void choose();      // by the program: no event
  void userChoose();  // by the user: raises `changed` of this button

 private:
  Form& form_;
  int group_;
  bool chosen_ = false;
};

class TextBox : public Control {
 public:
  ControlKind kind() const override { return ControlKind::TextBox; }
  enum class Holds {
    Unicode,  // text() is UTF-8: names, paths
    Bytes,    // text() is byte text, shown in font()
  };
  TextBox(Form& form, int id, Holds holds = Holds::Unicode) : Control(form, id), holds_(holds) {}
  Event<> changed;
  // Byte-text boxes: what enters for a typed character that has a byte in the font's character set (in UTF-8:
  // below 80). Without it, that byte.
  std::function<std::string(int key)> keyPress;
  // And for one, typed or pasted, that has none, in a font of one byte a letter. Without it, its UTF-8.
  std::function<std::string(char32_t character)> typed;
  Holds holds() const { return holds_; }
  // Shown as dots; one-line boxes only.
  bool masked() const { return masked_; }
  void setMasked(bool masked) {
    masked_ = masked;
    tell(Aspect::Value);
  }
  const std::string& text() const { return text_; }
  void setText(std::string text);
  void userSet(std::string text);
  void selectAll() { select(0, static_cast<int>(text_.size())); }

  // Of a byte-text box: what its bytes mean.
  const Font& font() const { return font_; }
  void setFont(Font font);
  // Shows bytes, and takes letters, as the code view does now.
  void readAs(const CodeView& view) {
    setFont(view.currentFont());
    typed = view.typed;
  }

  // Caret and selection, for byte-text boxes, in bytes from 0.
  struct Selection {
    int start;
    int length;
  };
  Selection selection() const { return selectionInWindow ? selectionInWindow() : selection_; }
  void select(int start, int length);  // clamped
  // In place of the selection; the caret goes behind it. Raises `changed`.
  void insert(std::string_view text);
  // Where the user has the caret; set by the peer while the window is there.
  std::function<Selection()> selectionInWindow;
  // What the program selected last, for the peer to show.
  Selection selected() const { return selection_; }

 private:
  Holds holds_;
  bool masked_ = false;
  std::string text_;
  Selection selection_{0, 0};
  Font font_;
};

class ProgressBar : public Control {
 public:
  ControlKind kind() const override { return ControlKind::ProgressBar; }
  using Control::Control;
  static constexpr int kMost = 1000;
  int value() const { return value_; }
  void setValue(int value) {  // from 0 to kMost
    value_ = value;
    tell(Aspect::Value);
  }

 private:
  int value_ = 0;
};

// Rows of text with one selected row (-1: none); base of the drop-down list too.
class ListBox : public Control {
 public:
  ControlKind kind() const override { return ControlKind::ListBox; }
  using Control::Control;
  Event<> selectionChanged;
  Event<> doubleClicked;
  // A row may be dragged into the code view: the caret is where it was dropped then, or the selection stays,
  // when it was dropped on that. Off without `draggable`, which is set before the form is shown.
  bool draggable = false;
  Event<int> droppedInText;
  // A key pressed in the list, before the list sees it; true: handled.
  std::function<bool(const Shortcut&)> keyPressed;
  const std::vector<Text>& items() const { return items_; }
  void setItems(std::vector<Text> items);  // deselects
  int selected() const { return selected_; }
  void setSelected(int row);  // out of range: none
  void userSelect(int row);

 private:
  std::vector<Text> items_;
  int selected_ = -1;
};

class ComboBox : public ListBox {  // a drop-down list without an edit field
 public:
  ControlKind kind() const override { return ControlKind::ComboBox; }
  using ListBox::ListBox;
  int dropWidth = 0;  // of the open list, in 1/96 inch; 0: the control's own; set before the form is shown
};

class ListView : public Control {
 public:
  ControlKind kind() const override { return ControlKind::ListView; }
  using Control::Control;
  struct Item {
    Text text;
    std::vector<Text> subItems;
    std::string tag;  // the owner's, not shown
    int icon = 0;     // image number, 0: none
    bool checked = false;
    bool heading = false;  // of the rows below it: stands out
    bool boxed = true;     // has a tick box, in a list with check boxes
  };
  struct Column {
    Text caption;
    int width;  // in dialog units
  };
  std::vector<Column> columns;  // none: a plain list; set before the form is shown
  bool checkBoxes = false;
  FileIcons icons;  // by image number; set before the form is shown
  Event<> selectionChanged;
  Event<> doubleClicked;
  Event<> contextMenu;
  Event<int> rowChecked;     // the user ticked a row, or took its tick away
  Event<int> columnClicked;  // its heading; sorting is the owner's
  // The column whose heading shows that the rows are sorted by it, -1: none; seen with the next setItems().
  int sortedBy = -1;
  bool sortedUp = true;
  bool enterOpens = false;  // Enter in the list is a double click, not the default button
  // In-place editing of row texts: off without a handler. `text` is UTF-8 and may be changed; false refuses
  // it.
  std::function<bool(int row, std::string& text)> labelEdited;
  void editSelected() { tell(Aspect::Edit); }  // opens the edit field, where there is a window

  const std::vector<Item>& items() const { return items_; }
  void setItems(std::vector<Item> items);
  int selected() const { return selected_; }
  void setSelected(int row);
  void setChecked(int row, bool checked);
  void userSelect(int row);
  void userCheck(int row, bool checked);
  void userEdit(int row, std::string text);

 private:
  std::vector<Item> items_;
  int selected_ = -1;
};

class TreeView : public Control {
 public:
  ControlKind kind() const override { return ControlKind::TreeView; }
  using Control::Control;
  struct Node {
    int parent = -1;  // index of the parent node, -1: a root
    std::string key;
    Text text;
    std::string tag;  // the owner's; empty on roots
    int icon = 0;
  };
  FileIcons icons;  // by image number; set before the form is shown
  // A node was clicked, or chosen with the keyboard; the argument is its index.
  Event<int> nodeClicked;
  Event<> contextMenu;  // asked for on the selected node
  // A node may be dragged into the code view, as a row of a ListBox, or onto another node. No dragging
  // without `draggable`, no dropping on nodes without `canDropOn`.
  std::function<bool(int node)> draggable;
  std::function<bool(int node, int target)> canDropOn;
  Event<int> droppedInText;
  Event<int, int> droppedOn;

  const std::vector<Node>& nodes() const { return nodes_; }
  void setNodes(std::vector<Node> nodes);  // shown expanded; deselects
  void setNodeText(int node, Text text);
  int selected() const { return selected_; }
  void setSelected(int node);
  void userSelect(int node);

 private:
  std::vector<Node> nodes_;
  int selected_ = -1;
};

// Panels from left to right; a panel is known by its key.
class StatusBar : public Control {
 public:
  ControlKind kind() const override { return ControlKind::StatusBar; }
  struct Panel {
    std::string key;
    int width;  // in 1/96 inch; -1: takes the rest
    Text text;
    bool givesWay = false;  // shows a part of a longer text, and so is the first to get narrower
  };
  StatusBar(Form& form, int id, std::vector<Panel> panels) : Control(form, id), panels_(std::move(panels)) {}
  const std::vector<Panel>& panels() const { return panels_; }
  void setPanel(std::string_view key, Text text);
  const Text& panel(std::string_view key) const;
  void userClick(std::size_t panel);     // its number, from 0
  Event<std::string_view> panelClicked;  // its key

  // Stands over the whole bar in place of the panels; empty: the panels again.
  void setWhole(Text text);
  const Text& whole() const { return whole_; }

 private:
  std::vector<Panel> panels_;
  Text whole_;
};

}  // namespace ui
