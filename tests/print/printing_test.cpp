// Printing from the main window: what comes to the printer, in which order, and what happens when it fails.
#include "print/printing.h"

#include "print/frmprint.h"
#include "print/frmprintpreview.h"
#include "tests/print/fake_printer.h"
#include "tests/support/main_window.h"

namespace {

class Printing : public tests::MainWindowTest {
 protected:
  Printing() {
    platform.device = &printer;
    print::attachPrinting(*H);
  }
  // The document holds as many pages of 58 rows.
  void openPages(int pages) {
    std::string text;
    for (int i = 1; i <= pages * 58; ++i) text += "line " + std::to_string(i) + "\n";
    start("\"" + folder.make("page.htm", text) + "\"");
  }
  void expectRun() {
    platform.modal.push_back(
        [](ui::Form& form) { EXPECT_TRUE(dynamic_cast<print::frmprint&>(form).closed()); });
  }
  static ui::PrintChoice choice(int first, int last, int copies = 1, bool collated = true) {
    return {false, first, last, copies, collated, nullptr};
  }
  // Page numbers in the heads of what was printed.
  std::vector<std::string> heads() const {
    std::vector<std::string> heads;
    for (const std::string& page : printer.pages) heads.push_back(page.substr(0, page.find('\n')));
    return heads;
  }

  tests::FakePrinter printer;
};

TEST_F(Printing, TheChosenPagesComeInOrder) {
  openPages(4);
  printer.answer = choice(2, 3);
  expectRun();
  ASSERT_TRUE(H->runCommand(mnuPrint));
  EXPECT_EQ(printer.requests.at(0).pages, 4);
  EXPECT_FALSE(printer.requests.at(0).hasSelection);
  EXPECT_EQ(printer.log, "begin page.htm;finish;gone");
  EXPECT_EQ(heads(), (std::vector<std::string>{"გვერდი 2 / 4", "გვერდი 3 / 4"}));
  EXPECT_NE(printer.pages[0].find("\nline 59\nline 60\n"), std::string::npos);
  EXPECT_NE(printer.pages[1].find("\nline 174\n"), std::string::npos);
  EXPECT_EQ(T1.text().substr(0, 7), "line 1\n");
}

TEST_F(Printing, CopiesAreCollatedOrNot) {
  using Order = std::vector<int>;
  EXPECT_EQ(print::printOrder(choice(1, 2, 2), 5), (Order{0, 1, 0, 1}));
  EXPECT_EQ(print::printOrder(choice(1, 2, 2, false), 5), (Order{0, 0, 1, 1}));
  EXPECT_EQ(print::printOrder(choice(4, 900, 0), 5), (Order{3, 4}));
  EXPECT_EQ(print::printOrder(choice(7, 9), 5), Order{});
}

TEST_F(Printing, OnlyTheSelectionWithItsLineNumbers) {
  openPages(3);
  platform.registry["print\\page"] = "9 21000 29700 2000 2000 2000 2000 0 1";
  const int at = static_cast<int>(T1.text().find("line 77\n"));
  T1.select(at + 5, 12);
  printer.answer = choice(1, 1);
  printer.answer->selection = true;
  expectRun();
  H->runCommand(mnuPrint);
  EXPECT_TRUE(printer.requests.at(0).hasSelection);
  EXPECT_EQ(printer.pages, std::vector<std::string>{"გვერდი 1 / 1\n77\n77\n78\nline 78\n79\nl\n"});
}

TEST_F(Printing, AUtf8PageIsPrintedAsLetters) {
  std::string line;
  for (int i = 0; i < 81; ++i) line += "ა";
  start("\"" + folder.make("page.htm", "\xEF\xBB\xBF" + line) + "\"");
  printer.answer = choice(1, 1);
  expectRun();
  H->runCommand(mnuPrint);
  EXPECT_EQ(printer.pages, std::vector<std::string>{"გვერდი 1 / 1\n" + line.substr(0, 240) + "\nა\n"});
}

TEST_F(Printing, AnotherPaperThatThePrinterTakesIsLaidOutAnew) {
  openPages(4);
  printer.sheet = {29700, 21000};
  printer.answer = choice(1, 4);
  expectRun();
  H->runCommand(mnuPrint);
  ASSERT_EQ(printer.pages.size(), 4U);  // the pages asked for, of the 7 that there are now
  EXPECT_EQ(heads()[3], "გვერდი 4 / 7");
}

TEST_F(Printing, AStoppedJobIsThrownAway) {
  openPages(4);
  const print::PrintSource source = print::shownSource(*H, false);
  const print::PrintSheet sheet(source, ui::PageSetup(), false);
  printer.answer = choice(1, 4);
  auto chosen = printer.choose({});
  print::frmprint form(platform, *chosen->job, sheet, {0, 1, 2, 3}, "name");
  platform.whilePumping = [&] {
    if (printer.pages.size() == 2) form.CEXIT.click();
  };
  platform.modal.push_back([](ui::Form& shown) { EXPECT_TRUE(shown.closed()); });
  platform.showModal(form);
  EXPECT_EQ(printer.pages.size(), 2U);
  chosen->job.reset();
  EXPECT_EQ(printer.log, "begin name;gone");
}

TEST_F(Printing, FailuresAreToldAndCancellingIsNot) {
  openPages(2);
  H->runCommand(mnuPrint);  // the dialog was cancelled
  EXPECT_EQ(printer.log, "");
  printer.answer = choice(1, 2);
  printer.refuse = true;
  expectRun();
  H->runCommand(mnuPrint);
  EXPECT_EQ(printer.log, "begin page.htm;gone");

  printer.refuse = false;
  printer.failAt = 1;
  printer.log.clear();
  printer.answer = choice(1, 2);
  expectRun();
  expectBoxWith("no paper", app::kAnswerOk);  // over the form that runs
  H->runCommand(mnuPrint);
  EXPECT_EQ(printer.pages.size(), 1U);
  EXPECT_EQ(printer.log, "begin page.htm;gone");

  platform.device = nullptr;
  expectBoxWith("ბეჭდვა აქ შეუძლებელია", app::kAnswerOk);
  H->runCommand(mnuPrint);
}

TEST_F(Printing, ThePageSetupIsKeptForTheNextRun) {
  openPages(1);
  printer.setupAnswer = [](ui::PageSetup& setup) {
    EXPECT_EQ(setup, ui::PageSetup());
    setup = {11, true, 21000, 14800, 1000, 1100, 1200, 1300};
    return true;
  };
  H->runCommand(mnuPageSetup);
  const print::PrintSettings kept = print::readPrintSettings(platform);
  EXPECT_EQ(kept.setup, (ui::PageSetup{11, true, 21000, 14800, 1000, 1100, 1200, 1300}));
  printer.setupAnswer = [](ui::PageSetup& setup) {
    setup.left = 5;
    return false;  // cancelled
  };
  H->runCommand(mnuPageSetup);
  EXPECT_EQ(print::readPrintSettings(platform), kept);
  for (const char* damaged :
       {"", "9", "9 21000 29700 2000 2000 2000 2000 0 x", "9 21000 29700 -1 2000 2000 2000 0 0",
        "9 21000 29700 11000 2000 11000 2000 0 0", "9 99999999999 29700 2000 2000 2000 2000 0 0",
        "9 0 0 0 0 0 0 0 0"}) {
    platform.registry["print\\page"] = damaged;
    EXPECT_EQ(print::readPrintSettings(platform), print::PrintSettings()) << damaged;
  }
}

class Preview : public Printing {
 protected:
  // The words on the page that the picture shows.
  static std::string shownRows(print::frmprintpreview& form, ui::Size size = {400, 500}) {
    form.Ppage.userSize(size);
    tests::WordsCanvas canvas;
    form.Ppage.paint(canvas);
    return canvas.words.at(1).text + "\n" + canvas.rows().substr(0, 8);
  }
  static ui::Rect paper(print::frmprintpreview& form) {
    form.Ppage.userSize({400, 500});
    tests::WordsCanvas canvas;
    form.Ppage.paint(canvas);
    return canvas.fills.at(1);
  }
  void preview(const std::function<void(print::frmprintpreview&)>& act) {
    platform.modal.push_back([=](ui::Form& form) { act(dynamic_cast<print::frmprintpreview&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuPrintPreview));
  }
};

TEST_F(Preview, ItsPagesAreThePrinters) {
  openPages(3);
  preview([&](print::frmprintpreview& form) {
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 1 / 3"));
    EXPECT_EQ(form.Ppage.caption(), ui::Text("page.htm, გვერდი 1 / 3"));
    EXPECT_EQ(shownRows(form), "გვერდი 1 / 3\nline 1\nl");
    EXPECT_FALSE(form.Cprevious.enabled());
    form.Cnext.click();
    EXPECT_EQ(shownRows(form), "გვერდი 2 / 3\nline 59\n");
    form.keyPressed({ui::kKeyEnd});
    EXPECT_FALSE(form.Cnext.enabled());
    EXPECT_EQ(shownRows(form), "გვერდი 3 / 3\nline 117");
    form.keyPressed({0x22});  // no page behind the last
    form.keyPressed({0x21});
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 2 / 3"));
    EXPECT_FALSE(form.keyPressed(ui::ctrl('S')));

    printer.answer = choice(1, 1);
    expectRun();
    form.keyPressed(ui::ctrl('P'));
    EXPECT_EQ(heads(), std::vector<std::string>{"გვერდი 1 / 3"});
  });
}

TEST_F(Preview, TheWholePageOrItsWidth) {
  openPages(2);
  preview([&](print::frmprintpreview& form) {
    const ui::Rect whole = paper(form);
    EXPECT_EQ(whole.top, 10);
    EXPECT_EQ(whole.height, 480);
    EXPECT_NEAR(whole.width, 480 * 210 / 297.0, 1);
    form.keyPressed({0x6B});
    EXPECT_TRUE(form.OPwidth.chosen());
    const ui::Rect wide = paper(form);
    EXPECT_EQ(wide.width, 380);
    EXPECT_NEAR(wide.height, 380 * 297 / 210.0, 1);
    EXPECT_EQ(wide.top, 10);
    form.Ppage.keyDown(ui::kKeyDown);
    EXPECT_EQ(paper(form).bottom(), 490);  // scrolled as far as it goes
    form.keyPressed({0x22});
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 2 / 2"));
    EXPECT_EQ(paper(form).top, 10);
    form.keyPressed({0x21});  // back to the end of the page before
    EXPECT_EQ(paper(form).bottom(), 490);
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 1 / 2"));
    form.Ppage.mouseDown({50, 50});
    form.Ppage.mouseMove({50, 70});
    form.Ppage.mouseUp({50, 70});
    form.Ppage.mouseMove({50, 90});
    EXPECT_EQ(paper(form).bottom(), 510);
    form.Ppage.doubleClicked({50, 50});
    EXPECT_EQ(paper(form), whole);
  });
}

TEST_F(Preview, FollowsPageSetupAndLineNumbers) {
  openPages(2);
  preview([&](print::frmprintpreview& form) {
    form.CKnumbers.userSet(true);
    EXPECT_EQ(shownRows(form), "გვერდი 1 / 2\n1\nline 1");
    EXPECT_TRUE(print::readPrintSettings(platform).lineNumbers);
    printer.setupAnswer = [](ui::PageSetup& setup) {
      std::swap(setup.width, setup.height);
      return true;
    };
    form.Csetup.click();
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 1 / 4"));  // 38 rows a page
    printer.setupAnswer = [](ui::PageSetup& setup) {
      setup.left = setup.right = 14500;
      return true;
    };
    expectBoxWith("ველები", app::kAnswerOk);
    form.Csetup.click();
    EXPECT_EQ(form.Lpage.caption(), ui::Text("გვერდი 1 / 4"));
    EXPECT_EQ(print::readPrintSettings(platform).setup.left, 2000);
  });
}

}  // namespace
