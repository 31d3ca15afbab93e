// Any bytes as props.ini, and as the fields of one whose sum is right.
#include "app/props_record.h"
#include "base/binary.h"
#include "base/error.h"
#include "tests/fuzz/fuzz.h"

namespace {

// Nothing: it is refused.
std::optional<app::PropsRecord> decoded(std::string_view file) {
  try {
    return app::decodeProps(file);
  } catch (const base::Error& error) {
    MUST(error.number() == base::ErrorNumber::BadFileFormat);
    return std::nullopt;
  }
}

}  // namespace

FUZZ(Props, {app::encodeProps({}), app::encodeProps(app::defaultProps()), "ZRVP\1\0", std::string(4, '\0'),
             std::string("\5\0\0\0Arial", 9), "\xFF\xFF\xFF\xFF", "\1", std::string(1, '\0')}) {
  const auto place = fuzz::choose(bytes, 4096);
  if (const auto props = decoded(bytes)) MUST(decoded(app::encodeProps(*props)) == props);
  base::BinaryWriter file;
  file.raw("ZRVP");
  file.u16(1);
  file.text(bytes);
  file.u32(base::crc32(bytes));
  if (const auto props = decoded(file.bytes())) MUST(decoded(app::encodeProps(*props)) == props);
  // A byte that is another one, and a file that is cut, are noticed.
  std::string damaged = file.bytes();
  damaged[place % damaged.size()] ^= static_cast<char>(1U << (place % 8));
  if (place % damaged.size() < 4 || place % damaged.size() > 5) MUST(!decoded(damaged));
  MUST(!decoded(std::string_view(file.bytes()).substr(0, place % file.bytes().size())));
}
