#include "project/ftp_accounts.h"

#include <charconv>

#include "base/cp1252.h"
#include "base/error.h"
#include "base/text.h"

namespace project {
namespace {

constexpr std::string_view kSeparator = "\x01";
constexpr int kKey = 481526;
constexpr std::size_t kDigits = 6;
constexpr std::size_t kPassword = 3;

}  // namespace

std::string scrambled(std::string_view password) {
  std::string digits;
  for (const char c : password) digits += std::to_string(kKey + static_cast<unsigned char>(c));
  return digits;
}

std::optional<std::string> unscrambled(std::string_view digits) {
  if (digits.size() % kDigits != 0) return std::nullopt;
  std::string password;
  for (; !digits.empty(); digits.remove_prefix(kDigits)) {
    int number = 0;
    const auto end = digits.data() + kDigits;
    if (std::from_chars(digits.data(), end, number).ptr != end) return std::nullopt;
    if (number < kKey || number > kKey + 0xFF) return std::nullopt;
    password += static_cast<char>(static_cast<unsigned char>(number - kKey));
  }
  return password;
}

std::string accountLine(const FtpFields& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].find_first_of("\r\n\x01") != std::string::npos) {
      throw base::Error(base::ErrorNumber::InvalidCall, "ანგარიშის ველი ერთი სტრიქონი უნდა იყოს.");
    }
    if (i > 0) line += kSeparator;
    const std::string stored = base::storedName(fields[i]);
    line += i == kPassword ? scrambled(stored) : stored;
  }
  return line;
}

FtpFields accountBytes(const std::string& line) {
  FtpFields fields;
  const std::vector<std::string> parts = base::split(line, kSeparator);
  for (std::size_t i = 0; i < fields.size() && i < parts.size(); ++i) {
    fields[i] = i == kPassword ? unscrambled(parts[i]).value_or("") : parts[i];
  }
  return fields;
}

FtpFields accountFields(const std::string& line) {
  FtpFields fields = accountBytes(line);
  for (std::string& field : fields) field = base::nameFromStored(field);
  return fields;
}

FtpAccounts parseAccounts(std::string_view text) {
  FtpAccounts accounts;
  // Other editors end the last line too.
  while (text.ends_with(base::kCrLf)) text.remove_suffix(base::kCrLf.size());
  if (text.empty()) return accounts;
  if (base::replaceAll(std::string(text), base::kCrLf, "").find_first_of(std::string_view("\r\n\0", 3)) !=
      std::string::npos) {
    accounts.damage.emplace_back("სტრიქონების დაბოლოებები შეცვლილია.");
  }
  const std::string lines =
      base::replaceAll(base::replaceAll(base::replaceAll(std::string(text), base::kCrLf, "\n"), "\r", "\n"),
                       std::string_view("\0", 1), "");
  int number = 0;
  for (const std::string& line : base::split(lines, "\n")) {
    const std::string where = "სტრიქონი " + std::to_string(++number) + ": ";
    if (base::trimSpaces(line).empty()) {
      accounts.damage.push_back(where + "ცარიელია.");
      continue;
    }
    accounts.lines.push_back(line);
    const auto parts = base::split(line, kSeparator);
    if (parts.size() != std::tuple_size_v<FtpFields>) {
      accounts.damage.push_back(where + std::to_string(parts.size()) + " ველი აქვს 5-ის ნაცვლად.");
    } else if (!unscrambled(parts[kPassword])) {
      accounts.damage.push_back(where + "პაროლი არ იკითხება.");
    }
  }
  return accounts;
}

std::string formatAccounts(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : std::string(base::kCrLf)) + line;
  return text;
}

}  // namespace project
