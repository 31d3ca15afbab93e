// A web browser inside a form.
#pragma once

#include <string>

#include "ui/control.h"
#include "ui/error_gate.h"

namespace ui {

class WebView : public Control {
 public:
  ControlKind kind() const override { return ControlKind::WebView; }
  using Control::Control;
  enum class Order { None, Open, Back };
  // A page on the disk, by its UTF-8 path; again: its new text.
  void open(std::string path) {
    path_ = std::move(path);
    give(Order::Open);
  }
  void back() { give(Order::Back); }
  // For the peer: what is to be done, once.
  const std::string& path() const { return path_; }
  Order takeOrder() {
    const Order order = order_;
    order_ = Order::None;
    return order;
  }

  Event<> loaded;          // a page is shown
  Event<> failed;          // this machine has no engine that shows pages
  bool canGoBack = false;  // kept by the peer; `loaded` tells of its changes

 private:
  void give(Order order) {
    order_ = order;
    tell(Aspect::Value);
  }
  std::string path_;
  Order order_ = Order::None;
};

}  // namespace ui
