#include "platform/win32/rich_edit_code_view.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/dpi.h"
#include "platform/win32/drop_target.h"
#include "platform/win32/memory_room.h"
#include "platform/win32/rich_edit_silence.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

constexpr UINT kUnicodePage = 1200;
constexpr int kUsualSize = 10;  // of letters, in points, where the font names none

struct StreamSource {
  const char* at;
  std::size_t left;
};

DWORD CALLBACK readStream(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* read) {
  auto& source = *reinterpret_cast<StreamSource*>(cookie);
  const std::size_t count = std::min(source.left, static_cast<std::size_t>(size));
  std::copy_n(source.at, count, reinterpret_cast<char*>(buffer));
  source.at += count;
  source.left -= count;
  *read = static_cast<LONG>(count);
  return 0;
}

[[noreturn]] void throwTooLong() {
  throw base::Error(base::ErrorNumber::OutOfMemory, "ტექსტი ზედმეტად გრძელია: რედაქტორში არ ეტევა.");
}

}  // namespace

RichEditCodeView::RichEditCodeView()
    : library_(LoadLibraryW(L"msftedit.dll")),
      shelter_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr)),
      parent_(shelter_.get()),
      dpi_(systemDpi()) {
  watch(parent_);
  makeControl();
}

RichEditCodeView::~RichEditCodeView() {
  if (IsWindow(parent_) != 0) unwatch(parent_);
  if (IsWindow(edit_) != 0) {
    unwatch(edit_);
    DestroyWindow(edit_);
  }
}

void RichEditCodeView::place(HWND parent, int id) {
  unwatch(parent_);
  parent_ = parent;
  id_ = id;
  watch(parent_);
  const std::string kept = text();
  const Range selected = selection();
  makeControl();
  fill(kept);
  setSelection(selected);
}

void RichEditCodeView::setBounds(const RECT& bounds) {
  SetWindowPos(edit_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
               bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void RichEditCodeView::setDpi(int dpi) {
  dpi_ = dpi;
  // The control measures by the system's density and knows no other.
  send(EM_SETZOOM, static_cast<WPARAM>(dpi_), systemDpi());
}

void RichEditCodeView::makeControl() {
  RECT bounds{};
  const HWND old = edit_;
  const bool focused = old != nullptr && GetFocus() == old;
  if (old != nullptr && GetParent(old) == parent_) {
    GetWindowRect(old, &bounds);
    MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&bounds), 2);
  }
  edit_ =
      CreateWindowExW(WS_EX_CLIENTEDGE, L"RICHEDIT50W", L"",
                      WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                          ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL | ES_WANTRETURN | ES_NOOLEDRAGDROP,
                      bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                      parent_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id_)), nullptr, nullptr);
  if (edit_ == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, systemMessage(GetLastError()));
  if (focused) ::SetFocus(edit_);
  if (old != nullptr) {
    unwatch(old);
    undoDrops(old);
    DestroyWindow(old);
  }
  watch(edit_);
  name_ = setAccessibleName(edit_, L"კოდი", GetParent(name_) == parent_ ? name_ : nullptr);
  send(EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
  send(EM_SETUNDOLIMIT, 0);  // see EditHistory
  // No exchange of fonts or keyboards by the characters, no tables out of "+--+".
  send(EM_SETLANGOPTIONS, 0, 0);
  send(EM_SETEDITSTYLEEX, SES_EX_NOTABLE, SES_EX_NOTABLE);
  takeDrops(edit_, {[this](const std::vector<std::string>& paths) {
                      if (filesDropped) filesDropped(paths);
                    },
                    [this](const std::wstring& text, POINT screen) { dropText(text, screen); }});
  if (dpi_ != systemDpi()) setDpi(dpi_);
  applyFont(true);
  applyWrap();
  if (backColor_) setBackColor(*backColor_);
  send(EM_SETEVENTMASK, 0, kControlEvents);
}

// Text ---------------------------------------------------------------------------------------------------

int RichEditCodeView::length() const {
  GETTEXTLENGTHEX wanted{GTL_NUMCHARS | GTL_PRECISE, kUnicodePage};
  return static_cast<int>(send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&wanted)));
}

std::wstring RichEditCodeView::readControl() const {
  std::wstring control(static_cast<std::size_t>(length()) + 1, L'\0');
  GETTEXTEX wanted{static_cast<DWORD>(control.size() * sizeof(wchar_t)), GT_DEFAULT, kUnicodePage, nullptr,
                   nullptr};
  control.resize(static_cast<std::size_t>(
      send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted), reinterpret_cast<LPARAM>(control.data()))));
  return control;
}

void RichEditCodeView::sync() const {
  if (!stale_) return;
  std::string now;
  if (!bytesFromControl(readControl(), lineEnd_, now, breaks_)) {
    absorbUnicode();
    bytesFromControl(readControl(), lineEnd_, now, breaks_);
  }
  if (auto edit = editBetween(text_, now)) history_.addTyped(std::move(*edit));
  text_ = std::move(now);
  stale_ = false;
}

// Input methods and other programs put characters into the control that no byte stands for.
void RichEditCodeView::absorbUnicode() const {
  const Silence silence(*this);
  const std::wstring control = readControl();
  const auto foreign = [](wchar_t c) { return c != L'\r' && !byteOfControlChar(c); };
  for (std::size_t end = control.size(); end > 0;) {
    if (!foreign(control[end - 1])) {
      --end;
      continue;
    }
    std::size_t start = end;
    while (start > 0 && foreign(control[start - 1])) --start;
    const std::string bytes =
        bytesFromTyped(std::wstring_view(control).substr(start, end - start), unicodeTyped);
    putRange({static_cast<int>(start), static_cast<int>(end)}, controlFromBytes(bytes, lineEnd_));
    end = start;
  }
}

const std::string& RichEditCodeView::text() const {
  sync();
  return text_;
}

void RichEditCodeView::requireRoom(std::string_view text, std::size_t given) const {
  if (!roomForText(text, given)) throwTooLong();
}

// Throws when the control did not take it all.
void RichEditCodeView::putRange(Range range, const std::wstring& with) const {
  const int expected = length() - (range.to - range.from) + static_cast<int>(with.size());
  setSelection(range);
  send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(with.c_str()));
  if (length() != expected) throwTooLong();
}

// Puts `inserted` in the place of `removed` bytes, in the control and in text_; all or nothing.
void RichEditCodeView::exchange(std::size_t at, std::size_t removed, std::string_view inserted) {
  requireRoom(inserted, removed);
  const Range range{breaks_.controlOf(static_cast<int>(at)),
                    breaks_.controlOf(static_cast<int>(at + removed))};
  const bool many = breaks_.lineOf(range.to) - breaks_.lineOf(range.from) > kManyLines;
  std::string next = text_;
  next.replace(at, removed, inserted);
  try {
    if (many) {
      makeControl();
      fill(next);
    } else {
      const Silence silence(*this);
      putRange(range, controlFromBytes(inserted, lineEnd_));
    }
  } catch (const base::Error&) {
    makeControl();
    fill(text_);
    throw;
  }
  text_ = std::move(next);
  std::string same;
  bytesFromControl(controlFromBytes(text_, lineEnd_), lineEnd_, same, breaks_);
}

void RichEditCodeView::setText(std::string_view text) {
  const int start = selStart();
  const int length = selLength();
  if (auto edit = editBetween(text_, text)) {
    exchange(edit->at, edit->removed.size(), edit->inserted);
    edit->selStart = start;
    edit->selLength = length;
    history_.add(std::move(*edit));
  }
  {
    const Silence silence(*this);
    setSelection({0, 0});
  }
  send(EM_SCROLLCARET);
  afterEdit();
}

// The control is new or empty; afterwards it holds `text`, with the caret at 0.
void RichEditCodeView::streamIn(WPARAM format, const char* bytes, std::size_t size) const {
  StreamSource source{bytes, size};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, readStream};
  send(EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
}

void RichEditCodeView::fill(std::string_view text) {
  const Silence silence(*this);
  const std::wstring control = controlFromBytes(text, lineEnd_);
  streamIn(SF_TEXT | SF_UNICODE, reinterpret_cast<const char*>(control.data()),
           control.size() * sizeof(wchar_t));
  setSelection({0, 0});
  if (length() != static_cast<int>(control.size())) throwTooLong();
}

void RichEditCodeView::load(std::string_view text) {
  sync();
  requireRoom(text, text_.size());
  std::string next(text);
  const LineEnd oldLineEnd = lineEnd_;
  const Range selected = selection();
  try {
    if (breaks_.lineOf(length()) > kManyLines) makeControl();
    lineEnd_ = lineEndOf(next);
    fill(next);
  } catch (const base::Error&) {
    makeControl();
    lineEnd_ = oldLineEnd;
    fill(text_);
    setSelection(selected);
    throw;
  }
  bytesFromControl(controlFromBytes(next, lineEnd_), lineEnd_, text_, breaks_);
  history_.clear();
  afterEdit();
}

void RichEditCodeView::replaceSelection(std::string_view text) {
  const int start = selStart();
  const int length = selLength();
  if (text.empty() && length == 0) return;
  Edit edit{static_cast<std::size_t>(start), selText(), std::string(text), start, length};
  exchange(edit.at, edit.removed.size(), edit.inserted);
  const int end = breaks_.controlOf(start + static_cast<int>(text.size()));
  {
    const Silence silence(*this);
    setSelection({end, end});
  }
  history_.add(std::move(edit));
  send(EM_SCROLLCARET);
  afterEdit();
}

void RichEditCodeView::afterEdit() {
  changed();
  selectionChanged();
}

// Selection ----------------------------------------------------------------------------------------------

RichEditCodeView::Range RichEditCodeView::selection() const {
  CHARRANGE range{};
  send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  // Everything selected reads as one more than there is.
  const int size = length();
  return {std::min<int>(range.cpMin, size), std::min<int>(range.cpMax, size)};
}

void RichEditCodeView::setSelection(Range range) const {
  CHARRANGE wanted{range.from, range.to};
  send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&wanted));
}

int RichEditCodeView::selStart() const {
  sync();
  return breaks_.byteOf(selection().from);
}

int RichEditCodeView::selLength() const {
  sync();
  const Range range = selection();
  return breaks_.byteOf(range.to) - breaks_.byteOf(range.from);
}

void RichEditCodeView::select(int start, int length) {
  sync();
  const int size = static_cast<int>(text_.size());
  const int from = std::clamp(start, 0, size);
  const int to = from + std::clamp(length, 0, size - from);
  {
    // The control's own report would come or not, depending on where the selection was.
    send(EM_SETEVENTMASK, 0, ENM_NONE);
    setSelection({breaks_.controlOf(from), breaks_.controlOf(to)});
    send(EM_SETEVENTMASK, 0, kControlEvents);
  }
  send(EM_SCROLLCARET);
  selectionChanged();
}

std::string RichEditCodeView::selText() const {
  const int start = selStart();
  return text_.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(selLength()));
}

std::optional<ui::ScreenArea> RichEditCodeView::selectionOnScreen() const {
  const Range range = selection();
  POINTL from{}, to{};
  send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&from), range.from);
  send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&to), range.to);
  RECT view;
  GetClientRect(edit_, &view);
  // The control does not tell how high a line is: one and a half times the letters are no less.
  const LONG line = MulDiv(font_.size > 0 ? font_.size : kUsualSize, dpi_ * 3 / 2, 72);
  RECT area{from.x, from.y, to.x, to.y + line};
  if (from.y != to.y) area = {view.left, from.y, view.right, to.y + line};
  if (!IntersectRect(&area, &area, &view)) return std::nullopt;
  MapWindowPoints(edit_, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return ui::ScreenArea{area.left, area.top, area.right, area.bottom};
}

ui::CaretPlace RichEditCodeView::caret() const {
  sync();
  const int at = selection().to;
  const int line = breaks_.lineOf(at);
  return {line + 1, breaks_.byteOf(at) - breaks_.byteOf(breaks_.startOf(line)) + 1};
}

int RichEditCodeView::scrollTop() const {
  sync();
  const auto first = static_cast<WPARAM>(send(EM_GETFIRSTVISIBLELINE));
  return breaks_.byteOf(std::max(0, static_cast<int>(send(EM_LINEINDEX, first))));
}

void RichEditCodeView::setScrollTop(int position) {
  sync();
  const int at = breaks_.controlOf(std::clamp(position, 0, static_cast<int>(text_.size())));
  const LRESULT row = send(EM_EXLINEFROMCHAR, 0, at);
  send(EM_LINESCROLL, 0, row - send(EM_GETFIRSTVISIBLELINE));
}

// Undo ---------------------------------------------------------------------------------------------------

bool RichEditCodeView::canUndo() const {
  sync();
  return history_.canUndo();
}

bool RichEditCodeView::canRedo() const {
  sync();
  return history_.canRedo();
}

void RichEditCodeView::travel(const Edit& edit, bool back) {
  const std::string& out = back ? edit.inserted : edit.removed;
  const std::string& in = back ? edit.removed : edit.inserted;
  exchange(edit.at, out.size(), in);
  const int end = static_cast<int>(edit.at + in.size());
  const bool known = back && edit.selLength >= 0;
  {
    const Silence silence(*this);
    setSelection({breaks_.controlOf(known ? edit.selStart : end),
                  breaks_.controlOf(known ? edit.selStart + edit.selLength : end)});
  }
  send(EM_SCROLLCARET);
  afterEdit();
}

void RichEditCodeView::undo() {
  if (canUndo()) travel(history_.undo(), true);
}

void RichEditCodeView::redo() {
  if (canRedo()) travel(history_.redo(), false);
}

}  // namespace win32
