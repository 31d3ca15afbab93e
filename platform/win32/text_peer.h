// Text boxes: Unicode for names and paths, or byte text in the code font.
#pragma once

#include <optional>

#include "platform/win32/handles.h"
#include "platform/win32/watched_peer.h"
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
  std::wstring wideOf(const std::string& text) const;
  ui::TextBox::Selection selection() const;
  void enter(std::wstring_view typed) const;
  std::optional<std::uint8_t> byteOf(wchar_t character) const;

  ui::TextBox& text_;
  UniqueFont font_;
};

}  // namespace win32
