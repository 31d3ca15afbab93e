// Any bytes as a page, or a script: the runs are the whole of it, and what a tag is said to have lies in the
// tag.
#include "markup/entities.h"
#include "markup/scanner.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/random_html.h"

FUZZ(Scanner, [] {
  auto pieces = tests::htmlParts();
  for (const char* more :
       {"<STYLE>", "</STYLE>", "<TITLE>", "<XMP>", "<!DOCTYPE", "<%", "%>", "/*", "*/", "//", "/[",
        "<script language=VBScript>", "&#4304;", "&#x10D0", "&Agrave", "</", "PLAINTEXT"}) {
    pieces.emplace_back(more);
  }
  return pieces;
}()) {
  for (const auto startsIn : {markup::StartsIn::Markup, markup::StartsIn::Script}) {
    markup::Scanner scanner(bytes, startsIn);
    markup::Run run;
    std::size_t end = 0;
    while (scanner.next(run)) {
      MUST(run.range.begin == end && run.range.end > end && run.range.end <= bytes.size());
      end = run.range.end;
      if (run.kind != markup::RunKind::Tag) continue;
      const markup::Tag& tag = scanner.tag();
      const auto within = [](const markup::Range& part, const markup::Range& whole) {
        return part.begin >= whole.begin && part.end >= part.begin && part.end <= whole.end;
      };
      MUST(bytes[run.range.begin] == '<' && within(tag.name, run.range) && !tag.name.empty());
      MUST(tag.closing == (bytes[run.range.begin + 1] == '/'));
      std::size_t last = tag.name.end;
      for (const markup::Attribute& attribute : tag.attributes) {
        MUST(attribute.whole.begin >= last && within(attribute.whole, run.range));
        MUST(within(attribute.name, attribute.whole) && within(attribute.value, attribute.whole));
        MUST(attribute.value.empty() || attribute.value.begin >= attribute.name.end);
        last = attribute.whole.end;
      }
    }
    MUST(end == bytes.size());
  }
  for (std::size_t at = bytes.find('&'); at != std::string_view::npos; at = bytes.find('&', at + 1)) {
    const auto reference = markup::referenceAt(bytes.substr(at));
    MUST(!reference || (reference->size > 2 && reference->size <= bytes.size() - at));
  }
}
