// Texts and pages of the options form.
#include "options/frmproperties.h"

namespace options {

// The settings that are on or off: control, field, page and text; where the control is says the dialog's
// template.
std::span<const frmproperties::Tick> frmproperties::ticks() {
  using Props = app::PropsRecord;
  static constexpr Tick kTicks[] = {
      {IDC_frmproperties_CKmaximized, Page::Start, &Props::StartMaximized, "პროგრამა მთელ &ეკრანზე იხსნება"},
      {IDC_frmproperties_CKposition, Page::Start, &Props::RememberPosition, "ფანჯრის &ადგილის დამახსოვრება"},
      {IDC_frmproperties_CKlast, Page::Start, &Props::ReopenLastFile, "დაწყებისას ბოლო &ფაილის გახსნა"},
      {IDC_frmproperties_CKsession, Page::Start, &Props::ReopenSession,
       "დაწყებისას ბოლო სეანსის ყველა &დოკუმენტის გახსნა"},
      {IDC_frmproperties_CKcutend, Page::Editor, &Props::CutOldEnd,
       "შენახვისას ძველი, გრძელი ფაილის &ბოლოს მოჭრა"},
      {IDC_frmproperties_CKbackup, Page::Editor, &Props::KeepBackup,
       "შენახვისას ფაილის წინა &ვერსიის დატოვება იქვე, .bak"},
      {IDC_frmproperties_CKbold, Page::Editor, &Props::EditorFontBold, "&მუქი"},
      {IDC_frmproperties_CKitalic, Page::Editor, &Props::EditorFontItalic, "დახ&რილი"},
      {IDC_frmproperties_CKwrap, Page::Editor, &Props::WordWrap, "გრძელი სტრიქონების გადა&ტანა"},
      {IDC_frmproperties_CKdecode, Page::Editor, &Props::SelectionPreview,
       "მონიშნული UTF-8 ტექსტის გაშიფვრა ქვე&და ზოლში"},
      {IDC_frmproperties_CKskeleton, Page::NewPage, &Props::NewPageSkeleton,
       "ახალი &HTML გვერდი სრული კარკასით, UTF-8"},
      {IDC_frmproperties_CKheader, Page::NewPage, &Props::HeaderTextOn,
       "და&მატებითი ტექსტი ახალი გვერდის თავში:"},
      {IDC_frmproperties_CKbody, Page::NewPage, &Props::BodyAttributesOn, "BODY-ს ატრი&ბუტები ახალ გვერდზე:"},
      {IDC_frmproperties_CKpassive, Page::FtpAndPreview, &Props::FtpPassive,
       "FTP: &Passive რეჟიმი (საწყისი პარამეტრებით ჩართულია)"},
      {IDC_frmproperties_CKbrowser, Page::FtpAndPreview, &Props::PreviewInBrowser,
       "გადახედვა ყოველთვის ნაგულისხმევ &ბრაუზერში"},
      {IDC_frmproperties_CKlive, Page::CodeView, &Props::LiveColours,
       "ტეგების, სტილებისა და სკრიპტების გაფერადება &კრეფისას"},
      {IDC_frmproperties_CKnumbers, Page::CodeView, &Props::LineNumbers, "სტრიქონების &ნომრები"},
      {IDC_frmproperties_CKcurrent, Page::CodeView, &Props::CurrentLine, "&მიმდინარე სტრიქონის გამოყოფა"},
      {IDC_frmproperties_CKblanks, Page::CodeView, &Props::WhiteSpace, "&ჰარების ჩვენება"},
      {IDC_frmproperties_CKlineends, Page::CodeView, &Props::LineEnds, "სტრიქონის &ბოლოების ჩვენება"},
      {IDC_frmproperties_CKpagemode, Page::CodeView, &Props::ModeOfPage,
       "გვერდი თავისი ასოების კრეფის &რეჟიმით იხსნება"},
  };
  return kTicks;
}

void frmproperties::setTexts() {
  setCaption("პარამეტრები");
  CKshow.setCaption("დაწყებისას ბოლო ფაილების სიის &ჩვენება");
  Lmode.setCaption("კრეფის &რეჟიმი დაწყებისას:");

  Lfont.setCaption("&შრიფტი:");
  Lsize.setCaption("&ზომა:");
  Cback.setCaption("&ფონის ფერი...");
  Ctext.setCaption("&ასოების ფერი...");
  Lsample.setCaption("ნიმუში:");

  Lutf8font.setCaption("UTF-8 ხედის &შრიფტი:");
  Putf8.setCaption("ნიმუში: UTF-8 ხედი");
  Lcolours.setCaption("&ფერები:");
  CBcolours.setItems({"საკუთარი", "როგორც სისტემაშია", "ღია", "მუქი"});

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

  Theader.hint = "ტექსტი გვერდის თავში";
  Tbody.hint = "BODY-ს ატრიბუტები";

  Ltimeout.setCaption("FTP: &მოლოდინი, წამი:");

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
  const auto addPage = [this](Page page, const char* caption, std::vector<ui::Control*> controls) {
    for (const Tick& row : ticks()) {
      if (row.page == page) controls.push_back(&tick(row.field));
    }
    Tabs.addPage(caption, std::move(controls));
  };
  addPage(Page::Start, "დაწყება", {&CKshow, &Lmode, &CBmode});
  addPage(Page::Editor, "რედაქტორი",
          {&Lfont, &CBfont, &Lsize, &Tsize, &Cback, &Pback, &Ctext, &Ptext, &Lsample, &Psample});
  std::vector<ui::Control*> typing = {&Lnbsp, &OPbytes, &OPreference};
  for (std::size_t i = 0; i < CBtyping.size(); ++i) {
    typing.push_back(Ltyping[i].get());
    typing.push_back(CBtyping[i].get());
    typing.push_back(Ptyping[i].get());
  }
  addPage(Page::Typing, "კრეფა", std::move(typing));
  addPage(Page::NewPage, "ახალი გვერდი", {&Theader, &Tbody});
  addPage(Page::FtpAndPreview, "FTP, გადახედვა", {&Ltimeout, &Ttimeout});
  addPage(Page::CodeView, "კოდის ხედი",
          {
              &Lutf8font,
              &CButf8font,
              &Putf8,
              &Lcolours,
              &CBcolours,
          });
}

}  // namespace options
