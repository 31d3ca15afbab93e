#include "generators/frmCSSstile.h"

#include <algorithm>

#include "app/mdlsaerto.h"
#include "base/address.h"
#include "base/cp1252.h"
#include "base/path.h"
#include "base/text.h"
#include "editor/shown_bytes.h"
#include "markup/css_value.h"

namespace generators {
namespace {

using Kind = markup::CssPlace::Kind;
using Why = markup::CssPlace::Why;

constexpr const char* kTitle = "CSS სტილი";
constexpr const char* kPictures = "Image(*.gif,*.jpg,*.png)|*.gif;*.jpg;*.jpeg;*.png|All Files(*.*)|*.*";

const char* reason(Why why) {
  switch (why) {
    case Why::UnclosedRule:
      return "წესს დამხურავი } აკლია. ჯერ ის ჩაამატეთ.";
    case Why::UnclosedComment:
      return "კომენტარს დამხურავი */ აკლია. ჯერ ის ჩაამატეთ.";
    case Why::UnclosedQuote:
      return "STYLE ატრიბუტს დამხურავი ბრჭყალი აკლია. ჯერ ის ჩაამატეთ.";
    case Why::EndTag:
      return "კურსორი დამხურავ ტეგშია. სტილი გამხსნელ ტეგს ეწერება.";
    case Why::TagWithoutStyle:
      return "ამ ტეგს სტილი არ ეწერება.";
    default:
      return "აქ სტილი არ იწერება: ეს კომენტარი ან სხვა კოდია.";
  }
}

// Fields of several lines break a line at CR LF alone.
std::string withCrLf(const std::string& text) {
  const std::string lines = base::replaceAll(base::replaceAll(text, base::kCrLf, "\n"), "\r", "\n");
  return base::replaceAll(lines, "\n", base::kCrLf);
}

std::vector<ui::Text> texts(const std::vector<std::string>& bytes) {
  std::vector<ui::Text> all;
  for (const std::string& one : bytes) all.emplace_back(editor::shownBytes(one));
  return all;
}

int indexOf(const std::vector<std::string>& words, std::string_view word) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (base::equalNoCase(words[i], word)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

frmCSSstile::frmCSSstile(app::Workbench& bench, markup::CssEdit& edit, markup::CssProperties properties)
    : Form("frmCSSstile", IDD_frmCSSstile), bench_(bench), edit_(edit), properties_(std::move(properties)) {
  setTexts();
  for (ui::TextBox* box : {&Tselector, &Tvalue, &Tpreview}) box->readAs(bench.codeView());
  defaultButton = &COK;
  cancelButton = &CEXIT;
  List1.selectionChanged.connect([this] { List1_Click(); });
  LV.selectionChanged.connect([this] { LV_Click(); });
  LV.doubleClicked.connect([this] { Tvalue.setFocus(); });
  Tselector.changed.connect([this] {
    edit_.selector = Tselector.text();
    showPreview();
  });
  Tvalue.changed.connect([this] { Tvalue_Change(); });
  CKimportant.changed.connect([this] { CKimportant_Click(); });
  Cclear.clicked.connect([this] { setValue({}); });
  CBkeyword.selectionChanged.connect([this] { CBkeyword_Click(); });
  CBunit.selectionChanged.connect([this] { CBunit_Click(); });
  Ccolor.clicked.connect([this] { Ccolor_Click(); });
  Cfile.clicked.connect([this] { Cfile_Click(); });
  COK.clicked.connect([this] { COK_Click(); });
  CEXIT.clicked.connect([this] { close(); });
}

void frmCSSstile::setTexts() {
  setCaption(kTitle);
  Lwhere.setCaption(placeText());
  Lselector.setCaption("&სელექტორი:");
  Lgroup.setCaption("&ჯგუფები:");
  Llist.setCaption("&თვისებები:");
  List1.stretches = LV.stretches = Tpreview.stretches = true;
  Lvalue.setCaption("&მნიშვნელობა:");
  CKimportant.setCaption("!&important");
  Cclear.setCaption("&წაშლა");
  Lkeyword.setCaption("&არჩევანი:");
  Lunit.setCaption("&ერთეული:");
  Ccolor.setCaption("&ფერი...");
  Cfile.setCaption("ფა&ილი...");
  Lpreview.setCaption("&რა ჩაიწერება:");
  COK.setCaption("&OK");
  CEXIT.setCaption("&გაუქმება");
  LV.columns = {{"თვისება", 96}, {"CSS", 84}, {"მნიშვნელობა", 102}};
  List1.hint = "თვისებათა ჯგუფები";
  LV.hint = "თვისებები";
  Tselector.hint = "რას ეხება წესი, მაგალითად: P.note";
  Tvalue.hint = "თვისების მნიშვნელობა; ცარიელი: თვისება არ ჩაიწერება";
  CKimportant.hint = "სხვა წესებზე ძლიერი";
  Cclear.hint = "თვისების ამოღება";
  CBkeyword.hint = "მზა მნიშვნელობა";
  CBunit.hint = "რიცხვის ერთეული";
  Cfile.hint = "სურათის მისამართი";
  Tpreview.hint = "რა ჩაიწერება დოკუმენტში";
  CBkeyword.dropWidth = 220;
  std::vector<ui::Text> groups = {"ჩაწერილი"};
  for (const markup::CssGroup& group : properties_.groups) groups.emplace_back(group.label);
  List1.setItems(std::move(groups));
  CBunit.setItems(texts(properties_.units));
  Tselector.setText(edit_.selector);
  Lselector.setEnabled(edit_.hasSelector());
  Tselector.setEnabled(edit_.hasSelector());
}

ui::Text frmCSSstile::placeText() const {
  const markup::CssPlace& place = edit_.place();
  const std::string_view text = bench_.codeView().text();
  const auto lines = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place.start), '\n');
  const std::string line = ", სტრიქონი " + std::to_string(lines + 1);
  const std::string around = place.tag.empty() ? "" : " (" + editor::shownBytes(place.tag) + ")";
  switch (place.kind) {
    case Kind::Rule:
      return "წესი" + line + around;
    case Kind::NewRule:
      return "ახალი წესი" + line + around;
    case Kind::Attribute:
      return "STYLE ატრიბუტი: <" + editor::shownBytes(place.tag) + ">" + line;
    case Kind::NewAttribute:
      return "ახალი STYLE ატრიბუტი: <" + editor::shownBytes(place.tag) + ">" + line;
    case Kind::NewSpan:
      return "მონიშნული ტექსტის სტილი: ახალი <SPAN>" + line;
    default:
      return "ახალი <STYLE> ელემენტი წესით" + line;
  }
}

void frmCSSstile::load() {
  const bool filled = !edit_.entries.empty();
  List1.setSelected(filled ? 0 : 1);
  List1_Click();
  if (edit_.hasSelector() && edit_.selector.empty()) {
    Tselector.setFocus();
  } else {
    LV.setFocus();
  }
}

bool frmCSSstile::ask() {
  bench_.platform().showModal(*this);
  return accepted_;
}

void frmCSSstile::List1_Click() {
  rows_.clear();
  const int group = List1.selected();
  if (group == 0) {
    for (std::size_t i = 0; i < edit_.entries.size(); ++i) {
      const std::string& name = edit_.entries[i].name;
      rows_.push_back({name, properties_.find(name), static_cast<int>(i)});
    }
  } else if (group > 0) {
    for (const markup::CssProperty& property :
         properties_.groups[static_cast<std::size_t>(group - 1)].properties) {
      rows_.push_back({property.name, &property, edit_.find(property.name)});
    }
  }
  LV.setSelected(-1);
  showRows();
  LV.setSelected(rows_.empty() ? -1 : 0);
  LV_Click();
}

void frmCSSstile::LV_Click() {
  showValue();
  showPreview();
}

frmCSSstile::Row* frmCSSstile::row() {
  const int at = LV.selected();
  return at < 0 ? nullptr : &rows_[static_cast<std::size_t>(at)];
}

const markup::CssProperty& frmCSSstile::propertyOf(const Row& row) const {
  static const markup::CssProperty kUnknown;
  return row.property == nullptr ? kUnknown : *row.property;
}

std::string frmCSSstile::valueOf(const Row& row) const {
  return row.entry < 0 ? std::string() : edit_.entries[static_cast<std::size_t>(row.entry)].value;
}

void frmCSSstile::showRows() {
  std::vector<ui::ListView::Item> items;
  for (const Row& row : rows_) {
    std::string value = valueOf(row);
    if (!value.empty() && edit_.entries[static_cast<std::size_t>(row.entry)].important)
      value += " !important";
    ui::ListView::Item item;
    item.text = propertyOf(row).label.empty() ? "-" : propertyOf(row).label;
    item.subItems = {editor::shownBytes(row.name), editor::shownBytes(value)};
    items.push_back(std::move(item));
  }
  const int selected = LV.selected();
  LV.setItems(std::move(items));
  LV.setSelected(selected);
}

std::vector<std::string> frmCSSstile::keywordsOf(const Row& row) const {
  const markup::CssProperty& property = propertyOf(row);
  std::vector<std::string> words;
  for (const auto& choice : property.choices) words.insert(words.end(), choice.begin(), choice.end());
  if (property.color) {
    for (const std::string& name : markup::colorNames()) words.push_back(name);
  }
  if (property.font) {
    words.insert(words.end(), properties_.fonts.begin(), properties_.fonts.end());
    for (const std::string& name : bench_.platform().fontNames()) words.push_back(base::storedName(name));
  }
  if (row.property != nullptr) {
    words.insert(words.end(), properties_.common.begin(), properties_.common.end());
  }
  return words;
}

void frmCSSstile::showValue() {
  const Row* const shown = row();
  keywords_ = shown == nullptr ? std::vector<std::string>() : keywordsOf(*shown);
  CBkeyword.setItems(texts(keywords_));
  Tvalue.setText(shown == nullptr ? std::string() : valueOf(*shown));
  Tvalue.setEnabled(shown != nullptr);
  CBkeyword.setEnabled(!keywords_.empty());
  Ccolor.setEnabled(shown != nullptr && propertyOf(*shown).color);
  Cfile.setEnabled(shown != nullptr && propertyOf(*shown).url);
  showChoices();
}

void frmCSSstile::showChoices() {
  const Row* const shown = row();
  const std::string value = shown == nullptr ? std::string() : valueOf(*shown);
  const auto unit = shown != nullptr && propertyOf(*shown).length ? markup::unitOf(value) : std::nullopt;
  CBkeyword.setSelected(indexOf(keywords_, value));
  CBunit.setEnabled(unit.has_value());
  CBunit.setSelected(unit ? indexOf(properties_.units, *unit) : -1);
  const bool written = shown != nullptr && !value.empty();
  CKimportant.setEnabled(written);
  CKimportant.setChecked(written && edit_.entries[static_cast<std::size_t>(shown->entry)].important);
  Cclear.setEnabled(!Tvalue.text().empty());
}

void frmCSSstile::showPreview() {
  const std::string before = Tpreview.text();
  const std::string now = withCrLf(edit_.changed() ? edit_.written() : edit_.text());
  if (now == before) return;
  Tpreview.setText(now);
  // What has just changed comes into view.
  if (!before.empty()) Tpreview.select(static_cast<int>(base::commonPrefix(before, now)), 0);
}

void frmCSSstile::Tvalue_Change() {
  keep(Tvalue.text());
}

void frmCSSstile::keep(const std::string& typed) {
  Row* const shown = row();
  if (shown == nullptr) return;
  const markup::TypedValue value = markup::typedValue(typed);
  if (shown->entry < 0 && !value.value.empty()) {
    shown->entry = static_cast<int>(edit_.entries.size());
    edit_.entries.push_back({shown->name, {}, false, -1});
  }
  if (shown->entry >= 0) {
    markup::CssEntry& entry = edit_.entries[static_cast<std::size_t>(shown->entry)];
    entry.value = value.value;
    entry.important = entry.important || value.important;
  }
  showRows();
  showChoices();
  showPreview();
}

void frmCSSstile::setValue(const std::string& value) {
  Tvalue.setText(value);
  keep(value);
}

void frmCSSstile::CKimportant_Click() {
  const Row* const shown = row();
  if (shown == nullptr || shown->entry < 0) return;
  edit_.entries[static_cast<std::size_t>(shown->entry)].important = CKimportant.checked();
  showRows();
  showPreview();
}

void frmCSSstile::CBkeyword_Click() {
  const Row* const shown = row();
  if (shown == nullptr || CBkeyword.selected() < 0) return;
  const std::string word = keywords_[static_cast<std::size_t>(CBkeyword.selected())];
  const markup::CssProperty& property = propertyOf(*shown);
  const std::string value = valueOf(*shown);
  const bool common = indexOf(properties_.common, word) >= 0;
  if (common) {
    setValue(word);
  } else if (property.font) {
    setValue(markup::withFont(value, word, properties_.fonts));
  } else if (property.color && markup::colorOf(word)) {
    setValue(markup::withColor(property, value, word));
  } else {
    setValue(markup::withKeyword(property, value, word));
  }
}

void frmCSSstile::CBunit_Click() {
  const Row* const shown = row();
  if (shown == nullptr || CBunit.selected() < 0) return;
  setValue(markup::withUnit(valueOf(*shown), properties_.units[static_cast<std::size_t>(CBunit.selected())]));
}

void frmCSSstile::Ccolor_Click() {
  const Row* const shown = row();
  if (shown == nullptr) return;
  const std::string value = valueOf(*shown);
  const auto color = bench_.platform().pickColor(markup::colorOf(value).value_or(0));
  if (color) setValue(markup::withColor(propertyOf(*shown), value, app::ColorToHtml(*color)));
}

void frmCSSstile::Cfile_Click() {
  const Row* const shown = row();
  if (shown == nullptr) return;
  const auto paths =
      bench_.platform().openFiles({"სურათის არჩევა", kPictures, {}, false, documentFolder(), "pictures"});
  if (paths.empty()) return;
  setValue(markup::withUrl(propertyOf(*shown), valueOf(*shown), base::addressOf(documentFolder(), paths[0])));
}

std::string frmCSSstile::documentFolder() const {
  const std::int16_t index = bench_.shownIndex();
  return index < 0 ? std::string() : base::folderOf(bench_.documents().Item(index).filepath);
}

bool frmCSSstile::refused() {
  const auto say = [this](const std::string& what) {
    app::messageBox(bench_.platform(), what, kTitle, app::frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
  };
  // Would end the STYLE element.
  const auto spills = [this](const std::string& text) {
    return edit_.place().inPage && text.find("</") != std::string::npos;
  };
  // What stood there may be as odd as it likes.
  const bool asked = edit_.hasSelector() && (edit_.selectorChanged() || edit_.selector.empty());
  if (asked && (!markup::fitsSelector(edit_.selector) || spills(edit_.selector))) {
    say(edit_.selector.empty() ? "ჩაწერეთ სელექტორი: რას ეხება წესი."
                               : "სელექტორი არ ვარგა: " + editor::shownBytes(edit_.selector));
    Tselector.setFocus();
    return true;
  }
  for (std::size_t i = 0; i < edit_.entries.size(); ++i) {
    const markup::CssEntry& entry = edit_.entries[i];
    if (!edit_.changed(i) || (markup::fitsDeclaration(entry.value, entry.name) && !spills(entry.value)))
      continue;
    say("მნიშვნელობა არ ვარგა: " + editor::shownBytes(entry.name + ": " + entry.value));
    List1.setSelected(0);
    List1_Click();
    LV.setSelected(static_cast<int>(i));
    LV_Click();
    Tvalue.setFocus();
    return true;
  }
  return false;
}

void frmCSSstile::COK_Click() {
  if (edit_.changed() && refused()) return;
  accepted_ = true;
  close();
}

void editStyle(app::Workbench& bench) {
  ui::CodeView& T1 = bench.codeView();
  const std::string text(T1.text());
  const std::int16_t index = bench.shownIndex();
  const bool sheet =
      markup::isStyleSheet(index < 0 ? std::string() : bench.documents().Item(index).FileTitle, text);
  const markup::CssPlace place = markup::cssPlace(text, static_cast<std::size_t>(T1.selStart()),
                                                  static_cast<std::size_t>(T1.selLength()), sheet);
  if (place.kind == Kind::Nothing) {
    app::messageBox(bench.platform(), reason(place.why), kTitle);
    T1.setFocus();
    return;
  }
  markup::CssEdit edit(text, place);
  frmCSSstile form(bench, edit, markup::parseCssProperties(bench.platform().resource("CSSKODS")));
  if (form.ask() && edit.changed()) {
    T1.select(static_cast<int>(place.start), static_cast<int>(place.end - place.start));
    T1.replaceSelection(edit.written());
    T1.select(static_cast<int>(place.start + edit.caret()), 0);
  }
  T1.setFocus();
}

}  // namespace generators
