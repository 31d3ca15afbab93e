#include "platform/win32/window/main_window.h"

#include <algorithm>
#include <stdexcept>

#include "base/error.h"
#include "platform/win32/controls/pressed_key.h"
#include "platform/win32/controls/tab_strip_peer.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/pointer.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/dialog_host.h"
#include "platform/win32/window/drop_target.h"
#include "resources/ids.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr SIZE kFirstSize = {960, 680};
constexpr SIZE kLeastSize = {420, 260};
constexpr int kNoticeHeight = 30, kNoticeMargin = 6;

}  // namespace

MainWindow::MainWindow(ui::MainForm& form, CodeView& view) : form_(form), view_(view) {
  const std::wstring className = wideFromUtf8(form.name());
  create(className.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_ACCEPTFILES, nullptr,
         [](WNDCLASSEXW& windowClass) {
           windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(IDI_Zervo));
           windowClass.hIconSm = static_cast<HICON>(
               LoadImageW(windowClass.hInstance, MAKEINTRESOURCEW(IDI_Zervo), IMAGE_ICON,
                          GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
           windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
         });
  if (hwnd() == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, systemMessage(GetLastError()));
  dpi_ = dpiOf(hwnd());
  RECT work;
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  SetWindowPos(hwnd(), nullptr, 0, 0, std::min<int>(scaled(kFirstSize.cx, dpi_), work.right - work.left),
               std::min<int>(scaled(kFirstSize.cy, dpi_), work.bottom - work.top),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  makeChildren();
  loop_.emplace(hwnd(), [this](MSG& message) { return translate(message); });
  form_.open(this);
  form_.window = this;
  captionChanged();
}

MainWindow::~MainWindow() {
  for (const auto& peer : peers_) peer->detach();
  form_.detach();
  form_.window = nullptr;
}

void MainWindow::makeChildren() {
  for (ui::Control* control : form_.controls()) {
    const auto make = [this, control](const wchar_t* className, DWORD style, DWORD exStyle) {
      return CreateWindowExW(exStyle, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, hwnd(),
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(control->id())), nullptr, nullptr);
    };
    const auto add = [&](const wchar_t* className, DWORD style, DWORD exStyle) {
      peers_.push_back(makePeer(*control, make(className, style, exStyle)));
    };
    switch (control->kind()) {
      case ui::ControlKind::TreeView:
        add(WC_TREEVIEWW, WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
            WS_EX_CLIENTEDGE);
        break;
      case ui::ControlKind::TabStrip: {
        // Documents may be many, and scroll; the groups beside the code view are all to be seen.
        const DWORD rows = control == form_.rightTabs ? TCS_MULTILINE : TCS_SINGLELINE | TCS_TOOLTIPS;
        add(WC_TABCONTROLW, WS_CLIPSIBLINGS | TCS_FOCUSNEVER | rows, 0);
        break;
      }
      case ui::ControlKind::ListBox:
        add(WC_LISTBOXW, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE);
        break;
      case ui::ControlKind::StatusBar:
        add(STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0);
        status_ = static_cast<StatusPeer*>(peers_.back().get());
        break;
      case ui::ControlKind::Label:
        add(WC_STATICW, SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX, 0);
        break;
      case ui::ControlKind::Button:
        add(WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON, 0);
        break;
      default:
        throw std::logic_error("the main window has no room for a control of this kind");
    }
  }
  if (!form_.toolBar.empty()) {
    toolBar_ = std::make_unique<ToolBar>(hwnd(), form_.toolBar, dpi_, [this] { view_.setFocus(); });
  }
  view_.place(hwnd(), IDC_FrmH_T1);
  takeDrops(hwnd(), {[this](const std::vector<std::string>& paths) { dropFiles(paths); }, nullptr});
  view_.filesDropped = [this](const std::vector<std::string>& paths) { dropFiles(paths); };
  view_.leaving = [this](std::string bytes) { return form_.clipFor(std::move(bytes)); };
  view_.contextMenu = [this](POINT screen) { showContextMenu(screen); };
  setFonts();
  for (const auto& peer : peers_) peer->begin();
}

void MainWindow::setFonts() {
  UniqueFont font = interfaceFont(dpi_);
  for (const auto& peer : peers_) {
    SendMessageW(peer->window(), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), shown_ ? TRUE : FALSE);
    peer->dpiChanged(dpi_);
  }
  font_ = std::move(font);  // the old one goes when nobody uses it any more
}

Columns MainWindow::columns() const {
  RECT area;
  GetClientRect(hwnd(), &area);
  const auto heightOf = [](HWND window) {
    RECT place{};
    if (window != nullptr) GetWindowRect(window, &place);
    return place.bottom - place.top;
  };
  area.top += toolBar_ ? heightOf(toolBar_->hwnd()) : 0;
  area.bottom -= status_ == nullptr ? 0 : heightOf(status_->window());
  const auto shown = [](const ui::Control* pane) { return pane != nullptr && pane->visible(); };
  return columnsOf(area, dpi_, widths_, shown(form_.leftPane), shown(form_.rightPane));
}

// In the first row of the text's place, whose rest is left; the buttons stand at the right.
void MainWindow::layOutNotice(RECT& rest) {
  const ControlPeer* label = peerOf(form_.notice);
  if (label == nullptr) return;
  const bool visible = form_.notice->visible();
  const int margin = scaled(kNoticeMargin, dpi_);
  const int height = scaled(kNoticeHeight, dpi_);
  LONG right = rest.right - margin;
  for (auto at = form_.noticeButtons.rbegin(); at != form_.noticeButtons.rend(); ++at) {
    const ControlPeer* button = peerOf(*at);
    SIZE ideal{};
    SendMessageW(button->window(), BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&ideal));
    const LONG width = std::max<LONG>(ideal.cx + 2 * margin, scaled(kNoticeHeight, dpi_));
    if (visible) {
      MoveWindow(button->window(), right - width, rest.top + margin / 2, width, height - margin, TRUE);
    }
    ShowWindow(button->window(), visible ? SW_SHOWNA : SW_HIDE);
    right -= width + margin;
  }
  ShowWindow(label->window(), visible ? SW_SHOWNA : SW_HIDE);
  if (!visible) return;
  MoveWindow(label->window(), rest.left + margin, rest.top, std::max<LONG>(0, right - rest.left - margin),
             height, TRUE);
  rest.top = std::min(rest.bottom, rest.top + height);
}

// The tabs, as high as they need, and below them what takes the rest; null: the code view.
void MainWindow::layOutColumn(const RECT& column, ControlPeer* tabs, HWND below) {
  const int width = static_cast<int>(column.right - column.left);
  RECT rest = column;
  if (tabs != nullptr && tabs->model().visible()) {
    rest.top = std::min(column.bottom, column.top + static_cast<TabStripPeer*>(tabs)->heightFor(width));
    MoveWindow(tabs->window(), column.left, column.top, width, rest.top - column.top, TRUE);
  }
  if (below == nullptr) {
    layOutNotice(rest);
    view_.setBounds(rest);
  } else {
    MoveWindow(below, rest.left, rest.top, width, rest.bottom - rest.top, TRUE);
  }
}

void MainWindow::layOut() {
  if (!shown_) return;  // once, when it is shown
  if (status_ != nullptr) status_->fit();
  if (toolBar_) toolBar_->fit();
  const Columns place = columns();
  if (const ControlPeer* left = peerOf(form_.leftPane)) {
    MoveWindow(left->window(), place.left.left, place.left.top, place.left.right - place.left.left,
               place.left.bottom - place.left.top, TRUE);
  }
  layOutColumn(place.middle, peerOf(form_.above), nullptr);
  if (const ControlPeer* right = peerOf(form_.rightPane)) {
    layOutColumn(place.right, peerOf(form_.rightTabs), right->window());
  }
}

void MainWindow::setPaneWidths(ui::PaneWidths widths) {
  widths_ = widths;
  layOut();
}

ControlPeer* MainWindow::peerOf(const ui::Control* control) const {
  for (const auto& peer : peers_) {
    if (&peer->model() == control) return peer.get();
  }
  return nullptr;
}

ControlPeer* MainWindow::peerOf(HWND window) const {
  for (const auto& peer : peers_) {
    if (peer->window() == window) return peer.get();
  }
  return nullptr;
}

void MainWindow::showContextMenu(POINT screen) {
  view_.setFocus();
  form_.menuOpening();
  const int command = showPopup(
      hwnd(),
      pickItems(form_.menus, {mnuUndo, mnuRedo, 0, mnuCut, mnuCopy, mnuPaste, mnuDelete, 0, mnuSelectAll}),
      screen);
  if (command != 0) form_.command(command);
}

void MainWindow::showHiddenTools() {
  if (!toolBar_) return;
  form_.menuOpening();
  const int command = showPopup(hwnd(), toolBar_->hiddenItems(form_.menus), toolBar_->belowChevron());
  if (command != 0) form_.command(command);
}

// What F6 goes through, beginning with the code view.
std::vector<HWND> MainWindow::panes() const {
  std::vector<HWND> all = {view_.hwnd()};
  for (const ui::Control* pane : {form_.leftPane, form_.rightPane}) {
    const ControlPeer* peer = peerOf(pane);
    if (peer != nullptr && pane->visible()) all.push_back(peer->window());
  }
  for (const ui::Button* button : form_.noticeButtons) {
    const ControlPeer* peer = peerOf(button);
    if (peer != nullptr && button->visible()) all.push_back(peer->window());
  }
  if (toolBar_) all.push_back(toolBar_->hwnd());
  return all;
}

void MainWindow::nextPane() {
  const std::vector<HWND> all = panes();
  const auto at = std::find(all.begin(), all.end(), GetFocus());
  const HWND next = at == all.end() || at + 1 == all.end() ? all.front() : *(at + 1);
  if (next == view_.hwnd()) {
    view_.setFocus();
  } else if (toolBar_ && next == toolBar_->hwnd()) {
    toolBar_->focus();
  } else {
    SetFocus(next);
  }
}

// Shortcuts go by the key and not by the letter on it; the control with the focus does not see them.
bool MainWindow::translate(MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  const ui::Shortcut pressed = pressedKey(message.wParam);
  if (form_.keyPressed(pressed)) return true;
  if (ControlPeer* peer = peerOf(message.hwnd)) {
    if (peer->onKey(pressed.key)) return true;
    if (pressed == ui::Shortcut{VK_ESCAPE, false, false, false}) {
      view_.setFocus();
      return true;
    }
  }
  const bool functionKey = pressed.key >= ui::kKeyF1 && pressed.key < ui::kKeyF1 + 24;
  // A bare key belongs to the control, even where a menu names it (Del).
  if (!pressed.ctrl && !pressed.alt && !functionKey) return false;
  const int command = commandOfShortcut(form_.menus, pressed, message.hwnd == view_.hwnd());
  if (command != 0) form_.command(command);
  return command != 0;
}

// Messages -----------------------------------------------------------------------------------------------

std::optional<LRESULT> MainWindow::handleMenu(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITMENU:
      form_.menuOpening();
      if (menu_) menu_->refresh(form_.menus);
      return 0;
    case WM_ENTERMENULOOP:
      inMenu_ = true;
      return 0;
    case WM_EXITMENULOOP:
      inMenu_ = false;
      if (menusStale_) menusChanged();
      return 0;
    case WM_MENUSELECT:
      form_.menuHighlighted(menuHelp(wParam, lParam));
      return 0;
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
      return drawsMenu(hwnd(), message, lParam) ? std::optional<LRESULT>(TRUE) : std::nullopt;
    case WM_MENUCHAR:
      return menuCharacter(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam)));
    default:
      return std::nullopt;
  }
}

MainWindow::Splitter MainWindow::splitterAt(POINT point) const {
  const Columns place = columns();
  if (PtInRect(&place.leftSplitter, point) != 0) return Splitter::Left;
  return PtInRect(&place.rightSplitter, point) != 0 ? Splitter::Right : Splitter::None;
}

void MainWindow::dragSplitter(int x) {
  const bool left = dragged_ == Splitter::Left;
  int& width = left ? widths_.left : widths_.right;
  const auto measure = [&](LONG pixels) { width = MulDiv(static_cast<int>(pixels), kBaseDpi, dpi_); };
  const Columns before = columns();
  measure(left ? x - before.left.left : before.right.right - x);
  // As far as it could go: what lies behind must not have to be pulled back first.
  const Columns now = columns();
  const RECT& pane = left ? now.left : now.right;
  measure(pane.right - pane.left);
  layOut();
}

std::optional<LRESULT> MainWindow::handleSplitter(UINT message, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      dragged_ = splitterAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      if (dragged_ == Splitter::None) return std::nullopt;
      SetCapture(hwnd());
      return 0;
    case WM_MOUSEMOVE:
      if (dragged_ == Splitter::None) return std::nullopt;
      dragSplitter(GET_X_LPARAM(lParam));
      return 0;
    case WM_LBUTTONUP:
      if (dragged_ != Splitter::None) ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED:
      dragged_ = Splitter::None;
      return 0;
    case WM_SETCURSOR: {
      if (showHourglass()) return TRUE;
      POINT point;
      GetCursorPos(&point);
      ScreenToClient(hwnd(), &point);
      if (LOWORD(lParam) != HTCLIENT || splitterAt(point) == Splitter::None) return std::nullopt;
      SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
      return TRUE;
    }
    default:
      return std::nullopt;
  }
}

LRESULT MainWindow::handleCommand(WPARAM wParam, LPARAM lParam) {
  const auto from = reinterpret_cast<HWND>(lParam);
  if (LOWORD(wParam) == mnuToolMore) {
    showHiddenTools();
  } else if (from == nullptr || (toolBar_ && from == toolBar_->hwnd())) {
    form_.command(LOWORD(wParam));
  } else if (ControlPeer* peer = peerOf(from)) {
    peer->onCommand(HIWORD(wParam));
  }
  return 0;
}

LRESULT MainWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto result = handleMenu(message, wParam, lParam)) return *result;
  if (const auto result = handleSplitter(message, lParam)) return *result;
  switch (message) {
    case WM_SIZE:
      layOut();
      return 0;
    case WM_GETMINMAXINFO: {
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {scaled(kLeastSize.cx, dpi_),
                                                               scaled(kLeastSize.cy, dpi_)};
      return 0;
    }
    case WM_SETFOCUS:
      view_.setFocus();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) form_.activated();
      break;
    case WM_COMMAND:
      return handleCommand(wParam, lParam);
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      ControlPeer* peer = peerOf(header.hwndFrom);
      if (peer != nullptr) return peer->onNotify(header);
      if (toolBar_ && toolBar_->giveHint(lParam)) return 0;
      break;
    }
    case WM_DROPFILES:
      dropFiles(droppedFiles(wParam, true));
      return 0;
    case WM_CLOSE:
    case WM_QUERYENDSESSION: {
      const bool ends = form_.queryClose();
      if (ends && message == WM_CLOSE) form_.close();
      return ends ? TRUE : FALSE;
    }
    case WM_ENDSESSION:
      if (wParam != 0) form_.close();
      return 0;
    case WM_DPICHANGED: {
      const auto& wanted = *reinterpret_cast<const RECT*>(lParam);
      dpi_ = HIWORD(wParam);
      setFonts();
      if (toolBar_) toolBar_->setDpi(dpi_);
      SetWindowPos(hwnd(), nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                   wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
      menusChanged();  // the bar is measured once
      return 0;
    }
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
      lookChanged(message, wParam, lParam);
      break;
    case kLayoutMessage:
      layOut();
      return 0;
    case WM_DESTROY:
      undoDrops(hwnd());
      PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return defaultHandling(message, wParam, lParam);
}

// Colours, fonts or high contrast. The controls are not told by the system, but by their window.
void MainWindow::lookChanged(UINT message, WPARAM wParam, LPARAM lParam) {
  menuLookChanged();
  for (const auto& peer : peers_) SendMessageW(peer->window(), message, wParam, lParam);
  if (toolBar_) toolBar_->setDpi(dpi_);
  menusChanged();
  form_.systemColoursChanged();
}

// Peer ---------------------------------------------------------------------------------------------------

void MainWindow::captionChanged() {
  SetWindowTextW(hwnd(), wideFromText(form_.caption()).c_str());
}

void MainWindow::close() {
  loop_.reset();
  if (hwnd() != nullptr) DestroyWindow(hwnd());
}

void MainWindow::show() {
  if (IsWindowVisible(hwnd()) != 0) return;
  shown_ = true;
  layOut();
  ShowWindow(hwnd(), state_ == ui::WindowState::Maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
  SetForegroundWindow(hwnd());
  UpdateWindow(hwnd());
}

void MainWindow::setState(ui::WindowState state) {
  state_ = state;
  if (IsWindowVisible(hwnd()) == 0) return;
  ShowWindow(hwnd(), state == ui::WindowState::Maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
}

ui::WindowPlace MainWindow::place() const {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(hwnd(), &placement);
  const RECT& frame = placement.rcNormalPosition;
  return {static_cast<int>(frame.left), static_cast<int>(frame.top),
          static_cast<int>(frame.right - frame.left), static_cast<int>(frame.bottom - frame.top)};
}

void MainWindow::setPlace(ui::WindowPlace place) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(hwnd(), &placement);
  RECT& frame = placement.rcNormalPosition;
  OffsetRect(&frame, place.left - frame.left, place.top - frame.top);
  if (place.width > 0) frame.right = frame.left + place.width;
  if (place.height > 0) frame.bottom = frame.top + place.height;
  if (MonitorFromRect(&frame, MONITOR_DEFAULTTONULL) == nullptr) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&frame, MONITOR_DEFAULTTONEAREST), &monitor);
    OffsetRect(&frame, monitor.rcWork.left - frame.left, monitor.rcWork.top - frame.top);
  }
  const bool visible = IsWindowVisible(hwnd()) != 0;
  if (!visible) placement.showCmd = SW_HIDE;
  SetWindowPlacement(hwnd(), &placement);
}

void MainWindow::menusChanged() {
  menusStale_ = inMenu_;  // an open menu still draws its rows
  if (inMenu_) return;
  auto next = std::make_unique<Menu>(form_.menus, Menu::Kind::Bar);
  SetMenu(hwnd(), next->handle());
  menu_ = std::move(next);
  if (shown_) DrawMenuBar(hwnd());
}

}  // namespace win32
