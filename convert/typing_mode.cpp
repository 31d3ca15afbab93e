#include "convert/typing_mode.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "app/menu_names.h"
#include "base/cp1252.h"
#include "base/utf8.h"
#include "convert/frmrusaso.h"
#include "convert/russian.h"
#include "resources/ids.h"

namespace convert {
namespace {

using namespace ui::literals;

constexpr int kCtrlB = 2;
constexpr int kCtrlY = 25;
constexpr char32_t kFirstLetter = 0x10D0;

struct ModeRow {
  TypingMode mode;
  int id;
  const char* name;
  ui::Text caption;
  ui::CharacterSet characterSet;
  const char* font;  // where the settings name none
  const char* help;
};

const std::array<ModeRow, 4>& modes() {
  static const std::array<ModeRow, 4> all = {{
      {TypingMode::Russian, mnuens0, "mnuens0", "ÒÖÓÖËÉ"_legacy, ui::CharacterSet::Russian, "Zervo RUS",
       "ლათინური კლავიშები რუსულ ასოებს ბეჭდავს"},
      {TypingMode::GeorgianISO, mnuens1, "mnuens1", "ØÀÒÈÖËÉ ISO"_legacy, ui::CharacterSet::Ansi, "Zervo ISO",
       "ლათინური კლავიშები ქართულ ასოებს ბეჭდავს ძველი შრიფტის კოდებით"},
      {TypingMode::GeorgianASCII, mnuens2, "mnuens2", "ØÀÒÈÖËÉ ASCII"_legacy, ui::CharacterSet::Ansi,
       "Zervo ASCII", "ლათინური კოდები, ქართულად ნაჩვენები"},
      {TypingMode::Latin, mnuens3, "mnuens3", "ËÀÈÉÍÖÒÉ"_legacy, ui::CharacterSet::Ansi, "Zervo ISO",
       "აკრეფილი ასოები უცვლელად შედის"},
  }};
  return all;
}

const ModeRow& rowOf(TypingMode mode) {
  return modes()[static_cast<std::size_t>(mode)];
}

// The letter's form in the mode, if it has one. The last letter's zero bytes are not part of it.
std::optional<char> letterByte(char32_t character, TypingMode mode, const LetterTables& tables) {
  if (mode == TypingMode::Russian) {
    const auto byte = cyrillicByte(character);
    return byte ? std::optional(static_cast<char>(*byte)) : std::nullopt;
  }
  if (mode == TypingMode::Latin || character < kFirstLetter) return std::nullopt;
  const Table& letters = mode == TypingMode::GeorgianISO ? tables.QARTULI_FONTCODES : tables.GRIGOLIA;
  const auto place = static_cast<std::size_t>(character - kFirstLetter);
  return place < letters.size() ? std::optional(letters[place][0]) : std::nullopt;
}

}  // namespace

int typedKey(int key, TypingMode mode, const LetterTables& tables) {
  if (key <= 0 || key > 0xFF) return key;
  const char typed = static_cast<char>(key);
  if (mode == TypingMode::Russian) {
    const std::size_t place = kRussianKeys.find(typed);
    return place == std::string_view::npos ? key : static_cast<std::uint8_t>(kRussianKeyBytes[place]);
  }
  if (mode != TypingMode::GeorgianISO) return key;
  // Whole entries only: the last letter's entry is longer than a key.
  const auto entry = std::ranges::find(tables.GRIGOLIA, std::string(1, typed));
  if (entry == tables.GRIGOLIA.end()) return key;
  const auto place = static_cast<std::size_t>(entry - tables.GRIGOLIA.begin());
  return static_cast<std::uint8_t>(tables.QARTULI_FONTCODES[place][0]);
}

std::string typedText(std::string_view utf8, TypingMode mode, const LetterTables& tables) {
  std::string bytes;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t before = at;
    const auto character = base::nextUtf8(utf8, at);
    if (!character) {
      bytes += utf8[at++];
    } else if (const auto letter = letterByte(*character, mode, tables)) {
      bytes += *letter;
    } else if (const auto byte = base::byteOfChar(*character)) {
      bytes += static_cast<char>(*byte);
    } else {
      bytes += utf8.substr(before, at - before);
    }
  }
  return bytes;
}

Typing::Typing(app::Workbench& bench, const LetterTables& tables) : bench_(bench), tables_(tables) {
  std::vector<app::Command> commands;
  app::MenuPlan plan{app::kTypingMenu, {}};
  for (const ModeRow& row : modes()) {
    app::Command command{row.id, row.name, row.caption, {}, [this, mode = row.mode] { choose(mode); }};
    command.checked = [this, mode = row.mode] { return mode_ == mode; };
    command.help = row.help;
    command.radio = true;
    commands.push_back(std::move(command));
    plan.lines.push_back({row.id, {}, {}});
  }
  app::Command letters{mnurusaso, "mnurusaso", "|86|ÒÖÓÖËÉ ÀÓÏÄÁÉ"_legacy, {}, [this] {
                         frmrusaso form;
                         bench_.platform().showModal(form);
                       }};
  letters.help = "რუსული ასოების განლაგება კლავიატურაზე";
  commands.push_back(std::move(letters));
  plan.lines.push_back({0, {}, {}});
  plan.lines.push_back({mnurusaso, {}, {}});
  bench.addCommands(std::move(commands));
  bench.addMenu(plan);

  bench.propsInForce.connect([this] { followProps(); });
  bench.keyFilters.emplace_back([this](int key) {
    try {
      return keyPress(key);
    } catch (...) {
      return key;  // a key that cannot be exchanged still types
    }
  });
  bench.codeView().unicodeTyped = [this](const std::string& utf8) { return typedText(utf8, mode_, tables_); };
  showMode();
}

void Typing::choose(TypingMode mode) {
  mode_ = mode;
  chosen_ = true;
  showFont();
  showMode();
}

void Typing::followProps() {
  const int number = bench_.props().TypingModeAtStart;
  if (!std::exchange(started_, true) && number > 0 && number <= static_cast<int>(modes().size())) {
    choose(static_cast<TypingMode>(number - 1));
  } else if (chosen_) {
    showFont();
  }
}

void Typing::showFont() {
  const app::PropsRecord& props = bench_.props();
  const ModeRow& row = rowOf(mode_);
  const std::string& name = props.TypingFontName[static_cast<std::size_t>(mode_)];
  bench_.codeView().setFont({name.empty() ? row.font : name, props.EditorFontSize, props.EditorFontBold,
                             props.EditorFontItalic, row.characterSet});
}

void Typing::showMode() {
  bench_.setPanel("kMode", rowOf(mode_).caption);
}

int Typing::keyPress(int key) {
  if (key == kCtrlB) {
    bench_.codeView().replaceSelection("<BR>");
  } else if (key == kCtrlY) {
    bench_.codeView().replaceSelection(bench_.props().NoBreakSpaceAsReference ? "&nbsp;" : "\xC2\xA0");
  } else {
    return typedKey(key, mode_, tables_);
  }
  return key;
}

}  // namespace convert
