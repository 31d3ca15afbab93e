// The options form: every field there and back, what is wrong, what fails, and what takes effect.
#include "options/options.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <type_traits>

#include "app/mdlsaerto.h"
#include "base/text.h"
#include "convert/attach.h"
#include "options/frmproperties.h"
#include "tests/support/fake_canvas.h"
#include "tests/support/main_window.h"

namespace {

class OptionsTest : public tests::MainWindowTest {
 protected:
  OptionsTest() {
    platform.fonts = {"Arial", "Zervo ISO", "Zervo Sans"};
    again();
  }
  void again() {
    restart();
    converting = convert::attach(*H);
    options::attachOptions(*H);
  }
  using Act = std::function<void(options::frmproperties&)>;
  void options(Act act) {
    platform.modal.push_back([act](ui::Form& form) { act(dynamic_cast<options::frmproperties&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuproperties));
  }
  std::string stored() const { return base::readFile(base::joinPath(platform.folder, "props.ini")); }
  static void choose(ui::ComboBox& box, const std::string& name) {
    for (std::size_t i = 0; i < box.items().size(); ++i) {
      if (box.items()[i].bytes == name) return box.userSelect(static_cast<int>(i));
    }
    FAIL() << "no " << name;
  }
  static app::PropsRecord unusual() {
    app::PropsRecord props;
    app::eachField(props, [](auto& field, const auto&) {
      if constexpr (std::is_same_v<decltype(field), bool&>) field = true;
    });
    props.EditorFontName = "Not Installed";
    props.EditorFontSize = 200;
    props.EditorBackColor = 0;  // black, under letters that are not
    props.EditorColorExtra = 0x00FEDCBA;
    props.ShowAtStart = 7;
    props.TypingFontName = {"Arial", "Zervo Sans", "Zervo ISO", "Gone"};
    props.HeaderText = "<META NAME=\"a\">\r\nსათაური";
    props.BodyAttributes = "BGCOLOR=#FFFFFF";
    props.FtpTimeout = 600;
    props.TypingModeAtStart = 2;
    props.Utf8FontName = "Arial";
    props.Colours = app::ColourScheme::Dark;
    return props;
  }

  std::unique_ptr<convert::Attached> converting;
};

TEST_F(OptionsTest, EveryFieldComesBackAsItWasStored) {
  for (const app::PropsRecord& props : {unusual(), app::defaultProps()}) {
    app::WriteProps(platform, props);
    const std::string before = stored();
    again();
    start();
    platform.modal.clear();  // the list of recent files is not attached here
    options([](options::frmproperties& form) { form.COK.click(); });
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(app::ReadProps(platform), props);
  }
}

TEST_F(OptionsTest, WhatTheUserSetsIsWrittenAndTakesEffectAtOnce) {
  start();
  platform.colorAnswers = {0x112233, 0x445566};
  options([&](options::frmproperties& form) {
    form.CKposition.userSet(true);
    form.Tabs.showPage(1);
    choose(form.CBfont, "Arial");
    form.Tsize.userSet("17");
    form.CKbold.userSet(true);
    form.CKwrap.userSet(true);
    choose(*form.CBtyping[2], "Zervo Sans");
    choose(form.CButf8font, "Arial");
    form.CBcolours.userSelect(3);
    form.CKnumbers.userSet(true);
    form.OPreference.userChoose();
    form.Ttimeout.userSet("5");
    form.Capply.click();
    // Before the dialog is closed.
    EXPECT_EQ(T1.currentFont(), (ui::Font{"Arial", 17, true, false, ui::CharacterSet::Ansi}));
    EXPECT_TRUE(T1.look.wordWrap && T1.look.lineNumbers && T1.look.dark);
    EXPECT_EQ(T1.utf8Font.name, "Arial");
    form.Cback.click();
    form.Ctext.click();
    EXPECT_EQ(form.CBcolours.selected(), 0) << "a chosen colour is to be seen";
    form.Capply.click();
    EXPECT_EQ(T1.look.back, 0x112233U);
    EXPECT_EQ(T1.look.text, 0x445566U);
    form.CKwrap.userSet(false);
    form.CEXIT.click();
  });
  EXPECT_TRUE(T1.look.wordWrap);  // what was applied stays, what came later is dropped
  const app::PropsRecord props = app::ReadProps(platform);
  EXPECT_TRUE(props.RememberPosition && props.WordWrap && props.NoBreakSpaceAsReference);
  EXPECT_EQ(props.TypingFontName[2], "Zervo Sans");
  EXPECT_EQ(props.FtpTimeout, 5);
  T1.type("\x19");
  EXPECT_EQ(T1.text(), "&nbsp;");
  // The font of the mode that is chosen now follows too.
  H->runCommand(mnuens2);
  EXPECT_EQ(T1.currentFont().name, "Zervo Sans");
  options([](options::frmproperties& form) {
    choose(*form.CBtyping[2], "Arial");
    form.COK.click();
  });
  EXPECT_EQ(T1.currentFont().name, "Arial");
}

TEST_F(OptionsTest, ANewPageIsAWholeOneWhereThatIsChosen) {
  start();
  H->runCommand(mnunewF);
  EXPECT_EQ(T1.text(), "<HTML>");
  options([](options::frmproperties& form) {
    form.CKskeleton.userSet(true);
    form.CKbody.userSet(true);
    form.Tbody.userSet("CLASS=a");
    form.COK.click();
  });
  H->runCommand(mnunewF);
  T1.type("x");
  EXPECT_EQ(
      T1.text(),
      "<!DOCTYPE html>\r\n<HTML LANG=\"ka\">\r\n<HEAD>\r\n<META CHARSET=\"UTF-8\">\r\n<TITLE></TITLE>\r\n"
      "</HEAD>\r\n<BODY CLASS=a >\r\nx\r\n</BODY>\r\n</HTML>\r\n");
}

TEST_F(OptionsTest, AWrongNumberIsNamedAndNothingIsWritten) {
  start();
  const auto wrong = [this](const char* number, ui::TextBox options::frmproperties::*box, int page) {
    options([&](options::frmproperties& form) {
      (form.*box).userSet(number);
      expectBoxWith((form.*box).hint.bytes, app::kAnswerOk);
      form.COK.click();
      EXPECT_FALSE(form.closed()) << number;
      EXPECT_EQ(form.Tabs.page(), page);
      EXPECT_TRUE((form.*box).visible());
      EXPECT_EQ((form.*box).selected().length, static_cast<int>(std::string(number).size()));
    });
  };
  for (const char* number : {"", "0", "-3", "201", "11x", "99999999999"}) {
    wrong(number, &options::frmproperties::Tsize, 1);
  }
  for (const char* number : {"4", "601"}) wrong(number, &options::frmproperties::Ttimeout, 4);
  EXPECT_FALSE(base::fileExists(base::joinPath(platform.folder, "props.ini")));
}

TEST_F(OptionsTest, AWriteThatFailsKeepsDialogFileAndSettings) {
  app::WriteProps(platform, unusual());
  const std::string before = stored();
  again();
  start();
  const std::string path = base::joinPath(platform.folder, "props.ini");
  const std::string native = base::replaceAll(path, "\\", "/");
  using std::filesystem::perms;
  std::filesystem::permissions(native, perms::owner_read);
  options([&](options::frmproperties& form) {
    form.CKwrap.userSet(false);
    expectBoxWith("props.ini", app::kAnswerOk);
    form.COK.click();
    EXPECT_FALSE(form.closed());
    EXPECT_FALSE(form.CKwrap.checked());
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(T1.look.wordWrap);
    EXPECT_TRUE(H->Props.WordWrap);
    std::filesystem::permissions(native, perms::owner_read | perms::owner_write);
    form.COK.click();
    EXPECT_TRUE(form.closed());
  });
  EXPECT_FALSE(app::ReadProps(platform).WordWrap);
}

TEST_F(OptionsTest, DefaultsAreThoseOfTheShippedFile) {
  app::WriteProps(platform, unusual());
  again();
  start();
  options([](options::frmproperties& form) {
    form.Cdefault.click();
    form.COK.click();
  });
  EXPECT_EQ(stored(), app::encodeProps(app::defaultProps()));
}

TEST_F(OptionsTest, AFileOnTheCommandLineDoesNotUnsetTheLastFile) {
  app::WriteProps(platform, unusual());
  again();
  start(folder.make("a.htm", "a"));
  EXPECT_FALSE(H->Props.ReopenLastFile);
  H->runCommand(mnuWordWrap);  // writes the settings
  EXPECT_TRUE(app::ReadProps(platform).ReopenLastFile);
  options([](options::frmproperties& form) {
    EXPECT_TRUE(form.CKlast.checked());
    form.COK.click();
  });
  EXPECT_FALSE(H->Props.ReopenLastFile);
  EXPECT_TRUE(app::ReadProps(platform).ReopenLastFile);
  options([](options::frmproperties& form) {
    form.CKlast.userSet(false);
    form.COK.click();
  });
  EXPECT_FALSE(app::ReadProps(platform).ReopenLastFile);
}

TEST_F(OptionsTest, TheTypingModeOfTheSettingsIsThereAtStart) {
  app::PropsRecord props;
  props.TypingModeAtStart = 1;
  app::WriteProps(platform, props);
  again();
  start();
  EXPECT_TRUE(H->commandChecked(mnuens0));
  EXPECT_EQ(T1.currentFont().characterSet, ui::CharacterSet::Russian);
}

TEST_F(OptionsTest, TheSampleFollowsTheFields) {
  start();
  platform.colorAnswers = {0x112233, 0x445566};
  options([](options::frmproperties& form) {
    form.Tabs.showPage(1);
    choose(form.CBfont, "Arial");
    form.Tsize.userSet("0");  // not yet a size
    form.CKitalic.userSet(true);
    form.Cback.click();
    form.Ctext.click();
    form.Cback.click();  // cancelled
    tests::FakeCanvas canvas;
    form.Psample.userSize({300, 60});
    form.Psample.paint(canvas);
    form.Ptyping[0]->paint(canvas);
    EXPECT_EQ(canvas.at({5, 5}), 0x112233U);
    ASSERT_EQ(canvas.words.size(), 2U);
    tests::FakeCanvas dark;
    form.CBcolours.userSelect(3);
    form.Psample.paint(dark);
    EXPECT_NE(dark.at({5, 5}), 0x112233U);
    EXPECT_EQ(canvas.words[0].color, 0x445566U);
    EXPECT_EQ(canvas.words[0].font, (ui::Font{"Arial", 11, false, true, ui::CharacterSet::Ansi}));
    EXPECT_NE(canvas.words[0].text.find("\xD8\xC0\xD2\xC8\xD6\xCB\xC9"), std::string::npos);  // ქართული
    EXPECT_EQ(canvas.words[1].font.name, "Zervo RUS");
    form.CEXIT.click();
  });
}

TEST_F(OptionsTest, TabsShowOnePageAndTheKeyboardGoesRound) {
  start();
  options([](options::frmproperties& form) {
    EXPECT_TRUE(form.CKmaximized.visible());
    EXPECT_FALSE(form.CKlive.visible());
    EXPECT_TRUE(form.keyPressed({ui::kKeyTab, true, true, false}));
    EXPECT_FALSE(form.CKmaximized.visible());
    EXPECT_TRUE(form.CKlive.visible());
    EXPECT_TRUE(form.keyPressed({ui::kKeyTab, true, false, false}));
    EXPECT_EQ(form.Tabs.page(), 0);
    EXPECT_TRUE(form.COK.visible());
    EXPECT_FALSE(form.keyPressed({ui::kKeyTab, false, false, false}));
  });
}

}  // namespace
