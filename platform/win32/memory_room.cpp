#include "platform/win32/memory_room.h"

#include <algorithm>
#include <cstdint>

#include "platform/win32/windows_api.h"

namespace win32 {
namespace {

// What the control needs, rounded up. Wine's, measured: it keeps an object a paragraph and a run.
struct Cost {
  std::uint64_t ofByte;
  std::uint64_t ofLine;
};
constexpr Cost kWine = {48, 3000};
constexpr Cost kWindows = {16, 400};                     // an estimate on the safe side
constexpr std::uint64_t kReserve = 64ULL * 1024 * 1024;  // for the rest of the program

Cost cost() {
  static const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return wine ? kWine : kWindows;
}

}  // namespace

bool roomForText(std::string_view text, std::size_t given) {
  MEMORYSTATUSEX memory{};
  memory.dwLength = sizeof memory;
  GlobalMemoryStatusEx(&memory);
  const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n') +
                                                std::count(text.begin(), text.end(), '\r'));
  const std::uint64_t needed = text.size() * cost().ofByte + lines * cost().ofLine;
  const std::uint64_t available = std::min(memory.ullAvailVirtual, memory.ullAvailPageFile);
  return needed <= available + given * cost().ofByte - std::min(available, kReserve);
}

}  // namespace win32
