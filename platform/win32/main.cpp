// The process entry: one thread, one message loop.
#include "platform/curl/curl_transport.h"
#include "platform/win32/cli/command_line.h"
#include "platform/win32/code_view/code_view.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/window/main_window.h"
#include "platform/win32/window/message_loop.h"
#include "program/program.h"
// windows.h first
#include <ole2.h>

namespace {

// What stands behind the program's own name, exactly as it was given.
std::wstring commandLine() {
  const std::wstring line = GetCommandLineW();
  const bool quoted = !line.empty() && line[0] == L'"';
  std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  if (end == std::wstring::npos) return {};
  if (quoted) ++end;
  const std::size_t start = line.find_first_not_of(L" \t", end);
  return start == std::wstring::npos ? std::wstring() : line.substr(start);
}

int run() {
  constexpr INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  const win32::BundledFonts fonts;
  win32::Win32Platform platform;
  win32::CodeView codeView;
  program::Program program(platform, codeView, platform::makeCurlTransport);
  const win32::MainWindow window(program.window(), codeView);
  program.start(win32::utf8FromWide(commandLine()));
  const int result =
      win32::runMessageLoop([&program] { program.window().idle(); }, [&program] { program.window().pause(); },
                            [&program] { return program.window().background(); });
  platform.closeModeless();
  return result;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  if (win32::startedAsCommandLine()) return win32::runCommandLine();
  OleInitialize(nullptr);
  const int result = win32::guarded(run, 1);
  OleUninitialize();
  return result;
}
