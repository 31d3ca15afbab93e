// What the user does in the code view: keys, clipboard, dropping.
#include <utility>

#include "base/cp1252.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/drag.h"
#include "platform/win32/drop_target.h"
#include "platform/win32/pointer.h"
#include "platform/win32/rich_edit_silence.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

bool keyIsDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

void RichEditCodeView::setFocus() {
  ::SetFocus(edit_);
}

void RichEditCodeView::enter(std::wstring_view typed) {
  replaceSelection(withLineEnds(bytesFromTyped(typed, unicodeTyped), lineEnd_));
}

void RichEditCodeView::paste() {
  const std::wstring text = clipboardText(edit_);
  if (!text.empty()) enter(text);
}

void RichEditCodeView::copy() {
  const std::string bytes = selText();
  if (!bytes.empty()) putClipboardText(edit_, wideFromBytes(bytes));
}

void RichEditCodeView::cut() {
  copy();
  replaceSelection("");
}

// The control takes very long to remove many lines itself. False: there was nothing to remove.
bool RichEditCodeView::removeLongSelection() {
  const Range range = selection();
  if (range.to - range.from < kManyLines) return false;
  replaceSelection("");
  return true;
}

int RichEditCodeView::positionAt(POINT screen) const {
  POINTL point{screen.x, screen.y};
  MapWindowPoints(nullptr, edit_, reinterpret_cast<POINT*>(&point), 1);
  return static_cast<int>(send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
}

void RichEditCodeView::dropText(const std::wstring& text, POINT screen) {
  const int at = positionAt(screen);
  setSelection({at, at});
  enter(text);
}

// What is dropped on the selection goes around it, elsewhere the caret moves there.
void RichEditCodeView::dropHere(POINT screen) {
  const int at = positionAt(screen);
  const Range selected = selection();
  if (at < selected.from || at >= selected.to) setSelection({at, at});
}

LRESULT RichEditCodeView::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == edit_) return handleEdit(message, wParam, lParam);
  handleParent(message, wParam, lParam);
  return forward(window, message, wParam, lParam);
}

void RichEditCodeView::handleParent(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && reinterpret_cast<HWND>(lParam) == edit_ && HIWORD(wParam) == EN_CHANGE) {
    stale_ = true;
    changed();
  } else if (message == WM_NOTIFY) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.hwndFrom == edit_ && header.code == EN_SELCHANGE) selectionChanged();
  }
}

LRESULT RichEditCodeView::handleEdit(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (handleKeyDown(static_cast<int>(wParam))) return 0;
      break;
    case WM_KEYUP:
      keyUp(static_cast<int>(wParam));
      break;
    case WM_SYSKEYDOWN:
    case WM_SYSCHAR:
      // Menus by keyboard; of the control's own shortcuts none (its Alt+X exchanges characters by their
      // number).
      if (message == WM_SYSKEYDOWN && wParam == VK_BACK) undo();
      return DefWindowProcW(edit_, message, wParam, lParam);
    case WM_CHAR:
      handleCharacter(static_cast<wchar_t>(wParam), lParam);
      return 0;
    case WM_PASTE:
    case EM_PASTESPECIAL:
      paste();
      return 0;
    case WM_COPY:
      copy();
      return 0;
    case WM_CUT:
      cut();
      return 0;
    case WM_CLEAR:
      replaceSelection("");
      return 0;
    case EM_CANUNDO:
      return canUndo() ? 1 : 0;
    case EM_CANREDO:
      return canRedo() ? 1 : 0;
    case WM_UNDO:
    case EM_UNDO:
      undo();
      return 1;
    case EM_REDO:
      redo();
      return 1;
    case WM_DROPFILES: {
      const auto paths = droppedFiles(wParam, true);
      if (filesDropped) filesDropped(paths);
      return 0;
    }
    case WM_PAINT: {
      const LRESULT result = forward(edit_, message, wParam, lParam);
      paintNewBars();
      return result;
    }
    case kDragMessage:
      if (wParam == kDragDrop) dropHere({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return wParam != kDragLeave ? 1 : 0;
    case WM_CONTEXTMENU: {
      POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      if (lParam == -1) {  // by keyboard: at the caret
        GetCaretPos(&point);
        ClientToScreen(edit_, &point);
      }
      if (contextMenu) contextMenu(point);
      return 0;
    }
    case WM_SETCURSOR:
      if (showHourglass()) return TRUE;
      break;
    default:
      break;
  }
  return forward(edit_, message, wParam, lParam);
}

// Wine's control makes room for a scroll bar and leaves it unpainted.
void RichEditCodeView::paintNewBars() {
  const LONG_PTR bars = GetWindowLongPtrW(edit_, GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL);
  if (std::exchange(bars_, bars) != bars) RedrawWindow(edit_, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

// True: the control shall not see it. Of its shortcuts only moving and deleting stay; the rest are commands.
bool RichEditCodeView::handleKeyDown(int key) {
  keyDown(key);
  const bool control = keyIsDown(VK_CONTROL) && !keyIsDown(VK_MENU);
  const bool shift = keyIsDown(VK_SHIFT);
  if (key == VK_INSERT) {
    if (control) copy();
    if (shift && !control) paste();
    return true;
  }
  if (key == VK_DELETE && shift && !control) {
    cut();
    return true;
  }
  if ((key == VK_DELETE || key == VK_BACK) && removeLongSelection()) return true;
  if (!control) return false;
  const bool moves = key >= VK_PRIOR && key <= VK_DOWN;
  return !moves && key != VK_BACK && key != VK_DELETE && key != VK_CONTROL && key != VK_SHIFT;
}

void RichEditCodeView::handleCharacter(wchar_t character, LPARAM lParam) {
  if (IS_HIGH_SURROGATE(character)) {
    highSurrogate_ = character;
    return;
  }
  if (IS_LOW_SURROGATE(character)) {
    enter(std::wstring{highSurrogate_, character});
    return;
  }
  const auto byte = base::byteOfChar(character);
  if (!byte) {
    enter(std::wstring_view(&character, 1));
    return;
  }
  const int key = keyPress ? keyPress(*byte) : *byte;
  if (key == 0 || key == 0x7F) return;
  if (key < ' ') {
    // Control codes are commands; the editing keys are not, unless they were made with Ctrl and a letter.
    const bool edits = key == '\b' || key == '\t' || key == '\r';
    const bool control = keyIsDown(VK_CONTROL) && !keyIsDown(VK_MENU);
    if (!edits || control) return;
  }
  removeLongSelection();
  forward(edit_, WM_CHAR, base::charOfByte(static_cast<std::uint8_t>(key)), lParam);
}

}  // namespace win32
