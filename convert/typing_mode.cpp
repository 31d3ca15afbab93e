#include "convert/typing_mode.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/cp1252.h"
#include "base/font_names.h"
#include "base/line_ends.h"
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
  ui::Text caption;
  ui::CharacterSet characterSet;
  const char* font;  // where the settings name none
  const char* help;
};

const std::array<ModeRow, 4>& modes() {
  static const std::array<ModeRow, 4> all = {{
      {TypingMode::Russian, mnuens0, "ÒÖÓÖËÉ"_legacy, ui::CharacterSet::Russian, base::kRussianFont,
       "ლათინური კლავიშები რუსულ ასოებს ბეჭდავს"},
      {TypingMode::GeorgianISO, mnuens1, "ØÀÒÈÖËÉ ISO"_legacy, ui::CharacterSet::Ansi, base::kIsoFont,
       "ლათინური კლავიშები ქართულ ასოებს ბეჭდავს ძველი შრიფტის კოდებით"},
      {TypingMode::GeorgianASCII, mnuens2, "ØÀÒÈÖËÉ ASCII"_legacy, ui::CharacterSet::Ansi, base::kAsciiFont,
       "ლათინური კოდები, ქართულად ნაჩვენები"},
      {TypingMode::Latin, mnuens3, "ËÀÈÉÍÖÒÉ"_legacy, ui::CharacterSet::Ansi, base::kIsoFont,
       "აკრეფილი ასოები უცვლელად შედის"},
  }};
  return all;
}

const ModeRow& rowOf(TypingMode mode) {
  return modes()[static_cast<std::size_t>(mode)];
}

// The four letters that left the alphabet (GEORGIAN-PS): no table has them, but the font draws them.
struct OldLetter {
  char32_t letter;
  std::uint8_t byte;
};
constexpr std::array<OldLetter, 4> kOldLetters = {
    {{0x10F1, 0xC7}, {0x10F2, 0xCE}, {0x10F3, 0xD5}, {0x10F4, 0xE2}}};

// The letter's form in the mode, if it has one. The last letter's zero bytes are not part of it.
std::optional<char> letterByte(char32_t character, TypingMode mode, const LetterTables& tables) {
  if (mode == TypingMode::Russian) {
    const auto byte = cyrillicByte(character);
    return byte ? std::optional(static_cast<char>(*byte)) : std::nullopt;
  }
  if (mode == TypingMode::Latin || character < kFirstLetter) return std::nullopt;
  const auto place = static_cast<std::size_t>(character - kFirstLetter);
  if (mode == TypingMode::GeorgianASCII) {
    return place < tables.GRIGOLIA.size() ? std::optional(tables.GRIGOLIA[place][0]) : std::nullopt;
  }
  if (place < tables.QARTULI_FONTCODES.size()) return tables.QARTULI_FONTCODES[place][0];
  for (const OldLetter& old : kOldLetters) {
    if (old.letter == character) return static_cast<char>(old.byte);
  }
  return std::nullopt;
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

std::size_t withoutByte(std::string_view utf8, TypingMode mode, const LetterTables& tables) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto character = base::nextUtf8(utf8, at);
    if (!character) {
      ++at;
    } else if (!letterByte(*character, mode, tables) && !base::byteOfChar(*character)) {
      ++count;
    }
  }
  return count;
}

std::string typedCharacter(char32_t character, ReadAs as, const LetterTables& tables) {
  std::string utf8;
  if (as.view == ui::TextView::EightBit) {
    const auto byte = base::byteOfChar(character);
    if (byte) return std::string(1, static_cast<char>(typedKey(*byte, as.mode, tables)));
    base::appendUtf8(utf8, character);
    return typedText(utf8, as.mode, tables);
  }
  const int key = character < 0x80 ? typedKey(static_cast<int>(character), as.mode, tables) : 0;
  if (key < 0x80) {
    base::appendUtf8(utf8, character);
    return utf8;
  }
  return shownLetters(std::string(1, static_cast<char>(key)), {ui::TextView::EightBit, as.mode});
}

std::string shownLetters(std::string_view bytes, ReadAs as) {
  if (as.view == ui::TextView::Utf8) return std::string(bytes);
  if (as.mode == TypingMode::GeorgianASCII) return ui::display({std::string(bytes), ui::TextKind::Keyboard});
  std::string letters;
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (as.mode == TypingMode::Russian) {
      base::appendUtf8(letters, russianLetter(byte).value_or(base::charOfByte(byte)));
      continue;
    }
    const auto* const old = std::ranges::find(kOldLetters, byte, &OldLetter::byte);
    if (old != kOldLetters.end()) {
      base::appendUtf8(letters, old->letter);
    } else if (byte < 0xC0) {
      base::appendUtf8(letters, base::charOfByte(byte));
    } else {
      letters += ui::display({std::string(1, c), ui::TextKind::Legacy});
    }
  }
  return letters;
}

std::optional<std::string> reencoded(std::string_view bytes, ReadAs from, ReadAs to,
                                     const LetterTables& tables) {
  if (from == to) return std::string(bytes);
  if (from.view == ui::TextView::EightBit && from.mode == TypingMode::GeorgianASCII) return std::nullopt;
  const std::string letters = shownLetters(bytes, from);
  if (!base::isUtf8(letters)) return std::nullopt;
  std::string made = to.view == ui::TextView::Utf8 ? letters : typedText(letters, to.mode, tables);
  if (shownLetters(made, to) != letters) return std::nullopt;
  return made;
}

ReadAs readAs(app::Workbench& bench) {
  ReadAs as{bench.codeView().view(), TypingMode::Latin};
  for (const ModeRow& row : modes()) {
    if (bench.commandChecked(row.id)) as.mode = row.mode;
  }
  return as;
}

Typing::Typing(app::Workbench& bench, const LetterTables& tables) : bench_(bench), tables_(tables) {
  std::vector<app::Command> commands;
  for (const ModeRow& row : modes()) {
    commands.push_back({.id = row.id,
                        .caption = row.caption,
                        .place = {&app::kTypingMenu, 1},
                        .shortcut = ui::ctrl(static_cast<char>('1' + static_cast<int>(row.mode))),
                        .run =
                            [this, mode = row.mode] {
                              lastChosen_ = mode;
                              choose(mode);
                            },
                        .checked = [this, mode = row.mode] { return mode_ == mode; },
                        .radio = true,
                        .help = row.help});
  }
  commands.push_back({.id = mnurusaso,
                      .icon = ui::MenuIcon::Keyboard,
                      .caption = "ÒÖÓÖËÉ ÀÓÏÄÁÉ"_legacy,
                      .place = {&app::kTypingMenu, 2},
                      .run =
                          [this] {
                            frmrusaso form;
                            bench_.platform().showModal(form);
                          },
                      .help = "რუსული ასოების განლაგება კლავიატურაზე"});
  // The keys act in the code view by themselves: with them come control codes, also from other programs.
  commands.push_back({.id = mnuBreak,
                      .caption = "სტრიქონის გაწყვეტა",
                      .place = {&app::kTypingMenu, 3},
                      .shortcut = ui::ctrl('B'),
                      .run = [this] { controlKey(kCtrlB); },
                      .ownKey = true,
                      .help = "წერს <BR>-ს მონიშნულის ადგილას"});
  commands.push_back({.id = mnuNoBreakSpace,
                      .caption = "უწყვეტი ჰარი",
                      .place = {&app::kTypingMenu, 3},
                      .shortcut = ui::ctrl('Y'),
                      .run = [this] { controlKey(kCtrlY); },
                      .ownKey = true,
                      .help = "წერს უწყვეტ ჰარს: ბაიტებად ან მითითებად, როგორც პარამეტრებშია"});
  bench.addCommands(std::move(commands));

  bench.propsInForce.connect([this] { followProps(); });
  bench.documentShown.connect([this] { followDocument(); });
  bench.typed = [this](char32_t character) { return typedCharacter(character, readAs(), tables_); };
  bench.controlTyped = [this](int code) { controlKey(code); };
  bench.entering = [this](const ui::TextClip& clip) { return entering(clip); };
  bench.clipOf = [this](std::string bytes) {
    std::string letters = shownLetters(bytes, readAs());
    const auto& document = *bench_.codeView().document();
    return ui::TextClip{std::move(bytes), std::move(letters), static_cast<int>(bench_.codeView().view()),
                        document.number};
  };
  showMode();
}

void Typing::choose(TypingMode mode) {
  mode_ = mode;
  chosen_ = true;
  bench_.codeView().document()->typingMode = static_cast<int>(mode);
  showFont();
  showMode();
}

// The mode is the document's; one that has none takes that of its letters, or else the last one chosen.
void Typing::followDocument() {
  ui::CodeDocument& document = *bench_.codeView().document();
  TypingMode wanted;
  if (document.typingMode >= 0) {
    wanted = static_cast<TypingMode>(document.typingMode);
  } else {
    const auto own = bench_.props().ModeOfPage ? modeOfText(document.text()) : std::nullopt;
    wanted = own.value_or(lastChosen_);
    if (own) chosen_ = true;
    document.typingMode = static_cast<int>(wanted);
  }
  if (wanted == mode_) return;
  mode_ = wanted;
  if (chosen_) showFont();
  showMode();
}

void Typing::followProps() {
  const int number = bench_.props().TypingModeAtStart;
  if (!std::exchange(started_, true) && number > 0 && number <= static_cast<int>(modes().size())) {
    lastChosen_ = static_cast<TypingMode>(number - 1);
    choose(lastChosen_);
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

void Typing::controlKey(int code) {
  ui::CodeView& view = bench_.codeView();
  if (code == kCtrlB) {
    view.replaceSelection("<BR>");
  } else if (code == kCtrlY) {
    view.replaceSelection(bench_.props().NoBreakSpaceAsReference ? "&nbsp;" : "\xC2\xA0");
  }
}

std::string Typing::entering(const ui::TextClip& clip) {
  ui::CodeView& view = bench_.codeView();
  const bool sameForm = !clip.bytes.empty() && clip.form == static_cast<int>(view.view());
  std::string bytes;
  if (sameForm) {
    if (clip.source == view.document()->number) return clip.bytes;  // not a byte is lost on the way
    bytes = clip.bytes;
  } else if (view.view() == ui::TextView::Utf8) {
    bytes = clip.letters;
  } else if (const std::size_t lost = withoutByte(clip.letters, mode_, tables_); lost > 0) {
    const std::string answer = app::messageBox(
        bench_.platform(),
        "ჩასასმელ ტექსტში " + std::to_string(lost) +
            " ნიშანია, რომელსაც ამ ხედში ბაიტი არ შეესაბამება.\r\n\r\nჩაისვას HTML-კოდებად (მაგალითად, "
            "&#8470;)? „არა“: UTF-8-ის ბაიტებად.",
        "", app::frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
    if (answer == app::kAnswerCancel) return {};
    bytes =
        typedText(answer == app::kAnswerYes ? withReferences(clip.letters) : clip.letters, mode_, tables_);
  } else {
    bytes = typedText(clip.letters, mode_, tables_);
  }
  return base::withLineEnds(bytes, base::lineEndOf(view.text()));
}

// Decimal references for what no byte of the mode stands for.
std::string Typing::withReferences(const std::string& letters) {
  std::string out;
  for (std::size_t at = 0; at < letters.size();) {
    const std::size_t before = at;
    const auto character = base::nextUtf8(letters, at);
    if (!character) {
      ++at;
    } else if (!letterByte(*character, mode_, tables_) && !base::byteOfChar(*character)) {
      out += "&#" + std::to_string(static_cast<std::uint32_t>(*character)) + ";";
      continue;
    }
    out.append(letters, before, at - before);
  }
  return out;
}

}  // namespace convert
