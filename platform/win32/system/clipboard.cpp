#include "platform/win32/system/clipboard.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/error.h"
#include "platform/win32/system/strings.h"

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

struct OwnHeader {
  std::uint64_t size;  // of the bytes behind it
  std::uint64_t source;
  DWORD process;
  int form;
};

UINT ownFormat() {
  static const UINT format = RegisterClipboardFormatW(L"Zervo Bytes");
  return format;
}

// Into the opened clipboard.
void put(UINT format, const void* data, std::size_t size) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
  if (block == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, "მეხსიერება არ კმარა.");
  std::memcpy(GlobalLock(block), data, size);
  GlobalUnlock(block);
  if (SetClipboardData(format, block) == nullptr) GlobalFree(block);
}

}  // namespace

void putClip(HWND owner, const ui::TextClip& clip) {
  const OpenedClipboard clipboard(owner);
  EmptyClipboard();
  const std::wstring letters = wideFromUtf8(clip.letters);
  if (!letters.empty()) put(CF_UNICODETEXT, letters.c_str(), (letters.size() + 1) * sizeof(wchar_t));
  if (clip.bytes.empty()) return;
  put(CF_TEXT, clip.bytes.c_str(), clip.bytes.size() + 1);
  const OwnHeader header{clip.bytes.size(), clip.source, GetCurrentProcessId(), clip.form};
  std::string own(sizeof header, '\0');
  std::memcpy(own.data(), &header, sizeof header);
  own += clip.bytes;
  put(ownFormat(), own.data(), own.size());
}

ui::TextClip clipboardClip(HWND owner) {
  const OpenedClipboard clipboard(owner);
  ui::TextClip clip;
  clip.letters = utf8FromWide(textOfGlobal(GetClipboardData(CF_UNICODETEXT)));
  const HANDLE block = GetClipboardData(ownFormat());
  const auto* const data = block == nullptr ? nullptr : static_cast<const char*>(GlobalLock(block));
  if (data == nullptr) return clip;
  OwnHeader header{};
  if (GlobalSize(block) > sizeof header) {
    std::memcpy(&header, data, sizeof header);
    // A block may be larger than what was put there.
    clip.bytes.assign(data + sizeof header,
                      std::min<std::size_t>(GlobalSize(block) - sizeof header, header.size));
    clip.form = header.form;
    clip.source = header.process == GetCurrentProcessId() ? header.source : 0;
  }
  GlobalUnlock(block);
  return clip;
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
