// Any bytes as a text and what is looked for in it: the engine beside the plainest search there is.
#include "search/find_engine.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/plain_find.h"

FUZZ(Find, {"a", "ab", "aab", "aaaaaaaa", "A", " ", " a ", "\r\n", "\xC0", "\xE0", "\x8A", "\x9A", "\x9F",
            "\xFF", "\xE1\x83\x90", "|>", std::string(40, 'b')}) {
  const bool wholeWord = fuzz::choose(bytes, 4) == 0;
  const auto comparison =
      fuzz::choose(bytes, 2) == 0 ? search::Comparison::Exact : search::Comparison::IgnoreCase;
  const std::size_t first = fuzz::choose(bytes, 256), second = fuzz::choose(bytes, 256);
  const auto scope = static_cast<search::Scope>(fuzz::choose(bytes, 4));
  std::vector<std::string> words;
  for (std::size_t size = 1 + fuzz::choose(bytes, 40); words.size() < 2 && size <= bytes.size();
       size = 1 + size / 2) {
    words.emplace_back(bytes.substr(bytes.size() - size));
    bytes.remove_suffix(size);
  }
  if (words.empty()) return;
  const std::string text(bytes);
  const search::Range range = search::rangeOf(scope, first, second, text.size());
  MUST(range.begin <= range.end && range.end <= text.size());
  const auto terms = search::makeTerms(words, wholeWord, comparison);
  search::HitList hits;
  hits.findAll(1, text, terms, range);
  std::size_t hit = 0;
  std::size_t next = std::string::npos;
  for (const std::string& word : words) {
    const std::string sought = wholeWord ? " " + word + " " : word;
    for (const std::size_t at : tests::plainAll(text, sought, comparison, range)) {
      MUST(hit < hits.size());
      MUST(hits[hit].position == static_cast<std::int32_t>(at + 1));
      MUST(hits[hit].length == static_cast<std::int32_t>(sought.size()));
      const auto selection = hits.locate(hit++, text);
      MUST(selection && static_cast<std::size_t>(selection->start) == at + (wholeWord ? 1 : 0));
    }
    const auto behind = tests::plainAll(text, sought, comparison, {first, range.end});
    if (!behind.empty()) next = std::min(next, behind.front());
  }
  MUST(hit == hits.size());
  const auto found = search::findNext(text, terms, first, range);
  MUST(found ? found->position == next : next == std::string::npos);

  const search::Pattern pattern(words[0], comparison);
  const auto replaced = search::replaceAll(text, pattern, "xy", range);
  const std::string part = text.substr(range.begin, range.end - range.begin);
  std::string wanted = text.substr(0, range.begin);
  std::size_t done = 0;
  for (const std::size_t at : tests::plainAll(part, words[0], comparison, {0, part.size()})) {
    wanted += part.substr(done, at - done) + "xy";
    done = at + words[0].size();
  }
  MUST((replaced ? replaced->text : text) == wanted + part.substr(done) + text.substr(range.end));
}
