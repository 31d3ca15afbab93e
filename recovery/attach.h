// Recovery in the main window: what differs from its file is kept while the user works, and offered after an
// end that was not orderly.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "recovery/folder.h"
#include "recovery/journal.h"
#include "recovery/writer.h"

namespace recovery {

class Recovery {
 public:
  explicit Recovery(app::Workbench& bench);
  // Without `closing` of the main window before: all stays on the disk, as after the program's death.
  ~Recovery();
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  // Once the main window is there and what the command line names is open. `plain`: it names nothing.
  void start(bool plain);
  void finish();  // waits until all that differs is on the disk

 private:
  struct Copy {
    std::string path;  // of its file; empty: not begun
    Journal journal;
  };
  // A text that differs from its file. A fresh copy is made of it when the changes have become many.
  struct Kept {
    Copy now;
    std::optional<Copy> fresh;
    std::int64_t toldTime = 0;
  };

  void begin();
  void T1_Edited(const ui::CodeDocument& document, const ui::TextEdit& edit);
  int background();  // copies a piece of one text
  void copyPiece(const ui::CodeDocument& document, std::int16_t index, Kept& kept, Copy& copy);
  void sync();              // who is to be kept, and the list of documents
  void notKept(int error);  // of <cerrno>
  void closing();
  void drop(Kept& kept);
  void offer();
  void offerSession();
  void takeBack(const Documents& documents, const std::vector<const KeptText*>& texts);
  app::Ithem* takeBack(const Place& place, const KeptText* text);
  void arrange(const std::vector<app::Ithem*>& wanted);
  Documents documentsNow();
  Place placeOf(std::int16_t index);
  std::string sessionFile() const;
  // Position of the open document with that number and the document itself.
  std::pair<std::int16_t, std::shared_ptr<ui::CodeDocument>> find(std::uint64_t number);

  app::Workbench& bench_;
  std::string folder_;  // empty: there can be none
  std::optional<Run> run_;
  std::unique_ptr<Writer> writer_;
  std::map<std::uint64_t, Kept> kept_;  // by number of the document
  std::optional<Documents> written_;
  std::size_t listSize_ = 0;  // bytes
};

std::unique_ptr<Recovery> attach(app::Workbench& bench);

}  // namespace recovery
