#include "editor/colour_rtf.h"

#include <array>
#include <cstdint>

#include "ui/plain_rtf.h"

namespace editor {
namespace {

constexpr std::string_view kColorTable =
    "{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green0\\blue0;"
    "\\red0\\green150\\blue50;}";
constexpr std::string_view kBlue = "\\f2\\fs20\\cf1 ";
constexpr std::string_view kRed = "\\f2\\fs20\\cf2 ";
constexpr std::string_view kGreen = "\\f2\\fs20\\cf3 ";
constexpr std::string_view kBlack = "\\plain\\f2\\fs20\\cf0 ";

// In list order. Each stands between a blank and "=".
constexpr std::array<std::string_view, 72> kAttributes = {
    "NAME",       "CONTENT",     "NORESIZE",  "SCROLLING", "WIDTH",  "HEIGHT",      "BGCOLOR",
    "LINK",       "ALINK",       "VLINK",     "FACE",      "SIZE",   "BORDER",      "CELLSPACING",
    "COLSPAN",    "NOSHADE",     "ALIGN",     "ROWSPAN",   "HREF",   "CODE",        "ROWS",
    "COLS",       "SHAPE",       "COORDS",    "ALT",       "SRC",    "CLASS",       "name",
    "content",    "noresize",    "scrolling", "width",     "height", "bgcolor",     "link",
    "alink",      "vlink",       "face",      "size",      "border", "cellspacing", "colspan",
    "noshade",    "align",       "rowspan",   "href",      "code",   "rows",        "cols",
    "shape",      "coords",      "alt",       "src",       "class",  "COLOR",       "color",
    "TEXT",       "TEXTAREA",    "TITLE",     "STYLE",     "TYPE",   "onclick",     "ONCLICK",
    "LANGUAGE",   "language",    "type",      "REL",       "rel",    "BACKGROUND",  "BGPROPERTIES",
    "background", "bgproperties"};
constexpr std::size_t kLongest = 12;
constexpr int kNone = -1;

// Names by a hash of length, first two letters and last letter; built once by the compiler, which also proves
// that no slot is wanted twice.
constexpr std::size_t kSlots = 4096;
constexpr std::size_t slotOf(std::string_view name) {
  const auto letter = [&](std::size_t at) { return std::size_t{static_cast<std::uint8_t>(name[at])}; };
  return (name.size() * 769 + letter(0) * 67 + letter(1) * 131 + letter(name.size() - 1) * 29) % kSlots;
}
constexpr std::array<std::int16_t, kSlots> makeSlots() {
  std::array<std::int16_t, kSlots> slots{};
  for (auto& slot : slots) slot = kNone;
  for (std::size_t i = 0; i < kAttributes.size(); ++i) {
    std::int16_t& slot = slots[slotOf(kAttributes[i])];
    if (slot != kNone) throw "two names in one slot";
    slot = static_cast<std::int16_t>(i);
  }
  return slots;
}
constexpr std::array<std::int16_t, kSlots> kSlotTable = makeSlots();

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Number of the attribute whose name and "=" begin the text.
int attributeAt(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size() && size <= kLongest && isLetter(text[size])) ++size;
  if (size < 3 || size == text.size() || text[size] != '=') return kNone;
  const std::string_view name = text.substr(0, size);
  const int number = kSlotTable[slotOf(name)];
  return number != kNone && kAttributes[static_cast<std::size_t>(number)] == name ? number : kNone;
}

}  // namespace

std::string coloured(std::string_view rtf) {
  std::string out;
  out.reserve(rtf.size() * 2);
  std::size_t done = 0;  // copied so far
  const auto copyTo = [&](std::size_t at) {
    out.append(rtf, done, at - done);
    done = at;
  };
  for (std::size_t at = 0; at < rtf.size(); ++at) {
    switch (rtf[at]) {
      case ' ': {
        int number = attributeAt(rtf.substr(at + 1));
        if (number == kNone) break;
        copyTo(at);
        while (true) {
          const std::string_view name = kAttributes[static_cast<std::size_t>(number)];
          out += kRed;
          out += ' ';
          out += name;
          out += '=';
          done = at + 1 + name.size() + 1;
          out += kBlack;
          // The blank that ends these codes makes an attribute of a name directly behind, but only for the
          // replacements still to come.
          const int next = attributeAt(rtf.substr(done));
          if (next <= number) break;
          out.pop_back();
          at = done - 1;
          number = next;
        }
        at = done - 1;
        break;
      }
      case '<': {
        const std::string_view behind = rtf.substr(at + 1, 3);
        copyTo(at);
        out += kBlue;
        if (behind.starts_with("--") || behind == "!--") out += kGreen;
        break;
      }
      case '>':
        // A "-->" is never found: by its turn these codes stand before the ">".
        copyTo(at);
        out += kBlue;
        out += '>';
        out += kBlack;
        done = at + 1;
        break;
      case '{':
        if (rtf.substr(at).starts_with(ui::kPlainColorTable)) {
          copyTo(at);
          out += kColorTable;
          done = at + ui::kPlainColorTable.size();
          at = done - 1;
        }
        break;
      default:
        break;
    }
  }
  copyTo(rtf.size());
  return out;
}

}  // namespace editor
