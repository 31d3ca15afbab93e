// The open documents: the list and the one that is shown, which has a record in the list once it was parked
// or opened beside others. It asks the user nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/document_list.h"
#include "ui/code_view.h"

namespace app {

// The name of an untitled document, by its place in the list.
std::string untitledName(std::int16_t index, std::string_view extension);

class Session {
 public:
  explicit Session(ui::CodeView& codeView) : codeView_(codeView) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  ColectionMain list;
  struct Shown {
    std::int16_t index = -1;  // its record; -1: none
    std::string path;         // empty: untitled
    bool changed = false;     // not yet in its file
    base::FileTrace file;     // of one without a record
  } shown;

  // In what follows -1 means the shown document, whether it has a record or not.
  bool isShown(std::int16_t index) const { return index < 0 || index == shown.index; }
  std::string_view text(std::int16_t index);  // valid until it changes
  // One step of the document's history; marks it changed.
  void setText(std::int16_t index, std::string_view text);
  std::string title(std::int16_t index);
  std::string path(std::int16_t index);
  bool changed(std::int16_t index);
  base::FileTrace& file(std::int16_t index);
  // The shown one when it has no record, then all that have text.
  std::vector<std::int16_t> texts();
  // As an object of the code view, which it is from the first time that it is shown or changed; else null.
  std::shared_ptr<ui::CodeDocument> document(std::int16_t index);

  // The record with that file; othersOf: those besides one.
  std::optional<std::int16_t> recordOf(const std::string& path);
  std::vector<std::int16_t> othersOf(const std::string& path, std::int16_t index);
  // The document with text that is at the position or behind it, or else the nearest before it; -1: none.
  int nearestText(int position);
  // Those with changes that would be lost; an empty one without a file is none.
  std::vector<std::int16_t> unsaved();

  std::int16_t append(const DocumentText& value, const std::string& path, const std::string& title);
  // The shown document into its record. One that has none gets one, if there is anything to keep.
  void park();
  // Moves a whole record; the shown document stays shown.
  void move(std::int16_t from, std::int16_t to);
  void remove(std::int16_t index);
  // Untitled documents are named by their positions, which may have changed. Pages that others refer to by a
  // name (frames) have no file yet either, and keep it.
  void nameUntitled();
  void markChanged(std::int16_t index);
  // The document is what its file holds, as the trace says.
  void saved(std::int16_t index, const std::string& path, const base::FileTrace& trace);

 private:
  ui::CodeView& codeView_;
};

}  // namespace app
