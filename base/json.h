// Lines of JSON: written by hand, member by member, and read back as a tree.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace base {

// With its quotes. What is no UTF-8 in it becomes U+FFFD.
std::string jsonQuoted(std::string_view text);

struct Json {
  enum class Kind : std::uint8_t { Null, True, False, Number, Text, List, Object };
  Kind kind = Kind::Null;
  std::string text;  // of Text, and a Number as it is spelt
  std::vector<Json> items;
  struct Member;
  std::vector<Member> members;  // in their order

  // Of an object; an empty one where there is no such member.
  const Json& operator[](std::string_view name) const;
  bool isTrue() const { return kind == Kind::True; }
  std::uint64_t number() const;  // 0 of all that is no whole number from 0 on
};

struct Json::Member {
  std::string name;
  Json value;
};

// Nothing where it is not exactly one value, or one nested deeper than 50.
std::optional<Json> parseJson(std::string_view text);

}  // namespace base
