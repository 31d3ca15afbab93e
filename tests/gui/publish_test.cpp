// Publishing from the real program to a real SSH server; tests/publish/servers.py.
#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "tests/gui/fixture.h"

// After windows.h, which it needs.
#include <commctrl.h>

namespace gui {
namespace {

TEST_F(Session, AFolderIsComparedAndWhatDiffersIsPublishedBySftp) {
  const char* const told = std::getenv("ZERVO_SFTP");
  if (told == nullptr) GTEST_SKIP() << "no SSH server runs";
  std::string port, user, served;
  std::istringstream(told) >> port >> user >> served;
  std::filesystem::create_directory(folder / L"site");
  const auto page = file(L"site\\გვერდი.htm", "<P>text</P>\r\n");
  file(L"site\\same.htm", "same\n");
  const auto there = std::filesystem::path(wide(served + "\\site")) / L"გვერდი.htm";
  std::string address = served;  // "Z:\folder"
  std::ranges::replace(address, '\\', '/');
  address = "sftp://127.0.0.1:" + port + address.substr(2) + "/site";
  Zervo zervo = open();
  zervo.waitUntilFree();
  zervo.command(mnupublish);
  const HWND form = shownForm(L"frmpublish");
  const HWND list = GetDlgItem(form, IDC_frmpublish_LV);
  const auto rows = [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); };
  const auto ready = [&] { return IsWindowEnabled(GetDlgItem(form, IDC_frmpublish_Ccompare)) != FALSE; };
  fill(form, IDC_frmpublish_Taddress, wide(address).c_str());
  fill(form, IDC_frmpublish_Tuser, wide(user).c_str());
  fill(form, IDC_frmpublish_Tkey, wide(served + "\\user").c_str());
  fill(form, IDC_frmpublish_Tfolder, (folder / L"site").c_str());

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

}  // namespace
}  // namespace gui
