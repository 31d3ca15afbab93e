// Find-all and replace-all in memory. Replace-all also measures its peak memory, which must stay within three
// times the result.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <fstream>

#include "bench/search_text.h"
#include "search/find_engine.h"

namespace {

using search::Comparison;

const std::vector<std::string>& pages() {
  static const std::vector<std::string> made = [] {
    std::vector<std::string> texts;
    for (unsigned number = 0; number < 100; ++number) texts.push_back(bench::page(number, 1 << 20));
    return texts;
  }();
  return made;
}

void findAll(benchmark::State& state, Comparison comparison, std::size_t count) {
  std::vector<std::string> sought = bench::searchTerms();
  sought.resize(count);
  const auto terms = search::makeTerms(sought, false, comparison);
  std::size_t bytes = 0;
  search::HitList hits;
  pages();  // made before the clock runs
  for (auto step : state) {
    (void)step;
    hits.clear();
    for (std::size_t i = 0; i < pages().size(); ++i) {
      hits.findAll(static_cast<int>(i), pages()[i], terms, {0, pages()[i].size()});
      bytes += pages()[i].size();
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
  state.counters["hits"] = static_cast<double>(hits.size());
}

// Linux counts the largest memory of a process from the last reset on.
std::size_t memoryLine(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name)) return std::stoul(line.substr(name.size())) * 1024;
  }
  return 0;
}
void resetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

void replaceAll(benchmark::State& state, const char* to, Comparison comparison) {
  const auto hits = static_cast<std::size_t>(state.range(0));
  std::string text;
  for (std::size_t i = 0; i < hits; ++i) text += i % 3 == 0 ? "a needle and hay\r\n" : "needle, hay, ";
  const search::Pattern pattern("needle", comparison);
  double peak = 0, size = 0;
  for (auto step : state) {
    (void)step;
    const std::size_t before = memoryLine("VmRSS:");
    resetPeak();
    const auto result = search::replaceAll(text, pattern, to, {0, text.size()});
    if (!result || result->count != hits) state.SkipWithError("not every hit was replaced");
    size = static_cast<double>(result->text.size());
    peak = static_cast<double>(memoryLine("VmHWM:") - before + text.size());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(hits));
  state.counters["MB"] = size / 1e6;
  state.counters["peak/result"] = peak / size;  // the text and all that was needed beside it
}

}  // namespace

BENCHMARK_CAPTURE(findAll, exact_1_term, Comparison::Exact, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findAll, exact_5_terms, Comparison::Exact, 5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findAll, nocase_1_term, Comparison::IgnoreCase, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findAll, nocase_5_terms, Comparison::IgnoreCase, 5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(replaceAll, same_size, "little", Comparison::Exact)
    ->Unit(benchmark::kMillisecond)
    ->RangeMultiplier(2)
    ->Range(1 << 18, 1 << 22);
BENCHMARK_CAPTURE(replaceAll, longer, "a haystack of hay", Comparison::IgnoreCase)
    ->Unit(benchmark::kMillisecond)
    ->RangeMultiplier(2)
    ->Range(1 << 18, 1 << 22);
BENCHMARK_CAPTURE(replaceAll, a_million, "little", Comparison::Exact)
    ->Unit(benchmark::kMillisecond)
    ->Arg(1000000);

int main(int argc, char** argv) {
  // Large memory goes back to the system at once, so that each run shows what it needs.
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
