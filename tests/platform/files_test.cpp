// Files as Windows has them: names in any letters, deep folders, spellings and marks.
#include "base/files.h"

#include <windows.h>

#include <algorithm>
#include <thread>

#include "base/error.h"

namespace {

// A folder of its own, empty again at the end.
class Folder {
 public:
  static inline const std::string kInner = "\\" + std::string(60, 'd');

  Folder() : path_(base::tempFolder() + "\\zervo ფაილები") {
    clean(path_);
    base::makeFolder(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { clean(path_); }
  const std::string& path() const { return path_; }

 private:
  static void clean(const std::string& folder) {
    if (!base::folderExists(folder)) return;
    clean(folder + kInner);
    for (const std::string& name : base::filesIn(folder)) base::removeFile(folder + "\\" + name);
    base::removeFile(folder);
  }

  std::string path_;
};

base::ErrorNumber numberOf(auto action) {
  try {
    action();
  } catch (const base::Error& error) {
    return error.number();
  }
  return {};
}

TEST(WindowsFiles, NamesInAnyLettersDeepBelow) {
  const Folder top;
  std::string folder = top.path();
  while (folder.size() < 400) {
    folder += Folder::kInner;
    base::makeFolder(folder);
    base::makeFolder(folder);  // that it is there is no fault
  }
  const std::string bytes("\0\r\n\x1a\xff", 5);
  const std::string page = folder + "\\ჩემი გვერდი.html";
  base::writeFile(page, bytes);
  EXPECT_EQ(base::readFile(page), bytes);
  EXPECT_EQ(base::fileSize(page), bytes.size());
  EXPECT_EQ(base::filesIn(folder), std::vector<std::string>{"ჩემი გვერდი.html"});

  base::writeFile(folder + "/b.html", "old");
  base::renameFile(page, folder + "\\b.html");  // in the place of an existing file
  EXPECT_EQ(base::readFile(folder + "\\b.html"), bytes);
  EXPECT_FALSE(base::fileExists(page));
  base::removeFile(folder + "\\b.html");
  base::removeFile(folder + "\\b.html");
  EXPECT_TRUE(base::filesIn(folder).empty());
}

TEST(WindowsFiles, OneFileInSeveralSpellings) {
  const Folder folder;
  const std::string path = folder.path() + "\\Page.html";
  base::writeFile(path, "x");
  base::writeFile(folder.path() + "\\other.html", "x");
  EXPECT_TRUE(base::sameFile(path, folder.path() + "/.\\PAGE.HTML"));
  EXPECT_FALSE(base::sameFile(path, folder.path() + "\\other.html"));
  EXPECT_FALSE(base::sameFile(folder.path() + "\\none", folder.path() + "\\none"));
}

TEST(WindowsFiles, WhatCannotBeDoneIsNamed) {
  using base::ErrorNumber;
  const Folder folder;
  const std::string path = folder.path() + "\\a.html";
  base::writeFile(path, "old");
  wchar_t top[MAX_PATH];
  const std::wstring file = std::wstring(top, GetTempPathW(MAX_PATH, top)) + L"zervo ფაილები\\a.html";
  ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(numberOf([&] { base::writeFile(path, "new"); }), ErrorNumber::PermissionDenied);
  EXPECT_EQ(base::readFile(path), "old");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);

  EXPECT_EQ(numberOf([&] { base::readFile(folder.path() + "\\none"); }), ErrorNumber::FileNotFound);
  EXPECT_EQ(numberOf([&] { base::writeFile(folder.path() + "\\none\\a", ""); }), ErrorNumber::FileNotFound);
  EXPECT_EQ(numberOf([&] { base::readFile(folder.path()); }), ErrorNumber::PathAccess);
  EXPECT_EQ(numberOf([&] { base::makeFolder(path); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(numberOf([&] { base::filesIn(folder.path() + "\\none"); }), ErrorNumber::FileNotFound);
  EXPECT_TRUE(base::fileNames(folder.path() + "\\none").empty());
  EXPECT_TRUE(base::fileNames("").empty());

  // Held open by somebody else: neither replaced nor taken away.
  const HANDLE held = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(numberOf([&] { base::writeFile(path, "new"); }), ErrorNumber::PermissionDenied);
  EXPECT_EQ(numberOf([&] { base::removeFile(path); }), ErrorNumber::PermissionDenied);
  CloseHandle(held);
  EXPECT_EQ(base::filesIn(folder.path()), std::vector<std::string>{"a.html"});
}

// As a virus scanner does: open for a while, and nobody may take its place meanwhile.
class HeldOpen {
 public:
  HeldOpen(const std::string& path, int milliseconds)
      : file_(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr)),
        closing_([this, milliseconds] {
          Sleep(static_cast<DWORD>(milliseconds));
          CloseHandle(file_);
        }) {}
  HeldOpen(const HeldOpen&) = delete;
  HeldOpen& operator=(const HeldOpen&) = delete;
  ~HeldOpen() { closing_.join(); }
  bool open() const { return file_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE file_;
  std::thread closing_;
};

TEST(WindowsFiles, AFileThatAnotherProgramReadsIsWaitedForAndElseStaysWhole) {
  const std::string page = base::tempFolder() + "\\zervo-held.txt";
  base::writeFile(page, "old");
  {
    const HeldOpen held(page, 150);
    ASSERT_TRUE(held.open());
    base::writeFile(page, "new");
  }
  EXPECT_EQ(base::readFile(page), "new");
  {
    const HeldOpen held(page, 2000);
    ASSERT_TRUE(held.open());
    EXPECT_EQ(numberOf([&] { base::writeFile(page, "newer"); }), base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(base::readFile(page), "new");
  }
  base::removeFile(page);
}

TEST(WindowsFiles, SavingKeepsWhatAFileHasBesideItsBytes) {
  const Folder folder;
  wchar_t top[MAX_PATH];
  const std::wstring wide = std::wstring(top, GetTempPathW(MAX_PATH, top)) + L"zervo ფაილები\\";
  const std::string page = folder.path() + "\\a.html";
  base::writeFile(page, "old");
  const auto known = [&] {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW((wide + L"a.html").c_str(), GetFileExInfoStandard, &data);
    return data;
  };
  const HANDLE file =
      CreateFileW((wide + L"a.html").c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  const FILETIME made{0, 0x01C00000};
  SetFileTime(file, &made, nullptr, nullptr);
  CloseHandle(file);
  SetFileAttributesW((wide + L"a.html").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE);
  const auto before = known();
  base::writeFile(page, "new");
  EXPECT_EQ(base::readFile(page), "new");
  EXPECT_EQ(known().dwFileAttributes, before.dwFileAttributes);
  EXPECT_TRUE((known().dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0);
  EXPECT_EQ(known().ftCreationTime.dwHighDateTime, before.ftCreationTime.dwHighDateTime);
  SetFileAttributesW((wide + L"a.html").c_str(), FILE_ATTRIBUTE_NORMAL);

  ASSERT_TRUE(CreateHardLinkW((wide + L"b.html").c_str(), (wide + L"a.html").c_str(), nullptr));
  base::writeFile(page, "both");
  EXPECT_EQ(base::readFile(folder.path() + "\\b.html"), "both");

  base::removeFile(page);
  // Open in a program that lets others write, but not take the file away.
  const HANDLE held = CreateFileW((wide + L"b.html").c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  base::writeFile(folder.path() + "\\b.html", "shared");
  EXPECT_EQ(base::readFile(folder.path() + "\\b.html"), "shared");
  CloseHandle(held);

  const std::string longest = folder.path() + "\\" + std::string(255, 'n');
  base::writeFile(longest, "x");
  base::writeFile(longest, "y");
  EXPECT_EQ(base::readFile(longest), "y");
  EXPECT_EQ(base::filesIn(folder.path()).size(), 2U);
}

TEST(WindowsFiles, ALockIsTakenFromACopyThatDied) {
  const Folder folder;
  const std::string path = folder.path() + "\\list";
  base::makeFolder(path + ".lock");
  const base::FileLock lock(path);
  EXPECT_FALSE(base::folderExists(path + ".lock"));
  {
    const base::FileLock mine(path);
    EXPECT_TRUE(base::folderExists(path + ".lock"));
  }
  EXPECT_FALSE(base::folderExists(path + ".lock"));
}

}  // namespace
