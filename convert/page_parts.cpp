#include "convert/page_parts.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "base/file_kind.h"
#include "base/path.h"
#include "base/text.h"
#include "markup/css_scanner.h"

namespace convert {
namespace {

using markup::Attribute;
using markup::Range;
using markup::RunKind;
using markup::sameName;

constexpr std::size_t kNowhere = std::string_view::npos;
// Long texts are cut at a line end or space, so that each piece is judged by itself.
constexpr std::size_t kShortPiece = 512;
constexpr std::size_t kLongPiece = 1024;
// Deeper nesting than this is passed over; an end tag looks back so far for its beginning.
constexpr std::size_t kMostOpen = 1000;
constexpr std::size_t kFarthestBack = 60;
constexpr std::size_t kMostStyleRules = 10000;

std::string lower(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return out;
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> lowers) {
  return std::ranges::any_of(lowers, [&](std::string_view one) { return sameName(name, one); });
}

// Names of elements are told by their hash, so that one look at the letters is enough.
constexpr std::uint32_t hashOf(std::string_view name) {
  std::uint32_t hash = 2166136261;
  for (const char c : name) {
    const bool capital = c >= 'A' && c <= 'Z';
    hash = (hash ^ static_cast<std::uint8_t>(capital ? c + ('a' - 'A') : c)) * 16777619;
  }
  return hash;
}

bool isVoid(std::uint32_t name) {
  switch (name) {
    case hashOf("area"):
    case hashOf("base"):
    case hashOf("basefont"):
    case hashOf("bgsound"):
    case hashOf("br"):
    case hashOf("col"):
    case hashOf("embed"):
    case hashOf("frame"):
    case hashOf("hr"):
    case hashOf("img"):
    case hashOf("input"):
    case hashOf("keygen"):
    case hashOf("link"):
    case hashOf("meta"):
    case hashOf("param"):
    case hashOf("source"):
    case hashOf("track"):
    case hashOf("wbr"):
      return true;
    default:
      return false;
  }
}

// Elements whose beginning ends open ones before it, since end tags are left out.
using Ended = std::array<std::uint32_t, 3>;
constexpr Ended endedBy(std::uint32_t name) {
  switch (name) {
    case hashOf("p"):
      return {hashOf("p")};
    case hashOf("li"):
      return {hashOf("p"), hashOf("li")};
    case hashOf("td"):
    case hashOf("th"):
      return {hashOf("p"), hashOf("td"), hashOf("th")};
    case hashOf("tr"):
      return {hashOf("td"), hashOf("th"), hashOf("tr")};
    case hashOf("dt"):
    case hashOf("dd"):
      return {hashOf("p"), hashOf("dt"), hashOf("dd")};
    case hashOf("option"):
      return {hashOf("option")};
    case hashOf("body"):
      return {hashOf("head")};
    default:
      return {};
  }
}

class Walk {
 public:
  Walk(std::string_view page, const PartsWanted& wanted)
      : page_(page), wanted_(wanted), table_(wanted.fonts != nullptr ? *wanted.fonts : FontTable::builtIn()) {
    parts_.fonts.resize(kFirstFontUse);
    parts_.fonts[kWesternFont].form = Form::Western;
    parts_.fonts[kUnicodeFont].form = Form::Utf8;
  }

  PageParts run() {
    switch (wanted_.kind) {
      case PageKind::Html:
        html();
        break;
      case PageKind::PlainText:
        add({0, page_.size()}, Place::Text, false);
        break;
      case PageKind::StyleSheet:
        styleSheet({0, page_.size()});
        break;
      case PageKind::Script:
        script({0, page_.size()});
        break;
    }
    return std::move(parts_);
  }

 private:
  struct Open {
    std::uint32_t name;
    std::uint32_t font;  // in force inside it
  };

  void html() {
    markup::Scanner scanner(page_);
    markup::Run run;
    while (scanner.next(run)) {
      switch (run.kind) {
        case RunKind::Text:
          if (scanner.textElement().empty())
            add(run.range, Place::Text, true);
          else
            addWithoutServer(run.range, scanner.textElement() == "title" ? Place::Title : Place::Text);
          break;
        case RunKind::RawText:
          add(run.range, Place::Text, false);
          break;
        case RunKind::Tag:
          tag(scanner.tag(), run.range);
          break;
        case RunKind::Comment:
        case RunKind::ScriptComment:
          if (wanted_.comments) addWithoutServer(run.range, Place::Comment, false);
          break;
        case RunKind::ScriptString:
          if (wanted_.scriptStrings) add(run.range, Place::ScriptString, false);
          break;
        case RunKind::Style:
          styleSheet(run.range);
          break;
        case RunKind::Instruction:
          instruction(run.range);
          break;
        case RunKind::Declaration:
          if (!parts_.headAt && sameName(page_.substr(run.range.begin, 9), "<!doctype"))
            parts_.headAt = run.range.end;
          break;
        case RunKind::Server:
        case RunKind::Script:
          break;
      }
    }
  }

  // Pieces
  // --------------------------------------------------------------------------------------------------------

  // Comments, titles and attributes may hold server code, which is nobody's text.
  void addWithoutServer(Range range, Place place, bool references = true) {
    std::size_t begin = range.begin;
    for (std::size_t at = begin; at < range.end;) {
      const std::size_t less = page_.substr(0, range.end).find('<', at);
      if (less == kNowhere || less + 1 >= range.end) break;
      at = less + 1;
      if (page_[at] != '?' && page_[at] != '%') continue;
      const char ends[] = {page_[at], '>'};
      std::size_t end = page_.substr(0, range.end).find(std::string_view(ends, 2), at + 1);
      end = end == kNowhere ? range.end : end + 2;
      add({begin, less}, place, references);
      begin = at = end;
    }
    add({begin, range.end}, place, references);
  }

  void add(Range range, Place place, bool references) {
    while (!range.empty()) {
      std::size_t end = range.end;
      if (range.size() > kLongPiece) end = cut(range);
      addPiece(range.begin, end, place, references);
      range.begin = end;
    }
  }

  // Behind a line end or a space, else before a character.
  std::size_t cut(Range range) const {
    const std::string_view text = page_.substr(range.begin, kLongPiece);
    for (const char c : {'\n', ' '}) {
      const std::size_t at = text.rfind(c);
      if (at != kNowhere && at > kShortPiece) return range.begin + at + 1;
    }
    std::size_t end = range.begin + kLongPiece;
    for (int i = 0; i < 3 && (static_cast<std::uint8_t>(page_[end]) & 0xC0) == 0x80; ++i) --end;
    // A reference that would be cut stands in the next piece; it has no more than some bytes.
    const std::size_t reference = page_.substr(0, end).rfind('&');
    return reference != kNowhere && reference > range.begin && end - reference < 16 ? reference : end;
  }

  void addPiece(std::size_t begin, std::size_t end, Place place, bool references) {
    const bool letters =
        std::any_of(page_.begin() + static_cast<std::ptrdiff_t>(begin),
                    page_.begin() + static_cast<std::ptrdiff_t>(end), [](char c) {
                      const auto byte = static_cast<std::uint8_t>(c);
                      return byte >= 0x80 || c == '&' || static_cast<std::uint8_t>((byte | 0x20) - 'a') < 26;
                    });
    if (!letters) return;
    const bool styled = place == Place::Text || place == Place::CssString;
    parts_.pieces.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end),
                             styled ? font_ : kNoFont, place, references});
  }

  // Tags
  // ----------------------------------------------------------------------------------------------------------

  void tag(const markup::Tag& tag, Range whole) {
    const std::string_view name = tag.name.of(page_);
    const std::uint32_t element = hashOf(name);
    if (tag.closing) {
      close(element);
      return;
    }
    structure(element, name[0] < 'a', whole);
    endOpenOnes(element);
    const std::uint32_t outside = font_;
    if (!byElement_.empty()) byStyleSheet(tag, name);
    if (!tag.attributes.empty()) attributes(tag, element);
    if (isVoid(element)) {
      if (element != hashOf("basefont")) font_ = outside;
    } else if (open_.size() < kMostOpen) {
      open_.push_back({element, outside});
    } else {
      font_ = outside;
    }
  }

  void structure(std::uint32_t element, bool upperCase, Range whole) {
    if (headSeen_) return;
    std::optional<std::size_t> at;
    switch (element) {
      case hashOf("head"):
        headSeen_ = true;
        at = whole.end;
        break;
      case hashOf("html"):
        at = whole.end;
        break;
      case hashOf("title"):
      case hashOf("body"):
      case hashOf("meta"):
      case hashOf("frameset"):
        if (!parts_.headAt) at = whole.begin;
        break;
      default:
        return;
    }
    if (!at) return;
    parts_.headAt = at;
    parts_.upperCase = upperCase;
  }

  void close(std::uint32_t element) {
    const std::size_t lowest = open_.size() > kFarthestBack ? open_.size() - kFarthestBack : 0;
    for (std::size_t i = open_.size(); i-- > lowest;) {
      if (open_[i].name != element) continue;
      font_ = open_[i].font;
      open_.resize(i);
      return;
    }
  }

  void endOpenOnes(std::uint32_t element) {
    for (const std::uint32_t ended : endedBy(element)) {
      if (ended == 0 || open_.empty()) return;
      if (open_.back().name != ended) continue;
      font_ = open_.back().font;
      open_.pop_back();
    }
  }

  void attributes(const markup::Tag& tag, std::uint32_t element) {
    for (const Attribute& attribute : tag.attributes) {
      if (attribute.value.empty()) continue;
      const std::string_view attributeName = attribute.name.of(page_);
      if (sameName(attributeName, "face") && (element == hashOf("font") || element == hashOf("basefont"))) {
        if (!attribute.server) font_ = fontUse(attribute.whole, attribute.value, false);
      } else if (sameName(attributeName, "style")) {
        if (!attribute.server) inlineStyle(attribute.value);
      } else if (isOneOf(attributeName, {"alt", "title", "summary", "label", "placeholder", "standby"})) {
        addWithoutServer(attribute.value, Place::Attribute);
      } else if (sameName(attributeName, "value")) {
        if (element == hashOf("input") && showsValue(tag))
          addWithoutServer(attribute.value, Place::Attribute);
      } else if (attributeName.size() > 4 && sameName(attributeName.substr(0, 2), "on")) {
        if (wanted_.scriptStrings) script(attribute.value);
      }
    }
    if (element == hashOf("meta")) meta(tag);
  }

  const Attribute* find(const markup::Tag& tag, std::string_view name) const {
    const auto at = std::ranges::find_if(
        tag.attributes, [&](const Attribute& attribute) { return sameName(attribute.name.of(page_), name); });
    return at == tag.attributes.end() ? nullptr : &*at;
  }

  // Of buttons and of what the user writes over.
  bool showsValue(const markup::Tag& tag) const {
    const Attribute* type = find(tag, "type");
    if (type == nullptr) return true;
    return isOneOf(type->value.of(page_), {"text", "button", "submit", "reset", "search", ""});
  }

  void meta(const markup::Tag& tag) {
    if (const Attribute* charset = find(tag, "charset"); charset != nullptr && !charset->value.empty()) {
      parts_.charsets.push_back(charset->value);
    }
    const Attribute* content = find(tag, "content");
    if (content == nullptr || content->value.empty() || content->server) return;
    if (const Attribute* equivalent = find(tag, "http-equiv")) {
      if (!sameName(equivalent->value.of(page_), "content-type")) return;
      const std::string value = lower(content->value.of(page_).substr(0, 1000));
      const std::size_t at = value.find("charset");
      const std::size_t equals = at == kNowhere ? at : value.find_first_not_of(" \t\r\n", at + 7);
      if (equals == kNowhere || value[equals] != '=') return;
      const std::size_t begin = value.find_first_not_of(" \t\r\n'\"", equals + 1);
      if (begin == kNowhere) return;
      const std::size_t end = std::min(value.find_first_of(" \t\r\n;'\"", begin), value.size());
      parts_.charsets.push_back({content->value.begin + begin, content->value.begin + end});
    } else if (const Attribute* name = find(tag, "name")) {
      if (isOneOf(name->value.of(page_), {"description", "keywords", "author"})) {
        addWithoutServer(content->value, Place::Attribute);
      }
    }
  }

  void instruction(Range range) {
    const std::string_view text = range.of(page_);
    const std::size_t at = text.find("encoding");
    if (range.begin > 3 || at == kNowhere) return;
    const std::size_t open = text.find_first_of("'\"", at);
    const std::size_t close = open == kNowhere ? open : text.find(text[open], open + 1);
    if (close != kNowhere) parts_.charsets.push_back({range.begin + open + 1, range.begin + close});
  }

  // Scripts and styles
  // --------------------------------------------------------------------------------------------

  void script(Range range) {
    markup::Scanner scanner(range.of(page_), markup::StartsIn::Script);
    markup::Run run;
    while (scanner.next(run)) {
      const Range inPage{run.range.begin + range.begin, run.range.end + range.begin};
      if (run.kind == RunKind::ScriptString && wanted_.scriptStrings) add(inPage, Place::ScriptString, false);
      if (run.kind == RunKind::ScriptComment && wanted_.comments) add(inPage, Place::Comment, false);
    }
  }

  static Range moved(Range range, std::size_t by) { return {range.begin + by, range.end + by}; }

  void styleSheet(Range range) {
    const std::string_view text = range.of(page_);
    markup::CssScanner scanner(text);
    markup::CssPart part;
    std::string_view selector;
    while (scanner.next(part)) {
      switch (part.kind) {
        case markup::CssKind::Comment:
          if (wanted_.comments) add(moved(part.whole, range.begin), Place::Comment, false);
          break;
        case markup::CssKind::Selector:
          selector = part.whole.of(text);
          break;
        case markup::CssKind::Charset:
          parts_.charsets.push_back(moved(part.value, range.begin));
          break;
        case markup::CssKind::Declaration:
          declaration(part, range, selector);
          break;
      }
    }
  }

  void inlineStyle(Range range) {
    markup::CssScanner scanner(range.of(page_), true);
    markup::CssPart part;
    while (scanner.next(part)) {
      if (part.kind != markup::CssKind::Declaration || !namesFonts(part.name.of(range.of(page_)))) continue;
      if (const std::uint32_t font = fontOf(part, range); font != kNoFont) font_ = font;
    }
  }

  static bool namesFonts(std::string_view property) { return isOneOf(property, {"font-family", "font"}); }

  // The font that a declaration gives.
  std::uint32_t fontOf(const markup::CssPart& part, Range range) {
    Range value = moved(part.value, range.begin);
    Range whole = moved(part.whole, range.begin);
    if (sameName(part.name.of(range.of(page_)), "font")) {
      // The names are the last of several values: behind the size.
      value.begin = afterSize(value);
      whole = value;
    }
    return fontUse(whole, value, true);
  }

  std::size_t afterSize(Range value) const {
    const std::string_view text = value.of(page_);
    const std::size_t first = std::min(text.find_first_of(",\"'"), text.size());
    std::size_t begin = 0;
    for (std::size_t at = 0; at < first; ++at) {
      if (text[at] >= '0' && text[at] <= '9')
        begin = std::min(text.find_first_of(" \t\r\n", at), text.size());
    }
    while (begin < text.size() && (text[begin] == ' ' || text[begin] == '\n')) ++begin;
    return value.begin + begin;
  }

  void declaration(const markup::CssPart& part, Range range, std::string_view selectors) {
    const std::string_view text = range.of(page_);
    const std::string_view property = part.name.of(text);
    if (sameName(property, "content")) {
      for (const Range string : markup::cssStrings(text, part.value)) {
        const Range inPage = moved(string, range.begin);
        if (inPage.of(page_).find("<?") == kNowhere && inPage.of(page_).find("<%") == kNowhere) {
          add(inPage, Place::CssString, false);
        }
      }
    } else if (namesFonts(property) && !selectors.empty()) {
      const std::uint32_t font = fontOf(part, range);
      if (font == kNoFont) return;
      for (const std::string& selector : base::split(selectors, ",")) addSelector(selector, font);
    }
  }

  // Only the last part of a selector counts: its element, class or id.
  void addSelector(std::string_view selector, std::uint32_t font) {
    while (!selector.empty() && std::string_view(" \t\r\n").find(selector.back()) != kNowhere)
      selector.remove_suffix(1);
    const std::size_t space = selector.find_last_of(" \t\r\n>+~");
    if (space != kNowhere) selector.remove_prefix(space + 1);
    selector = selector.substr(0, selector.find(':'));
    if (const std::size_t mark = selector.find_first_of(".#"); mark != kNowhere) selector.remove_prefix(mark);
    if (!selector.empty() && byElement_.size() < kMostStyleRules) byElement_[lower(selector)] = font;
  }

  void byStyleSheet(const markup::Tag& tag, std::string_view name) {
    const auto take = [&](const std::string& key) {
      const auto at = byElement_.find(key);
      if (at != byElement_.end()) font_ = at->second;
    };
    take("*");
    take(lower(name));
    if (const Attribute* attribute = find(tag, "class")) {
      for (const std::string& one : base::split(attribute->value.of(page_).substr(0, 1000), " "))
        take("." + lower(one));
    }
    if (const Attribute* attribute = find(tag, "id"))
      take("#" + lower(attribute->value.of(page_).substr(0, 1000)));
  }

  // Fonts
  // ---------------------------------------------------------------------------------------------------------

  // The names are judged in their order: the first that the table knows says what the text is.
  std::uint32_t fontUse(Range whole, Range value, bool isDeclaration) {
    const std::optional<Form> form = formOf(value.of(page_));
    if (!form) return kNoFont;
    if (*form == Form::Western) return kWesternFont;
    if (*form == Form::Utf8) return kUnicodeFont;
    parts_.fonts.push_back({static_cast<std::uint32_t>(whole.begin), static_cast<std::uint32_t>(whole.end),
                            static_cast<std::uint32_t>(value.begin), static_cast<std::uint32_t>(value.end),
                            *form, isDeclaration, parts_.fonts[font_].form});
    return static_cast<std::uint32_t>(parts_.fonts.size() - 1);
  }

  std::optional<Form> formOf(std::string_view names) {
    if (const auto at = known_.find(names); at != known_.end()) return at->second;
    std::optional<Form> form;
    for (const std::string& name : base::split(names.substr(0, 1000), ",")) {
      form = table_.formOf(name);
      if (form) break;
    }
    // Pages name few fonts, a hostile one many.
    if (known_.size() < 1000) known_.emplace(names, form);
    return form;
  }

  std::string_view page_;
  const PartsWanted& wanted_;
  const FontTable& table_;
  PageParts parts_;
  std::uint32_t font_ = kNoFont;
  std::vector<Open> open_;
  bool headSeen_ = false;
  std::unordered_map<std::string, std::uint32_t> byElement_;  // "td", ".georgian", "#menu"
  std::unordered_map<std::string_view, std::optional<Form>> known_;
};

}  // namespace

PageKind pageKindOf(std::string_view path) {
  switch (base::contentOf(base::extensionOf(base::fileName(path)))) {
    case base::Content::Css:
      return PageKind::StyleSheet;
    case base::Content::Script:
      return PageKind::Script;
    case base::Content::Plain:
      return PageKind::PlainText;
    default:
      return PageKind::Html;
  }
}

std::string_view nameOf(Place place) {
  constexpr std::array<std::string_view, 6> kNames = {"text",   "title",      "attribute",
                                                      "script", "css string", "comment"};
  return kNames[static_cast<std::size_t>(place)];
}

PageParts partsOf(std::string_view page, const PartsWanted& wanted) {
  return Walk(page, wanted).run();
}

}  // namespace convert
