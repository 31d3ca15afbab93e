#include "editor/insertion.h"

#include <string>

#include "base/line_ends.h"
#include "base/text.h"

namespace editor {
namespace {

constexpr std::string_view kMark = "^!";

}  // namespace

void insert(ui::CodeView& T1, const Insertion& what) {
  const int start = T1.selStart();
  const int length = T1.selLength();
  const std::string before =
      base::withLineEndsOf(T1.text(), what.open.substr(0, static_cast<std::size_t>(what.k)));
  const std::string open = base::withLineEndsOf(T1.text(), what.open);
  const int k = static_cast<int>(before.size());
  if (what.placing == Placing::Wrap) {
    T1.replaceSelection(open + T1.selText() + base::withLineEndsOf(T1.text(), what.close));
    T1.select(start + k, length);
    return;
  }
  T1.replaceSelection(open);
  if (what.placing == Placing::Block) T1.select(start + k, 0);
}

void insertCode(ui::CodeView& T1, std::string_view stored) {
  if (stored.empty()) return;
  const std::string code = base::withLineEndsOf(T1.text(), stored);
  const std::size_t mark = code.find(kMark);
  const int start = T1.selStart();
  const int length = T1.selLength();
  T1.replaceSelection(base::replaceAll(code, kMark, T1.selText()));
  if (mark != std::string_view::npos) T1.select(start + static_cast<int>(mark), length);
}

}  // namespace editor
