// What the tree `TV` shows: the documents under four roots, by kind of file.
#pragma once

#include <vector>

#include "app/document_list.h"
#include "ui/controls.h"

namespace app {

// Image numbers of the tree. A click on a node with icon 31 or 34 does nothing: its document has no text that
// could be shown.
enum TreeIcon : int {
  kIconPages = 1,
  kIconPictures = 2,
  kIconSounds = 3,
  kIconOthers = 4,
  kIconPage = 11,
  kIconStyle = 12,
  kIconScript = 13,
  kIconXml = 14,
  kIconOther = 15,
  kIconMedia = 31,
  kIconPicture = 33,      // a picture by name alone
  kIconPictureData = 34,  // a picture that a project brought with its bytes
};

// Behind the name of a document in caption and tab.
inline constexpr const char* kChangedMark = " *";

// Records whose bytes are no text: pictures that the list holds by name alone.
bool isImage(const Ithem& record);

// A file that the list takes as a picture, by the last three letters of its path.
bool isPictureFile(const std::string& path);

// The four roots and below them the records, in the order in which the tree shows them. A node's tag is the
// record's position in decimal; roots have none.
std::vector<ui::TreeView::Node> treeNodes(ColectionMain& documents);

}  // namespace app
