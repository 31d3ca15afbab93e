// Tree views.
#pragma once

#include <vector>

#include "platform/win32/controls/watched_peer.h"
#include "platform/win32/system/handles.h"
#include "ui/controls.h"

namespace win32 {

class TreePeer final : public WatchedPeer<TreePeer> {
 public:
  TreePeer(ui::TreeView& model, HWND window) : WatchedPeer(model, window), tree_(model) {}
  LRESULT onNotify(const NMHDR& header) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<TreePeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void showNodes();
  void showIcons();
  void selectUnderPointer();
  void dragNode(int node);
  bool dragOver(WPARAM step, POINT screen);  // a node of this tree is over it; true: it may be dropped there
  int nodeOf(HTREEITEM item) const;

  ui::TreeView& tree_;
  std::vector<HTREEITEM> items_;  // by node
  UniqueImages images_;
  int dragged_ = -1;
  int droppedOn_ = -1;
};

}  // namespace win32
