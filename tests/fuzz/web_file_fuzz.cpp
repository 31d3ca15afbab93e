// Any bytes as a *.WEB file.
#include "app/web_file.h"
#include "base/text.h"
#include "tests/fuzz/fuzz.h"

FUZZ(WebFile, {"a.html", "B.HTML", "\r\n", "\n", "\r", "STOPF=", "\xEF\xBB\xBF", " ", "\t", "..\\", "/", ".",
               "\xC0", "\xE1\x83\x90", "\xC3\xA9", "\x81", "%", "C:"}) {
  const base::WebFile file = base::parseWebFile(bytes);
  for (const std::string& name : file.names) {
    MUST(!base::trimSpaces(name).empty());
    base::leavesFolder(name);
  }
  // What the program writes of it reads back the same, but for a mark of the encoding that no program wrote
  // there.
  std::vector<std::string> names = file.names;
  app::siasorti(names);
  const std::string written = app::webFileText(names, file.startPage.value_or(""));
  if (written.starts_with("\xEF\xBB\xBF")) return;
  const base::WebFile again = base::parseWebFile(written);
  MUST(again.names == names);
  MUST(again.startPage == file.startPage.value_or(""));
  MUST(app::webFileText(again.names, *again.startPage) == written);
}
