#include "recent/recent_commands.h"

#include <memory>
#include <string>
#include <vector>

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "recent/frmrecentfile.h"
#include "recent/recent_list.h"

namespace recent {
namespace {

using ui::operator""_keyboard;

constexpr std::size_t kInMenu = 9;

void openPath(app::Workbench& bench, const std::string& path) {
  if (path.empty()) return;
  if (base::fileExists(path)) {
    bench.ofnen(path);
  } else {
    app::messageBox(bench.platform(), "faili waSlilia an sxva folderSia gadatanili."_keyboard, "");
  }
}

}  // namespace

void attach(app::Workbench& bench) {
  // What the menu shows is also what its lines open, whatever has become of the list meanwhile.
  const auto inMenu = std::make_shared<std::vector<std::string>>();
  const auto refresh = [&bench, inMenu] {
    *inMenu = recentPaths(bench.platform().programFolder());
    bench.menuTextsChanged();
  };
  const auto entry = [inMenu](std::size_t number) {
    return number < inMenu->size() ? (*inMenu)[number] : std::string();
  };
  refresh();
  bench.documentOpened.connect([&bench, refresh](const std::string& path) {
    addRecent(bench.platform().programFolder(), path);
    refresh();
  });
  const auto show = [&bench, refresh] {
    const std::string chosen = recentopen(bench);
    refresh();
    openPath(bench, chosen);
  };
  bench.startUp.connect(show);

  std::vector<app::Command> rows = {{.id = mnurecentfile,
                                     .icon = ui::MenuIcon::RecentFiles,
                                     .caption = "&ბოლო ფაილები...",
                                     .place = {&app::kFileMenu, 5},
                                     .run = show,
                                     .help = "ბოლოს გახსნილი ფაილების სია"}};
  for (std::size_t i = 0; i < kInMenu; ++i) {
    rows.push_back({.id = mnurecent1 + static_cast<int>(i),
                    .place = {&app::kFileMenu, 5},
                    .run = [&bench, entry, i] { openPath(bench, entry(i)); },
                    .text = [entry, i]() -> ui::Text {
                      const std::string path = entry(i);
                      if (path.empty()) return "";
                      return "&" + std::to_string(i + 1) + " " + base::replaceAll(path, "&", "&&");
                    },
                    .help = "ბოლოს გახსნილი ფაილის გახსნა"});
  }
  bench.addCommands(std::move(rows));
}

}  // namespace recent
