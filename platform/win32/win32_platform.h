// What the program asks of the machine, done by Win32.
#pragma once

#include <memory>
#include <vector>

#include "platform/win32/print/printer.h"
#include "platform/win32/system/credentials.h"
#include "platform/win32/window/dialog_host.h"
#include "ui/platform/platform.h"

namespace win32 {

class Win32Platform final : public ui::Platform {
 public:
  void showModal(ui::Form& form) override;
  void showModeless(ui::Form& form) override;
  using ui::Platform::popupMenu;
  int popupMenu(const std::vector<ui::MenuItem>& items, PopupPlace place) override;
  std::vector<std::string> openFiles(const ui::FileDialog& dialog) override;
  std::optional<std::string> saveFile(const ui::FileDialog& dialog) override;
  std::optional<std::string> pickFolder(const ui::Text& title) override;
  std::optional<base::Color> pickColor(base::Color first) override;
  std::vector<std::string> fontNames() const override;
  std::string fontFile(std::string_view family) const override;
  std::string programFolder() const override;
  std::string resource(std::string_view name) const override;
  std::string registryValue(std::string_view section, std::string_view key) const override;
  void setRegistryValue(std::string_view section, std::string_view key, std::string_view value) override;
  void setClipboard(const ui::TextClip& clip) override;
  bool darkColours() const override;
  bool clipboardHasText() const override;
  void setHourglass(bool on) override;
  void pumpEvents() override;
  bool stopRequested() override;
  std::unique_ptr<ui::Ftp> makeFtp() override;
  ui::Printer* printer() override { return &printer_; }
  ui::Secrets* secrets() override { return &credentials_; }
  bool shellOpen(std::string_view path, std::string_view parameters) override;
  bool browse(std::string_view path) override;
  bool startProcess(std::string_view commandLine) override;
  void onHelp(const std::function<void(const ui::Form&)>& help) override { setHelp(help); }
  bool showHelpFile(std::string_view path, std::string_view topic) override;

  // Before the forms go, which the windows refer to.
  void closeModeless() { modeless_.clear(); }

 private:
  std::vector<std::unique_ptr<DialogHost>> modeless_;
  SystemPrinter printer_;
  Credentials credentials_;
};

}  // namespace win32
