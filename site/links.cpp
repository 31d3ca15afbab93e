#include "site/links.h"

#include <algorithm>

#include "base/text.h"
#include "base/utf8.h"
#include "markup/scanner.h"

namespace site {
namespace {

// No tag of interest is longer; looking for its end in all of a page would cost too much where it has none.
constexpr std::size_t kLongestTag = 4096;

bool namesElement(std::string_view text, std::string_view lower) {
  return text.size() > lower.size() && markup::sameName(text.substr(0, lower.size()), lower) &&
         static_cast<unsigned char>(text[lower.size()]) <= ' ';
}

int hexDigit(char c) {
  return c >= '0' && c <= '9'   ? c - '0'
         : c >= 'a' && c <= 'f' ? c - 'a' + 10
         : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                : -1;
}

std::string decoded(std::string_view address) {
  std::string out;
  for (std::size_t i = 0; i < address.size(); ++i) {
    if (address[i] == '%' && i + 2 < address.size() && hexDigit(address[i + 1]) >= 0 &&
        hexDigit(address[i + 2]) >= 0) {
      out += static_cast<char>(hexDigit(address[i + 1]) * 16 + hexDigit(address[i + 2]));
      i += 2;
    } else {
      out += address[i];
    }
  }
  return out;
}

// Empty where it leads out of the site.
std::string fileOf(std::string_view address, std::string_view page) {
  address = base::trimSpaces(address.substr(0, address.find_first_of("?#")));
  if (address.empty() || address.starts_with("//") || address.find(':') != std::string_view::npos) return {};
  std::string path = base::replaceAll(decoded(address), "\\", "/");
  if (path[0] != '/') {
    const std::size_t folder = page.rfind('/');
    if (folder != std::string_view::npos) path.insert(0, page.substr(0, folder + 1));
  }
  std::vector<std::string> parts;
  for (std::string& part : base::split(path, "/")) {
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(std::move(part));
    } else {
      if (parts.empty()) return {};
      parts.pop_back();
    }
  }
  std::string file = base::join(parts, "/");
  return base::isUtf8(file) ? file : std::string();
}

std::string_view valueOf(const markup::Tag& tag, std::string_view page, std::string_view name) {
  for (const markup::Attribute& attribute : tag.attributes) {
    if (markup::sameName(attribute.name.of(page), name) && !attribute.server) return attribute.value.of(page);
  }
  return {};
}

}  // namespace

std::vector<std::string> linksOf(std::string_view page, std::string_view file) {
  std::vector<std::string> links;
  for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<', at + 1)) {
    const std::string_view rest = page.substr(at, kLongestTag);
    const bool script = namesElement(rest.substr(1), "script");
    if (!script && !namesElement(rest.substr(1), "link")) continue;
    markup::Scanner scanner(rest);
    markup::Run run;
    if (!scanner.next(run) || run.kind != markup::RunKind::Tag) continue;
    const markup::Tag& tag = scanner.tag();
    if (!script && base::upperAscii(valueOf(tag, rest, "rel")).find("STYLESHEET") == std::string::npos)
      continue;
    std::string link = fileOf(valueOf(tag, rest, script ? "src" : "href"), file);
    if (!link.empty() && std::ranges::find(links, link) == links.end()) links.push_back(std::move(link));
  }
  return links;
}

}  // namespace site
