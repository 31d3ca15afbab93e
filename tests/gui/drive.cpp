// zervo-drive: the driver for scripts. Carries out one action on the running Zervo and waits for its end.
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "resources/ids.h"
#include "tests/gui/driver.h"

namespace {

constexpr const char* kUsage =
    "zervo-drive start PROGRAM FILE...   start it and wait for its window\n"
    "zervo-drive command ID...           send menu commands, by their numbers in ids.h\n"
    "zervo-drive expect FILE             wait until the code view shows the bytes of FILE\n"
    "zervo-drive view utf8|8bit          wait until the code view shows its bytes so\n"
    "zervo-drive saved FILE WANTED       wait until FILE holds the bytes of WANTED\n"
    "zervo-drive select START END        select in the code view\n"
    "zervo-drive key NUMBER              press a key in the code view, by its virtual-key number\n"
    "zervo-drive show                    print caption, tree and status bar\n"
    "zervo-drive answer BUTTON           press a button of the open box, print the box's message\n"
    "zervo-drive close                   end the program and wait for its end\n";

void start(const std::vector<std::wstring>& words) {
  std::wstring files;
  for (std::size_t i = 1; i < words.size(); ++i) files += (i > 1 ? L" \"" : L"\"") + words[i] + L"\"";
  gui::Zervo::started(words.at(0), files);
}

void run(const std::wstring& action, const std::vector<std::wstring>& words) {
  if (action == L"start") return start(words);
  gui::Zervo zervo = gui::Zervo::running();
  if (action == L"command") {
    for (const std::wstring& id : words) zervo.command(std::stoi(id));
  } else if (action == L"expect") {
    zervo.waitForText(gui::readBytes(words.at(0)));
  } else if (action == L"view") {
    gui::waitFor(
        "the view", [&] { return zervo.showsUtf8() == (words.at(0) == L"utf8"); }, 10);
  } else if (action == L"saved") {
    gui::waitFor("the saved file",
                 [&] { return gui::readBytes(words.at(0)) == gui::readBytes(words.at(1)); });
  } else if (action == L"select") {
    zervo.select(std::stoi(words.at(0)), std::stoi(words.at(1)));
  } else if (action == L"key") {
    const HWND view = zervo.control(IDC_FrmH_T1);
    for (const UINT message : {WM_KEYDOWN, WM_KEYUP}) {
      PostMessageW(view, message, static_cast<WPARAM>(std::stoi(words.at(0))), 1);
    }
  } else if (action == L"show") {
    std::cout << zervo.caption() << "\n";
    for (const std::string& node : zervo.tree()) std::cout << "  " << node << "\n";
    for (int panel = 0; panel < 5; ++panel) std::cout << (panel ? " | " : "  ") << zervo.status(panel);
    std::cout << "\n";
  } else if (action == L"answer") {
    std::cout << zervo.answer(std::stoi(words.at(0))) << "\n";
  } else if (action == L"close") {
    zervo.command(mnuExit);
    zervo.waitForEnd();
  } else {
    throw gui::Failure(kUsage);
  }
}

}  // namespace

int wmain(int count, wchar_t** words) {
  try {
    if (count < 2) throw gui::Failure(kUsage);
    run(words[1], {words + 2, words + count});
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "zervo-drive: " << error.what() << "\n";
    return 1;
  }
}
