// FTP.ini: the accounts, one a line, five fields joined by the character 1.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace project {

// Description, server, user, password (as typed), directory; UTF-8 unless told otherwise.
using FtpFields = std::array<std::string, 5>;

// The program's own reversible scrambling: six digits a byte. It hides a password from a glance, from nobody
// else.
std::string scrambled(std::string_view password);
std::optional<std::string> unscrambled(std::string_view digits);  // nothing: not made by scrambled()

// Throws base::Error when a field holds a line end or the character 1.
std::string accountLine(const FtpFields& fields);
// Missing fields are empty, and so is a password that cannot be read.
FtpFields accountFields(const std::string& line);
// The same in the bytes that the file holds, which is how a server gets user and password.
FtpFields accountBytes(const std::string& line);

struct FtpAccounts {
  std::vector<std::string> lines;   // as they stand in the file
  std::vector<std::string> damage;  // sentences for the user; empty: the file is whole
};
FtpAccounts parseAccounts(std::string_view text);
std::string formatAccounts(const std::vector<std::string>& lines);

}  // namespace project
