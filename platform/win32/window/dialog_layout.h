// Places of a dialog's controls: labels that grow with their texts, hidden controls that leave no gap.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/win32/controls/control_peer.h"

namespace win32 {

class DialogLayout {
 public:
  // Remembers the places of the template. `peers` must live as long.
  DialogLayout(HWND dialog, const std::vector<std::unique_ptr<ControlPeer>>& peers);
  // From the template's places, so that it may be called after any change. `window` is the size wished for
  // the whole window; 0: as its controls need. What the user has added is kept.
  void arrange(SIZE window);
  void dpiChanged(int from, int to, SIZE window);
  // The window has another size: unless arrange() gave it, the user did.
  void sized();
  // No smaller than what its controls need, and larger only with something that takes the room.
  void limit(MINMAXINFO& limits) const;

  // What the user has added to the window, in pixels.
  SIZE extra() const { return extra_; }
  void setExtra(SIZE extra) { extra_ = extra; }  // before arrange()

 private:
  struct Places {
    std::map<HWND, RECT> of;
    SIZE client;
    void shift(int from, int by);
  };
  int measuredHeight(HWND label, int width) const;
  void growLabels(Places& places) const;
  void closeGaps(Places& places) const;
  void packButtons(Places& places) const;
  void place() const;
  bool stretches() const;
  SIZE border() const;  // of the window around its client area
  const ControlPeer* peerOf(HWND window) const;

  HWND dialog_;
  const std::vector<std::unique_ptr<ControlPeer>>& peers_;
  Places template_;
  Places arranged_;  // without what the user has added
  SIZE extra_{};
  bool arranging_ = false;
};

}  // namespace win32
