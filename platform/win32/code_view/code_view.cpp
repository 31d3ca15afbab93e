#include "platform/win32/code_view/code_view.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "platform/win32/controls/accessible_name.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/window/drop_target.h"

namespace win32 {

CodeView::CodeView()
    : shelter_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr)),
      parent_(shelter_.get()),
      sci_(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE, parent_, 0),
      workshop_(std::make_shared<Workshop>(parent_)) {
  utf8Font_.characterSet = ui::CharacterSet::Utf8;
  watch(parent_);
  watch(hwnd());
  sci_.call(SCI_SETMODEVENTMASK, SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT | SC_MOD_CONTAINER);
  sci_.call(SCI_SETCOMMANDEVENTS, 0);  // what they say SCN_MODIFIED says
  sci_.call(SCI_USEPOPUP, SC_POPUP_NEVER);
  sci_.call(SCI_SETMULTIPLESELECTION, 0);
  sci_.call(SCI_SETPASTECONVERTENDINGS, 0);
  sci_.call(SCI_SETTABWIDTH, 8);
  sci_.call(SCI_SETSCROLLWIDTHTRACKING, 1);
  sci_.call(SCI_SETSCROLLWIDTH, 1);
  sci_.call(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
  sci_.call(SCI_SETBUFFEREDDRAW, 1);
  sci_.call(SCI_SETIMEINTERACTION, SC_IME_WINDOWED);
  sci_.call(SCI_SETMARGINS, 1);
  sci_.call(SCI_SETMARGINTYPEN, 0, SC_MARGIN_NUMBER);
  sci_.call(SCI_SETMARGINLEFT, 0, 4);
  show(makeDocument(""));
  // The shown one says it itself.
  workshop_->replaced = [this](ScintillaDocument& document, std::size_t before) {
    if (&document != document_.get()) tellEdit(document, {0, before, document.text()});
  };
  applyLook();
}

CodeView::~CodeView() {
  if (IsWindow(parent_) != 0) unwatch(parent_);
  workshop_->setShown(0, sci_);
  document_.reset();
  workshop_->replaced = nullptr;
  workshop_.reset();
  if (IsWindow(hwnd()) != 0) {
    unwatch(hwnd());
    undoDrops(hwnd());
    DestroyWindow(hwnd());
  }
}

void CodeView::place(HWND parent, int id) {
  unwatch(parent_);
  parent_ = parent;
  watch(parent_);
  SetParent(hwnd(), parent);
  SetWindowLongPtrW(hwnd(), GWLP_ID, id);
  sci_.call(SCI_SETIDENTIFIER, static_cast<uptr_t>(id));
  name_ = setAccessibleName(hwnd(), L"კოდი", GetParent(name_) == parent_ ? name_ : nullptr);
  // Its own target would turn what is dropped into bytes by the system's code page.
  takeDrops(hwnd(), {[this](const std::vector<std::string>& paths) {
                       if (filesDropped) filesDropped(paths);
                     },
                     [this](const ui::TextClip& clip, POINT screen) { dropClip(clip, screen); }});
}

void CodeView::setBounds(const RECT& bounds) {
  SetWindowPos(hwnd(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
               bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Documents ----------------------------------------------------------------------------------------------

std::shared_ptr<ui::CodeDocument> CodeView::makeDocument(std::string_view text) {
  return std::make_shared<ScintillaDocument>(workshop_, workshop_->make(text));
}

void CodeView::keepPlace() const {
  document_->place = {
      sci_.call(SCI_GETANCHOR), sci_.call(SCI_GETCURRENTPOS),
      sci_.call(SCI_DOCLINEFROMVISIBLE, static_cast<uptr_t>(sci_.call(SCI_GETFIRSTVISIBLELINE))),
      sci_.call(SCI_GETXOFFSET)};
}

void CodeView::restorePlace() const {
  const ScintillaDocument::Place& place = document_->place;
  const sptr_t size = sci_.length();  // it may have become shorter while it was not shown
  sci_.call(SCI_SETSELECTION, static_cast<uptr_t>(std::min(place.caret, size)), std::min(place.anchor, size));
  sci_.call(SCI_SETFIRSTVISIBLELINE,
            static_cast<uptr_t>(sci_.call(SCI_VISIBLEFROMDOCLINE, static_cast<uptr_t>(place.topLine))));
  sci_.call(SCI_SETXOFFSET, static_cast<uptr_t>(place.left));
}

void CodeView::show(const std::shared_ptr<ui::CodeDocument>& document) {
  auto next = std::dynamic_pointer_cast<ScintillaDocument>(document);
  if (!next) throw base::Error(base::ErrorNumber::InvalidCall, "not a document of this view");
  if (next == document_) return;
  if (document_) {
    keepPlace();
    if (coloured_) resetColours();
  }
  document_ = next;
  {
    const Edits edits(*this);
    sci_.call(SCI_SETSCROLLWIDTH, 1);
    sci_.call(SCI_SETDOCPOINTER, 0, document_->handle());
    workshop_->setShown(document_->handle(), sci_);
    changedInside_ = true;
  }
  lastTypedEnd_ = -1;
  applyLanguage();
  applyMargin();
  restorePlace();
  finishEdits();
  selectionChanged();
}

void CodeView::setView(ui::TextView view) {
  if (view == document_->view) return;
  document_->view = view;
  keepPlace();
  applyFont();
  restorePlace();
  selectionChanged();
}

// Text ---------------------------------------------------------------------------------------------------

void CodeView::tellEdit(ui::CodeDocument& document, const ui::TextEdit& edit) {
  ++document.edits;
  edited(document, edit);
}

void CodeView::finishEdits() {
  if (edits_ > 0) return;
  const bool textChanged = std::exchange(changedInside_, false);
  const bool formChanged = std::exchange(reformedInside_, false);
  if (formChanged) sci_.followLineEnds();
  if (textChanged) changed();
  if (formChanged) reformed();
}

void CodeView::setText(std::string_view text, int caret) {
  const sptr_t line = sci_.call(SCI_LINEFROMPOSITION, static_cast<uptr_t>(sci_.call(SCI_GETCURRENTPOS)));
  const sptr_t column =
      sci_.call(SCI_GETCURRENTPOS) - sci_.call(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
  keepPlace();
  step([&] {
    if (sci_.replaceAll(text) == Scintilla::Replaced::Broken) throwTooLong();
  });
  sptr_t at = caret;
  if (caret < 0) {
    const sptr_t newLine = std::min(line, sci_.call(SCI_GETLINECOUNT) - 1);
    at = std::min(sci_.call(SCI_POSITIONFROMLINE, static_cast<uptr_t>(newLine)) + column,
                  sci_.call(SCI_GETLINEENDPOSITION, static_cast<uptr_t>(newLine)));
  }
  document_->place.anchor = document_->place.caret = at;
  restorePlace();
  selectionChanged();
}

void CodeView::step(const std::function<void()>& edits) {
  const bool before = std::exchange(changedInside_, false);
  {
    const Edits inside(*this);
    sci_.call(SCI_BEGINUNDOACTION);
    try {
      edits();
    } catch (...) {
      sci_.call(SCI_ENDUNDOACTION);
      if (edits_ == 1 && changedInside_) sci_.call(SCI_UNDO);
      changedInside_ = changedInside_ || before;
      throw;
    }
    if (changedInside_) {
      sci_.call(SCI_ADDUNDOACTION, kStepMark, UNDO_NONE);
      reformedInside_ = true;
    }
    sci_.call(SCI_ENDUNDOACTION);
    changedInside_ = changedInside_ || before;
    lastTypedEnd_ = -1;
  }
  finishEdits();
}

void CodeView::travel(unsigned message) {
  {
    const Edits inside(*this);
    sci_.call(message);
    lastTypedEnd_ = -1;
  }
  finishEdits();
  selectionChanged();
}

void CodeView::select(int start, int length) {
  const sptr_t size = sci_.length();
  const sptr_t from = std::clamp<sptr_t>(start, 0, size);
  const sptr_t to = std::clamp<sptr_t>(from + std::max(length, 0), from, size);
  sci_.call(SCI_SETSEL, static_cast<uptr_t>(from), to);
  sci_.call(SCI_SCROLLRANGE, static_cast<uptr_t>(from), to);
  sci_.call(SCI_CHOOSECARETX);
  selectionChanged();
}

std::string CodeView::selText() const {
  return document_->piece(static_cast<std::size_t>(selStart()), static_cast<std::size_t>(selLength()));
}

std::optional<ui::ScreenArea> CodeView::selectionOnScreen() const {
  const auto pointOf = [this](int at) {
    return POINT{static_cast<LONG>(sci_.call(SCI_POINTXFROMPOSITION, 0, at)),
                 static_cast<LONG>(sci_.call(SCI_POINTYFROMPOSITION, 0, at))};
  };
  const POINT from = pointOf(selStart());
  const POINT to = pointOf(selStart() + selLength());
  const auto line = static_cast<LONG>(sci_.call(SCI_TEXTHEIGHT));
  RECT view;
  GetClientRect(hwnd(), &view);
  RECT area{from.x, from.y, to.x, to.y + line};
  if (from.y != to.y) area = {view.left, from.y, view.right, to.y + line};
  if (!IntersectRect(&area, &area, &view)) return std::nullopt;
  MapWindowPoints(hwnd(), nullptr, reinterpret_cast<POINT*>(&area), 2);
  return ui::ScreenArea{area.left, area.top, area.right, area.bottom};
}

void CodeView::replaceSelection(std::string_view text) {
  const sptr_t start = selStart();
  const auto size = static_cast<sptr_t>(text.size());
  bool broken = false;
  {
    const Edits inside(*this);
    {
      const UndoGroup group(sci_);
      broken = sci_.exchange(start, start + selLength(), text) == Scintilla::Replaced::Broken;
    }
    if (broken && edits_ == 1) sci_.call(SCI_UNDO);  // else the step() around it is undone
    const sptr_t end = broken ? start : start + size;
    sci_.call(SCI_SETSEL, static_cast<uptr_t>(end), end);
    sci_.call(SCI_SCROLLCARET);
    lastTypedEnd_ = -1;
  }
  finishEdits();
  selectionChanged();
  if (broken) throwTooLong();
}

ui::CaretPlace CodeView::caret() const {
  const sptr_t at = sci_.call(SCI_GETSELECTIONEND);
  const sptr_t line = sci_.call(SCI_LINEFROMPOSITION, static_cast<uptr_t>(at));
  const sptr_t start = sci_.call(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
  const sptr_t letters =
      isUtf8() ? sci_.call(SCI_COUNTCHARACTERS, static_cast<uptr_t>(start), at) : at - start;
  return {static_cast<int>(line) + 1, static_cast<int>(letters) + 1};
}

}  // namespace win32
