// What is typed into the find and replace fields: letters on their way in, and terms on their way to the
// search.
#pragma once

#include <string>
#include <string_view>

#include "convert/letter_tables.h"

namespace search {

// Letters of the legacy Georgian font become UTF-8 byte text; everything else stays, Latin letters too.
std::string utf8FromLegacy(std::string_view text, const convert::LetterTables& tables);

// A key in a field whose font is Cyrillic: the Latin or Windows-1251 letter becomes the letter of the legacy
// Georgian font on the same key. Other keys pass.
int georgianFromCyrillicField(int key);
// A key while Georgian typing is on: the Latin letter becomes its letter of the legacy font.
int georgianFromLatin(int key, const convert::LetterTables& tables);

}  // namespace search
