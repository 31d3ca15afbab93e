#include "base/file_kind.h"

#include <algorithm>
#include <initializer_list>

namespace base {
namespace {

struct Row {
  FileKind kind;
  Content content;
  std::initializer_list<std::string_view> extensions;
};

const Row& rowOf(std::string_view extension) {
  // Kinds are what lists and icons show, and narrower than the contents.
  static const std::initializer_list<Row> kRows = {
      {FileKind::Page, Content::Html, {"HTML", "HTM", "SHTML", "HTT"}},
      {FileKind::Page, Content::Archive, {"MHT", "MHTML"}},
      {FileKind::Page, Content::Unknown, {"HPF"}},
      {FileKind::Other, Content::Html, {"SHTM", "STM", "XHTML"}},
      {FileKind::Style, Content::Css, {"CSS"}},
      {FileKind::Style, Content::Unknown, {"CGI"}},
      {FileKind::ActivePage, Content::ServerPage, {"ASP"}},
      {FileKind::Php, Content::ServerPage, {"PHP", "PHP3"}},
      {FileKind::Other, Content::ServerPage, {"PHP4", "PHP5", "PHTML", "INC", "TPL", "ASPX", "JSP"}},
      {FileKind::Script, Content::Script, {"JS"}},
      {FileKind::Script, Content::Unknown, {"VBS", "WSF"}},
      {FileKind::Xml, Content::Xml, {"XML"}},
      {FileKind::Other, Content::Xml, {"XSL", "SVG", "RSS"}},
      {FileKind::Picture, Content::Unknown, {"JPG", "GIF", "PNG", "BMP", "WMF"}},
      {FileKind::Media, Content::Unknown, {"MP3", "WAV", "MID", "RA", "RM", "FLA"}},
      {FileKind::WebProject, Content::Unknown, {"WEB"}},
      {FileKind::Settings, Content::Unknown, {"INI", "INF"}},
      {FileKind::Text, Content::Plain, {"TXT"}}};
  static const Row kNone = {FileKind::Other, Content::Unknown, {}};
  const auto* const row = std::ranges::find_if(kRows, [&](const Row& one) {
    return std::ranges::find(one.extensions, extension) != one.extensions.end();
  });
  return row == kRows.end() ? kNone : *row;
}

}  // namespace

FileKind fileKindOf(std::string_view extension) {
  return rowOf(extension).kind;
}

Content contentOf(std::string_view extension) {
  return rowOf(extension).content;
}

}  // namespace base
