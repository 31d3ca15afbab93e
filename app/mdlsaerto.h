// Shared routines of the program: settings, boxes, names, colours, shell and help.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/frmBOXa.h"
#include "app/props_record.h"
#include "base/color.h"
#include "ui/platform/platform.h"

namespace app {

// The record in props.ini; zero settings when there is none. A damaged file also gives zero settings: it is
// put aside as "props.ini.bad" and the user is told.
PropsRecord ReadProps(ui::Platform& platform);
void WriteProps(ui::Platform& platform, const PropsRecord& props);  // throws base::Error

// A number of the registry as it was written there: a single-precision decimal, in which a comma may stand
// for the point. Nothing when unreadable.
std::optional<int> registryNumber(const std::string& text);

// Opens Zervo.chm; nothing happens when it is missing. An empty topic opens the default page.
void ShowHelp(ui::Platform& platform, std::string_view topic);

// base::shortHtmlColor
std::string ColorToHtml(base::Color color);

// The name holds one of \ / ? : * < > | or a double quote.
bool IsBadFileName(std::string_view name);

// Says which characters a name cannot hold.
void reportBadName(ui::Platform& platform);

void ShellOpen(ui::Platform& platform, std::string_view path);
void OpenWithVerb(ui::Platform& platform, std::string_view path);

enum class Blanks { Trimmed, Kept };  // around a typed text

// The program's own boxes. messageBox answers with an answer code, inputBox with the typed text, choiceBox
// with the ticked rows; cancelled: "2" or nothing.
std::string messageBox(ui::Platform& platform, const ui::Text& text, ui::Text title,
                       frmBOXa::Kind kind = frmBOXa::Kind::Message,
                       ui::IconBox::Sign sign = ui::IconBox::Sign::Information);
std::optional<std::string> inputBox(ui::Platform& platform, const ui::Text& prompt, ui::Text title,
                                    std::string proposal = {}, Blanks blanks = Blanks::Trimmed);
// What is typed is shown as dots, and kept nowhere.
std::optional<std::string> passwordBox(ui::Platform& platform, const ui::Text& prompt, ui::Text title);
std::optional<std::vector<std::size_t>> choiceBox(
    ui::Platform& platform, const ui::Text& prompt, ui::Text title,
    const std::vector<std::string>& rows);  // all ticked at first

// Yes, No, Cancel below rows that are all ticked at first, where there are any.
struct SaveAnswer {
  bool cancelled = true;
  bool save = false;
  std::vector<std::size_t> rows;  // the ticked ones
};
SaveAnswer saveBox(ui::Platform& platform, const ui::Text& question, ui::Text title,
                   const std::vector<std::string>& rows);

// Number and sentence of an error, as the error boxes show them.
struct ErrorText {
  int number;
  std::string description;
};
ErrorText errorText(const std::exception& error);
// The box titled "ERROR!!!".
void showError(ui::Platform& platform, const std::exception& error);

}  // namespace app
