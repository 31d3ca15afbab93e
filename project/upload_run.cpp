#include "project/upload_run.h"

#include <algorithm>
#include <charconv>

#include "base/cp1252.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace project {
namespace {

using namespace ui::literals;

constexpr std::string_view kIndent = "     ";
// A password as short as this can be guessed from the words in which it does or does not occur.
constexpr std::size_t kGuessable = 4;

struct Reason {
  int number;
  const char* sentence;
};
// Numbers of the system's files, sockets and internet functions.
constexpr Reason kReasons[] = {{2, "ფაილი ვერ მოიძებნა"},
                               {3, "საქაღალდე ვერ მოიძებნა"},
                               {5, "ფაილის წაკითხვა აკრძალულია"},
                               {14, "მეხსიერება არ კმარა"},
                               {32, "ფაილი სხვა პროგრამას უკავია"},
                               {33, "ფაილი სხვა პროგრამას უკავია"},
                               {112, "დისკზე ასლისთვის ადგილი აღარ არის"},
                               {10013, "ქსელთან კავშირი აკრძალულია"},
                               {10051, "ქსელი მიუწვდომელია"},
                               {10053, "კავშირი გაწყდა"},
                               {10054, "კავშირი გაწყდა"},
                               {10060, "სერვერმა დროულად არ უპასუხა"},
                               {10061, "სერვერმა ფაილის კავშირი არ მიიღო; სცადეთ Passive რეჟიმის შეცვლა"},
                               {10065, "სერვერამდე გზა არ არის"},
                               {12002, "სერვერმა დროულად არ უპასუხა"},
                               {12003, "სერვერმა უარი თქვა"},
                               {12007, "ასეთი სერვერი ვერ მოიძებნა"},
                               {12014, "პაროლი არასწორია"},
                               {12015, "სახელი ან პაროლი არასწორია"},
                               {12029, "სერვერი არ იღებს კავშირს"},
                               {12030, "კავშირი გაწყდა"},
                               {12031, "კავშირი გაწყდა"},
                               {12110, "სერვერმა კავშირი დახურა"},
                               {12111, "სერვერმა კავშირი დახურა"}};
// Of a server's refusals.
constexpr Reason kRefusals[] = {{421, "სერვერი ახლა არ მუშაობს"},
                                {425, "სერვერმა ფაილის კავშირი ვერ გახსნა; სცადეთ Passive რეჟიმის შეცვლა"},
                                {426, "ფაილის კავშირი გაწყდა"},
                                {452, "სერვერზე ადგილი აღარ არის"},
                                {530, "სახელი ან პაროლი არასწორია"},
                                {550, "სერვერზე ასეთი საქაღალდე არ არის, ან მასში ჩაწერა აკრძალულია"},
                                {552, "სერვერზე ადგილი აღარ არის"},
                                {553, "სერვერი ასეთ სახელს არ იღებს"}};

template <std::size_t kCount>
const char* sentenceOf(const Reason (&reasons)[kCount], int number) {
  const auto* known = std::find_if(std::begin(reasons), std::end(reasons),
                                   [&](const Reason& reason) { return reason.number == number; });
  return known == std::end(reasons) ? nullptr : known->sentence;
}

// The number of a reply; 0: there is none.
int codeOf(std::string_view words) {
  int code = 0;
  std::from_chars(words.data(), words.data() + words.size(), code);
  return code;
}

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

bool isUploaded(const app::Ithem& record) {
  const std::string path(base::trimSpaces(record.filepath));
  return record.saved && !path.empty() && base::fileExists(path);
}

void UploadRun::say(const ui::Text& text, const std::string& rest) {
  log_(ui::display(text) + rest);
}

bool UploadRun::hasPassword(std::string_view words) const {
  const std::string& password = bytes_[3];
  return !password.empty() &&
         (password.size() < kGuessable || words.find(password) != std::string_view::npos);
}

void UploadRun::sayWords(std::string_view words) {
  for (const std::string& line : base::split(hasPassword(words) ? words.substr(0, 3) : words, base::kCrLf)) {
    log_(std::string(kIndent) + base::nameFromStored(base::trimSpaces(line)) +
         (hasPassword(words) ? " ***" : ""));
  }
}

// What the log's own lines do not tell.
void UploadRun::sayWhy() {
  const ui::FtpResult& result = ftp_.result();
  const auto say = [&](const std::string& sentence) { log_(std::string(kIndent) + sentence + "."); };
  if (result.end == ui::FtpResult::End::Stopped) return say("შეწყვეტილია");
  if (result.end == ui::FtpResult::End::Silent) {
    return say("სერვერი " + std::to_string(result.seconds) + " წამია არ პასუხობს");
  }
  const auto numbered = [](const char* sentence, int number) {
    return std::string(sentence) + " (" + std::to_string(number) + ")";
  };
  const std::string_view words = base::trimSpaces(result.words);
  const int code = codeOf(words);
  if (const char* refusal = sentenceOf(kRefusals, code)) {
    say(numbered(refusal, code));
  } else if (const char* reason = sentenceOf(kReasons, result.error)) {
    say(numbered(reason, result.error));
  } else if (result.error != 0) {
    say(numbered("სისტემის შეცდომა", result.error));
  } else if (words.empty()) {
    say("სისტემა მიზეზს არ ამბობს");
  }
  if (!words.empty()) sayWords(words);
}

// Nothing when the server could not be asked.
std::optional<std::string> UploadRun::remoteBytes(const std::string& remote) {
  if (isAscii(remote)) return remote;
  bool utf8 = false;
  if (!ftp_.FtpAskUtf8(utf8)) return std::nullopt;
  const auto bytes = utf8 ? std::nullopt : base::bytesFromUtf8(remote);
  log_(std::string(kIndent) + "სახელი სერვერზე " + (bytes ? "Windows-1252" : "UTF-8") +
       " ბაიტებით იწერება: " + remote);
  return bytes ? bytes : remote;
}

bool UploadRun::uploadFile(const std::string& local, TransferType type, bool closeAfterwards) {
  const std::string remote = account_[4] + "/" + base::fileName(local);
  if (!ftp_.FtpIsConnected()) {
    say("» ÃÀÊÀÅÛÉÒÄÁÀ ÓÄÒÅÄÒÈÀÍ: "_legacy, account_[1]);
    if (!ftp_.FtpConnect(account_[1], bytes_[2], bytes_[3])) {
      say("»» ÓÄÒÅÄÒÈÀÍ ÃÀÊÀÅÛÉÒÄÁÀ ÀÒ ÌÏáÃÀ.ÛÄÝÃÏÌÀ!"_legacy);
      sayWhy();
      return false;
    }
    say("»» [OK]"_legacy);
  }
  say("»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ: "_legacy, local);
  const auto name = remoteBytes(remote);
  const bool sent = name && ftp_.FtpUploadFile(local, *name, type);
  say(sent ? "»»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ ÛÄÓÒÖËÄÁÖËÉÀ."_legacy : "»»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ ÀÒ ÌÏáÃÀ.ÛÄÝÃÏÌÀ!"_legacy);
  if (!sent) sayWhy();
  if (closeAfterwards) ftp_.FtpDisconnect();
  return sent;
}

bool UploadRun::uploadAll(app::ColectionMain& documents,
                          const std::function<void(const std::string& path)>& done) {
  const std::int16_t count = documents.Count();
  for (std::int16_t i = 0; i < count && i < documents.Count(); ++i) {
    if (!isUploaded(documents.Item(i))) continue;
    const std::string path(base::trimSpaces(documents.Item(i).filepath));
    if (!uploadFile(path, transferTypeOf(path), i == count - 1)) {
      say("»»» ×ÀÉËÄÁÉÓ ÂÀÃÀÔÀÍÀ ÛÄßÚÃÀ."_legacy);
      return false;
    }
    done(path);
  }
  return true;
}

}  // namespace project
