// How fast the letters of a page are found out and converted, step by step: MB a second of one core's time,
// the best of several runs.
//   letters_bench [MEGABYTES]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "base/files.h"
#include "convert/form_codec.h"
#include "convert/letter_statistics.h"
#include "convert/page_plan.h"

namespace {

template <class Work>
void measure(const char* name, std::size_t bytes, Work work) {
  double best = 1e9;
  for (int i = 0; i < 5; ++i) {
    const std::clock_t start = std::clock();
    work();
    best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  std::printf("  %-12s %7.0f MB/s\n", name, static_cast<double>(bytes) / best / 1e6);
}

// The sample page as long as wanted, in the legacy form or with the letters of the keyboard.
std::string pageOf(std::size_t size, bool keyboard) {
  const std::string page = base::readFile(std::string(ZERVO_SOURCE) + "/samples/vepkhistqaosani-legacy.html");
  const std::size_t body = page.find("<H1>");
  const std::string text = page.substr(body, page.find("</BODY>") - body);
  std::string out = page.substr(0, body);
  while (out.size() < size) out += text;
  if (!keyboard) return out;
  for (char& c : out) {
    const char32_t letter = convert::charactersOf(convert::Form::Legacy)[static_cast<unsigned char>(c)];
    if (const auto key = convert::keyOf(letter)) c = *key;
  }
  out.replace(out.find("Geo_Times"), 9, "AcadNusx ");
  return out;
}

void measureAll(const char* name, const std::string& page) {
  std::printf("%s, %zu MB\n", name, page.size() / 1000000);
  const convert::PlanOptions options;
  measure("scanner", page.size(), [&] {
    markup::Scanner scanner(page);
    markup::Run run;
    while (scanner.next(run)) {
    }
  });
  measure("census", page.size(), [&] { convert::censusOf(page); });
  measure("parts", page.size(), [&] { convert::partsOf(page, options.detector.parts); });
  measure("detect", page.size(), [&] { convert::detect(page, options.detector); });
  measure("plan", page.size(), [&] { convert::makePlan(page, options); });
  const convert::PagePlan plan = convert::makePlan(page, options);
  std::size_t written = 0;
  measure("apply", page.size(),
          [&] { applyPlan(page, plan, [&](std::string_view block) { written += block.size(); }); });
  measure("all", page.size(), [&] {
    applyPlan(page, convert::makePlan(page, options),
              [&](std::string_view block) { written += block.size(); });
  });
}

}  // namespace

int main(int count, char** words) {
  const std::size_t size = (count > 1 ? std::strtoul(words[1], nullptr, 10) : 50) * 1000000;
  measureAll("legacy page", pageOf(size, false));
  measureAll("keyboard page", pageOf(size, true));
  std::string plain(size, 'a');
  for (std::size_t i = 6; i < plain.size(); i += 7) plain[i] = i % 70 < 7 ? '\n' : ' ';
  measureAll("plain page", plain);
}
