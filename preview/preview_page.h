// The text of a page as a browser gets it for the preview.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace preview {

// What the view of the page, or in the 8-bit one the keyboard, tells of the page's letters.
enum class PageLetters { Own, KeyboardLayout, Russian, Utf8 };

// The letters of the legacy 8-bit encoding are the page's Georgian: more of them than of UTF-8, standing in
// words (in Western languages they are single accented letters), and the page names no other encoding that
// such bytes could be in.
bool readsAsLegacy(std::string_view page);

// `page` byte for byte, and in its head what a browser needs to show the Georgian letters of legacy fonts
// with the bundled ones, and links from where the page really is. `folderUrl` is empty where the copy stands
// beside the page. `fontFile` gives a bundled font by its family.
std::string previewPage(std::string_view page, PageLetters letters, const std::string& folderUrl,
                        const std::function<std::string(std::string_view family)>& fontFile);

// `page` with another address in each FRAME, IFRAME, A and AREA for which `other` has one (not empty). It is
// asked with the address as bytes of the page, without what follows "?" or "#".
std::string withAddresses(std::string_view page,
                          const std::function<std::string(std::string_view address)>& other);

// The URL of a path; a folder's ends in "/" when the path ends in "\".
std::string fileUrl(std::string_view path);

}  // namespace preview
