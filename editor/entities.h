// Pages written with and without the named characters of HTML 4.01.
#pragma once

#include <string>
#include <string_view>

#include "markup/entities.h"
#include "ui/code_view.h"

namespace editor {

using markup::entities;
using markup::Entity;
using markup::kEntities;

// What the bytes of a page mean.
enum class PageBytes {
  Utf8,      // also plain ASCII
  EightBit,  // Windows-1252 up to BF; from C0 on the letters of the legacy font, which have no names
  Russian,   // Windows-1251, whose letters have no names
};
// `font` is what the page is shown in: the bytes alone do not tell the two apart.
PageBytes pageBytes(std::string_view page, ui::CharacterSet font);

// Every character that has a name becomes "&name;", also "&", "<", ">" and the quote.
std::string encodeEntities(std::string_view text, PageBytes page);
// Every "&name;" becomes its character, if the page's bytes have it. The opposite of encodeEntities().
std::string decodeEntities(std::string_view text, PageBytes page);

}  // namespace editor
