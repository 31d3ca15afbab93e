// The window that converts a whole site: shown first, done as ticked, and given back.
#include "site/frmsite.h"

#include <algorithm>

#include "base/files.h"
#include "convert/attach.h"
#include "convert/frmletters.h"
#include "site/attach.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"

namespace {

using site::frmsite;

class SiteWindow : public tests::MainWindowTest {
 protected:
  SiteWindow() {
    converting = convert::attach(*H);
    attached = site::attach(*H);
    base::makeFolder(site);
    base::writeFile(site + "/a.html", page(kFirst));
    base::writeFile(site + "/b.html", page(kSecond));
    base::writeFile(site + "/c.txt", kFirst);
    base::writeFile(site + "/d.css", "p { color: red }");
    start();
  }
  static std::string page(const std::string& utf8) {
    return "<html><head></head><body><p>" + tests::convertWithIconv(utf8, "UTF-8", "GEORGIAN-PS") +
           "</body></html>";
  }
  std::string fileOf(const std::string& name) { return base::readFile(site + "/" + name); }
  void look(const std::function<void(frmsite&)>& act) {
    platform.modal.push_back([act](ui::Form& form) { act(dynamic_cast<frmsite&>(form)); });
    ASSERT_TRUE(H->runCommand(mnusite));
  }
  static int rowOf(const frmsite& form, const std::string& file) {
    const auto& items = form.LV.items();
    const auto at = std::ranges::find_if(items, [&](const auto& item) { return item.text.bytes == file; });
    EXPECT_NE(at, items.end()) << file;
    return static_cast<int>(at - items.begin());
  }
  static std::string stateOf(const frmsite& form, const std::string& file) {
    return form.LV.items()[static_cast<std::size_t>(rowOf(form, file))].subItems.back().bytes;
  }
  static constexpr const char* kFirst = "საქართველო მშვენიერი ქვეყანაა და აქ ქართულად წერენ";
  static constexpr const char* kSecond = "ძველი გვერდი ახალი ასოებით უნდა წავიკითხოთ";

  const std::string site = folder.path() + "/site";
  std::unique_ptr<convert::Attached> converting;
  std::unique_ptr<frmsite> attached;
};

TEST_F(SiteWindow, ShowsFirstThenDoesWhatIsTickedAndGivesItBack) {
  const std::string a = fileOf("a.html"), b = fileOf("b.html");
  look([&](frmsite& form) {
    EXPECT_FALSE(form.Capply.enabled());
    platform.folderAnswers = {site};
    form.Cfolder.click();
    form.Cplan.click();
    EXPECT_EQ(fileOf("a.html"), a) << "a dry run";
    EXPECT_EQ(form.LV.items().size(), 4U);
    form.LV.userCheck(rowOf(form, "b.html"), false);
    form.LV.columnClicked(0);
    form.LV.columnClicked(0);
    EXPECT_EQ(rowOf(form, "d.css"), 0) << "sorted downwards";
    EXPECT_FALSE(form.LV.items()[static_cast<std::size_t>(rowOf(form, "b.html"))].checked);

    form.Tinclude.userSet("*.html");
    EXPECT_FALSE(form.Capply.enabled()) << "what was found is for other options";
    form.Cplan.click();
    form.LV.userCheck(rowOf(form, "b.html"), false);
    expectBoxWith("გადაიყვანება 1 ფაილი", app::kAnswerNo);
    form.Capply.click();
    EXPECT_EQ(fileOf("a.html"), a);
    expectBoxWith(site + "-old", app::kAnswerYes);
    form.Capply.click();
    EXPECT_EQ(stateOf(form, "a.html"), "გადაყვანილია");
    EXPECT_EQ(stateOf(form, "b.html"), "შეიცვლება");
    form.Creport.click();
  });
  EXPECT_NE(fileOf("a.html").find(std::string("<p>") + kFirst), std::string::npos) << fileOf("a.html");
  EXPECT_EQ(fileOf("b.html"), b);
  ASSERT_EQ(platform.browsed.size(), 1U);
  EXPECT_NE(base::readFile(platform.browsed[0]).find(kSecond), std::string::npos);

  // Others write into a page; that is not lost unasked.
  base::writeFile(site + "/a.html", "others");
  look([&](frmsite& form) {
    expectBoxWith("აღდგება 1 ფაილი", app::kAnswerYes);
    expectBoxWith("a.html", app::kAnswerNo);
    form.Crestore.click();
    EXPECT_EQ(fileOf("a.html"), "others");
    expectBoxWith("აღდგება 1 ფაილი", app::kAnswerYes);
    expectBoxWith("a.html", app::kAnswerYes);
    form.Crestore.click();
  });
  EXPECT_EQ(fileOf("a.html"), a);
}

TEST_F(SiteWindow, AStoppedDryRunIsNoneAndAPageCanBeLookedAt) {
  for (int i = 0; i < 400; ++i) {
    std::string many;
    for (int n = 0; n < 200; ++n) many += page(kFirst);
    base::writeFile(site + "/many" + std::to_string(i) + ".html", many);
  }
  open(site + "/b.html");
  type("unsaved");
  look([&](frmsite& form) {
    form.Tfolder.userSet(site);
    expectBoxWith("b.html", app::kAnswerOk);
    platform.whilePumping = [&] { form.Cstop.click(); };
    form.Cplan.click();
    platform.whilePumping = nullptr;
    EXPECT_GT(platform.pumped, 0);
    EXPECT_FALSE(form.Capply.enabled());
    EXPECT_LT(form.LV.items().size(), 404U);

    form.Tinclude.userSet("a.*");
    expectBoxWith("b.html", app::kAnswerOk);
    form.Cplan.click();
    form.LV.userSelect(rowOf(form, "a.html"));
    platform.modal.push_back([&](ui::Form& letters) {
      EXPECT_FALSE(dynamic_cast<convert::frmletters&>(letters).LV.items().empty());
      EXPECT_EQ(T1.text(), fileOf("a.html"));
    });
    form.LV.doubleClicked();
  });
}

}  // namespace
