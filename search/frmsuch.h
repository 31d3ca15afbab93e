// Find and replace: in the shown document or in all open ones. Stays open beside the main window and follows
// the document that is shown there.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/workbench.h"
#include "convert/letter_tables.h"
#include "resources/ids.h"
#include "search/find_engine.h"
#include "search/followed_text.h"
#include "search/old_texts.h"
#include "ui/controls.h"

namespace search {

class frmsuch : public ui::Form {
 public:
  // `bench` must outlive the form. One form serves the whole run.
  explicit frmsuch(app::Workbench& bench);

  ui::Label LBfind{*this, IDC_frmsuch_LBfind};
  ui::TextBox Text1{*this, IDC_frmsuch_Text1, ui::TextBox::Holds::Bytes};  // find text
  ui::Label LBreplace{*this, IDC_frmsuch_LBreplace};
  ui::TextBox Tcvla{*this, IDC_frmsuch_Tcvla, ui::TextBox::Holds::Bytes};  // replacement
  ui::Button Ccheinj{*this, IDC_frmsuch_Ccheinj};
  ui::Button Cmeniu{*this, IDC_frmsuch_Cmeniu};
  ui::Label LBscope{*this, IDC_frmsuch_LBscope};
  ui::ComboBox Combo1{*this, IDC_frmsuch_Combo1};
  ui::CheckBox CHK{*this, IDC_frmsuch_CHK};        // whole word
  ui::CheckBox CKcase{*this, IDC_frmsuch_CKcase};  // match case
  ui::CheckBox CKutf8{*this, IDC_frmsuch_CKutf8};
  ui::CheckBox CKalfil{*this, IDC_frmsuch_CKalfil};  // all open files
  ui::Button Czuch{*this, IDC_frmsuch_Czuch};
  ui::Button MBAlfind{*this, IDC_frmsuch_MBAlfind};
  ui::Button Ccvla{*this, IDC_frmsuch_Ccvla};
  ui::Button Calcvla{*this, IDC_frmsuch_Calcvla};
  ui::Label lbinf{*this, IDC_frmsuch_lbinf};
  ui::ListBox List1{*this, IDC_frmsuch_List1};

  // Opens the dialog, or brings it to the front, for the document in the code view.
  void open();
  // The next or previous hit. Without a find text the dialog opens.
  void findNext();
  void findPrevious();

  bool canUndoReplace() const { return !oldTexts_.empty(); }
  void undoReplace();  // of the last replacing in all files

  // The hits of the last find-all.
  HitList hits;
  // Refills `hits`; true when there is one.
  bool suchen();

  // A node of the document tree (from 1) and its document; (-1, -1) stands for no document.
  struct FileEntry {
    std::int16_t node;
    std::int16_t document;
    bool operator==(const FileEntry&) const = default;
  };
  // One entry a document with text, in tree order.
  std::vector<FileEntry> fileIndex;
  void findindex();
  // The first node of `fileIndex` after `from`; 0: none.
  int findnextindex(int from) const;

  const std::deque<std::string>& history() const { return history_; }  // find texts, the latest first

  void load() override;
  void activated() override;
  bool keyPressed(const ui::Shortcut& key) override;

 private:
  enum class Direction { Forward, Backward };

  void Text1_Change();
  void Combo1_Click();
  void Ccheinj_Click();
  void Cmeniu_Click();
  void MBAlfind_Click();
  void Ccvla_Click();
  void Calcvla_Click();
  void List1_Click();
  std::string field_KeyPress(int key);

  void step(Direction direction);
  bool stepInOtherDocument(Direction direction);
  int findpreviousindex(int from) const;
  std::int16_t documentOf(int node) const;  // -1: of no document
  void found(const Occurrence& occurrence);
  void select(const Selection& selection);     // and do not stand before it
  Pattern pattern(std::string_view document);  // of the one term
  void replaceInShown();
  void replaceInAll();
  void replaceIn(std::int16_t document);
  void setText(std::int16_t document, std::string_view text);  // the caret of a shown document stays

  void readAsShown();  // the fields show and take letters as the code view does
  void followShown();  // another document is in the code view
  void followEdits();  // the text may have become shorter since the last step
  void documentsChanged();
  void documentRemoved(int document);
  void documentMoved(int from, int to);
  bool allFiles() const { return CKalfil.enabled() && CKalfil.checked(); }
  Comparison comparison() const;
  // What stands in a field, as the document would have it.
  std::string searched(const std::string& field, std::string_view document);
  std::vector<Term> terms(std::string_view document);
  const convert::LetterTables& tables();
  void takePlace();  // the caret and selection of now are the scope's
  void setRange(std::size_t textSize);
  Range range() const;
  std::vector<int> targets();
  void remember();
  std::function<void(const std::string&)> panel();  // where progress is shown

  app::Workbench& bench_;
  ui::CodeView& T1_;

  Scope scope = Scope::WholeText;
  std::int32_t caretStart = 0;    // when the dialog was opened or the scope was changed
  std::int32_t selectionEnd = 0;  // when the scope was changed
  std::int32_t rangeStart = 0, rangeEnd = 0;
  std::int32_t nextPos = -1;           // where find-next goes on, from 0; -1: a new pass
  std::optional<Occurrence> current_;  // found by the last step
  std::size_t sizeAtStep_ = 0;         // of the text, to see later that it became shorter
  bool busy_ = false;                  // events run meanwhile: our own buttons wait
  std::vector<int> targets_;           // documents of the search under way
  int parkedAt_ = -1;                  // the record that was added last while the shown document had none
  bool stopped_ = false;               // the last search was ended by the user
  std::deque<std::string> history_;
  OldTexts oldTexts_;
  std::optional<convert::LetterTables> tables_;
  FollowedText findText_{Text1}, replacement_{Tcvla};
};

}  // namespace search
