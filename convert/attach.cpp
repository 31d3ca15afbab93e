#include "convert/attach.h"

#include "convert/conversion_commands.h"

namespace convert {

Attached::Attached(app::Workbench& bench)
    : tables(loadLetterTables([&](std::string_view name) { return bench.platform().resource(name); })),
      conversions(tables),
      typing(bench, tables),
      panels(bench, conversions),
      letters(bench) {
  addConversionCommands(bench, conversions);
}

std::unique_ptr<Attached> attach(app::Workbench& bench) {
  return std::make_unique<Attached>(bench);
}

}  // namespace convert
