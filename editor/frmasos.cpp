#include "editor/frmasos.h"

#include <cstdio>

#include "app/mdlsaerto.h"
#include "base/text.h"
#include "base/utf8.h"

namespace editor {
namespace {

std::string utf8Of(const Entity& entity) {
  std::string text;
  base::appendUtf8(text, entity.character);
  return text;
}

// The number as decimal and hexadecimal references have it.
std::string numbersOf(const Entity& entity) {
  char text[32];
  const auto number = static_cast<unsigned>(entity.character);
  std::snprintf(text, sizeof text, "%u  U+%04X", number, number);
  return text;
}

}  // namespace

frmasos::frmasos(ui::Platform& platform, ui::CodeView& T1)
    : Form("frmasos", IDD_frmasos), platform_(platform), T1_(T1) {
  setCaption("სიმბოლოები");
  LV.stretches = true;
  Lsearch.setCaption("&ძებნა:");
  Tsearch.hint = "სახელი, სიმბოლო ან ნომერი";
  LV.hint = "სიმბოლოები";
  LV.columns = {{"სიმბოლო", 40}, {"კოდი", 60}, {"ნომერი", 80}};
  COK.setCaption("&ჩასმა");
  Cencode.setCaption("მონიშნული &კოდებად");
  Cdecode.setCaption("მონიშნული &სიმბოლოებად");
  CEXIT.setCaption("&გამოსვლა");
  Cencode.setEnabled(T1.selLength() > 0);
  Cdecode.setEnabled(T1.selLength() > 0);
  Tsearch.changed.connect([this] { Tsearch_Change(); });
  LV.selectionChanged.connect([this] { COK.setEnabled(LV.selected() >= 0); });
  LV.doubleClicked.connect([this] { COK.click(); });
  COK.clicked.connect([this] { COK_Click(); });
  Cencode.clicked.connect([this] { convert(encodeEntities); });
  Cdecode.clicked.connect([this] { convert(decodeEntities); });
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
  Tsearch_Change();
}

void frmasos::openWindow() {
  platform_.showModal(*this);
  T1_.setFocus();
}

// Rows whose name or numbers hold the typed text, or whose character it is; those that begin with it come
// first.
void frmasos::Tsearch_Change() {
  const std::string typed = base::upperAscii(base::trimSpaces(Tsearch.text()));
  std::vector<const Entity*> begin, hold;
  for (const Entity& entity : entities()) {
    const std::string name = base::upperAscii(entity.name);
    if (utf8Of(entity) == base::trimSpaces(Tsearch.text()) || name.starts_with(typed)) {
      begin.push_back(&entity);
    } else if (name.find(typed) != std::string::npos || numbersOf(entity).find(typed) != std::string::npos) {
      hold.push_back(&entity);
    }
  }
  shown_ = std::move(begin);
  shown_.insert(shown_.end(), hold.begin(), hold.end());
  std::vector<ui::ListView::Item> items;
  for (const Entity* entity : shown_) {
    ui::ListView::Item item;
    item.text = utf8Of(*entity);
    item.subItems = {"&" + std::string(entity->name) + ";", numbersOf(*entity)};
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  LV.setSelected(0);
  COK.setEnabled(LV.selected() >= 0);
}

void frmasos::COK_Click() {
  const Entity& entity = *shown_[static_cast<std::size_t>(LV.selected())];
  close();
  T1_.replaceSelection("&" + std::string(entity.name) + ";");
}

void frmasos::convert(std::string (*how)(std::string_view, PageBytes)) {
  close();
  const ui::Hourglass hourglass(platform_);
  const std::string old = T1_.selText();
  const std::string converted = how(old, pageBytes(T1_.text(), T1_.currentFont().characterSet));
  if (converted == old) return;
  const int start = T1_.selStart();
  T1_.replaceSelection(converted);
  T1_.select(start, static_cast<int>(converted.size()));
}

}  // namespace editor
