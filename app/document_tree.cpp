#include "app/document_tree.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/path.h"

namespace app {
namespace {

enum Root : int { kPages, kImages, kAudio, kOther };

struct Pass {
  Root root;
  TreeIcon icon;
  bool listed;  // false: the pass takes what is NOT in its list
  std::vector<std::string_view> extensions;
};

// Each pass walks the whole list, so a document may be met twice: the last list is shorter than the union of
// the others on purpose, and SHTML, MHT, CGI and their like stand under "Other" as well.
const std::array<Pass, 9>& passes() {
  static const std::array<Pass, 9> rows = {{
      {kPages, kIconPage, true, {"HTML", "HTM", "SHTML", "MHT", "MHTML", "HPF", "HTT"}},
      {kPages, kIconStyle, true, {"CGI", "CSS"}},
      {kPages, kIconPage, true, {"ASP"}},
      {kPages, kIconScript, true, {"VBS", "JS", "WSF"}},
      {kPages, kIconXml, true, {"XML"}},
      {kPages, kIconScript, true, {"PHP3", "PHP"}},
      {kImages, kIconPicture, true, {"JPG", "GIF", "PNG", "BMP", "WMF"}},
      {kAudio, kIconMedia, true, {"MP3", "WAV", "MID", "RA", "RM", "FLA"}},
      {kOther,
       kIconOther,
       false,
       {"HTML", "HTM", "CSS", "ASP", "JS", "VBS", "XML", "PHP", "PHP3", "GIF", "JPG", "PNG", "BMP", "WMF",
        "WAV", "MP3", "MID", "RA", "RM"}},
  }};
  return rows;
}

}  // namespace

bool isImage(const Ithem& record) {
  if (!(record.Value == kImageValue)) return false;
  // A page may hold just that word; only a picture's name makes it a picture.
  const std::string extension = base::extensionOf(record.FileTitle);
  const auto& pictures = passes()[6].extensions;
  return std::find(pictures.begin(), pictures.end(), extension) != pictures.end();
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
  for (const Pass& pass : passes()) {
    for (std::int16_t i = 0; i < documents.Count(); ++i) {
      const Ithem& record = documents.Item(i);
      const std::string extension = base::extensionOf(record.FileTitle);
      const bool found =
          std::find(pass.extensions.begin(), pass.extensions.end(), extension) != pass.extensions.end();
      if (found != pass.listed) continue;
      const bool data = pass.root == kImages && !isImage(record);
      nodes.push_back(
          {pass.root, "", record.FileTitle, std::to_string(i), data ? kIconPictureData : pass.icon});
    }
  }
  return nodes;
}

}  // namespace app
