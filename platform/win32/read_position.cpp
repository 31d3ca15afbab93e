#include "platform/win32/read_position.h"

#include <algorithm>

namespace win32 {
namespace {

constexpr ULONG_PTR kStep = 4;            // between handle values
constexpr ULONG_PTR kFewHandles = 0x400;  // looked through at least

std::uint64_t joined(DWORD high, DWORD low) {
  return (std::uint64_t{high} << 32) | low;
}

}  // namespace

DWORD ReadPosition::watch(const std::wstring& path) {
  const HANDLE opened =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return GetLastError();
  UniqueHandle file(opened);
  BY_HANDLE_FILE_INFORMATION information;
  if (GetFileInformationByHandle(file.get(), &information) == FALSE) return GetLastError();
  volume_ = information.dwVolumeSerialNumber;
  index_ = joined(information.nFileIndexHigh, information.nFileIndexLow);
  size_ = joined(information.nFileSizeHigh, information.nFileSizeLow);
  file.reset();  // before anybody looks: it must not be taken for the reader's
  watched_ = true;
  return ERROR_SUCCESS;
}

void ReadPosition::look() {
  if (!watched_) return;
  const HANDLE self = GetCurrentProcess();
  DWORD count = 0;
  GetProcessHandleCount(self, &count);
  // Values of closed handles are used again, so they stay about as low as the handles are many.
  const ULONG_PTR last = std::max<ULONG_PTR>(kFewHandles, ULONG_PTR{count} * 2) * kStep;
  for (ULONG_PTR value = kStep; !reader_ && value <= last; value += kStep) {
    HANDLE copy = nullptr;
    if (DuplicateHandle(self, reinterpret_cast<HANDLE>(value), self, &copy, 0, FALSE,
                        DUPLICATE_SAME_ACCESS) == FALSE) {
      continue;
    }
    UniqueHandle handle(copy);
    BY_HANDLE_FILE_INFORMATION information;
    if (GetFileType(copy) == FILE_TYPE_DISK && GetFileInformationByHandle(copy, &information) != FALSE &&
        information.dwVolumeSerialNumber == volume_ &&
        joined(information.nFileIndexHigh, information.nFileIndexLow) == index_) {
      reader_ = std::move(handle);
    }
  }
  LARGE_INTEGER at{};
  if (reader_ && SetFilePointerEx(reader_.get(), LARGE_INTEGER{}, &at, FILE_CURRENT) != FALSE) {
    position_ = std::min(static_cast<std::uint64_t>(at.QuadPart), size_);
  }
}

void ReadPosition::cut() const {
  if (reader_) SetFilePointerEx(reader_.get(), LARGE_INTEGER{}, nullptr, FILE_END);
}

}  // namespace win32
