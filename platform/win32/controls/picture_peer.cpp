#include "platform/win32/controls/picture_peer.h"

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/gdi_canvas.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr int kWheelLines = 3;  // a step of the wheel

}  // namespace

void registerPictureClass() {
  static const ATOM registered = [] {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = L"ZervoPicture";
    return RegisterClassExW(&windowClass);
  }();
  static_cast<void>(registered);
}

void PicturePeer::prepare() {
  measure();
  // What no key does anything in is no stop of the keyboard.
  if (!picture_.keyDown) {
    SetWindowLongPtrW(window(), GWL_STYLE, GetWindowLongPtrW(window(), GWL_STYLE) & ~WS_TABSTOP);
  }
}

void PicturePeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Text) {
    SetWindowTextW(window(), wideFromText(picture_.caption()).c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window(), OBJID_CLIENT, CHILDID_SELF);
  } else if (what == ui::Aspect::Value) {
    InvalidateRect(window(), nullptr, FALSE);
  }
}

bool PicturePeer::onKey(int key) {
  return picture_.enabled() && picture_.keyDown && picture_.keyDown(key);
}

void PicturePeer::measure() {
  RECT area;
  GetClientRect(window(), &area);
  const int dpi = dpiOf(window());
  picture_.userSize({MulDiv(area.right, kBaseDpi, dpi), MulDiv(area.bottom, kBaseDpi, dpi)});
}

ui::Point PicturePeer::point(LPARAM lParam) const {
  const int dpi = dpiOf(window());
  return {MulDiv(GET_X_LPARAM(lParam), kBaseDpi, dpi), MulDiv(GET_Y_LPARAM(lParam), kBaseDpi, dpi)};
}

void PicturePeer::draw(HDC device) {
  RECT area;
  GetClientRect(window(), &area);
  FillRect(device, &area, GetSysColorBrush(COLOR_BTNFACE));
  if (!picture_.paint) return;
  GdiCanvas canvas(device, dpiOf(window()));
  picture_.paint(canvas);
}

// Through a buffer: a picture that is drawn again while the mouse moves must not flicker.
void PicturePeer::paint() {
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(window(), &paint);
  RECT area;
  GetClientRect(window(), &area);
  const UniqueCanvas buffer(CreateCompatibleDC(screen));
  const UniqueBitmap bitmap(CreateCompatibleBitmap(screen, area.right, area.bottom));
  const HGDIOBJ before = SelectObject(buffer.get(), bitmap.get());
  try {
    draw(buffer.get());
  } catch (...) {
    // What was drawn so far is shown; the window must not ask for ever to be painted.
  }
  BitBlt(screen, 0, 0, area.right, area.bottom, buffer.get(), 0, 0, SRCCOPY);
  SelectObject(buffer.get(), before);
  EndPaint(window(), &paint);
}

bool PicturePeer::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (picture_.keyDown) SetFocus(window());
      SetCapture(window());
      picture_.mouseDown(point(lParam));
      if (message == WM_LBUTTONDBLCLK) picture_.doubleClicked(point(lParam));
      return true;
    case WM_LBUTTONUP:
      if (GetCapture() != window()) return true;
      ReleaseCapture();
      picture_.mouseUp(point(lParam));
      return true;
    case WM_MBUTTONUP:
    case WM_XBUTTONUP:
      picture_.otherMouseUp(point(lParam));
      return true;
    case WM_MOUSEMOVE: {
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window(), 0};
      if (!pointerInside_) pointerInside_ = TrackMouseEvent(&leaving) != 0;
      picture_.mouseMove(point(lParam));
      return true;
    }
    case WM_MOUSEWHEEL:
      picture_.wheel(-GET_WHEEL_DELTA_WPARAM(wParam) * kWheelLines / WHEEL_DELTA);
      return true;
    case WM_MOUSELEAVE:
      pointerInside_ = false;
      picture_.mouseLeft();
      return true;
    default:
      return false;
  }
}

LRESULT PicturePeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (handleMouse(message, wParam, lParam)) return message == WM_XBUTTONUP ? TRUE : 0;
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_PRINTCLIENT:
      draw(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      measure();
      picture_.repaint();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      picture_.userFocus(message == WM_SETFOCUS);
      return 0;
    case WM_ENABLE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      InvalidateRect(window, nullptr, FALSE);
      return 0;
    default:
      return forward(window, message, wParam, lParam);
  }
}

}  // namespace win32
