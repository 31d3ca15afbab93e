// The rows of the View menu that say how the code looks, and the status bar's word on it.
#include <algorithm>
#include <array>
#include <utility>

#include "app/FrmH.h"
#include "app/mdlsaerto.h"
#include "app/menu_names.h"
#include "base/utf8.h"

namespace app {
namespace {

constexpr int kLeastZoom = -8, kMostZoom = 40;  // points

struct SchemeRow {
  const char* name;
  const char* caption;
  const char* help;
};
// In the order of ColourScheme.
constexpr std::array<SchemeRow, 4> kSchemes = {{
    {"mnuColours0", "სა&კუთარი", "ფონისა და ასოების ფერები პარამეტრებიდან"},
    {"mnuColours1", "როგორც &სისტემაშია", "ღია ან მუქი ფერები, Windows-ის პარამეტრების მიხედვით"},
    {"mnuColours2", "&ღია", "მუქი ასოები ღია ფონზე"},
    {"mnuColours3", "&მუქი", "ღია ასოები მუქ ფონზე"},
}};

}  // namespace

Command FrmH::lookSwitch(int id, const char* name, ui::Text caption, bool PropsRecord::*field,
                         ui::Text help) {
  Command row{id, name, std::move(caption), {}, [this, field] {
                Props.*field = !(Props.*field);
                applyEditorSettings();
                saveProps();
              }};
  row.checked = [this, field] { return Props.*field; };
  row.help = std::move(help);
  return row;
}

void FrmH::addLookCommands() {
  std::vector<Command> rows;
  const auto view = [&](int id, const char* name, const char* caption, ui::TextView wanted,
                        const char* help) {
    Command row{id, name, caption, {}, [this, wanted] { chooseView(wanted); }};
    row.checked = [this, wanted] { return T1.view() == wanted; };
    row.help = help;
    row.radio = true;
    rows.push_back(std::move(row));
  };
  view(mnuView8Bit, "mnuView8Bit", "&8-ბიტიანი ხედი", ui::TextView::EightBit,
       "ყოველი ბაიტი ერთი ასოა, კრეფის რეჟიმის შრიფტით");
  view(mnuViewUtf8, "mnuViewUtf8", "&UTF-8 ხედი", ui::TextView::Utf8,
       "UTF-8 ბაიტები ასოებად ჩანს; ბაიტები იგივე რჩება");

  rows.push_back(lookSwitch(mnuWordWrap, "mnuWordWrap", "|45|სტრიქონების &გადატანა", &PropsRecord::WordWrap,
                            "გრძელი სტრიქონების გადატანა ფანჯრის სიგანეზე"));
  rows.push_back(lookSwitch(mnuLineNumbers, "mnuLineNumbers", "სტრიქონების &ნომრები",
                            &PropsRecord::LineNumbers, "სტრიქონების ნომრები ტექსტის მარცხნივ"));
  rows.push_back(lookSwitch(mnuCurrentLine, "mnuCurrentLine", "&მიმდინარე სტრიქონის გამოყოფა",
                            &PropsRecord::CurrentLine, "სტრიქონს, რომელშიც კურსორია, სხვა ფონი აქვს"));
  rows.push_back(lookSwitch(mnuWhiteSpace, "mnuWhiteSpace", "&ჰარების ჩვენება", &PropsRecord::WhiteSpace,
                            "ჰარი წერტილად ჩანს, ტაბულაცია - ისრად"));
  rows.push_back(lookSwitch(mnuShowLineEnds, "mnuShowLineEnds", "სტრიქონის &ბოლოების ჩვენება",
                            &PropsRecord::LineEnds, "სტრიქონის ბოლოში ჩანს, რით მთავრდება: CR, LF"));
  rows.push_back(lookSwitch(mnuLiveColours, "mnuLiveColours", "ფერები &კრეფისას", &PropsRecord::LiveColours,
                            "ტეგები, სტილები და სკრიპტები კრეფისას ფერადდება"));

  for (std::size_t i = 0; i < kSchemes.size(); ++i) {
    const auto scheme = static_cast<ColourScheme>(i);
    Command row{mnuColours0 + static_cast<int>(i), kSchemes[i].name, kSchemes[i].caption, {}, [this, scheme] {
                  Props.Colours = scheme;
                  applyEditorSettings();
                  saveProps();
                }};
    row.checked = [this, scheme] { return Props.Colours == scheme; };
    row.help = kSchemes[i].help;
    row.radio = true;
    rows.push_back(std::move(row));
  }

  const auto zoom = [&](int id, const char* name, const char* caption, ui::Shortcut key, const char* help,
                        std::function<void()> run) {
    rows.push_back({id, name, caption, key, std::move(run), nullptr, nullptr, help});
  };
  zoom(mnuZoomIn, "mnuZoomIn", "&გადიდება", {ui::kKeyPlus, true, false, false}, "ასოების გადიდება",
       [this] { zoomTo(T1.zoom() + 1); });
  zoom(mnuZoomOut, "mnuZoomOut", "&დაპატარავება", {ui::kKeyMinus, true, false, false}, "ასოების დაპატარავება",
       [this] { zoomTo(T1.zoom() - 1); });
  zoom(mnuZoomNone, "mnuZoomNone", "&100%", ui::ctrl('0'), "შრიფტის საკუთარი ზომა", [this] { zoomTo(0); });
  addCommands(std::move(rows));

  viewChanged.connect([this] { showView(); });
  panelClicked.connect([this](std::string_view key) {
    if (key != "kView") return;
    chooseView(T1.view() == ui::TextView::Utf8 ? ui::TextView::EightBit : ui::TextView::Utf8);
  });
  showView();
}

MenuPlan FrmH::lookMenu() const {
  MenuPlan plan{kViewMenu, {}};
  const auto add = [&](std::initializer_list<int> ids) {
    for (const int id : ids) plan.lines.push_back({id, {}, {}});
  };
  add({mnuView8Bit, mnuViewUtf8, 0, mnuColouring, mnuLiveColours});
  plan.lines.push_back({0,
                        "ფე&რები",
                        {mnuColours0, mnuColours1, mnuColours2, mnuColours3},
                        "რედაქტორის ფერები: საკუთარი, ღია ან მუქი"});
  plan.lines.push_back({0, "მა&სშტაბი", {mnuZoomIn, mnuZoomOut, mnuZoomNone}, "ასოების ზომა ეკრანზე"});
  add({0, mnuWordWrap, mnuLineNumbers, mnuCurrentLine, mnuWhiteSpace, mnuShowLineEnds, mnuPreviewPane});
  return plan;
}

void FrmH::zoomTo(int points) {
  T1.setZoom(std::clamp(points, kLeastZoom, kMostZoom));
}

void FrmH::showView() {
  const char* const eightBit = base::isUtf16(T1.text()) ? "UTF-16, 8-ბიტი" : "8-ბიტი";
  setPanel("kView", T1.view() == ui::TextView::Utf8 ? "UTF-8" : eightBit);
}

}  // namespace app
