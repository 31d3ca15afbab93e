// The text of a record: plain bytes until it is first shown or changed, then a document of the code view with
// its own history.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ui/code_view.h"

namespace app {

class DocumentText {
 public:
  DocumentText() = default;
  DocumentText(std::string text) : text_(std::move(text)) {}  // NOLINT: a text is a text
  DocumentText(std::string_view text) : text_(text) {}        // NOLINT
  DocumentText(const char* text) : text_(text) {}             // NOLINT
  DocumentText(std::shared_ptr<ui::CodeDocument> document)    // NOLINT
      : document_(std::move(document)) {}

  // Valid until the text changes.
  std::string_view view() const { return document_ ? document_->text() : std::string_view(text_); }
  operator std::string_view() const { return view(); }  // NOLINT
  bool empty() const { return view().empty(); }

  // Null while it is plain bytes.
  const std::shared_ptr<ui::CodeDocument>& document() const { return document_; }

  // The document, made of the bytes the first time. Throws base::Error(OutOfMemory).
  const std::shared_ptr<ui::CodeDocument>& in(ui::CodeView& codeView) {
    if (!document_) {
      document_ = codeView.makeDocument(text_);
      text_.clear();
      text_.shrink_to_fit();
    }
    return document_;
  }

  friend bool operator==(const DocumentText& a, std::string_view b) { return a.view() == b; }

 private:
  std::string text_;
  std::shared_ptr<ui::CodeDocument> document_;
};

}  // namespace app
