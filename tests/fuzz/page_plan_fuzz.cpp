// Any bytes as a page: scanner, detector and conversion. What must hold of every page is checked without
// them.
#include "base/utf8.h"
#include "convert/page_plan.h"
#include "tests/fuzz/fuzz.h"

namespace {

void checkPage(std::string_view page, const convert::PlanOptions& options) {
  const convert::PagePlan plan = convert::makePlan(page, options);
  const std::string out = applyPlan(page, plan);
  if (plan.detection.page.trouble != convert::Trouble::None) {
    MUST(out == page);
    return;
  }
  MUST(base::isUtf8(out));
  // Outside the changes the page is as it was; each change puts in just what it says.
  std::size_t old = 0;
  std::size_t now = 0;
  for (const convert::Change& change : plan.changes) {
    MUST(change.begin >= old && change.end >= change.begin && change.end <= page.size());
    const std::size_t same = change.begin - old;
    MUST(std::string_view(out).substr(now, same) == page.substr(old, same));
    const std::string put = plan.newBytes(page, change);
    now += same;
    MUST(std::string_view(out).substr(now, put.size()) == put);
    now += put.size();
    old = change.end;
  }
  MUST(std::string_view(out).substr(now) == page.substr(old));
  const convert::PagePlan second = convert::makePlan(out, options);
  MUST(second.detection.page.trouble != convert::Trouble::None || applyPlan(out, second) == out);
}

}  // namespace

FUZZ(PagePlan, {"<",
                ">",
                "</",
                "<!--",
                "-->",
                "<?",
                "?>",
                "<%",
                "%>",
                "<P>",
                "<FONT FACE=AcadNusx>",
                "</FONT>",
                "<FONT FACE=\"Geo_Times\">",
                "<STYLE>",
                "</STYLE>",
                ".a{font-family:AcadNusx}",
                "p:before{content:'\xC0\xC1'}",
                "<SCRIPT>",
                "</SCRIPT>",
                "'",
                "\"",
                "<META CHARSET=windows-1252>",
                "<META HTTP-EQUIV=Content-Type CONTENT=\"text/html; charset=utf-8\">",
                "<HEAD>",
                "<TITLE>",
                "</TITLE>",
                "<IMG ALT=\"",
                "<A HREF=\"\xC0\">",
                "<B CLASS=a STYLE='font-family:LitNusx'>",
                "@charset \"x\";",
                "&#4304;",
                "&#43\r\n04;",
                "&#4305",
                "&Agrave;",
                "&#193;",
                "&nbsp;",
                "&amp;",
                "&",
                "Cveni saiti aris lamazi ",
                "the quick brown fox ",
                "\xDC\xC5\xC4\xCD\xC9 \xD3\xC0\xC9\xD4\xC9 \xC0\xD2\xC9\xD3 ",
                "\xC4\x94",
                "\xC0 ",
                "\xD0\xF3\xF1\xF1\xEA\xE8\xE9 \xFF\xE7\xFB\xEA ",
                "caf\xE9 ",
                "\xE1\x83\x90\xE1\x83\x91 ",
                "\xC3\xA1\xC6\x92\xC2\x90",
                "\xC3\x83\xC2\xA9",
                "\xC3\xA9",
                std::string("\0", 1),
                "\r\n",
                " ",
                "x",
                "\xFF",
                "\xE1\x83",
                "Microsoft ",
                "da ",
                "a@b.ge ",
                "\xD0\x9F\xD1\x80"}) {
  convert::PlanOptions options;
  checkPage(bytes, options);
  options.to = convert::Target::References;
  options.detector.parts.comments = true;
  checkPage(bytes, options);
}
