// The settings record `props.ini` holds. A missing file gives a record with every field zero.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/color.h"
#include "base/font_names.h"
#include "ui/code_view.h"

namespace app {

enum class ColourScheme : std::uint8_t {
  Own,     // EditorBackColor and EditorColorExtra
  System,  // light or dark as the system is
  Light,
  Dark,
};

inline constexpr std::int16_t kUsualFontSize = 11;  // of the code view, where none is set
inline constexpr std::int16_t kLeastFtpTimeout = 5, kMostFtpTimeout = 600, kUsualFtpTimeout = 30;

// Texts are UTF-8. A new field goes to the end of eachField() too, with what the program is shipped with.
struct PropsRecord {
  bool StartMaximized = false;
  bool RememberPosition = false;  // window place is read at load and written at close
  bool ReopenLastFile = false;
  std::string EditorFontName;       // empty: the code view keeps its default font
  std::int16_t EditorFontSize = 0;  // points; 0: the default
  bool EditorFontBold = false;
  bool EditorFontItalic = false;
  base::Color EditorBackColor = 0;
  std::int32_t EditorColorExtra = 0;  // colour of the code view's text
  std::uint8_t ShowAtStart = 0;       // above 0: the start-up action runs when no command line was given

  std::array<std::string, 4> TypingFontName;  // of the four typing modes; empty: the bundled font
  bool NoBreakSpaceAsReference = false;       // Ctrl+Y gives "&nbsp;" and not the bytes C2 A0
  bool SelectionPreview = false;              // the status bar decodes the selected text
  bool WordWrap = false;
  bool HeaderTextOn = false;  // extra text in the head of new pages
  std::string HeaderText;
  bool BodyAttributesOn = false;  // attributes of BODY in new pages
  std::string BodyAttributes;
  std::int16_t FtpTimeout = 0;  // seconds without a word from the server; 0: kUsualFtpTimeout
  bool FtpPassive = false;
  bool PreviewInBrowser = false;       // the preview always goes to the default browser
  std::uint8_t TypingModeAtStart = 0;  // number of the typing mode plus one; 0: the Latin one
  std::string Utf8FontName;            // of the UTF-8 view; empty: the bundled font
  bool LiveColours = false;            // tags, scripts and style sheets are coloured while typing
  bool LineNumbers = false;
  bool CurrentLine = false;  // is marked
  bool WhiteSpace = false;   // blanks and tabs are shown
  bool LineEnds = false;     // are shown
  ColourScheme Colours = ColourScheme::Own;
  bool ModeOfPage = false;       // a page opens in the typing mode of its letters
  bool NewPageSkeleton = false;  // a new HTML page is a whole one in UTF-8, not "<HTML>" alone

  bool ReopenSession = false;  // all documents of the last run come back at start
  bool CutOldEnd = false;      // a shorter text saved over a longer file leaves nothing of it
  bool KeepBackup = false;     // what a document's file held before a save is kept beside it, as ".bak"

  bool operator==(const PropsRecord&) const = default;
};

// Every field in the order of the file (docs/props-ini.md), with its value in the settings that are shipped.
template <class Record, class Visit>
void eachField(Record& props, Visit&& visit) {
  visit(props.StartMaximized, false);
  visit(props.RememberPosition, true);
  visit(props.ReopenLastFile, false);
  visit(props.EditorFontName, base::kIsoFont);
  visit(props.EditorFontSize, kUsualFontSize);
  visit(props.EditorFontBold, false);
  visit(props.EditorFontItalic, false);
  visit(props.EditorBackColor, base::rgb(255, 255, 255));
  visit(props.EditorColorExtra, 0);
  visit(props.ShowAtStart, 0);
  for (std::size_t i = 0; i < base::kTypingFonts.size(); ++i)
    visit(props.TypingFontName[i], base::kTypingFonts[i]);
  visit(props.NoBreakSpaceAsReference, true);  // right in a page of any encoding
  visit(props.SelectionPreview, true);
  visit(props.WordWrap, false);
  visit(props.HeaderTextOn, false);
  visit(props.HeaderText, "");
  visit(props.BodyAttributesOn, false);
  visit(props.BodyAttributes, "");
  visit(props.FtpTimeout, kUsualFtpTimeout);
  visit(props.FtpPassive, true);  // works from behind a home router too
  visit(props.PreviewInBrowser, false);
  visit(props.TypingModeAtStart, 0);
  visit(props.Utf8FontName, base::kMonoFont);
  visit(props.LiveColours, true);
  visit(props.LineNumbers, true);
  visit(props.CurrentLine, true);
  visit(props.WhiteSpace, false);
  visit(props.LineEnds, false);
  visit(props.Colours, ColourScheme::System);
  visit(props.ModeOfPage, true);
  visit(props.NewPageSkeleton, false);
  visit(props.ReopenSession, false);
  visit(props.CutOldEnd, false);
  visit(props.KeepBackup, false);
}

// The settings that the program is shipped with.
PropsRecord defaultProps();

std::string encodeProps(const PropsRecord& props);
// Throws base::Error(BadFileFormat) on anything that encodeProps() did not write, whole or cut.
PropsRecord decodeProps(std::string_view bytes);

}  // namespace app
