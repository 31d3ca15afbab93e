// Colouring 1 MB of HTML: in one pass, and by the chain of 78 replacements; and the RTF that both start from.
#include <benchmark/benchmark.h>

#include <string>

#include "editor/colour_rtf.h"
#include "tests/support/colour_chain.h"
#include "ui/plain_rtf.h"

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

std::string plain(const benchmark::State& state) {
  return ui::plainRtf(page(static_cast<std::size_t>(state.range(0))), "\r\n", "Zervo ISO");
}

template <std::string (*kColour)(std::string_view)>
void colour(benchmark::State& state) {
  const std::string rtf = plain(state);
  if (editor::coloured(rtf) != tests::colourByChain(rtf)) state.SkipWithError("the two differ");
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(kColour(rtf));
  }
  state.SetBytesProcessed(state.range(0) * state.iterations());
}

void makePlainRtf(benchmark::State& state) {
  const std::string text = page(static_cast<std::size_t>(state.range(0)));
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(ui::plainRtf(text, "\r\n", "Zervo ISO"));
  }
  state.SetBytesProcessed(state.range(0) * state.iterations());
}

BENCHMARK(colour<editor::coloured>)
    ->Name("one-pass")
    ->Arg(1 << 20)
    ->Arg(8 << 20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(colour<tests::colourByChain>)->Name("by-chain")->Arg(1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(makePlainRtf)->Name("plain RTF")->Arg(1 << 20)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
