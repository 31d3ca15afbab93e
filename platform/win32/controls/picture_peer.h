// The window of a picture that its form draws.
#pragma once

#include "platform/win32/controls/watched_peer.h"
#include "ui/picture.h"

namespace win32 {

// The window class "ZervoPicture", for dialog templates. May be called again.
void registerPictureClass();

class PicturePeer final : public WatchedPeer<PicturePeer> {
 public:
  PicturePeer(ui::PictureBox& model, HWND window) : WatchedPeer(model, window), picture_(model) {}
  bool onKey(int key) override;

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<PicturePeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void paint();
  void draw(HDC device);
  void measure();
  ui::Point point(LPARAM lParam) const;

  ui::PictureBox& picture_;
  bool pointerInside_ = false;
};

}  // namespace win32
