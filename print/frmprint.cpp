#include "print/frmprint.h"

#include <algorithm>
#include <utility>

#include "app/mdlsaerto.h"

namespace print {

std::vector<int> printOrder(const ui::PrintChoice& choice, int pages) {
  std::vector<int> order;
  const int first = choice.selection ? 1 : std::max(choice.first, 1);
  const int last = choice.selection ? pages : std::min(choice.last, pages);
  const auto copies = [&](bool wanted) { return wanted ? std::max(choice.copies, 1) : 1; };
  for (int copy = 0; copy < copies(choice.collated); ++copy) {
    for (int page = first; page <= last; ++page) {
      order.insert(order.end(), static_cast<std::size_t>(copies(!choice.collated)), page - 1);
    }
  }
  return order;
}

frmprint::frmprint(ui::Platform& platform, ui::PrintJob& job, const PrintSheet& sheet, std::vector<int> pages,
                   std::string name)
    : Form("frmprint", IDD_frmprint),
      platform_(platform),
      job_(job),
      sheet_(sheet),
      pages_(std::move(pages)),
      name_(std::move(name)) {
  setCaption("ბეჭდვა");
  CEXIT.setCaption("&შეწყვეტა");
  cancelButton = &CEXIT;
  CEXIT.clicked.connect([this] { stop(); });
}

void frmprint::shown() {
  ui::atGate([this] { run(); });
  close();
}

bool frmprint::queryClose() {
  stop();
  return false;
}

void frmprint::stop() {
  stop_ = true;
  CEXIT.setEnabled(false);
}

void frmprint::run() {
  if (!job_.begin(name_)) return;
  const int count = static_cast<int>(pages_.size());
  for (int done = 0; done < count; ++done) {
    Lpage.setCaption(pageOf(done, count));
    Bar.setValue(static_cast<int>(static_cast<long long>(done) * ui::ProgressBar::kMost / count));
    platform_.pumpEvents();
    if (stop_) return;
    sheet_.paint(job_.beginPage(), pages_[static_cast<std::size_t>(done)]);
    job_.endPage();
  }
  Bar.setValue(ui::ProgressBar::kMost);
  job_.finish();
}

}  // namespace print
