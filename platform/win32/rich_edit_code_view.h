// The code view on the rich-text control. Byte text goes in and comes out exactly; see code_text.h.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/code_text.h"
#include "platform/win32/edit_history.h"
#include "platform/win32/handles.h"
#include "platform/win32/subclass.h"
#include "ui/code_view.h"

namespace win32 {

class RichEditCodeView final : public ui::CodeView, private Subclass<RichEditCodeView> {
 public:
  // In a hidden window of its own until place(). Needs OleInitialize().
  RichEditCodeView();
  ~RichEditCodeView() override;

  // Moves the control into `parent`. Its window is made anew there, and again whenever much of a long text
  // is replaced: emptying a long one takes far longer.
  void place(HWND parent, int id);
  HWND hwnd() const { return edit_; }
  void setBounds(const RECT& bounds);
  void setDpi(int dpi);

  std::function<void(const std::vector<std::string>& paths)> filesDropped;
  std::function<void(POINT screen)> contextMenu;

  const std::string& text() const override;
  void setText(std::string_view text) override;
  void load(std::string_view text) override;
  int selStart() const override;
  int selLength() const override;
  void select(int start, int length) override;
  std::string selText() const override;
  std::optional<ui::ScreenArea> selectionOnScreen() const override;
  void replaceSelection(std::string_view text) override;
  ui::CaretPlace caret() const override;
  int scrollTop() const override;
  void setScrollTop(int position) override;
  void paste() override;
  bool canUndo() const override;
  bool canRedo() const override;
  void undo() override;
  void redo() override;
  void setFont(const ui::Font& font) override;
  const ui::Font& currentFont() const override { return font_; }
  void setBackColor(base::Color color) override;
  void setTextColor(base::Color color) override;
  void setWordWrap(bool wrap) override;
  std::string rtf() const override;
  void setRtf(std::string_view rtf) override;
  void resetFormats() override;
  void setFocus() override;

 private:
  friend class Subclass<RichEditCodeView>;
  class Silence;
  struct Range {
    int from;  // control positions
    int to;
  };

  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handleEdit(UINT message, WPARAM wParam, LPARAM lParam);
  void handleParent(UINT message, WPARAM wParam, LPARAM lParam);
  bool handleKeyDown(int key);
  void handleCharacter(wchar_t character, LPARAM lParam);
  int positionAt(POINT screen) const;
  void dropText(const std::wstring& text, POINT screen);
  void dropHere(POINT screen);
  void paintNewBars();

  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(edit_, message, wParam, lParam);
  }
  void makeControl();
  void applyFont(bool colors);
  void applyWrap() const;
  int length() const;  // in control positions
  Range selection() const;
  void setSelection(Range range) const;
  std::wstring readControl() const;
  void sync() const;
  void absorbUnicode() const;
  void fill(std::string_view text);
  void exchange(std::size_t at, std::size_t removed, std::string_view inserted);
  void putRange(Range range, const std::wstring& with) const;
  void requireRoom(std::string_view text, std::size_t given) const;
  void enter(std::wstring_view typed);
  void copy();
  void cut();
  bool removeLongSelection();
  void travel(const Edit& edit, bool back);
  void streamIn(WPARAM format, const char* bytes, std::size_t size) const;
  void afterEdit();

  UniqueLibrary library_;
  UniqueWindow shelter_;
  HWND parent_ = nullptr;
  HWND edit_ = nullptr;
  HWND name_ = nullptr;  // the hidden label before it
  int id_ = 0;
  int dpi_ = 0;
  ui::Font font_;
  std::optional<base::Color> backColor_;
  std::optional<base::Color> textColor_;
  bool wrap_ = false;
  wchar_t highSurrogate_ = 0;
  LONG_PTR bars_ = 0;  // styles of the scroll bars that are painted

  LineEnd lineEnd_ = LineEnd::CrLf;
  // The text as last read or written. When stale, the user has changed it since, and sync() enters that into
  // the history.
  mutable std::string text_;
  mutable LineBreaks breaks_;
  mutable EditHistory history_;
  mutable bool stale_ = false;
};

}  // namespace win32
