#include "project/frmupload.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "project/upload_run.h"

namespace project {
namespace {

using namespace ui::literals;

constexpr const char* kFilter = "All Files(*.*)|*.*|HTML(*.htm,*.html)|*.htm;*.html";

std::string nameOf(const std::string& line) {
  return accountFields(line)[0];
}

}  // namespace

frmupload::frmupload(app::Workbench& bench, ui::Ftp& ftp)
    : Form("frmupload", IDD_frmupload), bench_(bench), ftp_(ftp) {
  setCaption("FTP Upload");
  Tinf.stretches = List1.stretches = true;
  Laccount.setCaption("FTP &Account :");
  Lfile.setCaption("faili"_keyboard);
  Cfile.setCaption("...");
  Cfile.hint = "ფაილის არჩევა";
  CKalopF.setCaption("yvela gaxsnili failebis gadatana"_keyboard);
  Frame1.setCaption("Transfer Type");
  OPA.setCaption("A&SCII");
  OPB.setCaption("&Binary");
  CKpassive.setCaption("&Passive");
  Lsilence.setCaption("მოლოდინი, &წამი:");
  Cupload.setCaption("&UPLOAD");
  Command3.setCaption("Sewyveta"_keyboard);
  Command4.setCaption("parametrebi"_keyboard);
  Command1.setCaption("&გამოსვლა");
  FR2.setCaption("FTP accounts:");
  CBaccount.hint = "FTP Account; ჩვეულებრივი FTP პაროლს დაუშიფრავად აგზავნის";
  CBdir.hint = "Subdirectori";
  Tfile.hint = "faili"_keyboard;
  Tinf.hint = "ჟურნალი";
  List1.hint = "FTP accounts";
  CKshow.setCaption("პაროლის ჩ&ვენება");
  const std::array<const char*, 5> kCaptions = {
      "&Description :", "FTP Ser&ver :", "User&name :", "Pass&word :", "Subdi&rectori :"};
  for (std::size_t i = 0; i < Text2.size(); ++i) {
    Label2[i] = std::make_unique<ui::Label>(*this, IDC_frmupload_Label2 + static_cast<int>(i));
    Label2[i]->setCaption(kCaptions[i]);
    Text2[i] = std::make_unique<ui::TextBox>(*this, IDC_frmupload_Text2 + static_cast<int>(i));
  }
  Text2[3]->setMasked(true);
  const std::array<ui::Text, 4> buttons = {"axali"_keyboard, "Setana"_keyboard, "waSla"_keyboard, "Cancel"};
  for (std::size_t i = 0; i < Command2.size(); ++i) {
    Command2[i] = std::make_unique<ui::Button>(*this, IDC_frmupload_Command2 + static_cast<int>(i));
    Command2[i]->setCaption(buttons[i]);
  }
  defaultButton = &Cupload;
  cancelButton = &Command1;

  CBaccount.selectionChanged.connect([this] { CBaccount_Click(); });
  List1.selectionChanged.connect([this] { List1_Click(); });
  Command2[0]->clicked.connect([this] { addAccount(); });
  Command2[1]->clicked.connect([this] { keepAccount(); });
  Command2[2]->clicked.connect([this] { removeAccount(); });
  Command2[3]->clicked.connect([this] { showFrame(false); });
  Command4.clicked.connect([this] { showFrame(true); });
  Cfile.clicked.connect([this] { Cfile_Click(); });
  Cupload.clicked.connect([this] { Cupload_Click(); });
  Command3.clicked.connect([this] { stop_ = true; });
  Command1.clicked.connect([this] {
    if (queryClose()) close();
  });
  CKshow.changed.connect([this] { Text2[3]->setMasked(!CKshow.checked()); });
  CKalopF.changed.connect([this] {
    Tfile.setEnabled(!CKalopF.checked());
    Cfile.setEnabled(!CKalopF.checked());
  });

  OPA.choose();
  CKpassive.setChecked(bench.props().FtpPassive);
  const int silence = bench.props().FtpTimeout;
  Tsilence.setText(std::to_string(silence > 0 ? silence : app::kUsualFtpTimeout));
  Command3.setEnabled(false);
  showFrame(false);
}

void frmupload::load() {
  ui::atGate([this] { loadAccounts(); });
}

bool frmupload::queryClose() {
  if (!uploading) return true;
  stop_ = closeBehindRun_ = true;
  return false;
}

std::string frmupload::iniPath() const {
  return base::joinPath(bench_.platform().programFolder(), "FTP.ini");
}

void frmupload::loadAccounts() {
  accounts_.Cler();
  edited_ = -1;
  damaged_ = false;
  if (!base::fileExists(iniPath())) {
    writeUnasked([this] { base::writeFile(iniPath(), ""); });
    return;
  }
  const FtpAccounts read = parseAccounts(base::readFile(iniPath()));
  for (const std::string& line : read.lines) accounts_.AddNewIthem(line, -1, "", "");
  showAccounts();
  if (read.lines.empty() && read.damage.empty()) return;
  if (!read.lines.empty()) CBaccount.userSelect(0);
  if (read.damage.empty()) return;
  damaged_ = true;
  std::string text = "FTP.ini დაზიანებულია. რაც იკითხება, ჩატვირთულია.\r\n";
  for (std::size_t i = 0; i < read.damage.size() && i < 10; ++i) text += "\r\n" + read.damage[i];
  app::messageBox(bench_.platform(), text, "FTP.ini", app::frmBOXa::Kind::Message,
                  ui::IconBox::Sign::Warning);
}

std::vector<std::string> frmupload::lines() {
  std::vector<std::string> all;
  for (std::int16_t i = 0; i < accounts_.Count(); ++i) all.emplace_back(accounts_.Item(i).Value.view());
  return all;
}

std::string frmupload::lineAt(int position) {
  return position >= 0 && position < accounts_.Count()
             ? std::string(accounts_.Item(static_cast<std::int16_t>(position)).Value.view())
             : std::string();
}

void frmupload::showAccounts() {
  const std::string chosen =
      CBaccount.selected() < 0 ? "" : CBaccount.items()[static_cast<std::size_t>(CBaccount.selected())].bytes;
  std::vector<ui::Text> names;
  int at = -1;
  for (const std::string& line : lines()) {
    names.emplace_back(nameOf(line));
    if (names.back().bytes == chosen && at < 0) at = static_cast<int>(names.size()) - 1;
  }
  CBaccount.setItems(names);
  List1.setItems(std::move(names));
  CBaccount.setSelected(at);
  CBaccount_Click();
}

void frmupload::CBaccount_Click() {
  CBdir.setText(accountFields(lineAt(CBaccount.selected()))[4]);
}

void frmupload::List1_Click() {
  if (List1.selected() < 0) return;
  edited_ = List1.selected();
  const FtpFields fields = accountFields(lineAt(edited_));
  for (std::size_t i = 0; i < fields.size(); ++i) Text2[i]->setText(fields[i]);
}

void frmupload::addAccount() {
  for (const auto& box : Text2) box->setText("");
  Text2[0]->setText("New FTP Account");
  List1.setSelected(-1);
  edited_ = -1;
  Text2[0]->setFocus();
}

void frmupload::keepAccount() {
  FtpFields fields;
  for (std::size_t i = 0; i < fields.size(); ++i) fields[i] = Text2[i]->text();
  const std::string line = accountLine(fields);
  const int before = edited_;
  if (edited_ >= 0) {
    accounts_.Item(static_cast<std::int16_t>(edited_)).Value = line;
  } else {
    accounts_.AddNewIthem(line, -1, "", "");
    edited_ = accounts_.Count() - 1;
  }
  showAccounts();
  List1.setSelected(edited_);
  if (CBaccount.selected() < 0 || before < 0) CBaccount.userSelect(edited_);
  saveAccounts();
}

void frmupload::removeAccount() {
  if (List1.selected() < 0) return;
  accounts_.RemoveIthem(static_cast<std::int16_t>(List1.selected()));
  edited_ = -1;
  for (const auto& box : Text2) box->setText("");
  showAccounts();
  saveAccounts();
}

void frmupload::saveAccounts() {
  if (damaged_) {
    const std::string answer = app::messageBox(
        bench_.platform(),
        "FTP.ini დაზიანებული იყო. ჩაიწეროს თავიდან?\r\nძველი ფაილი FTP.ini.bad სახელით დარჩება.", "FTP.ini",
        app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question);
    if (answer != app::kAnswerYes) return;
    base::copyFile(iniPath(), iniPath() + ".bad");
    damaged_ = false;
  }
  if (accounts_.Count() == 0) {
    if (base::fileExists(iniPath())) base::removeFile(iniPath());
  } else {
    base::writeFile(iniPath(), formatAccounts(lines()));
  }
}

// The accounts stand where the log is.
void frmupload::showFrame(bool on) {
  Tinf.setVisible(!on);
  FR2.setVisible(on);
  List1.setVisible(on);
  for (std::size_t i = 0; i < Text2.size(); ++i) {
    Label2[i]->setVisible(on);
    Text2[i]->setVisible(on);
  }
  CKshow.setVisible(on);
  for (const auto& button : Command2) button->setVisible(on);
  CKshow.setChecked(false);
  Text2[3]->setMasked(true);
  if (!on) return;
  if (List1.selected() < 0 && CBaccount.selected() >= 0) {
    List1.userSelect(CBaccount.selected());
  } else if (accounts_.Count() == 0) {
    addAccount();
  }
  List1.setFocus();
}

void frmupload::Cfile_Click() {
  ui::FileDialog dialog;
  dialog.title = "faili"_keyboard;
  dialog.filter = kFilter;
  dialog.kind = "upload";
  const auto chosen = bench_.platform().openFiles(dialog);
  if (chosen.empty()) return;
  Tfile.setText(chosen[0]);
}

void frmupload::appendLog(const std::string& line) {
  Tinf.setText(Tinf.text() + std::string(base::kCrLf) + line);
  Tinf.select(static_cast<int>(Tinf.text().size()), 0);
}

void frmupload::setRunning(bool on) {
  uploading = on;
  Command3.setEnabled(on);
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&Cupload, &Command4, &CKalopF, &CBaccount, &FR2, &List1, &OPA,
                                           &OPB, &CKpassive, &Tsilence, &CKshow}) {
    control->setEnabled(!on);
  }
  for (const auto& box : Text2) box->setEnabled(!on);
  for (const auto& button : Command2) button->setEnabled(!on);
  Tfile.setEnabled(!on && !CKalopF.checked());
  Cfile.setEnabled(!on && !CKalopF.checked());
  (on ? static_cast<ui::Control&>(Command3) : Cupload).setFocus();
}

void frmupload::Cupload_Click() {
  if (uploading || (Tfile.text().empty() && !CKalopF.checked())) return;
  const std::string line = lineAt(CBaccount.selected());
  if (line.empty()) {
    app::messageBox(bench_.platform(), "აირჩიეთ FTP ანგარიში; ახალი „პარამეტრებში“ იქმნება.", "FTP Upload");
    return;
  }
  keepSettings();
  const std::string server = base::upperAscii(accountFields(line)[1]);
  if (server.starts_with("SFTP://") || server.starts_with("FTPS://")) {
    app::messageBox(bench_.platform(),
                    "ეს ანგარიში დაშიფრული კავშირისაა. მისთვის სხვა ფანჯარაა: ფაილი > საიტის გამოქვეყნება.",
                    "FTP Upload");
    return;
  }
  // What was kept open for another account must not take this one's files.
  if (line != connectedLine_) ftp_.FtpDisconnect();
  connectedLine_ = line;
  stop_ = closeBehindRun_ = false;
  showFrame(false);  // the log is wanted now
  setRunning(true);
  ui::atGate([&] { upload(line); });
  setRunning(false);
  if (closeBehindRun_) close();
}

void frmupload::keepSettings() {
  int silence = app::kUsualFtpTimeout;
  std::from_chars(Tsilence.text().data(), Tsilence.text().data() + Tsilence.text().size(), silence);
  app::PropsRecord& props = bench_.props();
  const app::PropsRecord before = props;
  props.FtpTimeout =
      static_cast<std::int16_t>(std::clamp<int>(silence, app::kLeastFtpTimeout, app::kMostFtpTimeout));
  props.FtpPassive = CKpassive.checked();
  Tsilence.setText(std::to_string(props.FtpTimeout));
  ftp_.silence = props.FtpTimeout;
  ftp_.passive = props.FtpPassive;
  // What cannot be kept is still good for this run.
  if (props != before) writeUnasked([this] { bench_.saveProps(); });
}

void frmupload::writeUnasked(const std::function<void()>& write) {
  const auto attempt = [&] {
    try {
      write();
    } catch (const base::Error&) {
      if (!std::exchange(toldReadOnly_, true)) throw;
    }
  };
  ui::atGate(attempt);
}

void frmupload::upload(const std::string& account) {
  std::vector<std::string> files;
  if (CKalopF.checked()) {
    for (std::int16_t i = 0; i < bench_.documents().Count(); ++i) {
      if (isUploaded(bench_.documents().Item(i)))
        files.emplace_back(base::trimSpaces(bench_.documents().Item(i).filepath));
    }
  } else {
    files.push_back(Tfile.text());
  }
  std::uint64_t total = 0;
  for (const std::string& file : files) total += base::fileSize(file);
  std::uint64_t done = 0;
  std::uint64_t shown = ~std::uint64_t{0};
  const auto showBytes = [&](std::uint64_t bytes) {
    if (bytes == shown) return;
    shown = bytes;
    Bar.setValue(total == 0 ? 0 : static_cast<int>(std::min(bytes, total) * ui::ProgressBar::kMost / total));
    PST.setCaption(std::to_string(bytes) + " / " + std::to_string(total));
  };
  showBytes(0);
  ftp_.watch = [&](std::uint64_t sent) {
    showBytes(done + sent);
    bench_.platform().pumpEvents();
    return !stop_;
  };
  UploadRun run(ftp_, account, [this](const std::string& line) { appendLog(line); });
  bool good = false;
  if (CKalopF.checked()) {
    good = run.uploadAll(bench_.documents(),
                         [&](const std::string& path) { showBytes(done += base::fileSize(path)); });
  } else {
    good = run.uploadFile(files[0], OPB.chosen() ? TransferType::Binary : TransferType::Ascii, true);
    if (good) showBytes(total);
  }
  PST.setCaption((good ? "✓ " : "✗ ") + PST.caption().bytes);
}

}  // namespace project
