#include "search/old_texts.h"

namespace search {

void OldTexts::documentRemoved(int document) {
  std::erase_if(entries_, [document](const Entry& entry) { return entry.document == document; });
  for (Entry& entry : entries_) {
    if (entry.document > document) --entry.document;
  }
}

}  // namespace search
