#include "platform/win32/status_peer.h"

#include <algorithm>
#include <vector>

#include "platform/win32/dpi.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

constexpr std::size_t kMostShown = 300;  // no panel shows more characters

}  // namespace

void StatusPeer::fit() {
  send(WM_SIZE);
  RECT client;
  GetClientRect(window(), &client);
  const int dpi = dpiOf(window());
  int fixed = 0;
  for (const auto& panel : bar_.panels()) fixed += std::max(0, scaled(panel.width, dpi));
  std::vector<int> ends;
  int end = 0;
  for (const auto& panel : bar_.panels()) {
    end += panel.width < 0 ? std::max(0, static_cast<int>(client.right) - fixed) : scaled(panel.width, dpi);
    ends.push_back(end);
  }
  send(SB_SETPARTS, ends.size(), reinterpret_cast<LPARAM>(ends.data()));
}

LRESULT StatusPeer::onNotify(const NMHDR& notification) {
  // Over the whole bar stands one text, without panels.
  if (notification.code != NM_CLICK || !bar_.whole().empty()) return 0;
  bar_.userClick(reinterpret_cast<const NMMOUSE&>(notification).dwItemSpec);
  return TRUE;
}

void StatusPeer::showWhole() {
  const bool whole = !bar_.whole().empty();
  send(SB_SIMPLE, whole ? TRUE : FALSE);
  if (whole) send(SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(wideFromText(bar_.whole()).c_str()));
}

void StatusPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Value) showWhole();
  if (what != ui::Aspect::Text) return;
  WPARAM part = 0;
  for (const auto& panel : bar_.panels()) {
    const std::string_view bytes = std::string_view(panel.text.bytes).substr(0, kMostShown * 3);
    const ui::TextKind kind = panel.codeFont ? ui::TextKind::Legacy : panel.text.kind;
    std::wstring text = wideFromText({std::string(bytes), kind}).substr(0, kMostShown);
    std::replace_if(
        text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
    send(SB_SETTEXTW, part++, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

}  // namespace win32
