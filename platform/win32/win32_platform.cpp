#include "platform/win32/win32_platform.h"

#include <algorithm>

#include "base/path.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/net/ftp.h"
#include "platform/win32/system/clipboard.h"
#include "platform/win32/system/pointer.h"
#include "platform/win32/system/registry.h"
#include "platform/win32/system/resources.h"
#include "platform/win32/system/shell.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/common_dialogs.h"
#include "platform/win32/window/menus.h"
#include "platform/win32/window/message_loop.h"
#include "ui/recent_folders.h"

namespace win32 {
namespace {

ui::FileDialog inItsFolder(const ui::Platform& platform, ui::FileDialog dialog) {
  dialog.folder = ui::folderToOpen(platform, dialog);
  return dialog;
}

}  // namespace

void Win32Platform::showModal(ui::Form& form) {
  runModal(form);
}

void Win32Platform::showModeless(ui::Form& form) {
  for (const auto& host : modeless_) {
    if (!host->shows(form)) continue;
    host->show();
    return;
  }
  modeless_.erase(std::remove_if(modeless_.begin(), modeless_.end(),
                                 [](const auto& host) { return host->window() == nullptr; }),
                  modeless_.end());
  modeless_.push_back(std::make_unique<DialogHost>(form, activeWindow(), DialogHost::Kind::Modeless));
  modeless_.back()->show();
}

int Win32Platform::popupMenu(const std::vector<ui::MenuItem>& items, PopupPlace place) {
  POINT point;
  GetCursorPos(&point);
  const HWND focus = place == PopupPlace::Focus ? GetFocus() : nullptr;
  RECT area;
  // By keyboard the pointer may be anywhere: then at the control.
  if (focus != nullptr && GetWindowRect(focus, &area) != 0 && PtInRect(&area, point) == 0) {
    point = {area.left + (area.right - area.left) / 4, area.top + (area.bottom - area.top) / 4};
  }
  return showPopup(activeWindow(), items, point);
}

std::vector<std::string> Win32Platform::openFiles(const ui::FileDialog& dialog) {
  std::vector<std::string> paths = win32::openFiles(activeWindow(), inItsFolder(*this, dialog));
  if (!paths.empty()) ui::rememberFolder(*this, dialog, paths.front());
  return paths;
}

std::optional<std::string> Win32Platform::saveFile(const ui::FileDialog& dialog) {
  const auto path = win32::saveFile(activeWindow(), inItsFolder(*this, dialog));
  if (path) ui::rememberFolder(*this, dialog, *path);
  return path;
}

std::optional<std::string> Win32Platform::pickFolder(const ui::Text& title) {
  return win32::pickFolder(activeWindow(), title);
}

std::optional<base::Color> Win32Platform::pickColor(base::Color first) {
  return win32::pickColor(activeWindow(), first);
}

std::vector<std::string> Win32Platform::fontNames() const {
  return installedFonts();
}

std::string Win32Platform::fontFile(std::string_view family) const {
  return bundledFontFile(family);
}

std::string Win32Platform::programFolder() const {
  return base::folderOf(programFile());
}

std::string Win32Platform::resource(std::string_view name) const {
  return customResource(name);
}

std::string Win32Platform::registryValue(std::string_view section, std::string_view key) const {
  return win32::registryValue(section, key);
}

void Win32Platform::setRegistryValue(std::string_view section, std::string_view key, std::string_view value) {
  win32::setRegistryValue(section, key, value);
}

void Win32Platform::setClipboard(const ui::TextClip& clip) {
  putClip(activeWindow(), clip);
}

bool Win32Platform::clipboardHasText() const {
  return win32::clipboardHasText();
}

bool Win32Platform::darkColours() const {
  DWORD light = 1;
  DWORD size = sizeof light;
  if (RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                   L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size) == ERROR_SUCCESS &&
      light == 0) {
    return true;
  }
  // A dark scheme of high contrast has no such value.
  const COLORREF back = GetSysColor(COLOR_WINDOW);
  return GetRValue(back) + GetGValue(back) + GetBValue(back) < 3 * 128;
}

void Win32Platform::setHourglass(bool on) {
  win32::setHourglass(on);
}

void Win32Platform::pumpEvents() {
  pumpMessages();
}

bool Win32Platform::stopRequested() {
  // The low bit: pressed since the last question.
  return GetAsyncKeyState(VK_ESCAPE) != 0;
}

std::unique_ptr<ui::Ftp> Win32Platform::makeFtp() {
  return std::make_unique<WinInetFtp>();
}

bool Win32Platform::shellOpen(std::string_view path, std::string_view parameters) {
  return win32::shellOpen(activeWindow(), path, parameters);
}

bool Win32Platform::browse(std::string_view path) {
  return win32::browse(activeWindow(), path);
}

bool Win32Platform::startProcess(std::string_view commandLine) {
  return win32::startProcess(commandLine);
}

bool Win32Platform::showHelpFile(std::string_view path, std::string_view topic) {
  return showHelp(activeWindow(), path, topic);
}

}  // namespace win32
