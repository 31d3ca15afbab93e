#include "platform/win32/code_view/code_document.h"

#include "base/error.h"
#include "platform/win32/code_view/memory_room.h"

namespace win32 {
Workshop::Workshop(HWND parent) : control_(WS_CHILD, 0, parent, 0) {
  window_ = UniqueWindow(control_.hwnd());
  control_.call(SCI_SETMODEVENTMASK, SC_MOD_NONE);
  own_ = in_ = control_.call(SCI_GETDOCPOINTER);
  control_.call(SCI_ADDREFDOCUMENT, 0, own_);
}

Workshop::~Workshop() {
  control_.call(SCI_RELEASEDOCUMENT, 0, own_);
}

const Scintilla& Workshop::with(sptr_t document) {
  if (in_ != document) control_.call(SCI_SETDOCPOINTER, 0, document);
  in_ = document;
  return control_;
}

sptr_t Workshop::make(std::string_view text) {
  if (!roomForDocument(text.size())) throwTooLong();
  control_.call(SCI_SETSTATUS, SC_STATUS_OK);
  const sptr_t made = control_.call(SCI_CREATEDOCUMENT, text.size() + 1, SC_DOCUMENTOPTION_DEFAULT);
  if (made == 0) throwTooLong();
  with(made);
  control_.call(SCI_SETCODEPAGE, 0);
  control_.call(SCI_SETUNDOCOLLECTION, 0);
  control_.call(SCI_APPENDTEXT, text.size(), text.data());
  control_.call(SCI_SETUNDOCOLLECTION, 1);
  control_.call(SCI_EMPTYUNDOBUFFER);
  control_.call(SCI_SETSTATUS, SC_STATUS_OK);
  if (control_.length() != static_cast<sptr_t>(text.size())) {
    release(made);
    throwTooLong();
  }
  control_.followLineEnds();
  return made;
}

void Workshop::release(sptr_t document) {
  with(own_);
  control_.call(SCI_RELEASEDOCUMENT, 0, document);
}

std::string ScintillaDocument::piece(std::size_t start, std::size_t length) const {
  const sptr_t bytes =
      workshop_->reading(handle_).call(SCI_GETRANGEPOINTER, start, static_cast<sptr_t>(length));
  return {reinterpret_cast<const char*>(bytes), length};
}

void ScintillaDocument::setText(std::string_view text) {
  const Scintilla& control = workshop_->with(handle_);
  const auto before = static_cast<std::size_t>(control.length());
  Scintilla::Replaced result = Scintilla::Replaced::Nothing;
  {
    const UndoGroup group(control);
    result = control.replaceAll(text);
    if (result != Scintilla::Replaced::Nothing) control.call(SCI_ADDUNDOACTION, kStepMark, UNDO_NONE);
  }
  if (result == Scintilla::Replaced::Broken) {
    control.call(SCI_UNDO);
    throwTooLong();
  }
  control.followLineEnds();
  if (result == Scintilla::Replaced::Done && workshop_->replaced) workshop_->replaced(*this, before);
}

}  // namespace win32
