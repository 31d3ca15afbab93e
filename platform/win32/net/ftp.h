// FTP by WinINet. Its calls block, so each runs on a thread of its own; they reach the server through a
// relay, which sees their progress and can end them.
#pragma once

#include <memory>

#include "ui/platform/ftp.h"

namespace win32 {

class WinInetFtp final : public ui::Ftp {
 public:
  ~WinInetFtp() override;
  ui::FtpResult connect(const ui::FtpServer& server, int silence, const ui::FtpWatch& watch) override;
  ui::FtpResult askUtf8(bool& utf8, int silence, const ui::FtpWatch& watch) override;
  ui::FtpResult put(const std::string& local, const std::string& remote, bool binary, int silence,
                    const ui::FtpWatch& watch) override;
  void disconnect() override;
  bool connected() const override;

 private:
  struct Session;
  // Runs on the session's thread; gives success.
  using Call = std::function<bool(Session& session)>;
  ui::FtpResult run(Call call, int silence, const ui::FtpWatch& watch);

  std::shared_ptr<Session> session_;
};

}  // namespace win32
