#include "options/frmproperties.h"

#include <algorithm>
#include <charconv>

#include "app/code_look.h"
#include "app/mdlsaerto.h"
#include "base/font_names.h"
#include "base/text.h"

namespace options {
namespace {

using namespace ui::literals;

constexpr int kLeastSize = 1;
constexpr int kMostSize = 200;
constexpr base::Color kWhite = base::rgb(255, 255, 255);
constexpr int kLatinMode = 3;

const std::array<std::string, 5> kBundled = {base::kIsoFont, base::kAsciiFont, base::kRussianFont,
                                             base::kMonoFont, base::kSansFont};
// A few words in the bytes of each typing mode.
const std::array<ui::Text, 4> kTypingWords = {"Ðóññêèé òåêñò"_legacy, "ØÀÒÈÖËÉ ÔÄØÓÔÉ"_legacy,
                                              "qarTuli teqsti", "Latin <BR>"};
const std::string kUtf8Words = "ქართული Аб é";
const ui::Text kEditorWords = "<P>ØÀÒÈÖËÉ ÔÄØÓÔÉ</P>\r\n<A HREF=\"a.htm\">abc 123</A>"_legacy;

std::string chosen(const ui::ComboBox& box) {
  return box.selected() < 0 ? std::string() : box.items()[static_cast<std::size_t>(box.selected())].bytes;
}

std::optional<int> wholeNumber(const std::string& text) {
  const std::string_view digits = base::trimSpaces(text);
  int value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  return value;
}

ui::Rect areaOf(const ui::PictureBox& box) {
  return {0, 0, box.size().width, box.size().height};
}

}  // namespace

frmproperties::frmproperties(app::Workbench& bench)
    : Form("frmproperties", IDD_frmproperties), bench_(bench), fonts_(kBundled.begin(), kBundled.end()) {
  for (std::size_t i = 0; i < CBtyping.size(); ++i) {
    const int by = static_cast<int>(i);
    Ltyping[i] = std::make_unique<ui::Label>(*this, IDC_frmproperties_Ltyping + by);
    CBtyping[i] = std::make_unique<ui::ComboBox>(*this, IDC_frmproperties_CBtyping + by);
    Ptyping[i] = std::make_unique<ui::PictureBox>(*this, IDC_frmproperties_Ptyping + by);
  }
  for (const std::string& name : bench.platform().fontNames()) {
    if (std::find(fonts_.begin(), fonts_.end(), name) == fonts_.end()) fonts_.push_back(name);
  }
  setTexts();
  addPages();
  connectEvents();
  fill(bench.storedProps());
}

std::vector<std::unique_ptr<ui::CheckBox>> frmproperties::makeTicks() {
  std::vector<std::unique_ptr<ui::CheckBox>> made;
  for (const Tick& tick : ticks()) {
    made.push_back(std::make_unique<ui::CheckBox>(*this, tick.id));
    made.back()->setCaption(tick.caption);
  }
  return made;
}

ui::CheckBox& frmproperties::tick(bool app::PropsRecord::*field) {
  const auto all = ticks();
  const auto at = std::find_if(all.begin(), all.end(), [&](const Tick& tick) { return tick.field == field; });
  return *boxes.at(static_cast<std::size_t>(at - all.begin()));
}

void frmproperties::connectEvents() {
  const auto repaint = [this] { repaintSamples(); };
  const auto enable = [this] { enableTexts(); };
  CBfont.selectionChanged.connect(repaint);
  Tsize.changed.connect(repaint);
  CKbold.changed.connect(repaint);
  CKitalic.changed.connect(repaint);
  CKheader.changed.connect(enable);
  CKbody.changed.connect(enable);
  Cback.clicked.connect([this] { pick(back_); });
  Ctext.clicked.connect([this] { pick(text_); });
  Pback.paint = [this](ui::Canvas& canvas) { paintSwatch(canvas, Pback, back_); };
  Ptext.paint = [this](ui::Canvas& canvas) { paintSwatch(canvas, Ptext, text_); };
  CButf8font.selectionChanged.connect(repaint);
  CBcolours.selectionChanged.connect(repaint);
  Putf8.paint = [this](ui::Canvas& canvas) {
    paintSample(canvas, Putf8, kUtf8Words, CButf8font, SampleOf::Letters);
  };
  Psample.paint = [this](ui::Canvas& canvas) { paintSample(canvas, Psample, kEditorWords.bytes, CBfont); };
  for (std::size_t i = 0; i < CBtyping.size(); ++i) {
    CBtyping[i]->selectionChanged.connect(repaint);
    Ptyping[i]->paint = [this, i](ui::Canvas& canvas) {
      paintSample(canvas, *Ptyping[i], kTypingWords[i].bytes, *CBtyping[i]);
    };
  }
  Cdefault.clicked.connect([this] { fill(app::defaultProps()); });
  Capply.clicked.connect([this] { apply(); });
  COK.clicked.connect([this] {
    if (apply()) close();
  });
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

// A font that is not on this machine stays chosen: the settings may have come from another one.
void frmproperties::selectFont(ui::ComboBox& box, const std::string& name) {
  std::vector<ui::Text> items(fonts_.begin(), fonts_.end());
  const auto at = std::find(fonts_.begin(), fonts_.end(), name) - fonts_.begin();
  if (at == static_cast<std::ptrdiff_t>(fonts_.size())) items.emplace_back(name);
  box.setItems(std::move(items));
  box.setSelected(static_cast<int>(at));
}

void frmproperties::fill(const app::PropsRecord& props) {
  filled_ = props;
  for (const Tick& row : ticks()) tick(row.field).setChecked(props.*row.field);
  CKshow.setChecked(props.ShowAtStart > 0);
  CBmode.setSelected(props.TypingModeAtStart > 0 ? props.TypingModeAtStart - 1 : kLatinMode);
  selectFont(CBfont, props.EditorFontName.empty() ? kBundled[0] : props.EditorFontName);
  Tsize.setText(std::to_string(props.EditorFontSize > 0 ? props.EditorFontSize : app::kUsualFontSize));
  const bool colors = props.EditorBackColor != 0 || props.EditorColorExtra != 0;
  back_ = colors ? props.EditorBackColor : kWhite;
  text_ = static_cast<base::Color>(props.EditorColorExtra);
  for (std::size_t i = 0; i < CBtyping.size(); ++i) {
    const std::string& name = props.TypingFontName[i];
    selectFont(*CBtyping[i], name.empty() ? base::kTypingFonts[i] : name);
  }
  selectFont(CButf8font, props.Utf8FontName.empty() ? base::kMonoFont : props.Utf8FontName);
  CBcolours.setSelected(static_cast<int>(props.Colours));
  (props.NoBreakSpaceAsReference ? OPreference : OPbytes).choose();
  Theader.setText(props.HeaderText);
  Tbody.setText(props.BodyAttributes);
  Ttimeout.setText(std::to_string(props.FtpTimeout > 0 ? props.FtpTimeout : app::kUsualFtpTimeout));
  enableTexts();
  repaintSamples();
}

std::optional<std::int16_t> frmproperties::numberIn(ui::TextBox& box, int least, int most) {
  const auto number = wholeNumber(box.text());
  if (number && *number >= least && *number <= most) return static_cast<std::int16_t>(*number);
  Tabs.showPage(Tabs.pageOf(box));
  app::messageBox(bench_.platform(),
                  ui::display(box.hint) + ":\r\nჩაწერეთ მთელი რიცხვი " + std::to_string(least) + "-დან " +
                      std::to_string(most) + "-მდე.",
                  caption(), app::frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
  box.setFocus();
  box.selectAll();
  return std::nullopt;
}

std::optional<app::PropsRecord> frmproperties::read() {
  app::PropsRecord props = filled_;
  for (const Tick& row : ticks()) props.*row.field = tick(row.field).checked();
  if (CKshow.checked() != (props.ShowAtStart > 0)) props.ShowAtStart = CKshow.checked() ? 1 : 0;
  const int mode = CBmode.selected();
  props.TypingModeAtStart = mode == kLatinMode ? 0 : static_cast<std::uint8_t>(mode + 1);
  const auto size = numberIn(Tsize, kLeastSize, kMostSize);
  if (!size) return std::nullopt;
  const auto timeout = numberIn(Ttimeout, app::kLeastFtpTimeout, app::kMostFtpTimeout);
  if (!timeout) return std::nullopt;
  props.EditorFontSize = *size;
  props.FtpTimeout = *timeout;
  props.EditorFontName = chosen(CBfont);
  props.EditorBackColor = back_;
  props.EditorColorExtra = static_cast<std::int32_t>(text_);
  for (std::size_t i = 0; i < CBtyping.size(); ++i) props.TypingFontName[i] = chosen(*CBtyping[i]);
  props.Utf8FontName = chosen(CButf8font);
  props.Colours = scheme();
  props.NoBreakSpaceAsReference = OPreference.chosen();
  props.HeaderText = Theader.text();
  props.BodyAttributes = Tbody.text();
  return props;
}

bool frmproperties::apply() {
  const auto props = read();
  if (!props) return false;
  bench_.setProps(*props);
  filled_ = *props;
  return true;
}

void frmproperties::pick(base::Color& color) {
  if (const auto picked = bench_.platform().pickColor(color)) {
    color = *picked;
    CBcolours.setSelected(static_cast<int>(app::ColourScheme::Own));  // who chooses a colour wants to see it
  }
  repaintSamples();
}

app::ColourScheme frmproperties::scheme() const {
  return static_cast<app::ColourScheme>(std::max(0, CBcolours.selected()));
}

ui::CodeLook frmproperties::look() const {
  app::PropsRecord props;
  props.Colours = scheme();
  props.EditorBackColor = back_;
  props.EditorColorExtra = static_cast<std::int32_t>(text_);
  return app::codeLook(props, bench_.platform().darkColours());
}

void frmproperties::enableTexts() {
  Theader.setEnabled(CKheader.checked());
  Tbody.setEnabled(CKbody.checked());
}

void frmproperties::repaintSamples() {
  for (ui::PictureBox* box : {&Pback, &Ptext, &Psample, &Putf8}) box->repaint();
  for (const auto& box : Ptyping) box->repaint();
}

void frmproperties::paintSwatch(ui::Canvas& canvas, const ui::PictureBox& box, base::Color color) const {
  canvas.fill(areaOf(box), color);
  canvas.frame(areaOf(box), canvas.systemColor(ui::SystemColor::Shadow));
}

void frmproperties::paintSample(ui::Canvas& canvas, const ui::PictureBox& box, const std::string& text,
                                const ui::ComboBox& family, SampleOf kind) const {
  constexpr int kMargin = 6;
  const ui::CodeLook colours = look();
  paintSwatch(canvas, box, colours.back);
  const auto size = wholeNumber(Tsize.text());
  ui::TextStyle style;
  style.font.name = chosen(family);
  style.font.size = size && *size >= kLeastSize && *size <= kMostSize ? *size : app::kUsualFontSize;
  style.font.bold = CKbold.checked();
  style.font.italic = CKitalic.checked();
  style.bytes = kind == SampleOf::Bytes;
  style.wrap = text.find('\n') != std::string::npos;
  const ui::Rect area = areaOf(box);
  const int down = style.wrap ? kMargin : 1;
  canvas.text({area.left + kMargin, down, area.width - 2 * kMargin, area.height - 2 * down}, text,
              colours.text, style);
}

}  // namespace options
