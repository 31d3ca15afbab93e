// The window in which a page is previewed.
#pragma once

#include <string>

#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/web_view.h"

namespace preview {

class frmpreview : public ui::Form {
 public:
  frmpreview();

  ui::Button Cback{*this, IDC_frmpreview_Cback};
  ui::Button Crefresh{*this, IDC_frmpreview_Crefresh};
  ui::Button Cbrowser{*this, IDC_frmpreview_Cbrowser};
  ui::Button CEXIT{*this, IDC_frmpreview_CEXIT};
  ui::WebView Wpage{*this, IDC_frmpreview_Wpage};

  ui::Signal<> refresh;  // the document as it is now is wanted; also F5
  ui::Signal<> browser;  // the same in the default browser
  ui::Signal<> left;     // the window closes

  void leave();  // closes it, if it is open
  bool queryClose() override;
  bool keyPressed(const ui::Shortcut& key) override;
};

}  // namespace preview
