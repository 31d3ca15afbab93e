// Texts put around the selection of the code view.
#pragma once

#include <string>
#include <string_view>

#include "ui/code_view.h"

namespace generators {

// One undoable step; what was selected is selected again between the two texts, and the view has the focus.
inline void wrapSelection(ui::CodeView& T1, const std::string& beginning, std::string_view end) {
  const std::string selected = T1.selText();
  const int start = T1.selStart();
  T1.replaceSelection(beginning + selected + std::string(end));
  T1.select(start + static_cast<int>(beginning.size()), static_cast<int>(selected.size()));
  T1.setFocus();
}

}  // namespace generators
