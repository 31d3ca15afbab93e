// The code view in memory: same rules as the real one, no window.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "base/error.h"
#include "tests/support/rtf_reader.h"
#include "ui/code_view.h"
#include "ui/plain_rtf.h"

namespace tests {

class MemoryCodeView : public ui::CodeView {
 public:
  const std::string& text() const override { return now_.text; }
  void setText(std::string_view text) override { edit({std::string(text), 0, 0}); }
  void load(std::string_view text) override {
    if (text.size() > limit) throw base::Error(base::ErrorNumber::OutOfMemory, "too long");
    undo_.clear();
    redo_.clear();
    become({std::string(text), 0, 0});
  }

  int selStart() const override { return now_.start; }
  int selLength() const override { return now_.length; }
  void select(int start, int length) override {
    const int size = static_cast<int>(now_.text.size());
    now_.start = std::clamp(start, 0, size);
    now_.length = std::clamp(length, 0, size - now_.start);
    selectionChanged();
  }
  std::string selText() const override {
    return now_.text.substr(static_cast<std::size_t>(now_.start), static_cast<std::size_t>(now_.length));
  }
  std::optional<ui::ScreenArea> selectionOnScreen() const override { return onScreen; }
  void replaceSelection(std::string_view text) override {
    State next = now_;
    next.text.replace(static_cast<std::size_t>(now_.start), static_cast<std::size_t>(now_.length), text);
    next.start += static_cast<int>(text.size());
    next.length = 0;
    edit(next);
  }

  ui::CaretPlace caret() const override {
    const auto end = now_.text.begin() + now_.start + now_.length;
    const auto lines = std::count(now_.text.begin(), end, '\n');
    const std::size_t last =
        now_.text.substr(0, static_cast<std::size_t>(now_.start + now_.length)).rfind('\n');
    const int lineStart = last == std::string::npos ? 0 : static_cast<int>(last) + 1;
    return {static_cast<int>(lines) + 1, now_.start + now_.length - lineStart + 1};
  }
  int scrollTop() const override { return scroll_; }
  void setScrollTop(int position) override { scroll_ = position; }

  void paste() override { replaceSelection(clipboard); }

  bool canUndo() const override { return !undo_.empty(); }
  bool canRedo() const override { return !redo_.empty(); }
  void undo() override { travel(undo_, redo_); }
  void redo() override { travel(redo_, undo_); }

  void setFont(const ui::Font& font) override { this->font = font; }
  const ui::Font& currentFont() const override { return font; }
  void setBackColor(base::Color color) override { backColor = color; }
  void setTextColor(base::Color color) override { textColor = color; }
  void setWordWrap(bool wrap) override { wordWrap = wrap; }
  std::string rtf() const override { return ui::plainRtf(now_.text, "\r\n", font.name); }
  void setRtf(std::string_view rtf) override {
    shown = readRtf(rtf);
    now_ = {shown.text, 0, 0};
    scroll_ = 0;
  }
  void resetFormats() override { shown = {}; }
  void setFocus() override {}

  // As the user: characters pass the key filter, as in the window.
  void type(std::string_view keys) {
    for (const char c : keys) {
      const int key = static_cast<unsigned char>(c);
      const int entered = keyPress ? keyPress(key) : key;
      if (entered >= 32) replaceSelection(std::string(1, static_cast<char>(entered)));
    }
  }
  void typeUnicode(const std::string& utf8) { replaceSelection(unicodeTyped(utf8)); }

  std::string clipboard;                   // what paste() finds
  std::optional<ui::ScreenArea> onScreen;  // of any selection
  ui::Font font;
  base::Color backColor = 0, textColor = 0;
  bool wordWrap = false;
  RtfText shown;                          // what the last RTF looks like; empty: plain
  std::size_t limit = std::string::npos;  // longer texts cannot be loaded

 private:
  struct State {
    std::string text;
    int start = 0;
    int length = 0;
  };
  void become(State next) {
    now_ = std::move(next);
    changed();
    selectionChanged();
  }
  void edit(State next) {
    undo_.push_back(now_);
    redo_.clear();
    become(std::move(next));
  }
  void travel(std::vector<State>& from, std::vector<State>& to) {
    if (from.empty()) return;
    to.push_back(now_);
    State next = from.back();
    from.pop_back();
    become(std::move(next));
  }

  State now_;
  std::vector<State> undo_, redo_;
  int scroll_ = 0;
};

}  // namespace tests
