// Files that the real program must bring back byte for byte, and those that it must refuse in words.
#include <cstdlib>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

std::string allBytes() {
  std::string bytes;
  for (int round = 0; round < 2; ++round) {
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  }
  return bytes;
}

TEST_F(Session, FilesSavedUntouchedComeBackByteForByte) {
  std::string longLines;
  for (int line = 0; line < 900; ++line)
    longLines += std::string(static_cast<std::size_t>(line % 31), 'x') + "\r\n";
  const std::vector<std::pair<std::wstring, std::string>> files = {
      {L"all.txt", allBytes()},
      {L"lf.txt", "one\ntwo\n\nfour\n"},
      {L"cr.txt", "one\rtwo\r\rfour"},
      {L"mixed.txt", "one\r\ntwo\nthree\rfour\r\n\n\r\n"},
      {L"crcrlf.txt", "one\r\r\ntwo\r\r\n\r\r\n"},
      {L"noend.txt", "one\r\ntwo"},
      {L"bom.txt", "\xEF\xBB\xBFone\r\n"},
      {L"rtf.txt", "{\\rtf1\\ansi {\\b bold}\\par}\r\n"},
      {L"zero.txt", std::string("\0one\0\0\r\n\0", 9)},
      {L"unicode.txt", std::string("\xFF\xFEo\0n\0", 6)},
      {L"tail.txt", "spaces  \t \r\n  \r\n\x1A"},
      {L"long.txt", longLines},
      {L"empty.txt", ""},
  };
  std::vector<std::filesystem::path> paths;
  for (const auto& [name, bytes] : files) paths.push_back(file(name, bytes));
  Zervo zervo = open(paths);
  waitFor("all files in the tree", [&] { return zervo.tree().size() == files.size() + 4; });
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string title = utf8(files[i].first);
    zervo.clickNode(title);
    waitFor(title, [&] { return zervo.caption().find(title) != std::string::npos; });
    // What was there before must not hide a save that did not happen.
    const auto longAgo = std::filesystem::last_write_time(paths[i]) - std::chrono::hours(1);
    std::filesystem::last_write_time(paths[i], longAgo);
    zervo.command(mnuSave);
    std::error_code missing;  // for a moment, where the system replaces files in two steps
    waitFor(
        "the save", [&] { return std::filesystem::last_write_time(paths[i], missing) > longAgo && !missing; },
        10);
    EXPECT_EQ(readBytes(paths[i]), files[i].second) << title;
  }
  zervo.clickNode("empty.txt");
  waitFor("empty.txt", [&] { return zervo.caption().find("empty.txt") != std::string::npos; });
  leave(zervo);  // nothing was marked changed
}

TEST_F(Session, WhatCannotBeOpenedIsSaidAndTheProgramGoesOn) {
  const auto page = file(L"page.txt", "text");
  std::filesystem::create_directory(folder / L"folder.txt");
  const std::filesystem::path tooLong = folder / (std::wstring(300, L'x') + L".txt");
  Zervo zervo = open({folder / L"missing.txt", folder / L"folder.txt", tooLong, L"C:\\a?b*.txt", page});
  for (const char* name : {"missing.txt", "folder.txt", "xxx.txt", "a?b*.txt"}) {
    EXPECT_NE(zervo.answer(IDC_frmBOXa_COK).find(name), std::string::npos) << name;
  }
  zervo.waitForText("text");
  leave(zervo);
  EXPECT_EQ(readBytes(page), "text");
  EXPECT_FALSE(std::filesystem::exists(folder / L"missing.txt"));
}

TEST_F(Session, AReadOnlyFileStaysAsItWasAndItsTextInTheWindow) {
  const auto page = file(L"page.txt", "abg");
  SetFileAttributesW(page.c_str(), FILE_ATTRIBUTE_READONLY);
  Zervo zervo = open({page});
  zervo.waitForText("abg");
  zervo.command(mnuTkod);
  zervo.waitForText("\xC0\xC1\xC2");
  zervo.command(mnuSave);
  EXPECT_NE(zervo.answer(IDC_frmBOXa_COK).find("page.txt"), std::string::npos);
  EXPECT_EQ(readBytes(page), "abg");
  zervo.waitForText("\xC0\xC1\xC2");
  zervo.command(mnuExit);  // still marked changed
  zervo.answer(IDC_frmBOXa_Cno);
  zervo.waitForEnd();
}

// ./test mounts a disk of a few hundred KB where it may.
TEST_F(Session, AFullDiskLeavesTheOldFileWhole) {
  const wchar_t* disk = _wgetenv(L"ZERVO_SMALL_DISK");
  if (disk == nullptr || *disk == 0) GTEST_SKIP() << "no small disk: mounting one needs root";
  const std::filesystem::path page = std::filesystem::path(disk) / L"page.txt";
  std::string old, grown;
  for (int line = 0; line < 400; ++line) {
    old += std::string(98, 'a') + "\r\n";
    for (int letter = 0; letter < 98; ++letter) grown += "&#4304;";
    grown += "\r\n";
  }
  writeBytes(page, old);
  Zervo zervo = open({page});
  zervo.waitForText(old);
  zervo.command(mnuUTF8);
  zervo.command(mnuQUTFIH);
  zervo.waitForText(grown);  // 280 KB
  zervo.command(mnuSave);
  zervo.answer(IDC_frmBOXa_COK);
  EXPECT_EQ(readBytes(page), old);
  zervo.command(mnuExit);
  zervo.answer(IDC_frmBOXa_Cno);
  zervo.waitForEnd();
  std::filesystem::remove(page);
}

}  // namespace
}  // namespace gui
