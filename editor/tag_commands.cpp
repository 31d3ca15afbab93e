#include "editor/tag_commands.h"

#include "app/menu_names.h"
#include "base/cp1252.h"
#include "editor/frmTags.h"
#include "editor/frmabzac.h"
#include "editor/frmasos.h"
#include "editor/frmkod.h"
#include "editor/insertion.h"
#include "resources/ids.h"

namespace editor {
namespace {

// A command that inserts a fixed code.
struct Row {
  int id;
  const char* name;
  const char* caption;
  const char* help;
  Insertion code;
};

constexpr Row kRows[] = {
    {mnuFtag2,
     "mnuFtag2",
     "|76|<&FONT>",
     "შრიფტის ტეგი ატრიბუტების გარეშე",
     {Placing::Wrap, "<FONT>", "</FONT>", 6}},
    {mnuFS, "mnuFS", "|77|FONT &SIZE", "შრიფტის ზომა", {Placing::Wrap, "<FONT SIZE=\"\">", "</FONT>", 14}},
    {mnuFF, "mnuFF", "|78|FONT F&ACE", "შრიფტის სახელი", {Placing::Wrap, "<FONT FACE=\"\">", "</FONT>", 14}},
    {mnuFC, "mnuFC", "|88|FONT &COLOR", "შრიფტის ფერი", {Placing::Wrap, "<FONT COLOR=\"\">", "</FONT>", 15}},
    {mnuFtag,
     "mnuFtag",
     "|76|FONT FACE SI&ZE COLOR",
     "შრიფტის სახელი, ზომა და ფერი",
     {Placing::Wrap, "<FONT FACE=\"\" SIZE=\"\" COLOR=\"\">", "</FONT>", 31}},
    {mnucenter,
     "mnucenter",
     "|74|&გასწორებული აბზაცი",
     "ორივე კიდეზე გასწორებული აბზაცი მინდვრებით",
     {Placing::Wrap, "<P style=\"text-align:justify; margin-left:1.0cm; margin-right:1.0cm\">", "</P>", 69}},
    // Two less than the opening tag is long: the selection begins on the quote that ends the style.
    {mnurecht,
     "mnurecht",
     "|75|აბზაცი &მარჯვნივ",
     "მარჯვენა კიდეზე გასწორებული აბზაცი",
     {Placing::Wrap, "<P style=\"text-align:right; margin-right:1.0cm\">", "</P>", 46}},
    {mnulink, "mnulink", "|64|ბმუ&ლი", "ბმული სხვა გვერდზე", {Placing::Wrap, "<A HREF=\"\">", "</A>", 11}},
    {mnuanchor,
     "mnuanchor",
     "|65|&ღუზა",
     "ადგილი, რომელზეც ბმული მიუთითებს",
     {Placing::Wrap, "<A NAME=\"\">", "</A>", 11}},
    {mnuH1, "mnuH1", "|79|H1", "პირველი დონის სათაური", {Placing::Wrap, "<H1>", "</H1>", 4}},
    {mnuH2, "mnuH2", "|79|H2", "მეორე დონის სათაური", {Placing::Wrap, "<H2>", "</H2>", 4}},
    {mnuH3, "mnuH3", "|79|H3", "მესამე დონის სათაური", {Placing::Wrap, "<H3>", "</H3>", 4}},
    {mnuH4, "mnuH4", "|79|H4", "მეოთხე დონის სათაური", {Placing::Wrap, "<H4>", "</H4>", 4}},
    {mnuH5, "mnuH5", "|79|H5", "მეხუთე დონის სათაური", {Placing::Wrap, "<H5>", "</H5>", 4}},
    {mnuH6, "mnuH6", "|79|H6", "მეექვსე დონის სათაური", {Placing::Wrap, "<H6>", "</H6>", 4}},
    {mnulist, "mnulist", "|66|&სია", "სია ნიშნებით", {Placing::Wrap, "<UL>\r\n\t<LI>", "\r\n</UL>", 11}},
    {mnunumlist,
     "mnunumlist",
     "|67|&დანომრილი სია",
     "სია ნომრებით",
     {Placing::Wrap, "<OL>\r\n\t<LI>", "\r\n</OL>", 11}},
    {mnuform,
     "mnuform",
     "|68|&ფორმა",
     "შესავსები ფორმა",
     {Placing::Block, "<FORM METHOD=POST ACTION=\"\">\r\n\r\n</FORM>", {}, 30}},
    {mnuaplet,
     "mnuaplet",
     "|69|ა&პლეტი",
     "Java-აპლეტი",
     {Placing::Block, "<APPLET CODE=\"\" WIDTH=\"\" HEIGHT=\"\">\r\n</APPLET>", {}, 14}},
    {mnuImap,
     "mnuImap",
     "|63|სურათის &რუკა",
     "სურათის უბნები ბმულებით",
     {Placing::Block,
      "<MAP NAME=\"\">\r\n\t<AREA SHAPE=\"\" HREF=\"\" COORDS=\"\" ALT=\"\">\r\n</MAP>",
      {},
      11}},
    {mnuscript,
     "mnuscript",
     "|70|ს&კრიპტი",
     "JavaScript-ის ბლოკი",
     {Placing::Block, "<SCRIPT LANGUAGE=\"JavaScript\">\r\n<!--\r\n\r\n//-->\r\n</SCRIPT>", {}, 38}},
    {mnuframe,
     "mnuframe",
     "|60|ფრე&იმი",
     "ფრეიმის ტეგი",
     {Placing::Block, "<FRAME SRC=\"\" NAME=\"\">", {}, 12}},
    {mnuImageTag,
     "mnuImageTag",
     "|62|ს&ურათი",
     "სურათის ტეგი",
     {Placing::Replace, "<IMG BORDER=\"0\" SRC=\"\" WIDTH=\"\" HEIGHT=\"\" ALIGN=\"\" ALT=\"\">"}},
};

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
  addMenus();
  addButtons();
  bench.colorChosen.connect([this](base::Color color) {
    if (color == colors[0]) return;
    colors = {color, colors[0]};
    showColors();
  });
}

void TagCommands::addCommands() {
  std::vector<app::Command> rows;
  const auto add = [&](int id, const char* name, const char* caption, ui::Shortcut shortcut, const char* help,
                       std::function<void()> run) {
    app::Command row{};
    row.id = id;
    row.name = name;
    row.caption = caption;
    row.shortcut = shortcut;
    row.help = help;
    row.run = std::move(run);
    rows.push_back(std::move(row));
  };
  add(mnutags, "mnutags", "|71|ტეგების &სია...", ui::ctrl('T'), "ტეგის არჩევა სიიდან",
      [this] { mnutags_Click(); });
  add(mnutagkod, "mnutagkod", "|72|ტეგის &ატრიბუტები...", ui::ctrlShift('T'),
      "კურსორთან მდგომი ტეგის ატრიბუტები", [this] { mnutagkod_Click(); });
  add(mnuabzac, "mnuabzac", "|73|&აბზაცი...", {}, "აბზაცი გასწორებით", [this] { mnuabzac_Click(); });
  add(mnuasos, "mnuasos", "|80|სიმბ&ოლოები...", {}, "სიმბოლოები სახელებით", [this] { mnuasos_Click(); });
  add(mnucolour, "mnucolour", "|88|ტექსტის ფე&რი...", {}, "მონიშნულის ფერის არჩევა", [this] { pickColor(); });
  for (const Row& row : kRows) {
    add(row.id, row.name, row.caption, {}, row.help, [this, &row] {
      insert(bench_.codeView(), row.code);
      if (row.id != mnulink) bench_.codeView().setFocus();
    });
  }
  for (int i = 0; i < kToolButtons; ++i) {
    const ToolButton& button = kButtons[i];
    add(PHTbar + i, "PHTbar", button.hint, {}, button.hint, [this, i] { htmlbarklick(i); });
  }
  bench_.addCommands(std::move(rows));
}

void TagCommands::addMenus() {
  bench_.addMenu({app::kTagsMenu,
                  {{mnutags, {}, {}},
                   {mnutagkod, {}, {}},
                   {0, {}, {}},
                   {0,
                    "|76|&შრიფტი",
                    {mnuFtag2, mnuFS, mnuFF, mnuFC, mnuFtag, mnucolour},
                    "მონიშნულის შრიფტი, ზომა და ფერი"},
                   {0, "|79|სა&თაური", {mnuH1, mnuH2, mnuH3, mnuH4, mnuH5, mnuH6}, "ექვსი დონის სათაურები"},
                   {0, "|73|ა&ბზაცი", {mnuabzac, mnucenter, mnurecht}, "აბზაცები გასწორებით"},
                   {0, "|66|&ჩამონათვალი", {mnulist, mnunumlist}, "სიები ნიშნებით და ნომრებით"},
                   {0, {}, {}},
                   {mnulink, {}, {}},
                   {mnuanchor, {}, {}},
                   {mnuImageTag, {}, {}},
                   {mnuImap, {}, {}},
                   {mnuform, {}, {}},
                   {mnuframe, {}, {}},
                   {mnuaplet, {}, {}},
                   {mnuscript, {}, {}},
                   {0, {}, {}},
                   {mnuasos, {}, {}}}});
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
