#include "editor/colouring.h"

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/scoped_flag.h"
#include "editor/colour_ranges.h"
#include "resources/ids.h"
#include "ui/menu.h"

namespace editor {
namespace {

constexpr int kKeyF12 = ui::kKeyF1 + 11;

}  // namespace

Colouring::Colouring(app::Workbench& bench) : bench_(bench) {
  bench.keyDown.connect([this](int key) { T1_KeyDown(key); });
  bench.keyUp.connect([this](int key) { T1_KeyUp(key); });
  bench.textChanged.connect([this] { T1_Change(); });

  bench.addCommands(
      {{.id = mnuColouring,
        .caption = "&ტეგების გაფერადება",
        .place = {&app::kViewMenu, 2},
        .shortcut = {kKeyF12, false, false, false},
        .run = [this] { ToggleColouring(); },
        .checked = [this] { return coloured; },
        .ownKey = true,  // it acts when it is released
        .help = "ტეგები, ატრიბუტები და კომენტარები ფერადდება; შემდეგი კლავიში უბრალო ტექსტს აბრუნებს"}});
}

void Colouring::ToggleColouring() {
  if (busy) return;
  const base::ScopedFlag rewriting(busy);
  ui::CodeView& T1 = bench_.codeView();
  if (coloured) {
    T1.resetColours();
    coloured = false;
  } else {
    const ui::Hourglass hourglass(bench_.platform());
    T1.showColours(editor::coloured(T1.text()));
    coloured = true;
  }
}

void Colouring::T1_KeyDown(int) {
  if (coloured) ToggleColouring();
}

void Colouring::T1_KeyUp(int key) {
  if (key == kKeyF12) ToggleColouring();
}

// Commands from a menu, and other documents, come without a key.
void Colouring::T1_Change() {
  if (coloured) ToggleColouring();
}

}  // namespace editor
