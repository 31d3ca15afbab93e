#include "convert/frmrusaso.h"

#include "base/utf8.h"
#include "convert/russian.h"

namespace convert {

using namespace ui::literals;

frmrusaso::frmrusaso() : Form("frmrusaso", IDD_frmrusaso) {
  setCaption("ÒÖÓÖËÉ ÀÓÏÄÁÉ"_legacy);
  LV.stretches = true;
  LV.hint = "რუსული ასოები კლავიატურაზე";
  LV.columns = {{"კლავიში", 55}, {"ასო", 55}};
  std::vector<ui::ListView::Item> items;
  for (std::size_t i = 0; i < kRussianKeys.size(); ++i) {
    std::string letter;
    base::appendUtf8(letter, cyrillicLetter(static_cast<std::uint8_t>(kRussianKeyBytes[i])));
    ui::ListView::Item item;
    item.text = std::string(1, kRussianKeys[i]);
    item.subItems = {letter};
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  CEXIT.setCaption("&დახურვა");
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = cancelButton = &CEXIT;
}

}  // namespace convert
