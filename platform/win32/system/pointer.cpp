#include "platform/win32/system/pointer.h"

#include "platform/win32/system/windows_api.h"

namespace win32 {
namespace {

int& depth() {
  static int count = 0;
  return count;
}

}  // namespace

void setHourglass(bool on) {
  depth() += on ? 1 : -1;
  SetCursor(LoadCursorW(nullptr, depth() > 0 ? IDC_WAIT : IDC_ARROW));
}

bool showHourglass() {
  if (depth() <= 0) return false;
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  return true;
}

}  // namespace win32
