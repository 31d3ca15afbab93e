#include "app/frmchanged.h"

#include <algorithm>
#include <utility>

#include "base/line_ends.h"

namespace app {
namespace {

constexpr std::size_t kMostShown = std::size_t{16} * 1024;  // bytes; what follows is for the code view
constexpr int kLinesBefore = 2;

// Up to a whole letter and a whole line, where there is one.
std::string partFrom(std::string_view text, std::size_t from) {
  std::string_view part = text.substr(std::min(from, text.size()));
  if (part.size() > kMostShown) {
    part = part.substr(0, kMostShown);
    if (const std::size_t end = part.rfind('\n'); end != std::string_view::npos) part = part.substr(0, end);
  }
  return base::withLineEnds(part, base::LineEnd::CrLf);
}

}  // namespace

frmchanged::frmchanged(const std::string& path, std::string_view mine, std::string_view file,
                       const ui::CodeView& view)
    : Form("frmchanged", IDD_frmchanged) {
  setCaption("ფაილი შეიცვალა");
  Lwhat.setCaption("ეს ფაილი სხვა პროგრამამ შეცვალა:\r\n" + path +
                   "\r\nტექსტები აქედან განსხვავდება ერთმანეთისგან:");
  const auto parting = static_cast<std::size_t>(
      std::mismatch(mine.begin(), mine.end(), file.begin(), file.end()).first - mine.begin());
  std::size_t from = parting;
  for (int lines = 0; from > 0 && lines <= kLinesBefore; ++lines) {
    const std::size_t end = mine.rfind('\n', from - 1);
    from = end == std::string_view::npos ? 0 : end;
  }
  if (from > 0) ++from;
  const auto line = std::count(mine.begin(), mine.begin() + static_cast<std::ptrdiff_t>(parting), '\n') + 1;
  Lmine.setCaption("&ჩემი ტექსტი, სტრიქონი " + std::to_string(line) + ":");
  Lfile.setCaption("ფაილი &დისკზე:");
  for (ui::TextBox* box : {&Tmine, &Tfile}) box->readAs(view);
  Tmine.setText(partFrom(mine, from));
  Tfile.setText(partFrom(file, from));
  Creload.setCaption("ფაილის &წაკითხვა");
  Creload.hint = "დოკუმენტში ფაილის ტექსტი ჩაიწერება; ჩემს ტექსტს „გაუქმება“ დააბრუნებს";
  Ckeep.setCaption("ჩემის და&ტოვება");
  Cboth.setCaption("&ორივეს გახსნა");
  Cboth.hint = "ფაილის ტექსტი ცალკე დოკუმენტად გაიხსნება";
  CEXIT.setCaption("&მოგვიანებით");
  const auto answering = [this](ui::Button& button, Answer answer) {
    button.clicked.connect([this, answer] {
      answer_ = answer;
      close();
    });
  };
  answering(Creload, Answer::Reload);
  answering(Ckeep, Answer::Keep);
  answering(Cboth, Answer::Both);
  answering(CEXIT, Answer::None);
  defaultButton = &Ckeep;
  cancelButton = &CEXIT;
}

}  // namespace app
