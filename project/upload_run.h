// Uploading one file or all saved documents: the steps and the lines that the log shows.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/document_list.h"
#include "project/ftp_accounts.h"
#include "project/mdlFTP.h"
#include "ui/text.h"

namespace project {

class UploadRun {
 public:
  // `account`: its line in the file. `log` takes each line as the user reads it, UTF-8, without line end.
  UploadRun(mdlFTP& ftp, const std::string& account, std::function<void(const std::string&)> log)
      : ftp_(ftp), account_(accountFields(account)), bytes_(accountBytes(account)), log_(std::move(log)) {}

  // True when the file is on the server.
  bool uploadFile(const std::string& local, TransferType type, bool closeAfterwards);
  // Every document that is saved and whose file is there, until one fails. The connection is closed behind
  // the last of the list; it stays open when that one is left out.
  bool uploadAll(app::ColectionMain& documents, const std::function<void(const std::string& path)>& done);

 private:
  void say(const ui::Text& text, const std::string& rest = {});
  void sayWhy();
  void sayWords(std::string_view words);
  bool hasPassword(std::string_view words) const;
  std::optional<std::string> remoteBytes(const std::string& remote);

  mdlFTP& ftp_;
  FtpFields account_, bytes_;
  std::function<void(const std::string&)> log_;
};

// The documents that uploadAll() sends.
bool isUploaded(const app::Ithem& record);

}  // namespace project
