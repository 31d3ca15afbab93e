#include "platform/win32/code_view/memory_room.h"

#include <algorithm>
#include <cstdint>

#include "platform/win32/system/windows_api.h"

namespace win32 {
namespace {

constexpr std::uint64_t kReserve = 64ULL * 1024 * 1024;  // for the rest of the program
constexpr std::size_t kAlwaysFits = 1024 * 1024;         // not worth asking

std::uint64_t largestFreeBlock() {
  std::uint64_t largest = 0;
  MEMORY_BASIC_INFORMATION region;
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;) {
    if (region.State == MEM_FREE) largest = std::max<std::uint64_t>(largest, region.RegionSize);
    const char* const next = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    if (next <= at) break;
    at = next;
  }
  return largest;
}

bool room(std::uint64_t inAll, std::uint64_t inOneBlock) {
  MEMORYSTATUSEX memory{};
  memory.dwLength = sizeof memory;
  GlobalMemoryStatusEx(&memory);
  const std::uint64_t available = std::min(memory.ullAvailVirtual, memory.ullAvailPageFile);
  return inAll + kReserve <= available && inOneBlock <= largestFreeBlock();
}

}  // namespace

bool roomForDocument(std::size_t size) {
  // Text and styles, and the places of up to one line in four bytes.
  return size <= kAlwaysFits || room(std::uint64_t{size} * 4, std::uint64_t{size} + size / 8);
}

bool roomForChange(std::size_t size, std::size_t removed, std::size_t added) {
  if (added <= kAlwaysFits && removed <= kAlwaysFits) return true;
  // Both buffers, text and styles, are made anew beside the old when they grow; the history keeps what went
  // and what came.
  const std::uint64_t grown = std::uint64_t{size} + added - removed;
  const std::uint64_t buffers = grown > size ? 2 * grown + grown / 4 : 0;
  return room(buffers + added + removed,
              std::max<std::uint64_t>(grown > size ? grown + grown / 8 : 0, std::max(added, removed)));
}

}  // namespace win32
