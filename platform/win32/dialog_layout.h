// Places of a dialog's controls: labels that grow with their texts, hidden controls that leave no gap.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/win32/control_peer.h"

namespace win32 {

class DialogLayout {
 public:
  // Remembers the places of the template. `peers` must live as long.
  DialogLayout(HWND dialog, const std::vector<std::unique_ptr<ControlPeer>>& peers);
  // From the template's places, so that it may be called after any change.
  void arrange() const;
  void dpiChanged(int from, int to);
  // The user has sized the window: what stretches takes the difference to the template.
  void stretch() const;

 private:
  struct Places;
  int measuredHeight(HWND label, int width) const;
  void growLabels(Places& places) const;
  void closeGaps(Places& places) const;
  void packButtons(Places& places) const;

  HWND dialog_;
  const std::vector<std::unique_ptr<ControlPeer>>& peers_;
  std::map<HWND, RECT> places_;
  SIZE client_{};
};

}  // namespace win32
