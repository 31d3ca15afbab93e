// The one gate of what the user does: an error that comes out of a handler is shown to the user and ends it.
#pragma once

#include <exception>
#include <functional>

#include "ui/signal.h"

namespace ui {

// Shows the errors as long as it lives; the one made last counts. Without one they go on to the caller.
class ErrorGate {
 public:
  using Show = std::function<void(const std::exception&)>;
  explicit ErrorGate(Show show);
  ErrorGate(const ErrorGate&) = delete;
  ErrorGate& operator=(const ErrorGate&) = delete;
  ~ErrorGate();

  // False: nobody is there to show it.
  static bool show(const std::exception& error);

 private:
  Show show_;
};

// True when the action ran through.
template <class Action>
bool atGate(Action&& action) {
  try {
    action();
    return true;
  } catch (const std::exception& error) {
    if (!ErrorGate::show(error)) throw;
    return false;
  }
}

// A signal that the user raises: each handler stands at the gate.
template <class... Arguments>
class Event : public Signal<Arguments...> {
 public:
  void operator()(Arguments... arguments) const {
    for (std::size_t i = 0; i < this->count(); ++i) {
      atGate([&] { this->call(i, arguments...); });
    }
  }
};

}  // namespace ui
