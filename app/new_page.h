// The text of a new page, and what the settings put into it.
#pragma once

#include <string>

#include "app/props_record.h"

namespace app {

// What stands behind "<BODY" in new pages, with its blanks; empty when nothing is wanted.
std::string bodyAttributes(const PropsRecord& props);

struct NewPage {
  std::string text;  // CR LF line ends
  int caret;         // in the empty line of its body
};
// A whole page in UTF-8, with the head text and the BODY attributes of the settings where they are on.
NewPage wholePage(const PropsRecord& props);

}  // namespace app
