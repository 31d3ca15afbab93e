// Text boxes: Unicode for names and paths, or byte text in the code font.
#pragma once

#include <optional>

#include "platform/win32/controls/watched_peer.h"
#include "platform/win32/system/handles.h"
#include "ui/controls.h"

namespace win32 {

class TextPeer final : public WatchedPeer<TextPeer> {
 public:
  TextPeer(ui::TextBox& model, HWND window);
  void detach() override;
  void onCommand(int code) override;
  void dpiChanged(int dpi) override;

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<TextPeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool holdsBytes() const { return text_.holds() == ui::TextBox::Holds::Bytes; }
  std::string shownText() const;
  std::string bytesShown(std::wstring_view shown) const;
  std::wstring wideOf(const std::string& text) const;
  ui::TextBox::Selection selection() const;
  bool isUtf8() const { return text_.font().characterSet == ui::CharacterSet::Utf8; }
  void showFont();
  void enter(const std::string& bytes) const;
  void paste() const;
  LRESULT type(HWND window, WPARAM unit, LPARAM lParam);
  std::optional<std::uint8_t> byteOf(char32_t character) const;
  std::string bytesOf(char32_t character) const;

  ui::TextBox& text_;
  bool shownUtf8_ =
      false;  // how the window's text stands for bytes; while the font changes, not yet as isUtf8()
  wchar_t firstHalf_ = 0;  // of a character that is typed as two
  UniqueFont font_;
};

}  // namespace win32
