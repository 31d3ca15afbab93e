// Any bytes as FTP.ini.
#include "base/error.h"
#include "base/text.h"
#include "project/ftp_accounts.h"
#include "tests/fuzz/fuzz.h"

FUZZ(FtpAccounts, {"A\1h:21\1u\1"
                   "481591\1/www",
                   "\1", "\r\n", "\n", "\r", std::string(1, '\0'), "481526", "481781", "481782", "48152", " ",
                   "\xC0", "\xE1\x83\x90", "x"}) {
  const project::FtpAccounts read = project::parseAccounts(bytes);
  const std::string written = project::formatAccounts(read.lines);
  while (bytes.ends_with(base::kCrLf)) bytes.remove_suffix(base::kCrLf.size());
  if (read.damage.empty()) MUST(written == bytes);
  MUST(project::parseAccounts(written).lines == read.lines);
  for (const std::string& line : read.lines) {
    const project::FtpFields fields = project::accountFields(line);
    try {
      const std::string again = project::accountLine(fields);
      MUST(project::accountFields(again) == fields);
      if (read.damage.empty()) MUST(again == line);
    } catch (const base::Error&) {
      MUST(fields[3].find_first_of("\r\n\1") != std::string::npos);  // a password that no form gives
    }
  }
}
