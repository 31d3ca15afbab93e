// Opens a web project of many files beside a plain loop that reads the same files, in turn, in one process.
//   project_bench [files] [bytes a file]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/FrmH.h"
#include "tests/support/fake_main_peer.h"
#include "tests/support/fake_platform.h"
#include "tests/support/memory_code_view.h"
#include "tests/support/temp_folder.h"

namespace {

template <class Action>
double milliseconds(const Action& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int count, char** words) {
  const int files = count > 1 ? std::stoi(words[1]) : 1000;
  const std::size_t size = count > 2 ? std::stoul(words[2]) : 50 * 1024;
  const tests::TempFolder folder;
  std::string list;
  std::vector<std::string> paths;
  for (int i = 0; i < files; ++i) {
    const std::string name = "page" + std::to_string(i) + ".html";
    paths.push_back(folder.make(name, std::string(size, static_cast<char>('a' + i % 26))));
    list += name + "\r\n";
  }
  const std::string project = folder.make("site.WEB", list + "STOPF=page0.html\r\n");
  double open = 1e9;
  double loop = 1e9;
  for (int round = 0; round < 7; ++round) {
    std::size_t bytes = 0;
    loop = std::min(loop, milliseconds([&] {
                      std::vector<std::string> texts;
                      for (const std::string& path : paths) {
                        std::string nativePath = path;
                        std::replace(nativePath.begin(), nativePath.end(), '\\', '/');
                        std::ifstream in(nativePath, std::ios::binary);
                        std::string& text = texts.emplace_back(std::filesystem::file_size(nativePath), '\0');
                        in.read(text.data(), static_cast<std::streamsize>(text.size()));
                        bytes += static_cast<std::size_t>(in.gcount());
                      }
                    }));
    if (bytes != size * paths.size()) return 1;
    tests::FakePlatform platform;
    tests::MemoryCodeView view;
    tests::FakeMainPeer window;
    app::FrmH form(platform, view);
    form.window = &window;
    open = std::min(open, milliseconds([&] { form.WEB_Open(project); }));
    if (form.WebProject.Count() != files) return 1;
  }
  std::printf(
      "%d files of %zu bytes, fastest of 7: plain loop %.1f ms, project opened in %.1f ms: %.2f times\n",
      files, size, loop, open, open / loop);
}
