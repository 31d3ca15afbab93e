// Putting code around or in place of the selection: the three ways in which all tag commands work. Codes are
// kept with CR LF; what enters the document has the document's own line ends.
#pragma once

#include <string_view>

#include "ui/code_view.h"

namespace editor {

enum class Placing {
  Wrap,     // open + selection + close; k is the new selection's start, its length stays
  Block,    // open replaces the selection; the caret goes to k, nothing is selected
  Replace,  // open replaces the selection; the caret stays behind it
};

// `k` counts bytes of `open` from the old selection's start, and is at most its length. One undoable step.
struct Insertion {
  Placing placing;
  std::string_view open;
  std::string_view close = {};
  int k = 0;
};

void insert(ui::CodeView& T1, const Insertion& what);

// A code of the tag list: "^!" in it marks where the selection goes; selected again afterwards. Without a
// mark the code replaces the selection and the caret stays behind it. An empty code does nothing.
void insertCode(ui::CodeView& T1, std::string_view stored);

}  // namespace editor
