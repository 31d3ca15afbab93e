// Texts put around the selection of the code view.
#pragma once

#include <string>
#include <string_view>

#include "base/line_ends.h"
#include "ui/code_view.h"

namespace generators {

// The texts get the document's own line ends. One undoable step; what was selected is selected again between
// the two texts, and the view has the focus.
inline void wrapSelection(ui::CodeView& T1, std::string_view before, std::string_view behind) {
  const std::string selected = T1.selText();
  const int start = T1.selStart();
  const std::string beginning = base::withLineEndsOf(T1.text(), before);
  T1.replaceSelection(beginning + selected + base::withLineEndsOf(T1.text(), behind));
  T1.select(start + static_cast<int>(beginning.size()), static_cast<int>(selected.size()));
  T1.setFocus();
}

}  // namespace generators
