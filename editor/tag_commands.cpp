#include "editor/tag_commands.h"

#include "app/menus.h"
#include "base/cp1252.h"
#include "editor/frmTags.h"
#include "editor/frmabzac.h"
#include "editor/frmasos.h"
#include "editor/frmkod.h"
#include "editor/insertion.h"
#include "resources/ids.h"

namespace editor {
namespace {

using ui::MenuIcon;

const app::Menu kFontMenu{.caption = "&შრიფტი",
                          .icon = MenuIcon::Font,
                          .help = "მონიშნულის შრიფტი, ზომა და ფერი",
                          .place = {&app::kTagsMenu, 2, 1}};
const app::Menu kHeadingMenu{.caption = "სა&თაური",
                             .icon = MenuIcon::Heading,
                             .help = "ექვსი დონის სათაურები",
                             .place = {&app::kTagsMenu, 2, 2}};
const app::Menu kParagraphMenu{.caption = "ა&ბზაცი",
                               .icon = MenuIcon::Paragraph,
                               .help = "აბზაცები გასწორებით",
                               .place = {&app::kTagsMenu, 2, 3}};
const app::Menu kListMenu{.caption = "&ჩამონათვალი",
                          .icon = MenuIcon::List,
                          .help = "სიები ნიშნებით და ნომრებით",
                          .place = {&app::kTagsMenu, 2, 4}};

// A command that inserts a fixed code.
struct Row {
  app::Command command;
  Insertion code;
};

std::vector<Row> rows() {
  return {
      {{.id = mnuFtag2,
        .icon = MenuIcon::Font,
        .caption = "<&FONT>",
        .place = {&kFontMenu},
        .help = "შრიფტის ტეგი ატრიბუტების გარეშე"},
       {Placing::Wrap, "<FONT>", "</FONT>", 6}},
      {{.id = mnuFS,
        .icon = MenuIcon::FontSize,
        .caption = "FONT &SIZE",
        .place = {&kFontMenu},
        .help = "შრიფტის ზომა"},
       {Placing::Wrap, "<FONT SIZE=\"\">", "</FONT>", 14}},
      {{.id = mnuFF,
        .icon = MenuIcon::FontFace,
        .caption = "FONT F&ACE",
        .place = {&kFontMenu},
        .help = "შრიფტის სახელი"},
       {Placing::Wrap, "<FONT FACE=\"\">", "</FONT>", 14}},
      {{.id = mnuFC,
        .icon = MenuIcon::TextColor,
        .caption = "FONT &COLOR",
        .place = {&kFontMenu},
        .help = "შრიფტის ფერი"},
       {Placing::Wrap, "<FONT COLOR=\"\">", "</FONT>", 15}},
      {{.id = mnuFtag,
        .icon = MenuIcon::Font,
        .caption = "FONT FACE SI&ZE COLOR",
        .place = {&kFontMenu},
        .help = "შრიფტის სახელი, ზომა და ფერი"},
       {Placing::Wrap, "<FONT FACE=\"\" SIZE=\"\" COLOR=\"\">", "</FONT>", 31}},
      {{.id = mnuH1,
        .icon = MenuIcon::Heading,
        .caption = "H1",
        .place = {&kHeadingMenu},
        .help = "პირველი დონის სათაური"},
       {Placing::Wrap, "<H1>", "</H1>", 4}},
      {{.id = mnuH2,
        .icon = MenuIcon::Heading,
        .caption = "H2",
        .place = {&kHeadingMenu},
        .help = "მეორე დონის სათაური"},
       {Placing::Wrap, "<H2>", "</H2>", 4}},
      {{.id = mnuH3,
        .icon = MenuIcon::Heading,
        .caption = "H3",
        .place = {&kHeadingMenu},
        .help = "მესამე დონის სათაური"},
       {Placing::Wrap, "<H3>", "</H3>", 4}},
      {{.id = mnuH4,
        .icon = MenuIcon::Heading,
        .caption = "H4",
        .place = {&kHeadingMenu},
        .help = "მეოთხე დონის სათაური"},
       {Placing::Wrap, "<H4>", "</H4>", 4}},
      {{.id = mnuH5,
        .icon = MenuIcon::Heading,
        .caption = "H5",
        .place = {&kHeadingMenu},
        .help = "მეხუთე დონის სათაური"},
       {Placing::Wrap, "<H5>", "</H5>", 4}},
      {{.id = mnuH6,
        .icon = MenuIcon::Heading,
        .caption = "H6",
        .place = {&kHeadingMenu},
        .help = "მეექვსე დონის სათაური"},
       {Placing::Wrap, "<H6>", "</H6>", 4}},
      {{.id = mnucenter,
        .icon = MenuIcon::Justified,
        .caption = "&გასწორებული აბზაცი",
        .place = {&kParagraphMenu},
        .help = "ორივე კიდეზე გასწორებული აბზაცი მინდვრებით"},
       {Placing::Wrap, "<P style=\"text-align:justify; margin-left:1.0cm; margin-right:1.0cm\">", "</P>",
        69}},
      // Two less than the opening tag is long: the selection begins on the quote that ends the style.
      {{.id = mnurecht,
        .icon = MenuIcon::AlignedRight,
        .caption = "აბზაცი &მარჯვნივ",
        .place = {&kParagraphMenu},
        .help = "მარჯვენა კიდეზე გასწორებული აბზაცი"},
       {Placing::Wrap, "<P style=\"text-align:right; margin-right:1.0cm\">", "</P>", 46}},
      {{.id = mnulist,
        .icon = MenuIcon::List,
        .caption = "&სია",
        .place = {&kListMenu},
        .help = "სია ნიშნებით"},
       {Placing::Wrap, "<UL>\r\n\t<LI>", "\r\n</UL>", 11}},
      {{.id = mnunumlist,
        .icon = MenuIcon::NumberedList,
        .caption = "&დანომრილი სია",
        .place = {&kListMenu},
        .help = "სია ნომრებით"},
       {Placing::Wrap, "<OL>\r\n\t<LI>", "\r\n</OL>", 11}},
      {{.id = mnulink,
        .icon = MenuIcon::Link,
        .caption = "ბმუ&ლი",
        .place = {&app::kTagsMenu, 3},
        .help = "ბმული სხვა გვერდზე"},
       {Placing::Wrap, "<A HREF=\"\">", "</A>", 11}},
      {{.id = mnuanchor,
        .icon = MenuIcon::Anchor,
        .caption = "&ღუზა",
        .place = {&app::kTagsMenu, 3},
        .help = "ადგილი, რომელზეც ბმული მიუთითებს"},
       {Placing::Wrap, "<A NAME=\"\">", "</A>", 11}},
      {{.id = mnuImageTag,
        .icon = MenuIcon::Image,
        .caption = "ს&ურათი",
        .place = {&app::kTagsMenu, 3},
        .help = "სურათის ტეგი"},
       {Placing::Replace, "<IMG BORDER=\"0\" SRC=\"\" WIDTH=\"\" HEIGHT=\"\" ALIGN=\"\" ALT=\"\">"}},
      {{.id = mnuImap,
        .icon = MenuIcon::ImageMap,
        .caption = "სურათის &რუკა",
        .place = {&app::kTagsMenu, 3},
        .help = "სურათის უბნები ბმულებით"},
       {Placing::Block,
        "<MAP NAME=\"\">\r\n\t<AREA SHAPE=\"\" HREF=\"\" COORDS=\"\" ALT=\"\">\r\n</MAP>",
        {},
        11}},
      {{.id = mnuform,
        .icon = MenuIcon::Form,
        .caption = "&ფორმა",
        .place = {&app::kTagsMenu, 3},
        .help = "შესავსები ფორმა"},
       {Placing::Block, "<FORM METHOD=POST ACTION=\"\">\r\n\r\n</FORM>", {}, 30}},
      {{.id = mnuframe,
        .icon = MenuIcon::Frame,
        .caption = "ფრე&იმი",
        .place = {&app::kTagsMenu, 3},
        .help = "ფრეიმის ტეგი"},
       {Placing::Block, "<FRAME SRC=\"\" NAME=\"\">", {}, 12}},
      {{.id = mnuaplet,
        .icon = MenuIcon::Applet,
        .caption = "ა&პლეტი",
        .place = {&app::kTagsMenu, 3},
        .help = "Java-აპლეტი"},
       {Placing::Block, "<APPLET CODE=\"\" WIDTH=\"\" HEIGHT=\"\">\r\n</APPLET>", {}, 14}},
      {{.id = mnuscript,
        .icon = MenuIcon::Script,
        .caption = "ს&კრიპტი",
        .place = {&app::kTagsMenu, 3},
        .help = "JavaScript-ის ბლოკი"},
       {Placing::Block, "<SCRIPT LANGUAGE=\"JavaScript\">\r\n<!--\r\n\r\n//-->\r\n</SCRIPT>", {}, 38}},
  };
}

// A button of the toolbar: a code of its own, or (no code) what `command` does; neither: see htmlbarklick().
struct ToolButton {
  ui::ToolIcon icon;
  int command;  // 0: none
  const char* hint;
  Insertion code = {};
};

using Icon = ui::ToolIcon;
constexpr ToolButton kButtons[kToolButtons] = {
    {Icon::Bold, 0, "მუქი", {Placing::Wrap, "<B>", "</B>", 3}},
    {Icon::Italic, 0, "დახრილი", {Placing::Wrap, "<I>", "</I>", 3}},
    {Icon::Underline, 0, "ხაზგასმული", {Placing::Wrap, "<U>", "</U>", 3}},
    {Icon::FontFace, 0, "შრიფტის არჩევა"},
    {Icon::FontColor, mnuTabColor, "ფერის არჩევა"},
    {Icon::NoBreakSpace, 0, "განუყოფელი შუალედი"},
    {Icon::LineBreak, 0, "ახალი სტრიქონი", {Placing::Replace, "<BR>"}},
    {Icon::Paragraph, 0, "აბზაცი", {Placing::Wrap, "<P>", "</P>", 3}},
    {Icon::ParagraphAligned, mnuabzac, "აბზაცი გასწორებით"},
    {Icon::BulletList, mnulist, "სია"},
    {Icon::NumberedList, mnunumlist, "დანომრილი სია"},
    {Icon::Rule, 0, "ჰორიზონტალური ხაზი", {Placing::Replace, "<HR>"}},
    {Icon::Comment, 0, "კომენტარი", {Placing::Wrap, "<!-- ", " -->", 5}},
    {Icon::EditTag, mnutagkod, "ტეგის ატრიბუტები"},
    {Icon::Center, 0, "ცენტრში", {Placing::Wrap, "<CENTER>", "</CENTER>", 8}},
    {Icon::Quote, 0, "ციტატა", {Placing::Wrap, "<BLOCKQUOTE>", "</BLOCKQUOTE>", 12}},
    {Icon::Preformatted, 0, "დაფორმატებული ტექსტი", {Placing::Wrap, "<PRE>", "</PRE>", 5}},
    {Icon::Heading1, mnuH1, "სათაური H1"},
    {Icon::Heading2, mnuH2, "სათაური H2"},
    {Icon::FirstColor, 0, "ტექსტის ფერი: ბოლოს არჩეული"},
    {Icon::SecondColor, 0, "ტექსტის ფერი: მის წინ არჩეული"},
    {Icon::Image, mnuImageTag, "სურათი"},
    {Icon::Link, mnulink, "ბმული"},
    {Icon::Anchor, mnuanchor, "ღუზა"},
    {Icon::Frame, mnuframe, "ფრეიმი"},
    {Icon::Entity, mnuasos, "სიმბოლოები"},
    {Icon::TagList, mnutags, "ტეგების სია"},
};

// "#" and six digits: browsers read no shorter numbers than these.
std::string htmlColor(base::Color color) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "#";
  for (const std::uint8_t part : {base::red(color), base::green(color), base::blue(color)}) {
    text += kDigits[part >> 4];
    text += kDigits[part & 15];
  }
  return text;
}

}  // namespace

TagCommands::TagCommands(app::Workbench& bench) : bench_(bench) {
  addCommands();
  addButtons();
  bench.colorChosen.connect([this](base::Color color) {
    if (color == colors[0]) return;
    colors = {color, colors[0]};
    showColors();
  });
}

void TagCommands::addCommands() {
  bench_.addCommands({
      {.id = mnutags,
       .icon = MenuIcon::TagList,
       .caption = "ტეგების &სია...",
       .place = {&app::kTagsMenu, 1},
       .shortcut = ui::ctrl('T'),
       .run = [this] { mnutags_Click(); },
       .help = "ტეგის არჩევა სიიდან"},
      {.id = mnutagkod,
       .icon = MenuIcon::TagAttributes,
       .caption = "ტეგის &ატრიბუტები...",
       .place = {&app::kTagsMenu, 1},
       .shortcut = ui::ctrlShift('T'),
       .run = [this] { mnutagkod_Click(); },
       .help = "კურსორთან მდგომი ტეგის ატრიბუტები"},
      {.id = mnuabzac,
       .icon = MenuIcon::Paragraph,
       .caption = "&აბზაცი...",
       .place = {&kParagraphMenu},
       .run = [this] { mnuabzac_Click(); },
       .help = "აბზაცი გასწორებით"},
      {.id = mnuasos,
       .icon = MenuIcon::Entity,
       .caption = "სიმბ&ოლოები...",
       .place = {&app::kTagsMenu, 4},
       .run = [this] { mnuasos_Click(); },
       .help = "სიმბოლოები სახელებით"},
      {.id = mnucolour,
       .icon = MenuIcon::TextColor,
       .caption = "ტექსტის ფე&რი...",
       .place = {&kFontMenu, 0, 1},
       .run = [this] { pickColor(); },
       .help = "მონიშნულის ფერის არჩევა"},
  });
  std::vector<Row> all = rows();
  std::vector<app::Command> commands;
  for (Row& row : all) {
    row.command.run = [this, code = row.code, stays = row.command.id == mnulink] {
      insert(bench_.codeView(), code);
      if (!stays) bench_.codeView().setFocus();
    };
    commands.push_back(std::move(row.command));
  }
  // The buttons: no menu shows them.
  for (int i = 0; i < kToolButtons; ++i) {
    const ToolButton& button = kButtons[i];
    commands.push_back({.id = PHTbar + i,
                        .caption = button.hint,
                        .run = [this, i] { htmlbarklick(i); },
                        .help = button.hint});
  }
  bench_.addCommands(std::move(commands));
}

void TagCommands::addButtons() {
  std::vector<ui::ToolBarButton> buttons;
  for (int i = 0; i < kToolButtons; ++i) buttons.push_back({PHTbar + i, kButtons[i].icon, kButtons[i].hint});
  bench_.addToolBar(buttons);
  showColors();
}

void TagCommands::showColors() {
  for (int i = 0; i < kToolButtons; ++i) {
    if (kButtons[i].icon == Icon::FirstColor) bench_.setToolColor(PHTbar + i, colors[0]);
    if (kButtons[i].icon == Icon::SecondColor) bench_.setToolColor(PHTbar + i, colors[1]);
  }
}

void TagCommands::htmlbarklick(int index) {
  if (index < 0 || index >= kToolButtons) return;
  const ToolButton& button = kButtons[index];
  if (button.command != 0) {
    bench_.runCommand(button.command);
    return;
  }
  if (!button.code.open.empty()) {
    insert(bench_.codeView(), button.code);
  } else if (button.icon == Icon::NoBreakSpace) {
    noBreakSpace();
  } else if (button.icon == Icon::FontFace) {
    pickFont();
  } else {
    wrapInColor(colors[button.icon == Icon::FirstColor ? 0 : 1]);
  }
  bench_.codeView().setFocus();
}

void TagCommands::noBreakSpace() {
  bench_.codeView().replaceSelection(bench_.props().NoBreakSpaceAsReference ? "&nbsp;" : "\xC2\xA0");
}

void TagCommands::pickFont() {
  const std::string font = frmTags(bench_.platform()).fontebisdatenva();
  if (font.empty()) return;
  const std::string open = "<FONT FACE=\"" + base::storedName(font) + "\">";
  insert(bench_.codeView(), {Placing::Wrap, open, "</FONT>", static_cast<int>(open.size())});
}

void TagCommands::pickColor() {
  const auto color = bench_.platform().pickColor(colors[0]);
  if (!color) return;
  bench_.colorChosen(*color);
  wrapInColor(*color);
}

void TagCommands::wrapInColor(base::Color color) {
  const std::string open = "<FONT COLOR=\"" + htmlColor(color) + "\">";
  insert(bench_.codeView(), {Placing::Wrap, open, "</FONT>", static_cast<int>(open.size())});
}

void TagCommands::mnutags_Click() {
  insertCode(bench_.codeView(), frmTags(bench_.platform()).Tagsload());
}

void TagCommands::mnutagkod_Click() {
  editTag(bench_);
}

void TagCommands::mnuabzac_Click() {
  const std::string open = frmabzac().ask(bench_.platform());
  if (open.empty()) return;
  insert(bench_.codeView(), {Placing::Wrap, open, "</P>", static_cast<int>(open.size())});
  bench_.codeView().setFocus();
}

void TagCommands::mnuasos_Click() {
  frmasos(bench_.platform(), bench_.codeView()).openWindow();
}

}  // namespace editor
