#include "editor/frmabzac.h"

namespace editor {

frmabzac::frmabzac() : Form("frmabzac", IDD_frmabzac) {
  setCaption("აბზაცი");
  OPnone.setCaption("გას&წორების გარეშე");
  OPleft.setCaption("&მარცხნივ");
  OPcenter.setCaption("&ცენტრში");
  OPright.setCaption("მა&რჯვნივ");
  OPjustify.setCaption("&ორივე კიდეზე");
  COK.setCaption("&OK");
  CEXIT.setCaption("&გაუქმება");
  OPnone.choose();
  COK.clicked.connect([this] { COK_Click(); });
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

std::string frmabzac::ask(ui::Platform& platform) {
  platform.showModal(*this);
  return result_;
}

void frmabzac::COK_Click() {
  result_ = OPleft.chosen()      ? "<P ALIGN=\"LEFT\">"
            : OPcenter.chosen()  ? "<P ALIGN=\"CENTER\">"
            : OPright.chosen()   ? "<P ALIGN=\"RIGHT\">"
            : OPjustify.chosen() ? "<P ALIGN=\"JUSTIFY\">"
                                 : "<P>";
  close();
}

}  // namespace editor
