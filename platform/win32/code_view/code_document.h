// A document of the code view, and the hidden control that reads and changes documents which are not shown.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/win32/code_view/scintilla.h"
#include "platform/win32/system/handles.h"
#include "ui/code_view.h"

namespace win32 {

class ScintillaDocument;

class Workshop {
 public:
  explicit Workshop(HWND parent);
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  ~Workshop();

  // The control with the document in it, until put(0).
  const Scintilla& with(sptr_t document);
  // The control that shows the document, or the hidden one with it in: to put a large one in takes a while.
  const Scintilla& reading(sptr_t document) { return document == shown_ ? *shownIn_ : with(document); }
  void setShown(sptr_t document, const Scintilla& control) {
    shown_ = document;
    shownIn_ = &control;
  }
  // A new document, owned by the caller once; throws base::Error(OutOfMemory).
  sptr_t make(std::string_view text);
  void release(sptr_t document);

  // A document was given another text, from here; of the bytes that it had before.
  std::function<void(ScintillaDocument& document, std::size_t before)> replaced;

 private:
  UniqueWindow window_;
  Scintilla control_;
  sptr_t own_ = 0;  // the empty document it began with
  sptr_t in_ = 0;
  sptr_t shown_ = 0;
  const Scintilla* shownIn_ = nullptr;
};

class ScintillaDocument final : public ui::CodeDocument {
 public:
  // Takes over the reference to `handle`.
  ScintillaDocument(std::shared_ptr<Workshop> workshop, sptr_t handle)
      : workshop_(std::move(workshop)), handle_(handle) {}
  ~ScintillaDocument() override { workshop_->release(handle_); }

  std::string_view text() const override { return workshop_->reading(handle_).text(); }
  void setText(std::string_view text) override;
  std::size_t size() const override { return static_cast<std::size_t>(workshop_->reading(handle_).length()); }
  std::string piece(std::size_t start, std::size_t length) const override;

  sptr_t handle() const { return handle_; }

  // Kept while it is not shown.
  struct Place {
    sptr_t anchor = 0;
    sptr_t caret = 0;
    sptr_t topLine = 0;  // of the document, not of the window
    sptr_t left = 0;     // pixels
  };
  Place place;

 private:
  std::shared_ptr<Workshop> workshop_;
  sptr_t handle_;
};

}  // namespace win32
