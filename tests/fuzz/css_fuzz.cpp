// Any bytes as a style sheet or a page with styles, with the caret anywhere.
#include "markup/css_edit.h"
#include "markup/css_tokens.h"
#include "tests/fuzz/fuzz.h"

FUZZ(Css,
     {"a",       "{",         "}",       ";",          ":",      " ",    "\r\n",         "\"",      "'",
      "/*",      "*/",        "(",       ")",          "[",      "]",    "url(",         "\\",      "@media",
      "@import", "<!--",      "-->",     "!important", "color",  "<?",   "?>",           "&quot;",  "&#39;",
      "&",       "<P STYLE=", "<STYLE>", "</STYLE>",   ">",      "\xC0", "\xE1\x83\x90", ",",       "=",
      "<B>",     "</B>",      "x: 1; ",  "<PRE>",      "</PRE>", "--x:", "&:b{",         "<? \" ?>"}) {
  using Kind = markup::CssPlace::Kind;
  const bool sheet = fuzz::choose(bytes, 2) == 0;
  const std::size_t caret = fuzz::choose(bytes, 60000), selected = fuzz::choose(bytes, 16);
  const std::string text(bytes);
  for (const auto spelling : {markup::CssSpelling::Sheet, markup::CssSpelling::Attribute}) {
    std::size_t end = 0;
    for (const auto& token : markup::scanCss(text, spelling)) {
      MUST(token.start == end && token.end > end);
      end = token.end;
    }
    MUST(end == text.size());
  }
  const std::size_t start = caret % (text.size() + 1);
  const auto place = markup::cssPlace(text, start, selected < 11 ? 0 : selected - 11, sheet);
  if (place.kind == Kind::Nothing) return;
  MUST(place.start <= place.end && place.end <= text.size());
  markup::CssEdit edit(text, place);
  if (place.kind == Kind::Rule || place.kind == Kind::Attribute) MUST(edit.written() == edit.text());
  for (auto& entry : edit.entries) entry.value = entry.value.empty() ? "" : "Q";
  edit.entries.push_back({"n", "N", true, -1});
  const std::string changed = edit.written();
  MUST(edit.caret() <= changed.size());
  if (place.kind != Kind::Rule || !place.closed) return;
  // Every text between the values is still there, in order.
  const std::string block = text.substr(place.blockStart, place.blockEnd - place.blockStart);
  std::size_t at = 0, done = 0;
  for (const auto& declaration : markup::readDeclarations(block, markup::CssSpelling::Sheet)) {
    const std::string between = block.substr(done, declaration.valueStart - done);
    at = changed.find(between, at);
    MUST(at != std::string::npos);
    at += between.size();
    done = declaration.valueEnd;
  }
}
