#include "project/upload_run.h"

#include <algorithm>

#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace project {
namespace {

using namespace ui::literals;

struct Reason {
  int error;
  const char* sentence;
};
// Numbers of the system's internet functions.
constexpr Reason kReasons[] = {{2, "ფაილი ვერ მოიძებნა"},           {5, "ფაილის წაკითხვა აკრძალულია"},
                               {32, "ფაილი სხვა პროგრამას უკავია"}, {12002, "სერვერმა დროულად არ უპასუხა"},
                               {12003, "სერვერმა უარი თქვა"},       {12007, "ასეთი სერვერი ვერ მოიძებნა"},
                               {12014, "პაროლი არასწორია"},         {12015, "სახელი ან პაროლი არასწორია"},
                               {12029, "სერვერი არ იღებს კავშირს"}, {12030, "კავშირი გაწყდა"},
                               {12031, "კავშირი გაწყდა"},           {12110, "სერვერმა კავშირი დახურა"}};

}  // namespace

bool isUploaded(const app::Ithem& record) {
  const std::string path(base::trimSpaces(record.filepath));
  return record.saved && !path.empty() && base::fileExists(path);
}

void UploadRun::say(const ui::Text& text, const std::string& rest) {
  log_(ui::display(text) + rest);
}

std::string UploadRun::withoutPassword(const std::string& words) const {
  return account_[3].empty() ? words : base::replaceAll(words, account_[3], "***");
}

// What the log's own lines do not tell.
void UploadRun::sayWhy() {
  const ui::FtpResult& result = ftp_.result();
  if (result.end == ui::FtpResult::End::Stopped) return log_("     შეწყვეტილია.");
  if (result.end == ui::FtpResult::End::Silent) {
    return log_("     სერვერი " + std::to_string(ftp_.silence) + " წამია არ პასუხობს.");
  }
  const auto* known = std::find_if(std::begin(kReasons), std::end(kReasons),
                                   [&](const Reason& reason) { return reason.error == result.error; });
  const std::string number = std::to_string(result.error);
  log_(known == std::end(kReasons) ? "     შეცდომა " + number
                                   : "     " + std::string(known->sentence) + " (" + number + ").");
  // Only words of refusal can be about this failure: others are left from before.
  if (!result.words.empty() && (result.words[0] == '4' || result.words[0] == '5')) {
    log_("     " + withoutPassword(std::string(base::trimSpaces(result.words))));
  }
}

bool UploadRun::uploadFile(const std::string& local, TransferType type, bool closeAfterwards) {
  const std::string name = base::fileName(local);
  const std::string remote = account_[4] + "/" + name;
  if (!ftp_.FtpIsConnected()) {
    say("» ÃÀÊÀÅÛÉÒÄÁÀ ÓÄÒÅÄÒÈÀÍ: "_legacy, account_[1]);
    if (!ftp_.FtpConnect(account_[1], account_[2], account_[3])) {
      say("»» ÓÄÒÅÄÒÈÀÍ ÃÀÊÀÅÛÉÒÄÁÀ ÀÒ ÌÏáÃÀ.ÛÄÝÃÏÌÀ!"_legacy);
      sayWhy();
      return false;
    }
    say("»» [OK]"_legacy);
  }
  say("»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ: "_legacy, local);
  const bool ascii =
      std::all_of(remote.begin(), remote.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!ascii) log_("     სახელი სერვერზე UTF-8 ბაიტებით იწერება: " + remote);
  const bool sent = ftp_.FtpUploadFile(local, remote, type);
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
