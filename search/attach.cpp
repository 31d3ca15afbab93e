#include "search/attach.h"

#include "app/menus.h"
#include "search/frmsuch.h"

namespace search {

using namespace ui::literals;

Search::Search(app::Workbench& bench) : bench_(bench), dialog_(std::make_unique<frmsuch>(bench)) {
  constexpr int kKeyF3 = ui::kKeyF1 + 2;
  using ui::MenuIcon;
  bench_.addCommands({
      {.id = mnusuch,
       .icon = MenuIcon::Find,
       .caption = "ÞÄÁÍÀ ÃÀ ÛÄÝÅËÀ"_legacy,
       .place = {&app::kEditMenu, 4},
       .shortcut = ui::ctrl('F'),
       .run = [this] { dialog_->open(); },
       .help = "ტექსტის ძებნა და შეცვლა"},
      {.id = mnufindnext,
       .icon = MenuIcon::FindNext,
       .caption = "&შემდეგის პოვნა",
       .place = {&app::kEditMenu, 4},
       .shortcut = {kKeyF3, false, false, false},
       .run = [this] { dialog_->findNext(); },
       .help = "შემდეგი ნაპოვნი ადგილი"},
      {.id = mnufindprevious,
       .icon = MenuIcon::FindPrevious,
       .caption = "წინა&ს პოვნა",
       .place = {&app::kEditMenu, 4},
       .shortcut = {kKeyF3, false, true, false},
       .run = [this] { dialog_->findPrevious(); },
       .help = "წინა ნაპოვნი ადგილი"},
      {.id = mnumarkfinddel,
       .icon = MenuIcon::FindDelete,
       .caption = "ÌÀÒÊÉÒÄÁÖËÉ ÐÏÅÍÀ ÃÀ ßÀÛËÀ"_legacy,
       .place = {&app::kEditMenu, 4},
       .run = [this] { mnumarkfinddel_Click(); },
       .enabled = app::hasSelection,
       .help = "მონიშნული ტექსტის წაშლა ყველგან დოკუმენტში"},
      {.id = mnuundoreplace,
       .icon = MenuIcon::UndoReplace,
       .caption = "ყველა ფაილში შეცვლის გაუ&ქმება",
       .place = {&app::kEditMenu, 4},
       .run = [this] { dialog_->undoReplace(); },
       .enabled = [this](const app::CommandState&) { return dialog_->canUndoReplace(); },
       .help = "ძველი ტექსტის დაბრუნება ყველა ფაილში, სადაც ის შეიცვალა"},
  });
}

Search::~Search() = default;

// Every occurrence of the selected text, from the first byte of the document on.
void Search::mnumarkfinddel_Click() {
  ui::CodeView& T1 = bench_.codeView();
  const std::string marked = T1.selText();
  if (marked.empty()) return;
  const std::string_view text = T1.text();
  const Pattern pattern(marked, Comparison::Exact);
  const auto caret = static_cast<std::size_t>(T1.selStart());
  const auto before = replaceAll(text, pattern, "", {0, caret});
  const auto rest = replaceAll(text, pattern, "", {0, text.size()});
  if (!rest) return;
  T1.setText(rest->text);
  T1.select(static_cast<int>(before ? before->partSize : caret), 0);
}

std::unique_ptr<Search> attach(app::Workbench& bench) {
  return std::make_unique<Search>(bench);
}

}  // namespace search
