// Template formats: their files, the dialog, and how they are applied.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
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
  const TemplateFormat longest = TemplateFormat::of(std::string(32767, 'n'), std::string(32762, 'x'), "");
  EXPECT_EQ(generators::decodeTemplates(generators::encodeTemplates({longest})), TemplateFormats{longest});
  // Not made by of(): a length of 32768 would read as -32768, one of 65536 as 0.
  for (const std::size_t size : {32768u, 65535u, 65536u}) {
    EXPECT_ANY_THROW(generators::encodeTemplates({{"n", std::string(size, 'x')}}));
    EXPECT_ANY_THROW(generators::encodeTemplates({{std::string(size, 'x'), ""}}));
  }
}

TEST(Templates, TheLargestCountsAndLengths) {
  const std::string most = "\xFF\x7F";  // 32767
  const std::string empty(std::size_t{32768} * 4, '\0');
  const TemplateFormats all = generators::decodeTemplates(most + empty);
  EXPECT_EQ(all, TemplateFormats(32768));
  EXPECT_EQ(generators::encodeTemplates(all), most + empty);
  EXPECT_ANY_THROW(generators::encodeTemplates(TemplateFormats(32769)));
  EXPECT_ANY_THROW(generators::decodeTemplates(most + empty.substr(1)));
  // Lengths that add up to 2 GB in a file of some hundred bytes.
  std::string claims = most;
  for (int i = 0; i < 100; ++i) claims += most;
  EXPECT_ANY_THROW(generators::decodeTemplates(claims));
}

TEST(Templates, DamagedFilesAreRefusedOrReadForWhatTheySay) {
  for (const std::string& bad :
       {std::string("\xFE\xFF", 2), std::string("\0\0\xFF\xFF", 4), std::string("\0\0\0\0\0\x80", 6)}) {
    EXPECT_ANY_THROW(generators::decodeTemplates(bad));
  }
  const std::string good =
      generators::encodeTemplates({TemplateFormat::of("a", "<A>", "</A>"), TemplateFormat::of("", "", ""),
                                   TemplateFormat::of("c", "x<\xA7$\xA7>", "y")});
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_ANY_THROW(generators::decodeTemplates(good.substr(0, size)));
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
    fill(form, "მუქი", "<B>\r\n", "</B>");
    form.COK.click();  // adds and closes
  });
  T1.setText("x abc\ny");
  T1.select(2, 3);
  ASSERT_TRUE(H->runCommand(mnuTFlist));
  EXPECT_EQ(T1.text(), "x <B>\nabc</B>\ny") << "with the page's line ends";
  EXPECT_EQ(T1.selStart(), 6);
  EXPECT_EQ(T1.selLength(), 3);
  ASSERT_TRUE(H->runCommand(mnuUndo));
  EXPECT_EQ(T1.text(), "x abc\ny");
  const TemplateFormats before = part->templates();
  startAgain();
  EXPECT_EQ(part->templates(), before);
}

TEST_F(TemplateDialog, EachTemplateIsAnEntryCaptionedWithItsName) {
  TemplateFormats many;
  for (int i = 0; i < 200; ++i)
    many.push_back(TemplateFormat::of("n" + std::to_string(i), std::to_string(i), ""));
  many[7].name = "|5|x";
  many[8].name = "";
  const std::string file = folder.make("many.TFF", generators::encodeTemplates(many));
  edit([&](generators::frmtempformat& form) {
    platform.openAnswers.push_back({file});
    form.Copen.click();
  });
  const auto entries = [&] {
    std::vector<std::pair<int, std::string>> all;  // command and caption
    for (const ui::MenuItem& top : H->menus) {
      for (const ui::MenuItem& sub : top.items) {
        for (const ui::MenuItem& item : sub.items) {
          const bool listed =
              !sub.items.empty() && sub.items[0].command == mnutempformat && &item > &sub.items[1];
          if (listed) all.emplace_back(item.command, ui::menuCaption(item.caption).text.bytes);
        }
      }
    }
    return all;
  };
  for (const bool again : {false, true}) {
    if (again) startAgain();
    if (again) start();
    const auto all = entries();
    ASSERT_EQ(all.size(), 200u);
    EXPECT_EQ(all[7].second, "|5|x");
    EXPECT_EQ(all[8].second, " ");
    EXPECT_EQ(all[199].second, "n199");
    EXPECT_EQ(all[78].first, mnuTFlistLast);
    T1.setText("");
    ASSERT_TRUE(H->runCommand(all[199].first));
    EXPECT_EQ(T1.text(), "199");
  }
  edit([](generators::frmtempformat& form) {
    form.List1.userSelect(0);
    form.Cremove.click();
  });
  EXPECT_EQ(entries().size(), 199u);
  EXPECT_EQ(entries()[6].second, "|5|x");
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
    // What no file could hold enters neither the list nor the kept file, and the form stays for mending it.
    const std::string kept = base::readFile(this->kept());
    const auto refused = [&](const std::function<void()>& act) {
      platform.modal.push_back(
          [](ui::Form& box) { press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerOk); });
      act();
      EXPECT_EQ(part->templates().size(), 4u);
      EXPECT_EQ(base::readFile(this->kept()), kept);
      EXPECT_FALSE(form.closed());
    };
    base::writeFile(file, "\xFF\x7F" + std::string(std::size_t{32768} * 4, '\0'));
    platform.openAnswers.push_back({file});
    refused([&] { form.Copen.click(); });
    fill(form, "long", std::string(40000, 'x').c_str(), "");
    refused([&] { form.COK.click(); });
    form.List1.userSelect(0);
    form.Tfor.userSet(std::string(40000, 'x'));
    refused([&] { form.Cchange.click(); });
  });
  base::writeFile(kept(), "\x05");
  startAgain();
  EXPECT_TRUE(part->templates().empty());
  EXPECT_EQ(base::readFile(kept() + ".bad"), "\x05");
}

}  // namespace
