// The declarations between two braces or in a STYLE attribute: read, and written back with all that was not
// changed byte for byte as it stood.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "markup/css_tokens.h"

namespace markup {

// "name: value !important;". Positions are bytes of the block.
struct CssDeclaration {
  std::size_t start;
  std::size_t nameEnd;
  std::size_t valueStart;
  std::size_t valueEnd;
  std::size_t end;   // behind the value or "!important"
  std::size_t next;  // behind the ";", or `end` when there is none
  std::string name;  // as it stands, with the marks of hacks: "*zoom"
  std::string value;
  bool important;
};

// Whatever is no declaration is passed over: nested rules, text without a colon. Custom properties are
// declarations, whatever braces their values hold.
std::vector<CssDeclaration> readDeclarations(std::string_view block, CssSpelling spelling);

// A declaration as the user wants it. An empty value: not there (one that stood there without a value stays).
struct CssEntry {
  std::string name;
  std::string value;
  bool important = false;
  int origin = -1;  // index in readDeclarations(); -1: a new one
};
std::vector<CssEntry> entriesOf(const std::vector<CssDeclaration>& declarations);

// How declarations are laid out where the block itself does not show it.
struct CssLayout {
  bool oneLine = false;
  std::string lineEnd = "\r\n";
  std::string indent = "\t";  // further than the closing brace
  std::string colon = ": ";
};
// As the block has it; what it does not show stays as in `otherwise`.
CssLayout layoutOf(std::string_view block, CssSpelling spelling, CssLayout otherwise);

// The block with the entries in place of its declarations. New ones come last, written like the one before.
// `quote` is the attribute's quote, of a sheet 0. `entries` has one entry for each declaration, in order.
std::string editedBlock(const std::string& block, char quote, const std::vector<CssEntry>& entries,
                        const CssLayout& layout);

// Nothing in the value would end the declaration or swallow what follows. Of properties only custom ones may
// hold braces.
bool fitsDeclaration(std::string_view value, std::string_view property = {});
// The same for the selector of a rule.
bool fitsSelector(std::string_view selector);

}  // namespace markup
