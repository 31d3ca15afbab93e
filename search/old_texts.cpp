#include "search/old_texts.h"

#include "base/moved_place.h"

namespace search {

void OldTexts::documentRemoved(int document) {
  std::erase_if(entries_, [document](const Entry& entry) { return entry.document == document; });
  for (Entry& entry : entries_) {
    if (entry.document > document) --entry.document;
  }
}

void OldTexts::documentMoved(int from, int to) {
  for (Entry& entry : entries_) entry.document = base::placeAfterMove(entry.document, from, to);
}

}  // namespace search
