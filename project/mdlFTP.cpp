#include "project/mdlFTP.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/path.h"

namespace project {

TransferType transferTypeOf(const std::string& path) {
  static constexpr std::array<std::string_view, 9> kBinary = {"BMP", "JPG", "GIF", "PNG", "MP3",
                                                              "MID", "WMA", "RA",  "RM"};
  const bool binary = std::find(kBinary.begin(), kBinary.end(), base::extensionOf(path)) != kBinary.end();
  return binary ? TransferType::Binary : TransferType::Ascii;
}

bool mdlFTP::FtpConnect(const std::string& server, const std::string& user, const std::string& password) {
  FtpDisconnect();
  ui::FtpServer wanted{server, 0, user, password, passive};
  const std::size_t colon = server.rfind(':');
  if (colon != std::string::npos) {
    int port = 0;
    const char* const end = server.data() + server.size();
    const auto read = std::from_chars(server.data() + colon + 1, end, port);
    if (read.ptr == end && read.ec == std::errc() && port > 0 && port <= 0xFFFF) {
      wanted.host = server.substr(0, colon);
      wanted.port = port;
    }
  }
  result_ = ftp_.connect(wanted, silence, watch);
  return result_.done();
}

bool mdlFTP::FtpUploadFile(const std::string& localPath, const std::string& remotePath, TransferType type) {
  result_ = ftp_.put(localPath, remotePath, type == TransferType::Binary, silence, watch);
  return result_.done();
}

}  // namespace project
