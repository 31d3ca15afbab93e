#include "base/file_kind.h"

#include <algorithm>
#include <initializer_list>

namespace base {
namespace {

struct Row {
  FileKind kind;
  std::initializer_list<std::string_view> extensions;
};

}  // namespace

FileKind fileKindOf(std::string_view extension) {
  static const std::initializer_list<Row> kRows = {
      {FileKind::Page, {"HTML", "HTM", "SHTML", "MHT", "MHTML", "HPF", "HTT"}},
      {FileKind::Style, {"CSS", "CGI"}},
      {FileKind::ActivePage, {"ASP"}},
      {FileKind::Script, {"JS", "VBS", "WSF"}},
      {FileKind::Xml, {"XML"}},
      {FileKind::Php, {"PHP", "PHP3"}},
      {FileKind::Picture, {"JPG", "GIF", "PNG", "BMP", "WMF"}},
      {FileKind::Media, {"MP3", "WAV", "MID", "RA", "RM", "FLA"}},
      {FileKind::WebProject, {"WEB"}},
      {FileKind::Settings, {"INI", "INF"}},
      {FileKind::Text, {"TXT"}}};
  for (const Row& row : kRows) {
    if (std::find(row.extensions.begin(), row.extensions.end(), extension) != row.extensions.end())
      return row.kind;
  }
  return FileKind::Other;
}

}  // namespace base
