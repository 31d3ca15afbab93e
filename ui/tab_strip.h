// A row of tabs of which one is chosen; what they stand for is the owner's business.
#pragma once

#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/error_gate.h"

namespace ui {

class TabStrip : public Control {
 public:
  ControlKind kind() const override { return ControlKind::TabStrip; }
  using Control::Control;
  struct Tab {
    Text text;
    Text hint = {};
    bool operator==(const Tab&) const = default;
  };
  // Places are from 0, left to right. Asked for by the user; the owner does it and sets the tabs anew.
  Event<int> chosen;
  Event<int> closeAsked;  // middle click
  Event<int, int> moved;  // dragged from one place to another
  bool movable = false;   // set before the form is shown

  const std::vector<Tab>& tabs() const { return tabs_; }
  int selected() const { return selected_; }  // -1: none
  void setTabs(std::vector<Tab> tabs, int selected);
  void setSelected(int tab);
  void userSelect(int tab);
  void userClose(int tab);
  void userMove(int from, int to);

 private:
  bool has(int tab) const { return tab >= 0 && tab < static_cast<int>(tabs_.size()); }
  std::vector<Tab> tabs_;
  int selected_ = -1;
};

}  // namespace ui
