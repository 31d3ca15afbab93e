#include "app/documents/session.h"

#include <algorithm>

#include "app/document_tree.h"
#include "base/files.h"
#include "base/moved_place.h"
#include "base/path.h"

namespace app {
namespace {

constexpr std::string_view kUntitled = "nosaved";

// The extension of a name that untitledName gave; nothing when the name is another one.
std::optional<std::string> untitledExtension(const std::string& title) {
  if (!title.starts_with(kUntitled)) return std::nullopt;
  const std::size_t dot = title.find_first_not_of("0123456789", kUntitled.size());
  if (dot == std::string::npos || dot == kUntitled.size() || title[dot] != '.') return std::nullopt;
  return title.substr(dot);
}

}  // namespace

std::string untitledName(std::int16_t index, std::string_view extension) {
  return std::string(kUntitled) + std::to_string(index) + std::string(extension);
}

std::string_view Session::text(std::int16_t index) {
  return isShown(index) ? codeView_.text() : list.Item(index).Value.view();
}

void Session::setText(std::int16_t index, std::string_view text) {
  if (isShown(index)) {
    codeView_.setText(text);
    return;
  }
  Ithem& record = list.Item(index);
  record.Value.in(codeView_)->setText(text);
  record.Changed = true;
}

std::string Session::title(std::int16_t index) {
  return index >= 0 ? list.Item(index).FileTitle : base::fileName(shown.path);
}

std::string Session::path(std::int16_t index) {
  return isShown(index) ? shown.path : list.Item(index).filepath;
}

bool Session::changed(std::int16_t index) {
  return isShown(index) ? shown.changed : list.Item(index).Changed;
}

base::FileTrace& Session::file(std::int16_t index) {
  const std::int16_t own = isShown(index) ? shown.index : index;
  return own < 0 ? shown.file : list.Item(own).file;
}

std::vector<std::int16_t> Session::texts() {
  std::vector<std::int16_t> all;
  if (shown.index < 0) all.push_back(-1);
  for (std::int16_t i = 0; i < list.Count(); ++i) {
    if (!isImage(list.Item(i))) all.push_back(i);
  }
  return all;
}

std::shared_ptr<ui::CodeDocument> Session::document(std::int16_t index) {
  return isShown(index) ? codeView_.document() : list.Item(index).Value.document();
}

std::optional<std::int16_t> Session::recordOf(const std::string& path) {
  const auto others = othersOf(path, -1);
  return others.empty() ? std::nullopt : std::optional(others.front());
}

std::vector<std::int16_t> Session::othersOf(const std::string& path, std::int16_t index) {
  std::vector<std::int16_t> others;
  if (path.empty()) return others;
  const std::string identity = base::identityOf(path);
  for (std::int16_t i = 0; i < list.Count(); ++i) {
    if (i == index) continue;
    const Ithem& record = list.Item(i);
    // One file may be spelled in many ways.
    const bool same = !identity.empty() && record.file.identity == identity;
    if (same || base::samePath(record.filepath, path)) others.push_back(i);
  }
  return others;
}

int Session::nearestText(int position) {
  const auto usable = [this](int i) { return !isImage(list.Item(static_cast<std::int16_t>(i))); };
  for (int i = std::max(position, 0); i < list.Count(); ++i) {
    if (usable(i)) return i;
  }
  for (int i = std::min<int>(position, list.Count()) - 1; i >= 0; --i) {
    if (usable(i)) return i;
  }
  return -1;
}

std::vector<std::int16_t> Session::unsaved() {
  std::vector<std::int16_t> all;
  const auto add = [&](std::int16_t index) {
    if (changed(index) && !(path(index).empty() && text(index).empty())) all.push_back(index);
  };
  if (shown.index < 0) add(-1);
  for (std::int16_t i = 0; i < list.Count(); ++i) add(i);
  return all;
}

std::int16_t Session::append(const DocumentText& value, const std::string& path, const std::string& title) {
  list.AddNewIthem(value, -1, "", "");
  const auto index = static_cast<std::int16_t>(list.Count() - 1);
  Ithem& record = list.Item(index);
  record.FileTitle = title;
  record.filepath = path;
  record.saved = !path.empty();
  record.Changed = false;
  return index;
}

void Session::park() {
  if (shown.index < 0) {
    if (codeView_.text().empty() && shown.path.empty()) return;
    const std::string title =
        shown.path.empty() ? untitledName(list.Count(), ".HTML") : base::fileName(shown.path);
    shown.index = append(codeView_.document(), shown.path, title);
    list.Item(shown.index).file = shown.file;
  }
  Ithem& record = list.Item(shown.index);
  if (!isImage(record)) {
    record.Value = codeView_.document();
    record.Changed = shown.changed;
  }
  record.SStart = codeView_.selStart();
  record.SLenth = codeView_.selLength();
}

void Session::move(std::int16_t from, std::int16_t to) {
  park();
  list.moveRecord(from, to);
  shown.index = static_cast<std::int16_t>(base::placeAfterMove(shown.index, from, to));
  if (list.WEBopened) list.WEBChanged = true;  // its file names the documents in their order
  nameUntitled();
}

void Session::remove(std::int16_t index) {
  list.RemoveIthem(index);
  if (index < shown.index) --shown.index;
}

void Session::nameUntitled() {
  for (std::int16_t i = 0; i < list.Count(); ++i) {
    Ithem& record = list.Item(i);
    const auto extension = untitledExtension(record.FileTitle);
    if (record.filepath.empty() && extension) record.FileTitle = untitledName(i, *extension);
  }
}

void Session::markChanged(std::int16_t index) {
  (isShown(index) ? shown.changed : list.Item(index).Changed) = true;
}

void Session::saved(std::int16_t index, const std::string& path, const base::FileTrace& trace) {
  if (const auto document = this->document(index)) document->savedEdits = document->edits;
  file(index) = trace;
  if (isShown(index)) {
    shown.changed = false;
    shown.path = path;
    index = shown.index;
  }
  if (index < 0) return;
  Ithem& record = list.Item(index);
  record.Changed = false;
  record.saved = true;
  record.filepath = path;
}

}  // namespace app
