// Why a file was left as it is, or is not as it was wanted.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/error.h"
#include "convert/page_census.h"

namespace site {

enum class Note : std::uint8_t {
  None,
  Empty,
  Utf16,
  Binary,
  TooBig,
  ForeignCharset,
  Link,        // leads out of the folder or to a folder: not followed
  Special,     // no ordinary file
  BadName,     // cannot be named here
  Outside,     // a name in a list that leads out of the folder
  NotFound,    //
  Denied,      //
  DiskFull,    //
  Memory,      //
  Device,      // any other error of the disk
  Changed,     // since the dry run, or by others since it was converted
  NotPlanned,  // not there in the dry run
  Exists,      // in the new folder there is another file of that name
  Damaged,     // its copy in the backup is not what it was
  InWork,      // another run is at work on it
};

struct NoteText {
  std::string_view id;  // in lines of JSON
  std::string_view english;
  std::string_view georgian;
};
const NoteText& textOf(Note note);
Note noteNamed(std::string_view id);  // None for one that is not known

// Something was not done that was wanted; the others only say what there is.
bool isFault(Note note);

Note noteOf(convert::Trouble trouble);
Note noteOf(const base::Error& error);

}  // namespace site
