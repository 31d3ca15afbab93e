// The open documents besides the shown one, and the state of the open web project.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "app/document_text.h"
#include "base/file_trace.h"
#include "ui/signal.h"

namespace app {

// `Value` of a picture in the list: its bytes never come into the code view.
inline constexpr const char* kImageValue = "<XXX>";

// One document. Texts are byte text, paths and titles UTF-8.
struct Ithem {
  DocumentText Value;      // the text
  std::int16_t Index = 0;  // set by AddNewIthem alone; not renumbered by removing or moving
  std::string Kay;
  std::string Tag;
  bool saved = false;    // has a file on disk
  bool Changed = false;  // has changes not yet in its file
  std::string filepath;
  std::int16_t PinListi = 0;
  std::string FileTitle;
  bool IsInWEB = false;  // belongs to the open web project
  std::uint8_t FrameSet = 0;
  std::int32_t SStart = 0;  // caret and selection, in bytes
  std::int32_t SLenth = 0;
  base::FileTrace file = {};  // the file as it was last read or written
};

class ColectionMain {
 public:
  bool WEBChanged = false;  // the project's list of files or start page changed since it was written
  bool WEBopened = false;
  std::string WEBpath;   // the project folder, ending in "\"
  std::string WEBtitle;  // the project file's name

  ui::Signal<> NewItem;
  // Position, and the new upper bound + 1 - but 1, not 0, when the list was emptied: no count of records.
  ui::Signal<std::int16_t, std::int16_t> ItemRemoved;
  ui::Signal<> ColectionDeleted;
  ui::Signal<> ColectionReaded;
  ui::Signal<> ColectionSaved;

  std::int16_t Count() const { return static_cast<std::int16_t>(items_.size()); }

  // The record at `index`; an empty slot is filled with a fresh record. Throws base::Error outside the list.
  // The reference stays good until the record is removed.
  Ithem& Item(std::int16_t index);

  // Negative `index` appends. Inserting moves only Value, Index, Kay and Tag of the records behind; all other
  // fields stay with their positions and are the caller's to set. An index above Count() throws base::Error.
  void AddNewIthem(const DocumentText& Value, std::int16_t Index, const std::string& Kay,
                   const std::string& Tag);
  void RemoveIthem(std::int16_t Index);                 // moves whole records; their Index stays as it was
  void MoveIthem(std::int16_t From, std::int16_t To);   // moves Value, Kay and Tag alone
  void moveRecord(std::int16_t from, std::int16_t to);  // moves all but Index, which stays with its position
  void Cler();

 private:
  std::deque<std::unique_ptr<Ithem>> items_;
};

}  // namespace app
