// One connection to a server, whatever its protocol.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "publish/address.h"
#include "publish/failure.h"
#include "publish/known_hosts.h"

namespace publish {

// Of a file of the server, as its list shows it.
struct Entry {
  std::string name;
  bool folder = false;
  bool link = false;
  std::int64_t size = 0;       // bytes
  std::int64_t time = -1;      // of the last change, seconds since 1970 by the server's clock; -1: not told
  std::int64_t precision = 1;  // seconds: the time is not known better than this
};

struct Login {
  std::string user;
  std::optional<std::string> password;  // as bytes
  std::string keyFile;                  // private key, by UTF-8 path; empty: none
  std::string passphrase;
  bool agent = true;  // keys of a running SSH agent
};

// A certificate that nobody vouches for.
struct Certificate {
  std::string subject, issuer;
  std::string ends;         // the last day on which it holds, in the certificate's own words
  std::string fingerprint;  // "SHA256:" and hexadecimal digits
  std::string key;          // what trust is kept by: "sha256//" and base64 of its public key
  std::string why;          // it is not trusted, in the library's words
};

struct Trust {
  std::string authorities;  // certificates in PEM; empty: the system's
  std::string key;          // Certificate::key that the user has accepted for this account; empty: none
  std::string hostLines;    // text of the file of known hosts
};

struct Limits {
  int connect = 20;  // seconds until a server must have taken the connection
  int silence = 30;  // seconds without a sign of life
};

// What a connection tells while it works; called on the thread that uses it.
struct Watch {
  std::function<bool()> stopped = [] { return false; };
  // A line of the conversation: ">" or "<" and a blank in front; passwords are left out.
  std::function<void(const std::string& line)> said = [](const std::string&) {};
};

// Every function may throw Failure; after Cut, Silent, Refused and Stopped the connection is gone, and the
// next call makes it anew. Paths are bytes, as in Address::folder. Used by one thread at a time.
class Transport {
 public:
  virtual ~Transport() = default;

  // Before the first connection, and again when the user has answered.
  Login login;
  Trust trust;
  Limits limits;
  Watch watch;

  // Only makes sure that there is a connection and that the server lets us in.
  virtual void connect() = 0;
  // Without "." and "..".
  virtual std::vector<Entry> list(const std::string& folder) = 0;
  // Writes what `read` gives (0: the end) from byte `offset` of the file on; `size` is the whole file's.
  // `read` is called for the bytes from `offset` on.
  virtual void put(const std::string& path, std::int64_t offset, std::int64_t size,
                   const std::function<std::size_t(char* buffer, std::size_t room)>& read) = 0;
  virtual void get(const std::string& path, const std::function<void(std::string_view)>& take) = 0;
  virtual void makeFolder(const std::string& path) = 0;
  virtual void rename(const std::string& from, const std::string& to) = 0;
  // Renaming onto an existing file replaces it.
  virtual bool renameReplaces() const = 0;
  virtual void remove(const std::string& path) = 0;
  virtual void removeFolder(const std::string& path) = 0;
  // The key that the last NewHostKey or ChangedHostKey was about.
  virtual HostKey hostKey() const = 0;
  // What the last Certificate was about; asks the server once more, without a password.
  virtual Certificate certificate() = 0;
};

using MakeTransport = std::function<std::unique_ptr<Transport>(const Address&)>;

}  // namespace publish
