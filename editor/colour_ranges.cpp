#include "editor/colour_ranges.h"

#include <array>
#include <cstdint>

namespace editor {
namespace {

constexpr std::uint8_t kBlack = 0, kBlue = 1, kRed = 2, kGreen = 3;

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

std::vector<ui::ColourRange> coloured(std::string_view text) {
  std::vector<ui::ColourRange> ranges;
  std::uint8_t colour = kBlack;
  std::size_t from = 0;
  const auto become = [&](std::uint8_t next, std::size_t at) {
    if (colour != kBlack && at > from) {
      ranges.push_back({static_cast<int>(from), static_cast<int>(at - from), colour});
    }
    colour = next;
    from = at;
  };
  for (std::size_t at = text.find_first_of(" <>"); at < text.size(); at = text.find_first_of(" <>", at)) {
    if (text[at] == '<') {
      const std::string_view behind = text.substr(at + 1, 3);
      become(behind.starts_with("--") || behind == "!--" ? kGreen : kBlue, at);
      ++at;
    } else if (text[at] == '>') {
      // A "-->" is never found: by its turn codes stand before the ">".
      become(kBlue, at);
      become(kBlack, ++at);
    } else if (const int number = attributeAt(text.substr(at + 1)); number != kNone) {
      become(kRed, at);
      at += kAttributes[static_cast<std::size_t>(number)].size() + 2;
      become(kBlack, at);
    } else {
      ++at;
    }
  }
  become(kBlack, text.size());
  return ranges;
}

}  // namespace editor
