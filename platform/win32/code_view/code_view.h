// `T1` on Scintilla: the text is the document's bytes, nothing is translated on the way in or out.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/code_view/code_document.h"
#include "platform/win32/code_view/scintilla.h"
#include "platform/win32/controls/subclass.h"
#include "platform/win32/system/handles.h"
#include "ui/code_view.h"

namespace win32 {

class CodeView final : public ui::CodeView, private Subclass<CodeView> {
 public:
  // In a hidden window of its own until place(). Needs OleInitialize().
  CodeView();
  ~CodeView() override;

  // Moves the control into `parent`.
  void place(HWND parent, int id);
  HWND hwnd() const { return sci_.hwnd(); }
  void setBounds(const RECT& bounds);

  std::function<void(const std::vector<std::string>& paths)> filesDropped;
  std::function<void(POINT screen)> contextMenu;
  // What is dragged out for these bytes. Without it, they are UTF-8.
  std::function<ui::TextClip(std::string bytes)> leaving;

  std::shared_ptr<ui::CodeDocument> makeDocument(std::string_view text) override;
  std::shared_ptr<ui::CodeDocument> document() const override { return document_; }
  void show(const std::shared_ptr<ui::CodeDocument>& document) override;
  ui::TextView view() const override { return document_->view; }
  void setView(ui::TextView view) override;

  std::string_view text() const override { return sci_.text(); }
  using ui::CodeView::setText;
  void setText(std::string_view text, int caret) override;
  void step(const std::function<void()>& edits) override;
  int selStart() const override { return static_cast<int>(sci_.call(SCI_GETSELECTIONSTART)); }
  int selLength() const override { return static_cast<int>(sci_.call(SCI_GETSELECTIONEND)) - selStart(); }
  void select(int start, int length) override;
  std::string selText() const override;
  std::optional<ui::ScreenArea> selectionOnScreen() const override;
  void replaceSelection(std::string_view text) override;
  ui::CaretPlace caret() const override;
  void paste() override;
  bool canUndo() const override { return sci_.call(SCI_CANUNDO) != 0; }
  bool canRedo() const override { return sci_.call(SCI_CANREDO) != 0; }
  void undo() override { travel(SCI_UNDO); }
  void redo() override { travel(SCI_REDO); }

  void setFont(const ui::Font& font) override;
  void setUtf8Font(const ui::Font& font) override;
  const ui::Font& currentFont() const override { return isUtf8() ? utf8Font_ : font_; }
  void setLook(const ui::CodeLook& look) override;
  int zoom() const override { return static_cast<int>(sci_.call(SCI_GETZOOM)); }
  void setZoom(int points) override { sci_.call(SCI_SETZOOM, static_cast<uptr_t>(points)); }
  void languageChanged() override { applyLanguage(); }
  void showColours(const std::vector<ui::ColourRange>& ranges) override;
  void resetColours() override;
  void setFocus() override { ::SetFocus(hwnd()); }

 private:
  friend class Subclass<CodeView>;
  // While it lives, edits raise no event; the last one to go raises `changed` once, if there was any.
  class Edits {
   public:
    explicit Edits(CodeView& view) : view_(view) { ++view_.edits_; }
    Edits(const Edits&) = delete;
    Edits& operator=(const Edits&) = delete;
    ~Edits() { --view_.edits_; }

   private:
    CodeView& view_;
  };

  bool isUtf8() const { return document_->view == ui::TextView::Utf8; }
  void travel(unsigned message);
  void tellEdit(ui::CodeDocument& document, const ui::TextEdit& edit);
  void finishEdits();  // raises what happened since the outermost Edits began
  void keepPlace() const;
  void restorePlace() const;

  // Looks (code_view_looks.cpp)
  void applyLook();
  void applyFont();
  void applyStyles();
  void applyLanguage();
  void applyMargin() const;
  void applyRepresentations() const;
  void setStyle(int style, base::Color color) const;

  // Messages and what the user enters (code_view_input.cpp)
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handleEdit(UINT message, WPARAM wParam, LPARAM lParam);
  void handleNotification(const SCNotification& notification);
  bool handleKeyDown(int key);
  bool handleCharacter(char32_t character);
  void handleUtf16(wchar_t unit);
  void enter(char32_t character);
  void insertTyped(std::string_view bytes);
  void ask(int command) const;
  void enterClip(const ui::TextClip& clip);
  void dropClip(const ui::TextClip& clip, POINT screen);
  void dropOwn(sptr_t at);
  void dropHere(POINT screen) const;
  bool pressesSelection(POINT point) const;
  LRESULT handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void dragOut();
  sptr_t positionAt(POINT screen) const;

  UniqueWindow shelter_;
  HWND parent_ = nullptr;
  HWND name_ = nullptr;  // the hidden label before it
  Scintilla sci_;
  std::shared_ptr<Workshop> workshop_;
  std::shared_ptr<ScintillaDocument> document_;
  ui::Font font_;
  ui::Font utf8Font_;
  ui::CodeLook look_;
  struct Styles {
    ui::Font font;
    ui::CodeLook look;
    bool utf8;
    ui::Language language;
    bool operator==(const Styles&) const = default;
  };
  std::optional<Styles> styles_;  // in force
  bool coloured_ = false;         // by showColours()

  int edits_ = 0;
  bool changedInside_ = false;
  bool reformedInside_ = false;
  bool insideDrag_ = false;  // the selection is dragged: a drop may be its own
  struct Press {
    POINT point;
    WPARAM keys;
  };
  std::optional<Press> pressed_;  // on the selection: the button will tell whether it is dragged
  POINT lastPress_{};
  DWORD lastPressTime_ = 0;
  bool lastWasLetter_ = false;
  sptr_t lastTypedEnd_ = -1;
  wchar_t highSurrogate_ = 0;
};

}  // namespace win32
