// Colouring 1 and 8 MB of HTML: the ranges of F12.
#include <benchmark/benchmark.h>

#include <string>

#include "editor/colour_ranges.h"

namespace {

// A table of short cells between paragraphs: about as many tags as real pages have.
std::string page(std::size_t size) {
  const std::string paragraph =
      "<P ALIGN=\"JUSTIFY\">\xC0\xC1\xC2 \xC3\xC4\xC5\xC6 \xC8\xC9\xCA, \xCB\xCC\xCD\xCF \xD0\xD1 "
      "\xD2\xD3\xD4. "
      "plain words and some more of them, {braces} and \\ too</P>\r\n"
      "<!-- a comment -->\r\n";
  const std::string row =
      "<TR>\r\n\t<TD WIDTH=\"120\" BGCOLOR=\"#FFFFFF\"><A HREF=\"index.html\" "
      "title=\"x\">\xE0\xE1\xE3</A></TD>\r\n"
      "\t<td class=\"a\"><IMG SRC=\"a.gif\" BORDER=\"0\" ALT=\"\"></td>\r\n</TR>\r\n";
  std::string text;
  while (text.size() < size) text += paragraph + row;
  text.resize(size);
  return text;
}

void colour(benchmark::State& state) {
  const std::string text = page(static_cast<std::size_t>(state.range(0)));
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(editor::coloured(text));
  }
  state.SetBytesProcessed(state.range(0) * state.iterations());
}

BENCHMARK(colour)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
