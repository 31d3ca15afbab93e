// Replacing: one hit, all hits of a document or of all documents, and taking the last back.
#include <algorithm>

#include "app/mdlsaerto.h"
#include "app/progress.h"
#include "base/scoped_flag.h"
#include "search/frmsuch.h"

namespace search {

using namespace ui::literals;

void frmsuch::Ccvla_Click() {
  if (busy_) return;
  if (T1_.selLength() > 0) {
    const std::int32_t start = T1_.selStart();
    const std::int32_t end = start + T1_.selLength();
    const std::string replacement = searched(Tcvla.text(), T1_.text());
    const auto size = static_cast<std::int32_t>(replacement.size());
    T1_.replaceSelection(replacement);
    T1_.select(start, size);
    for (std::int32_t* place : {&caretStart, &selectionEnd, &nextPos}) {
      if (*place >= end) *place += start + size - end;
    }
    sizeAtStep_ = T1_.text().size();
  }
  findNext();
}

// One hit is not replaced: there must be at least two.
void frmsuch::Calcvla_Click() {
  if (busy_) return;
  if (!Text1.text().empty()) remember();
  const base::ScopedFlag busy(busy_);
  if (scope != Scope::WholeText) takePlace();  // what is selected now is what changes
  suchen();
  const std::size_t found = stopped_ ? 0 : hits.size();
  hits.clear();
  List1.setItems({});
  nextPos = -1;
  if (found <= 1) {
    lbinf.setCaption("araferi ar Seicvala"_keyboard);
    return;
  }
  oldTexts_.clear();
  if (allFiles()) {
    replaceInAll();
  } else {
    replaceInShown();
  }
  lbinf.setCaption({std::to_string(found) + " Seicvala", ui::TextKind::Keyboard});
}

// The term itself, without the spaces of a whole word.
Pattern frmsuch::pattern(std::string_view document) {
  return {searched(Text1.text(), document), comparison()};
}

void frmsuch::replaceInShown() {
  const std::string_view text = T1_.text();
  setRange(text.size());
  auto result = replaceAll(text, pattern(text), searched(Tcvla.text(), text), range());
  if (!result) return;
  const auto partSize = static_cast<std::int32_t>(result->partSize);
  setText(bench_.shownIndex(), result->text);
  if (scope == Scope::Selection) {
    T1_.select(rangeStart, partSize);
    selectionEnd = rangeStart + partSize;
  }
}

void frmsuch::replaceInAll() {
  targets_ = targets();
  app::Progress progress(bench_.platform(), panel(), targets_.size());
  for (const int& target : targets_) {
    if (!progress.step("")) break;
    if (target == kGone) continue;  // closed during the step
    replaceIn(static_cast<std::int16_t>(target));
  }
  targets_.clear();
}

void frmsuch::replaceIn(std::int16_t document) {
  const std::string_view text = bench_.documentText(document);
  const Range whole{0, text.size()};
  auto result = replaceAll(text, pattern(text), searched(Tcvla.text(), text), whole);
  if (!result) return;
  OldTexts::Entry old{document, {}, true, OldTexts::hashOf(result->text)};
  old.text = text;
  if (document != bench_.shownIndex()) old.changed = bench_.documents().Item(document).Changed;
  setText(document, result->text);
  oldTexts_.keep(std::move(old));
}

void frmsuch::setText(std::int16_t document, std::string_view text) {
  const bool shown = document == bench_.shownIndex();
  const int start = T1_.selStart(), length = T1_.selLength();
  bench_.setDocumentText(document, text);
  if (shown) T1_.select(start, length);
}

void frmsuch::undoReplace() {
  if (busy_) return;
  std::size_t restored = 0;
  std::string kept;
  for (OldTexts::Entry& entry : oldTexts_.take()) {
    const auto document = static_cast<std::int16_t>(entry.document);
    const std::string_view text = bench_.documentText(document);
    if (text == entry.text) continue;  // undone already
    if (OldTexts::hashOf(text) != entry.newHash) {
      kept += bench_.documents().Item(document).FileTitle + "\r\n";
      oldTexts_.keep(std::move(entry));
      continue;
    }
    setText(document, entry.text);
    if (document != bench_.shownIndex()) bench_.documents().Item(document).Changed = entry.changed;
    ++restored;
  }
  bench_.setPanel("kMain", "ძველი ტექსტი დაუბრუნდა ფაილებს: " + std::to_string(restored));
  if (!kept.empty()) {
    app::messageBox(
        bench_.platform(),
        "ეს ფაილები შეცვლის შემდეგ კიდევ შეიცვალა და ისეთივე დარჩა, როგორიც ახლაა:\r\n\r\n" + kept,
        caption());
  }
}

}  // namespace search
