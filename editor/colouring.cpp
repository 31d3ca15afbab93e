#include "editor/colouring.h"

#include "app/mdlsaerto.h"
#include "editor/colour_rtf.h"
#include "ui/menu.h"

namespace editor {
namespace {

constexpr int kKeyF12 = ui::kKeyF1 + 11;

class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  ~Flag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

Colouring::Colouring(app::Workbench& bench) : bench_(bench) {
  bench.keyDown.connect([this](int key) { T1_KeyDown(key); });
  bench.keyUp.connect([this](int key) { T1_KeyUp(key); });
  bench.textChanged.connect([this] { T1_Change(); });
}

void Colouring::ToggleColouring() {
  if (busy) return;
  const Flag rewriting(busy);
  if (coloured) {
    // Only the looks go back; the text never left.
    bench_.codeView().resetFormats();
    coloured = false;
  } else {
    const ui::Hourglass hourglass(bench_.platform());
    colour();
  }
}

void Colouring::colour() {
  ui::CodeView& T1 = bench_.codeView();
  const int start = T1.selStart();
  const int length = T1.selLength();
  const int top = T1.scrollTop();
  const std::string text = T1.text();
  T1.setRtf(editor::coloured(T1.rtf()));
  coloured = true;
  if (T1.text() != text) {
    // A control that reads RTF in its own way must not cost the user a letter.
    T1.setText(text);
    T1.resetFormats();
    coloured = false;
  }
  if (T1.selStart() != start || T1.selLength() != length) T1.select(start, length);
  T1.setScrollTop(top);
}

void Colouring::T1_KeyDown(int) {
  if (coloured) ToggleColouring();
}

void Colouring::T1_KeyUp(int key) {
  if (key == kKeyF12) app::guarded(bench_.platform(), [this] { ToggleColouring(); });
}

// Commands from a menu, and other documents, come without a key.
void Colouring::T1_Change() {
  if (coloured) ToggleColouring();
}

}  // namespace editor
