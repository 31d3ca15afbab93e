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

}  // namespace

HGLOBAL globalOf(std::string_view bytes) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (block == nullptr) return nullptr;
  std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
  GlobalUnlock(block);
  return block;
}

std::vector<std::pair<UINT, std::string>> blocksOf(const ui::TextClip& clip) {
  std::vector<std::pair<UINT, std::string>> blocks;
  const std::wstring letters = wideFromUtf8(clip.letters);
  if (!letters.empty()) {
    blocks.emplace_back(CF_UNICODETEXT, std::string(reinterpret_cast<const char*>(letters.c_str()),
                                                    (letters.size() + 1) * sizeof(wchar_t)));
  }
  if (clip.bytes.empty()) return blocks;
  blocks.emplace_back(CF_TEXT, std::string(clip.bytes.c_str(), clip.bytes.size() + 1));
  const OwnHeader header{clip.bytes.size(), clip.source, GetCurrentProcessId(), clip.form};
  std::string own(sizeof header, '\0');
  std::memcpy(own.data(), &header, sizeof header);
  blocks.emplace_back(ownFormat(), own + clip.bytes);
  return blocks;
}

ui::TextClip clipFrom(const std::function<HGLOBAL(UINT format)>& block) {
  ui::TextClip clip;
  clip.letters = utf8FromWide(textOfGlobal(block(CF_UNICODETEXT)));
  const HGLOBAL own = block(ownFormat());
  const auto* const data = own == nullptr ? nullptr : static_cast<const char*>(GlobalLock(own));
  if (data == nullptr) return clip;
  OwnHeader header{};
  if (GlobalSize(own) > sizeof header) {
    std::memcpy(&header, data, sizeof header);
    // A block may be larger than what was put there.
    clip.bytes.assign(data + sizeof header,
                      std::min<std::size_t>(GlobalSize(own) - sizeof header, header.size));
    clip.form = header.form;
    clip.source = header.process == GetCurrentProcessId() ? header.source : 0;
  }
  GlobalUnlock(own);
  return clip;
}

void putClip(HWND owner, const ui::TextClip& clip) {
  const OpenedClipboard clipboard(owner);
  EmptyClipboard();
  for (const auto& [format, bytes] : blocksOf(clip)) {
    const HGLOBAL block = globalOf(bytes);
    if (block == nullptr) throw base::Error(base::ErrorNumber::OutOfMemory, "მეხსიერება არ კმარა.");
    if (SetClipboardData(format, block) == nullptr) GlobalFree(block);
  }
}

ui::TextClip clipboardClip(HWND owner) {
  const OpenedClipboard clipboard(owner);
  return clipFrom([](UINT format) { return GetClipboardData(format); });
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
