// The one scanner of HTML: takes a page apart into runs of bytes, from the first byte to the last.
//
// Any bytes are a page: unclosed tags, stray "<", NULs. The cost is linear in the size, whatever the bytes;
// nothing is copied. What browsers agree on is read as they do; `<? ?>` and `<% %>` are server code wherever
// they stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace markup {

// A range of bytes of the page: [begin, end).
struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t size() const { return end - begin; }
  bool empty() const { return begin == end; }
  std::string_view of(std::string_view page) const { return page.substr(begin, end - begin); }
  bool operator==(const Range&) const = default;
};

enum class RunKind : std::uint8_t {
  Text,           // character data, references included
  RawText,        // character data in which "&" means itself (XMP, PLAINTEXT)
  Tag,            // a whole tag, see Scanner::tag()
  Comment,        // with its "<!--" and "-->"
  Declaration,    // "<!DOCTYPE ...>" and all other "<!...>", "</...>" that is no tag
  Instruction,    // "<?xml ... ?>"
  Server,         // "<? ... ?>", "<% ... %>"
  Script,         // code of a SCRIPT element
  ScriptString,   // what stands between the quotes of a string literal
  ScriptComment,  // with its delimiters
  Style,          // content of a STYLE element, whole; see css_scanner.h
};

struct Run {
  RunKind kind = RunKind::Text;
  Range range;
};

struct Attribute {
  Range whole;          // with the white space before it and the quotes
  Range name;           //
  Range value;          // without quotes; empty and at the name's end where there is none
  bool server = false;  // there is server code in the value
  char quote = 0;       // '"', '\'' or 0
};

struct Tag {
  Range name;
  bool closing = false;
  // At most kMostAttributes, in their order; further ones are passed over.
  std::vector<Attribute> attributes;
};

inline constexpr std::size_t kMostAttributes = 500;

// ASCII letters without case; `lower` is in lower case.
bool sameName(std::string_view name, std::string_view lower);

enum class StartsIn : std::uint8_t { Markup, Script };

class Scanner {
 public:
  // `page` must outlive the scanner.
  explicit Scanner(std::string_view page, StartsIn startsIn = StartsIn::Markup);

  // The next run, each beginning where the one before ended; false at the end of the page.
  bool next(Run& run);
  // Of the last run, when that was a Tag; valid until the next call.
  const Tag& tag() const { return tag_; }
  // The text element in which the last run stood: "title", "textarea", "script", "style" or empty.
  std::string_view textElement() const { return textElement_; }

 private:
  // What ends a construct; searched to the end of the page at most once in vain.
  struct Ending {
    std::string_view text;  // of end tags the name, in lower case
    bool missing = false;
  };
  enum class Inside : std::uint8_t { Markup, Content, Script, String };

  void finish(Run& run, RunKind kind, std::size_t end);
  void readMarkup(Run& run);
  void readLessThan(Run& run);
  void readTag();
  std::size_t readAttribute(std::size_t at);
  std::size_t quotedEnd(std::size_t at, char quote, bool& server);
  void enter();
  void enterUpTo(Ending& name, Inside inside, RunKind kind);
  void readCode(Run& run);
  void readString(Run& run);
  std::size_t codeEnd();
  std::size_t regexEnd(std::size_t at) const;
  bool slashBeginsRegex() const;

  char at(std::size_t i) const { return i < page_.size() ? page_[i] : '\0'; }
  bool serverAt(std::size_t i) const { return at(i) == '<' && (at(i + 1) == '?' || at(i + 1) == '%'); }
  std::size_t find(Ending& ending, std::size_t from);
  std::size_t findEndTag(Ending& name, std::size_t from);
  // Behind the server code at `at`; `at` itself where nothing ends a "<%", which is text then.
  std::size_t serverEnd(std::size_t at);

  std::string_view page_;
  std::size_t at_ = 0;
  Tag tag_;
  Inside inside_ = Inside::Markup;
  RunKind content_ = RunKind::Text;  // what the element holds, when inside Content
  std::size_t elementEnd_ = 0;       // of that, or of the script
  std::string_view textElement_;
  bool basic_ = false;         // the script is VBScript
  char quote_ = 0;             // of the string
  bool closingQuote_ = false;  // code goes on with the quote that ends a string
  char lastCode_ = 0;          // the last byte of code that is no space
  Ending question_{"?>"}, percent_{"%>"}, comment_{"-->"}, greater_{">"}, single_{"'"}, double_{"\""};
  Ending script_{"script"}, style_{"style"}, title_{"title"}, textarea_{"textarea"}, xmp_{"xmp"};
};

}  // namespace markup
