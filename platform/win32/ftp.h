// FTP by WinINet. Its calls block, some of them for ever when a server falls silent, so each runs on a thread
// of its own that can be left behind.
#pragma once

#include <memory>

#include "ui/ftp.h"

namespace win32 {

class ReadPosition;

class WinInetFtp final : public ui::Ftp {
 public:
  ~WinInetFtp() override;
  ui::FtpResult connect(const ui::FtpServer& server, int silence, const ui::FtpWatch& watch) override;
  ui::FtpResult put(const std::string& local, const std::string& remote, bool binary, int silence,
                    const ui::FtpWatch& watch) override;
  void disconnect() override;
  bool connected() const override;

 private:
  struct Session;
  // Runs on the session's thread; gives success.
  using Call = std::function<bool(Session& session)>;
  // `file`: what the call reads, to see how far it is; none: it reads no file.
  ui::FtpResult run(Call call, int silence, const ui::FtpWatch& watch,
                    std::shared_ptr<ReadPosition> file = nullptr);
  void abandon();

  std::shared_ptr<Session> session_;
};

}  // namespace win32
