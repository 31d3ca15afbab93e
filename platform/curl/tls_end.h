// The end of a TLS connection that the system keeps to itself.
#pragma once

namespace platform {

// Once, when the library has begun. Wine's Schannel takes in the message by which a server ends a connection
// and does not tell of it; a server that waits for the answer, as vsftpd does after a list, then waits for
// ever. Windows itself tells, and there nothing changes.
void hearEndOfTls();

}  // namespace platform
