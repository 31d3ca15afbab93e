#include "platform/win32/window/dialog_layout.h"

#include <algorithm>

#include "platform/win32/window/dialog_growth.h"
#include "ui/controls.h"

namespace win32 {

namespace {

// What a control does with room that is there when it does not take the room itself.
GrowingPlace::Kind growthOf(ui::ControlKind kind) {
  switch (kind) {
    using enum ui::ControlKind;
    case Button:
      return GrowingPlace::Kind::Button;
    case Label:
    case TextBox:
    case ComboBox:
    case ProgressBar:
      return GrowingPlace::Kind::Widens;
    case IconBox:
    case CheckBox:
    case OptionButton:
    case ListBox:
    case ListView:
    case TreeView:
    case StatusBar:
    case PictureBox:
    case TabStrip:
    case PageTabs:
    case WebView:
      break;
  }
  return GrowingPlace::Kind::Rigid;
}

}  // namespace

// Everything at or below `from` moves by `by`, and the window's lower edge with it.
void DialogLayout::Places::shift(int from, int by) {
  for (auto& [window, place] : of) {
    if (place.top >= from) OffsetRect(&place, 0, by);
  }
  client.cy += by;
}

DialogLayout::DialogLayout(HWND dialog, const std::vector<std::unique_ptr<ControlPeer>>& peers)
    : dialog_(dialog), peers_(peers) {
  for (HWND window = GetWindow(dialog, GW_CHILD); window != nullptr;
       window = GetWindow(window, GW_HWNDNEXT)) {
    // Names for screen readers are windows too, but never seen.
    if (peerOf(window) == nullptr && (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    RECT place;
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&place), 2);
    template_.of[window] = place;
  }
  RECT client;
  GetClientRect(dialog_, &client);
  template_.client = {client.right, client.bottom};
  arranged_ = template_;
}

void DialogLayout::dpiChanged(int from, int to, SIZE window) {
  const auto scale = [from, to](LONG& value) { value = MulDiv(value, to, from); };
  for (auto& [child, place] : template_.of) {
    scale(place.left);
    scale(place.top);
    scale(place.right);
    scale(place.bottom);
  }
  for (SIZE* size : {&template_.client, &extra_}) {
    scale(size->cx);
    scale(size->cy);
  }
  arrange(window);
}

bool DialogLayout::stretches() const {
  return std::any_of(peers_.begin(), peers_.end(),
                     [](const auto& peer) { return peer->model().stretches && peer->model().visible(); });
}

SIZE DialogLayout::border() const {
  RECT client;
  RECT frame;
  GetClientRect(dialog_, &client);
  GetWindowRect(dialog_, &frame);
  return {frame.right - frame.left - client.right, frame.bottom - frame.top - client.bottom};
}

const ControlPeer* DialogLayout::peerOf(HWND window) const {
  for (const auto& peer : peers_) {
    if (peer->window() == window) return peer.get();
  }
  return nullptr;
}

void DialogLayout::sized() {
  if (arranging_ || IsIconic(dialog_) != 0) return;
  RECT client;
  GetClientRect(dialog_, &client);
  extra_ = {std::max<LONG>(0, client.right - arranged_.client.cx),
            std::max<LONG>(0, client.bottom - arranged_.client.cy)};
  place();
}

void DialogLayout::limit(MINMAXINFO& limits) const {
  const SIZE around = border();
  limits.ptMinTrackSize = {arranged_.client.cx + around.cx, arranged_.client.cy + around.cy};
  if (!stretches()) limits.ptMaxTrackSize = limits.ptMinTrackSize;
}

void DialogLayout::place() const {
  std::vector<GrowingPlace> places;
  std::vector<HWND> windows;
  for (const auto& [window, rect] : arranged_.of) {
    const ControlPeer* const peer = peerOf(window);
    if (peer != nullptr && !peer->model().visible()) {
      SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      continue;
    }
    GrowingPlace::Kind kind = GrowingPlace::Kind::Widens;  // lines between groups of controls have no model
    if (peer != nullptr) {
      kind = peer->model().stretches ? GrowingPlace::Kind::Stretches : growthOf(peer->model().kind());
    }
    places.push_back({kind, rect});
    windows.push_back(window);
  }
  growPlaces(places, stretches() ? extra_ : SIZE{});
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const RECT& to = places[i].place;
    SetWindowPos(windows[i], nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  for (const auto& peer : peers_) peer->placed();
  InvalidateRect(dialog_, nullptr, TRUE);
}

int DialogLayout::measuredHeight(HWND label, int width) const {
  const HDC screen = GetDC(label);
  const HGDIOBJ old = SelectObject(screen, reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
  RECT box{0, 0, width, 0};
  const UINT prefix = (GetWindowLongPtrW(label, GWL_STYLE) & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
  DrawTextW(screen, windowText(label).c_str(), -1, &box, DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | prefix);
  SelectObject(screen, old);
  ReleaseDC(label, screen);
  return box.bottom;
}

void DialogLayout::growLabels(Places& places) const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(dialog_, MONITOR_DEFAULTTONEAREST), &monitor);
  const int most = (monitor.rcWork.bottom - monitor.rcWork.top) * 2 / 3;
  for (const auto& peer : peers_) {
    if (peer->model().kind() != ui::ControlKind::Label) continue;
    const auto& label = static_cast<const ui::Label&>(peer->model());
    if (!label.autosize || !label.visible()) continue;
    RECT& place = places.of[peer->window()];
    const int needed = std::min(most, measuredHeight(peer->window(), place.right - place.left));
    const int growth = needed - (place.bottom - place.top);
    // A text of less than the template's lines stands in the middle of them, beside the sign.
    if (growth <= 0) {
      place.top += -growth / 2;
      continue;
    }
    const int below = place.bottom;
    place.bottom += growth;
    places.shift(below, growth);
  }
}

void DialogLayout::closeGaps(Places& places) const {
  std::vector<HWND> hidden;
  for (const auto& peer : peers_) {
    if (!peer->model().visible()) hidden.push_back(peer->window());
  }
  for (const HWND window : hidden) {
    const RECT gap = places.of[window];
    // The row stays when something visible stands in it; else all below moves up to its top.
    bool needed = false;
    int next = places.client.cy;
    for (const auto& peer : peers_) {
      const RECT& other = places.of[peer->window()];
      // The sign of a message stands beside its text, whichever control shows that.
      if (peer->window() == window || peer->model().kind() == ui::ControlKind::IconBox) continue;
      needed = needed || (peer->model().visible() && other.top < gap.bottom && other.bottom > gap.top);
      if (other.top >= gap.bottom) next = std::min<int>(next, other.top);
    }
    if (!needed && next < places.client.cy) places.shift(next, static_cast<int>(gap.top) - next);
  }
}

// Buttons of one row close up to the right when some of them are hidden.
void DialogLayout::packButtons(Places& places) const {
  std::map<int, std::vector<const ControlPeer*>> rows;
  for (const auto& peer : peers_) {
    if (peer->model().kind() == ui::ControlKind::Button) {
      rows[places.of[peer->window()].top].push_back(peer.get());
    }
  }
  for (auto& [top, row] : rows) {
    const bool whole =
        std::all_of(row.begin(), row.end(), [](const auto* peer) { return peer->model().visible(); });
    if (whole || row.size() < 2) continue;
    std::sort(row.begin(), row.end(), [&places](const auto* a, const auto* b) {
      return places.of[a->window()].left < places.of[b->window()].left;
    });
    const RECT first = places.of[row[0]->window()];
    const int gap = places.of[row[1]->window()].left - first.right;
    int right = places.of[row.back()->window()].right;
    for (auto at = row.rbegin(); at != row.rend(); ++at) {
      if (!(*at)->model().visible()) continue;
      RECT& place = places.of[(*at)->window()];
      OffsetRect(&place, right - place.right, 0);
      right = place.left - gap;
    }
  }
}

void DialogLayout::arrange(SIZE window) {
  arranged_ = template_;
  closeGaps(arranged_);
  growLabels(arranged_);
  packButtons(arranged_);
  const SIZE around = border();
  if (window.cx > 0) arranged_.client.cx = window.cx - around.cx;
  if (window.cy > 0) arranged_.client.cy = window.cy - around.cy;
  if (IsZoomed(dialog_) != 0) return sized();
  place();
  const SIZE added = stretches() ? extra_ : SIZE{};
  arranging_ = true;
  SetWindowPos(dialog_, nullptr, 0, 0, arranged_.client.cx + added.cx + around.cx,
               arranged_.client.cy + added.cy + around.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  arranging_ = false;
}

}  // namespace win32
