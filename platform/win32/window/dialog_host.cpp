#include "platform/win32/window/dialog_host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/error.h"
#include "platform/win32/controls/button_peers.h"
#include "platform/win32/controls/picture_peer.h"
#include "platform/win32/controls/pressed_key.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/pointer.h"
#include "platform/win32/system/registry.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/dialog_template.h"
#include "platform/win32/window/menus.h"
#include "ui/controls.h"
#include "ui/mnemonics.h"

namespace win32 {

namespace {

constexpr int kGapBeside = 8;              // between a window and what it has made room for, in 1/96 inch
constexpr const char* kSizes = "dialogs";  // section of the registry; one value a form: "width height"

bool canBeSized(const ui::Form& form) {
  const auto& controls = form.controls();
  return std::any_of(controls.begin(), controls.end(),
                     [](const ui::Control* control) { return control->stretches && control->visible(); });
}

std::function<void(const ui::Form&)>& help() {
  static std::function<void(const ui::Form&)> wanted;
  return wanted;
}

}  // namespace

void setHelp(std::function<void(const ui::Form&)> wanted) {
  help() = std::move(wanted);
}

DialogHost::DialogHost(ui::Form& form, HWND owner, Kind kind) : form_(form), kind_(kind) {
  registerPictureClass();
  const std::vector<WORD> dialog = dialogTemplate(form.id(), wideFromUtf8(form.name()), canBeSized(form));
  window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                       reinterpret_cast<const DLGTEMPLATE*>(dialog.data()), owner, procedure,
                                       reinterpret_cast<LPARAM>(this));
  if (window_ == nullptr) {
    throw base::Error(base::ErrorNumber::OutOfMemory, systemMessage(GetLastError()));
  }
  loop_.emplace(window_, [this](MSG& message) { return translate(message); });
  dpi_ = dpiOf(window_);
  try {
    bind();
  } catch (...) {
    destroy();
    throw;
  }
  center(owner);
}

DialogHost::~DialogHost() {
  destroy();
}

void DialogHost::bind() {
  for (ui::Control* control : form_.controls()) {
    const HWND window = GetDlgItem(window_, control->id());
    if (window == nullptr) {
      throw base::Error(base::ErrorNumber::InvalidCall,
                        std::string(form_.name()) + ": no control " + std::to_string(control->id()));
    }
    peers_.push_back(makePeer(*control, window));
  }
  form_.open(this);
  form_.load();
  for (const auto& peer : peers_) peer->begin();
  giveMnemonics();
  captionChanged();
  addHints();
  if (form_.defaultButton != nullptr) {
    SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(form_.defaultButton->id()), 0);
  }
  layout_.emplace(window_, peers_);
  takeKeptSize();
  layout_->arrange(wantedSize());
  ready_ = true;
}

// In 1/96 inch, beyond what the controls need.
void DialogHost::takeKeptSize() {
  if (!canBeSized(form_)) return;
  const std::string kept = registryValue(kSizes, form_.name());
  int width = 0;
  int height = 0;
  if (std::sscanf(kept.c_str(), "%d %d", &width, &height) != 2) return;
  // The screen may be a smaller one today.
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT frame;
  GetWindowRect(window_, &frame);
  const auto fit = [](int wanted, LONG room) { return std::clamp<LONG>(wanted, 0, std::max<LONG>(0, room)); };
  const RECT& work = monitor.rcWork;
  layout_->setExtra({fit(scaled(width, dpi_), work.right - work.left - (frame.right - frame.left)),
                     fit(scaled(height, dpi_), work.bottom - work.top - (frame.bottom - frame.top))});
  kept_ = layout_->extra();
}

void DialogHost::keepSize(HWND window) {
  if (!layout_ || !canBeSized(form_) || IsZoomed(window) != 0) return;
  const SIZE now = layout_->extra();
  if (now.cx == kept_.cx && now.cy == kept_.cy) return;
  const auto inUnits = [this](LONG pixels) { return std::to_string(MulDiv(pixels, kBaseDpi, dpi_)); };
  try {
    setRegistryValue(kSizes, form_.name(), inUnits(now.cx) + " " + inUnits(now.cy));
  } catch (const base::Error&) {
    // The next time it comes up as it was made.
  }
}

// Many captions are kept without a letter; the keyboard gets one all the same.
void DialogHost::giveMnemonics() {
  std::vector<CaptionPeer*> captioned;
  std::vector<ui::MnemonicCaption> captions;
  for (const auto& peer : peers_) {
    auto* const caption = dynamic_cast<CaptionPeer*>(peer.get());
    if (caption == nullptr) continue;
    captioned.push_back(caption);
    captions.push_back({ui::display(caption->model().caption()), caption->isPressed()});
  }
  const std::u32string letters = ui::freeMnemonics(captions);
  for (std::size_t i = 0; i < captioned.size(); ++i) captioned[i]->setMnemonic(letters[i]);
}

void DialogHost::addHints() {
  hints_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                           window_, nullptr, nullptr, nullptr);
  for (const auto& peer : peers_) {
    // Over a list the tip would cover the entries: there the hint is a name for screen readers alone.
    const ui::Control& model = peer->model();
    const bool list = model.kind() == ui::ControlKind::ListView || model.kind() == ui::ControlKind::ListBox;
    if (model.hint.empty() || list) continue;
    std::wstring hint = wideFromText(model.hint);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(peer->window());
    tool.lpszText = hint.data();
    SendMessageW(hints_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void DialogHost::center(HWND owner) {
  RECT frame;
  GetWindowRect(window_, &frame);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT around = monitor.rcWork;
  if (owner != nullptr && IsWindowVisible(owner) != 0) GetWindowRect(owner, &around);
  const int width = frame.right - frame.left;
  const int height = frame.bottom - frame.top;
  const auto fit = [](LONG wanted, LONG low, LONG high) { return std::max(low, std::min(wanted, high)); };
  POINT pointer{};
  if (form_.atPointer && GetCursorPos(&pointer) != 0 && PtInRect(&around, pointer) != 0) {
    around = {pointer.x, pointer.y, pointer.x + width, pointer.y + height};
  }
  const LONG left =
      fit((around.left + around.right - width) / 2, monitor.rcWork.left, monitor.rcWork.right - width);
  const LONG top =
      fit((around.top + around.bottom - height) / 2, monitor.rcWork.top, monitor.rcWork.bottom - height);
  SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogHost::show() {
  if (window_ == nullptr || form_.closed()) return;  // closed itself while it was loaded
  ShowWindow(window_, SW_SHOW);
  SetForegroundWindow(window_);
  HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
  for (const auto& peer : peers_) {
    if (peer->wantsFocus()) first = peer->window();
  }
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
  form_.shown();
}

bool DialogHost::translate(MSG& message) {
  for (const auto& peer : peers_) {
    if (peer->translate(message)) return true;
  }
  if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
    if (form_.keyPressed(pressedKey(message.wParam))) return true;
    if (window_ == nullptr) return true;  // the key has closed it
    ControlPeer* const peer = peerOf(message.hwnd);
    if (peer != nullptr && peer->onKey(static_cast<int>(message.wParam))) return true;
    if (window_ == nullptr) return true;
    if (message.wParam == VK_F1 && help()) {
      help()(form_);
      return true;
    }
  }
  return IsDialogMessageW(window_, &message) != 0;
}

ControlPeer* DialogHost::peerOf(HWND window) const {
  for (const auto& peer : peers_) {
    if (peer->window() == window) return peer.get();
  }
  return nullptr;
}

INT_PTR CALLBACK DialogHost::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    return FALSE;  // show() sets the focus
  }
  auto* const host = reinterpret_cast<DialogHost*>(GetWindowLongPtrW(window, DWLP_USER));
  if (host == nullptr || host->window_ == nullptr) return FALSE;
  return guarded([&] { return host->handle(message, wParam, lParam); }, INT_PTR{FALSE});
}

void DialogHost::command(int id, int code) {
  const auto press = [](ui::Button* button) {
    if (button != nullptr) button->click();
  };
  if (id == IDOK || id == IDCANCEL) {
    press(id == IDOK ? form_.defaultButton : form_.cancelButton);
    return;
  }
  if (ControlPeer* peer = peerOf(GetDlgItem(window_, id))) peer->onCommand(code);
}

INT_PTR DialogHost::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (ready_) command(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      ControlPeer* peer = ready_ ? peerOf(header.hwndFrom) : nullptr;
      if (peer == nullptr) return FALSE;
      const LRESULT result = peer->onNotify(header);
      if (window_ != nullptr) SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
      return TRUE;
    }
    case WM_CLOSE:
      if (form_.queryClose()) form_.close();
      return TRUE;
    case WM_ACTIVATE:
      if (ready_ && LOWORD(wParam) != WA_INACTIVE) form_.activated();
      return FALSE;
    case WM_SETCURSOR:
      if (!showHourglass()) return FALSE;
      SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
      return drawsMenu(window_, message, lParam) ? TRUE : FALSE;
    case WM_MENUCHAR:
      SetWindowLongPtrW(window_, DWLP_MSGRESULT,
                        menuCharacter(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam))));
      return TRUE;
    case WM_SIZE:
      if (ready_) layout_->sized();
      return FALSE;
    case WM_GETMINMAXINFO:
      if (ready_ && canBeSized(form_)) layout_->limit(*reinterpret_cast<MINMAXINFO*>(lParam));
      return FALSE;
    case kLayoutMessage:
      if (ready_) layOut(wParam);
      return TRUE;
    case WM_DPICHANGED: {
      int dpi = HIWORD(wParam);
      for (const auto& peer : peers_) peer->dpiChanged(dpi);
      std::swap(dpi_, dpi);
      layout_->dpiChanged(dpi, dpi_, wantedSize());
      return FALSE;
    }
    default:
      return FALSE;
  }
}

void DialogHost::layOut(WPARAM held) {
  if (held == kHoldLayout) {
    layoutHeld_ = true;
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  } else if (held == kReleaseLayout) {
    layoutHeld_ = false;
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  }
  if (layoutHeld_) return;
  layout_->arrange(wantedSize());
  if (held == kReleaseLayout) {
    RedrawWindow(window_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
}

void DialogHost::captionChanged() {
  SetWindowTextW(window_, wideFromText(form_.caption()).c_str());
}

SIZE DialogHost::wantedSize() const {
  return {scaled(form_.width, dpi_), scaled(form_.height(), dpi_)};
}

void DialogHost::heightChanged() {
  if (ready_) layout_->arrange(wantedSize());
}

void DialogHost::moveOff(const ui::ScreenArea& area) {
  RECT frame;
  const RECT covered{area.left, area.top, area.right, area.bottom};
  RECT common;
  if (window_ == nullptr || GetWindowRect(window_, &frame) == 0 || !IntersectRect(&common, &frame, &covered))
    return;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&covered, MONITOR_DEFAULTTONEAREST), &monitor);
  const LONG gap = scaled(kGapBeside, dpi_);
  // To each side; the shortest way that ends on the screen.
  const POINT ways[] = {{0, covered.bottom + gap - frame.top},
                        {0, covered.top - gap - frame.bottom},
                        {covered.right + gap - frame.left, 0},
                        {covered.left - gap - frame.right, 0}};
  const auto length = [](POINT way) { return std::abs(way.x) + std::abs(way.y); };
  const POINT* best = nullptr;
  for (const POINT& way : ways) {
    RECT there = frame;
    OffsetRect(&there, way.x, way.y);
    const bool seen = there.left >= monitor.rcWork.left && there.right <= monitor.rcWork.right &&
                      there.top >= monitor.rcWork.top && there.bottom <= monitor.rcWork.bottom;
    if (seen && (best == nullptr || length(way) < length(*best))) best = &way;
  }
  if (best == nullptr) return;  // no room anywhere
  SetWindowPos(window_, nullptr, frame.left + best->x, frame.top + best->y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogHost::close() {
  if (kind_ == Kind::Modeless) {
    destroy();
  } else {
    PostMessageW(window_, WM_NULL, 0, 0);  // the modal run looks up
  }
}

void DialogHost::destroy() {
  const HWND window = std::exchange(window_, nullptr);
  if (window == nullptr) return;
  ready_ = false;
  keepSize(window);
  form_.detach();
  // The peers themselves stay: one of them may be what brought us here.
  for (const auto& peer : peers_) peer->detach();
  loop_.reset();
  DestroyWindow(window);
}

void runModal(ui::Form& form) {
  const HWND owner = activeWindow();
  DialogHost host(form, owner, DialogHost::Kind::Modal);
  {
    const ModalRun run(host.window());
    host.show();
    ModalRun::until([&form] { return form.closed(); });
  }
  if (owner != nullptr) SetActiveWindow(owner);
}

}  // namespace win32
