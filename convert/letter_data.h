// Data of resources/ that the rules carry in themselves; the build makes the source from the files.
#pragma once

#include <string_view>

namespace convert {

std::string_view fontLines();  // custom/FONTS.txt
// letters/*.bin, as tools/make_letter_statistics.py describes them.
std::string_view georgianCosts();
std::string_view russianCosts();
std::string_view westernCosts();

}  // namespace convert
