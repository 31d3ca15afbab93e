// A table of pairs edited with two fields and five buttons; part of a form that has these controls.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editor/shown_bytes.h"
#include "ui/controls.h"

namespace editor {

class PairGrid {
 public:
  struct Row {
    std::string first;   // byte text, never empty
    std::string second;  // byte text
    int origin = -1;     // the owner's number for a row that it gave; -1: added here
    bool changed = false;
  };

  // All controls belong to one form and outlive the grid.
  PairGrid(ui::ListView& list, ui::TextBox& first, ui::TextBox& second, ui::Button& add, ui::Button& change,
           ui::Button& remove, ui::Button& up, ui::Button& down);

  const std::vector<Row>& rows() const { return rows_; }
  void setRows(std::vector<Row> rows);
  // What stands in the fields goes into the selected row, as if the change button had been pressed; into a
  // new one where none is selected.
  void commit();
  // What stands in the fields becomes a row of its own; or the second text of the row with that first one.
  void takeTyped();
  // How the list shows bytes, from the next change on.
  void setLetters(LettersOf lettersOf) { lettersOf_ = std::move(lettersOf); }
  // Texts of a third column, one a row; gone with the next edit.
  void setNotes(std::vector<std::string> notes);

 private:
  void Cadd_Click();
  void Cchange_Click();
  void Cremove_Click();
  void move(int by);
  void LV_Click();
  void show(int selected);
  void refreshButtons();

  ui::ListView& list_;
  ui::TextBox& first_;
  ui::TextBox& second_;
  ui::Button& add_;
  ui::Button& change_;
  ui::Button& remove_;
  ui::Button& up_;
  ui::Button& down_;
  std::vector<Row> rows_;
  std::vector<std::string> notes_;
  LettersOf lettersOf_;
};

}  // namespace editor
