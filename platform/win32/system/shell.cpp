#include "platform/win32/system/shell.h"

#include <shellapi.h>
#include <shlwapi.h>

#include "platform/win32/system/handles.h"
#include "platform/win32/system/strings.h"

namespace win32 {

bool shellOpen(HWND owner, std::string_view path, std::string_view parameters) {
  const std::wstring wideParameters = wideFromUtf8(parameters);
  const HINSTANCE result =
      ShellExecuteW(owner, nullptr, wideFromUtf8(path).c_str(),
                    wideParameters.empty() ? nullptr : wideParameters.c_str(), nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > 32;  // the call's own way to say yes
}

bool browse(HWND owner, std::string_view path) {
  std::wstring full(32768, L'\0');
  full.resize(
      GetFullPathNameW(wideFromUtf8(path).c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  // What opens web addresses: pages on the disk may be tied to an editor.
  wchar_t browser[MAX_PATH];
  DWORD size = MAX_PATH;
  if (SUCCEEDED(AssocQueryStringW(ASSOCF_NONE, ASSOCSTR_EXECUTABLE, L"http", L"open", browser, &size))) {
    std::wstring url(full.size() * 9 + 16, L'\0');  // no character takes more
    DWORD length = static_cast<DWORD>(url.size());
    if (UrlCreateFromPathW(full.c_str(), url.data(), &length, 0) == S_OK) {
      url.resize(length);
      const HINSTANCE result =
          ShellExecuteW(owner, nullptr, browser, (L"\"" + url + L"\"").c_str(), nullptr, SW_SHOWNORMAL);
      if (reinterpret_cast<INT_PTR>(result) > 32) return true;
    }
  }
  return shellOpen(owner, utf8FromWide(full), "");
}

bool startProcess(std::string_view commandLine) {
  std::wstring line = wideFromUtf8(commandLine);  // the call writes into it
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process) ==
      0) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

namespace {

// The viewer's window comes up without one too, and stays empty.
bool hasPageEngine() {
  constexpr CLSID kHtmlDocument = {
      0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};
  IUnknown* document = nullptr;
  const HRESULT made = CoCreateInstance(kHtmlDocument, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                        reinterpret_cast<void**>(&document));
  const UniqueCom<IUnknown> released(document);
  return SUCCEEDED(made);
}

}  // namespace

bool showHelp(HWND owner, std::string_view path, std::string_view topic) {
  // Not every system has it, so it is looked up when wanted; it stays, since its window does.
  static const UniqueLibrary viewer(LoadLibraryW(L"hhctrl.ocx"));
  using HtmlHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  const auto htmlHelp =
      viewer ? reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(GetProcAddress(viewer.get(), "HtmlHelpW")))
             : nullptr;
  static const bool engine = hasPageEngine();
  if (htmlHelp == nullptr || !engine) return false;
  constexpr UINT kDisplayTopic = 0;
  const std::wstring wideTopic = wideFromUtf8(topic);
  return htmlHelp(owner, wideFromUtf8(path).c_str(), kDisplayTopic,
                  wideTopic.empty() ? 0 : reinterpret_cast<DWORD_PTR>(wideTopic.c_str())) != nullptr;
}

}  // namespace win32
