#include "app/document_tree.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/file_kind.h"
#include "base/path.h"

namespace app {
namespace {

enum Root : int { kPages, kImages, kAudio, kOther };

struct Pass {
  Root root;
  TreeIcon icon;
  base::FileKind kind;
};

// Each pass walks the whole list, so a document may be met twice.
constexpr std::array<Pass, 9> kPasses = {{{kPages, kIconPage, base::FileKind::Page},
                                          {kPages, kIconStyle, base::FileKind::Style},
                                          {kPages, kIconPage, base::FileKind::ActivePage},
                                          {kPages, kIconScript, base::FileKind::Script},
                                          {kPages, kIconXml, base::FileKind::Xml},
                                          {kPages, kIconScript, base::FileKind::Php},
                                          {kImages, kIconPicture, base::FileKind::Picture},
                                          {kAudio, kIconMedia, base::FileKind::Media},
                                          {kOther, kIconOther, base::FileKind::Other}}};

// Under "Other" are those of no kind above and, on purpose, some that are shown under their own kind as well.
bool isUnderOther(std::string_view extension, base::FileKind kind) {
  constexpr std::array<std::string_view, 8> kTwice = {"SHTML", "MHT", "MHTML", "HPF",
                                                      "HTT",   "CGI", "WSF",   "FLA"};
  return kind >= base::FileKind::WebProject ||
         std::find(kTwice.begin(), kTwice.end(), extension) != kTwice.end();
}

}  // namespace

bool isImage(const Ithem& record) {
  if (!(record.Value == kImageValue)) return false;
  // A page may hold just that word; only a picture's name makes it a picture.
  return base::fileKindOf(base::extensionOf(record.FileTitle)) == base::FileKind::Picture;
}

bool isPictureFile(const std::string& path) {
  const std::string extension = base::lastThree(path);
  return extension == "GIF" || extension == "JPG" || extension == "PNG" || extension == "BMP";
}

std::vector<ui::TreeView::Node> treeNodes(ColectionMain& documents) {
  std::vector<ui::TreeView::Node> nodes = {{-1, "T", "WEB Files", "", kIconPages},
                                           {-1, "B", "Image", "", kIconPictures},
                                           {-1, "A", "Audio", "", kIconSounds},
                                           {-1, "O", "Other", "", kIconOthers}};
  for (const Pass& pass : kPasses) {
    for (std::int16_t i = 0; i < documents.Count(); ++i) {
      const Ithem& record = documents.Item(i);
      const std::string extension = base::extensionOf(record.FileTitle);
      const base::FileKind kind = base::fileKindOf(extension);
      const bool listed =
          pass.kind == base::FileKind::Other ? isUnderOther(extension, kind) : kind == pass.kind;
      if (!listed) continue;
      const bool data = pass.root == kImages && !isImage(record);
      nodes.push_back(
          {pass.root, "", record.FileTitle, std::to_string(i), data ? kIconPictureData : pass.icon});
    }
  }
  return nodes;
}

}  // namespace app
