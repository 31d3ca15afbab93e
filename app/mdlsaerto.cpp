#include "app/mdlsaerto.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace app {
namespace {

using ui::operator""_keyboard;

std::string propsPath(const ui::Platform& platform) {
  return base::joinPath(platform.programFolder(), "props.ini");
}

// A free name beside the damaged file: an earlier damaged one is kept as well.
std::string asideName(const std::string& path) {
  std::string name = path + ".bad";
  for (int i = 2; base::fileExists(name); ++i) name = path + ".bad" + std::to_string(i);
  return name;
}

}  // namespace

PropsRecord ReadProps(ui::Platform& platform) {
  const std::string path = propsPath(platform);
  if (!base::fileExists(path)) return {};
  try {
    return decodeProps(base::readFile(path));
  } catch (const base::Error& error) {
    std::string message = error.what();
    if (error.number() == base::ErrorNumber::BadFileFormat) {
      const std::string aside = asideName(path);
      try {
        base::renameFile(path, aside);
        message += "\r\nფაილი შენახულია სახელით:\r\n" + aside;
      } catch (const base::Error& failed) {
        message += std::string("\r\n") + failed.what();
      }
    }
    messageBox(platform, message + "\r\n\r\nპროგრამა საწყისი პარამეტრებით იმუშავებს.", "Zervo",
               frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
    return {};
  }
}

void WriteProps(ui::Platform& platform, const PropsRecord& props) {
  base::writeFile(propsPath(platform), encodeProps(props));
}

std::optional<int> registryNumber(const std::string& text) {
  const std::string number = base::replaceAll(text, ",", ".");
  float value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec != std::errc() || std::abs(value) > 1e6F) return std::nullopt;
  return static_cast<int>(std::lround(value));
}

void ShowHelp(ui::Platform& platform, std::string_view topic) {
  const std::string path = base::joinPath(platform.programFolder(), "Zervo.chm");
  if (!base::fileExists(path) || platform.showHelpFile(path, topic)) return;
  messageBox(
      platform,
      "დახმარების ჩვენება ვერ მოხერხდა: ამ კომპიუტერზე არ არის ის, რაც ასეთ ფაილს აჩვენებს.\r\n\r\n" + path,
      "დახმარება", frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
}

std::string ColorToHtml(base::Color color) {
  return base::shortHtmlColor(color);
}

bool IsBadFileName(std::string_view name) {
  return name.find_first_of("\\/?:*<>|\"") != std::string_view::npos;
}

void reportBadName(ui::Platform& platform) {
  messageBox(platform,
             ui::display("am niSnebis micema ar SeiZleba failis saxelSi"_keyboard) +
                 "\r\n              / \\ ? : * < > | \"",
             "", frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
}

void ShellOpen(ui::Platform& platform, std::string_view path) {
  if (!platform.shellOpen(path, "")) {
    throw base::Error(base::ErrorNumber::InvalidCall,
                      "ამ ფაილის გახსნა ვერ მოხერხდა:\r\n" + std::string(path));
  }
}

void OpenWithVerb(ui::Platform& platform, std::string_view path) {
  platform.shellOpen(path, "1");
}

std::string messageBox(ui::Platform& platform, const ui::Text& text, ui::Text title, frmBOXa::Kind kind,
                       ui::IconBox::Sign sign) {
  frmBOXa box(kind, text, std::move(title), sign);
  box.copy = [&platform](const std::string& copied) { platform.setClipboard({"", copied}); };
  platform.showModal(box);
  return box.answer();
}

std::optional<std::string> inputBox(ui::Platform& platform, const ui::Text& prompt, ui::Text title,
                                    std::string proposal, Blanks blanks) {
  frmBOXa box(frmBOXa::Kind::Input, prompt, std::move(title), ui::IconBox::Sign::None);
  box.blanksCount = blanks == Blanks::Kept;
  box.Tanswer.userSet(std::move(proposal));
  platform.showModal(box);
  if (box.answer() != kAnswerOk) return std::nullopt;
  if (blanks == Blanks::Kept) return box.Tanswer.text();
  return std::string(base::trimSpaces(box.Tanswer.text()));
}

std::optional<std::string> passwordBox(ui::Platform& platform, const ui::Text& prompt, ui::Text title) {
  frmBOXa box(frmBOXa::Kind::Input, prompt, std::move(title), ui::IconBox::Sign::None);
  box.blanksCount = true;
  box.Tanswer.setMasked(true);
  platform.showModal(box);
  if (box.answer() != kAnswerOk) return std::nullopt;
  return box.Tanswer.text();
}

std::optional<std::vector<std::size_t>> choiceBox(ui::Platform& platform, const ui::Text& prompt,
                                                  ui::Text title, const std::vector<std::string>& rows) {
  frmBOXa box(frmBOXa::Kind::Choice, prompt, std::move(title), ui::IconBox::Sign::None);
  box.setRows(rows);
  platform.showModal(box);
  if (box.answer() != kAnswerOk) return std::nullopt;
  return box.ticked();
}

SaveAnswer saveBox(ui::Platform& platform, const ui::Text& question, ui::Text title,
                   const std::vector<std::string>& rows) {
  frmBOXa box(frmBOXa::Kind::YesNoCancel, question, std::move(title), ui::IconBox::Sign::Question);
  box.setRows(rows);
  box.copy = [&platform](const std::string& text) { platform.setClipboard({{}, text}); };
  platform.showModal(box);
  return {box.answer() == kAnswerCancel, box.answer() == kAnswerYes, box.ticked()};
}

ErrorText errorText(const std::exception& error) {
  if (const auto* own = dynamic_cast<const base::Error*>(&error)) {
    return {static_cast<int>(own->number()), own->what()};
  }
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
    return {static_cast<int>(base::ErrorNumber::OutOfMemory), "მეხსიერება არ არის საკმარისი."};
  }
  return {static_cast<int>(base::ErrorNumber::InvalidCall), error.what()};
}

void showError(ui::Platform& platform, const std::exception& error) {
  const ErrorText text = errorText(error);
  messageBox(platform, "Error!!\r\nError:N: " + std::to_string(text.number) + "\r\n" + text.description,
             "ERROR!!!", frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
}

}  // namespace app
