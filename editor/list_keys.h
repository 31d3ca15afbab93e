// Arrow keys that go through a list while the user types into the field above it.
#pragma once

#include "ui/controls.h"
#include "ui/menu.h"

namespace editor {

// -1 for the up key, 1 for the down key, 0 for any other.
inline int rowStep(const ui::Shortcut& key) {
  constexpr int kUp = 0x26, kDown = 0x28;
  if (key.ctrl || key.shift || key.alt) return 0;
  return key.key == kUp ? -1 : key.key == kDown ? 1 : 0;
}

// True when the key was one of the two: the list's selection went one row on, as if the user had clicked
// there.
template <class List>
bool stepThrough(List& list, const ui::Shortcut& key) {
  const int step = rowStep(key);
  const int row = list.selected() + step;
  if (step != 0 && row >= 0 && row < static_cast<int>(list.items().size())) list.userSelect(row);
  return step != 0;
}

}  // namespace editor
