// The code view in memory: same rules as the real one, no window.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/utf8.h"
#include "ui/code_view.h"

namespace tests {

class MemoryCodeView : public ui::CodeView {
 public:
  struct Document : ui::CodeDocument {
    struct State {
      std::string text;
      int start = 0;
      int length = 0;
      bool formed = false;  // reached by a step()
    };
    State now;
    std::vector<State> undo, redo;
    ui::Signal<const ui::CodeDocument&, const ui::TextEdit&>* edited = nullptr;  // of hidden ones

    std::string_view text() const override { return now.text; }
    void setText(std::string_view text) override {
      const std::size_t before = now.text.size();
      become({std::string(text), 0, 0, true});
      ++edits;
      if (edited != nullptr) (*edited)(*this, {0, before, now.text});
    }
    void become(State next) {
      undo.push_back(now);
      redo.clear();
      now = std::move(next);
    }
  };

  std::shared_ptr<ui::CodeDocument> makeDocument(std::string_view text) override {
    if (text.size() > limit) throw base::Error(base::ErrorNumber::OutOfMemory, "too long");
    auto made = std::make_shared<Document>();
    made->now.text = text;
    made->edited = &edited;
    return made;
  }
  std::shared_ptr<ui::CodeDocument> document() const override { return shown_; }
  void show(const std::shared_ptr<ui::CodeDocument>& document) override {
    if (document == shown_) return;
    shown_ = std::dynamic_pointer_cast<Document>(document);
    tell();
  }

  ui::TextView view() const override { return shown_->view; }
  void setView(ui::TextView view) override { shown_->view = view; }

  std::string_view text() const override { return now().text; }
  using ui::CodeView::setText;
  void setText(std::string_view text, int caret) override {
    step([&] {
      const int size = static_cast<int>(text.size());
      edit({std::string(text), std::clamp(caret < 0 ? now().start : caret, 0, size), 0, false});
    });
  }
  void step(const std::function<void()>& edits) override {
    const auto before = now();
    const std::size_t depth = shown_->undo.size();
    edits();
    if (shown_->undo.size() == depth) return;
    shown_->undo.resize(depth);
    shown_->undo.push_back(before);
    now().formed = true;
    reformed();
  }

  int selStart() const override { return now().start; }
  int selLength() const override { return now().length; }
  void select(int start, int length) override {
    const int size = static_cast<int>(now().text.size());
    now().start = std::clamp(start, 0, size);
    now().length = std::clamp(length, 0, size - now().start);
    selectionChanged();
  }
  std::string selText() const override {
    return now().text.substr(static_cast<std::size_t>(now().start), static_cast<std::size_t>(now().length));
  }
  std::optional<ui::ScreenArea> selectionOnScreen() const override { return onScreen; }
  void replaceSelection(std::string_view text) override {
    auto next = now();
    next.text.replace(static_cast<std::size_t>(next.start), static_cast<std::size_t>(next.length), text);
    next.start += static_cast<int>(text.size());
    next.length = 0;
    next.formed = false;
    edit(std::move(next));
  }

  ui::CaretPlace caret() const override {
    const std::string before = now().text.substr(0, static_cast<std::size_t>(now().start + now().length));
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const std::string line = before.substr(before.rfind('\n') + 1);
    const auto letters = std::count_if(line.begin(), line.end(), [this](char c) {
      return view() == ui::TextView::EightBit || (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
    });
    return {static_cast<int>(lines) + 1, static_cast<int>(letters) + 1};
  }

  // What the clipboard holds comes in as another program's.
  void paste() override { enterClip({"", clipboard}); }
  void enterClip(const ui::TextClip& clip) {
    const std::string bytes = entering ? entering(clip) : clip.letters;
    if (!bytes.empty()) replaceSelection(bytes);
  }

  bool canUndo() const override { return !shown_->undo.empty(); }
  bool canRedo() const override { return !shown_->redo.empty(); }
  void undo() override { travel(shown_->undo, shown_->redo); }
  void redo() override { travel(shown_->redo, shown_->undo); }

  void setFont(const ui::Font& newFont) override { font = newFont; }
  void setUtf8Font(const ui::Font& newFont) override { utf8Font = newFont; }
  const ui::Font& currentFont() const override { return view() == ui::TextView::Utf8 ? utf8Font : font; }
  void setLook(const ui::CodeLook& newLook) override { look = newLook; }
  int zoom() const override { return zoomed; }
  void setZoom(int points) override { zoomed = points; }
  void languageChanged() override { colouredAs = shown_->language; }
  void showColours(const std::vector<ui::ColourRange>& ranges) override { colours = ranges; }
  void resetColours() override { colours.reset(); }
  void setFocus() override {}

  // As the user, UTF-8.
  void type(std::string_view letters) {
    for (std::size_t at = 0; at < letters.size();) {
      const auto character = base::nextUtf8(letters, at);
      typeCharacter(character ? *character : static_cast<unsigned char>(letters[at++]));
    }
  }
  void typeCharacter(char32_t character) {
    if (character < ' ') {
      if (controlTyped) controlTyped(static_cast<int>(character));
      return;
    }
    std::string bytes;
    if (typed) {
      bytes = typed(character);
    } else {
      base::appendUtf8(bytes, character);
    }
    if (!bytes.empty()) replaceSelection(bytes);
  }

  std::string clipboard;  // UTF-8: what paste() finds
  ui::Font font, utf8Font;
  ui::CodeLook look;
  int zoomed = 0;
  ui::Language colouredAs = ui::Language::None;         // as languageChanged() found it
  std::optional<std::vector<ui::ColourRange>> colours;  // nothing: plain
  std::size_t limit = std::string::npos;                // longer texts cannot be loaded
  std::optional<ui::ScreenArea> onScreen;               // of any selection

 private:
  Document::State& now() const { return shown_->now; }
  void tell() {
    changed();
    selectionChanged();
  }
  void edit(Document::State next) {
    const std::size_t before = now().text.size();
    shown_->become(std::move(next));
    tellEdit(before);
    tell();
  }
  // As one piece, whatever the edit was.
  void tellEdit(std::size_t before) {
    ++shown_->edits;
    edited(*shown_, {0, before, now().text});
  }
  void travel(std::vector<Document::State>& from, std::vector<Document::State>& to) {
    if (from.empty()) return;
    const bool formed = from.back().formed || now().formed;
    to.push_back(now());
    const std::size_t before = now().text.size();
    now() = from.back();
    from.pop_back();
    tellEdit(before);
    tell();
    if (formed) reformed();
  }

  std::shared_ptr<Document> shown_ = std::make_shared<Document>();
};

}  // namespace tests
