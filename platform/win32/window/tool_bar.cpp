#include "platform/win32/window/tool_bar.h"

#include <algorithm>

#include "base/text.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/vector_icons.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/menus.h"
#include "resources/ids.h"
#include "ui/icons/tool_drawings.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr int kButton = 24;
constexpr int kPicture = 16;
constexpr int kGap = 8;

// Gaps have ids too, by which they are hidden; nothing sends them.
constexpr int kFirstGap = 60000;

const ui::ToolBarButton& chevronButton() {
  static const ui::ToolBarButton chevron{mnuToolMore, ui::ToolIcon::More, "დანარჩენი ღილაკები"};
  return chevron;
}

int idOf(const ui::ToolBarButton& button, int index) {
  return button.command != 0 ? button.command : kFirstGap + index;
}

UniqueImages makePictures(const std::vector<ui::ToolBarButton>& buttons, int size) {
  IconColors colors = systemIconColors(COLOR_BTNTEXT, COLOR_BTNFACE);
  std::vector<Icon> icons;
  const auto add = [&](const ui::ToolBarButton& button) {
    colors.own = button.color;
    icons.push_back({ui::toolDrawing(button.icon), colors});
  };
  for (const ui::ToolBarButton& button : buttons) add(button);
  add(chevronButton());
  return iconImages(icons, size);
}

}  // namespace

ToolBar::ToolBar(HWND parent, const std::vector<ui::ToolBarButton>& buttons, int dpi,
                 std::function<void()> leave)
    : buttons_(buttons),
      shown_(buttons.size()),
      leave_(std::move(leave)),
      bar_(
          CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_TOP,
                          0, 0, 0, 0, parent, nullptr, nullptr, nullptr)) {
  send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  send(TB_SETMAXTEXTROWS, 0);  // the buttons' names are for screen readers alone
  gap_ = scaled(kGap, dpi);
  addButtons();
  setDpi(dpi);  // behind the buttons: their coming makes the bar forget the size
  send(TB_HIDEBUTTON, mnuToolMore, TRUE);
  watch(bar_);
}

ToolBar::~ToolBar() {
  if (IsWindow(bar_) == 0) return;
  unwatch(bar_);
  DestroyWindow(bar_);
}

// At once: the bar measures all of them whenever one comes.
void ToolBar::addButtons() {
  std::vector<std::wstring> names;
  std::vector<TBBUTTON> made;
  names.reserve(buttons_.size() + 1);  // their texts stay where they are
  const auto add = [&](const ui::ToolBarButton& wanted) {
    const int index = static_cast<int>(made.size());
    const bool gap = wanted.command == 0;
    names.push_back(wideFromText(wanted.hint));
    TBBUTTON& button = made.emplace_back();
    button.iBitmap = gap ? gap_ : index;
    button.idCommand = idOf(wanted, index);
    button.fsState = static_cast<BYTE>(wanted.enabled ? TBSTATE_ENABLED : 0);
    button.fsStyle = gap ? BTNS_SEP : BTNS_BUTTON;
    button.iString = gap ? 0 : reinterpret_cast<INT_PTR>(names.back().c_str());  // the bar keeps a copy
  };
  for (const ui::ToolBarButton& button : buttons_) add(button);
  add(chevronButton());
  send(TB_ADDBUTTONSW, made.size(), reinterpret_cast<LPARAM>(made.data()));
}

void ToolBar::setDpi(int dpi) {
  const int size = scaled(kPicture, dpi);
  gap_ = scaled(kGap, dpi);
  send(TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
  send(TB_SETBUTTONSIZE, 0, MAKELPARAM(scaled(kButton, dpi), scaled(kButton, dpi)));
  UniqueImages pictures = makePictures(buttons_, size);
  send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures.get()));
  pictures_ = std::move(pictures);  // the old ones go when nobody uses them any more
  TBBUTTONINFOW width{};
  width.cbSize = sizeof width;
  width.dwMask = TBIF_SIZE;
  width.cx = static_cast<WORD>(gap_);
  for (int i = 0; i < chevron(); ++i) {
    if (buttons_[static_cast<std::size_t>(i)].command != 0) continue;
    send(TB_SETBUTTONINFOW, static_cast<WPARAM>(kFirstGap + i), reinterpret_cast<LPARAM>(&width));
  }
}

// How many buttons stand in that width: all of them, or those that leave room for the chevron.
std::size_t ToolBar::roomFor(int width) const {
  const int button = LOWORD(send(TB_GETBUTTONSIZE));
  int taken = 0;
  std::size_t beside = 0;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const bool gap = buttons_[i].command == 0;
    taken += gap ? gap_ : button;
    if (!gap && taken + button <= width) beside = i + 1;
  }
  return taken <= width ? buttons_.size() : beside;
}

void ToolBar::fit() {
  RECT area;
  GetClientRect(GetParent(bar_), &area);
  const std::size_t room = roomFor(static_cast<int>(area.right));
  if (room != shown_) {
    send(WM_SETREDRAW, FALSE);
    for (std::size_t i = std::min(room, shown_); i < std::max(room, shown_); ++i) {
      send(TB_HIDEBUTTON, static_cast<WPARAM>(idOf(buttons_[i], static_cast<int>(i))),
           i >= room ? TRUE : FALSE);
    }
    send(TB_HIDEBUTTON, mnuToolMore, room < buttons_.size() ? FALSE : TRUE);
    shown_ = room;
    send(WM_SETREDRAW, TRUE);
    InvalidateRect(bar_, nullptr, TRUE);
  }
  send(TB_AUTOSIZE);
}

void ToolBar::showStates() const {
  for (const ui::ToolBarButton& button : buttons_) {
    if (button.command == 0) continue;
    const auto id = static_cast<WPARAM>(button.command);
    if ((send(TB_ISBUTTONENABLED, id) != 0) == button.enabled) continue;
    send(TB_ENABLEBUTTON, id, button.enabled ? TRUE : FALSE);
  }
}

std::vector<ui::MenuItem> ToolBar::hiddenItems(const std::vector<ui::MenuItem>& menus) const {
  std::vector<ui::MenuItem> items;
  for (std::size_t i = shown_; i < buttons_.size(); ++i) {
    const ui::ToolBarButton& button = buttons_[i];
    if (button.command == 0) {
      if (!items.empty()) items.emplace_back();
      continue;
    }
    std::vector<ui::MenuItem> known = pickItems(menus, {button.command});
    if (known.empty()) {
      known.emplace_back();
      known[0].caption = base::replaceAll(ui::display(button.hint), "&", "&&");
      known[0].command = button.command;
      known[0].enabled = button.enabled;
    }
    known[0].drawing = ui::toolDrawing(button.icon);
    items.push_back(std::move(known[0]));
  }
  return items;
}

POINT ToolBar::belowChevron() const {
  RECT place{};
  send(TB_GETITEMRECT, static_cast<WPARAM>(chevron()), reinterpret_cast<LPARAM>(&place));
  POINT corner{place.left, place.bottom};
  ClientToScreen(bar_, &corner);
  return corner;
}

// Where the keyboard goes, from left to right: indices of buttons.
std::vector<int> ToolBar::stops() const {
  std::vector<int> all;
  for (std::size_t i = 0; i < shown_; ++i) {
    if (buttons_[i].command != 0 && buttons_[i].enabled) all.push_back(static_cast<int>(i));
  }
  if (shown_ < buttons_.size()) all.push_back(chevron());
  return all;
}

void ToolBar::focus() {
  SetFocus(bar_);
  if (send(TB_GETHOTITEM) < 0) goTo(0);
}

void ToolBar::goTo(std::size_t stop) const {
  const std::vector<int> all = stops();
  if (!all.empty()) send(TB_SETHOTITEM, static_cast<WPARAM>(all[stop % all.size()]));
}

bool ToolBar::handleKey(int key) {
  const std::vector<int> all = stops();
  const int hot = static_cast<int>(send(TB_GETHOTITEM));
  const auto at = static_cast<std::size_t>(std::find(all.begin(), all.end(), hot) - all.begin());
  switch (key) {
    case VK_LEFT:
    case VK_UP:
      goTo(at + all.size() - 1);
      return true;
    case VK_RIGHT:
    case VK_DOWN:
      goTo(at == all.size() ? 0 : at + 1);
      return true;
    case VK_HOME:
      goTo(0);
      return true;
    case VK_END:
      goTo(all.size() - 1);
      return true;
    case VK_ESCAPE:
      leave_();
      return true;
    case VK_RETURN:
    case VK_SPACE: {
      if (at == all.size()) return true;
      leave_();
      const ui::ToolBarButton& button =
          hot == chevron() ? chevronButton() : buttons_[static_cast<std::size_t>(hot)];
      // Later: the key's character must not reach a menu that the command opens.
      PostMessageW(GetParent(bar_), WM_COMMAND, static_cast<WPARAM>(button.command),
                   reinterpret_cast<LPARAM>(bar_));
      return true;
    }
    default:
      return false;
  }
}

LRESULT ToolBar::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN && handleKey(static_cast<int>(wParam))) return 0;
  if (message == WM_CHAR) return 0;
  if (message == WM_KILLFOCUS) send(TB_SETHOTITEM, static_cast<WPARAM>(-1));
  return forward(window, message, wParam, lParam);
}

bool ToolBar::giveHint(LPARAM notification) const {
  auto& header = *reinterpret_cast<NMHDR*>(notification);
  if (header.code != TTN_GETDISPINFOW) return false;
  auto& info = *reinterpret_cast<NMTTDISPINFOW*>(notification);
  const auto asked = [&](const ui::ToolBarButton& button) {
    return static_cast<UINT_PTR>(button.command) == header.idFrom;
  };
  const auto at = std::find_if(buttons_.begin(), buttons_.end(), asked);
  if (at == buttons_.end() && !asked(chevronButton())) return false;
  // The tool tip copies at most its own field's length.
  const ui::Text& words = at == buttons_.end() ? chevronButton().hint : at->hint;
  const std::wstring hint = wideFromText(words).substr(0, std::size(info.szText) - 1);
  std::copy(hint.begin(), hint.end(), info.szText);
  info.szText[hint.size()] = L'\0';
  info.lpszText = info.szText;
  return true;
}

}  // namespace win32
