// Texts and pages of the options form.
#include "options/frmproperties.h"

namespace options {

void frmproperties::setTexts() {
  setCaption("პარამეტრები");
  CKmaximized.setCaption("პროგრამა მთელ &ეკრანზე იხსნება");
  CKposition.setCaption("ფანჯრის &ადგილის დამახსოვრება");
  CKlast.setCaption("დაწყებისას ბოლო &ფაილის გახსნა");
  CKsession.setCaption("დაწყებისას ბოლო სეანსის ყველა &დოკუმენტის გახსნა");
  CKshow.setCaption("დაწყებისას ბოლო ფაილების სიის &ჩვენება");
  Lmode.setCaption("კრეფის &რეჟიმი დაწყებისას:");

  Lfont.setCaption("&შრიფტი:");
  Lsize.setCaption("&ზომა:");
  CKbold.setCaption("&მუქი");
  CKitalic.setCaption("დახ&რილი");
  Cback.setCaption("&ფონის ფერი...");
  Ctext.setCaption("&ასოების ფერი...");
  CKwrap.setCaption("გრძელი სტრიქონების გადა&ტანა");
  CKcutend.setCaption("შენახვისას ძველი, გრძელი ფაილის &ბოლოს მოჭრა");
  CKdecode.setCaption("მონიშნული UTF-8 ტექსტის გაშიფვრა ქვე&და ზოლში");
  Lsample.setCaption("ნიმუში:");

  Lutf8font.setCaption("UTF-8 ხედის &შრიფტი:");
  Putf8.setCaption("ნიმუში: UTF-8 ხედი");
  Lcolours.setCaption("&ფერები:");
  CBcolours.setItems({"საკუთარი", "როგორც სისტემაშია", "ღია", "მუქი"});
  CKlive.setCaption("ტეგების, სტილებისა და სკრიპტების გაფერადება &კრეფისას");
  CKnumbers.setCaption("სტრიქონების &ნომრები");
  CKcurrent.setCaption("&მიმდინარე სტრიქონის გამოყოფა");
  CKblanks.setCaption("&ჰარების ჩვენება");
  CKlineends.setCaption("სტრიქონის &ბოლოების ჩვენება");
  CKpagemode.setCaption("გვერდი თავისი ასოების კრეფის &რეჟიმით იხსნება");

  const std::array<const char*, 4> modes = {"რუსული", "ქართული ISO", "ქართული ASCII", "ლათინური"};
  std::vector<ui::Text> names;
  for (std::size_t i = 0; i < modes.size(); ++i) {
    names.emplace_back(modes[i]);
    Ltyping[i]->setCaption("&" + std::to_string(i + 1) + " " + modes[i] + ":");
    CBtyping[i]->hint = std::string("შრიფტი: ") + modes[i];
    Ptyping[i]->setCaption(std::string("ნიმუში: ") + modes[i]);
  }
  CBmode.setItems(std::move(names));
  Lnbsp.setCaption("უწყვეტი ჰარი (Ctrl+Y)");
  OPbytes.setCaption("&UTF-8 ბაიტები C2 A0");
  OPreference.setCaption("მითითე&ბა &&nbsp;");

  CKskeleton.setCaption("ახალი &HTML გვერდი სრული კარკასით, UTF-8");
  CKheader.setCaption("და&მატებითი ტექსტი ახალი გვერდის თავში:");
  CKbody.setCaption("BODY-ს ატრი&ბუტები ახალ გვერდზე:");
  Theader.hint = "ტექსტი გვერდის თავში";
  Tbody.hint = "BODY-ს ატრიბუტები";

  Ltimeout.setCaption("FTP: &მოლოდინი, წამი:");
  CKpassive.setCaption("FTP: &Passive რეჟიმი (საწყისი პარამეტრებით ჩართულია)");
  CKbrowser.setCaption("გადახედვა ყოველთვის ნაგულისხმევ &ბრაუზერში");

  Cdefault.setCaption("&საწყისი მნიშვნელობები");
  COK.setCaption("&OK");
  CEXIT.setCaption("&გაუქმება");
  Capply.setCaption("გამო&ყენება");

  Tabs.hint = "გვერდები";
  Frame1.stretches = Theader.stretches = Tbody.stretches = true;  // the frame: on pages without a text
  CBmode.hint = "კრეფის რეჟიმი დაწყებისას";
  CBfont.hint = "რედაქტორის შრიფტი";
  Tsize.hint = "შრიფტის ზომა";
  Ttimeout.hint = "FTP-ს მოლოდინი";
  Pback.setCaption("ფონის ფერი");
  Ptext.setCaption("ასოების ფერი");
  Psample.setCaption("ნიმუში");
}

void frmproperties::addPages() {
  Tabs.addPage("დაწყება", {&CKmaximized, &CKposition, &CKlast, &CKsession, &CKshow, &Lmode, &CBmode});
  Tabs.addPage("რედაქტორი", {&Lfont, &CBfont, &Lsize, &Tsize, &CKbold, &CKitalic, &Cback, &Pback, &Ctext,
                             &Ptext, &CKwrap, &CKdecode, &CKcutend, &Lsample, &Psample});
  std::vector<ui::Control*> typing = {&Lnbsp, &OPbytes, &OPreference};
  for (std::size_t i = 0; i < CBtyping.size(); ++i) {
    typing.push_back(Ltyping[i].get());
    typing.push_back(CBtyping[i].get());
    typing.push_back(Ptyping[i].get());
  }
  Tabs.addPage("კრეფა", std::move(typing));
  Tabs.addPage("ახალი გვერდი", {&CKskeleton, &CKheader, &Theader, &CKbody, &Tbody});
  Tabs.addPage("FTP, გადახედვა", {&Ltimeout, &Ttimeout, &CKpassive, &CKbrowser});
  Tabs.addPage("კოდის ხედი", {&Lutf8font, &CButf8font, &Putf8, &Lcolours, &CBcolours, &CKlive, &CKnumbers,
                              &CKcurrent, &CKblanks, &CKlineends, &CKpagemode});
}

}  // namespace options
