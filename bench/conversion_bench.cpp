// Every conversion in memory, by the one-pass converter, entry by entry, and by the C library's iconv.
#include <benchmark/benchmark.h>
#include <iconv.h>

#include "bench/bench_text.h"
#include "convert/conversions.h"
#include "convert/encoding_counts.h"
#include "tests/support/entry_by_entry.h"

namespace {

constexpr std::size_t kSize = 32 << 20;

const convert::LetterTables& tables() {
  static const convert::LetterTables tables = bench::letterTables();
  return tables;
}

std::string source(const bench::Pair& pair) {
  return bench::sourceOf(pair, tables(), kSize);
}

void onePass(benchmark::State& state, const bench::Pair& pair) {
  const std::string text = source(pair);
  const convert::Replacement by(tables().*pair.from, tables().*pair.to);
  std::string out = by(text);  // used again, so that getting memory from the system is not measured
  for (auto step : state) {
    (void)step;
    out.clear();
    by.append(text, out);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void byEntry(benchmark::State& state, const bench::Pair& pair) {
  const std::string text = source(pair);
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(tests::entryByEntry(text, tables().*pair.from, tables().*pair.to));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void libraryIconv(benchmark::State& state) {
  std::string text = source(bench::pairNamed("legacy-latin"));
  std::string out(4 * text.size(), '\0');
  for (auto step : state) {
    (void)step;
    iconv_t converter = iconv_open("UTF-8", "GEORGIAN-PS");
    char* in = text.data();
    char* to = out.data();
    std::size_t inLeft = text.size();
    std::size_t outLeft = out.size();
    if (iconv(converter, &in, &inLeft, &to, &outLeft) != 0) state.SkipWithError("iconv failed");
    iconv_close(converter);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void makeAllPairs(benchmark::State& state) {
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(convert::Conversions(tables()));
  }
}

void counts(benchmark::State& state) {
  const std::string text = source(bench::pairNamed("utf8-latin"));
  for (auto step : state) {
    (void)step;
    benchmark::DoNotOptimize(convert::countEncodings(text));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

}  // namespace

int main(int argc, char** argv) {
  for (const bench::Pair& pair : bench::kPairs) {
    const std::string name(pair.name);
    benchmark::RegisterBenchmark(("one-pass/" + name).c_str(), onePass, pair)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("by-entry/" + name).c_str(), byEntry, pair)->Unit(benchmark::kMillisecond);
  }
  benchmark::RegisterBenchmark("iconv/legacy-utf8", libraryIconv)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("make all pairs", makeAllPairs)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("encoding counts", counts)->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
