#include "convert/letters_commands.h"

#include <utility>

#include "app/menus.h"
#include "base/error.h"
#include "resources/ids.h"

namespace convert {
namespace {

constexpr const char* kPanel = "kForm";
// So much of a text is read in a pause: a moment that nobody feels.
constexpr std::size_t kLookedAt = std::size_t{2} * 1024 * 1024;

// The beginning of a long text, not cut inside a line where that can be helped, nor inside a letter.
std::string_view beginningOf(std::string_view text) {
  if (text.size() <= kLookedAt) return text;
  std::size_t end = kLookedAt;
  constexpr std::size_t kLine = 4096;
  while (end > kLookedAt - kLine && text[end - 1] != '\n') --end;
  if (text[end - 1] != '\n') end = kLookedAt;
  while (end > kLookedAt - kLine && (static_cast<std::uint8_t>(text[end]) & 0xC0U) == 0x80) --end;
  return text.substr(0, end);
}

bool isOld(Form form) {
  return form == Form::Legacy || form == Form::Academy || form == Form::Keyboard || form == Form::Russian ||
         form == Form::DoubleUtf8 || form == Form::Mixed;
}

}  // namespace

LettersCommands::LettersCommands(app::Workbench& bench) : bench_(bench), window_(bench) {
  readFonts();
  bench.addCommands({{.id = mnuletters,
                      .icon = ui::MenuIcon::Letters,
                      .caption = "გვერდის ასოების გადაყვანა...",
                      .place = {&app::kEditMenu, 3, 2},
                      .shortcut = ui::ctrlShift('U'),
                      .run =
                          [this] {
                            window_.openWindow();
                            readFonts();
                            stale_ = true;
                          },
                      .enabled = app::hasText,
                      .help = "გვერდის ან მონიშნულის ასოები, რა ფორმითაც უნდა იყოს, UTF-8-ში ან "
                              "HTML-კოდებში; ჯერ ჩანს, რა იცვლება"}});

  bench.textChanged.connect([this] { stale_ = true; });
  bench.documentShown.connect([this] { stale_ = true; });
  bench.pause.connect([this] { showForm(); });
  bench.panelClicked.connect([this](std::string_view key) {
    if (key == kPanel) bench_.runCommand(mnuletters);
  });
}

// Why a table cannot be read the window says when it opens.
void LettersCommands::readFonts() {
  try {
    std::vector<std::size_t> bad;
    fonts_ = fontsOfUser(bench_.platform(), bad);
  } catch (const base::Error&) {
    fonts_ = FontTable::builtIn();
  }
}

void LettersCommands::showForm() {
  if (!std::exchange(stale_, false)) return;
  const std::string_view text = bench_.codeView().text();
  if (text.empty()) return bench_.setPanel(kPanel, {});
  DetectorOptions options;
  options.parts.kind = pageKindOf(bench_.shownPath());
  options.parts.fonts = &fonts_;
  const PageVerdict page = detect(beginningOf(text), options).page;
  std::string word = ui::display(formName(page.form));
  switch (page.trouble) {
    case Trouble::Utf16Little:
    case Trouble::Utf16Big:
      word = "UTF-16";
      break;
    case Trouble::Binary:
      word = "ორობითი";
      break;
    default:
      break;
  }
  const bool old = page.trouble == Trouble::None && isOld(page.form);
  if (old) word += " " + std::to_string(page.confidence) + "%";
  const bool fromFile = !bench_.shownPath().empty();
  if (old && fromFile && offered_.insert(bench_.codeView().document()->number).second) {
    word += "  →  UTF-8: Ctrl+Shift+U";
  }
  bench_.setPanel(kPanel, word);
}

}  // namespace convert
