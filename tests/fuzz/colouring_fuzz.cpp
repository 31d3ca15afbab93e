// Any bytes as a page that is coloured: as the chain of replacements does over the page's RTF.
#include "editor/colour_ranges.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/colour_chain.h"
#include "tests/support/plain_rtf.h"
#include "tests/support/random_html.h"
#include "tests/support/rtf_reader.h"

FUZZ(Colouring, tests::htmlParts()) {
  const tests::RtfText chain = tests::readRtf(tests::colourByChain(tests::plainRtf(bytes, "\r\n", "F")));
  MUST(chain.text == bytes);
  static constexpr int kColors[] = {0, 0x0000FF, 0xFF0000, 0x009632};
  std::vector<int> colors(bytes.size(), 0);
  for (const ui::ColourRange& range : editor::coloured(bytes)) {
    for (int i = 0; i < range.length; ++i)
      colors.at(static_cast<std::size_t>(range.start + i)) = kColors[range.colour];
  }
  for (std::size_t i = 0; i < colors.size(); ++i) MUST(colors[i] == static_cast<int>(chain.colors.at(i)));
}
