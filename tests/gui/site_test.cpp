// The conversion of a whole site, in the real program.
#include "tests/gui/fixture.h"

// After windows.h, which it needs.
#include <commctrl.h>

namespace {

using gui::Session;
using gui::waitFor;
using gui::Zervo;

class Site : public Session {};

TEST_F(Site, APageOfTheListIsLookedAtThenTheSiteIsDoneAndGivenBack) {
  const std::string old =
      "<p>\xD3\xC0\xD8\xC0\xD2\xC8\xC5\xC4\xCB\xCF \xDC\xC5\xC4\xCD\xC9 \xD3\xC0\xC9\xD4\xC9";
  std::filesystem::create_directory(folder / L"site");
  const auto page = file(L"site\\a.html", old);
  Zervo zervo = open();
  zervo.waitUntilFree();
  zervo.command(mnusite);
  const HWND form = gui::shownForm(L"frmsite");
  const HWND list = GetDlgItem(form, IDC_frmsite_LV);
  gui::fill(form, IDC_frmsite_Tfolder, (folder / L"site").wstring().c_str());
  gui::press(form, IDC_frmsite_Cplan);
  waitFor("the page in the list", [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == 1; });
  waitFor("the end of the dry run", [&] { return IsWindowEnabled(list) != 0; });
  EXPECT_EQ(gui::readBytes(page), old);

  PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageW(list, WM_KEYDOWN, VK_RETURN, 1);
  gui::press(gui::shownForm(L"frmletters"), IDC_frmletters_CEXIT);
  waitFor("the list", [&] { return IsWindowEnabled(form) != 0; });

  gui::press(form, IDC_frmsite_Capply);
  gui::press(gui::shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the new letters", [&] { return gui::readBytes(page).find("საქართველო") != std::string::npos; });
  waitFor("the end", [&] { return IsWindowEnabled(GetDlgItem(form, IDC_frmsite_Crestore)) != 0; });
  gui::press(form, IDC_frmsite_Crestore);
  gui::press(gui::shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  waitFor("the old letters", [&] { return gui::readBytes(page) == old; });
  waitFor("the end", [&] { return IsWindowEnabled(list) != 0; });
  gui::press(form, IDC_frmsite_CEXIT);
  zervo.waitUntilFree();
  leave(zervo);
}

}  // namespace
