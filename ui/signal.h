// Handlers called in the order they were connected. No removal: who connects lives as long as the signal.
#pragma once

#include <functional>
#include <vector>

namespace ui {

template <class... Arguments>
class Signal {
 public:
  void connect(std::function<void(Arguments...)> handler) { handlers_.push_back(std::move(handler)); }
  void operator()(Arguments... arguments) const {
    // By index: a handler may connect another one.
    for (std::size_t i = 0; i < count(); ++i) call(i, arguments...);
  }

 protected:
  std::size_t count() const { return handlers_.size(); }
  void call(std::size_t handler, Arguments... arguments) const { handlers_[handler](arguments...); }

 private:
  std::vector<std::function<void(Arguments...)>> handlers_;
};

}  // namespace ui
