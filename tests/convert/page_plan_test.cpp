#include "convert/page_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "base/files.h"
#include "base/utf8.h"
#include "convert/form_codec.h"
#include "tests/support/iconv.h"

namespace {

using convert::Form;

constexpr const char* kSentence = "ჩვენი ქვეყნის უძველესი ქალაქი თბილისი მდინარე მტკვრის ნაპირას მდებარეობს";
constexpr const char* kShort = "ჰავა";

std::string in(const char* charset, const std::string& utf8) {
  return tests::convertWithIconv(utf8, "UTF-8", charset);
}
std::string legacy(const std::string& utf8) {
  return in("GEORGIAN-PS", utf8);
}
std::string keyboard(const std::string& utf8) {
  std::string out;
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t c = *base::nextUtf8(utf8, at);
    out += convert::keyOf(c).value_or(static_cast<char>(c));
  }
  return out;
}
// Taken for Windows-1252 and encoded again.
std::string again(const std::string& utf8) {
  std::string out;
  for (const char c : utf8) base::appendUtf8(out, base::charOfByte(static_cast<std::uint8_t>(c)));
  return out;
}

std::string converted(const std::string& page, const convert::PlanOptions& options = {}) {
  const convert::PagePlan plan = convert::makePlan(page, options);
  std::string out = applyPlan(page, plan);
  EXPECT_TRUE(base::isUtf8(out)) << out;
  EXPECT_EQ(applyPlan(out, convert::makePlan(out, options)), out) << "converted again it changes";
  return out;
}

TEST(FormCodec, AgreesWithIconvOnEveryLetter) {
  for (const auto& [form, charset, last] :
       {std::tuple{Form::Legacy, "GEORGIAN-PS", 0xE5}, std::tuple{Form::Academy, "GEORGIAN-ACADEMY", 0xE6}}) {
    for (int byte = 0xA0; byte < 0x100; ++byte) {
      std::string utf8;
      base::appendUtf8(utf8, convert::charactersOf(form)[static_cast<std::size_t>(byte)]);
      EXPECT_EQ(utf8, tests::convertWithIconv(std::string(1, static_cast<char>(byte)), charset, "UTF-8"))
          << byte;
      EXPECT_EQ(convert::byteIn(form, convert::charactersOf(form)[static_cast<std::size_t>(byte)]), byte);
      EXPECT_EQ(convert::isGeorgian(convert::charactersOf(form)[static_cast<std::size_t>(byte)]),
                byte >= 0xC0 && byte <= last);
    }
    EXPECT_EQ(convert::charactersOf(form)[0x93], u'“');
  }
  for (int byte = 0x80; byte < 0x100; ++byte) {
    if (byte == 0x98) continue;  // open in Windows-1251
    std::string utf8;
    base::appendUtf8(utf8, convert::charactersOf(Form::Russian)[static_cast<std::size_t>(byte)]);
    EXPECT_EQ(utf8, tests::convertWithIconv(std::string(1, static_cast<char>(byte)), "CP1251", "UTF-8"))
        << byte;
  }
}

TEST(PagePlan, ConvertsTextsAndNothingElse) {
  const std::string s = kSentence;
  const std::string l = legacy(s);
  const std::string head = "<HTML><HEAD><META CHARSET=UTF-8><TITLE>";
  const std::string rest =
      "</TITLE></HEAD>\r\n<BODY CLASS=\"a b\"><!-- Cveni saiti --><A HREF=\"saiti.html\" NAME=gverdi>" + s +
      "</A>\n<IMG ALT='" + s + "' SRC=x.gif><INPUT TYPE=hidden VALUE=gverdi><?php echo \"saiti\" ?>\r" + s +
      "&nbsp;<SCRIPT>var gverdi = 1;</SCRIPT></BODY>";
  const auto with = [&](const std::string& letters) {
    std::string page = head + s + rest;
    for (std::size_t at = 0; (at = page.find(s, at)) != std::string::npos; at += letters.size()) {
      page.replace(at, s.size(), letters);
    }
    return page;
  };
  std::string references;
  std::string split;
  for (std::size_t at = 0; at < s.size();) {
    const char32_t c = *base::nextUtf8(s, at);
    const std::string number = "&#" + std::to_string(static_cast<std::uint32_t>(c));
    references += c < 0x80 ? std::string(1, static_cast<char>(c)) : number + ";";
    split += c < 0x80      ? std::string(1, static_cast<char>(c))
             : at % 2 == 0 ? number
                           : number.substr(0, 3) + "\r\n" + number.substr(3) + ";";
  }
  std::string names;
  for (const char c : l) names += c == ' ' ? " " : "&#" + std::to_string(static_cast<std::uint8_t>(c)) + ";";
  for (const std::string& letters : {l, in("GEORGIAN-ACADEMY", s), keyboard(s), references, split, names,
                                     again(s), again(again(s)), again(again(again(s))), s}) {
    EXPECT_EQ(converted(with(letters)), with(s)) << letters;
  }
  convert::PlanOptions options;
  options.to = convert::Target::References;
  EXPECT_EQ(converted(with(l), options), with(references));
}

TEST(PagePlan, ReadsEachRunInItsOwnForm) {
  const std::string s = kSentence;
  const std::string russian = "Наша страна находится на берегу моря, и люди здесь живут хорошо";
  const std::string french = "Les élèves étaient déjà à l’école où l’été\u00A0\u00A0» s’achève";
  const std::string english = "The quick brown fox jumps over the lazy dog and runs away";
  const auto page = [](const std::vector<std::string>& texts) {
    std::string out = "<HTML><HEAD><META CHARSET=UTF-8></HEAD><BODY>";
    for (const std::string& text : texts) out += "<P>" + text + "</P>\r\n";
    return out;
  };
  EXPECT_EQ(converted(page({legacy(s), in("CP1251", russian), legacy(kShort), in("CP1252", french), again(s),
                            keyboard(s), english, s,
                            legacy(s) + ", \x84"
                                        "abc\x93 HTML"})),
            page({s, russian, kShort, french, s, s, english, s, s + ", „abc“ HTML"}));
  // A word or two in another language, and an address, among letters of the keyboard.
  EXPECT_EQ(converted(page({keyboard(s) + " Microsoft Windows " + keyboard(s) + " info@saiti.ge"})),
            page({s + " Microsoft Windows " + s + " info@saiti.ge"}));
}

TEST(PagePlan, FontsDecideAndGoWhereTheyAreNeededNoMore) {
  const auto text = [](const std::string& before, const std::string& letters, const std::string& after) {
    return "<HTML><HEAD><META CHARSET=UTF-8></HEAD>" + before + letters + after;
  };
  const std::string k = keyboard(kShort);
  const std::string s = kShort;
  EXPECT_EQ(converted(text("<FONT SIZE=2 FACE=\"AcadNusx\">", k, "</FONT>da <B>da</B>")),
            text("<FONT SIZE=2>", s, "</FONT>da <B>da</B>"));
  EXPECT_EQ(converted(text("<P STYLE='color: red; font-family: AcadNusx; margin: 0'>", k, "</P>")),
            text("<P STYLE='color: red;  margin: 0'>", s, "</P>"));
  EXPECT_EQ(converted(text("<STYLE>.g, td { font-family: LitNusx, Arial }</STYLE><B CLASS=\"x g\">", k,
                           "</B><I>da</I>")),
            text("<STYLE>.g, td { font-family: Arial }</STYLE><B CLASS=\"x g\">", s, "</B><I>da</I>"));
  // A word that no key gives was left: the font stays.
  EXPECT_EQ(converted(text("<FONT FACE=AcadNusx>", k + " Microsoft", "</FONT>")),
            text("<FONT FACE=AcadNusx>", s + " Microsoft", "</FONT>"));
  convert::PlanOptions options;
  options.fonts = convert::OldFonts::Keep;
  EXPECT_EQ(converted(text("<FONT FACE=AcadNusx>", k, "</FONT>"), options),
            text("<FONT FACE=AcadNusx>", s, "</FONT>"));
  options.fonts = convert::OldFonts::Exchange;
  options.newFonts = "Sylfaen, serif";
  EXPECT_EQ(converted(text("<FONT FACE='AcadNusx'>", k, "</FONT>"), options),
            text("<FONT FACE='Sylfaen, serif'>", s, "</FONT>"));
  convert::FontTable table = convert::FontTable::builtIn();
  EXPECT_EQ(table.add("# mine\r\nkeyboard: My Font*\r\nnonsense"), std::vector<std::size_t>{3});
  options = {};
  options.detector.parts.fonts = &table;
  EXPECT_EQ(converted(text("<FONT FACE=myfont2>", k, "</FONT>"), options), text("<FONT>", s, "</FONT>"));
}

TEST(PagePlan, DeclaresTheCharacterSet) {
  const std::string s = kSentence;
  const std::string l = legacy(s);
  EXPECT_EQ(converted("<html>\n<head>\n<title>" + l),
            "<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" + s);
  EXPECT_EQ(converted("<HTML><BODY>" + l), "<HTML>\r\n<META CHARSET=\"UTF-8\"><BODY>" + s);
  EXPECT_EQ(converted("<META HTTP-EQUIV='Content-Type' CONTENT='text/html; charset=ISO-8859-1'>" + l),
            "<META HTTP-EQUIV='Content-Type' CONTENT='text/html; charset=UTF-8'>" + s);
  EXPECT_EQ(converted("<?xml version=\"1.0\" encoding=\"windows-1252\"?><p>" + l),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><p>" + s);
  EXPECT_EQ(converted("<P>" + l), "<P>" + s);  // a piece of a page has no head
  const std::string plain = "<HTML><META CHARSET=windows-1252>abc &eacute; &copy;";
  EXPECT_EQ(converted(plain), plain);
  convert::PlanOptions sheet;
  sheet.detector.parts.kind = convert::PageKind::StyleSheet;
  EXPECT_EQ(converted("@charset \"iso-8859-1\"; p:before { content: \"" + l + "\"; quotes: 'da' }", sheet),
            "@charset \"utf-8\"; p:before { content: \"" + s + "\"; quotes: 'da' }");
  // The digits of an escape are no keys.
  EXPECT_EQ(converted("q:before { content: '\\00C0 \\201E Cveni saiti aris lamazi' }", sheet),
            "@charset \"utf-8\";\r\nq:before { content: '\\00C0 \\201E ჩვენი საიტი არის ლამაზი' }");
  convert::PlanOptions references;
  references.to = convert::Target::References;
  EXPECT_EQ(converted("\xEF\xBB\xBFx<P>\xE1\x83\x90", references), "\xEF\xBB\xBFx<P>&#4304;")
      << "a mark is no letter";
  // Bytes in what changes as a whole are no change of their own.
  const std::string odd =
      "<META CHARSET=win\xED"
      "ows><P>" +
      l;
  EXPECT_EQ(converted(odd), "<META CHARSET=utf-8><P>" + s);
  EXPECT_EQ(convert::makePlan(odd, {}).changes.size(), 2U);
}

TEST(PagePlan, ScriptsCommentsAndBytesElsewhere) {
  const std::string s = kSentence;
  const std::string l = legacy(s);
  const auto page = [](const std::string& comment, const std::string& string, const std::string& href,
                       const std::string& text) {
    return "<HTML><META CHARSET=UTF-8><!--" + comment + "--><SCRIPT>alert('" + string +
           "')</SCRIPT><A HREF='" + href + "' ONCLICK='alert(\"" + string + "\")'>" + text + "</A>";
  };
  // What is no text keeps its characters, as a browser had them.
  EXPECT_EQ(converted(page(l, l, "\xC0.htm", l)), page(again(l), s, "À.htm", s));
  convert::PlanOptions options;
  options.detector.parts.comments = true;
  options.detector.parts.scriptStrings = false;
  EXPECT_EQ(converted(page(l, l, "x", l), options), page(s, again(l), "x", s));
  options = {};
  options.to = convert::Target::References;
  EXPECT_NE(converted(page("", l, "x", l), options).find("alert('\\u10E9\\u10D5"), std::string::npos);
}

TEST(PagePlan, LeavesAndReportsWhatIsUncertain) {
  const std::string russian = in("CP1251", "Наша страна находится на берегу моря, и люди живут здесь");
  const std::string page = "<HTML><META CHARSET=UTF-8><P>" + legacy(kSentence) + "</P>\r\n\r\n<P>" + russian +
                           "</P>\r\n<P>\xD0\xC0</P>";
  const convert::PagePlan plan = convert::makePlan(page, {});
  ASSERT_TRUE(plan.uncertain());
  const auto at =
      std::ranges::find_if(plan.changes, [](const auto& change) { return change.verdict.uncertain; });
  EXPECT_EQ(plan.oldBytes(page, *at), "\xD0\xC0");
  EXPECT_EQ(convert::LineCounter(page).lineOf(at->begin), 4u);
  EXPECT_TRUE(converted(page).ends_with("<P>ÐÀ</P>"));
  // The user knows.
  convert::PagePlan chosen = plan;
  convert::PagePlan::choose(chosen.changes[static_cast<std::size_t>(at - plan.changes.begin())].verdict,
                            Form::Legacy);
  EXPECT_TRUE(applyPlan(page, chosen).ends_with("<P>პა</P>"));
  for (convert::Change& change : chosen.changes) change.apply = false;
  EXPECT_TRUE(applyPlan(page, chosen).ends_with("<P>ÐÀ</P>"));
}

TEST(PagePlan, ConvertsASelectionAlone) {
  const std::string l = legacy(kSentence);
  const std::string page = "<HTML><FONT FACE=Geo_Times>" + l + "</FONT><P>" + l;
  convert::PlanOptions options;
  options.selection = markup::Range{page.size() - l.size(), page.size()};
  EXPECT_EQ(applyPlan(page, convert::makePlan(page, options)),
            page.substr(0, page.size() - l.size()) + kSentence);
}

TEST(Detector, RefusesWhatIsNoPageByName) {
  using convert::Trouble;
  EXPECT_EQ(convert::troubleOf(""), Trouble::Empty);
  EXPECT_EQ(convert::troubleOf("\x89PNG\r\n\x1A\n"), Trouble::Binary);
  EXPECT_EQ(convert::troubleOf(std::string(1000, '\0')), Trouble::Binary);
  EXPECT_EQ(convert::troubleOf(std::string("<P>a\0b</P>", 10)), Trouble::None);
  std::string random;
  for (unsigned i = 0, x = 1; i < 5000; ++i)
    random += static_cast<char>((x = x * 1664525 + 1013904223) >> 24);
  EXPECT_EQ(convert::troubleOf(random), Trouble::Binary);
  const std::string wide = in("UTF-16LE", "<HTML>აბგ");
  EXPECT_EQ(convert::troubleOf(wide), Trouble::Utf16Little);
  EXPECT_EQ(convert::utf8FromUtf16("\xFF\xFE" + wide, false), "<HTML>აბგ");
  EXPECT_EQ(convert::utf8FromUtf16(in("UTF-16BE", "😀ა") + "\xD8", true), "😀ა\xEF\xBF\xBD");
  const std::string polish =
      "<META CHARSET=ISO-8859-2><P>" + in("ISO-8859-2", "zażółć gęślą jaźń, wszystkie litery");
  EXPECT_EQ(convert::makePlan(polish, {}).detection.page.trouble, Trouble::ForeignCharset);
  EXPECT_TRUE(convert::makePlan(polish, {}).changes.empty());
}

}  // namespace
