// How a page refers to another document: as link, picture, style sheet or script.
#pragma once

#include <string>
#include <string_view>

#include "app/workbench.h"

namespace editor {

// What refers to the file `title` at `address`; a link goes around `selected`, when something is. Byte texts.
std::string referenceTo(std::string_view title, std::string_view address, std::string_view selected);

// A document that is dropped from the tree into the code view becomes a reference there. As long as the
// workbench lives.
void takeDroppedDocuments(app::Workbench& bench);

}  // namespace editor
