#include "project/publish_texts.h"

namespace project {
namespace {

using publish::Fault;

const char* plain(Fault fault) {
  switch (fault) {
    case Fault::Refused:
      return "სერვერი კავშირს არ იღებს";
    case Fault::UnknownHost:
      return "ასეთი სერვერი არ არსებობს";
    case Fault::Login:
      return "სერვერმა სახელი, პაროლი ან გასაღები არ მიიღო";
    case Fault::KeyFile:
      return "გასაღების ფაილი არ გამოდგება: საიდუმლო ფრაზა არასწორია ან ფორმატი უცნობია";
    case Fault::KeyKind:
      return "ამ სახის გასაღებს პირდაპირ ვერ ვკითხულობთ; გამოიყენეთ ECDSA (ssh-keygen -t ecdsa) ან "
             "SSH-აგენტი";
    case Fault::Silent:
      return "სერვერი არ პასუხობს";
    case Fault::Cut:
      return "კავშირი გაწყდა";
    case Fault::DiskFull:
      return "სერვერის დისკი სავსეა";
    case Fault::NoPermission:
      return "სერვერი ამის უფლებას არ იძლევა";
    case Fault::NotFound:
      return "სერვერზე ასეთი ფაილი ან საქაღალდე არ არის";
    case Fault::Certificate:
      return "სერვერის სერტიფიკატს ვერ ვენდობით";
    case Fault::NoEncryption:
      return "სერვერი დაშიფრულ კავშირს არ გვთავაზობს";
    case Fault::NewHostKey:
      return "სერვერის გასაღები უცნობია და არ მიგიღიათ";
    case Fault::ChangedHostKey:
      return "სერვერის გასაღები შეიცვალა: შესაძლოა, თქვენსა და სერვერს შორის ვიღაც დგას. არაფერი გაგზავნილა";
    case Fault::SizeDiffers:
      return "სერვერზე იმაზე მეტი ან ნაკლები ბაიტია, ვიდრე გაიგზავნა";
    case Fault::ChangedMeanwhile:
      return "სერვერის ფაილი შედარების შემდეგ შეიცვალა; ხელი არ გვიხლია";
    case Fault::LocalFile:
      return "ამ კომპიუტერის ფაილი არ იკითხება, არ იწერება ან გაგზავნისას შეიცვალა";
    case Fault::Stopped:
      return "შეჩერებულია";
    default:
      return "სერვერმა ეს ვერ შეასრულა";
  }
}

}  // namespace

std::string sizeText(std::int64_t bytes) {
  constexpr std::int64_t kKilo = 1024;
  if (bytes < kKilo) return std::to_string(bytes) + " B";
  if (bytes < kKilo * kKilo) return std::to_string((bytes + kKilo / 2) / kKilo) + " KB";
  const std::int64_t tenths = bytes * 10 / (kKilo * kKilo);
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string textOf(publish::Change change) {
  switch (change) {
    case publish::Change::New:
      return "ახალი";
    case publish::Change::Changed:
      return "შეცვლილი";
    case publish::Change::Gone:
      return "აქ აღარ არის";
    case publish::Change::Conflict:
      return "სერვერზე სხვაა";
    default:
      return "იგივე";
  }
}

std::string textOf(publish::AddressFault fault) {
  switch (fault) {
    case publish::AddressFault::UnknownScheme:
      return "მისამართი sftp://, ftps:// ან ftp://-ით უნდა იწყებოდეს.";
    case publish::AddressFault::BadPort:
      return "პორტი რიცხვია 1-დან 65535-მდე.";
    case publish::AddressFault::BadCharacter:
      return "მისამართში დაუშვებელი სიმბოლოა.";
    default:
      return "მისამართში სერვერის სახელი არ წერია.";
  }
}

std::string textOf(const publish::Failure& failure) {
  std::string text = plain(failure.fault());
  if (!failure.words().empty() && failure.fault() != Fault::Stopped) text += " (" + failure.words() + ")";
  return text;
}

}  // namespace project
