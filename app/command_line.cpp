#include "app/command_line.h"

#include <algorithm>

#include "base/text.h"

namespace app {
namespace {

constexpr std::string_view kBetweenFiles = "\" \"";

// Blanks part the arguments, but not in quotes; backslashes count for themselves except before a quote, where
// two make one and one makes the quote a letter.
std::vector<std::string> systemArguments(std::string_view line) {
  std::vector<std::string> arguments;
  std::string argument;
  bool begun = false, quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (!quoted && (c == ' ' || c == '\t')) {
      if (begun) arguments.push_back(argument);
      argument.clear();
      begun = false;
      continue;
    }
    begun = true;
    if (c == '"') {
      quoted = !quoted;
    } else if (c == '\\') {
      const std::size_t end = std::min(line.find_first_not_of('\\', i), line.size());
      const std::size_t count = end - i;
      const bool beforeQuote = end < line.size() && line[end] == '"';
      argument.append(beforeQuote ? count / 2 : count, '\\');
      i = end - 1;
      if (beforeQuote && count % 2 != 0) argument += line[++i];
    } else {
      argument += c;
    }
  }
  if (begun) arguments.push_back(argument);
  return arguments;
}

}  // namespace

CommandLine readCommandLine(const std::string& line, const std::function<bool(const std::string&)>& exists) {
  using Kind = CommandLine::Kind;
  const std::string_view trimmed = base::trimSpaces(line);
  if (trimmed.empty()) return {};
  if (trimmed == "NOMAX") return {Kind::NoMax, {}};

  CommandLine read;
  if (line.find(kBetweenFiles) != std::string::npos) {
    const bool quoted = line.front() == '"';
    read = {Kind::Several, base::split(quoted ? line.substr(1, line.size() - 2) : line, kBetweenFiles)};
  } else {
    const std::string unquoted = base::replaceAll(line, "\"", " ");
    read = {Kind::One, {std::string(base::trimSpaces(unquoted))}};
  }
  const auto there = [&exists](const std::vector<std::string>& paths) {
    return std::count_if(paths.begin(), paths.end(), exists);
  };
  const auto named = there(read.paths);
  if (named == std::ssize(read.paths)) return read;
  std::vector<std::string> arguments = systemArguments(line);
  const auto split = there(arguments);
  if (split == 0 || (named > 0 && split < std::ssize(arguments))) return read;
  return {arguments.size() == 1 ? Kind::One : Kind::Several, std::move(arguments)};
}

}  // namespace app
