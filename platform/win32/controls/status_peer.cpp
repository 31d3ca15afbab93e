#include "platform/win32/controls/status_peer.h"

#include <algorithm>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr std::size_t kMostShown = 300;  // no panel shows more characters
constexpr int kPadding = 12;             // beside the text of a panel, in 1/96 inch

}  // namespace

void StatusPeer::fit() {
  send(WM_SIZE);
  for (std::size_t i = 0; i < shown_.size(); ++i) widths_[i] = widthOf(shown_[i]);  // the font may be another
  divide();
}

int StatusPeer::widthOf(const std::wstring& text) const {
  const UniqueCanvas canvas(CreateCompatibleDC(nullptr));
  SelectObject(canvas.get(), reinterpret_cast<HFONT>(send(WM_GETFONT)));
  SIZE size{};
  GetTextExtentPoint32W(canvas.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

// A panel is as wide as it was made for, or as its text. Where there is no room for that, those give way that
// show a part of a longer text anyway, and then what others have more than their text.
void StatusPeer::divide() {
  RECT client;
  GetClientRect(window(), &client);
  const int dpi = dpiOf(window());
  const auto& panels = bar_.panels();
  std::vector<int> widths, slack;
  int missing = -static_cast<int>(client.right);
  for (std::size_t i = 0; i < panels.size(); ++i) {
    const bool cut = panels[i].width < 0 || panels[i].givesWay;
    const int made = std::max(0, scaled(panels[i].width, dpi));
    int text = cut || i >= shown_.size() ? 0 : widths_[i] + scaled(kPadding, dpi);
    if (i + 1 == panels.size()) text += GetSystemMetrics(SM_CXVSCROLL);  // the grip stands over the last one
    widths.push_back(panels[i].width < 0 ? 0 : std::max(made, text));
    slack.push_back(cut ? widths.back() : widths.back() - text);
    missing += widths.back();
  }
  for (const bool cut : {true, false}) {
    for (std::size_t i = 0; i < panels.size() && missing > 0; ++i) {
      if (panels[i].givesWay != cut) continue;
      const int given = std::min(missing, slack[i]);
      widths[i] -= given;
      missing -= given;
    }
  }
  std::vector<int> ends;
  int end = 0;
  for (std::size_t i = 0; i < panels.size(); ++i) {
    end += panels[i].width < 0 ? std::max(0, -missing) : widths[i];
    ends.push_back(end);
  }
  if (ends == ends_) return;
  send(SB_SETPARTS, ends.size(), reinterpret_cast<LPARAM>(ends.data()));
  ends_ = std::move(ends);
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
  const std::size_t known = shown_.size();
  shown_.resize(bar_.panels().size());
  widths_.resize(shown_.size());
  bool changed = known != shown_.size();
  std::size_t part = 0;
  for (const auto& panel : bar_.panels()) {
    const std::string_view bytes = std::string_view(panel.text.bytes).substr(0, kMostShown * 3);
    std::wstring text = wideFromText({std::string(bytes), panel.text.kind}).substr(0, kMostShown);
    std::replace_if(
        text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
    const std::size_t at = part++;
    if (at < known && text == shown_[at]) continue;  // on a key one or two of them are others
    send(SB_SETTEXTW, at, reinterpret_cast<LPARAM>(text.c_str()));
    widths_[at] = widthOf(text);
    shown_[at] = std::move(text);
    changed = true;
  }
  if (changed) divide();
}

}  // namespace win32
