// What the real code view makes of a document's kind and line ends.
#include <gtest/gtest.h>

#include "platform/win32/code_view/code_view.h"
#include "tests/platform/test_window.h"
#include "ui/code_colours.h"

namespace {

class CodeViewLooks : public testing::Test {
 protected:
  CodeViewLooks() {
    view.place(window.hwnd(), 7);
    view.setBounds({0, 0, 300, 200});
    ui::CodeLook look;
    look.liveColours = true;
    view.setLook(look);
  }
  LRESULT call(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(view.hwnd(), message, wParam, lParam);
  }
  void show(const std::string& page) {
    const auto document = view.makeDocument(page);
    document->language = ui::Language::Html;
    view.show(document);
  }
  // The colour of the first letter of `part`, after all of the page was coloured.
  ui::CodeColour colourOf(std::string_view part) {
    call(SCI_COLOURISE, 0, -1);
    const auto style = static_cast<std::uint8_t>(call(SCI_GETSTYLEAT, view.text().find(part)));
    const auto colour = static_cast<base::Color>(call(SCI_STYLEGETFORE, style));
    for (int i = 0; i < static_cast<int>(ui::CodeColour::Count); ++i) {
      if (colour == ui::codeColour(static_cast<ui::CodeColour>(i), false))
        return static_cast<ui::CodeColour>(i);
    }
    return ui::CodeColour::Count;
  }

  tests::TestWindow window;
  win32::CodeView view;
};

TEST_F(CodeViewLooks, SheetsScriptsAndServerCodeOfAPageAreColoured) {
  show(
      "<HTML><!-- note -->\n<STYLE TYPE=a>\nBODY { color: <?php echo $one ?>red }\n/* sheet */\n</STYLE>\n"
      "<SCRIPT>var v = 'text';</SCRIPT>&amp;<% Dim total %>\n<P ALIGN=left>plain { color: blue }");
  using enum ui::CodeColour;
  const std::pair<const char*, ui::CodeColour> all[] = {
      {"HTML", Tag},     {"note", Comment}, {"STYLE", Tag},       {"BODY", Tag},     {"color: <", Attribute},
      {"echo", Keyword}, {"red", Value},    {"sheet", Comment},   {"/STYLE", Tag},   {"var", Keyword},
      {"'text'", Value}, {"&amp", Entity},  {"Dim", Keyword},     {"total", Server}, {"ALIGN", Attribute},
      {"left", Value},   {"plain", Text},   {"color: blue", Text}};
  for (const auto& [part, colour] : all) EXPECT_EQ(colourOf(part), colour) << part;
  // Typed inside the sheet, and where a sheet ends earlier than before.
  view.select(static_cast<int>(view.text().find("/* sheet")), 0);
  view.replaceSelection("P { margin: 1px }\n");
  EXPECT_EQ(colourOf("margin"), Attribute);
  EXPECT_EQ(colourOf("1px"), Value);
  EXPECT_EQ(colourOf("sheet"), Comment);
  EXPECT_EQ(colourOf("plain"), Text);
  view.select(static_cast<int>(view.text().find("P {")), 0);
  view.replaceSelection("</STYLE>");
  EXPECT_EQ(colourOf("margin"), Text);
}

TEST_F(CodeViewLooks, EnterWritesTheLineEndThatTheTextHas) {
  const auto enter = [this] {
    view.select(1, 0);
    call(WM_KEYDOWN, VK_RETURN, 1);
  };
  show("a\r\nb");
  view.setText("a\nb");
  enter();
  EXPECT_EQ(view.text(), "a\n\nb");
  view.undo();
  view.undo();
  enter();
  EXPECT_EQ(view.text(), "a\r\n\r\nb");
  // Changed while another document was shown.
  const auto first = view.document();
  show("other");
  first->setText("a\rb");
  view.show(first);
  enter();
  EXPECT_EQ(view.text(), "a\r\rb");
}

}  // namespace
