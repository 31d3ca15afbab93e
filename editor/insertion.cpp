#include "editor/insertion.h"

#include <string>

#include "base/text.h"

namespace editor {
namespace {

constexpr std::string_view kMark = "^!";

}  // namespace

void insert(ui::CodeView& T1, const Insertion& what) {
  const int start = T1.selStart();
  const int length = T1.selLength();
  if (what.placing == Placing::Wrap) {
    T1.replaceSelection(std::string(what.open) + T1.selText() + std::string(what.close));
    T1.select(start + what.k, length);
    return;
  }
  T1.replaceSelection(what.open);
  if (what.placing == Placing::Block) T1.select(start + what.k, 0);
}

void insertCode(ui::CodeView& T1, std::string_view code) {
  if (code.empty()) return;
  const std::size_t mark = code.find(kMark);
  const int start = T1.selStart();
  const int length = T1.selLength();
  T1.replaceSelection(base::replaceAll(code, kMark, T1.selText()));
  if (mark != std::string_view::npos) T1.select(start + static_cast<int>(mark), length);
}

}  // namespace editor
