#include "preview/frmpreview.h"

namespace preview {

frmpreview::frmpreview() : Form("frmpreview", IDD_frmpreview) {
  setCaption("გადახედვა");
  Cback.setCaption("&უკან");
  Crefresh.setCaption("&განახლება");
  Cbrowser.setCaption("&ბრაუზერში");
  CEXIT.setCaption("&დახურვა");
  Crefresh.hint = "დოკუმენტი, როგორიც ის ახლაა (F5)";
  Cbrowser.hint = "იგივე ნაგულისხმევ ბრაუზერში";
  Wpage.setCaption("გვერდი");
  Wpage.stretches = true;
  Cback.setEnabled(false);
  cancelButton = &CEXIT;
  Wpage.loaded.connect([this] { Cback.setEnabled(Wpage.canGoBack); });
  Cback.clicked.connect([this] { Wpage.back(); });
  Crefresh.clicked.connect([this] { refresh(); });
  Cbrowser.clicked.connect([this] { browser(); });
  CEXIT.clicked.connect([this] { leave(); });
  close();  // until it is shown
}

void frmpreview::leave() {
  if (closed()) return;
  close();
  left();
}

bool frmpreview::queryClose() {
  left();
  return true;
}

bool frmpreview::keyPressed(const ui::Shortcut& key) {
  if (key != ui::Shortcut{ui::kKeyF1 + 4, false, false, false}) return false;
  refresh();
  return true;
}

}  // namespace preview
