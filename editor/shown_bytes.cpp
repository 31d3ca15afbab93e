#include "editor/shown_bytes.h"

#include "base/cp1252.h"
#include "base/line_ends.h"
#include "base/text.h"
#include "base/utf8.h"

namespace editor {

std::string shownBytes(std::string_view bytes, const LettersOf& lettersOf) {
  std::string shown(bytes);
  if (lettersOf && !base::readsAsUtf8(bytes)) shown = lettersOf(shown);
  if (!base::isUtf8(shown)) shown = base::utf8FromBytes(bytes);
  shown = base::replaceAll(base::withLineEnds(shown, base::LineEnd::Lf), "\n", "↵");
  return base::replaceAll(shown, "\t", "→");
}

std::string typedBytes(const ui::CodeView& T1, const std::string& utf8) {
  std::string bytes;
  std::size_t at = 0;
  while (at < utf8.size()) {
    const std::size_t start = at;
    const auto character = base::nextUtf8(utf8, at);
    if (!character) ++at;
    bytes += character && T1.typed ? T1.typed(*character) : utf8.substr(start, at - start);
  }
  return bytes;
}

}  // namespace editor
