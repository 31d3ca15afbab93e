// Why something on a server could not be done. What the user reads is made of it by who shows it.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace publish {

enum class Fault {
  None,
  Refused,           // nobody listens, or the server takes no more connections
  UnknownHost,       // no address for the name
  Login,             // user, password or key are not accepted
  KeyFile,           // the private key cannot be read, or its passphrase is wrong
  KeyKind,           // a private key that cannot be read here; an agent might
  Silent,            // no sign of life for the time that is said
  Cut,               // the connection ended
  DiskFull,          // or the user's part of it
  NoPermission,      // for a file or folder
  NotFound,          // a file or folder of the server
  Certificate,       // one that cannot be trusted
  NoEncryption,      // the server offers none
  NewHostKey,        // never seen and not accepted
  ChangedHostKey,    // another one than before
  SizeDiffers,       // the server holds another number of bytes than were sent
  ChangedMeanwhile,  // the server's file is not the one that was compared
  LocalFile,         // cannot be read, written, or was changed while it was sent
  Stopped,           // by the user
  Other
};

class Failure : public std::exception {
 public:
  // `words`: the server's or the library's own, in whatever language; may be empty.
  explicit Failure(Fault fault, std::string words = {}) : fault_(fault), words_(std::move(words)) {}

  Fault fault() const { return fault_; }
  const std::string& words() const { return words_; }
  const char* what() const noexcept override { return words_.c_str(); }

 private:
  Fault fault_;
  std::string words_;
};

}  // namespace publish
