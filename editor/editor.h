// HTML editing attached to the main window: colouring, tags, lines.
#pragma once

#include <memory>

#include "editor/colouring.h"
#include "editor/document_reference.h"
#include "editor/line_commands.h"
#include "editor/line_end_commands.h"
#include "editor/tag_commands.h"
#include "editor/tag_palette.h"

namespace editor {

struct Editor {
  explicit Editor(app::Workbench& bench)
      : colouring(bench), tags(bench), lines(bench), lineEnds(bench), palette(bench) {
    takeDroppedDocuments(bench);
  }

  Colouring colouring;
  TagCommands tags;
  LineCommands lines;
  LineEndCommands lineEnds;
  TagPalette palette;
};

// Adds commands, menus, toolbar and key handlers. The result must live as long as the workbench is used.
inline std::unique_ptr<Editor> attach(app::Workbench& bench) {
  return std::make_unique<Editor>(bench);
}

}  // namespace editor
