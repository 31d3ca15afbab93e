// Errors at the edge of the program: no exception leaves a window procedure.
#pragma once

#include <string>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// Shows the exception that is being handled, in the system's error box.
void reportException();

// The system's sentence for an error number of GetLastError().
std::string systemMessage(DWORD error);

// Runs `body` and reports what it throws; the result is then `otherwise`.
template <class Body, class Result>
Result guarded(Body body, Result otherwise) {
  try {
    return body();
  } catch (...) {
    reportException();
    return otherwise;
  }
}

}  // namespace win32
