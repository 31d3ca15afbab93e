#include "app/code_look.h"

#include "base/color.h"

namespace app {
namespace {

constexpr base::Color kDarkBack = 0x1E1E1E, kDarkText = 0xD4D4D4;
constexpr base::Color kLightBack = 0xFFFFFF, kLightText = 0x000000;

// By the weights of the three colours in the eye, from 0 to 255.
int brightness(base::Color color) {
  return (299 * base::red(color) + 587 * base::green(color) + 114 * base::blue(color)) / 1000;
}

}  // namespace

ui::CodeLook codeLook(const PropsRecord& props, bool systemIsDark) {
  ui::CodeLook look;
  look.wordWrap = props.WordWrap;
  look.lineNumbers = props.LineNumbers;
  look.currentLine = props.CurrentLine;
  look.whiteSpace = props.WhiteSpace;
  look.lineEnds = props.LineEnds;
  look.liveColours = props.LiveColours;
  // Both zero mean that none were ever chosen; black on black is nobody's choice.
  const bool chosen = props.EditorBackColor != 0 || props.EditorColorExtra != 0;
  if (props.Colours == ColourScheme::Own && chosen) {
    look.back = props.EditorBackColor;
    look.text = static_cast<base::Color>(props.EditorColorExtra);
    look.dark = brightness(look.back) < 128;
    return look;
  }
  look.dark = props.Colours == ColourScheme::Dark || (props.Colours == ColourScheme::System && systemIsDark);
  look.back = look.dark ? kDarkBack : kLightBack;
  look.text = look.dark ? kDarkText : kLightText;
  return look;
}

}  // namespace app
