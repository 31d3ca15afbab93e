#include "app/props_record.h"

#include "base/binary.h"
#include "base/error.h"

namespace app {
namespace {

constexpr std::string_view kMagic = "ZRVP";
constexpr std::uint16_t kVersion = 1;

struct Write {
  base::BinaryWriter out;
  void operator()(bool value, const auto& /*shipped*/) { out.boolean(value); }
  void operator()(const std::string& value, const auto& /*shipped*/) { out.text(value); }
  void operator()(std::int16_t value, const auto& /*shipped*/) { out.u16(static_cast<std::uint16_t>(value)); }
  void operator()(base::Color value, const auto& /*shipped*/) { out.u32(value); }
  void operator()(std::int32_t value, const auto& /*shipped*/) { out.u32(static_cast<std::uint32_t>(value)); }
  void operator()(std::uint8_t value, const auto& /*shipped*/) { out.u8(value); }
  void operator()(ColourScheme value, const auto& /*shipped*/) { out.u8(static_cast<std::uint8_t>(value)); }
};

// Fields that an older version of the program did not write yet keep their zero value.
struct Read {
  base::BinaryReader in;
  void operator()(bool& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = in.boolean();
  }
  void operator()(std::string& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = in.text();
  }
  void operator()(std::int16_t& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = static_cast<std::int16_t>(in.u16());
  }
  void operator()(base::Color& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = in.u32();
  }
  void operator()(std::int32_t& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = static_cast<std::int32_t>(in.u32());
  }
  void operator()(std::uint8_t& value, const auto& /*shipped*/) {
    if (!in.atEnd()) value = in.u8();
  }
  void operator()(ColourScheme& value, const auto& /*shipped*/) {
    if (in.atEnd()) return;
    const std::uint8_t number = in.u8();
    value = number <= static_cast<std::uint8_t>(ColourScheme::Dark) ? static_cast<ColourScheme>(number)
                                                                    : ColourScheme::Own;
  }
};

[[noreturn]] void damaged() {
  throw base::Error(base::ErrorNumber::BadFileFormat, "პარამეტრების ფაილი props.ini დაზიანებულია.");
}

}  // namespace

PropsRecord defaultProps() {
  PropsRecord props;
  eachField(props, []<class Value>(Value& field, auto shipped) { field = static_cast<Value>(shipped); });
  return props;
}

std::string encodeProps(const PropsRecord& props) {
  Write fields;
  eachField(props, fields);
  base::BinaryWriter file;
  file.raw(kMagic);
  file.u16(kVersion);
  file.text(fields.out.bytes());
  file.u32(base::crc32(fields.out.bytes()));
  return file.bytes();
}

PropsRecord decodeProps(std::string_view bytes) {
  base::BinaryReader file(bytes);
  if (file.left() < kMagic.size() || file.raw(kMagic.size()) != kMagic) damaged();
  if (file.u16() < kVersion) damaged();
  const std::string fields = file.text();
  if (file.u32() != base::crc32(fields) || !file.atEnd()) damaged();
  PropsRecord props;
  Read read{base::BinaryReader(fields)};
  eachField(props, read);
  return props;
}

}  // namespace app
