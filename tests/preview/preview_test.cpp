// The preview: which pages get which help, where the temporary copy stands, and when it goes.
#include "preview/preview.h"

#include <gtest/gtest.h>

#include <set>

#include "base/address.h"
#include "base/utf8.h"
#include "convert/attach.h"
#include "preview/preview_page.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"

namespace {

using preview::PageLetters;

std::string fontOf(std::string_view family) {
  return std::string(family) == "Zervo ISO" ? "i" : "kk";  // "aQ==" and "a2s=" in base 64
}
std::string previewed(const std::string& page, PageLetters letters = PageLetters::Own,
                      const std::string& folder = {}) {
  return preview::previewPage(page, letters, folder, fontOf);
}
const std::string kGeorgian = "\xC3\xD8\xD2\xC8\xD6\xCB\xC9";

TEST(PreviewPage, APageThatABrowserCanReadStaysByteForByte) {
  for (const std::string page :
       {"<HTML><HEAD></HEAD>abc", "ქართული \xD8 ტექსტი", "<HTML>&#4304;",
        "tr\xC8s d\xC9j\xC0 \xC9t\xC0 \xDA l\xC0", "<META CHARSET=windows-1251>\xCF\xD0\xC8\xC2\xC5\xD2",
        "\xEF\xBB\xBF<HTML>"}) {
    EXPECT_EQ(previewed(page), page);
  }
  EXPECT_EQ(previewed(kGeorgian, PageLetters::Russian), kGeorgian);
}

TEST(PreviewPage, ALegacyPageNamesTheBundledFontAndAnEncodingOfOneByteALetter) {
  for (const std::string head : {"", "<META HTTP-EQUIV=Content-Type CONTENT='text/html; charset=utf-8'>",
                                 "<META charset=\"ISO-8859-1\">"}) {
    const std::string page = previewed("<HTML><HEAD>" + head + "</HEAD><BODY>" + kGeorgian);
    const std::string start =
        "<HTML><HEAD><META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">";
    EXPECT_EQ(page.substr(0, start.size()), start);
    EXPECT_NE(page.find("src:url(data:font/ttf;base64,aQ==)"), std::string::npos);
    EXPECT_NE(page.find("body,body *{font-family:\"Zervo ISO\" !important}"), std::string::npos);
    EXPECT_TRUE(page.ends_with(head + "</HEAD><BODY>" + kGeorgian));
  }
}

TEST(PreviewPage, APageInTheUtf8ViewSaysThatItIsUtf8) {
  const std::string said = "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=utf-8\">\r\n";
  for (const std::string head : {"", "<META charset=windows-1252>"}) {
    EXPECT_EQ(previewed("<HEAD>" + head + "ა", PageLetters::Utf8), "<HEAD>" + said + head + "ა");
  }
  for (const std::string page : {"<META charset=utf-8>ა", "\xEF\xBB\xBFა"}) {
    EXPECT_EQ(previewed(page, PageLetters::Utf8), page);
  }
}

TEST(PreviewPage, EveryLetterOfTheEncodingMakesItsPageLegacy) {
  // All words of three letters that iconv writes.
  for (char32_t letter = 0x10D0; letter <= 0x10F0; ++letter) {
    std::string word;
    base::appendUtf8(word, letter);
    word = tests::convertWithIconv(word + word + word, "UTF-8", "GEORGIAN-PS");
    EXPECT_TRUE(preview::readsAsLegacy("<p>" + word)) << std::hex << static_cast<int>(letter);
  }
}

TEST(PreviewPage, KeyboardLayoutFontsAreReplacedUnderTheirOwnNames) {
  const std::string page = previewed("<FONT FACE=acadnusx>qarTuli</FONT>");
  EXPECT_NE(page.find("@font-face{font-family:\"acadnusx\";src:url(data:font/ttf;base64,a2s=)"),
            std::string::npos);
  EXPECT_EQ(page.find("!important"), std::string::npos);
  const std::string both = previewed("<FONT FACE=acadnusx>qarTuli</FONT>" + kGeorgian);
  EXPECT_NE(both.find("body font[face*=\"acadnusx\"]"), std::string::npos);
  EXPECT_NE(previewed("qarTuli", PageLetters::KeyboardLayout).find("body,body *{font-family:\"Zervo ASCII\""),
            std::string::npos);
}

TEST(PreviewPage, WhatIsInsertedStandsInTheHead) {
  const std::string inserted = "<BASE HREF=\"file:///C:/a/\">\r\n";
  const auto placed = [&](const std::string& before, const std::string& behind) {
    EXPECT_EQ(previewed(before + behind, PageLetters::Own, "file:///C:/a/"), before + inserted + behind);
  };
  placed("", "abc");
  placed("", "");
  placed("\xEF\xBB\xBF", "<p>");
  placed("<!DOCTYPE html>\r\n<!-- <head> --><html lang=\"a>b\">", "<title></title><body>");
  placed("<html><HEAD profile='>'>", "<title>");
  placed("", "<!-- never closed <head>");
  placed("", "<header><head>");
  for (const std::string own : {"<head><base href=\"http://a/\">", "<HEAD><BASE\nHREF=x>"}) {
    EXPECT_EQ(previewed(own, PageLetters::Own, "file:///C:/a/"), own);
  }
}

TEST(PreviewPage, FilesHaveUrls) {
  EXPECT_EQ(preview::fileUrl("C:\\my pages\\100%#1\\"), "file:///C:/my%20pages/100%25%231/");
  EXPECT_EQ(preview::fileUrl("\\\\server\\ა\\"), "file://server/%E1%83%90/");
}

TEST(PreviewPage, AddressesOfPagesAreExchangedAndNothingElse) {
  const std::string page =
      "<FRAME NAME=src SRC=\"a.htm\"><frame src = b%20c.htm scrolling=no><!-- <FRAME SRC=a.htm> --><A "
      "HREF='a.htm#x'>"
      "<IMG SRC=a.htm><A TITLE='HREF=a.htm'><IFRAME SRC=a.htm/><a href=\"#a.htm\"><area href=\"a.htm?q\"";
  std::vector<std::string> asked;
  const std::string changed = preview::withAddresses(page, [&](std::string_view address) {
    asked.emplace_back(address);
    return std::string(address == "a.htm" ? "Z" : "");
  });
  EXPECT_EQ(asked, (std::vector<std::string>{"a.htm", "b%20c.htm", "a.htm", "a.htm/", "a.htm"}));
  EXPECT_EQ(
      changed,
      "<FRAME NAME=src SRC=\"Z\"><frame src = b%20c.htm scrolling=no><!-- <FRAME SRC=a.htm> --><A HREF='Z#x'>"
      "<IMG SRC=a.htm><A TITLE='HREF=a.htm'><IFRAME SRC=a.htm/><a href=\"#a.htm\"><area href=\"Z?q\"");
  EXPECT_EQ(base::percentDecoded("a%20b%e1%C0%2%"), "a b\xE1\xC0%2%");
}

class PreviewTest : public tests::MainWindowTest {
 protected:
  PreviewTest() { again(); }
  void again() {
    preview.reset();
    restart();
    converting = convert::attach(*H);
    preview = std::make_unique<preview::Preview>(*H);
  }
  preview::frmpreview& shown() {
    EXPECT_FALSE(platform.modeless.empty());
    return dynamic_cast<preview::frmpreview&>(*platform.modeless.back());
  }
  std::string make(const std::string& name, const std::string& text) {
    return folder.make("site\\" + name, text);
  }

  std::string site = folder.makeFolder("site");
  std::unique_ptr<convert::Attached> converting;
  std::unique_ptr<preview::Preview> preview;
};

TEST_F(PreviewTest, TheCopyStandsBesideTheFileWithUnsavedTextAndGoesWithTheWindow) {
  const std::string page = make("a b.htm", "<p>old</p>");
  start();
  open(page);
  T1.select(0, 0);
  type("new ");
  ASSERT_TRUE(H->runCommand(mnuPreview));
  const std::string copy = base::joinPath(base::folderOf(page), "~zervo-preview-a b.html");
  EXPECT_EQ(shown().Wpage.path(), copy);
  EXPECT_EQ(base::readFile(copy), "new <p>old</p>");
  EXPECT_EQ(base::readFile(page), "<p>old</p>");
  EXPECT_TRUE(H->FileChanged);
  EXPECT_TRUE(platform.browsed.empty());
  // The text as it is now, from the preview's own window.
  type("er ");
  EXPECT_TRUE(shown().keyPressed({ui::kKeyF1 + 4, false, false, false}));
  EXPECT_EQ(base::readFile(copy), "new er <p>old</p>");
  shown().CEXIT.click();
  EXPECT_FALSE(base::fileExists(copy));
  EXPECT_TRUE(shown().closed());
}

TEST_F(PreviewTest, TheCopyIsReadAsTheView) {
  const std::string page = make("a.htm", "ქართული");
  start();
  open(page);
  H->runCommand(mnuens2);  // says nothing of letters that are UTF-8
  ASSERT_TRUE(H->runCommand(mnuPreview));
  const std::string copy = base::joinPath(base::folderOf(page), "~zervo-preview-a.html");
  EXPECT_NE(base::readFile(copy).find("charset=utf-8"), std::string::npos);
  EXPECT_EQ(base::readFile(copy).find("Zervo ASCII"), std::string::npos);
  T1.setView(ui::TextView::EightBit);
  H->runCommand(mnuPreview);
  EXPECT_EQ(base::readFile(copy).find("charset=utf-8"), std::string::npos);
}

TEST_F(PreviewTest, WithoutAnEngineTheDefaultBrowserShowsIt) {
  const std::string page = make("a.html", "abc");
  start();
  open(page);
  H->runCommand(mnuPreview);
  const std::string copy = base::joinPath(base::folderOf(page), "~zervo-preview-a.html");
  expectBoxWith(copy, app::kAnswerOk);  // said once; afterwards the status bar tells where the page went
  shown().Wpage.failed();
  EXPECT_TRUE(shown().closed());
  EXPECT_EQ(platform.browsed, std::vector<std::string>{copy});
  EXPECT_TRUE(base::fileExists(copy));  // the browser may read it at any time
  const auto windows = platform.modeless.size();
  H->runCommand(mnuPreview);
  EXPECT_EQ(platform.modeless.size(), windows) << "the engine is asked for once";
  EXPECT_EQ(platform.browsed.size(), 2U);
  const std::string other = make("other.html", "x");
  open(other);
  H->runCommand(mnuPreview);
  EXPECT_FALSE(base::fileExists(copy));
  preview.reset();  // the program ends
  EXPECT_EQ(base::fileNames(site), (std::vector<std::string>{"a.html", "other.html"}));
}

TEST_F(PreviewTest, TheSettingSendsItToTheBrowserAndClosesTheWindow) {
  start();
  open(make("a.html", "abc"));
  H->runCommand(mnuPreview);
  H->Props.PreviewInBrowser = true;
  H->runCommand(mnuPreview);
  EXPECT_TRUE(shown().closed());
  ASSERT_EQ(platform.browsed.size(), 1U);
  EXPECT_TRUE(base::fileExists(platform.browsed[0]));
}

TEST_F(PreviewTest, TheButtonForTheBrowserKeepsTheCopyForIt) {
  start();
  open(make("a.html", "abc"));
  H->runCommand(mnuPreview);
  shown().Cbrowser.click();
  shown().CEXIT.click();
  EXPECT_TRUE(base::fileExists(platform.browsed.at(0)));
}

TEST_F(PreviewTest, LeftoversOfACrashGoAtTheNextPreviewOfTheFolder) {
  make("~zervo-preview-old.html", "x");
  make("~zervo-preview-notes.txt", "the user's own");
  start();
  open(make("~zervo-preview-mine.html", "opened by the user"));
  H->runCommand(mnuPreview);
  const auto names = base::fileNames(site);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()),
            (std::set<std::string>{"~zervo-preview-notes.txt", "~zervo-preview-mine.html",
                                   "~zervo-preview-~zervo-preview-mine.html"}));
}

TEST_F(PreviewTest, WhereNothingCanBeWrittenAndWithoutAFileTheCopyIsATemporaryOne) {
  start();
  H->runCommand(mnunewF);
  H->runCommand(mnuPreview);
  EXPECT_EQ(base::folderOf(shown().Wpage.path()), base::tempFolder());
  EXPECT_EQ(base::readFile(shown().Wpage.path()), "<HTML>");
  shown().CEXIT.click();
  EXPECT_FALSE(base::fileExists(shown().Wpage.path()));

  // A folder in the way of the copy stands for a folder that cannot be written.
  const std::string page = make("a.html", "abc");
  folder.makeFolder("site/~zervo-preview-a.html");
  open(page);
  H->runCommand(mnuPreview);
  EXPECT_EQ(base::folderOf(shown().Wpage.path()), base::tempFolder());
  EXPECT_EQ(base::readFile(shown().Wpage.path()),
            "<BASE HREF=\"" + preview::fileUrl(base::folderOf(page) + "\\") + "\">\r\nabc");
}

TEST_F(PreviewTest, FramesThatHaveNoFileYetAreFound) {
  const std::string bound = make("old page.htm", "bound");
  start();
  open(bound);
  const auto add = [this](const std::string& title, const std::string& text) {
    H->WebProject.AddNewIthem(text, -1, "", "");
    H->WebProject.Item(static_cast<std::int16_t>(H->WebProject.Count() - 1)).FileTitle = title;
  };
  add("Page1.HTML", "<A HREF=page2.html>to 2</A><A HREF=\"Frames.HTML\">back</A>");
  add("Page2.HTML", "two");
  add("Frames.HTML", "<FRAME SRC=\"Page1.HTML\"><FRAME SRC=\"old page.htm\"><FRAME SRC=\"no.htm\">");
  H->showDocument(3);
  ASSERT_TRUE(H->runCommand(mnuPreview));
  const std::string main = shown().Wpage.path();
  const auto urlOf = [&](int number, const std::string& title) {
    return preview::fileUrl(preview::PreviewCopy::companion(main, number, title));
  };
  EXPECT_EQ(base::readFile(main), "<FRAME SRC=\"" + urlOf(1, "Page1.HTML") + "\"><FRAME SRC=\"" +
                                      preview::fileUrl(bound) + "\"><FRAME SRC=\"no.htm\">");
  const std::string first = preview::PreviewCopy::companion(main, 1, "Page1.HTML");
  EXPECT_EQ(base::readFile(first), "<A HREF=" + urlOf(2, "Page2.HTML") + ">to 2</A><A HREF=\"" +
                                       preview::fileUrl(main) + "\">back</A>");
  EXPECT_EQ(base::readFile(preview::PreviewCopy::companion(main, 2, "Page2.HTML")), "two");
  shown().CEXIT.click();
  for (const std::string& path : {main, first}) EXPECT_FALSE(base::fileExists(path));
}

TEST_F(PreviewTest, FramesWithUnsavedChangesAreShownAsTheyAre) {
  const std::string frames = make("frames.html", "<FRAME SRC=\"a%20b.htm\"><FRAME SRC=\"c.htm\">");
  const std::string changed = make("a b.htm", "old");
  start();
  open(make("c.htm", "same"));
  open(changed);
  T1.select(0, 0);
  type("new ");
  open(frames);
  ASSERT_TRUE(H->runCommand(mnuPreview));
  const std::string copy = preview::PreviewCopy::companion(shown().Wpage.path(), 1, "a b.htm");
  EXPECT_EQ(base::readFile(shown().Wpage.path()),
            "<FRAME SRC=\"" + preview::fileUrl(copy) + "\"><FRAME SRC=\"c.htm\">");
  EXPECT_EQ(base::readFile(copy), "new old");
  EXPECT_EQ(base::readFile(changed), "old");
}

TEST_F(PreviewTest, OnlyPagesArePreviewed) {
  start();
  for (const auto& [name, wanted] : std::vector<std::pair<std::string, bool>>{{"a.css", false},
                                                                              {"b.txt", false},
                                                                              {"c.HTM", true},
                                                                              {"d.shtml", true},
                                                                              {"e.js", false},
                                                                              {"f.php", false}}) {
    open(make(name, "text"));
    EXPECT_EQ(H->runCommand(mnuPreview), wanted) << name;
  }
  open(make("empty.html", ""));
  EXPECT_FALSE(H->runCommand(mnuPreview));
}

TEST_F(PreviewTest, TheTypingModeTellsWhatTheLettersAre) {
  start();
  open(make("a.html", "qarTuli " + kGeorgian));
  const auto text = [this] {
    H->runCommand(mnuPreview);
    return base::readFile(shown().Wpage.path());
  };
  EXPECT_NE(text().find("Zervo ISO"), std::string::npos);
  H->runCommand(mnuens2);
  EXPECT_NE(text().find("Zervo ASCII"), std::string::npos);
  H->runCommand(mnuens0);
  EXPECT_EQ(text(), "qarTuli " + kGeorgian);
}

TEST_F(PreviewTest, TheProgramsEndTakesTheWindowAndTheCopy) {
  start();
  open(make("a.html", "abc"));
  H->runCommand(mnuPreview);
  EXPECT_TRUE(H->queryClose());
  EXPECT_TRUE(shown().closed());
  EXPECT_EQ(base::fileNames(site), std::vector<std::string>{"a.html"});
}

}  // namespace
