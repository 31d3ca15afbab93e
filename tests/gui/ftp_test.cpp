// Uploading from the real program to a real FTP server; tests/support/ftp_servers.py.
#include <cstdlib>
#include <sstream>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

std::string digits(const std::string& password) {
  std::string all;
  for (const char c : password) all += std::to_string(481526 + static_cast<unsigned char>(c));
  return all;
}

TEST_F(Session, AFileIsUploadedAndAWrongPasswordIsTold) {
  const char* const told = std::getenv("ZERVO_FTP");
  if (told == nullptr) GTEST_SKIP() << "no FTP servers run";
  std::string port, failing, served;
  std::istringstream(told) >> port >> failing >> served;
  const auto page = file(L"page.htm", "<P>text</P>\r\n");
  const auto account = [&](const std::string& name, const std::string& password) {
    return name +
           "\x01"
           "127.0.0.1:" +
           port + "\x01tester\x01" + digits(password) + "\x01";
  };
  const std::string ini = account("right", "pass word") + "\r\n" + account("wrong", "other");
  file(L"FTP.ini", ini);
  std::filesystem::remove(served + "\\page.htm");
  Zervo zervo = open({page});
  zervo.waitForText("<P>text</P>\r\n");
  zervo.command(mnuupload);
  const HWND form = shownForm(L"frmupload");
  const Dialog dialog(form);
  fill(form, IDC_frmupload_Tfile, page.c_str());
  SendMessageW(GetDlgItem(form, IDC_frmupload_OPB), BM_CLICK, 0, 0);
  press(form, IDC_frmupload_Cupload);
  const auto log = [&] { return dialog.text(IDC_frmupload_Tinf); };
  waitFor("the upload", [&] { return log().find("ფაილის გადატანა შესრულებულია") != std::string::npos; });
  EXPECT_EQ(readBytes(served + "\\page.htm"), "<P>text</P>\r\n");

  waitFor("the end of the run",
          [&] { return IsWindowEnabled(GetDlgItem(form, IDC_frmupload_CBaccount)) != FALSE; });
  SendMessageW(GetDlgItem(form, IDC_frmupload_CBaccount), CB_SETCURSEL, 1, 0);
  SendMessageW(form, WM_COMMAND, MAKEWPARAM(IDC_frmupload_CBaccount, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(GetDlgItem(form, IDC_frmupload_CBaccount)));
  press(form, IDC_frmupload_Cupload);
  waitFor("the refusal", [&] { return log().find("530 ") != std::string::npos; });
  EXPECT_EQ(log().find("other"), std::string::npos);
  waitFor("the end of the run",
          [&] { return IsWindowEnabled(GetDlgItem(form, IDC_frmupload_CBaccount)) != FALSE; });
  press(form, IDC_frmupload_Command1);
  waitFor("the end of the form", [&] { return IsWindow(form) == FALSE; });
  EXPECT_EQ(readBytes(folder / L"FTP.ini"), ini);
  leave(zervo);
}

}  // namespace
}  // namespace gui
