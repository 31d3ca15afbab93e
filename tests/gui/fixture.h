// What the tests of the real program share: a copy of Zervo.exe in a folder of its own, so that the settings
// it writes beside itself are the test's.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resources/ids.h"
#include "tests/gui/driver.h"

namespace gui {

inline std::filesystem::path builtProgram() {
  wchar_t name[1024];
  GetModuleFileNameW(nullptr, name, 1024);
  return std::filesystem::path(name).parent_path().parent_path() / L"Zervo.exe";  // one above the tests
}

// The form of that class when it is on the screen; its fields are filled and its buttons pressed by id.
inline HWND shownForm(const wchar_t* name) {
  HWND window = nullptr;
  waitFor(utf8(name), [&] {
    window = FindWindowW(name, nullptr);
    return window != nullptr && IsWindowVisible(window) != FALSE;
  });
  return window;
}

inline void fill(HWND form, int field, const wchar_t* text) {
  SendMessageW(GetDlgItem(form, field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

// Returns at once: the button may open a dialog.
inline void press(HWND form, int button) {
  waitFor("the button", [&] { return IsWindowEnabled(GetDlgItem(form, button)) != FALSE; });
  PostMessageW(GetDlgItem(form, button), BM_CLICK, 0, 0);
}

class Session : public testing::Test {
 protected:
  Session() {
    std::filesystem::copy_file(builtProgram(), folder / L"Zervo.exe");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Zervo");  // nothing is left of an earlier run
  }

  std::filesystem::path file(const std::wstring& name, std::string_view bytes) {
    writeBytes(folder / name, bytes);
    return folder / name;
  }

  // One file in quotes, or several as Windows puts them together: each in quotes, a space between.
  Zervo open(const std::vector<std::filesystem::path>& files = {}) {
    std::wstring arguments;
    for (const auto& path : files) arguments += (arguments.empty() ? L"\"" : L" \"") + path.wstring() + L"\"";
    return Zervo(folder / L"Zervo.exe", arguments);
  }

  // Ends the program as the user would, who has nothing to save.
  static void leave(Zervo& zervo) {
    zervo.waitUntilFree();
    zervo.command(mnuExit);
    EXPECT_EQ(zervo.waitForEnd(), 0u);
  }

  Folder folder;
};

}  // namespace gui
