// All that the program asks of the machine, in its own words. One implementation on Win32, one fake for
// tests.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/color.h"
#include "ui/code_view.h"
#include "ui/form.h"
#include "ui/menu.h"
#include "ui/platform/ftp.h"
#include "ui/platform/printer.h"
#include "ui/platform/secrets.h"

namespace ui {

// "All Files(*.*)|*.*|HTML(*.htm)|*.htm": pairs of label and patterns, as the system stores them.
struct FileDialog {
  Text title;
  std::string filter;
  std::string name;  // proposed file name
  bool multiple = false;
  std::string folder = {};  // where it opens; empty: where the system likes
  std::string kind = {};    // dialogs of one kind open where the last of them ended; empty: not remembered
};

class Platform {
 public:
  virtual ~Platform() = default;

  // Forms. A modal run returns when the form closed itself or the user closed it.
  virtual void showModal(Form& form) = 0;
  virtual void showModeless(Form& form) = 0;  // stays above the main window; the form must outlive its window

  // A pop-up menu; the chosen command, 0: none.
  enum class PopupPlace {
    Focus,
    Pointer
  };  // Focus: at the pointer where it is in the focused control, else in that
  virtual int popupMenu(const std::vector<MenuItem>&, PopupPlace) { return 0; }
  int popupMenu(const std::vector<MenuItem>& items) { return popupMenu(items, PopupPlace::Focus); }

  // Common dialogs; nothing (or an empty list) when cancelled. Paths are UTF-8.
  virtual std::vector<std::string> openFiles(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> saveFile(const FileDialog& dialog) = 0;  // asks before replacing a file
  virtual std::optional<std::string> pickFolder(const Text& title) = 0;
  // The system's colour dialog, `first` chosen; nothing when cancelled.
  virtual std::optional<base::Color> pickColor(base::Color) { return std::nullopt; }
  // Font families of the screen, sorted, UTF-8.
  virtual std::vector<std::string> fontNames() const { return {}; }

  // A bundled font as a TrueType file; throws when the family is not one of them.
  virtual std::string fontFile(std::string_view family) const = 0;

  // The program's folder (no trailing "\"), and its resources of type CUSTOM. A missing resource throws.
  virtual std::string programFolder() const = 0;
  virtual std::string resource(std::string_view name) const = 0;

  // Per-user values of the application "Zervo"; empty when not there.
  virtual std::string registryValue(std::string_view section, std::string_view key) const = 0;
  virtual void setRegistryValue(std::string_view section, std::string_view key, std::string_view value) = 0;

  // Passwords that the user wants kept; null where the platform has no such thing. Owned by the platform.
  virtual Secrets* secrets() { return nullptr; }

  // Letters alone: a text that is no document's. Nothing in it: the clipboard is emptied.
  virtual void setClipboard(const TextClip& clip) = 0;
  virtual bool clipboardHasText() const = 0;

  virtual bool darkColours() const { return false; }  // the user has chosen dark windows

  virtual void setHourglass(bool on) = 0;
  virtual void pumpEvents() = 0;  // lets pending window events run
  // Esc was pressed since the last call; long commands ask between their steps.
  virtual bool stopRequested() = 0;

  // A connection to FTP servers; none where the platform has no such thing.
  virtual std::unique_ptr<Ftp> makeFtp() { return nullptr; }

  // Printing; null where the platform has no such thing. Owned by the platform.
  virtual Printer* printer() { return nullptr; }

  // The shell. False when it could not be done.
  virtual bool shellOpen(std::string_view path, std::string_view parameters) = 0;
  // A page on the disk in the browser that the user has chosen, whatever program its kind is tied to.
  virtual bool browse(std::string_view path) = 0;
  virtual bool startProcess(std::string_view commandLine) = 0;
  // What F1 does in the windows of forms.
  virtual void onHelp(const std::function<void(const Form& form)>&) {}
  // Empty topic: the default page. False: this machine has no viewer, or nothing that shows pages in it.
  virtual bool showHelpFile(std::string_view path, std::string_view topic) = 0;
};

// The hourglass for the length of a block.
class Hourglass {
 public:
  explicit Hourglass(Platform& platform) : platform_(platform) { platform_.setHourglass(true); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { platform_.setHourglass(false); }

 private:
  Platform& platform_;
};

}  // namespace ui
