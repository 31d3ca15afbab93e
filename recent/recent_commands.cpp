#include "recent/recent_commands.h"

#include "app/mdlsaerto.h"
#include "app/menu_names.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "recent/frmrecentfile.h"
#include "recent/recent_list.h"

namespace recent {
namespace {

using ui::operator""_keyboard;

constexpr int kInMenu = 9;

void openPath(app::Workbench& bench, const std::string& path) {
  if (path.empty()) return;
  if (base::fileExists(path)) {
    bench.ofnen(path);
  } else {
    app::messageBox(bench.platform(), "faili waSlilia an sxva folderSia gadatanili."_keyboard, "");
  }
}

std::string entry(app::Workbench& bench, int number) {
  const auto paths = recentPaths(bench.platform().programFolder());
  return number < static_cast<int>(paths.size()) ? paths[static_cast<std::size_t>(number)] : "";
}

}  // namespace

void attach(app::Workbench& bench) {
  bench.documentOpened.connect([&bench](const std::string& path) {
    addRecent(bench.platform().programFolder(), path);
    bench.menuTextsChanged();
  });
  const auto show = [&bench] { openPath(bench, recentopen(bench)); };
  bench.startUp.connect(show);

  std::vector<app::Command> rows = {{mnurecentfile,
                                     "mnurecentfile",
                                     "|39|&ბოლო ფაილები...",
                                     {},
                                     show,
                                     nullptr,
                                     nullptr,
                                     "ბოლოს გახსნილი ფაილების სია"}};
  app::MenuPlan plan{app::kFileMenu, {{0, {}, {}}, {mnurecentfile, {}, {}}}};
  for (int i = 0; i < kInMenu; ++i) {
    app::Command row{mnurecent1 + i, "mnurecent", "", {}, [&bench, i] { openPath(bench, entry(bench, i)); }};
    row.text = [&bench, i]() -> ui::Text {
      const std::string path = entry(bench, i);
      if (path.empty()) return "";
      return "&" + std::to_string(i + 1) + " " + base::replaceAll(path, "&", "&&");
    };
    row.help = "ბოლოს გახსნილი ფაილის გახსნა";
    rows.push_back(std::move(row));
    plan.lines.push_back({mnurecent1 + i, {}, {}});
  }
  bench.addCommands(std::move(rows));
  bench.addMenu(plan);
}

}  // namespace recent
