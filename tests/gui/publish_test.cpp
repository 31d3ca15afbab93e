// Publishing from the real program to a real SSH server; tests/publish/servers.py.
#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "tests/gui/fixture.h"

// After windows.h, which it needs.
#include <commctrl.h>

namespace gui {
namespace {

// Of the SSH server that runs for the tests.
struct Server {
  std::string port, user, served;  // served: "Z:\\folder"
  std::wstring address(const std::string& below) const {
    std::string folder = served;
    std::ranges::replace(folder, '\\', '/');
    return wide("sftp://127.0.0.1:" + port + folder.substr(2) + below);
  }
  void fillIn(HWND form, const std::string& below, const std::filesystem::path& folder) const {
    fill(form, IDC_frmpublish_Taddress, address(below).c_str());
    fill(form, IDC_frmpublish_Tuser, wide(user).c_str());
    fill(form, IDC_frmpublish_Tkey, wide(served + "\\user").c_str());
    fill(form, IDC_frmpublish_Tfolder, folder.c_str());
  }
};

TEST_F(Session, AFolderIsComparedAndWhatDiffersIsPublishedBySftp) {
  const char* const told = std::getenv("ZERVO_SFTP");
  if (told == nullptr) GTEST_SKIP() << "no SSH server runs";
  Server server;
  std::istringstream(told) >> server.port >> server.user >> server.served;
  std::filesystem::create_directory(folder / L"site");
  const auto page = file(L"site\\გვერდი.htm", "<P>text</P>\r\n");
  file(L"site\\same.htm", "same\n");
  const auto there = std::filesystem::path(wide(server.served + "\\site")) / L"გვერდი.htm";
  Zervo zervo = open();
  zervo.waitUntilFree();
  zervo.command(mnupublish);
  const HWND form = shownForm(L"frmpublish");
  const HWND list = GetDlgItem(form, IDC_frmpublish_LV);
  const auto rows = [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); };
  const auto ready = [&] { return IsWindowEnabled(GetDlgItem(form, IDC_frmpublish_Ccompare)) != FALSE; };
  server.fillIn(form, "/site", folder / L"site");

  press(form, IDC_frmpublish_Ccompare);
  // The server was never met.
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("what is new", [&] { return ready() && rows() == 2; });
  EXPECT_FALSE(std::filesystem::exists(there));
  press(form, IDC_frmpublish_Cupload);
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the page there", [&] { return readBytes(there) == "<P>text</P>\r\n"; });
  waitFor("the end of the run", ready);

  writeBytes(page, "<P>longer text</P>\r\n");
  press(form, IDC_frmpublish_Ccompare);
  waitFor("what has changed", [&] { return ready() && rows() == 1; });
  // Somebody else changes it too: that is not overwritten unasked.
  writeBytes(there, "theirs, of another length\n");
  press(form, IDC_frmpublish_Cupload);
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the end of the run", ready);
  EXPECT_EQ(readBytes(there), "theirs, of another length\n");
  press(form, IDC_frmpublish_CEXIT);
  zervo.waitUntilFree();
  leave(zervo);
}

TEST_F(Session, APageOfTheServerIsOpenedEditedAndSentBack) {
  const char* const told = std::getenv("ZERVO_SFTP");
  if (told == nullptr) GTEST_SKIP() << "no SSH server runs";
  Server server;
  std::istringstream(told) >> server.port >> server.user >> server.served;
  const std::filesystem::path root(wide(server.served + "\\remote"));
  const auto there = root / L"ქალაქი" / L"გვერდი.htm";
  std::filesystem::create_directory(folder / L"mine");
  Zervo zervo = open();
  zervo.waitUntilFree();
  const auto look = [&] {
    zervo.command(mnupublish);
    const HWND form = shownForm(L"frmpublish");
    server.fillIn(form, "/remote", folder / L"mine");
    press(form, IDC_frmpublish_Cremote);
    return shownForm(L"frmremote");
  };
  HWND form = look();
  const auto rows = [&] {
    return IsWindowEnabled(GetDlgItem(form, IDC_frmremote_Crefresh)) == FALSE
               ? -1
               : SendMessageW(GetDlgItem(form, IDC_frmremote_LV), LVM_GETITEMCOUNT, 0, 0);
  };
  // Met before or not, by the order of the tests.
  waitFor("the folder or the question",
          [&] { return FindWindowW(L"frmBOXa", nullptr) != nullptr || rows() == 0; });
  if (FindWindowW(L"frmBOXa", nullptr) != nullptr) press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the folder", [&] { return rows() == 0; });
  press(form, IDC_frmremote_Cmake);
  const HWND box = shownForm(L"frmBOXa");
  fill(box, IDC_frmBOXa_Tanswer, L"ქალაქი");
  press(box, IDC_frmBOXa_COK);
  waitFor("the new folder", [&] { return rows() == 1; });
  writeBytes(there, "<P>theirs</P>\r\n");
  press(form, IDC_frmremote_Copen);
  waitFor("the page's folder",
          [&] { return rows() == 1 && IsWindowEnabled(GetDlgItem(form, IDC_frmremote_Cup)); });
  press(form, IDC_frmremote_Copen);
  zervo.waitForText("<P>theirs</P>\r\n");
  zervo.waitUntilFree();
  zervo.select(3, 9);
  zervo.type(L'X');
  zervo.command(mnuSave);
  const auto here = folder / L"mine" / L"ქალაქი" / L"გვერდი.htm";
  waitFor("the page saved", [&] { return readBytes(here).starts_with("<P>X</P>\r\n"); });
  zervo.waitUntilFree();
  const std::string mine = readBytes(here);

  form = look();
  waitFor("the folder again", [&] { return rows() == 1; });
  press(form, IDC_frmremote_Copen);
  waitFor("the page's folder again",
          [&] { return rows() == 1 && IsWindowEnabled(GetDlgItem(form, IDC_frmremote_Csend)) != FALSE; });
  // Somebody else was quicker: asked, and first left alone.
  writeBytes(there, "quicker than us\n");
  press(form, IDC_frmremote_Csend);
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cno);
  const auto free = [&] { return FindWindowW(L"frmBOXa", nullptr) == nullptr && rows() == 1; };
  waitFor("the end of the run", free);
  EXPECT_EQ(readBytes(there), "quicker than us\n");
  press(form, IDC_frmremote_Csend);
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("our page there", [&] { return readBytes(there) == mine; });
  waitFor("the end of the second run", free);

  press(form, IDC_frmremote_Cdelete);
  press(shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the page gone", [&] { return rows() == 0; });
  EXPECT_FALSE(std::filesystem::exists(there));
  press(form, IDC_frmremote_CEXIT);
  waitFor("the window to go", [] { return FindWindowW(L"frmremote", nullptr) == nullptr; });
  press(shownForm(L"frmpublish"), IDC_frmpublish_CEXIT);
  leave(zervo);
}

}  // namespace
}  // namespace gui
