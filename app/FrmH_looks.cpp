// The rows of the View menu that say how the code looks, and the status bar's word on it.
#include <algorithm>

#include "app/FrmH.h"
#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/utf8.h"

namespace app {
namespace {

constexpr int kLeastZoom = -8, kMostZoom = 40;  // points

const Menu kColoursMenu{
    .caption = "ფე&რები", .help = "რედაქტორის ფერები: საკუთარი, ღია ან მუქი", .place = {&kViewMenu, 2, 1}};
const Menu kZoomMenu{.caption = "მა&სშტაბი", .help = "ასოების ზომა ეკრანზე", .place = {&kViewMenu, 2, 1}};

}  // namespace

// Turns a field of the settings on and off.
Command FrmH::lookSwitch(bool PropsRecord::*field, Command row) {
  row.run = [this, field] {
    Props.*field = !(Props.*field);
    applyEditorSettings();
    saveProps();
  };
  row.checked = [this, field] { return Props.*field; };
  return row;
}

void FrmH::addLookCommands() {
  const auto view = [this](ui::TextView wanted, Command row) {
    row.place = {&kViewMenu, 1};
    row.run = [this, wanted] { chooseView(wanted); };
    row.checked = [this, wanted] { return T1.view() == wanted; };
    row.radio = true;
    return row;
  };
  const auto scheme = [this](ColourScheme wanted, Command row) {
    row.place = {&kColoursMenu};
    row.run = [this, wanted] {
      Props.Colours = wanted;
      applyEditorSettings();
      saveProps();
    };
    row.checked = [this, wanted] { return Props.Colours == wanted; };
    row.radio = true;
    return row;
  };
  addCommands({
      view(ui::TextView::EightBit, {.id = mnuView8Bit,
                                    .caption = "&8-ბიტიანი ხედი",
                                    .help = "ყოველი ბაიტი ერთი ასოა, კრეფის რეჟიმის შრიფტით"}),
      view(ui::TextView::Utf8, {.id = mnuViewUtf8,
                                .caption = "&UTF-8 ხედი",
                                .help = "UTF-8 ბაიტები ასოებად ჩანს; ბაიტები იგივე რჩება"}),
      lookSwitch(&PropsRecord::LiveColours, {.id = mnuLiveColours,
                                             .caption = "ფერები &კრეფისას",
                                             .place = {&kViewMenu, 2, 1},
                                             .help = "ტეგები, სტილები და სკრიპტები კრეფისას ფერადდება"}),
      scheme(ColourScheme::Own,
             {.id = mnuColours0, .caption = "სა&კუთარი", .help = "ფონისა და ასოების ფერები პარამეტრებიდან"}),
      scheme(ColourScheme::System, {.id = mnuColours1,
                                    .caption = "როგორც &სისტემაშია",
                                    .help = "ღია ან მუქი ფერები, Windows-ის პარამეტრების მიხედვით"}),
      scheme(ColourScheme::Light, {.id = mnuColours2, .caption = "&ღია", .help = "მუქი ასოები ღია ფონზე"}),
      scheme(ColourScheme::Dark, {.id = mnuColours3, .caption = "&მუქი", .help = "ღია ასოები მუქ ფონზე"}),
      {.id = mnuZoomIn,
       .caption = "&გადიდება",
       .place = {&kZoomMenu},
       .shortcut = {ui::kKeyPlus, true, false, false},
       .run = [this] { zoomTo(T1.zoom() + 1); },
       .help = "ასოების გადიდება"},
      {.id = mnuZoomOut,
       .caption = "&დაპატარავება",
       .place = {&kZoomMenu},
       .shortcut = {ui::kKeyMinus, true, false, false},
       .run = [this] { zoomTo(T1.zoom() - 1); },
       .help = "ასოების დაპატარავება"},
      {.id = mnuZoomNone,
       .caption = "&100%",
       .place = {&kZoomMenu},
       .shortcut = ui::ctrl('0'),
       .run = [this] { zoomTo(0); },
       .help = "შრიფტის საკუთარი ზომა"},
      lookSwitch(&PropsRecord::WordWrap, {.id = mnuWordWrap,
                                          .icon = ui::MenuIcon::WordWrap,
                                          .caption = "სტრიქონების &გადატანა",
                                          .place = {&kViewMenu, 3},
                                          .help = "გრძელი სტრიქონების გადატანა ფანჯრის სიგანეზე"}),
      lookSwitch(&PropsRecord::LineNumbers, {.id = mnuLineNumbers,
                                             .caption = "სტრიქონების &ნომრები",
                                             .place = {&kViewMenu, 3},
                                             .help = "სტრიქონების ნომრები ტექსტის მარცხნივ"}),
      lookSwitch(&PropsRecord::CurrentLine, {.id = mnuCurrentLine,
                                             .caption = "&მიმდინარე სტრიქონის გამოყოფა",
                                             .place = {&kViewMenu, 3},
                                             .help = "სტრიქონს, რომელშიც კურსორია, სხვა ფონი აქვს"}),
      lookSwitch(&PropsRecord::WhiteSpace, {.id = mnuWhiteSpace,
                                            .caption = "&ჰარების ჩვენება",
                                            .place = {&kViewMenu, 3},
                                            .help = "ჰარი წერტილად ჩანს, ტაბულაცია - ისრად"}),
      lookSwitch(&PropsRecord::LineEnds, {.id = mnuShowLineEnds,
                                          .caption = "სტრიქონის &ბოლოების ჩვენება",
                                          .place = {&kViewMenu, 3},
                                          .help = "სტრიქონის ბოლოში ჩანს, რით მთავრდება: CR, LF"}),
  });

  viewChanged.connect([this] { showView(); });
  panelClicked.connect([this](std::string_view key) {
    if (key != "kView") return;
    chooseView(T1.view() == ui::TextView::Utf8 ? ui::TextView::EightBit : ui::TextView::Utf8);
  });
  showView();
}

void FrmH::zoomTo(int points) {
  T1.setZoom(std::clamp(points, kLeastZoom, kMostZoom));
}

void FrmH::showView() {
  const char* const eightBit = base::isUtf16(T1.text()) ? "UTF-16, 8-ბიტი" : "8-ბიტი";
  setPanel("kView", T1.view() == ui::TextView::Utf8 ? "UTF-8" : eightBit);
}

}  // namespace app
