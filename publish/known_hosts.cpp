#include "publish/known_hosts.h"

#include <vector>

#include "base/text.h"
#include "publish/digest.h"

namespace publish {
namespace {

constexpr int kUsualPort = 22;

std::string lookedFor(const HostKey& key) {
  const std::string host = [&] {
    std::string lower = key.host;
    for (char& c : lower) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
  }();
  return key.port == kUsualPort ? host : "[" + host + "]:" + std::to_string(key.port);
}

// "|1|salt|digest": the name hidden from who reads the file.
bool isHidden(std::string_view pattern, std::string_view name) {
  const std::vector<std::string> parts = base::split(pattern.substr(3), "|");
  if (parts.size() != 2) return false;
  const auto salt = fromBase64(parts[0]);
  const auto digest = fromBase64(parts[1]);
  return salt && digest && sha1Mac(*salt, name) == *digest;
}

bool fits(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == '*') {
    return fits(pattern.substr(1), name) || (!name.empty() && fits(pattern, name.substr(1)));
  }
  return !name.empty() && (pattern[0] == '?' || base::equalNoCase(pattern.substr(0, 1), name.substr(0, 1))) &&
         fits(pattern.substr(1), name.substr(1));
}

bool namesHost(const std::string& patterns, std::string_view name) {
  bool named = false;
  for (const std::string& pattern : base::split(patterns, ",")) {
    if (pattern.starts_with("|1|")) {
      named = named || isHidden(pattern, name);
    } else if (pattern.starts_with("!")) {
      if (fits(std::string_view(pattern).substr(1), name)) return false;
    } else {
      named = named || fits(pattern, name);
    }
  }
  return named;
}

std::vector<std::string> wordsOf(std::string line) {
  std::vector<std::string> words;
  for (char& c : line) {
    if (c == '\t' || c == '\r') c = ' ';
  }
  for (std::string& word : base::split(line, " ")) {
    if (!word.empty()) words.push_back(std::move(word));
  }
  return words;
}

}  // namespace

Acquaintance lookUp(std::string_view lines, const HostKey& key) {
  const std::string name = lookedFor(key);
  Acquaintance found = Acquaintance::Unknown;
  for (const std::string& line : base::split(lines, "\n")) {
    std::vector<std::string> words = wordsOf(line);
    if (words.empty() || words[0].starts_with("#")) continue;
    const bool revoked = words[0] == "@revoked";
    // Authorities sign keys; this is about keys themselves.
    if (words[0].starts_with("@") && !revoked) continue;
    if (revoked) words.erase(words.begin());
    if (words.size() < 3 || !namesHost(words[0], name)) continue;
    const bool same = fromBase64(words[2]) == key.blob;
    if (revoked) {
      if (same) return Acquaintance::Changed;
    } else if (same) {
      found = Acquaintance::Known;
    } else if (found == Acquaintance::Unknown) {
      found = Acquaintance::Changed;
    }
  }
  return found;
}

std::string linesOf(std::string_view lines, const HostKey& key) {
  const std::string name = lookedFor(key);
  std::string found;
  for (const std::string& line : base::split(lines, "\n")) {
    const std::vector<std::string> words = wordsOf(line);
    if (words.size() < 3 || words[0].starts_with("#") || words[0].starts_with("@")) continue;
    if (namesHost(words[0], name)) found += name + " " + words[1] + " " + words[2] + "\n";
  }
  return found;
}

std::string knownHostLine(const HostKey& key) {
  return lookedFor(key) + " " + key.type + " " + base64(key.blob);
}

std::string fingerprint(const HostKey& key) {
  std::string text = base64(sha256(key.blob));
  while (!text.empty() && text.back() == '=') text.pop_back();
  return "SHA256:" + text;
}

}  // namespace publish
