#include "platform/win32/dialog_layout.h"

#include <algorithm>

#include "ui/controls.h"

namespace win32 {

struct DialogLayout::Places {
  std::map<HWND, RECT> of;
  SIZE client;

  // Everything at or below `from` moves by `by`, and the window's lower edge with it.
  void shift(int from, int by) {
    for (auto& [window, place] : of) {
      if (place.top >= from) OffsetRect(&place, 0, by);
    }
    client.cy += by;
  }
};

DialogLayout::DialogLayout(HWND dialog, const std::vector<std::unique_ptr<ControlPeer>>& peers)
    : dialog_(dialog), peers_(peers) {
  for (const auto& peer : peers_) {
    RECT place;
    GetWindowRect(peer->window(), &place);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&place), 2);
    places_[peer->window()] = place;
  }
  RECT client;
  GetClientRect(dialog_, &client);
  client_ = {client.right, client.bottom};
}

void DialogLayout::dpiChanged(int from, int to) {
  const auto scale = [from, to](LONG& value) { value = MulDiv(value, to, from); };
  for (auto& [window, place] : places_) {
    scale(place.left);
    scale(place.top);
    scale(place.right);
    scale(place.bottom);
  }
  scale(client_.cx);
  scale(client_.cy);
  arrange();
}

void DialogLayout::stretch() const {
  RECT client;
  GetClientRect(dialog_, &client);
  for (const auto& peer : peers_) {
    if (!peer->model().stretches) continue;
    const RECT& place = places_.at(peer->window());
    SetWindowPos(peer->window(), nullptr, 0, 0,
                 std::max<LONG>(0, place.right - place.left + client.right - client_.cx),
                 std::max<LONG>(0, place.bottom - place.top + client.bottom - client_.cy),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
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
    const auto* label = dynamic_cast<const ui::Label*>(&peer->model());
    if (label == nullptr || !label->autosize || !label->visible()) continue;
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
      if (peer->window() == window) continue;
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
    if (dynamic_cast<const ui::Button*>(&peer->model()) != nullptr) {
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

void DialogLayout::arrange() const {
  Places places{places_, client_};
  growLabels(places);
  closeGaps(places);
  packButtons(places);
  for (const auto& [window, place] : places.of) {
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  RECT client;
  RECT frame;
  GetClientRect(dialog_, &client);
  GetWindowRect(dialog_, &frame);
  SetWindowPos(dialog_, nullptr, 0, 0, frame.right - frame.left + places.client.cx - client.right,
               frame.bottom - frame.top + places.client.cy - client.bottom,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(dialog_, nullptr, TRUE);
}

}  // namespace win32
