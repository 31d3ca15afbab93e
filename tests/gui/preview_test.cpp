// F5 in the real program: the temporary copy comes and goes, whichever browser shows it.
#include "tests/gui/fixture.h"

namespace {

class Preview : public gui::Session {
 protected:
  Preview() { setBrowsers(L"/bin/true"); }
  ~Preview() override { setBrowsers(nullptr); }

  // What stands in for the user's browser where Windows is not the real one: a program that shows nothing.
  static void setBrowsers(const wchar_t* program) {
    constexpr const wchar_t* kKey = L"Software\\Wine\\WineBrowser";
    if (program == nullptr) {
      RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, L"Browsers");
    } else {
      RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Browsers", REG_SZ, program,
                      static_cast<DWORD>((wcslen(program) + 1) * sizeof(wchar_t)));
    }
  }
  std::filesystem::path copyOf(const std::wstring& name) const {
    return folder / (L"~zervo-preview-" + name + L".html");
  }
};

BOOL CALLBACK findEngine(HWND window, LPARAM found) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  if (std::wstring_view(name) == L"Internet Explorer_Server") *reinterpret_cast<bool*>(found) = true;
  return TRUE;
}

TEST_F(Preview, TheCopyHoldsTheUnsavedTextAndIsGoneAfterwards) {
  const std::string legacy = "\xD8\xC0\xD2\xC8\xD6\xCB\xC9";
  const auto page = file(L"a.htm", "<HTML><HEAD></HEAD><BODY>");
  file(L"~zervo-preview-crash.html", "left behind");
  gui::Zervo zervo = open({page});
  zervo.waitForText("<HTML><HEAD></HEAD><BODY>");
  const int end = static_cast<int>(zervo.text().size());
  zervo.select(end, end);
  for (const char byte : legacy) zervo.type(static_cast<unsigned char>(byte));
  zervo.waitForText("<HTML><HEAD></HEAD><BODY>" + legacy);
  zervo.waitUntilFree();
  zervo.command(mnuPreview);
  gui::waitFor("the copy", [&] { return gui::readBytes(copyOf(L"a")).ends_with("</HEAD><BODY>" + legacy); });
  const std::string copy = gui::readBytes(copyOf(L"a"));
  EXPECT_TRUE(copy.starts_with("<HTML><HEAD><META HTTP-EQUIV=\"Content-Type\""));
  // A whole TrueType file, which begins with 00 01 00 00.
  EXPECT_NE(copy.find("base64,AAEAAA"), std::string::npos);
  EXPECT_GT(copy.size(), 20000U);
  // Removed once the new copy is there.
  gui::waitFor("the old copy's end", [&] { return !std::filesystem::exists(copyOf(L"crash")); });
  EXPECT_EQ(gui::readBytes(page), "<HTML><HEAD></HEAD><BODY>");
  // With an engine the window shows the page, without one it has gone and the default browser has the copy.
  gui::waitFor("a shown page", [] {
    const HWND window = FindWindowW(L"frmpreview", nullptr);
    bool engine = false;
    if (window != nullptr) EnumChildWindows(window, findEngine, reinterpret_cast<LPARAM>(&engine));
    return window == nullptr || engine;
  });
  EXPECT_EQ(gui::readBytes(copyOf(L"a")), copy);
  if (FindWindowW(L"frmpreview", nullptr) == nullptr) {
    EXPECT_NE(zervo.answer(IDC_frmBOXa_COK).find("~zervo-preview-a.html"), std::string::npos) << "it says so";
  }
  zervo.command(mnuExit);
  EXPECT_FALSE(zervo.answer(IDC_frmBOXa_Cno).empty());
  EXPECT_EQ(zervo.waitForEnd(), 0U);
  EXPECT_FALSE(std::filesystem::exists(copyOf(L"a")));
}

}  // namespace
