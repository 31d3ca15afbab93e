#include "platform/win32/controls/tree_peer.h"

#include <utility>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/file_icons.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/drag.h"

namespace win32 {
namespace {

// To the tree itself: a node was chosen. Posted, because what follows may rebuild the tree, which it does not
// stand while it tells of the choice.
constexpr UINT kChosenMessage = WM_APP + 2;
// A node is being dragged; posted for the same reason.
constexpr UINT kDraggedMessage = WM_APP + 3;

}  // namespace

LRESULT TreePeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETFONT) showIcons();  // also comes when the window moves to a screen of another density
  if (message == kDragMessage) return dragOver(wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}) ? 1 : 0;
  if (message == kDraggedMessage) dragNode(static_cast<int>(wParam));
  if (message != kChosenMessage) return forward(window, message, wParam, lParam);
  if (wParam < tree_.nodes().size()) tree_.userSelect(static_cast<int>(wParam));
  return 0;
}

void TreePeer::showIcons() {
  if (tree_.icons.empty()) return;
  UniqueImages images = fileIcons(dpiOf(window()));
  send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images.get()));
  images_ = std::move(images);  // the old ones go when the tree no longer uses them
}

int TreePeer::nodeOf(HTREEITEM item) const {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_[i] == item) return static_cast<int>(i);
  }
  return -1;
}

void TreePeer::showNodes() {
  send(WM_SETREDRAW, FALSE);
  TreeView_DeleteAllItems(window());
  items_.clear();
  for (const ui::TreeView::Node& node : tree_.nodes()) {
    std::wstring text = wideFromText(node.text);
    TVINSERTSTRUCTW insert{};
    insert.hParent = node.parent >= 0 && static_cast<std::size_t>(node.parent) < items_.size()
                         ? items_[static_cast<std::size_t>(node.parent)]
                         : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.iImage = insert.item.iSelectedImage = imageOf(tree_.icons, node.icon);
    insert.item.pszText = text.data();
    items_.push_back(
        reinterpret_cast<HTREEITEM>(send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert))));
  }
  for (const HTREEITEM item : items_) send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
  send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
}

void TreePeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Items) {
    showNodes();
  } else if (what == ui::Aspect::Text) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
      std::wstring text = wideFromText(tree_.nodes()[i].text);
      TVITEMW item{};
      item.mask = TVIF_HANDLE | TVIF_TEXT;
      item.hItem = items_[i];
      item.pszText = text.data();
      send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
  } else if (what == ui::Aspect::Selection) {
    const int node = tree_.selected();
    const HTREEITEM item = node >= 0 ? items_[static_cast<std::size_t>(node)] : nullptr;
    send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    if (item != nullptr) send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  }
}

void TreePeer::selectUnderPointer() {
  TVHITTESTINFO hit{};
  GetCursorPos(&hit.pt);
  ScreenToClient(window(), &hit.pt);
  send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  if (hit.hItem != nullptr) send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(hit.hItem));
}

void TreePeer::dragNode(int node) {
  dragged_ = node;
  droppedOn_ = -1;
  const HWND taken = drag(window());
  dragged_ = -1;
  if (taken == window()) {
    tree_.droppedOn(node, droppedOn_);
  } else if (taken != nullptr) {
    tree_.droppedInText(node);
  }
}

bool TreePeer::dragOver(WPARAM step, POINT screen) {
  TVHITTESTINFO hit{};
  hit.pt = screen;
  ScreenToClient(window(), &hit.pt);
  if (step != kDragLeave) send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const int target = hit.hItem != nullptr ? nodeOf(hit.hItem) : -1;
  const bool takes = dragged_ >= 0 && target >= 0 && tree_.canDropOn && tree_.canDropOn(dragged_, target);
  const HTREEITEM marked = takes && step == kDragOver ? hit.hItem : nullptr;
  send(TVM_SELECTITEM, TVGN_DROPHILITE, reinterpret_cast<LPARAM>(marked));
  if (takes && step == kDragDrop) droppedOn_ = target;
  return takes;
}

LRESULT TreePeer::onNotify(const NMHDR& header) {
  if (mirroring()) return 0;
  const auto choose = [this](HTREEITEM item) {
    const int node = nodeOf(item);
    if (node >= 0) PostMessageW(window(), kChosenMessage, static_cast<WPARAM>(node), 0);
  };
  switch (header.code) {
    case TVN_SELCHANGEDW:
      choose(reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem);
      break;
    case NM_CLICK: {
      // A click on the selected node is a click too, and no change.
      TVHITTESTINFO hit{};
      const DWORD point = GetMessagePos();
      hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
      ScreenToClient(window(), &hit.pt);
      send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
      const bool onNode = (hit.flags & TVHT_ONITEM) != 0;
      if (onNode && hit.hItem == TreeView_GetSelection(window())) choose(hit.hItem);
      break;
    }
    case TVN_BEGINDRAGW: {
      const int node = nodeOf(reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem);
      if (node >= 0 && tree_.draggable && tree_.draggable(node)) {
        PostMessageW(window(), kDraggedMessage, static_cast<WPARAM>(node), 0);
      }
      break;
    }
    case NM_RCLICK:
      selectUnderPointer();
      tree_.contextMenu();
      return 1;
    case TVN_KEYDOWN: {
      const WORD key = reinterpret_cast<const NMTVKEYDOWN&>(header).wVKey;
      if (key == VK_APPS || (key == VK_F10 && GetKeyState(VK_SHIFT) < 0)) tree_.contextMenu();
      break;
    }
    default:
      break;
  }
  return 0;
}

}  // namespace win32
