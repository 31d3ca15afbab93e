// What is typed in the dialog's fields, on a whole main window without a window.
#include "convert/attach.h"
#include "tests/search/frmsuch_fixture.h"

namespace {

using namespace ui::literals;
using search::frmsuch;
using tests::FrmsuchTest;

TEST_F(FrmsuchTest, TypesGeorgianByTheFontAndTheTypingMode) {
  bool georgian = false;
  H->addCommands({{.id = mnuens1, .run = [] {}, .checked = [&] { return georgian; }}});
  openDialog();
  const auto typed = [&](ui::TextBox& box) {
    box.userSet("");
    for (const int key : {0x61, 0x43, 0x68, 0xE0}) typeInto(box, key);
    return box.text();
  };
  EXPECT_EQ(typed(D.Text1), "aCh\xE0");
  georgian = true;
  EXPECT_EQ(typed(D.Tcvla), "\xC0\xDCh\xE0");
  T1.setFont({"Zervo RUS", 12, false, false, ui::CharacterSet::Russian});
  D.activated();
  EXPECT_EQ(D.Tcvla.font(), T1.font);
  EXPECT_EQ(typed(D.Text1), "\xE0\xD6h\xF4");
}

// With the typing modes, as in the whole program.
class FrmsuchInAView : public tests::MainWindowTest {
 protected:
  FrmsuchInAView() : converting(convert::attach(*H)), part(search::attach(*H)), D(part->dialog()) { start(); }

  std::unique_ptr<convert::Attached> converting;
  std::unique_ptr<search::Search> part;
  frmsuch& D;
};

TEST_F(FrmsuchInAView, GeorgianTypedInTheFieldsMatchesWhatTheDocumentHolds) {
  H->runCommand(mnusuch);
  struct Case {
    int mode;
    ui::TextView view;
    char32_t typed;
    std::string bytes;
  };
  using enum ui::TextView;
  const Case table[] = {{mnuens1, EightBit, U'ქ', "\xD8"},
                        {mnuens2, EightBit, U'ქ', "q"},
                        {mnuens3, Utf8, U'ქ', "ქ"},
                        {mnuens0, Utf8, U'Ж', "Ж"},
                        {mnuens0, EightBit, U'ქ', "ქ"}};
  for (const Case& row : table) {
    H->mnunewF_Click(".HTML", "");
    H->runCommand(row.mode);
    T1.setView(row.view);
    H->viewChanged();
    T1.typeCharacter(row.typed);
    EXPECT_EQ(D.Tcvla.font(), T1.currentFont());
    EXPECT_EQ(D.Text1.typed(row.typed), row.bytes) << row.mode;
    EXPECT_NE(T1.text().find(row.bytes), std::string::npos) << row.mode;
  }
  // A Latin key in a field of UTF-8, as in the document.
  H->runCommand(mnuens1);
  T1.setView(ui::TextView::Utf8);
  H->viewChanged();
  EXPECT_EQ(D.Text1.keyPress('q'), "ქ");
  EXPECT_EQ(D.Text1.keyPress('<'), "<");
}

TEST_F(FrmsuchInAView, TheFieldsTextFollowsTheDocumentWhereItLosesNothing) {
  H->Props.ModeOfPage = true;
  for (const auto& [name, text] :
       {std::pair{"utf8.html", "ქართული, ქართული"},
        {"iso.html", "\xD8\xC0\xD2\xC8\xD6\xCB\xC9 \xD8\xC0\xD2\xC8\xD6\xCB\xC9"},
        {"russian.html", "\xCF\xF0\xE8\xE2\xE5\xF2, \xEA\xE0\xEA \xE4\xE5\xEB\xE0"}}) {
    open(folder.make(name, text));
  }
  clickNode("utf8.html");
  H->runCommand(mnusuch);
  D.Text1.userSet("ქართული");
  D.Tcvla.userSet("x");
  D.CKutf8.userSet(true);
  D.Czuch.click();
  EXPECT_EQ(T1.selLength(), 21);
  clickNode("russian.html");
  EXPECT_EQ(D.Text1.text(), "ქართული") << "no such letters there";
  clickNode("iso.html");
  EXPECT_EQ(D.Text1.text(), "\xD8\xC0\xD2\xC8\xD6\xCB\xC9");
  EXPECT_EQ(D.Tcvla.text(), "x");
  D.CKutf8.userSet(false);
  D.Czuch.click();
  EXPECT_EQ(T1.selLength(), 7);
  clickNode("utf8.html");
  EXPECT_EQ(D.Text1.text(), "ქართული");
  D.Text1.userSet("\xE1\x83");
  clickNode("iso.html");
  EXPECT_EQ(D.Text1.text(), "\xE1\x83") << "bytes that are no letters stay";
}

}  // namespace
