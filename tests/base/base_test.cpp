#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "base/address.h"
#include "base/binary.h"
#include "base/cp1252.h"
#include "base/error.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/json.h"
#include "base/line_ends.h"
#include "base/path.h"
#include "base/text.h"
#include "base/utf8.h"
#include "base/write_notes.h"
#include "platform/posix/disk_faults.h"
#include "tests/support/iconv.h"
#include "tests/support/small_disk.h"
#include "tests/support/temp_folder.h"

namespace {

TEST(Cp1252, EveryByteHasOneCharacterThatTheSystemKnows) {
  for (int i = 0; i < 256; ++i) {
    const auto byte = static_cast<std::uint8_t>(i);
    EXPECT_EQ(base::byteOfChar(base::charOfByte(byte)), byte);
    const bool open = i == 0x81 || i == 0x8D || i == 0x8F || i == 0x90 || i == 0x9D;
    if (open) continue;  // no character of its own there
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(base::utf8FromBytes(text), tests::convertWithIconv(text, "CP1252", "UTF-8")) << i;
  }
  EXPECT_FALSE(base::bytesFromUtf8("ა").has_value());
  EXPECT_FALSE(base::bytesFromUtf8("\xC3").has_value());
}

TEST(Utf8, RefusesMalformedForms) {
  for (const std::string bad : {"\xC0\x80", "\xED\xA0\x80", "\xE1\x83", "\xF4\x90\x80\x80", "\x80", "\xFF"}) {
    EXPECT_FALSE(base::isUtf8(bad)) << testing::PrintToString(bad);
  }
  std::string every;
  for (const char32_t c : {0x7FU, 0x80U, 0x7FFU, 0x800U, 0xFFFFU, 0x10000U, 0x10FFFFU})
    base::appendUtf8(every, c);
  EXPECT_TRUE(base::isUtf8(every));
  EXPECT_EQ(tests::convertWithIconv(every, "UTF-8", "UTF-8"), every);
}

TEST(Paths, JoinAndTakeApart) {
  EXPECT_EQ(base::joinPath("C:\\", "a"), "C:\\a");
  EXPECT_EQ(base::joinPath("C:\\x", "a"), "C:\\x\\a");
  EXPECT_EQ(base::folderOf("C:\\x\\a.b"), "C:\\x");
  EXPECT_EQ(base::fileName("a.b"), "a.b");
  EXPECT_EQ(base::extensionOf("a.b.Html"), "HTML");
  EXPECT_EQ(base::extensionOf("makefile"), "MAKEFILE");
  EXPECT_EQ(base::lastThree("a.web"), "WEB");
  EXPECT_EQ(base::lastThree("a"), "A");
  EXPECT_TRUE(base::samePath("C:/X\\a", "c:\\x/A"));
}

TEST(Addresses, AreFromThePageToTheFile) {
  EXPECT_EQ(base::addressOf("C:\\site\\a", "c:\\Site\\img\\b (1).png"), "../img/b%20%281%29.png");
  EXPECT_EQ(base::addressOf("C:\\site", "C:\\site\\\xE1\x83\x90.gif"), "%E1%83%90.gif");
  EXPECT_EQ(base::addressOf("", "D:\\x.gif"), "file:///D:/x.gif");
}

TEST(Files, OverwritingKeepsALongerTail) {
  const tests::TempFolder folder;
  const std::string path = folder.make("გვერდი.html", "0123456789");
  base::overwriteFile(path, "abc");
  EXPECT_EQ(base::readFile(path), "abc3456789");
  base::overwriteFile(path, "0123456789AB");
  EXPECT_EQ(base::readFile(path), "0123456789AB");
  base::copyFile(path, path);
  EXPECT_EQ(base::readFile(path), "0123456789AB");
}

TEST(Files, AFailureIsNamedAndLeavesTheOldFileAndNoOther) {
  const tests::TempFolder folder;
  const auto numberOf = [](auto action) {
    try {
      action();
    } catch (const base::Error& error) {
      return error.number();
    }
    return base::ErrorNumber();
  };
  EXPECT_EQ(numberOf([&] { base::readFile(folder.file("gone")); }), base::ErrorNumber::FileNotFound);
  EXPECT_EQ(numberOf([&] { base::readFile(folder.path()); }), base::ErrorNumber::PathAccess);
  const std::string path = folder.make("a", "old");
  std::filesystem::permissions(folder.path() + "/a", std::filesystem::perms::owner_read);
  EXPECT_EQ(numberOf([&] { base::writeFile(path, "new"); }), base::ErrorNumber::PermissionDenied);
  EXPECT_EQ(base::readFile(path), "old");
}

TEST(Files, AFullDiskLeavesTheOldFileWhole) {
  const tests::SmallDisk disk;
  if (!disk.made) GTEST_SKIP() << "cannot mount a small disk here";
  const std::string path = disk.path + "\\a";
  base::writeFile(path, "old");
  try {
    base::writeFile(path, std::string(100000, 'x'));
    ADD_FAILURE();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), base::ErrorNumber::DiskFull);
  }
  EXPECT_EQ(base::readFile(path), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk.path), {}), 1);
}

// One row a text: the end that is its own, whether it is mixed, its lines.
TEST(LineEnds, TheMostFrequentIsTheTextsOwn) {
  using enum base::LineEnd;
  struct Row {
    std::string_view text;
    base::LineEnd own;
    bool mixed;
    std::vector<std::string_view> lines;
  };
  for (const Row& row : std::vector<Row>{{"", CrLf, false, {""}},
                                         {"a", CrLf, false, {"a"}},
                                         {"a\nb\n", Lf, false, {"a", "b", ""}},
                                         {"\r\ra", Cr, false, {"", "", "a"}},
                                         {"a\r\n\r\nb\n", CrLf, true, {"a", "", "b", ""}},
                                         {"a\n\rb", CrLf, true, {"a", "", "b"}},
                                         {"a\n\r\n\nb\r", Lf, true, {"a", "", "", "b", ""}},
                                         {"\n\n\r\r\r\n", CrLf, true, {"", "", "", "", "", ""}}}) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(base::lineEndOf(row.text), row.own);
    EXPECT_EQ(base::lineEndKindsOf(row.text).mixed(), row.mixed);
    std::vector<std::string_view> lines;
    std::string joined;
    for (const base::Line& line : base::linesOf(row.text)) {
      lines.push_back(line.text);
      joined.append(line.text).append(line.end);
    }
    EXPECT_EQ(lines, row.lines);
    EXPECT_EQ(joined, row.text);
    for (const base::LineEnd end : {CrLf, Lf, Cr}) {
      std::string expected;
      for (std::size_t i = 0; i < lines.size(); ++i)
        expected.append(i > 0 ? base::bytesOf(end) : "").append(lines[i]);
      EXPECT_EQ(base::withLineEnds(row.text, end), expected);
    }
  }
}

TEST(Files, SavingKeepsLinksRightsAndEveryOtherFile) {
  namespace fs = std::filesystem;
  const tests::TempFolder folder;
  const std::string page = folder.make("page.html", "old");
  const fs::path top = folder.path();
  fs::create_symlink("page.html", top / "soft");
  fs::create_symlink("new.html", top / "dangling");
  fs::permissions(top / "page.html", fs::perms(0640));
  ASSERT_EQ(chown((top / "page.html").c_str(), getuid(), getgid()), 0);
  base::writeFile(folder.file("soft"), "by soft link");
  EXPECT_TRUE(fs::is_symlink(top / "soft"));
  EXPECT_EQ(base::readFile(page), "by soft link");
  EXPECT_EQ(fs::status(top / "page.html").permissions(), fs::perms(0640));
  base::writeFile(folder.file("dangling"), "made");
  EXPECT_EQ(base::readFile(folder.file("new.html")), "made");

  fs::create_hard_link(top / "page.html", top / "hard");
  base::writeFile(page, "short");
  EXPECT_EQ(base::readFile(folder.file("hard")), "short");

  const std::string longest = folder.make(std::string(255, 'n'), "x");
  base::writeFile(longest, "y");
  EXPECT_EQ(base::readFile(longest), "y");
  EXPECT_EQ(std::distance(fs::directory_iterator(top), {}), 6)
      << "soft, dangling, hard, two pages, the longest";
}

TEST(Files, ADeviceOrPipeTakesTheBytesAndStaysWhatItIs) {
  const tests::TempFolder folder;
  const std::string pipe = folder.path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  base::writeFile(pipe, "page");
  std::array<char, 16> bytes{};
  EXPECT_EQ(read(reader, bytes.data(), bytes.size()), 4);
  EXPECT_STREQ(bytes.data(), "page");
  close(reader);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST(Files, WhereThereIsNoRoomForASecondFileTheFirstIsWrittenOver) {
  const tests::SmallDisk disk;
  if (!disk.made) GTEST_SKIP() << "cannot mount a small disk here";
  const std::string path = disk.path + "\\a";
  base::writeFile(path, std::string(40000, 'o'));
  base::writeFile(path, std::string(30000, 'n'));
  EXPECT_EQ(base::readFile(path), std::string(30000, 'n'));
  EXPECT_THROW(base::writeFile(path, std::string(70000, 'x')), base::Error);
  EXPECT_EQ(base::readFile(path), std::string(30000, 'n'));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk.path), {}), 1);
}

// The notes that a run leaves which is killed: after a file was made beside, or in the middle of writing
// over.
TEST(Files, TheNextRunEndsWhatADeadOneHadBegun) {
  const tests::TempFolder folder;
  setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
  const std::string left = folder.make(".zervo-1-1.tmp", "half");
  const std::string torn = folder.make("torn", "NEW bytes of the o");
  const std::string foreign = folder.make("foreign", "somebody else's");
  const std::string whole = folder.make(".zervo-1-2.tmp", "the new text"), gone = folder.file("gone");
  folder.make(".zervo-1-2.tmp.old", "the old text");
  const std::string half = folder.make(".zervo-1-3.tmp", "the ne"), back = folder.file("back");
  folder.make(".zervo-1-3.tmp.old", "the old text");
  const pid_t dying = fork();
  if (dying == 0) {
    auto* const notes = new base::WriteNote[5];
    _exit(notes[0].temporary(left, torn, "whole") != 0 ||
          notes[3].temporary(whole, gone, "the new text") != 0 ||
          notes[4].temporary(half, back, "the new text") != 0 ||
          notes[1].rewriting(torn, "the bytes of the o", "NEW text") != 0 ||
          notes[2].rewriting(foreign, "a", "b") != 0);
  }
  int status = -1;
  waitpid(dying, &status, 0);
  ASSERT_EQ(status, 0);
  base::WriteNote living;
  const std::string mine = folder.make("mine", "x");
  ASSERT_EQ(living.temporary(mine, torn, "x"), 0);
  base::finishInterruptedWrites();
  EXPECT_FALSE(base::fileExists(left));
  EXPECT_FALSE(base::fileExists(whole));
  EXPECT_EQ(base::readFile(gone), "the new text") << "it died while the old file was exchanged for the new";
  EXPECT_EQ(base::readFile(back), "the old text");
  EXPECT_EQ(base::readFile(torn), "NEW text");
  EXPECT_EQ(base::readFile(foreign), "somebody else's");
  EXPECT_TRUE(base::fileExists(mine));
  EXPECT_EQ(base::fileNames(folder.path()).size(), 5U) << "nothing else is left";
  EXPECT_EQ(base::fileNames(folder.path() + "/zervo/Writing").size(), 1U) << "the note of the run that lives";
  unsetenv("XDG_STATE_HOME");
}

// Every operation of a save in turn: it fails, or the program dies there. A file whose folder takes a second
// one, and one that is written over in its place since it has two names.
TEST(Files, AtEveryFaultTheFileIsWholeOldOrWholeNew) {
  const std::string before = "the old text, which is longer", text = "the new text";
  const std::string after = text + before.substr(text.size());
  for (const bool linked : {false, true}) {
    for (const int code : {ENOSPC, EIO, base::disk::faults::kDie}) {
      int faults = 0;
      for (bool happened = true; happened;) {
        SCOPED_TRACE(std::to_string(code) + " at " + std::to_string(++faults) + (linked ? ", linked" : ""));
        const tests::TempFolder folder;
        setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
        const tests::TempFolder place;
        const std::string file = place.make("page.html", before);
        if (linked) std::filesystem::create_hard_link(place.path() + "/page.html", place.path() + "/link");
        bool refused = false;
        if (code == base::disk::faults::kDie) {
          const pid_t dying = fork();
          if (dying == 0) {
            base::disk::faults::planAt(faults, code);
            base::overwriteFile(file, text);
            _exit(1);
          }
          int status = 0;
          waitpid(dying, &status, 0);
          happened = WEXITSTATUS(status) == 0;
        } else {
          base::disk::faults::planAt(faults, code);
          try {
            base::overwriteFile(file, text);
          } catch (const base::Error& error) {
            refused = true;
            EXPECT_NE(std::string(error.what()).find("page.html"), std::string::npos);
          }
          happened = base::disk::faults::happened();
        }
        base::finishInterruptedWrites();
        const std::string now = base::readFile(file);
        EXPECT_TRUE(now == before || now == after) << now;
        EXPECT_TRUE(code == base::disk::faults::kDie || refused == (now == before));
        EXPECT_EQ(base::fileNames(place.path()).size(), linked ? 2U : 1U);
        EXPECT_TRUE(base::fileNames(folder.path() + "/zervo/Writing").empty());
        ASSERT_LT(faults, 40);
      }
      EXPECT_GT(faults, 4);
    }
  }
  unsetenv("XDG_STATE_HOME");
}

TEST(Binary, ReaderStopsAtTheEnd) {
  base::BinaryWriter writer;
  writer.u32(0xFFFFFFFF);
  base::BinaryReader reader(writer.bytes());
  EXPECT_THROW(reader.text(), base::Error);
  EXPECT_EQ(base::crc32("123456789"), 0xCBF43926U);  // the check value that the algorithm is published with
}

// What `xxhsum -H64` says of the same bytes.
TEST(Hash, IsThePublishedOne) {
  std::string bytes;
  for (int i = 0; i < 79; ++i) bytes += static_cast<char>(i * 7);
  EXPECT_EQ(base::hexOf(base::hash64("")), "ef46db3751d8e999");
  EXPECT_EQ(base::hexOf(base::hash64("abc")), "44bc2cf5ad770999");
  EXPECT_EQ(base::hexOf(base::hash64(bytes)), "e4e589158e6e0c1a");
}

TEST(Json, ReadsWhatItWritesAndRefusesAllElse) {
  const std::string hard = std::string("\"\\/\n\x01\x7F", 6) + "გ\xF0\x9F\x98\x80\xFF";
  const auto read =
      base::parseJson(" {\"a\" : [1, -2.5e3, true, null, " + base::jsonQuoted(hard) + "] , \"\":{}}\r\n");
  ASSERT_TRUE(read);
  EXPECT_EQ((*read)["a"].items[4].text, std::string("\"\\/\n\x01\x7F", 6) + "გ\xF0\x9F\x98\x80\xEF\xBF\xBD");
  EXPECT_EQ((*read)["a"].items[0].number(), 1U);
  EXPECT_EQ((*read)["a"].items[1].number(), 0U);
  EXPECT_EQ(base::parseJson("\"\\u10d2\\ud83d\\ude00\\udc00\"")->text, "გ\xF0\x9F\x98\x80\xEF\xBF\xBD");
  for (const std::string& bad :
       {std::string(), std::string("{"), std::string("[1,]"), std::string("{\"a\"}"), std::string("1 2"),
        std::string("\"\\u12\""), std::string("\"\\ud800\\u0041\""), std::string("\"a"),
        std::string(1000, '[')}) {
    EXPECT_FALSE(base::parseJson(bad)) << bad;
  }
}

}  // namespace
