#include "site/notes.h"

#include <array>

namespace site {
namespace {

constexpr std::array<NoteText, 20> kTexts = {{
    {"", "", ""},
    {"empty", "it is empty", "ცარიელია"},
    {"utf-16", "it is in UTF-16", "UTF-16-ია"},
    {"binary", "this is no text", "ტექსტი არ არის"},
    {"too big", "it is too big", "მეტისმეტად დიდია"},
    {"foreign charset", "its character set is none that is known here", "კოდირება უცნობია"},
    {"link", "a link that is not followed", "ბმული, რომელსაც პროგრამა არ მიჰყვება"},
    {"special", "this is no ordinary file", "ჩვეულებრივი ფაილი არ არის"},
    {"bad name", "its name cannot be used here", "ასეთი სახელის გამოყენება არ შეიძლება"},
    {"outside", "it is not in the folder", "საქაღალდის გარეთაა"},
    {"not found", "there is no such file", "ფაილი ვერ მოიძებნა"},
    {"denied", "access is denied", "წვდომა აკრძალულია"},
    {"disk full", "the disk is full", "დისკზე ადგილი აღარ არის"},
    {"memory", "there is not enough memory", "მეხსიერება არ კმარა"},
    {"device", "it cannot be read or written", "წაკითხვა ან ჩაწერა ვერ ხერხდება"},
    {"changed", "it was changed since by others", "მას შემდეგ სხვამ შეცვალა"},
    {"not planned", "the dry run did not see it", "წინასწარ შემოწმებისას არ იყო"},
    {"exists", "another file of that name is there already", "ამ სახელით სხვა ფაილი უკვე არსებობს"},
    {"damaged", "its copy in the backup is damaged", "სარეზერვო ასლი დაზიანებულია"},
    {"in work", "another run is at work on it", "მასზე სხვა გაშვება მუშაობს"},
}};

}  // namespace

const NoteText& textOf(Note note) {
  return kTexts[static_cast<std::size_t>(note)];
}

Note noteNamed(std::string_view id) {
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    if (kTexts[i].id == id) return static_cast<Note>(i);
  }
  return Note::None;
}

bool isFault(Note note) {
  return note != Note::None && note != Note::Empty && note != Note::Link && note != Note::Special;
}

Note noteOf(convert::Trouble trouble) {
  using convert::Trouble;
  switch (trouble) {
    case Trouble::None:
      return Note::None;
    case Trouble::Empty:
      return Note::Empty;
    case Trouble::Utf16Little:
    case Trouble::Utf16Big:
      return Note::Utf16;
    case Trouble::Binary:
      return Note::Binary;
    case Trouble::TooBig:
      return Note::TooBig;
    case Trouble::ForeignCharset:
      return Note::ForeignCharset;
  }
  return Note::Device;
}

Note noteOf(const base::Error& error) {
  switch (error.number()) {
    case base::ErrorNumber::FileNotFound:
    case base::ErrorNumber::PathNotFound:
      return Note::NotFound;
    case base::ErrorNumber::PathAccess:
      return Note::Special;
    case base::ErrorNumber::PermissionDenied:
      return Note::Denied;
    case base::ErrorNumber::DiskFull:
      return Note::DiskFull;
    case base::ErrorNumber::OutOfMemory:
      return Note::Memory;
    default:
      return Note::Device;
  }
}

}  // namespace site
