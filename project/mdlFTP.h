// The one FTP connection of the program: connect, upload, disconnect.
#pragma once

#include <memory>
#include <string>

#include "ui/platform/ftp.h"

namespace project {

// Transfer types, with the system's numbers.
enum class TransferType : int { Ascii = 1, Binary = 2 };

// BMP, JPG, GIF, PNG, MP3, MID, WMA, RA and RM are binary.
TransferType transferTypeOf(const std::string& path);

class mdlFTP {
 public:
  // `ftp` must outlive the object. Each call is watched by `watch` and given up after `silence` seconds
  // without a word.
  explicit mdlFTP(ui::Ftp& ftp) : ftp_(ftp) {}

  // The server may be "host:port", with blanks around it, "ftp://" before and "/" behind it; user and
  // password are bytes as they are sent. Closes an open connection first.
  bool FtpConnect(const std::string& server, const std::string& user, const std::string& password);
  bool FtpUploadFile(const std::string& localPath, const std::string& remotePath, TransferType type);
  // `utf8`: the server says that names of files are UTF-8 to it. The result is the question's success.
  bool FtpAskUtf8(bool& utf8);
  void FtpDisconnect() { ftp_.disconnect(); }
  bool FtpIsConnected() const { return ftp_.connected(); }

  // Why the last call failed.
  const ui::FtpResult& result() const { return result_; }

  int silence = 30;
  bool passive = false;
  ui::FtpWatch watch;

 private:
  ui::Ftp& ftp_;
  ui::FtpResult result_;
};

}  // namespace project
