#include "editor/tag_palette.h"

#include <algorithm>
#include <array>

#include "editor/insertion.h"

namespace editor {
namespace {

enum Group : int { kStructure, kText, kLists, kTables, kForms, kFrames, kScript };

constexpr std::array<const char*, kPaletteGroups> kCaptions = {"სტრუქტურა", "ტექსტი",   "სიები",  "ცხრილები",
                                                               "ფორმები",   "ფრეიმები", "სკრიპტი"};

// In the order of the tag list; a name stands in one group.
const std::array<std::vector<std::string_view>, kPaletteGroups>& names() {
  static const std::array<std::vector<std::string_view>, kPaletteGroups> groups = {{
      {"<!--", "!DOCTYPE", "ADDRESS", "BASE", "BLOCKQUOTE", "BODY",  "BR",   "CENTER", "DIV",
       "H1",   "H2",       "H3",      "H4",   "H5",         "H6",    "HEAD", "HR",     "HTML",
       "LINK", "META",     "P",       "PRE",  "SPAN",       "STYLE", "TITLE"},
      {"A",     "ABBR",   "ACRONYM", "B",   "BASEFONT", "BDO", "BIG", "CITE", "CODE", "DEL",
       "DFN",   "EM",     "FONT",    "I",   "IMG",      "INS", "KBD", "Q",    "S",    "SAMP",
       "SMALL", "STRIKE", "STRONG",  "SUB", "SUP",      "TT",  "U",   "VAR"},
      {"DD", "DIR", "DL", "DT", "LI", "MENU", "OL", "UL"},
      {"CAPTION", "COL", "COLGROUP", "TABLE", "TBODY", "TD", "TFOOT", "TH", "THEAD", "TR"},
      {"BUTTON", "FIELDSET", "FORM", "INPUT", "ISINDEX", "LABEL", "LEGEND", "OPTGROUP", "OPTION", "SELECT",
       "TEXTAREA"},
      {"FRAME", "FRAMESET", "IFRAME", "NOFRAMES"},
      {"APPLET", "AREA", "MAP", "NOSCRIPT", "OBJECT", "PARAM", "SCRIPT"},
  }};
  return groups;
}

}  // namespace

int paletteGroupOf(std::string_view tagName) {
  for (int group = 0; group < kPaletteGroups; ++group) {
    const auto& known = names()[static_cast<std::size_t>(group)];
    if (std::find(known.begin(), known.end(), tagName) != known.end()) return group;
  }
  return kText;
}

TagPalette::TagPalette(app::Workbench& bench) : bench_(bench), groups_(kPaletteGroups) {
  for (TagEntry& entry : parseTagList(bench.platform().resource("HTMLKODS"))) {
    groups_[static_cast<std::size_t>(paletteGroupOf(entry.name))].push_back(std::move(entry));
  }
  const app::Palette palette = bench.palette();
  palette.groups.hint = "ტეგების ჯგუფები";
  palette.items.hint = "ტეგების პალიტრა";
  palette.items.draggable = true;
  std::vector<ui::TabStrip::Tab> tabs;
  for (const char* caption : kCaptions) tabs.push_back({caption});
  palette.groups.setTabs(std::move(tabs), 0);
  showGroup(0);
  palette.groups.chosen.connect([this](int group) { showGroup(group); });
  palette.items.doubleClicked.connect([this] { insertCodeOf(bench_.palette().items.selected()); });
  palette.items.droppedInText.connect([this](int row) { insertCodeOf(row); });
  palette.items.keyPressed = [this](const ui::Shortcut& key) { return keyPressed(key); };
}

void TagPalette::showGroup(int group) {
  std::vector<ui::Text> rows;
  for (const TagEntry& entry : groups_[static_cast<std::size_t>(group)]) rows.emplace_back(entry.name);
  ui::ListBox& items = bench_.palette().items;
  items.setItems(std::move(rows));
  items.setSelected(0);
}

// Left and right go from group to group, Enter inserts.
bool TagPalette::keyPressed(const ui::Shortcut& key) {
  if (key.ctrl || key.shift || key.alt) return false;
  ui::TabStrip& groups = bench_.palette().groups;
  if (key.key == ui::kKeyReturn) {
    insertCodeOf(bench_.palette().items.selected());
    return true;
  }
  const int step = key.key == ui::kKeyLeft ? -1 : key.key == ui::kKeyRight ? 1 : 0;
  if (step == 0) return false;
  groups.setSelected((groups.selected() + step + kPaletteGroups) % kPaletteGroups);
  showGroup(groups.selected());
  return true;
}

void TagPalette::insertCodeOf(int row) {
  const auto& entries = groups_[static_cast<std::size_t>(bench_.palette().groups.selected())];
  if (row < 0 || row >= static_cast<int>(entries.size())) return;
  bench_.perform([&] {
    insertCode(bench_.codeView(), pickedCode(entries[static_cast<std::size_t>(row)]));
    bench_.codeView().setFocus();
  });
}

}  // namespace editor
