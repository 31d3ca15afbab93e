// How a line of a menu looks: icon or check mark, caption, shortcut, in the system's colours and menu font.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/system/windows_api.h"
// windows.h first
#include <ole2.h>
#include <oleacc.h>

#include "ui/text.h"

namespace win32 {

// A menu item's data points at it.
struct MenuRow {
  MSAAMENUINFO accessible{};  // first: screen readers look for it there
  std::wstring text;          // caption, tab, shortcut
  std::wstring caption;       // "&" before the mnemonic letter
  std::wstring shortcut;      // shown at the right end
  std::string_view icon;      // its drawing; empty: none
  ui::Text help;
  bool separator = false;
  bool inBar = false;
  bool radio = false;
};

void measureMenuRow(HWND window, MEASUREITEMSTRUCT& item);
void drawMenuRow(const DRAWITEMSTRUCT& item, int dpi);

// The user changed fonts or colours.
void menuLookChanged();

}  // namespace win32
