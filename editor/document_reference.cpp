#include "editor/document_reference.h"

#include "base/address.h"
#include "base/error.h"
#include "base/path.h"

namespace editor {
namespace {

// Addresses count from the page; one without a file will be saved in the project, or beside the other.
std::string pageFolder(app::Workbench& bench, const std::string& target) {
  if (!bench.shownPath().empty()) return base::folderOf(bench.shownPath());
  return bench.documents().WEBopened ? bench.documents().WEBpath : base::folderOf(target);
}

void insertReference(app::Workbench& bench, std::int16_t index) {
  const app::Ithem& document = bench.documents().Item(index);
  if (document.filepath.empty()) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ჯერ შეინახეთ დოკუმენტი: ფაილი ჯერ არ აქვს.");
  }
  const std::string address = base::addressOf(pageFolder(bench, document.filepath), document.filepath);
  ui::CodeView& T1 = bench.codeView();
  T1.replaceSelection(referenceTo(document.FileTitle, address, T1.selText()));
}

}  // namespace

std::string referenceTo(std::string_view title, std::string_view address, std::string_view selected) {
  const std::string extension = base::extensionOf(title);
  const std::string to(address);
  for (const char* picture : {"GIF", "JPG", "JPEG", "PNG", "BMP", "SVG"}) {
    if (extension == picture) return "<IMG SRC=\"" + to + "\" ALT=\"\">";
  }
  if (extension == "CSS") return "<LINK REL=\"stylesheet\" TYPE=\"text/css\" HREF=\"" + to + "\">";
  if (extension == "JS") return "<SCRIPT TYPE=\"text/javascript\" SRC=\"" + to + "\"></SCRIPT>";
  return "<A HREF=\"" + to + "\">" + std::string(selected.empty() ? title : selected) + "</A>";
}

void takeDroppedDocuments(app::Workbench& bench) {
  bench.documentDropped.connect([&bench](std::int16_t index) { insertReference(bench, index); });
}

}  // namespace editor
