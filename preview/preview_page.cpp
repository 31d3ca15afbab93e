#include "preview/preview_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>

#include "base/address.h"
#include "base/font_names.h"
#include "base/text.h"
#include "base/utf8.h"
#include "convert/encoding_counts.h"

namespace preview {
namespace {

constexpr const char* kLegacyFamily = base::kIsoFont;
constexpr const char* kKeyboardFamily = base::kAsciiFont;

// Fonts of the keyboard layout that Georgian pages name.
constexpr std::array<std::string_view, 6> kKeyboardFonts = {"AcadNusx", "AcadMtavr", "LitNusx",
                                                            "LitMtavr", "Grigolia",  base::kAsciiFont};
// What pages in legacy letters say of themselves, if anything; UTF-8 is never true of such bytes.
constexpr std::array<std::string_view, 6> kLegacyCharsets = {"UTF-8",    "WINDOWS-1252",   "ISO-8859-1",
                                                             "US-ASCII", "X-USER-DEFINED", "GEORGIAN-PS"};

std::string charsetOf(std::string_view upperPage) {
  constexpr std::string_view kName = "CHARSET=";
  const std::size_t at = upperPage.find(kName);
  if (at == std::string_view::npos) return {};
  std::string_view value = upperPage.substr(at + kName.size());
  if (!value.empty() && (value[0] == '"' || value[0] == '\'')) value.remove_prefix(1);
  const auto named = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_';
  };
  return std::string(value.begin(), std::find_if_not(value.begin(), value.end(), named));
}

bool hasLegacyWord(std::string_view page) {
  constexpr int kWord = 3;
  int run = 0;
  for (std::size_t at = 0; at < page.size();) {
    if (base::nextUtf8(page, at)) {
      run = 0;
      continue;
    }
    run = convert::isLegacyLetter(static_cast<std::uint8_t>(page[at++])) ? run + 1 : 0;
    if (run == kWord) return true;
  }
  return false;
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      group = group << 8 | (i < count ? static_cast<std::uint8_t>(bytes[at + i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      text += i <= count ? kDigits[group >> (18 - 6 * i) & 0x3F] : '=';
    }
  }
  return text;
}

struct Tag {
  std::string name;  // in upper case
  std::size_t start = 0;
  std::size_t end = 0;  // behind the ">"
};

// The first tag at or behind `at` that is no comment; false: there is none.
bool findTag(std::string_view page, std::size_t at, Tag& tag) {
  while (true) {
    at = page.find('<', at);
    if (at == std::string_view::npos) return false;
    if (!page.substr(at).starts_with("<!--")) break;
    at = page.find("-->", at + 4);
    if (at == std::string_view::npos) return false;
  }
  tag = {{}, at, at + 1};
  while (tag.end < page.size() && page[tag.end] != '>' &&
         std::isspace(static_cast<unsigned char>(page[tag.end])) == 0) {
    tag.name += page[tag.end++];
  }
  tag.name = base::upperAscii(tag.name);
  char quote = 0;
  for (; tag.end < page.size() && (quote != 0 || page[tag.end] != '>'); ++tag.end) {
    const char c = page[tag.end];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    }
  }
  tag.end = std::min(tag.end + 1, page.size());
  return true;
}

// The value of an attribute of a tag that names another page: where it stands, without quotes.
struct Value {
  std::size_t start = 0;
  std::size_t end = 0;
};

Value attributeValue(std::string_view page, const Tag& tag, std::string_view wanted) {
  const auto blank = [&](std::size_t at) { return std::isspace(static_cast<unsigned char>(page[at])) != 0; };
  std::size_t at = tag.start + 1 + tag.name.size();
  const std::size_t end = tag.end - 1;
  while (at < end) {
    while (at < end && (blank(at) || page[at] == '/')) ++at;
    const std::size_t name = at;
    while (at < end && !blank(at) && page[at] != '=') ++at;
    const std::size_t nameEnd = at;
    while (at < end && blank(at)) ++at;
    if (at >= end || page[at] != '=') continue;
    ++at;
    while (at < end && blank(at)) ++at;
    const char quote = at < end && (page[at] == '"' || page[at] == '\'') ? page[at] : '\0';
    Value value{quote == 0 ? at : ++at, 0};
    while (at < end && (quote == 0 ? !blank(at) : page[at] != quote)) ++at;
    value.end = at;
    if (quote != 0 && at < end) ++at;
    if (base::equalNoCase(page.substr(name, nameEnd - name), wanted)) return value;
  }
  return {};
}

// Behind <HEAD>, or where it would stand; never in front of the document type, which decides how a browser
// lays the page out.
std::size_t headOf(std::string_view page) {
  std::size_t place = page.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  Tag tag;
  for (std::size_t at = place; findTag(page, at, tag); at = tag.end) {
    if (tag.name != "HEAD" && tag.name != "HTML" && !tag.name.starts_with('!') && !tag.name.starts_with('?'))
      break;
    place = tag.end;
    if (tag.name == "HEAD") break;
  }
  return place;
}

bool hasBase(std::string_view page) {
  Tag tag;
  for (std::size_t at = 0; findTag(page, at, tag); at = tag.end) {
    if (tag.name == "BODY") return false;
    if (tag.name == "BASE" &&
        base::upperAscii(page.substr(tag.start, tag.end - tag.start)).find("HREF") != std::string::npos) {
      return true;
    }
  }
  return false;
}

std::string fontFace(std::string_view family, const std::string& file) {
  return "@font-face{font-family:\"" + std::string(family) + "\";src:url(data:font/ttf;base64," + file +
         ") format(\"truetype\")}\r\n";
}

std::string everywhere(const char* family) {
  return std::string("body,body *{font-family:\"") + family + "\" !important}\r\n";
}

}  // namespace

bool readsAsLegacy(std::string_view page) {
  const convert::EncodingCounts counts = convert::countEncodings(page);
  if (counts.legacy <= counts.utf8 || !hasLegacyWord(page)) return false;
  const std::string charset = charsetOf(base::upperAscii(page));
  return charset.empty() ||
         std::find(kLegacyCharsets.begin(), kLegacyCharsets.end(), charset) != kLegacyCharsets.end();
}

std::string previewPage(std::string_view page, PageLetters letters, const std::string& folderUrl,
                        const std::function<std::string(std::string_view family)>& fontFile) {
  std::string head;
  if (!folderUrl.empty() && !hasBase(page)) head += "<BASE HREF=\"" + folderUrl + "\">\r\n";

  const bool legacy = letters == PageLetters::Own && readsAsLegacy(page);
  std::string style;
  if (legacy) style += fontFace(kLegacyFamily, base64(fontFile(kLegacyFamily))) + everywhere(kLegacyFamily);
  std::string keyboardFile;
  const auto keyboardFont = [&]() -> const std::string& {
    if (keyboardFile.empty()) keyboardFile = base64(fontFile(kKeyboardFamily));
    return keyboardFile;
  };
  if (letters == PageLetters::KeyboardLayout) {
    style += fontFace(kKeyboardFamily, keyboardFont()) + everywhere(kKeyboardFamily);
  } else {
    // Under the page's own name for it, so that the bundled font shows just what that font would.
    const std::string upper = base::upperAscii(page);
    for (const std::string_view known : kKeyboardFonts) {
      const std::size_t at = upper.find(base::upperAscii(known));
      if (at == std::string::npos) continue;
      const std::string name(page.substr(at, known.size()));
      style += fontFace(name, keyboardFont());
      if (legacy) {
        const std::string element = "font[face*=\"" + name + "\"]";
        style.append("body ").append(element).append(",body ").append(element);
        style.append(" *{font-family:\"").append(name).append("\" !important}\r\n");
      }
    }
  }
  // Each byte is to be one character, as the fonts have them; what the page says later no longer counts.
  if (letters == PageLetters::Utf8 && !page.starts_with("\xEF\xBB\xBF") &&
      charsetOf(base::upperAscii(page)) != "UTF-8") {
    head += "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=utf-8\">\r\n";
  }
  if (legacy) head += "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">\r\n";
  if (!style.empty()) head += "<STYLE TYPE=\"text/css\">\r\n" + style + "</STYLE>\r\n";
  const std::size_t at = headOf(page);
  return std::string(page.substr(0, at)) + head + std::string(page.substr(at));
}

std::string withAddresses(std::string_view page,
                          const std::function<std::string(std::string_view address)>& other) {
  std::string text;
  std::size_t done = 0;
  Tag tag;
  for (std::size_t at = 0; findTag(page, at, tag); at = tag.end) {
    const bool frame = tag.name == "FRAME" || tag.name == "IFRAME";
    if (!frame && tag.name != "A" && tag.name != "AREA") continue;
    Value value = attributeValue(page, tag, frame ? "SRC" : "HREF");
    const std::string_view whole = page.substr(value.start, value.end - value.start);
    value.end = value.start + whole.substr(0, whole.find_first_of("?#")).size();
    if (value.end == value.start) continue;
    const std::string address = other(page.substr(value.start, value.end - value.start));
    if (address.empty()) continue;
    text.append(page.substr(done, value.start - done)).append(address);
    done = value.end;
  }
  return text.append(page.substr(done));
}

std::string fileUrl(std::string_view path) {
  const std::string slashed = base::replaceAll(path, "\\", "/");
  return (slashed.starts_with("//") ? "file:" : "file:///") +
         base::percentEncoded(slashed, "/:-._~!$&'()*+,;=@");
}

}  // namespace preview
