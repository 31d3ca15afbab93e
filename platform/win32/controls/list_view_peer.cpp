#include "platform/win32/controls/list_view_peer.h"

#include <algorithm>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/file_icons.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr UINT kChecked = 2;  // index of the state image

}  // namespace

void ListViewPeer::prepare() {
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
       LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP |
           (list_.checkBoxes ? LVS_EX_CHECKBOXES : 0));
  if (list_.labelEdited) addStyle(LVS_EDITLABELS);
  if (!list_.icons.empty()) {  // the list view destroys its images itself
    send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(fileIcons(dpiOf(window())).release()));
  }
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
  for (const ui::ListView::Column& wanted : list_.columns) {
    RECT units{0, 0, wanted.width, 0};
    MapDialogRect(GetParent(window()), &units);
    std::wstring caption = wideFromText(wanted.caption);
    column.cx = units.right;
    column.pszText = caption.data();
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column.iSubItem), reinterpret_cast<LPARAM>(&column));
    ++column.iSubItem;
  }
  if (list_.columns.empty()) {  // one, as wide as the list
    RECT client;
    GetClientRect(window(), &client);
    wchar_t none[] = L"";
    column.cx = client.right - GetSystemMetrics(SM_CXVSCROLL);
    column.pszText = none;
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  }
}

// The last column takes what the others leave of the width.
void ListViewPeer::placed() {
  const bool report = (GetWindowLongPtrW(window(), GWL_STYLE) & LVS_TYPEMASK) == LVS_REPORT;
  if (!list_.stretches || !report) return;
  RECT client;
  GetClientRect(window(), &client);
  int left = client.right - (list_.columns.empty() ? GetSystemMetrics(SM_CXVSCROLL) : 0);
  const int last = std::max(0, static_cast<int>(list_.columns.size()) - 1);
  for (int i = 0; i < last; ++i) left -= static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i)));
  if (lastWidth_ == 0) lastWidth_ = static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(last)));
  send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(last), std::max(left, lastWidth_));
}

void ListViewPeer::showItems() {
  send(WM_SETREDRAW, FALSE);
  // As many rows as before: only their texts are exchanged, so that the list keeps its place.
  const bool fresh = static_cast<std::size_t>(send(LVM_GETITEMCOUNT)) != list_.items().size();
  if (fresh) send(LVM_DELETEALLITEMS);
  int row = 0;
  for (const ui::ListView::Item& wanted : list_.items()) {
    std::wstring text = wideFromText(wanted.text);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iImage = imageOf(list_.icons, wanted.icon);
    item.iItem = row;
    item.pszText = text.data();
    send(fresh ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    const std::size_t columns = std::max(list_.columns.size(), wanted.subItems.size() + 1);
    for (std::size_t i = 0; i + 1 < columns; ++i) {
      std::wstring subText = i < wanted.subItems.size() ? wideFromText(wanted.subItems[i]) : L"";
      ++item.iSubItem;
      item.pszText = subText.data();
      send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    ++row;
  }
  if (!fresh) ListView_SetItemState(window(), -1, 0, LVIS_SELECTED);
  showChecks();
  showSorting();
  placed();  // there may be a scroll bar now
  send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
}

void ListViewPeer::showChecks() {
  if (!list_.checkBoxes) return;
  int row = 0;
  for (const ui::ListView::Item& item : list_.items()) {
    const UINT image = !item.boxed ? 0 : item.checked ? kChecked : kChecked - 1;
    ListView_SetItemState(window(), row, INDEXTOSTATEIMAGEMASK(image), LVIS_STATEIMAGEMASK);
    ++row;
  }
}

void ListViewPeer::showSorting() {
  const auto header = reinterpret_cast<HWND>(send(LVM_GETHEADER));
  for (int i = 0; i < static_cast<int>(list_.columns.size()); ++i) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    if (Header_GetItem(header, i, &item) == FALSE) continue;
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (i == list_.sortedBy) item.fmt |= list_.sortedUp ? HDF_SORTUP : HDF_SORTDOWN;
    Header_SetItem(header, i, &item);
  }
}

bool ListViewPeer::onKey(int key) {
  if (key != VK_RETURN || !list_.enterOpens || list_.selected() < 0) return false;
  list_.doubleClicked();
  return true;
}

void ListViewPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Items) {
    showItems();
  } else if (what == ui::Aspect::Value) {
    showChecks();
  } else if (what == ui::Aspect::Selection) {
    ListView_SetItemState(window(), -1, 0, LVIS_SELECTED);
    if (list_.selected() < 0) return;
    ListView_SetItemState(window(), list_.selected(), LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(list_.selected()), FALSE);
  } else if (what == ui::Aspect::Edit && list_.selected() >= 0) {
    SetFocus(window());
    send(LVM_EDITLABELW, static_cast<WPARAM>(list_.selected()));
  }
}

void ListViewPeer::itemChanged(const NMLISTVIEW& change) {
  if ((change.uChanged & LVIF_STATE) == 0 || change.iItem < 0) return;
  const UINT oldImage = (change.uOldState & LVIS_STATEIMAGEMASK) >> 12;
  const UINT newImage = (change.uNewState & LVIS_STATEIMAGEMASK) >> 12;
  if (oldImage != newImage && newImage != 0) list_.userCheck(change.iItem, newImage == kChecked);
  const bool was = (change.uOldState & LVIS_SELECTED) != 0;
  const bool is = (change.uNewState & LVIS_SELECTED) != 0;
  if (is && !was) list_.userSelect(change.iItem);
}

LRESULT ListViewPeer::customDraw(NMLVCUSTOMDRAW& drawing) {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const auto row = static_cast<std::size_t>(drawing.nmcd.dwItemSpec);
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || row >= list_.items().size() ||
      !list_.items()[row].heading) {
    return CDRF_DODEFAULT;
  }
  if (!bold_) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(send(WM_GETFONT)), sizeof font, &font);
    font.lfWeight = FW_BOLD;
    bold_.reset(CreateFontIndirectW(&font));
  }
  SelectObject(drawing.nmcd.hdc, bold_.get());
  drawing.clrTextBk = GetSysColor(COLOR_BTNFACE);
  drawing.clrText = GetSysColor(COLOR_BTNTEXT);
  return CDRF_NEWFONT;
}

LRESULT ListViewPeer::onNotify(const NMHDR& header) {
  if (header.code == NM_CUSTOMDRAW) {
    return customDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(const_cast<NMHDR&>(header)));
  }
  if (mirroring()) return 0;
  switch (header.code) {
    case LVN_ITEMCHANGED:
      itemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
      break;
    case NM_CLICK:
      // Beside the rows: nothing is selected any more.
      if (send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) < 0 && list_.selected() >= 0) {
        list_.userSelect(-1);
      }
      break;
    case NM_DBLCLK:
      if (list_.selected() >= 0) list_.doubleClicked();
      break;
    case LVN_COLUMNCLICK:
      list_.columnClicked(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
      break;
    case NM_RCLICK:
      list_.contextMenu();
      break;
    case LVN_KEYDOWN: {
      const WORD key = reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey;
      if (key == VK_APPS || (key == VK_F10 && GetKeyState(VK_SHIFT) < 0)) list_.contextMenu();
      break;
    }
    case LVN_ENDLABELEDITW: {
      const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
      // The model shows the new text itself when the form takes it.
      if (item.pszText != nullptr) list_.userEdit(item.iItem, utf8FromWide(item.pszText));
      break;
    }
    default:
      break;
  }
  return 0;
}

}  // namespace win32
