// The system's web browser inside a form.
#pragma once

#include "platform/win32/controls/watched_peer.h"
#include "platform/win32/system/handles.h"
#include "ui/web_view.h"
// windows.h first
#include <exdisp.h>

#include <string>

namespace win32 {

class WebPeer final : public WatchedPeer<WebPeer> {
 public:
  WebPeer(ui::WebView& model, HWND window) : WatchedPeer(model, window), view_(model) {}
  void detach() override;
  bool translate(MSG& message) override;

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<WebPeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void create();
  void open();
  void look();
  bool hasDocument() const;
  std::wstring location() const;

  ui::WebView& view_;
  UniqueWindow container_;
  UniqueCom<IWebBrowser2> browser_;
  std::string openedPath_;
  std::wstring openedAt_;  // where the browser says that path is
  int looks_ = 0;          // since the page was ordered
  int idleLooks_ = 0;      // of them, one behind the other, without work
  bool loading_ = false;
};

}  // namespace win32
