// Template formats: their files, the dialog, and how they are applied.
#include <gtest/gtest.h>

#include <random>

#include "generators/frmtempformat.h"
#include "generators/generators.h"
#include "tests/support/main_window.h"

namespace {

using generators::TemplateFormat;
using generators::TemplateFormats;

const std::string kOne("\0\0\1\0T\6\0X<\xA7$\xA7>", 13);  // by hand: bound 0, name "T", text of 6 bytes

TEST(Templates, FilesAreExact) {
  const TemplateFormats one = {TemplateFormat::of("T", "X", "")};
  EXPECT_EQ(generators::encodeTemplates(one), kOne);
  EXPECT_EQ(generators::decodeTemplates(kOne + "an old tail"), one);
  EXPECT_EQ(generators::encodeTemplates({}), "\xFF\xFF");
  EXPECT_TRUE(generators::decodeTemplates("\xFF\xFF").empty());
  const TemplateFormat bold = TemplateFormat::of("b", "<B><\xA7$\xA7>", "</B>");
  EXPECT_EQ(bold.beginning(), "<B><\xA7$\xA7>");  // the separator is looked for from the right
  EXPECT_EQ(bold.end(), "</B>");
}

TEST(Templates, WhatNoFileCanHoldIsRefused) {
  EXPECT_ANY_THROW(TemplateFormat::of("n", "", "<\xA7$\xA7>"));
  EXPECT_ANY_THROW(TemplateFormat::of("n", std::string(32763, 'x'), ""));
  EXPECT_NO_THROW(TemplateFormat::of("n", std::string(32762, 'x'), ""));
}

TEST(Templates, DamagedFilesAreRefusedOrReadForWhatTheySay) {
  for (const std::string& bad : {std::string(), std::string("\0", 1), std::string("\xFE\xFF", 2),
                                 std::string("\xFF\x7F\0\0\0\0", 6), std::string("\0\0\xFF\xFF", 4)}) {
    EXPECT_ANY_THROW(generators::decodeTemplates(bad));
  }
  for (std::size_t size = 0; size < kOne.size(); ++size)
    EXPECT_ANY_THROW(generators::decodeTemplates(kOne.substr(0, size)));
  const std::string good =
      generators::encodeTemplates({TemplateFormat::of("a", "<A>", "</A>"), TemplateFormat::of("", "", ""),
                                   TemplateFormat::of("c", "x", "y")});
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    std::string bytes = good;
    for (int i = 0; i < 3; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    try {
      const std::string again = generators::encodeTemplates(generators::decodeTemplates(bytes));
      EXPECT_TRUE(bytes.starts_with(again));
    } catch (const std::exception&) {  // refused
    }
  }
}

class TemplateDialog : public tests::MainWindowTest {
 protected:
  TemplateDialog() : part(generators::attach(*H)) { start(); }
  void edit(const std::function<void(generators::frmtempformat&)>& act) {
    platform.modal.push_back([act](ui::Form& form) { act(dynamic_cast<generators::frmtempformat&>(form)); });
    ASSERT_TRUE(H->runCommand(mnutempformat));
  }
  void startAgain() {
    restart();
    part = generators::attach(*H);
  }
  static void fill(generators::frmtempformat& form, const char* name, const char* beginning,
                   const char* end) {
    form.Tsaxeli.userSet(name);
    form.Tfor.userSet(beginning);
    form.Tnach.userSet(end);
  }
  std::string kept() const { return platform.folder + "\\formats.TFF"; }
  std::unique_ptr<generators::Generators> part;
};

TEST_F(TemplateDialog, TemplatesAreAppliedAroundTheSelectionInOneStep) {
  edit([](generators::frmtempformat& form) {
    EXPECT_FALSE(form.Cadd.enabled());
    fill(form, "მუქი", "<B>", "</B>");
    form.COK.click();  // adds and closes
  });
  T1.setText("x abc y");
  T1.select(2, 3);
  ASSERT_TRUE(H->runCommand(mnuTFlist));
  EXPECT_EQ(T1.text(), "x <B>abc</B> y");
  EXPECT_EQ(T1.selStart(), 5);
  EXPECT_EQ(T1.selLength(), 3);
  ASSERT_TRUE(H->runCommand(mnuUndo));
  EXPECT_EQ(T1.text(), "x abc y");
  const TemplateFormats before = part->templates();
  startAgain();
  EXPECT_EQ(part->templates(), before);
}

TEST_F(TemplateDialog, TheListIsEditedSavedAndLoaded) {
  const std::string file = folder.make("old.TFF", std::string(100, 'z'));
  edit([&](generators::frmtempformat& form) {
    for (const char* name : {"a", "b", "c"}) {
      fill(form, name, name, "");
      form.Cadd.click();
    }
    form.List1.userSelect(2);
    form.Cup.click();
    form.List1.userSelect(0);
    EXPECT_FALSE(form.Cup.enabled());
    form.Tnach.userSet("!");
    form.Cchange.click();
    form.List1.userSelect(2);
    form.Cremove.click();
    ASSERT_EQ(part->templates(),
              (TemplateFormats{TemplateFormat::of("a", "a", "!"), TemplateFormat::of("c", "c", "")}));
    platform.saveAnswers.push_back(file);
    form.Csave.click();
    const std::string saved = generators::encodeTemplates(part->templates());
    EXPECT_EQ(base::readFile(file), saved + std::string(100 - saved.size(), 'z'));
    platform.openAnswers.push_back({file});
    form.Copen.click();
    EXPECT_EQ(part->templates().size(), 4u);
    base::writeFile(file, "\x05");
    platform.openAnswers.push_back({file});
    platform.modal.push_back([](ui::Form& box) { press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerOk); });
    form.Copen.click();
    EXPECT_EQ(part->templates().size(), 4u);
  });
  base::writeFile(kept(), "\x05");
  startAgain();
  EXPECT_TRUE(part->templates().empty());
  EXPECT_EQ(base::readFile(kept() + ".bad"), "\x05");
}

}  // namespace
