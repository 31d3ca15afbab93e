#include "recovery/frmrecovery.h"

#include <algorithm>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/line_ends.h"
#include "base/local_time.h"
#include "base/path.h"

namespace recovery {
namespace {

constexpr std::size_t kMostShown = 2000;  // bytes of a text's beginning

}  // namespace

frmrecovery::frmrecovery(app::Workbench& bench, std::vector<const KeptText*> texts)
    : Form("frmrecovery", IDD_frmrecovery), bench_(bench), texts_(std::move(texts)) {
  setCaption("ტექსტების აღდგენა");
  Lwhat.setCaption(
      "პროგრამა წინა ჯერზე უეცრად გაითიშა. ეს ტექსტები შეუნახავი დარჩა, მაგრამ არ დაკარგულა. მონიშნეთ, "
      "რომელი "
      "გჭირდებათ:");
  LV.hint = "აღსადგენი ტექსტები";
  LV.checkBoxes = true;
  LV.stretches = true;
  LV.columns = {{"დოკუმენტი", 104}, {"საქაღალდე", 140}, {"დრო", 78}};
  std::vector<ui::ListView::Item> items;
  for (const KeptText* kept : texts_) {
    ui::ListView::Item item;
    item.text = kept->place.title.empty() ? "ახალი" : kept->place.title;
    const std::string& path = kept->place.path;
    item.subItems = {path.empty() ? "ჯერ არ შენახულა" : base::folderOf(path), base::localTime(kept->time)};
    item.checked = true;
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  Lfirst.setCaption("&ტექსტის დასაწყისი:");
  COK.setCaption("&აღდგენა");
  Cdelete.setCaption("&წაშლა...");
  CEXIT.setCaption("&მოგვიანებით");
  defaultButton = &COK;
  cancelButton = &CEXIT;
  LV.selectionChanged.connect([this] { LV_Change(); });
  COK.clicked.connect([this] {
    answer_ = Answer::TakeBack;
    close();
  });
  Cdelete.clicked.connect([this] { Cdelete_Click(); });
  CEXIT.clicked.connect([this] { close(); });
  LV.setSelected(0);
  LV_Change();
}

void frmrecovery::LV_Change() {
  if (LV.selected() < 0) return Tfirst.setText({});
  const KeptText& kept = *texts_[static_cast<std::size_t>(LV.selected())];
  const app::PropsRecord& props = bench_.props();
  ui::Font font{props.EditorFontName, 0, false, false, ui::CharacterSet::Ansi};
  if (kept.place.utf8) font = {props.Utf8FontName, 0, false, false, ui::CharacterSet::Utf8};
  Tfirst.setFont(font);
  std::size_t end = std::min(kept.text.size(), kMostShown);
  // Not in the middle of a letter.
  while (end > 0 && end < kept.text.size() && (static_cast<unsigned char>(kept.text[end]) & 0xC0U) == 0x80U)
    --end;
  Tfirst.setText(base::withLineEnds(kept.text.substr(0, end), base::LineEnd::CrLf));
}

void frmrecovery::Cdelete_Click() {
  const auto& rows = LV.items();
  const auto count = std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row.checked; });
  if (count == 0) return;
  const std::string answer = app::messageBox(
      bench_.platform(), "სამუდამოდ წაიშლება მონიშნული ტექსტები: " + std::to_string(count) + ". წაიშალოს?",
      caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning);
  if (answer != app::kAnswerYes) return;
  answer_ = Answer::Delete;
  close();
}

}  // namespace recovery
