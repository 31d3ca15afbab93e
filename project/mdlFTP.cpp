#include "project/mdlFTP.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/path.h"
#include "base/text.h"

namespace project {
namespace {

struct Server {
  std::string host;
  int port = 0;  // 0: the service's own
};

// As users write it, or paste it from a browser.
Server serverOf(std::string_view text) {
  constexpr std::string_view kScheme = "FTP://";
  text = base::trimSpaces(text);
  if (base::upperAscii(text.substr(0, kScheme.size())) == kScheme) text.remove_prefix(kScheme.size());
  while (text.ends_with('/')) text.remove_suffix(1);
  const std::size_t colon = text.rfind(':');
  if (colon != std::string_view::npos) {
    int port = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + colon + 1, end, port);
    if (read.ptr == end && read.ec == std::errc() && port > 0 && port <= 0xFFFF) {
      return {std::string(base::trimSpaces(text.substr(0, colon))), port};
    }
  }
  return {std::string(text), 0};
}

}  // namespace

TransferType transferTypeOf(const std::string& path) {
  static constexpr std::array<std::string_view, 9> kBinary = {"BMP", "JPG", "GIF", "PNG", "MP3",
                                                              "MID", "WMA", "RA",  "RM"};
  const bool binary = std::find(kBinary.begin(), kBinary.end(), base::extensionOf(path)) != kBinary.end();
  return binary ? TransferType::Binary : TransferType::Ascii;
}

bool mdlFTP::FtpConnect(const std::string& server, const std::string& user, const std::string& password) {
  FtpDisconnect();
  const Server at = serverOf(server);
  result_ = ftp_.connect({at.host, at.port, user, password, passive}, silence, watch);
  return result_.done();
}

bool mdlFTP::FtpUploadFile(const std::string& localPath, const std::string& remotePath, TransferType type) {
  result_ = ftp_.put(localPath, remotePath, type == TransferType::Binary, silence, watch);
  return result_.done();
}

bool mdlFTP::FtpAskUtf8(bool& utf8) {
  result_ = ftp_.askUtf8(utf8, silence, watch);
  return result_.done();
}

}  // namespace project
