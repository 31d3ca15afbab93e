#include "generators/frmDesign.h"

#include <algorithm>
#include <charconv>

#include "app/mdlsaerto.h"
#include "base/cp1252.h"
#include "base/path.h"
#include "base/text.h"
#include "generators/frame_geometry.h"

namespace generators {
namespace {

constexpr const char* kScrolling[] = {"Auto", "No", "Yes"};

}  // namespace

frmDesign::frmDesign(app::Workbench& bench) : Form("frmDesign", IDD_frmDesign), bench_(bench) {
  setTexts();
  connectPictures();
  connectFields();
  defaultButton = &COK;
  cancelButton = &CEXIT;
  bench_.framesetLayout = -1;
  showFields();
}

void frmDesign::setTexts() {
  setCaption("ფრეიმების გვერდი");
  PSP.hint = "ფრეიმების განლაგება";
  TBframe.setCaption("&განლაგება");
  TBbagkolor.setCaption("&ფონის ფერი...");
  TBimage.setCaption("ფონის &სურათი...");
  TBframparams.setCaption("ფრეიმის &თვისებები");
  TBcler.setCaption("გასუფთავე&ბა");
  Pfram.hint = "ფრეიმები";
  PFOP.setCaption("თვისებები");
  LSTpage.setCaption("ფრეიმების გვერდის სახ&ელი:");
  Lrows.setCaption("ს&ტრიქონები:");
  Lcols.setCaption("სვეტებ&ი:");
  CKborder.setCaption("&ჩარჩო");
  LTramwidth.setCaption("&დაშორება:");
  Lname.setCaption("ფრეიმის სახე&ლი:");
  Lsource.setCaption("გვერდის ფაილი (&1):");
  CHfile.setCaption("ფ&აილი...");
  CHfile.hint = "არსებული ფაილი ამ ფრეიმისთვის";
  Lskrol.setCaption("გადახ&ვევა:");
  CKresice.setCaption("ზომის შეცვლა შესაძლებელია (&2)");
  Limage.setCaption("ფონის სუ&რათის გზა:");
  CKwasercaichen.setCaption("უ&ძრავი ფონი");
  COK.setCaption("შექ&მნა");
  CEXIT.setCaption("და&ხურვა");
  CBskrol.setItems({kScrolling[0], kScrolling[1], kScrolling[2]});
}

void frmDesign::connectPictures() {
  PSP.paint = [this](ui::Canvas& canvas) { paintLayouts(canvas); };
  PSP.mouseDown.connect([this](ui::Point point) { PSP_Click(point); });
  PSP.keyDown = [this](int key) { return PSP_KeyDown(key); };
  Pfram.paint = [this](ui::Canvas& canvas) { paintPreview(canvas); };
  Pfram.mouseDown.connect([this](ui::Point point) { Pfram_Click(point); });
  Pfram.keyDown = [this](int key) { return Pfram_KeyDown(key); };
  Pfon.paint = [this](ui::Canvas& canvas) {
    canvas.fill({0, 0, Pfon.size().width, Pfon.size().height}, canvas.systemColor(ui::SystemColor::Shadow));
  };
  Pfon.mouseDown.connect([this](ui::Point) {
    PSP.setVisible(false);
    selectFrame(-1);
  });
}

void frmDesign::connectFields() {
  for (ui::TextBox* field : {&TSTpage, &Trows, &Tcols, &Tramwidth, &Tname, &Tsource, &Timage}) {
    field->changed.connect([this] { changed(); });
  }
  for (ui::CheckBox* box : {&CKborder, &CKresice, &CKwasercaichen})
    box->changed.connect([this] { changed(); });
  CBskrol.selectionChanged.connect([this] { changed(); });
  TBframe.clicked.connect([this] {
    PSP.setVisible(true);
    PSP.setFocus();
  });
  TBbagkolor.clicked.connect([this] { TBbagkolor_Click(); });
  TBimage.clicked.connect([this] { TBimage_Click(); });
  TBframparams.clicked.connect([this] {
    if (selected_ < 0) selectFrame(0);
    Tname.setFocus();
  });
  TBcler.clicked.connect([this] { TBcler_Click(); });
  CHfile.clicked.connect([this] { CHfile_Click(); });
  COK.clicked.connect([this] { COK_Click(); });
  CEXIT.clicked.connect([this] {
    if (queryClose()) close();
  });
}

// Layout and frames -----------------------------------------------------------------------------------------

void frmDesign::chooseCell(int cell) {
  cell_ = cell;
  const Background page = design_.page;
  design_ = newDesign(cell < kLayouts ? cell : -1);
  design_.page = page;
  bench_.framesetLayout = design_.layout;
  touched_ = touched_ || cell < kLayouts;
  selectFrame(-1);
}

void frmDesign::selectFrame(int frame) {
  selected_ = frame < static_cast<int>(design_.frames.size()) ? frame : -1;
  showFields();
}

Background& frmDesign::background() {
  return selected_ >= 0 ? design_.frames[static_cast<std::size_t>(selected_)].background : design_.page;
}

// The picture's captions tell what it shows to who cannot see it.
void frmDesign::showFields() {
  filling_ = true;
  const bool layout = design_.layout >= 0;
  const bool frame = selected_ >= 0;
  const Frame shown = frame ? design_.frames[static_cast<std::size_t>(selected_)] : Frame{};
  TSTpage.setText(base::nameFromStored(design_.pageName));
  Trows.setText(design_.rows);
  Tcols.setText(design_.cols);
  CKborder.setChecked(design_.border);
  Tramwidth.setText(std::to_string(design_.spacing));
  Tname.setText(frame ? base::nameFromStored(shown.name) : "");
  Tsource.setText(frame ? base::nameFromStored(shown.source) : "");
  CKresice.setChecked(frame && shown.resizable);
  int scrolling = -1;
  for (int i = 0; frame && i < static_cast<int>(std::size(kScrolling)); ++i) {
    if (base::equalNoCase(shown.scrolling, kScrolling[i])) scrolling = i;
  }
  CBskrol.setSelected(scrolling);
  Timage.setText(base::nameFromStored(background().image));
  CKwasercaichen.setChecked(background().fixed);
  filling_ = false;

  for (ui::Control* control :
       {static_cast<ui::Control*>(&TSTpage), static_cast<ui::Control*>(&CKborder),
        static_cast<ui::Control*>(&Tramwidth), static_cast<ui::Control*>(&TBframparams)}) {
    control->setEnabled(layout);
  }
  // By the layout, so that a field that was cleared can be filled again.
  const FramesetDesign first = newDesign(design_.layout);
  Trows.setEnabled(!first.rows.empty());
  Tcols.setEnabled(!first.cols.empty());
  for (ui::Control* control : {static_cast<ui::Control*>(&Tname), static_cast<ui::Control*>(&Tsource),
                               static_cast<ui::Control*>(&CHfile), static_cast<ui::Control*>(&CBskrol),
                               static_cast<ui::Control*>(&CKresice)}) {
    control->setEnabled(frame);
  }
  // With a layout the page behind it is seen by nobody: its background is the frames'.
  for (ui::Control* control : {static_cast<ui::Control*>(&TBbagkolor), static_cast<ui::Control*>(&TBimage),
                               static_cast<ui::Control*>(&Timage), static_cast<ui::Control*>(&CKwasercaichen),
                               static_cast<ui::Control*>(&TBcler)}) {
    control->setEnabled(frame || !layout);
  }
  const std::string chosen =
      layout ? "განლაგება " + std::to_string(design_.layout + 1) : std::string("ერთი გვერდი");
  Tselfram.setCaption(frame ? "ფრეიმი " + std::to_string(selected_ + 1) + ": " +
                                  base::nameFromStored(shown.name)
                      : layout ? "აირჩიეთ ფრეიმი სურათზე"
                               : chosen + " ფრეიმების გარეშე");
  PSP.setCaption(chosen);
  Pfram.setCaption(Tselfram.caption());
  PSP.repaint();
  Pfram.repaint();
}

void frmDesign::changed() {
  if (filling_) return;
  touched_ = true;
  design_.pageName = base::storedName(TSTpage.text());
  if (Trows.enabled()) design_.rows = base::storedName(Trows.text());
  if (Tcols.enabled()) design_.cols = base::storedName(Tcols.text());
  design_.border = CKborder.checked();
  const std::string& spacing = Tramwidth.text();
  std::int16_t number = -1;  // what is no number is complained about when the pages are made
  const auto [end, error] = std::from_chars(spacing.data(), spacing.data() + spacing.size(), number);
  design_.spacing =
      error == std::errc() && end == spacing.data() + spacing.size() ? number : std::int16_t{-1};
  background().image = base::storedName(Timage.text());
  background().fixed = CKwasercaichen.checked();
  if (selected_ >= 0) {
    Frame& frame = design_.frames[static_cast<std::size_t>(selected_)];
    frame.name = base::storedName(Tname.text());
    const std::string source = base::storedName(Tsource.text());
    if (source != frame.source) frame.existingFile.clear();
    frame.source = source;
    frame.resizable = CKresice.checked();
    const int scrolling = CBskrol.selected();
    if (scrolling >= 0 && !base::equalNoCase(frame.scrolling, kScrolling[scrolling])) {
      frame.scrolling = kScrolling[scrolling];
    }
  }
  Pfram.repaint();
}

// Actions ---------------------------------------------------------------------------------------------------

void frmDesign::TBbagkolor_Click() {
  const auto color = bench_.platform().pickColor(background().color);
  if (!color) return;
  background().color = *color;
  touched_ = true;
  Pfram.repaint();
}

// Files below the open project's folder by their way from there, others by their name: pages lie beside one
// another.
std::string frmDesign::pathInPage(const std::string& path) const {
  const std::string& root = bench_.documents().WEBpath;
  if (bench_.documents().WEBopened && path.size() > root.size() &&
      base::samePath(path.substr(0, root.size()), root)) {
    return base::storedName(base::replaceAll(path.substr(root.size()), "\\", "/"));
  }
  return base::storedName(base::fileName(path));
}

void frmDesign::TBimage_Click() {
  const auto paths = bench_.platform().openFiles({"ფონის სურათი",
                                                  "JPG(*.jpg)|*.jpg|GIF(*.gif)|*.gif",
                                                  {},
                                                  false,
                                                  bench_.documents().WEBpath,
                                                  "pictures"});
  if (paths.empty()) return;
  background().image = pathInPage(paths[0]);
  touched_ = true;
  showFields();
}

void frmDesign::CHfile_Click() {
  const auto paths = bench_.platform().openFiles({"ფრეიმის გვერდი",
                                                  "HTML-HTM(*.HTML,*.HTM)|*.html;*.htm",
                                                  {},
                                                  false,
                                                  bench_.documents().WEBpath,
                                                  "frames"});
  if (paths.empty()) return;
  Frame& frame = design_.frames[static_cast<std::size_t>(selected_)];
  frame.existingFile = paths[0];
  frame.source = pathInPage(paths[0]);
  touched_ = true;
  showFields();
}

void frmDesign::TBcler_Click() {
  if (selected_ >= 0) {
    const auto at = static_cast<std::size_t>(selected_);
    design_.frames[at] = newDesign(design_.layout).frames[at];
  } else {
    design_.page = {};
  }
  showFields();
}

bool frmDesign::queryClose() {
  if (!touched_) return true;
  return app::messageBox(bench_.platform(), "გვერდები ჯერ არ შექმნილა.\r\nდავხურო შექმნის გარეშე?",
                         "ფრეიმების გვერდი", app::frmBOXa::Kind::YesNo,
                         ui::IconBox::Sign::Question) == app::kAnswerYes;
}

bool frmDesign::complain(const char* text, ui::TextBox& field, int frame) {
  app::messageBox(bench_.platform(), text, "ფრეიმების გვერდი", app::frmBOXa::Kind::Message,
                  ui::IconBox::Sign::Warning);
  if (frame >= 0) selectFrame(frame);
  field.setFocus();
  return false;
}

bool frmDesign::checkNames() {
  constexpr const char* kBadName =
      "ფაილის სახელი ცარიელია ან შეიცავს აკრძალულ ნიშანს ( \\ / ? : * < > | \" ).";
  constexpr const char* kBadSign = "ეს ტექსტი არ უნდა შეიცავდეს ნიშნებს \" < >.";
  const auto hasSign = [](const std::string& text) {
    return text.find_first_of("\"<>") != std::string::npos;
  };
  if (hasSign(design_.page.image)) return complain(kBadSign, Timage);
  if (design_.layout < 0) return true;
  if (design_.pageName.empty() || app::IsBadFileName(design_.pageName)) return complain(kBadName, TSTpage);
  // Outer rows may be left out where there are columns, which then stand for them.
  const bool noRows = design_.rows.empty() && shapeOf(design_.layout).outerRows && Tcols.enabled();
  if (Trows.enabled() && !noRows && !isFrameLengths(design_.rows)) {
    return complain("სტრიქონები ასე იწერება: 64,25%,*", Trows);
  }
  if (Tcols.enabled() && !isFrameLengths(design_.cols)) {
    return complain("სვეტები ასე იწერება: 150,*", Tcols);
  }
  if (design_.spacing < 0) return complain("დაშორება უნდა იყოს რიცხვი 0-დან 32767-მდე.", Tramwidth);
  std::vector<std::string> names = {base::upperAscii(design_.pageName)};
  for (int i = 0; i < static_cast<int>(design_.frames.size()); ++i) {
    const Frame& frame = design_.frames[static_cast<std::size_t>(i)];
    if (hasSign(frame.name)) return complain(kBadSign, Tname, i);
    if (hasSign(frame.background.image)) return complain(kBadSign, Timage, i);
    if (!frame.existingFile.empty()) continue;
    if (frame.source.empty() || app::IsBadFileName(frame.source)) return complain(kBadName, Tsource, i);
    const std::string name = base::upperAscii(frame.source);
    if (std::find(names.begin(), names.end(), name) != names.end()) {
      return complain("ორ გვერდს ერთი სახელი აქვს.", Tsource, i);
    }
    names.push_back(name);
  }
  return true;
}

void frmDesign::COK_Click() {
  if (!checkNames()) return;
  generate();
  bench_.framesetLayout = -1;
  touched_ = false;
  close();
}

std::int16_t frmDesign::deliver(const std::string& title, const std::string& text, bool frameset) {
  app::ColectionMain& documents = bench_.documents();
  documents.AddNewIthem(text, -1, "", "");
  const auto index = static_cast<std::int16_t>(documents.Count() - 1);
  app::Ithem& record = documents.Item(index);
  record.FileTitle = base::nameFromStored(title);
  record.saved = false;
  record.Changed = true;
  record.IsInWEB = false;
  record.PinListi = 0;
  record.FrameSet = frameset ? 1 : 0;
  return index;
}

// Such a file stays as it is: opening it anew would ask, and drop what was changed in it.
bool frmDesign::isOpen(const std::string& path) const {
  if (base::samePath(bench_.shownPath(), path)) return true;
  app::ColectionMain& documents = bench_.documents();
  for (std::int16_t i = 0; i < documents.Count(); ++i) {
    if (base::samePath(documents.Item(i).filepath, path)) return true;
  }
  return false;
}

void frmDesign::generate() {
  const HeaderText header{bench_.props().HeaderTextOn, bench_.props().HeaderText};
  std::int16_t shown = -1;
  if (design_.layout < 0) {
    shown = deliver("Page1.HTML", singlePage(design_, header), false);
  } else {
    shown = deliver(design_.pageName, framesetPage(design_, header), true);
    for (std::size_t i = 0; i < design_.frames.size(); ++i) {
      const Frame& frame = design_.frames[i];
      if (frame.existingFile.empty()) deliver(frame.source, framePage(design_, i, header), false);
    }
  }
  bench_.documentsAdded();
  // One that cannot be read must not cost the pages that are made.
  for (const Frame& frame : design_.frames) {
    if (frame.existingFile.empty() || isOpen(frame.existingFile)) continue;
    ui::atGate([this, &frame] { bench_.ofnen(frame.existingFile); });
  }
  bench_.showDocument(shown);
}

}  // namespace generators
