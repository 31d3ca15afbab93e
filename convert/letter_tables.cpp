#include "convert/letter_tables.h"

#include "base/text.h"

namespace convert {

LetterTables loadLetterTables(const std::function<std::string(std::string_view name)>& resource) {
  const auto table = [&](std::string_view name) { return base::split(resource(name), "/"); };
  return {table("GRIGOLIA"),         table("QARTULI_FONTCODES"),  table("QARTULI_TEXT_UTF8"),
          table("QARTULI_HEX_UTF8"), table("QARTULI_HEX_XUCURI"), table("RUSULI_FONTCODES"),
          table("RUSULI_HEX")};
}

}  // namespace convert
