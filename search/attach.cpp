#include "search/attach.h"

#include "app/menu_names.h"
#include "search/frmsuch.h"

namespace search {

using namespace ui::literals;

Search::Search(app::Workbench& bench) : bench_(bench), dialog_(std::make_unique<frmsuch>(bench)) {
  constexpr int kKeyF3 = ui::kKeyF1 + 2;
  bench_.addCommands({
      {mnusuch, "mnusuch", "|40|ÞÄÁÍÀ ÃÀ ÛÄÝÅËÀ"_legacy, ui::ctrl('F'), [this] { dialog_->open(); }, nullptr,
       nullptr, "ტექსტის ძებნა და შეცვლა"},
      {mnufindnext,
       "mnufindnext",
       "|41|&შემდეგის პოვნა",
       {kKeyF3, false, false, false},
       [this] { dialog_->findNext(); },
       nullptr,
       nullptr,
       "შემდეგი ნაპოვნი ადგილი"},
      {mnufindprevious,
       "mnufindprevious",
       "|42|წინა&ს პოვნა",
       {kKeyF3, false, true, false},
       [this] { dialog_->findPrevious(); },
       nullptr,
       nullptr,
       "წინა ნაპოვნი ადგილი"},
      {mnumarkfinddel,
       "mnumarkfinddel",
       "|43|ÌÀÒÊÉÒÄÁÖËÉ ÐÏÅÍÀ ÃÀ ßÀÛËÀ"_legacy,
       {},
       [this] { mnumarkfinddel_Click(); },
       [](const app::CommandState& state) { return state.hasSelection; },
       nullptr,
       "მონიშნული ტექსტის წაშლა ყველგან დოკუმენტში"},
      {mnuundoreplace,
       "mnuundoreplace",
       "|44|ყველა ფაილში შეცვლის გაუ&ქმება",
       {},
       [this] { dialog_->undoReplace(); },
       [this](const app::CommandState&) { return dialog_->canUndoReplace(); },
       nullptr,
       "ძველი ტექსტის დაბრუნება ყველა ფაილში, სადაც ის შეიცვალა"},
  });
  bench_.addMenu({app::kEditMenu,
                  {{0, {}, {}},
                   {mnusuch, {}, {}},
                   {mnufindnext, {}, {}},
                   {mnufindprevious, {}, {}},
                   {mnumarkfinddel, {}, {}},
                   {mnuundoreplace, {}, {}}}});
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
