#include "program/frmabout.h"

#include "app/mdlsaerto.h"
#include "base/line_ends.h"

namespace program {
namespace {

// The program has no site of its own.
constexpr const char* kLink = "https://dejavu-fonts.github.io/";

}  // namespace

frmabout::frmabout(ui::Platform& platform) : Form("frmabout", IDD_frmabout) {
  setCaption("პროგრამის შესახებ");
  Tlicence.stretches = true;
  Picon.sign = ui::IconBox::Sign::Program;
  Lname.setCaption("Zervo " ZERVO_VERSION);
  Lwhat.setCaption(
      "HTML რედაქტორი ქართული ვებ-გვერდების ავტორებისთვის. გარდაქმნის ძველი შრიფტებით და ლათინური ასოებით "
      "აკრეფილ "
      "ქართულ ტექსტს UTF-8-ად და უკან.");
  Llicence.setCaption("რედაქტორი: Scintilla; კავშირი: libcurl; შრიფტები: DejaVu. &ლიცენზიები:");
  Tlicence.setText(base::withLineEnds(platform.resource("CODE_LICENCE") + "\n\n" +
                                          platform.resource("FONT_LICENCE") + "\n\n" +
                                          platform.resource("NET_LICENCE"),
                                      base::LineEnd::CrLf));
  Clink.setCaption("&DejaVu ინტერნეტში");
  Clink.hint = kLink;
  COK.setCaption("&OK");
  defaultButton = &COK;
  cancelButton = &COK;
  Clink.clicked.connect([&platform] { app::OpenWithVerb(platform, kLink); });
  COK.clicked.connect([this] { close(); });
}

}  // namespace program
