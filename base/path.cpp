#include "base/path.h"

#include <algorithm>

#include "base/text.h"

namespace base {
namespace {

bool isSeparator(char c) {
  return c == '\\' || c == '/';
}

}  // namespace

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && !isSeparator(path.back())) path += '\\';
  return path.append(name);
}

std::string fileName(std::string_view path) {
  const std::size_t at = path.find_last_of("\\/");
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string folderOf(std::string_view path) {
  const std::size_t at = path.find_last_of("\\/");
  return std::string(at == std::string_view::npos ? std::string_view() : path.substr(0, at));
}

std::string extensionOf(std::string_view title) {
  const std::size_t at = title.rfind('.');
  return upperAscii(at == std::string_view::npos ? title : title.substr(at + 1));
}

std::string lastThree(std::string_view path) {
  return upperAscii(path.substr(path.size() - std::min<std::size_t>(3, path.size())));
}

bool samePath(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return (isSeparator(x) && isSeparator(y)) || equalNoCase({&x, 1}, {&y, 1});
  });
}

}  // namespace base
