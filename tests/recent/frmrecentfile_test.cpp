#include "recent/frmrecentfile.h"

#include "app/mdlsaerto.h"
#include "recent/recent_commands.h"
#include "recent/recent_list.h"
#include "tests/support/main_window.h"

namespace {

using ui::operator""_keyboard;

class RecentDialog : public tests::MainWindowTest {
 protected:
  RecentDialog() { start(); }
  void list(const std::vector<std::string>& paths) { recent::writeRecent(platform.folder, paths); }
};

TEST_F(RecentDialog, ListsOpensRemovesAndClears) {
  list({"C:\\x\\a.html", "b", "C:\\y\\c.web"});
  recent::frmrecentfile form(*H);
  ASSERT_EQ(form.LV.items().size(), 3U);
  EXPECT_EQ(form.LV.items()[0].text.bytes, "a.html");
  EXPECT_EQ(form.LV.items()[0].subItems[0].bytes, "C:\\x");
  EXPECT_EQ(form.LV.items()[1].subItems[0].bytes, "");
  EXPECT_EQ(form.LV.items()[2].icon, 6);
  form.LV.setSelected(1);
  platform.popupAnswers.push_back(mnudelet);
  form.LV.contextMenu();
  EXPECT_EQ(recent::recentPaths(platform.folder),
            (std::vector<std::string>{"C:\\x\\a.html", "C:\\y\\c.web"}));
  form.COK.click();  // the next entry is selected now
  EXPECT_EQ(form.result(), "C:\\y\\c.web");
  EXPECT_EQ(recent::recentPaths(platform.folder).front(), "C:\\y\\c.web");
  platform.popupAnswers.push_back(mnucler);
  form.LV.contextMenu();
  EXPECT_TRUE(recent::recentPaths(platform.folder).empty());
}

TEST_F(RecentDialog, EmptyListOpensNothingAndTheStartOptionIsStored) {
  recent::frmrecentfile form(*H);
  form.open(nullptr);
  form.COK.click();
  EXPECT_FALSE(form.closed());
  form.CKonstart.userSet(true);
  EXPECT_EQ(app::ReadProps(platform).ShowAtStart, 1);
  platform.openAnswers.push_back({folder.file("n.html")});
  form.Copen.click();
  EXPECT_EQ(form.result(), folder.file("n.html"));
}

TEST_F(RecentDialog, IconNumbers) {
  const std::vector<std::pair<const char*, int>> rows = {
      {"C:\\a.shtml", 5}, {"a.cgi", 3}, {"a.asp", 1}, {"a.wsf", 7}, {"a.xml", 12},
      {"a.php", 9},       {"a.png", 4}, {"a.fla", 2}, {"a.Web", 6}, {"a.inf", 10},
      {"a.txt", 11},      {"txt", 8},   {"a.doc", 8}};
  for (const auto& [path, icon] : rows) EXPECT_EQ(recent::ikonumer(path), icon) << path;
}

TEST_F(RecentDialog, OpenedFilesComeToListAndMenuAndVanishedOnesAreToldOf) {
  restart();
  recent::attach(*H);
  start();
  const std::string a = folder.make("a&b.html", "A"), b = folder.make("b.html", "B");
  open(a);
  open(b);
  EXPECT_EQ(recent::recentPaths(platform.folder), (std::vector<std::string>{b, a}));
  const auto shown = [this] {
    std::vector<std::string> lines;
    for (const auto& item : H->menus[0].items) {
      if (item.command >= mnurecent1 && item.command <= mnurecent9) lines.push_back(item.caption.bytes);
    }
    return lines;
  };
  EXPECT_EQ(shown(), (std::vector<std::string>{"&1 " + b, "&2 " + folder.file("a&&b.html")}));
  list({"another copy's"});
  H->runCommand(mnurecent1 + 1);  // opens what it says, whatever the list is by now
  EXPECT_EQ(T1.text(), "A");
  list({a, b});
  platform.modal.push_back([](ui::Form& form) {
    form.keyPressed({ui::kKeyDelete, false, false, false});  // the first one
  });
  H->runCommand(mnurecentfile);
  EXPECT_EQ(shown(), std::vector<std::string>{"&1 " + b});
  base::removeFile(folder.file("b.html"));
  expectBox("", "faili waSlilia an sxva folderSia gadatanili."_keyboard, app::kAnswerOk);
  H->runCommand(mnurecent1);
}

TEST_F(RecentDialog, StartUpShowsTheListWhenWished) {
  const std::string a = folder.make("a.html", "A");
  list({a});
  app::PropsRecord props;
  props.ShowAtStart = 1;
  app::WriteProps(platform, props);
  restart();
  recent::attach(*H);
  platform.modal.push_back([](ui::Form& form) { dynamic_cast<recent::frmrecentfile&>(form).COK.click(); });
  start();
  EXPECT_EQ(T1.text(), "A");
}

}  // namespace
