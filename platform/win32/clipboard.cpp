#include "platform/win32/clipboard.h"

#include <cstring>

#include "base/error.h"

namespace win32 {
namespace {

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    constexpr int kTries = 10;  // another program may hold it for a moment
    for (int i = 0; OpenClipboard(owner) == 0; ++i) {
      if (i == kTries) {
        throw base::Error(base::ErrorNumber::PermissionDenied, "ბუფერი სხვა პროგრამას უკავია.");
      }
      Sleep(10);
    }
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() { CloseClipboard(); }
};

}  // namespace

void putClipboardText(HWND owner, std::wstring_view text) {
  const OpenedClipboard clipboard(owner);
  EmptyClipboard();
  if (text.empty()) return;
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t));
  if (block == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, "მეხსიერება არ კმარა.");
  std::memcpy(GlobalLock(block), text.data(), text.size() * sizeof(wchar_t));
  GlobalUnlock(block);
  if (SetClipboardData(CF_UNICODETEXT, block) == nullptr) GlobalFree(block);
}

std::wstring clipboardText(HWND owner) {
  const OpenedClipboard clipboard(owner);
  return textOfGlobal(GetClipboardData(CF_UNICODETEXT));
}

bool clipboardHasText() {
  return IsClipboardFormatAvailable(CF_UNICODETEXT) != 0;
}

std::wstring textOfGlobal(HGLOBAL block) {
  const auto* const data = block == nullptr ? nullptr : static_cast<const wchar_t*>(GlobalLock(block));
  if (data == nullptr) return {};
  std::wstring text(data, wcsnlen(data, GlobalSize(block) / sizeof(wchar_t)));
  GlobalUnlock(block);
  return text;
}

}  // namespace win32
