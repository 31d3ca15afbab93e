#include "platform/win32/tool_bar.h"

#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/strings.h"
#include "platform/win32/vector_icons.h"
#include "ui/tool_drawings.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr int kButton = 24;
constexpr int kPicture = 16;

UniqueImages makePictures(const std::vector<ui::ToolBarButton>& buttons, int size) {
  UniqueImages pictures(ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(buttons.size()), 0));
  IconColors colors = systemIconColors(COLOR_BTNTEXT, COLOR_BTNFACE);
  for (const ui::ToolBarButton& button : buttons) {
    colors.own = button.color;
    const UniqueBitmap picture = iconBitmap(ui::toolDrawing(button.icon), size, colors);
    ImageList_Add(pictures.get(), picture.get(), nullptr);
  }
  return pictures;
}

}  // namespace

ToolBar::ToolBar(HWND parent, const std::vector<ui::ToolBarButton>& buttons, int dpi,
                 std::function<void()> leave)
    : buttons_(buttons),
      leave_(std::move(leave)),
      bar_(CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                           WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
                               TBSTYLE_WRAPABLE | CCS_TOP,
                           0, 0, 0, 0, parent, nullptr, nullptr, nullptr)) {
  send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  send(TB_SETMAXTEXTROWS, 0);  // the buttons' names are for screen readers alone
  setDpi(dpi);
  int picture = 0;
  for (const ui::ToolBarButton& wanted : buttons) {
    const std::wstring name = wideFromText(wanted.hint);
    TBBUTTON button{};
    button.iBitmap = picture++;
    button.idCommand = wanted.command;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    button.iString = reinterpret_cast<INT_PTR>(name.c_str());  // the bar keeps a copy
    send(TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
  watch(bar_);
}

ToolBar::~ToolBar() {
  if (IsWindow(bar_) == 0) return;
  unwatch(bar_);
  DestroyWindow(bar_);
}

void ToolBar::setDpi(int dpi) {
  const int size = scaled(kPicture, dpi);
  send(TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
  send(TB_SETBUTTONSIZE, 0, MAKELPARAM(scaled(kButton, dpi), scaled(kButton, dpi)));
  UniqueImages pictures = makePictures(buttons_, size);
  send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures.get()));
  pictures_ = std::move(pictures);  // the old ones go when nobody uses them any more
}

void ToolBar::fit() const {
  send(TB_AUTOSIZE);
}

void ToolBar::focus() {
  SetFocus(bar_);
  choose(std::max(0, static_cast<int>(send(TB_GETHOTITEM))));
}

void ToolBar::choose(int button) const {
  const int count = static_cast<int>(buttons_.size());
  send(TB_SETHOTITEM, static_cast<WPARAM>((button + count) % count));
}

bool ToolBar::handleKey(int key) {
  const int hot = static_cast<int>(send(TB_GETHOTITEM));
  switch (key) {
    case VK_LEFT:
    case VK_UP:
      choose(hot - 1);
      return true;
    case VK_RIGHT:
    case VK_DOWN:
      choose(hot + 1);
      return true;
    case VK_HOME:
      choose(0);
      return true;
    case VK_END:
      choose(-1);
      return true;
    case VK_ESCAPE:
      leave_();
      return true;
    case VK_RETURN:
    case VK_SPACE:
      if (hot < 0) return true;
      leave_();
      SendMessageW(GetParent(bar_), WM_COMMAND,
                   static_cast<WPARAM>(buttons_[static_cast<std::size_t>(hot)].command),
                   reinterpret_cast<LPARAM>(bar_));
      return true;
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
  for (const ui::ToolBarButton& button : buttons_) {
    if (static_cast<UINT_PTR>(button.command) != header.idFrom) continue;
    // The tool tip copies at most its own field's length.
    const std::wstring hint = wideFromText(button.hint).substr(0, std::size(info.szText) - 1);
    std::copy(hint.begin(), hint.end(), info.szText);
    info.szText[hint.size()] = L'\0';
    info.lpszText = info.szText;
    return true;
  }
  return false;
}

}  // namespace win32
