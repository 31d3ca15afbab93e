// What the user does in the code view: keys, clipboard, dragging.
#include <ole2.h>

#include <array>
#include <cstdlib>
#include <utility>

#include "base/utf8.h"
#include "platform/win32/code_view/code_view.h"
#include "platform/win32/system/clip_data.h"
#include "platform/win32/system/clipboard.h"
#include "platform/win32/system/pointer.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/drag.h"
#include "platform/win32/window/drop_target.h"
#include "resources/ids.h"

namespace win32 {
namespace {

bool keyIsDown(int key) {
  return GetKeyState(key) < 0;
}

// AltGr, with which layouts reach their third letters, is Ctrl and Alt together.
bool controlIsDown() {
  return keyIsDown(VK_CONTROL) && !keyIsDown(VK_MENU);
}

// A step of undoing ends where a word does.
bool continuesWord(char32_t character) {
  return character > 0x7F || (character >= '0' && character <= '9') ||
         (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') || character == '_';
}

// Ctrl with a letter, by the key and not by what the layout makes of it.
constexpr std::array<std::pair<int, int>, 2> kControlCodes = {{{'B', 2}, {'Y', 25}}};

}  // namespace

// Entering -----------------------------------------------------------------------------------------------

void CodeView::enter(char32_t character) {
  std::string bytes;
  if (typed) {
    bytes = typed(character);
  } else {
    base::appendUtf8(bytes, character);
  }
  if (bytes.empty()) return;
  const sptr_t at = sci_.call(SCI_GETCURRENTPOS);
  const bool letter = continuesWord(character);
  const bool together = at == lastTypedEnd_ && selLength() == 0 && (lastWasLetter_ || !letter);
  if (!together) {  // an empty group: what follows is a step of its own
    sci_.call(SCI_BEGINUNDOACTION);
    sci_.call(SCI_ENDUNDOACTION);
  }
  insertTyped(bytes);
  lastWasLetter_ = letter;
  lastTypedEnd_ = sci_.call(SCI_GETCURRENTPOS);
}

void CodeView::insertTyped(std::string_view bytes) {
  {
    const Edits inside(*this);
    if (selLength() > 0) {
      const UndoGroup group(sci_);
      const sptr_t start = selStart();
      sci_.replace(start, start + selLength(), bytes);
      sci_.call(SCI_SETEMPTYSELECTION, static_cast<uptr_t>(start) + bytes.size());
    } else {
      if (sci_.call(SCI_GETOVERTYPE) != 0) {
        const sptr_t at = sci_.call(SCI_GETCURRENTPOS);
        const sptr_t line = sci_.call(SCI_LINEFROMPOSITION, static_cast<uptr_t>(at));
        if (at < sci_.call(SCI_GETLINEENDPOSITION, static_cast<uptr_t>(line))) {
          sci_.call(SCI_DELETERANGE, static_cast<uptr_t>(at),
                    sci_.call(SCI_POSITIONAFTER, static_cast<uptr_t>(at)) - at);
        }
      }
      sci_.call(SCI_ADDTEXT, bytes.size(), bytes.data());
    }
    sci_.call(SCI_SCROLLCARET);
    sci_.call(SCI_CHOOSECARETX);
  }
  finishEdits();
  selectionChanged();
}

void CodeView::enterClip(const ui::TextClip& clip) {
  const std::string bytes = entering ? entering(clip) : clip.source != 0 ? clip.bytes : clip.letters;
  if (!bytes.empty()) replaceSelection(bytes);
}

void CodeView::paste() {
  enterClip(clipboardClip(hwnd()));
}

// What is copied is the program's to say: it is a command of the main window.
void CodeView::ask(int command) const {
  SendMessageW(parent_, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

// Keys ---------------------------------------------------------------------------------------------------

// True: the control shall not see it. Of its shortcuts only moving and deleting stay; the rest are commands.
bool CodeView::handleKeyDown(int key) {
  keyDown(key);
  if (key == VK_INSERT) {
    if (keyIsDown(VK_SHIFT) && !keyIsDown(VK_CONTROL)) paste();
    if (controlIsDown()) ask(mnuCopy);
    return true;
  }
  if (key == VK_DELETE && keyIsDown(VK_SHIFT) && !keyIsDown(VK_CONTROL)) {
    ask(mnuCut);
    return true;
  }
  if (key == VK_ESCAPE) return true;
  if (!controlIsDown()) return false;
  if (controlTyped && !keyIsDown(VK_SHIFT)) {
    for (const auto& [letter, code] : kControlCodes) {
      if (key == letter) controlTyped(code);
    }
  }
  const bool moves = key >= VK_PRIOR && key <= VK_DOWN;
  return !moves && key != VK_BACK && key != VK_DELETE && key != VK_CONTROL && key != VK_SHIFT;
}

// True: it is dealt with.
bool CodeView::handleCharacter(char32_t character) {
  // With Ctrl held a layout may still give a letter: it must not enter.
  if (controlIsDown()) return true;
  if (character < ' ' || character == 0x7F) {
    // From another program, without the key.
    for (const auto& [letter, code] : kControlCodes) {
      if (character == static_cast<char32_t>(code) && controlTyped) controlTyped(code);
    }
    return true;  // Enter, Tab and Backspace act as keys
  }
  enter(character);
  return true;
}

void CodeView::handleUtf16(wchar_t unit) {
  if (IS_HIGH_SURROGATE(unit)) {
    highSurrogate_ = unit;
  } else if (IS_LOW_SURROGATE(unit)) {
    const auto high = static_cast<char32_t>(std::exchange(highSurrogate_, L'\0'));
    if (high != 0) handleCharacter(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00U));
  } else {
    handleCharacter(unit);
  }
}

// Dragging -----------------------------------------------------------------------------------------------

sptr_t CodeView::positionAt(POINT screen) const {
  ScreenToClient(hwnd(), &screen);
  return sci_.call(SCI_POSITIONFROMPOINT, static_cast<uptr_t>(screen.x), screen.y);
}

void CodeView::dropClip(const ui::TextClip& clip, POINT screen) {
  const sptr_t at = positionAt(screen);
  if (insideDrag_) {
    dropOwn(at);
    return;
  }
  sci_.call(SCI_SETEMPTYSELECTION, static_cast<uptr_t>(at));
  enterClip(clip);
}

// The selection itself, moved or (with Ctrl) copied, byte for byte.
void CodeView::dropOwn(sptr_t at) {
  const std::string moved = selText();
  const sptr_t from = selStart();
  const sptr_t to = from + selLength();
  const bool copies = keyIsDown(VK_CONTROL);
  if (moved.empty() || (at >= from && at <= to)) return;
  {
    const Edits inside(*this);
    const UndoGroup group(sci_);
    if (sci_.exchange(at, at, moved) == Scintilla::Replaced::Broken) throwTooLong();
    if (!copies) {
      const sptr_t shift = at <= from ? to - from : 0;
      sci_.replace(from + shift, to + shift, "");
      if (at > from) at -= to - from;
    }
    sci_.call(SCI_SETSEL, static_cast<uptr_t>(at), at + static_cast<sptr_t>(moved.size()));
    lastTypedEnd_ = -1;
  }
  finishEdits();
  selectionChanged();
}

// What is dropped on the selection goes around it, elsewhere the caret moves there.
void CodeView::dropHere(POINT screen) const {
  const sptr_t at = positionAt(screen);
  if (at < selStart() || at >= selStart() + selLength()) {
    sci_.call(SCI_SETEMPTYSELECTION, static_cast<uptr_t>(at));
  }
}

// As the control decides it, which would drag the bytes by the system's code page.
bool CodeView::pressesSelection(POINT point) const {
  if (selLength() == 0 || point.x < sci_.call(SCI_GETMARGINWIDTHN, 0)) return false;
  const sptr_t at = sci_.call(SCI_CHARPOSITIONFROMPOINT, static_cast<uptr_t>(point.x), point.y);
  const sptr_t x = sci_.call(SCI_POINTXFROMPOSITION, 0, at);
  const sptr_t end = selStart() + selLength();
  return at >= selStart() && at <= end && !(at == selStart() && point.x < x) && !(at == end && point.x > x);
}

LRESULT CodeView::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN: {
      lastTypedEnd_ = -1;
      const auto now = static_cast<DWORD>(GetMessageTime());
      constexpr LONG kNear = 3;  // pixels
      const bool again = now - std::exchange(lastPressTime_, now) < GetDoubleClickTime() &&
                         std::abs(point.x - lastPress_.x) <= kNear &&
                         std::abs(point.y - lastPress_.y) <= kNear;
      lastPress_ = point;
      if (again || (wParam & (MK_SHIFT | MK_CONTROL)) != 0 || keyIsDown(VK_MENU) || !pressesSelection(point))
        break;
      setFocus();
      SetCapture(hwnd());
      pressed_ = {point, wParam};
      return 0;
    }
    case WM_MOUSEMOVE:
      if (!pressed_) break;
      if (!beyondClick(pressed_->point, point)) return 0;
      pressed_.reset();
      ReleaseCapture();
      dragOut();
      return 0;
    case WM_LBUTTONUP: {
      if (!pressed_) break;
      const Press press = *std::exchange(pressed_, std::nullopt);
      ReleaseCapture();
      forward(hwnd(), WM_LBUTTONDOWN, press.keys, MAKELPARAM(press.point.x, press.point.y));
      break;
    }
    default:
      pressed_.reset();
      break;
  }
  return forward(hwnd(), message, wParam, lParam);
}

void CodeView::dragOut() {
  const std::string bytes = selText();
  const auto document = document_;
  const std::uint64_t edits = document->edits;
  const bool outer = std::exchange(insideDrag_, true);
  DWORD effect = DROPEFFECT_NONE;
  try {
    effect = dragClip(leaving ? leaving(bytes) : ui::TextClip{bytes, bytes});
  } catch (...) {
    insideDrag_ = outer;
    throw;
  }
  insideDrag_ = outer;
  // Another window took it as its own; what was dropped here has been moved.
  if (effect == DROPEFFECT_MOVE && document == document_ && edits == document->edits) replaceSelection("");
}

// Messages -----------------------------------------------------------------------------------------------

LRESULT CodeView::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == hwnd()) return handleEdit(message, wParam, lParam);
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == hwnd()) {
    handleNotification(*reinterpret_cast<const SCNotification*>(lParam));
    return 0;
  }
  return forward(window, message, wParam, lParam);
}

void CodeView::handleNotification(const SCNotification& notification) {
  switch (notification.nmhdr.code) {
    case SCN_MODIFIED:
      if ((notification.modificationType & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) != 0) {
        changedInside_ = true;
        const auto at = static_cast<std::size_t>(notification.position);
        const auto length = static_cast<std::size_t>(notification.length);
        if ((notification.modificationType & SC_MOD_INSERTTEXT) != 0) {
          tellEdit(*document_, {at, 0, {notification.text, length}});
        } else {
          tellEdit(*document_, {at, length, {}});
        }
        if (notification.linesAdded != 0) applyMargin();
      }
      if ((notification.modificationType & SC_MOD_CONTAINER) != 0) reformedInside_ = true;
      finishEdits();
      break;
    case SCN_UPDATEUI:
      if (sci_.call(SCI_SELECTIONISRECTANGLE) != 0) {  // commands know one range alone
        sci_.call(SCI_SETSEL, static_cast<uptr_t>(sci_.call(SCI_GETANCHOR)), sci_.call(SCI_GETCURRENTPOS));
      }
      if ((notification.updated & SC_UPDATE_SELECTION) != 0) selectionChanged();
      break;
    case SCN_ZOOM:
      applyMargin();
      break;
    default:
      break;
  }
}

LRESULT CodeView::handleEdit(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN: {
      if (handleKeyDown(static_cast<int>(wParam))) return 0;
      const Edits inside(*this);  // a key is one change, however many pieces the control makes of it
      forward(hwnd(), message, wParam, lParam);
      break;
    }
    case WM_KEYUP:
      keyUp(static_cast<int>(wParam));
      return forward(hwnd(), message, wParam, lParam);
    case WM_SYSKEYDOWN:
    case WM_SYSCHAR:
      // Menus by keyboard; of the control's own shortcuts none.
      if (message == WM_SYSKEYDOWN && wParam == VK_BACK) undo();
      return DefWindowProcW(hwnd(), message, wParam, lParam);
    case WM_CHAR:
    case WM_IME_CHAR:
      handleUtf16(static_cast<wchar_t>(wParam));
      return 0;
    case WM_UNICHAR:
      if (wParam == UNICODE_NOCHAR) return TRUE;
      handleCharacter(static_cast<char32_t>(wParam));
      return 0;
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_COMPOSITION:
    case WM_IME_ENDCOMPOSITION:
    case WM_IME_REQUEST:
      // The system's own window; what is composed comes as WM_IME_CHAR.
      return DefWindowProcW(hwnd(), message, wParam, lParam);
    case WM_PASTE:
      paste();
      return 0;
    case WM_COPY:
      ask(mnuCopy);
      return 0;
    case WM_CUT:
      ask(mnuCut);
      return 0;
    case WM_UNDO:
    case EM_UNDO:
      undo();
      return 1;
    case WM_CLEAR:
      replaceSelection("");
      return 0;
    case WM_DROPFILES: {
      const auto paths = droppedFiles(wParam, true);
      if (filesDropped) filesDropped(paths);
      return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      return handleMouse(message, wParam, lParam);
    case kDragMessage:
      if (wParam == kDragDrop) dropHere({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return wParam != kDragLeave ? 1 : 0;
    case WM_CONTEXTMENU: {
      POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      if (lParam == -1) {  // by keyboard: at the caret
        const auto caret = static_cast<sptr_t>(sci_.call(SCI_GETCURRENTPOS));
        point = {static_cast<LONG>(sci_.call(SCI_POINTXFROMPOSITION, 0, caret)),
                 static_cast<LONG>(sci_.call(SCI_POINTYFROMPOSITION, 0, caret))};
        ClientToScreen(hwnd(), &point);
      }
      if (contextMenu) contextMenu(point);
      return 0;
    }
    case WM_SETCURSOR:
      if (showHourglass()) return TRUE;
      return forward(hwnd(), message, wParam, lParam);
    default:
      return forward(hwnd(), message, wParam, lParam);
  }
  // A key that the control has acted on.
  finishEdits();
  return 0;
}

}  // namespace win32
