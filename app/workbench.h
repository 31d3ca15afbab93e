// What a subsystem may ask of the main window. FrmH implements it; tests may too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/command.h"
#include "app/document_list.h"
#include "app/documents/session.h"
#include "app/props_record.h"
#include "ui/code_view.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"
#include "ui/signal.h"
#include "ui/tab_strip.h"
#include "ui/tool_bar.h"

namespace app {

// The panel beside the code view: tabs of groups above the list of the chosen one.
struct Palette {
  ui::TabStrip& groups;
  ui::ListBox& items;
};

class Workbench {
 public:
  virtual ~Workbench() = default;

  virtual ui::Platform& platform() = 0;
  virtual ui::CodeView& codeView() = 0;
  virtual ColectionMain& documents() = 0;
  // Position of the shown document in the list; -1 when it has no record.
  virtual std::int16_t shownIndex() const = 0;
  virtual std::string shownTitle() = 0;       // the file's name; empty: never named
  virtual std::string shownPath() const = 0;  // full path of the shown document; empty: untitled
  // As they are in force. saveProps() writes them to props.ini; throws base::Error.
  virtual PropsRecord& props() = 0;
  virtual void saveProps() = 0;
  // As they are stored: what holds for this run only is not among them.
  virtual PropsRecord storedProps() const = 0;
  // Writes them to props.ini, then puts them in force. Throws base::Error; then nothing has changed.
  virtual void setProps(const PropsRecord& props) = 0;

  // The same documents, the shown one among them.
  virtual Session& session() = 0;
  // With all that belongs to it, to another place in the list.
  virtual void moveDocument(std::int16_t from, std::int16_t to) = 0;

  // Byte text of any document, shown or not; valid until it changes.
  virtual std::string_view documentText(std::int16_t index) = 0;
  // One step of that document's history; marks it changed.
  virtual void setDocumentText(std::int16_t index, std::string_view text) = 0;

  virtual void showDocument(std::int16_t index) = 0;
  virtual void documentsAdded() = 0;  // records were added, removed or renamed: the tree follows
  // A new untitled document of a kind (".HTML", ".TXT", ".CSS") that holds `text`, shown.
  virtual void mnunewF_Click(const char* extension, const std::string& text) = 0;
  virtual void ofnen(const std::string& path) = 0;     // open one file, of any kind
  virtual void WEB_Open(const std::string& path) = 0;  // replaces all documents: ask first

  // Called while the program is put together, or before menuTextsChanged().
  virtual void addCommands(std::vector<Command> rows) = 0;
  virtual void menuTextsChanged() = 0;  // captions that rows make anew are asked for again
  // The rows as items of a menu elsewhere, with their states.
  virtual std::vector<ui::MenuItem> menuItems(const std::vector<int>& ids) = 0;
  virtual void addToolBar(const std::vector<ui::ToolBarButton>& buttons) = 0;  // behind those already there
  virtual void setToolColor(int command, base::Color color) = 0;  // what the button's picture shows
  virtual bool runCommand(int id) = 0;                            // false: unknown or disabled
  virtual bool commandChecked(int id) = 0;                        // its menu item bears a check mark

  // A panel of the status bar: "kMain", "kPreview", "kCounts", "kForm", "kMode", "kPosition", "kView",
  // "kLineEnds".
  virtual void setPanel(std::string_view key, ui::Text text) = 0;

  // What the user did without a command, as a command does it: not while one runs, and errors are shown.
  virtual void perform(const std::function<void()>& action) = 0;
  virtual Palette palette() = 0;  // the tag palette, for the subsystem that fills it

  // Layout of the frameset that is being designed; -1: none.
  int framesetLayout = -1;

  ui::Signal<const std::string&> documentOpened;         // full path of a file that was opened
  ui::Signal<> propsInForce;                             // settings were read, or changed by setProps()
  ui::Signal<> documentShown;                            // another document came into the code view
  ui::Signal<std::int16_t, std::int16_t> documentMoved;  // from where to where in the list
  ui::Signal<std::int16_t> documentDropped;              // from the tree into the code view, at its caret
  ui::Signal<> textChanged;
  ui::Signal<> viewChanged;  // how the shown document's bytes are read
  ui::Signal<> selectionChanged;
  ui::Signal<> idle;
  ui::Signal<> pause;  // the user has done nothing for a moment: time for what reads the whole text
  ui::Signal<std::string_view> panelClicked;  // of the status bar
  ui::Signal<base::Color> colorChosen;        // for a page, in one of the colour dialogs
  ui::Signal<int> keyDown;                    // in the code view; virtual-key numbers
  ui::Signal<int> keyUp;
  ui::Signal<> startUp;  // the start-up action
  ui::Signal<> closing;
  std::function<int()> inBackground;  // see ui::MainForm::background
  // What enters the code view for a typed character and for what is pasted, and what it gives to the
  // clipboard: the typing's to say.
  std::function<std::string(char32_t character)> typed;
  std::function<void(int code)> controlTyped;
  std::function<std::string(const ui::TextClip& clip)> entering;
  std::function<ui::TextClip(std::string bytes)> clipOf;
};

}  // namespace app
