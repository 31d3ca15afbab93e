// Pages of controls on one form: tabs above them, of which one is chosen; the controls of the others are
// hidden.
#pragma once

#include <vector>

#include "ui/control.h"
#include "ui/menu.h"

namespace ui {

class PageTabs : public Control {
 public:
  ControlKind kind() const override { return ControlKind::PageTabs; }
  using Control::Control;
  // Controls of the form; those on no page are always visible. Set before the form is shown.
  void addPage(Text caption, std::vector<Control*> controls);
  const std::vector<Text>& captions() const { return captions_; }
  int page() const { return page_; }
  // From 0; out of range: nothing. The peer is told of Items before and of Selection behind.
  void showPage(int page);
  int pageOf(const Control& control) const;  // -1: on none
  // Ctrl+Tab and Ctrl+Shift+Tab go round; true: used.
  bool keyPressed(const Shortcut& key);

 private:
  std::vector<Text> captions_;
  std::vector<std::vector<Control*>> pages_;
  int page_ = 0;
};

}  // namespace ui
