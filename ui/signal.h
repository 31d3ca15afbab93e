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
    for (std::size_t i = 0; i < handlers_.size(); ++i) handlers_[i](arguments...);
  }

 private:
  std::vector<std::function<void(Arguments...)>> handlers_;
};

}  // namespace ui
