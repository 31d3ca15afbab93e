// What was last published to an account: a file beside the pages.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "publish/address.h"

namespace publish {

struct Sent {
  std::int64_t size = 0, time = 0;  // of the file here when it was sent
  std::string digest;               // of what it held, as fileDigest() gives it
  // As the server listed it afterwards.
  std::int64_t remoteSize = 0, remoteTime = -1, remotePrecision = 1;
};

struct State {
  std::string id;                                  // eight digits in the names of files that are on their way
  std::string certificateKey;                      // that the user has accepted; empty: none
  std::map<std::string, Sent, std::less<>> files;  // by path below the account's folder
};

// Its name: one for each address.
std::string stateFile(std::string_view folder, const Address& address);

// A missing file is an empty state with a new id, and so is a damaged line no line: what is not known to have
// been sent is compared anew. Throws base::Error where the file is there and cannot be read.
State readState(std::string_view path);
void writeState(std::string_view path, const Address& address, const State& state);

}  // namespace publish
