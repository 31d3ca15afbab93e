// Two panels of the status bar: the decoded selection, and how much of which encoding the text holds.
#pragma once

#include <string>
#include <string_view>

#include "app/workbench.h"
#include "convert/conversions.h"

namespace convert {

// What the panel shows of the selected bytes: UTF-8 as its letters, other bytes as those of the legacy font,
// on one line, of a length that fits.
ui::Text selectionPreview(std::string_view text, int start, int length, ui::TextView view,
                          const Conversions& conversions);

// Adds the panels and the command that switches the preview. Both arguments must outlive it.
class StatusPanels {
 public:
  StatusPanels(app::Workbench& bench, const Conversions& conversions);
  StatusPanels(const StatusPanels&) = delete;
  StatusPanels& operator=(const StatusPanels&) = delete;

 private:
  void showPreview();
  void showCounts();

  app::Workbench& bench_;
  const Conversions& conversions_;
  bool previewShown_ = false;
  bool countsStale_ = true;
};

}  // namespace convert
