#include "ui/recent_folders.h"

#include <exception>

#include "base/files.h"
#include "base/path.h"

namespace ui {
namespace {

constexpr const char* kSection = "folders";

bool inside(std::string_view folder, std::string_view path) {
  if (folder.ends_with('\\')) folder.remove_suffix(1);
  return base::samePath(path.substr(0, folder.size()), folder) &&
         (path.size() == folder.size() || path[folder.size()] == '\\');
}

}  // namespace

std::string folderToOpen(const Platform& platform, const FileDialog& dialog) {
  if (dialog.kind.empty()) return dialog.folder;
  const std::string recent = platform.registryValue(kSection, dialog.kind);
  if (recent.empty() || !base::folderExists(recent)) return dialog.folder;
  return dialog.folder.empty() || inside(dialog.folder, recent) ? recent : dialog.folder;
}

void rememberFolder(Platform& platform, const FileDialog& dialog, std::string_view path) {
  const std::string folder = base::folderOf(path);
  if (dialog.kind.empty() || folder.empty()) return;
  try {
    platform.setRegistryValue(kSection, dialog.kind, folder);
  } catch (const std::exception&) {
    // The user has chosen a file; that goes on.
  }
}

}  // namespace ui
