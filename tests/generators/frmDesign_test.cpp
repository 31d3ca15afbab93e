// The frameset designer: markup against pages put together elsewhere, the drawing, what becomes documents.
#include "generators/frmDesign.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <numeric>
#include <random>

#include "generators/frame_geometry.h"
#include "generators/generators.h"
#include "tests/support/fake_canvas.h"
#include "tests/support/main_window.h"

namespace {

using generators::frmDesign;

// What the script writes for one design.
std::string expectedPages(int layout, int variant) {
  static const std::string all = [] {
    FILE* const pipe = popen("/usr/bin/python3 " ZERVO_SOURCE "/tests/golden/framesets.py", "r");
    std::string text;
    char buffer[4096];
    for (std::size_t got = 0; (got = fread(buffer, 1, sizeof buffer, pipe)) > 0;) text.append(buffer, got);
    EXPECT_EQ(pclose(pipe), 0);
    return text;
  }();
  const std::string heading = "##### " + std::to_string(layout) + " " + std::to_string(variant) + "\r\n";
  const std::size_t from = all.find(heading) + heading.size();
  return all.substr(from, all.find("##### ", from) - from);
}

TEST(FrameGeometry, LengthsAreDealtAsBrowsersDo) {
  using Sizes = std::vector<int>;
  EXPECT_EQ(generators::dealLengths("64,*", 2, 600), (Sizes{64, 536}));
  EXPECT_EQ(generators::dealLengths("64,25%,*", 3, 600), (Sizes{64, 150, 386}));
  EXPECT_EQ(generators::dealLengths("*, 2* ,100", 3, 700), (Sizes{200, 400, 100}));
  EXPECT_EQ(generators::dealLengths("20%,30%", 2, 100), (Sizes{40, 60})) << "no star: in proportion";
  EXPECT_EQ(generators::dealLengths("900,300,*", 3, 400), (Sizes{300, 100, 0})) << "no room for the star";
  EXPECT_EQ(generators::dealLengths("0,0", 2, 100), (Sizes{50, 50}));
  EXPECT_EQ(generators::dealLengths("x,-3", 2, 100), (Sizes{50, 50})) << "what says nothing is a star";
  for (const char* bad : {"", "64,", "64,x", "-1,*", "12345678901234", "%", "* *"}) {
    EXPECT_FALSE(generators::isFrameLengths(bad)) << bad;
  }
  std::mt19937 random(5);
  for (int round = 0; round < 3000; ++round) {
    std::string lengths;
    for (std::size_t i = random() % 12; i > 0; --i) lengths += "0123456789%*, x"[random() % 15];
    const auto sizes = generators::dealLengths(lengths, 1 + random() % 5, 300);
    EXPECT_EQ(std::accumulate(sizes.begin(), sizes.end(), 0), 300) << lengths;
    for (const int size : sizes) EXPECT_GE(size, 0) << lengths;
  }
}

class Design : public tests::MainWindowTest {
 protected:
  void SetUp() override {
    generators_ = generators::attach(*H);
    start();
  }
  void design(const std::function<void(frmDesign&)>& act) {
    platform.modal.push_back([act](ui::Form& form) {
      auto& designer = dynamic_cast<frmDesign&>(form);
      designer.PSP.userSize({300, 100});
      designer.Pfram.userSize({400, 300});
      act(designer);
    });
    ASSERT_TRUE(H->runCommand(mnuDesign));
  }
  // The middle of a cell of the layout picture: two rows of five, 60 by 50 each.
  static ui::Point cell(int number) { return {number % 5 * 60 + 30, number / 5 * 50 + 25}; }
  // Every document of the list as the expected pages are written.
  std::string documents() {
    std::string all;
    for (std::int16_t i = 0; i < H->WebProject.Count(); ++i) {
      if (H->WebProject.Item(i).saved) continue;
      all += "=== " + H->WebProject.Item(i).FileTitle + "\r\n" + std::string(H->documentText(i));
    }
    return all;
  }
  std::unique_ptr<generators::Generators> generators_;
};

TEST_F(Design, PagesOfEveryLayoutAndOption) {
  for (int layout = 0; layout < generators::kLayouts; ++layout) {
    for (int variant = 0; variant < 3; ++variant) {
      restart();
      SetUp();
      if (variant == 1) {
        H->Props.HeaderTextOn = true;
        H->Props.HeaderText = "<META NAME=\"author\" CONTENT=\"x\">";
      }
      design([&](frmDesign& form) {
        if (variant == 1) {  // the single page's background, kept for the frameset page's body
          platform.colorAnswers.push_back(base::rgb(255, 0, 15));
          form.TBbagkolor.click();
        }
        form.PSP.mouseDown(cell(layout));
        EXPECT_EQ(H->framesetLayout, layout);
        if (variant > 0) form.CKborder.userSet(false);
        if (variant > 0) form.Tramwidth.userSet(variant == 1 ? "0" : "7");
        const std::size_t frames = form.design().frames.size();
        for (std::size_t i = 0; i < frames; ++i) {
          form.Pfram.keyDown(i == 0 ? ui::kKeyHome : ui::kKeyRight);
          if (variant == 1) {
            form.CKresice.userSet(true);
            if (i == 0) platform.colorAnswers.push_back(base::rgb(5, 0, 171));
            if (i == 1) platform.colorAnswers.push_back(base::rgb(255, 255, 255));
            if (i == 2) platform.colorAnswers.push_back(0xE0E0E0);  // stands for none
            form.TBbagkolor.click();
            if (i == 1) platform.openAnswers.push_back({"C:\\pictures\\a b.jpg"});
            if (i == 1) form.TBimage.click();
            if (i == 2) form.Timage.userSet("img/c.gif");
            if (i == 1 || i == 3) form.CKwasercaichen.userSet(true);  // alone it adds nothing
          } else if (variant == 2 && i == 1) {
            folder.make("old page.htm", "kept \xC0");
            platform.openAnswers.push_back({folder.file("old page.htm")});
            form.CHfile.click();
          }
        }
        form.COK.click();
        EXPECT_TRUE(form.closed());
      });
      EXPECT_EQ(documents(), expectedPages(layout, variant)) << layout << ", " << variant;
      EXPECT_EQ(T1.text().find("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Frameset"), 0u);
      EXPECT_EQ(H->framesetLayout, -1);
      if (variant == 2) {
        EXPECT_EQ(H->documentText(static_cast<std::int16_t>(H->WebProject.Count() - 1)), "kept \xC0");
      }
    }
  }
}

TEST_F(Design, NewDocumentsAreUnsavedListedAndAskedFor) {
  T1.load("");
  type("my words");
  design([](frmDesign& form) {
    form.PSP.mouseDown(cell(3));
    form.COK.click();
  });
  // What was in the code view before is still there.
  std::vector<std::string> all = titles();
  EXPECT_EQ(all.size(), 4u);
  bool kept = false;
  for (std::int16_t i = 0; i < H->WebProject.Count(); ++i) kept = kept || H->documentText(i) == "my words";
  EXPECT_TRUE(kept);
  int listed = 0;
  for (const auto& node : H->TV.nodes()) {
    listed += node.text == ui::Text("Frames.HTML") || node.text == ui::Text("Page2.HTML") ? 1 : 0;
  }
  EXPECT_EQ(listed, 2);
  expectBox(
      "Sag niemals nie",
      ui::Text("proeqtis failebi Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?", ui::TextKind::Keyboard),
      app::kAnswerCancel);
  EXPECT_FALSE(H->queryClose());
}

TEST_F(Design, AFramesFileThatIsOpenKeepsItsChangesUnasked) {
  open(folder.make("old.htm", "old"));
  type("my ");
  design([this](frmDesign& form) {
    form.PSP.mouseDown(cell(0));
    form.Pfram.keyDown(ui::kKeyHome);
    platform.openAnswers.push_back({folder.file("old.htm")});
    form.CHfile.click();
    form.COK.click();
  });
  int open = 0;
  for (std::int16_t i = 0; i < H->WebProject.Count(); ++i) open += H->documentText(i) == "my old" ? 1 : 0;
  EXPECT_EQ(open, 1);
}

TEST_F(Design, SinglePageWithoutALayoutAndReset) {
  design([&](frmDesign& form) {
    form.PSP.mouseDown(cell(0));
    form.PSP.keyDown(ui::kKeyEnd);
    form.PSP.keyDown(ui::kKeySpace);
    EXPECT_EQ(form.design().layout, -1);
    EXPECT_EQ(H->framesetLayout, -1);
    EXPECT_FALSE(form.CKborder.enabled());
    platform.colorAnswers.push_back(base::rgb(1, 2, 3));
    form.TBbagkolor.click();
    form.COK.click();
  });
  EXPECT_EQ(T1.text(),
            "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
            "<TITLE>New Document</TITLE>\r\n</HEAD>\r\n<BODY bgcolor=\"#123\">\r\n\r\n</BODY>\r\n</HTML>");
}

TEST_F(Design, ColumnsStandForClearedRows) {
  design([&](frmDesign& form) {
    form.PSP.mouseDown(cell(0));
    form.Trows.userSet("");
    form.Pfram.mouseDown({74, 299});  // left of 150 pixels of 800: the first frame, now beside the others
    EXPECT_EQ(form.Tname.text(), "Top");
    EXPECT_TRUE(form.Trows.enabled()) << "to be filled again";
    form.COK.click();
    EXPECT_TRUE(form.closed());
  });
  EXPECT_NE(
      T1.text().find("<FRAMESET framespacing=\"1\" border=\"1\" cols=\"150,*\">\r\n<FRAME name=\"Top\""),
      std::string::npos);
  EXPECT_EQ(T1.text().find("rows="), std::string::npos);
}

TEST_F(Design, PreviewShowsTheFramesAndFindsThemByClick) {
  design([&](frmDesign& form) {
    form.PSP.mouseDown(cell(5));
    tests::FakeCanvas canvas;
    form.Pfram.paint(canvas);
    std::vector<std::string> names;
    for (const auto& words : canvas.words) names.push_back(words.text);
    EXPECT_EQ(names, (std::vector<std::string>{"Top", "Left", "Page2.HTML", "Page", "Page3.HTML", "Footer"}));
    form.Pfram.mouseDown({200, 150});  // 64 of 600 pixels above, 150 of 800 to the left
    EXPECT_EQ(form.Tname.text(), "Page");
    form.Pfram.mouseDown({74, 33});
    EXPECT_EQ(form.Tname.text(), "Left");
    form.Pfram.mouseDown({76, 31});
    EXPECT_EQ(form.Tname.text(), "Top");
    form.Tcols.userSet("50%,*");
    form.Pfram.mouseDown({190, 150});
    EXPECT_EQ(form.Tname.text(), "Left");
    form.Tname.userSet("menu");
    form.TBcler.click();
    EXPECT_EQ(form.Tname.text(), "Left");
    form.Pfon.mouseDown({1, 1});
    EXPECT_FALSE(form.PSP.visible());
    EXPECT_FALSE(form.Tname.enabled());
    form.TBframe.click();
    EXPECT_TRUE(form.PSP.visible());
    expectBox("ფრეიმების გვერდი", "გვერდები ჯერ არ შექმნილა.\r\nდავხურო შექმნის გარეშე?", app::kAnswerNo);
    form.CEXIT.click();
    EXPECT_FALSE(form.closed());
  });
  EXPECT_EQ(H->WebProject.Count(), 0);
}

TEST_F(Design, NamesThatNoFileCanHaveAreRefused) {
  design([&](frmDesign& form) {
    form.PSP.mouseDown(cell(2));
    const auto refused = [&] {
      int boxes = 0;
      platform.modal.push_front([&boxes](ui::Form& box) {
        ++boxes;
        dynamic_cast<app::frmBOXa&>(box).COK.click();
      });
      form.COK.click();
      EXPECT_FALSE(form.closed());
      return boxes == 1;
    };
    form.TSTpage.userSet("a/b.html");
    EXPECT_TRUE(refused());
    form.TSTpage.userSet("page2.html");  // also the name of a frame's page
    EXPECT_TRUE(refused());
    EXPECT_EQ(form.Tsource.text(), "Page2.HTML") << "leads to the frame";
    form.TSTpage.userSet("index.html");
    form.Trows.userSet("64;*");
    EXPECT_TRUE(refused());
    form.Trows.userSet("1*,3*");
    form.Tramwidth.userSet("40000");
    EXPECT_TRUE(refused());
    form.Tramwidth.userSet("0");
    form.Tname.userSet("a\"b");
    EXPECT_TRUE(refused());
    form.Tname.userSet("ზედა");
    form.COK.click();
    EXPECT_TRUE(form.closed());
  });
  EXPECT_NE(T1.text().find("rows=\"1*,3*\">"), std::string::npos);
  EXPECT_NE(T1.text().find("<FRAME name=\"ზედა\" "), std::string::npos);
}

}  // namespace
