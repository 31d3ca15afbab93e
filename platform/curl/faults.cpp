#include "platform/curl/faults.h"

#include <curl/curl.h>

#include <algorithm>

#include "base/text.h"

namespace platform {
namespace {

using publish::Fault;

bool holds(std::string_view text, std::string_view words) {
  return base::upperAscii(text).find(base::upperAscii(words)) != std::string::npos;
}

int numberOf(std::string_view reply) {
  if (reply.size() < 3) return 0;
  int number = 0;
  for (const char c : reply.substr(0, 3)) {
    if (c < '0' || c > '9') return 0;
    number = number * 10 + (c - '0');
  }
  return number;
}

bool tellsOfRoom(std::string_view text) {
  return holds(text, "no space") || holds(text, "quota") || holds(text, "disk full") ||
         holds(text, "failure writing to local file");
}

bool tellsOfMissing(std::string_view text) {
  return holds(text, "no such") || holds(text, "not found") || holds(text, "not exist");
}

// Of a refusal that is about a file.
Fault ofReply(std::string_view reply) {
  if (tellsOfRoom(reply)) return Fault::DiskFull;
  switch (numberOf(reply)) {
    case 421:
      return Fault::Refused;
    case 425:
    case 426:
      return Fault::Cut;
    case 430:
    case 530:
    case 532:
      return Fault::Login;
    case 452:
    case 552:
      return Fault::DiskFull;
    case 450:
    case 550:
    case 553:
      return tellsOfMissing(reply) ? Fault::NotFound : Fault::NoPermission;
    default:
      return Fault::Other;
  }
}

}  // namespace

Fault faultOf(publish::Scheme scheme, int code, std::string_view reply, std::string_view text) {
  const bool ftp = scheme != publish::Scheme::Sftp;
  const bool refused = ftp && numberOf(reply) >= 400;
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return Fault::UnknownHost;
    case CURLE_COULDNT_CONNECT:
      return Fault::Refused;
    case CURLE_OPERATION_TIMEDOUT:
    case CURLE_FTP_ACCEPT_TIMEOUT:
      return Fault::Silent;
    case CURLE_USE_SSL_FAILED:
      return Fault::NoEncryption;
    case CURLE_LOGIN_DENIED:
      return numberOf(reply) == 421 ? Fault::Refused : Fault::Login;
    case CURLE_REMOTE_DISK_FULL:
      return Fault::DiskFull;
    case CURLE_REMOTE_FILE_NOT_FOUND:
      return refused ? ofReply(reply) : Fault::NotFound;
    case CURLE_REMOTE_ACCESS_DENIED:
      return refused ? ofReply(reply) : Fault::NoPermission;
    case CURLE_WEIRD_SERVER_REPLY:
      return refused ? ofReply(reply) : Fault::Cut;
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_FTP_WEIRD_PASV_REPLY:
    case CURLE_FTP_WEIRD_PASS_REPLY:
    case CURLE_FTP_CANT_GET_HOST:
    case CURLE_FTP_ACCEPT_FAILED:
    case CURLE_SSL_CONNECT_ERROR:
      return refused && numberOf(reply) != 426 ? ofReply(reply) : Fault::Cut;
    default:
      break;
  }
  if (refused) return ofReply(reply);
  if (!ftp) {
    if (tellsOfRoom(text)) return Fault::DiskFull;
    if (holds(text, "permission denied") || holds(text, "write protect")) return Fault::NoPermission;
    if (tellsOfMissing(text)) return Fault::NotFound;
    // What a folder or a server's rule refuses is told as "Operation failed"; all else is about the
    // connection.
    if (code == CURLE_QUOTE_ERROR && !holds(text, "unknown error")) return Fault::Other;
    if (code == CURLE_SSH || code == CURLE_QUOTE_ERROR) return Fault::Cut;
  }
  return Fault::Other;
}

}  // namespace platform
