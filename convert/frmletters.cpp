#include "convert/frmletters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/files.h"
#include "convert/review_lines.h"

namespace convert {
namespace {

constexpr const char* kSection = "letters";  // of the registry
constexpr std::size_t kRowsAtFirst = 200;    // of each group
constexpr std::size_t kMoreRows = 500;       // with each wish for more
constexpr std::size_t kShownBytes = 160;     // of a text in the list
constexpr int kLinesAbove = 2;               // what is looked at stands so far below the picture's top
constexpr int kUp = 0x26, kDown = 0x28, kPageUp = 0x21, kPageDown = 0x22, kHome = 0x24, kEnd = 0x23;

// As in the lists of forms: behind "found out" / "as found".
constexpr std::array<Form, 7> kForms = {Form::Legacy,  Form::Academy,    Form::Keyboard, Form::Russian,
                                        Form::Western, Form::DoubleUtf8, Form::Ascii};

ui::Text formChoice(Form form) {
  return form == Form::Ascii ? ui::Text("სწორია, არ შეიცვალოს") : formName(form);
}

std::vector<ui::Text> formsBehind(ui::Text first) {
  std::vector<ui::Text> items{std::move(first)};
  for (const Form form : kForms) items.push_back(formChoice(form));
  return items;
}

// Its number in such a list; 0: none of them.
int rowOfForm(std::optional<Form> form) {
  const auto* const at = form ? std::ranges::find(kForms, *form) : kForms.end();
  return at == kForms.end() ? 0 : static_cast<int>(at - kForms.begin()) + 1;
}

std::optional<Form> formOfRow(int row) {
  return row > 0 ? std::optional(kForms[static_cast<std::size_t>(row) - 1]) : std::nullopt;
}

std::string placeName(const Change& change) {
  if (change.kind == ChangeKind::Font) return "შრიფტი";
  if (change.kind == ChangeKind::Charset) return "charset";
  if (change.kind == ChangeKind::Bytes) return "ბაიტები";
  switch (change.place) {
    case Place::Text:
      return "";
    case Place::Title:
      return "TITLE";
    case Place::Attribute:
      return "ატრიბუტი";
    case Place::ScriptString:
      return "სკრიპტი";
    case Place::CssString:
      return "CSS";
    case Place::Comment:
      return "კომენტარი";
  }
  return "";
}

std::string reasonName(Reason reason) {
  switch (reason) {
    case Reason::Font:
      return "  შრიფტით";
    case Reason::Letters:
      return "  ასოებით";
    case Reason::Page:
      return "  მეზობლებით";
    default:
      return "";
  }
}

// Halfway in parts of 256 from one colour to the other.
base::Color blended(base::Color from, base::Color to, int part) {
  const auto mix = [part](int a, int b) { return static_cast<std::uint8_t>(a + (b - a) * part / 256); };
  return base::rgb(mix(base::red(from), base::red(to)), mix(base::green(from), base::green(to)),
                   mix(base::blue(from), base::blue(to)));
}

std::size_t lettersOf(const std::vector<LinePart>& line) {
  std::size_t letters = 0;
  for (const LinePart& part : line) {
    letters += static_cast<std::size_t>(std::ranges::count_if(
        part.letters, [](char c) { return (static_cast<std::uint8_t>(c) & 0xC0U) != 0x80; }));
  }
  return letters;
}

}  // namespace

ui::Text formName(Form form) {
  switch (form) {
    case Form::Utf8:
      return "UTF-8";
    case Form::Ascii:
      return "ASCII";
    case Form::Legacy:
      return "ძველი შრიფტი (ISO)";
    case Form::Academy:
      return "ძველი შრიფტი (Academy)";
    case Form::Keyboard:
      return "ლათინური ასოები (ASCII)";
    case Form::References:
      return "HTML-კოდები";
    case Form::Russian:
      return "რუსული (1251)";
    case Form::Western:
      return "დასავლური (1252)";
    case Form::DoubleUtf8:
      return "ორმაგი UTF-8";
    case Form::Mixed:
      return "შერეული";
    case Form::Unknown:
      break;
  }
  return "გაურკვეველი";
}

FontTable fontsOfUser(ui::Platform& platform, std::vector<std::size_t>& bad) {
  FontTable fonts = FontTable::builtIn();
  const std::string path = platform.programFolder() + "/FONTS.txt";
  if (base::fileExists(path)) bad = fonts.add(base::readFile(path));
  return fonts;
}

frmletters::frmletters(app::Workbench& bench) : Form("frmletters", IDD_frmletters), bench_(bench) {
  LV.stretches = Ppage.stretches = true;
  Lto.setCaption("გა&დავიყვანოთ:");
  CBto.setItems({"UTF-8", "HTML-კოდები (&#4304;)"});
  Lfrom.setCaption("&როგორაა დაწერილი:");
  CBfrom.setItems(formsBehind("გაირკვეს თავისით"));
  Lfonts.setCaption("ძველი &შრიფტი:");
  CBfonts.setItems({"მოშორდეს", "დარჩეს", "შეიცვალოს"});
  Lnew.setCaption("&ახალი შრიფტები:");
  CKscripts.setCaption("&სკრიპტების ტექსტებიც");
  CKcomments.setCaption("&კომენტარებიც");
  LV.checkBoxes = true;
  LV.hint = "რა იცვლება";
  LV.columns = {{"სტრიქონი", 106}, {"ახლა", 118}, {"შემდეგ", 118}, {"სანდოობა", 82}};
  Lform.setCaption("მონიშნულის &ფორმა:");
  CBform.setItems(formsBehind("როგორც გაირკვა"));
  Lpage.setCaption("გვერდი: მარცხნივ - ახლა, მარჯვნივ - შემდეგ");
  COK.setCaption("&გადაყვანა");
  CEXIT.setCaption("გა&უქმება");
  CBto.selectionChanged.connect([this] { planAgain(); });
  CBfrom.selectionChanged.connect([this] { planAgain(); });
  CBfonts.selectionChanged.connect([this] { planAgain(); });
  Tnew.changed.connect([this] { planAgain(); });
  CKscripts.changed.connect([this] { planAgain(); });
  CKcomments.changed.connect([this] { planAgain(); });
  LV.selectionChanged.connect([this] { LV_SelectionChanged(); });
  CBform.selectionChanged.connect([this] { CBform_Changed(); });
  COK.clicked.connect([this] { COK_Click(); });
  LV.rowChecked.connect([this](int row) { LV_Checked(row); });
  CEXIT.clicked.connect([this] { close(); });
  Ppage.paint = [this](ui::Canvas& canvas) { paintPage(canvas); };
  Ppage.keyDown = [this](int key) { return Ppage_KeyDown(key); };
  Ppage.wheel.connect([this](int lines) { scroll(lines); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

std::optional<std::string> frmletters::pageOfDocument() {
  std::string page(bench_.codeView().text());
  const auto refused = [this](const char* why) {
    app::messageBox(bench_.platform(), why, caption());
    return std::nullopt;
  };
  fromUtf16_ = false;
  const Trouble trouble = troubleOf(page);
  switch (trouble) {
    case Trouble::Empty:
      return refused("დოკუმენტი ცარიელია: გადასაყვანი არაფერია.");
    case Trouble::Binary:
      return refused("ეს ორობითი ფაილია და არა გვერდი: მასში ასოები არ გადაიყვანება. არაფერი შეცვლილა.");
    case Trouble::TooBig:
      return refused("ფაილი ძალიან დიდია: გვერდი 4 გბ-ზე ნაკლები უნდა იყოს. არაფერი შეცვლილა.");
    case Trouble::Utf16Little:
    case Trouble::Utf16Big:
      if (app::messageBox(
              bench_.platform(),
              "ფაილი UTF-16-ითაა ჩაწერილი, რომელშიც ბაიტები ასოები არაა.\r\n\r\nგადავიყვანოთ მთელი "
              "ფაილი UTF-8-ში? რა იცვლება, ჯერ გამოჩნდება.",
              caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question) != app::kAnswerYes) {
        return std::nullopt;
      }
      fromUtf16_ = true;
      return utf8FromUtf16(page, trouble == Trouble::Utf16Big);
    case Trouble::ForeignCharset:
    case Trouble::None:
      break;
  }
  return page;
}

void frmletters::openWindow() {
  ui::CodeView& view = bench_.codeView();
  selection_.reset();
  if (view.selLength() > 0) {
    const auto start = static_cast<std::size_t>(view.selStart());
    selection_ = markup::Range{start, start + static_cast<std::size_t>(view.selLength())};
  }
  setCaption(selection_ ? "ასოების გადაყვანა: მონიშნული ტექსტი" : "ასოების გადაყვანა: მთელი გვერდი");
  auto page = pageOfDocument();
  if (!page) return;
  if (fromUtf16_) selection_.reset();
  page_ = std::move(*page);
  std::vector<std::size_t> bad;
  fonts_ = fontsOfUser(bench_.platform(), bad);
  std::string badLines;
  for (const std::size_t line : bad) badLines += (badLines.empty() ? " " : ", ") + std::to_string(line);
  if (!bad.empty()) bench_.setPanel("kMain", "FONTS.txt: ფორმა არ წერია სტრიქონებში" + badLines);
  readSettings();
  {
    const ui::Hourglass hourglass(bench_.platform());
    review_.emplace(page_, wanted());
  }
  shown_.clear();
  top_ = 0;
  lookedAt_.reset();
  LV.setSelected(-1);
  showRows();
  if (!rows_.empty()) {
    LV.setSelected(rows_.size() > 1 ? 1 : 0);
    LV_SelectionChanged();
  }
  bench_.platform().showModal(*this);
  review_.reset();
  page_ = {};
  bench_.codeView().setFocus();
}

void frmletters::load() {
  if (!rows_.empty()) LV.setFocus();
}

PlanOptions frmletters::wanted() const {
  PlanOptions options;
  options.to = CBto.selected() == 1 ? Target::References : Target::Utf8;
  options.fonts = CBfonts.selected() == 1   ? OldFonts::Keep
                  : CBfonts.selected() == 2 ? OldFonts::Exchange
                                            : OldFonts::TakeAway;
  options.newFonts = Tnew.text();
  // In an attribute these would end it.
  std::erase_if(options.newFonts,
                [](char c) { return std::string_view("\"'<>;{}").find(c) != std::string_view::npos; });
  if (options.fonts == OldFonts::Exchange && options.newFonts.find_first_not_of(" ,") == std::string::npos) {
    options.fonts = OldFonts::TakeAway;
  }
  options.declareAnyway = fromUtf16_;
  options.selection = selection_;
  options.detector.parts.kind = pageKindOf(bench_.shownPath());
  options.detector.parts.comments = CKcomments.checked();
  options.detector.parts.scriptStrings = CKscripts.checked();
  options.detector.parts.fonts = &fonts_;
  options.detector.from = formOfRow(CBfrom.selected());
  return options;
}

void frmletters::readSettings() {
  const auto read = [this](const char* key) { return bench_.platform().registryValue(kSection, key); };
  CBto.setSelected(read("to") == "references" ? 1 : 0);
  const std::string fonts = read("fonts");
  CBfonts.setSelected(fonts == "keep" ? 1 : fonts == "replace" ? 2 : 0);
  const std::string names = read("newfonts");
  Tnew.setText(names.empty() ? "Sylfaen, sans-serif" : names);
  Tnew.setEnabled(CBfonts.selected() == 2);
  CKcomments.setChecked(read("comments") == "1");
  CKscripts.setChecked(read("scripts") != "0");
  CBfrom.setSelected(0);  // of a page, and so never kept
}

void frmletters::keepSettings() {
  const auto keep = [this](const char* key, std::string_view value) {
    bench_.platform().setRegistryValue(kSection, key, value);
  };
  keep("to", CBto.selected() == 1 ? "references" : "utf-8");
  keep("fonts", CBfonts.selected() == 1 ? "keep" : CBfonts.selected() == 2 ? "replace" : "remove");
  keep("newfonts", Tnew.text());
  keep("comments", CKcomments.checked() ? "1" : "0");
  keep("scripts", CKscripts.checked() ? "1" : "0");
}

void frmletters::planAgain() {
  Tnew.setEnabled(CBfonts.selected() == 2);
  keepSettings();
  changeRows([this] { review_->setOptions(wanted()); });
}

// Plans anew by `act`; the list then holds the same rows as far as they are there still.
template <class Act>
void frmletters::changeRows(Act act) {
  if (!review_ || filling_) return;
  std::optional<Row> before;
  std::optional<std::uint32_t> begin;
  ChangeKind kind = ChangeKind::Letters;
  if (const Row* row = selectedRow()) {
    before = *row;
    if (row->change) {
      begin = review_->plan().changes[*row->change].begin;
      kind = review_->plan().changes[*row->change].kind;
    }
  }
  {
    const ui::Hourglass hourglass(bench_.platform());
    act();
    showRows();
  }
  selectAgain(before, begin, kind);
}

void frmletters::selectAgain(const std::optional<Row>& before, std::optional<std::uint32_t> begin,
                             ChangeKind kind) {
  if (!before) return;
  const auto change = begin ? review_->changeAt(*begin, kind) : std::nullopt;
  const auto row = std::ranges::find_if(rows_, [&](const Row& other) {
    return begin ? change && other.change == change : !other.change && other.group == before->group;
  });
  LV.setSelected(row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin()));
  showForm();
  lookedAt_ = change;
  Ppage.repaint();
}

void frmletters::showRows() {
  const auto& groups = review_->groups();
  shown_.resize(groups.size(), kRowsAtFirst);
  rows_.clear();
  for (std::size_t g = 0; g < groups.size(); ++g) {
    rows_.push_back({g, std::nullopt});
    const std::size_t size = groups[g].changes.size();
    const std::size_t most = std::min(size, shown_[g]);
    for (std::size_t i = 0; i < most; ++i) rows_.push_back({g, groups[g].changes[i]});
    if (most < size) rows_.push_back({g, std::nullopt, true});
  }
  std::vector<ui::ListView::Item> items;
  for (const Row& row : rows_) items.push_back(itemOf(row));
  filling_ = true;
  LV.setItems(std::move(items));
  filling_ = false;
  showSum();
  Ppage.repaint();
}

ui::ListView::Item frmletters::headingOf(const ReviewGroup& group) const {
  ui::ListView::Item item;
  item.heading = true;
  const std::string count = std::to_string(group.changes.size());
  switch (group.kind) {
    case ReviewGroup::Kind::Uncertain:
      item.text = "გაურკვეველი";
      item.subItems = {count + " ადგილი: თქვენ გადაწყვიტეთ",
                       group.ticked == 0 ? "რჩება, თუ არ მონიშნავთ" : "", ""};
      break;
    case ReviewGroup::Kind::Form:
      item.text = formName(group.form);
      item.subItems = {count + " ადგილი, " + std::to_string(group.letters) + " ასო", "",
                       "სანდოობა " + std::to_string(group.confidence) + "%"};
      break;
    case ReviewGroup::Kind::Fonts:
      item.text = "ძველი შრიფტის სახელები";
      item.subItems = {count + " ადგილი", "", ""};
      break;
    case ReviewGroup::Kind::Needed:
      item.text = "რაც სწორ გვერდს სჭირდება";
      item.subItems = {count + " ადგილი", "", ""};
      item.boxed = false;
      break;
  }
  if (item.boxed && group.ticked > 0 && group.ticked < group.changes.size()) {
    item.subItems[1] = "მონიშნულია " + std::to_string(group.ticked);
  }
  item.checked = group.ticked == group.changes.size();
  return item;
}

ui::ListView::Item frmletters::itemOf(const Row& row) const {
  const ReviewGroup& group = review_->groups()[row.group];
  if (row.more) {
    ui::ListView::Item item;
    item.text = "…";
    item.subItems = {"კიდევ " + std::to_string(group.changes.size() - shown_[row.group]) + " ადგილი",
                     "დააწკაპუნეთ, რომ გამოჩნდეს", ""};
    item.boxed = false;
    return item;
  }
  if (!row.change) return headingOf(group);
  const Change& change = review_->plan().changes[*row.change];
  ui::ListView::Item item;
  const std::string place = placeName(change);
  item.text = std::to_string(review_->lineOf(*row.change)) + (place.empty() ? "" : "  " + place);
  std::string form;
  if (change.kind == ChangeKind::Letters) {
    if (review_->chosen(*row.change))
      form = ui::display(formChoice(change.verdict.form)) + ", ხელით";
    else if (change.verdict.uncertain)
      form = change.verdict.reason == Reason::NoKey ? "ნაწილი რჩება" : "?";
    else
      form = std::to_string(change.verdict.confidence) + "%" + reasonName(change.verdict.reason);
  }
  item.subItems = {review_->before(*row.change, kShownBytes), review_->after(*row.change, kShownBytes), form};
  item.boxed = review_->optional(*row.change);
  item.checked = review_->ticked(*row.change);
  return item;
}

void frmletters::showSum() {
  std::string word;
  if (review_->trouble() == Trouble::ForeignCharset) {
    word = "გვერდი სხვა კოდირებას აცხადებს: თუ იცით, როგორაა დაწერილი, აირჩიეთ ზემოთ";
  } else if (review_->plan().changes.empty()) {
    word = "გადასაყვანი არაფერია: ასოები უკვე სწორადაა ჩაწერილი";
  } else {
    word = "გადაიყვანება " + std::to_string(review_->texts()) + " ტექსტი";
    if (review_->uncertain() > 0) word += ", გაურკვეველი დარჩება " + std::to_string(review_->uncertain());
  }
  Lsum.setCaption(word);
  COK.setEnabled(review_->changesAnything() || fromUtf16_);
}

const frmletters::Row* frmletters::selectedRow() const {
  const int row = LV.selected();
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

std::vector<std::uint32_t> frmletters::changesOf(const Row& row) const {
  if (row.change) return {*row.change};
  return row.more ? std::vector<std::uint32_t>() : review_->groups()[row.group].changes;
}

void frmletters::LV_SelectionChanged() {
  const Row* const row = selectedRow();
  if (row == nullptr || filling_) return showForm();
  if (row->more) {
    const std::size_t first = shown_[row->group];
    const int at = LV.selected();
    shown_[row->group] = first + kMoreRows;
    const ui::Hourglass hourglass(bench_.platform());
    showRows();
    LV.setSelected(at);
    return LV_SelectionChanged();
  }
  showForm();
  const auto& changes = review_->groups()[row->group].changes;
  lookAt(row->change.value_or(changes.front()));
}

void frmletters::showForm() {
  const Row* const row = selectedRow();
  bool can = row != nullptr && !row->more;
  std::optional<convert::Form> form;
  if (can) {
    const auto& changes = review_->groups()[row->group].changes;
    const std::uint32_t change = row->change.value_or(changes.front());
    can = review_->plan().changes[change].kind == ChangeKind::Letters;
    if (can && review_->chosen(change)) form = review_->plan().changes[change].verdict.form;
  }
  CBform.setEnabled(can);
  CBform.setSelected(can ? rowOfForm(form) : -1);
}

void frmletters::LV_Checked(int row) {
  if (filling_ || !review_ || row < 0 || row >= static_cast<int>(rows_.size())) return;
  const Row wanted = rows_[static_cast<std::size_t>(row)];
  const bool on = LV.items()[static_cast<std::size_t>(row)].checked;
  changeRows([&] { review_->tick(changesOf(wanted), on); });
}

void frmletters::CBform_Changed() {
  const Row* const row = selectedRow();
  if (row == nullptr) return;
  const Row wanted = *row;
  changeRows([&] { review_->choose(changesOf(wanted), formOfRow(CBform.selected())); });
}

void frmletters::lookAt(std::uint32_t change) {
  lookedAt_ = change;
  const std::size_t most = std::max<std::size_t>(40, lineBytes_);
  top_ = lineBeginning(page_, review_->plan().changes[change].begin, 0, most);
  top_ = lineBeginning(page_, top_, -kLinesAbove, most);
  Ppage.setCaption(review_->before(change, kShownBytes) + " - " + review_->after(change, kShownBytes));
  Ppage.repaint();
}

void frmletters::scroll(int lines) {
  if (!review_) return;
  top_ = lineBeginning(page_, top_, lines, std::max<std::size_t>(40, lineBytes_));
  Ppage.repaint();
}

bool frmletters::Ppage_KeyDown(int key) {
  if (key == kUp || key == kDown) {
    scroll(key == kUp ? -1 : 1);
  } else if (key == kPageUp || key == kPageDown) {
    scroll((key == kPageUp ? -1 : 1) * std::max(1, pageRows_ - 1));
  } else if (key == kHome || key == kEnd) {
    top_ = key == kHome ? 0 : lineBeginning(page_, page_.size(), 0, std::max<std::size_t>(40, lineBytes_));
    scroll(key == kHome ? 0 : -std::max(1, pageRows_ - 2));
  } else {
    return false;
  }
  return true;
}

void frmletters::paintPage(ui::Canvas& canvas) {
  const ui::Size size = Ppage.size();
  const ui::Rect all{0, 0, size.width, size.height};
  const base::Color back = canvas.systemColor(ui::SystemColor::Window);
  const base::Color ink = canvas.systemColor(ui::SystemColor::WindowText);
  canvas.fill(all, back);
  if (!review_ || size.width < 40) return;
  ui::TextStyle style;
  style.font = {"Zervo Mono", 9};
  constexpr int kMeasured = 100;
  const ui::Size measured = canvas.textSize(std::string(kMeasured, '0'), style);
  style.advance = static_cast<double>(measured.width) / kMeasured;
  constexpr int kMargin = 4;
  const int half = size.width / 2;
  const int height = measured.height + 2;
  const auto columns = static_cast<std::size_t>(std::max(8.0, (half - 2 * kMargin) / style.advance));
  lineBytes_ = columns;
  pageRows_ = std::max(1, (size.height - 2) / height);
  const auto lines = linesFrom(*review_, top_, static_cast<std::size_t>(pageRows_) + 1, columns, lookedAt_);
  const auto draw = [&](const std::vector<LinePart>& line, int left, int top, base::Color mark) {
    std::size_t column = 0;
    const auto x = [&](std::size_t at) {
      return left + static_cast<int>(std::lround(static_cast<double>(at) * style.advance));
    };
    for (const LinePart& part : line) {
      const std::size_t letters = lettersOf({part});
      const ui::Rect place{x(column), top, x(column + letters) - x(column), height};
      if (part.changed) canvas.fill(place, blended(back, mark, part.selected ? 130 : 56));
      canvas.text(place, part.letters, ink, style);
      if (part.selected) {
        canvas.line({place.left, place.bottom() - 1}, {place.right(), place.bottom() - 1}, ink);
      }
      column += letters;
    }
  };
  constexpr base::Color kOld = base::rgb(230, 70, 40), kNew = base::rgb(40, 160, 60);
  int top = 1;
  for (const LinePair& line : lines) {
    draw(line.before, kMargin, top, kOld);
    draw(line.after, half + kMargin, top, kNew);
    top += height;
  }
  canvas.line({half, 0}, {half, size.height}, canvas.systemColor(ui::SystemColor::Shadow));
  if (Ppage.focused()) canvas.focusMark(all.inside(1));
}

void frmletters::COK_Click() {
  ui::CodeView& view = bench_.codeView();
  const ui::Hourglass hourglass(bench_.platform());
  const std::string made = review_->result();
  const std::string told = "გადაყვანილია " + std::to_string(review_->texts()) + " ტექსტი; Ctrl+Z აბრუნებს";
  if (made != view.text()) {
    const auto start = static_cast<std::size_t>(view.selStart());
    const auto end = start + static_cast<std::size_t>(view.selLength());
    const std::size_t newStart = fromUtf16_ ? 0 : review_->placeInResult(start);
    // The view was chosen for letters that are others now.
    if (!selection_) view.document()->viewChosen = false;
    view.setText(made, static_cast<int>(newStart));
    if (selection_) {
      // Counted in the old page, which is here still.
      view.select(static_cast<int>(newStart), static_cast<int>(review_->placeInResult(end) - newStart));
    }
    bench_.setPanel("kMain", told);
  }
  close();
}

}  // namespace convert
