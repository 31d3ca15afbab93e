// A platform that answers from a script and records what was asked.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/files.h"
#include "ui/platform/platform.h"

namespace tests {

class FakePlatform : public ui::Platform {
 public:
  // One handler a modal form, in order: acts on the form as the user would. A form without a handler is a
  // failure of the test.
  std::deque<std::function<void(ui::Form&)>> modal;
  std::vector<ui::Form*> modeless;

  void showModal(ui::Form& form) override {
    if (modal.empty()) throw std::logic_error("unexpected dialog: " + ui::display(form.caption()));
    const auto act = modal.front();
    modal.pop_front();
    form.open(nullptr);
    form.load();
    form.shown();
    act(form);
    form.close();
  }
  void showModeless(ui::Form& form) override {
    form.open(nullptr);
    form.load();
    modeless.push_back(&form);
  }

  // The user's choice in the next pop-up menus, and what the last one offered.
  std::deque<int> popupAnswers;  // none left: nothing chosen
  std::vector<ui::MenuItem> popup;
  using ui::Platform::popupMenu;
  int popupMenu(const std::vector<ui::MenuItem>& items, PopupPlace) override {
    popup = items;
    return take(popupAnswers).value_or(0);
  }

  std::deque<std::vector<std::string>> openAnswers;  // none left: cancelled
  std::deque<std::string> saveAnswers, folderAnswers;
  std::vector<ui::FileDialog> fileDialogs;
  std::vector<std::string> openFiles(const ui::FileDialog& dialog) override {
    fileDialogs.push_back(dialog);
    return take(openAnswers).value_or(std::vector<std::string>());
  }
  std::optional<std::string> saveFile(const ui::FileDialog& dialog) override {
    fileDialogs.push_back(dialog);
    return take(saveAnswers);
  }
  std::optional<std::string> pickFolder(const ui::Text&) override { return take(folderAnswers); }

  std::deque<base::Color> colorAnswers;
  std::optional<base::Color> pickColor(base::Color) override { return take(colorAnswers); }
  std::vector<std::string> fonts;
  std::vector<std::string> fontNames() const override { return fonts; }

  std::string fontFile(std::string_view family) const override {
    return "\xFFthe font " + std::string(family);
  }

  std::string folder;  // the program's
  std::string programFolder() const override { return folder; }
  std::map<std::string, std::string, std::less<>> resources;  // besides those of resources/custom
  std::string resource(std::string_view name) const override {
    if (const auto at = resources.find(name); at != resources.end()) return at->second;
    const std::string file = ZERVO_SOURCE "/resources/custom/" + std::string(name);
    return base::readFile(file + (base::fileExists(file + ".bin") ? ".bin" : ".txt"));
  }

  std::map<std::string, std::string> registry;  // "section\key"
  std::string registryValue(std::string_view section, std::string_view key) const override {
    const auto at = registry.find(std::string(section) + "\\" + std::string(key));
    return at == registry.end() ? std::string() : at->second;
  }
  bool registryRefuses = false;
  void setRegistryValue(std::string_view section, std::string_view key, std::string_view value) override {
    if (registryRefuses) throw std::runtime_error("refused");
    registry[std::string(section) + "\\" + std::string(key)] = value;
  }

  ui::TextClip clip;
  void setClipboard(const ui::TextClip& newClip) override { clip = newClip; }
  bool clipboardHasText() const override { return !clip.bytes.empty(); }

  std::vector<bool> hourglass;  // every call
  void setHourglass(bool on) override { hourglass.push_back(on); }
  int pumped = 0;
  std::function<void()> whilePumping;  // what the user does meanwhile
  void pumpEvents() override {
    ++pumped;
    if (whilePumping) whilePumping();
  }

  bool stop = false;
  bool stopRequested() override { return stop; }

  // Their users are kept with them: "user\nsecret".
  struct FakeSecrets : ui::Secrets {
    std::map<std::string, std::string> kept;
    std::optional<std::string> read(const std::string& name) override {
      const auto at = kept.find(name);
      return at == kept.end() ? std::nullopt : std::optional(at->second.substr(at->second.find('\n') + 1));
    }
    void keep(const std::string& name, const std::string& user, const std::string& secret) override {
      kept[name] = user + "\n" + secret;
    }
    void forget(const std::string& name) override { kept.erase(name); }
  } store;
  ui::Secrets* secrets() override { return &store; }

  ui::Printer* device = nullptr;
  ui::Printer* printer() override { return device; }

  std::vector<std::string> opened, browsed, started, helped;
  bool browse(std::string_view path) override {
    browsed.emplace_back(path);
    return true;
  }
  bool shellOpen(std::string_view path, std::string_view parameters) override {
    opened.push_back(std::string(path) + (parameters.empty() ? "" : " " + std::string(parameters)));
    return true;
  }
  bool startProcess(std::string_view commandLine) override {
    started.emplace_back(commandLine);
    return true;
  }
  bool showsHelp = true;
  bool showHelpFile(std::string_view path, std::string_view topic) override {
    helped.push_back(std::string(path) + (topic.empty() ? "" : "::" + std::string(topic)));
    return showsHelp;
  }

 private:
  template <class Value>
  static std::optional<Value> take(std::deque<Value>& answers) {
    if (answers.empty()) return std::nullopt;
    Value answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace tests
