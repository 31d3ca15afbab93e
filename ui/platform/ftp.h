// Putting files on an FTP server, as the program asks it of its platform.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace ui {

struct FtpServer {
  std::string host;            // UTF-8
  int port = 0;                // 0: the service's own
  std::string user, password;  // bytes as they are sent
  bool passive = false;
};

struct FtpResult {
  enum class End { Done, Failed, Stopped, Silent } end = End::Done;
  int error = 0;      // of the system, when Failed; 0: it tells none
  std::string words;  // of the server when it refused, with their number; bytes as they came, lines by CR LF
  int seconds = 0;    // without a word, when Silent
  bool done() const { return end == End::Done; }
};

// Asked several times a second while a call is under way; `sent` are bytes of the file, as far as they are
// known. False ends the call.
using FtpWatch = std::function<bool(std::uint64_t sent)>;

// One connection at a time. Each call returns when it is done, failed, stopped by its watch, or when for
// `silence` seconds the server has neither said a word nor taken a byte; the connection is closed in the last
// two cases. What a slow server has not read yet, on its way to it, has its time beside.
class Ftp {
 public:
  virtual ~Ftp() = default;
  virtual FtpResult connect(const FtpServer& server, int silence, const FtpWatch& watch) = 0;
  // Asks the connected server whether names of files are UTF-8 to it; one that does not know the question has
  // not said so.
  virtual FtpResult askUtf8(bool& utf8, int silence, const FtpWatch& watch) = 0;
  // `local` is UTF-8, `remote` bytes as they are sent.
  virtual FtpResult put(const std::string& local, const std::string& remote, bool binary, int silence,
                        const FtpWatch& watch) = 0;
  virtual void disconnect() = 0;
  virtual bool connected() const = 0;
};

}  // namespace ui
