// Sockets that close themselves.
#pragma once

#include "platform/win32/system/handles.h"
// After windows.h, which must not bring the older kind.
#include <winsock2.h>

namespace win32 {

inline void closeSocket(SOCKET socket) {
  closesocket(socket);
}
using UniqueSocket = Unique<SOCKET, closeSocket>;

// Empty for what the system gives where there is no socket.
inline UniqueSocket owned(SOCKET socket) {
  return UniqueSocket(socket == INVALID_SOCKET ? SOCKET{} : socket);
}

}  // namespace win32
