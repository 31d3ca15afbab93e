// What publishing tells and asks while it works.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "publish/compare.h"
#include "publish/failure.h"
#include "publish/known_hosts.h"
#include "publish/transport.h"

namespace publish {

struct Progress {
  int files = 0, filesDone = 0;
  std::int64_t bytes = 0, bytesDone = 0;  // of all files together
  std::string path;                       // of the file that moved last
  std::int64_t size = 0, done = 0;        // of that file
  std::int64_t rate = 0;                  // bytes a second, since the beginning
  std::int64_t secondsLeft = -1;          // -1: not known yet
};

// Called on threads of the engine, one call at a time (but stopped(), which may be asked by several at once).
// What is asked may take as long as the user needs.
class Talk {
 public:
  virtual ~Talk() = default;

  // True from then on: everything ends within about a second with Fault::Stopped.
  virtual bool stopped() { return false; }
  virtual void log(const std::string& /*line*/) {}
  virtual void progress(const Progress& /*now*/) {}
  virtual void done(const Item& /*item*/) {}  // on the server, or removed there
  virtual void failed(const Item& /*item*/, const Failure& /*why*/) {}
  // A fault after which the same is tried again.
  virtual void retrying(const Failure& /*why*/, int /*milliseconds*/) {}

  // Accepted is kept: a certificate for this account, a host key in the file of known hosts.
  virtual bool acceptCertificate(const Certificate& /*certificate*/) { return false; }
  virtual bool acceptHostKey(const HostKey& /*key*/) { return false; }
  // `again`: the last answer was wrong. Nothing: the user does not want to.
  virtual std::optional<std::string> password(const Address& /*address*/, bool /*again*/) {
    return std::nullopt;
  }
  virtual std::optional<std::string> passphrase(const std::string& /*keyFile*/, bool /*again*/) {
    return std::nullopt;
  }
};

}  // namespace publish
