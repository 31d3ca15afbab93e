#include "app/props_record.h"

#include "base/binary.h"
#include "base/error.h"

namespace app {
namespace {

constexpr std::string_view kMagic = "ZRVP";
constexpr std::uint16_t kVersion = 1;

// One walk over the fields for both directions, so that they cannot disagree on the order.
template <class Record, class Visitor>
void eachField(Record& props, Visitor&& visit) {
  visit(props.StartMaximized);
  visit(props.RememberPosition);
  visit(props.ReopenLastFile);
  visit(props.EditorFontName);
  visit(props.EditorFontSize);
  visit(props.EditorFontBold);
  visit(props.EditorFontItalic);
  visit(props.EditorBackColor);
  visit(props.EditorColorExtra);
  visit(props.ShowAtStart);
  for (auto& name : props.TypingFontName) visit(name);
  visit(props.NoBreakSpaceAsReference);
  visit(props.SelectionPreview);
  visit(props.WordWrap);
  visit(props.HeaderTextOn);
  visit(props.HeaderText);
  visit(props.BodyAttributesOn);
  visit(props.BodyAttributes);
  visit(props.FtpTimeout);
  visit(props.FtpPassive);
  visit(props.PreviewInBrowser);
  visit(props.TypingModeAtStart);
  visit(props.Utf8FontName);
  visit(props.LiveColours);
  visit(props.LineNumbers);
  visit(props.CurrentLine);
  visit(props.WhiteSpace);
  visit(props.LineEnds);
  visit(props.Colours);
  visit(props.ModeOfPage);
  visit(props.NewPageSkeleton);
  visit(props.ReopenSession);
  visit(props.CutOldEnd);
}

struct Write {
  base::BinaryWriter out;
  void operator()(bool value) { out.boolean(value); }
  void operator()(const std::string& value) { out.text(value); }
  void operator()(std::int16_t value) { out.u16(static_cast<std::uint16_t>(value)); }
  void operator()(base::Color value) { out.u32(value); }
  void operator()(std::int32_t value) { out.u32(static_cast<std::uint32_t>(value)); }
  void operator()(std::uint8_t value) { out.u8(value); }
  void operator()(ColourScheme value) { out.u8(static_cast<std::uint8_t>(value)); }
};

// Fields that an older version of the program did not write yet keep their zero value.
struct Read {
  base::BinaryReader in;
  void operator()(bool& value) {
    if (!in.atEnd()) value = in.boolean();
  }
  void operator()(std::string& value) {
    if (!in.atEnd()) value = in.text();
  }
  void operator()(std::int16_t& value) {
    if (!in.atEnd()) value = static_cast<std::int16_t>(in.u16());
  }
  void operator()(base::Color& value) {
    if (!in.atEnd()) value = in.u32();
  }
  void operator()(std::int32_t& value) {
    if (!in.atEnd()) value = static_cast<std::int32_t>(in.u32());
  }
  void operator()(std::uint8_t& value) {
    if (!in.atEnd()) value = in.u8();
  }
  void operator()(ColourScheme& value) {
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
  props.RememberPosition = true;
  props.EditorFontName = "Zervo ISO";
  props.EditorFontSize = kUsualFontSize;
  props.EditorBackColor = base::rgb(255, 255, 255);
  props.EditorColorExtra = static_cast<std::int32_t>(base::rgb(0, 0, 0));
  props.TypingFontName = {"Zervo RUS", "Zervo ISO", "Zervo ASCII", "Zervo ISO"};
  props.NoBreakSpaceAsReference = true;  // right in a page of any encoding
  props.SelectionPreview = true;
  props.FtpTimeout = kUsualFtpTimeout;
  props.Utf8FontName = "Zervo Mono";
  props.LiveColours = true;
  props.LineNumbers = true;
  props.CurrentLine = true;
  props.Colours = ColourScheme::System;
  props.ModeOfPage = true;
  props.FtpPassive = true;  // works from behind a home router too
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
