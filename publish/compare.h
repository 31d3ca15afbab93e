// What is new, changed, gone or in conflict: this computer's files, what was sent last, and the server's.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "publish/local_files.h"
#include "publish/state.h"
#include "publish/transport.h"

namespace publish {

enum class Change {
  New,      // not on the server
  Changed,  // here only, since it was sent
  Same,
  Gone,     // sent once, no longer here, and on the server as it was sent
  Conflict  // the server's file is not the one that was sent
};

struct Item {
  Change change = Change::Same;
  std::string path;    // below the account's folder
  LocalFile local;     // of what is here
  std::string digest;  // of what is here, where it had to be read
  bool here = false;   // there is a local file
  bool there = false;  // there is a file on the server
  Entry remote;        // of what is there
};

using RemoteFiles = std::map<std::string, Entry, std::less<>>;  // by path below the account's folder

// The server's file is as it was listed when it was sent.
bool isAsSent(const Entry& remote, const Sent& sent);

// By path. `digestOf` reads a local file; asked only where size and time do not tell. What was never sent and
// is not here is not ours and is left out.
std::vector<Item> compare(const std::vector<LocalFile>& local, const State& state, const RemoteFiles& remote,
                          const std::function<std::string(const LocalFile&)>& digestOf);

}  // namespace publish
