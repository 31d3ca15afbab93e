// The main window's start and close: entry routine, load sequence, prompts before the end.
#include "app/FrmH.h"
#include "app/code_look.h"
#include "app/command_line.h"
#include "app/mdlsaerto.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace app {
namespace {

using ui::operator""_keyboard;

constexpr std::string_view kBetweenFiles = "\" \"";

}  // namespace

void FrmH::entry(const std::string& commandLine) {
  using Kind = CommandLine::Kind;
  commandLine_ = commandLine;
  const CommandLine read =
      readCommandLine(commandLine, [](const std::string& path) { return base::fileExists(path); });
  Props = ReadProps(platform_);
  // The last file is not to be opened below the one that was asked for.
  reopenHeldBack_ = read.kind == Kind::One && Props.ReopenLastFile;
  if (read.kind == Kind::One) Props.ReopenLastFile = false;
  load();
  switch (read.kind) {
    case Kind::Empty:
      return window->show();
    case Kind::NoMax:
      return commandladenforma("NOMAX");
    case Kind::One:
      return comandopen(read.paths.front(), "");
    case Kind::Several:
      return comandopen("SIA", base::join(read.paths, kBetweenFiles));
  }
}

void FrmH::load() {
  if (Props.StartMaximized) {
    window->setState(ui::WindowState::Maximized);
  } else if (Props.RememberPosition) {
    const auto left = registryNumber(platform_.registryValue("winpoze", "X"));
    const auto top = registryNumber(platform_.registryValue("winpoze", "Y"));
    const auto wide = registryNumber(platform_.registryValue("winpoze", "W"));
    const auto high = registryNumber(platform_.registryValue("winpoze", "H"));
    if (left && top) window->setPlace({*left, *top, wide.value_or(0), high.value_or(0)});
  }
  restorePanes();

  Loading = true;
  buildMenus();
  setPanel("kMain", ui::Text());
  applyEditorSettings();
  propsInForce();
  Treefulen();
  Loading = false;

  if (Props.ReopenLastFile) {
    const std::string last = platform_.registryValue("LastFile", "FN");
    if (last.empty()) return;
    if (base::fileExists(last)) comandopen(last, "");
  }
  if (commandLine_.empty() && Props.ShowAtStart > 0) {
    window->show();
    platform_.pumpEvents();
    ui::atGate([this] { startUp(); });
  }
}

void FrmH::applyEditorSettings() {
  T1.setFont({Props.EditorFontName, Props.EditorFontSize, Props.EditorFontBold, Props.EditorFontItalic,
              ui::CharacterSet::Ansi});
  T1.setUtf8Font({Props.Utf8FontName, Props.EditorFontSize, Props.EditorFontBold, Props.EditorFontItalic,
                  ui::CharacterSet::Utf8});
  T1.setLook(codeLook(Props, platform_.darkColours()));
}

void FrmH::comandopen(const std::string& first, const std::string& list) {
  window->show();
  platform_.pumpEvents();
  if (first == "SIA") {
    for (const std::string& path : base::split(list, kBetweenFiles)) {
      Loading = true;
      ui::atGate([&] { ofnen(base::fullPath(path)); });
    }
  } else {
    ui::atGate([&] {
      // The working folder may be another one later.
      const std::string path = base::fullPath(first);
      if (base::fileExists(path)) documentOpened(path);
      if (base::lastThree(path) == "WEB") {
        WEB_Open(path);
        return;
      }
      Loading = true;
      // A file that is there but cannot be read must not be saved over later; one that is missing may be
      // made.
      CurrentFilePath = base::fileExists(path) || base::folderExists(path) ? "" : path;
      const std::string text = base::readFile(path);
      showText(text, base::fileName(path));
      CurrentFilePath = path;
      documentSession.file(-1) = base::traceOf(path, text);
      FileChanged = false;
      documentShown();
    });
    showName(first);
  }
  Loading = false;
}

void FrmH::commandladenforma(const std::string& mode) {
  if (mode == "NOMAX") window->setState(ui::WindowState::Normal);
  window->show();
}

bool FrmH::cvlaprufen() {
  return WebProject.WEBopened && !documentSession.unsaved().empty();
}

bool FrmH::NewInWeb() {
  return !WebProject.WEBopened && !documentSession.unsaved().empty();
}

bool FrmH::askAndSave(const ui::Text& question, ui::Text title, const std::function<bool()>& save) {
  const std::string answer = messageBox(platform_, question, std::move(title), frmBOXa::Kind::YesNoCancel,
                                        ui::IconBox::Sign::Question);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  // A save that fails or is cancelled keeps the window: the text would be lost.
  bool saved = false;
  return ui::atGate([&] { saved = save(); }) && saved;
}

bool FrmH::askWhichToSave(const ui::Text& question, ui::Text title,
                          const std::function<bool(const std::vector<std::int16_t>&)>& save) {
  const std::vector<std::int16_t> unsaved = documentSession.unsaved();
  std::vector<std::string> names;
  for (const std::int16_t index : unsaved) names.push_back(documentSession.title(index));
  const SaveAnswer answer = saveBox(platform_, question, std::move(title), names);
  if (answer.cancelled) return false;
  if (!answer.save) return true;
  std::vector<std::int16_t> chosen;
  for (const std::size_t row : answer.rows) chosen.push_back(unsaved[row]);
  // A save that fails or is cancelled keeps the window: the text would be lost.
  bool saved = false;
  return ui::atGate([&] { saved = save(chosen); }) && saved;
}

bool FrmH::leaveDocuments() {
  const ui::Text projectTitle = "Sag niemals nie";
  if (WebMode()) {
    const auto save = [this](const std::vector<std::int16_t>& chosen) { return saveProjectWith(chosen); };
    if (WebProject.WEBopened && WebProject.WEBChanged) {
      return askWhichToSave("proeqti Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?"_keyboard, projectTitle,
                            save);
    }
    const auto files = "proeqtis failebi Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?"_keyboard;
    if (cvlaprufen()) return askWhichToSave(files, projectTitle, save);
    if (NewInWeb()) {
      return askWhichToSave(files, projectTitle,
                            [this](const std::vector<std::int16_t>& chosen) { return saveAll(chosen); });
    }
    return true;
  }
  if (!FileChanged) return true;
  if (!CurrentFilePath.empty()) {
    return askAndSave("faili Seicvala.\r\ngindaT cvlilebebis damaxsovreba?"_keyboard, "",
                      [this] { return SaveDocument(CurrentFilePath, -1); });
  }
  if (T1.text().empty()) return true;
  return askAndSave("gindaT cvlilebebis damaxsovreba?"_keyboard, "", [this] { return SaveDocument("", -1); });
}

void FrmH::keepForNextRun() {
  if (Props.RememberPosition) {
    const ui::WindowPlace place = window->place();
    platform_.setRegistryValue("winpoze", "X", std::to_string(place.left));
    platform_.setRegistryValue("winpoze", "Y", std::to_string(place.top));
    platform_.setRegistryValue("winpoze", "W", std::to_string(place.width));
    platform_.setRegistryValue("winpoze", "H", std::to_string(place.height));
  }
  keepPanes();
  if (Props.ReopenLastFile) {
    const std::string last = WebProject.WEBopened ? projectFile() : CurrentFilePath;
    if (!last.empty()) platform_.setRegistryValue("LastFile", "FN", last);
  }
}

bool FrmH::queryClose() {
  if (busy_ || !leaveDocuments()) return false;
  ui::atGate([this] { keepForNextRun(); });  // what cannot be kept does not keep the user
  closing();
  return true;
}

}  // namespace app
