#include "ui/error_gate.h"

#include <utility>

namespace ui {
namespace {

const ErrorGate* current = nullptr;

}  // namespace

ErrorGate::ErrorGate(Show show) : show_(std::move(show)) {
  current = this;
}

ErrorGate::~ErrorGate() {
  if (current == this) current = nullptr;
}

bool ErrorGate::show(const std::exception& error) {
  if (current == nullptr) return false;
  current->show_(error);
  return true;
}

}  // namespace ui
