// FTP accounts, and what a run of uploads does and logs.
#include <gtest/gtest.h>

#include "base/files.h"
#include "project/frmupload.h"
#include "project/upload_run.h"
#include "tests/support/main_window.h"

namespace {

using project::FtpFields;
using namespace ui::literals;

TEST(FtpAccounts, ScramblesByHandComputedNumbers) {
  EXPECT_EQ(project::scrambled("Ab\xE9"), "481591481624481759");  // 65, 98 and 233 and the key 481526
  EXPECT_EQ(project::unscrambled("481591481624481759"), "Ab\xE9");
  EXPECT_EQ(project::scrambled(""), "");
  for (const char* bad : {"48159", "48159148162", "48152x", "481525", "481782", "-81591"}) {
    EXPECT_FALSE(project::unscrambled(bad)) << bad;
  }
}

TEST(FtpAccounts, AFileComesBackByteForByteAndDamageIsNamed) {
  const std::string line =
      "Site\x01"
      "ftp.x.ge:2121\x01"
      "me\x01"
      "481591\x01/www";
  const std::string text = line + "\r\n" + "B\x01h\x01u\x01\x01";
  const auto accounts = project::parseAccounts(text);
  EXPECT_TRUE(accounts.damage.empty());
  EXPECT_EQ(project::formatAccounts(accounts.lines), text);
  EXPECT_EQ(project::accountFields(line), (FtpFields{"Site", "ftp.x.ge:2121", "me", "A", "/www"}));
  EXPECT_EQ(project::accountLine({"Site", "ftp.x.ge:2121", "me", "A", "/www"}), line);
  EXPECT_EQ(project::accountFields(project::accountLine({"საიტი", "h", "u", "პაროლი", "/ვებ"})),
            (FtpFields{"საიტი", "h", "u", "პაროლი", "/ვებ"}));
  EXPECT_ANY_THROW(project::accountLine({"a\x01", "", "", "", ""}));

  // What another editor has ended with a line end is whole.
  const auto ended = project::parseAccounts(text + "\r\n");
  EXPECT_TRUE(ended.damage.empty());
  EXPECT_EQ(project::formatAccounts(ended.lines), text);

  const auto damaged = project::parseAccounts(line +
                                              "\n\r\nonly\x01two\r\nC\x01h\x01u\x01"
                                              "12345\x01/");
  EXPECT_EQ(damaged.lines.size(), 3u);
  EXPECT_EQ(damaged.damage.size(), 4u);  // line ends, an empty line, missing fields, a password
  EXPECT_EQ(project::accountFields(damaged.lines[1])[1], "two");
}

class FakeFtp : public ui::Ftp {
 public:
  ui::FtpResult connect(const ui::FtpServer& server, int, const ui::FtpWatch&) override {
    calls.push_back("connect " + server.host + " " + std::to_string(server.port) + " " + server.user + " " +
                    server.password);
    open = failConnect.done();
    return failConnect;
  }
  ui::FtpResult askUtf8(bool& utf8, int, const ui::FtpWatch&) override {
    utf8 = speaksUtf8;
    return {};
  }
  ui::FtpResult put(const std::string& local, const std::string& remote, bool binary, int,
                    const ui::FtpWatch& watch) override {
    calls.push_back("put " + remote + (binary ? " binary" : " ascii"));
    if (local.find(failing) != std::string::npos && !failing.empty()) return failPut;
    return watch && !watch(1) ? ui::FtpResult{ui::FtpResult::End::Stopped, 0, {}} : ui::FtpResult{};
  }
  void disconnect() override {
    if (open) calls.emplace_back("disconnect");
    open = false;
  }
  bool connected() const override { return open; }

  bool open = false, speaksUtf8 = false;
  std::string failing;
  ui::FtpResult failConnect, failPut{ui::FtpResult::End::Failed, 12003, "552 Quota for secret exceeded\r\n"};
  std::vector<std::string> calls;
};

using Calls = std::vector<std::string>;

class Upload : public tests::MainWindowTest {
 protected:
  Upload() { start(); }
  void account(const std::string& directory, const std::string& password = "secret",
               const std::string& user = "me", const std::string& host = "host:2121") {
    base::writeFile(platform.folder + "\\FTP.ini",
                    project::accountLine({"A", host, user, password, directory}));
  }
  void show(const std::function<void(project::frmupload&)>& act) {
    project::frmupload form(*H, ftp);
    platform.modal.push_back([&](ui::Form&) { act(form); });
    platform.showModal(form);
    EXPECT_EQ(form.Tinf.text().find("secret"), std::string::npos) << "the password is in the log";
    log = form.Tinf.text();
  }
  FakeFtp ftp;
  std::string log;
};

TEST_F(Upload, OneFileIsSentAndLoggedAndTheConnectionClosed) {
  account("/www");
  const std::string page = folder.make("a.htm", "x");
  show([&](project::frmupload& form) {
    EXPECT_EQ(form.CBdir.text(), "/www");
    form.Cupload.click();  // no file: nothing happens
    form.Tfile.userSet(page);
    form.OPB.userChoose();
    EXPECT_TRUE(form.Tinf.visible());
    form.Command4.click();
    EXPECT_FALSE(form.Tinf.visible()) << "the accounts have its place";
    EXPECT_TRUE(form.FR2.visible());
    form.Cupload.click();
    EXPECT_TRUE(form.Tinf.visible()) << "a run is seen";
    EXPECT_FALSE(form.FR2.visible());
    EXPECT_FALSE(form.Command3.enabled());
    EXPECT_TRUE(form.Cupload.enabled());
  });
  EXPECT_EQ(ftp.calls, (Calls{"connect host 2121 me secret", "put /www/a.htm binary", "disconnect"}));
  EXPECT_EQ(log, "\r\n" + ui::display("» ÃÀÊÀÅÛÉÒÄÁÀ ÓÄÒÅÄÒÈÀÍ: "_legacy) + "host:2121\r\n»» [OK]\r\n" +
                     ui::display("»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ: "_legacy) + page + "\r\n" +
                     ui::display("»»»» ×ÀÉËÉÓ ÂÀÃÀÔÀÍÀ ÛÄÓÒÖËÄÁÖËÉÀ."_legacy));
}

TEST_F(Upload, AllSavedDocumentsGoUntilOneFails) {
  account("");
  for (const char* name : {"a.htm", "b.css", "c.gif", "d.htm"}) open(folder.make(name, name));
  ASSERT_TRUE(H->runCommand(mnunewF));  // never saved: left out, so the connection stays open
  const auto send = [&] {
    ftp.calls.clear();
    show([&](project::frmupload& form) {
      form.CKalopF.userSet(true);
      EXPECT_FALSE(form.Tfile.enabled());
      form.Cupload.click();
    });
  };
  send();
  EXPECT_EQ(ftp.calls, (Calls{"connect host 2121 me secret", "put /a.htm ascii", "put /b.css ascii",
                              "put /c.gif binary", "put /d.htm ascii"}));
  ftp.failing = "b.css";
  ftp.open = false;
  send();
  EXPECT_EQ(ftp.calls, (Calls{"connect host 2121 me secret", "put /a.htm ascii", "put /b.css ascii"}));
  EXPECT_NE(log.find("(552)."), std::string::npos) << log;
  EXPECT_NE(log.find("552 ***\r\n"), std::string::npos) << "the words had the password in them: " << log;
  EXPECT_TRUE(log.ends_with(ui::display("»»» ×ÀÉËÄÁÉÓ ÂÀÃÀÔÀÍÀ ÛÄßÚÃÀ."_legacy)));
}

TEST_F(Upload, TheChosenTypeStaysWhateverFileIsChosen) {
  account("");
  const std::string zip = folder.make("a.zip", "PK");
  show([&](project::frmupload& form) {
    form.OPB.userChoose();
    platform.openAnswers = {{zip}};
    form.Cfile.click();
    EXPECT_EQ(form.Tfile.text(), zip);
    form.Cupload.click();
  });
  EXPECT_EQ(ftp.calls.at(1), "put /a.zip binary");
}

TEST_F(Upload, BytesAreThoseOfTheAccountsFileAndOfTheServersNames) {
  account("", "pass\u00e9", "user\u20ac", " FTP://host:2121/ ");
  const std::string french = folder.make("caf\u00e9.htm", "x");
  const std::string georgian = folder.make("გვ.htm", "x");
  const auto sent = [&](const std::string& file) {
    ftp.calls.clear();
    show([&](project::frmupload& form) {
      form.Tfile.userSet(file);
      form.Cupload.click();
    });
    EXPECT_EQ(ftp.calls.at(0), "connect host 2121 user\x80 pass\xE9");
    return ftp.calls.at(1);
  };
  EXPECT_EQ(sent(french), "put /caf\xE9.htm ascii");
  EXPECT_NE(log.find("Windows-1252"), std::string::npos);
  EXPECT_EQ(sent(georgian), "put /გვ.htm ascii");
  ftp.speaksUtf8 = true;
  EXPECT_EQ(sent(french), "put /caf\u00e9.htm ascii");
}

TEST_F(Upload, ReasonsAreSentencesAndTellNothingOfAShortPassword) {
  account("", "o");
  ftp.failing = "a.htm";
  const auto told = [&](int error, const std::string& words) {
    ftp.failPut = {ui::FtpResult::End::Failed, error, words};
    show([&](project::frmupload& form) {
      form.Tinf.setText("");
      form.Tfile.userSet(folder.make("a.htm", "x"));
      form.Cupload.click();
    });
    return log.substr(log.find(ui::display("ÛÄÝÃÏÌÀ!"_legacy)));
  };
  EXPECT_EQ(told(12003, "550-No room\r\n550 or no folder").find("No"), std::string::npos) << log;
  EXPECT_NE(log.find("550 ***"), std::string::npos) << log;
  EXPECT_EQ(told(0, "").find('0'), std::string::npos) << log;
  EXPECT_NE(told(10061, "").find("Passive"), std::string::npos) << log;
}

TEST_F(Upload, AFolderThatCannotBeWrittenIsToldOnce) {
  platform.folder = folder.path() + "\\missing";
  project::frmupload form(*H, ftp);
  int boxes = 0;
  for (int i = 0; i < 2; ++i) {
    platform.modal = {[&](ui::Form&) {}, [&](ui::Form&) { ++boxes; }};
    platform.showModal(form);
  }
  platform.modal.clear();
  EXPECT_EQ(boxes, 1);
}

TEST_F(Upload, AFailedConnectionSendsNothing) {
  account("/");
  ftp.failConnect = {ui::FtpResult::End::Silent, 0, {}};
  show([&](project::frmupload& form) {
    form.Tfile.userSet(folder.make("a.htm", "x"));
    form.Cupload.click();
  });
  EXPECT_EQ(ftp.calls.size(), 1u);
  EXPECT_NE(log.find(ui::display("ÃÀÊÀÅÛÉÒÄÁÀ ÀÒ ÌÏáÃÀ.ÛÄÝÃÏÌÀ!"_legacy)), std::string::npos);
}

TEST_F(Upload, AccountsAreAddedChangedAndRemoved) {
  const std::string ini = platform.folder + "\\FTP.ini";
  show([&](project::frmupload& form) {
    EXPECT_EQ(base::readFile(ini), "");  // made when it was missing
    form.Command4.click();
    EXPECT_TRUE(form.Text2[3]->masked());
    EXPECT_EQ(form.Text2[0]->text(), "New FTP Account");
    form.Text2[1]->userSet("h");
    form.Text2[3]->userSet("A");
    form.Command2[1]->click();
    EXPECT_EQ(base::readFile(ini),
              "New FTP Account\x01h\x01\x01"
              "481591\x01");
    form.Command2[0]->click();
    form.Text2[0]->userSet("second");
    form.Command2[1]->click();
    EXPECT_EQ(form.List1.items().size(), 2u);
    form.List1.userSelect(0);
    EXPECT_EQ(form.Text2[3]->text(), "A");
    form.Command2[2]->click();
    EXPECT_EQ(base::readFile(ini), "second\x01\x01\x01\x01");
    form.List1.userSelect(0);
    form.Command2[2]->click();
    EXPECT_FALSE(base::fileExists(ini));
  });
}

TEST_F(Upload, ADamagedFileIsNotRewrittenUnasked) {
  const std::string ini = platform.folder + "\\FTP.ini";
  const std::string text =
      "A\x01h\x01u\x01"
      "12\x01/\n\nB";
  base::writeFile(ini, text);
  platform.modal.clear();
  project::frmupload form(*H, ftp);
  platform.modal.push_back([&](ui::Form&) {
    form.List1.userSelect(1);
    expectBoxWith("დაზიანებული", app::kAnswerNo);
    form.Command2[2]->setVisible(true);
    form.Command2[2]->click();
    EXPECT_EQ(base::readFile(ini), text);
    form.List1.userSelect(0);
    expectBoxWith("დაზიანებული", app::kAnswerYes);
    form.Command2[1]->setVisible(true);
    form.Command2[1]->click();
    EXPECT_EQ(base::readFile(ini + ".bad"), text);
  });
  // The box about the damage comes first, from within the form's load.
  auto whole = platform.modal.front();
  platform.modal.clear();
  platform.modal.push_back(whole);
  expectBoxWith("FTP.ini", app::kAnswerOk);
  platform.showModal(form);
}

}  // namespace
