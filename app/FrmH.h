// The main window: documents, tree and code view. It routes commands and events and knows no subsystem.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/documents/session.h"
#include "app/frmBOXa.h"
#include "app/mdlsaerto.h"
#include "app/workbench.h"
#include "base/scoped_flag.h"
#include "resources/ids.h"
#include "ui/main_form.h"
#include "ui/tab_strip.h"

namespace app {

class FrmH final : public ui::MainForm, public Workbench {
 public:
  FrmH(ui::Platform& platform, ui::CodeView& codeView);

  ui::TreeView TV{*this, IDC_FrmH_TV};
  ui::TabStrip TS{*this, IDC_FrmH_TS};        // the documents that have text
  ui::TabStrip Ttags{*this, IDC_FrmH_Ttags};  // the tag palette: its groups and
  ui::ListBox Ltags{*this, IDC_FrmH_Ltags};   // the codes of the chosen one
  ui::StatusBar Status{*this,
                       IDC_FrmH_Status,
                       {{"kMain", -1, {}, false},
                        {"kPreview", 200, {}, true},
                        {"kCounts", 250, {}, false},
                        {"kForm", 130, {}, false},
                        {"kMode", 110, {}, false},
                        {"kPosition", 170, {}, false},
                        {"kView", 60, {}, false},
                        {"kLineEnds", 60, {}, false}}};

  ui::Label Lnotice{*this, IDC_FrmH_Lnotice};  // news of the shown document, above the text
  ui::Button Cnotice{*this, IDC_FrmH_Cnotice};
  ui::Button CnoticeClose{*this, IDC_FrmH_CnoticeClose};

  PropsRecord Props;
  Session documentSession{T1};
  // Its parts, by the names under which all know them.
  ColectionMain& WebProject = documentSession.list;
  std::int16_t& CurrentItemIndex =
      documentSession.shown.index;                            // of the shown document; -1: it has no record
  std::string& CurrentFilePath = documentSession.shown.path;  // of the shown document; empty: untitled
  bool& FileChanged = documentSession.shown.changed;          // the shown document has unsaved changes
  bool Loading = false;  // the program itself fills T1: no change of the user's
  bool WebMode() const { return WebProject.WEBopened || WebProject.Count() > 0; }

  // Start and close (FrmH_start.cpp)
  void entry(const std::string& commandLine);
  void load() override;
  void comandopen(const std::string& first, const std::string& list);
  void commandladenforma(const std::string& mode);
  bool queryClose() override;
  // A document of the open project has unsaved changes / some open document has, without a project.
  bool cvlaprufen();
  bool NewInWeb();

  // Documents (FrmH_documents.cpp)
  void mnuOpen_Click();
  void mnunewF_Click(const char* extension, const std::string& text) override;
  void mnuClose_Click();
  bool closeDocument(std::int16_t index);
  void ofnen(const std::string& path) override;
  void showDocument(std::int16_t index) override;
  void Treefulen();

  // Saving and projects (FrmH_save.cpp)
  enum class SaveKind { Plain, As };
  // Empty path: the document's own, or ask; -1: the document in the code view. False: the user cancelled.
  bool SaveDocument(const std::string& path, std::int16_t index, SaveKind kind = SaveKind::Plain);
  void mnuSaveas_Click();
  // The documents, then the project file. `ask`: also offer what is outside the project. False: cancelled.
  bool SaveProject(bool ask);
  // Of the documents those alone.
  bool saveProjectWith(const std::vector<std::int16_t>& documents);
  void WEB_Open(const std::string& path) override;
  void mnuCloseWEB_Click();

  // Moves a document with all that belongs to it to another place in the list (FrmH_tabs.cpp).
  void moveDocument(std::int16_t from, std::int16_t to) override;

  // Work on the document of the selected node (FrmH_tree.cpp)
  void mnuwebAdd_Click();
  void mnuwebRemove_Click();
  void mnuwebRename_Click();

  // Workbench
  ui::Platform& platform() override { return platform_; }
  ui::CodeView& codeView() override { return T1; }
  ColectionMain& documents() override { return WebProject; }
  std::int16_t shownIndex() const override { return CurrentItemIndex; }
  std::string shownPath() const override { return CurrentFilePath; }
  std::string shownTitle() override { return documentSession.title(CurrentItemIndex); }
  Session& session() override { return documentSession; }
  PropsRecord& props() override { return Props; }
  void saveProps() override;
  PropsRecord storedProps() const override;
  void setProps(const PropsRecord& props) override;
  std::string_view documentText(std::int16_t index) override;
  void setDocumentText(std::int16_t index, std::string_view text) override;
  void documentsAdded() override { Treefulen(); }
  void addCommands(std::vector<Command> rows) override;
  void addToolBar(const std::vector<ui::ToolBarButton>& buttons) override;
  void setToolColor(int command, base::Color color) override;
  void menuTextsChanged() override;
  std::vector<ui::MenuItem> menuItems(const std::vector<int>& ids) override;
  bool runCommand(int id) override;
  bool commandChecked(int id) override;
  void setPanel(std::string_view key, ui::Text text) override;
  void perform(const std::function<void()>& action) override {
    if (!busy_) ui::atGate(action);
  }
  Palette palette() override { return {Ttags, Ltags}; }

  // MainForm
  void menuOpening() override;
  void command(int id) override { runCommand(id); }
  void menuHighlighted(const ui::Text& help) override;
  void filesDropped(const std::vector<std::string>& paths) override;
  void idle() override;
  ui::TextClip clipFor(std::string bytes) override { return clipOf(std::move(bytes)); }
  void pause() override { Workbench::pause(); }
  int background() override { return inBackground ? inBackground() : -1; }
  void activated() override { diskDue_ = true; }
  void systemColoursChanged() override { applyEditorSettings(); }

 private:
  void addOwnCommands();
  void buildMenus();
  CommandState commandState();
  void refreshItems(std::vector<ui::MenuItem>& items, const CommandState& state);
  void refreshToolBar();
  void TV_NodeClick(int node);
  void TV_ContextMenu();
  bool TV_CanDropOn(int node, int target) const;
  void TV_DroppedOn(int node, int target);
  std::int16_t documentOfNode(int node) const;  // -1: a root
  void addViewCommands();                       // FrmH_view.cpp, like the next three
  void togglePane(ui::Control& pane);
  void restorePanes();
  void keepPanes();
  void TS_CloseAsked(int tab);
  void TS_Moved(int from, int to);
  void showTabs();
  std::int16_t selectedDocument() const;  // of the tree's selected node; -1: none
  void T1_Change();
  void T1_Reformed();
  void addLookCommands();  // FrmH_looks.cpp, like the next four
  Command lookSwitch(bool PropsRecord::*field, Command row);
  void zoomTo(int points);
  void showView();
  void showIn(const std::shared_ptr<ui::CodeDocument>& document, const std::string& title);
  void showText(std::string_view text, const std::string& title) { showIn(T1.makeDocument(text), title); }
  void chooseView(ui::TextView view);
  void nameOddEncoding();
  void followName();  // the shown document's name may be of another kind of file now
  void T1_SelChange();
  void step(int direction);  // to the next or previous document with text

  void showCaption();
  void showName(const std::string& name);  // in the caption, with the mark of unsaved changes
  // FrmH_disk.cpp, like the next ones
  void lookAtDisk();
  enum class Purpose { Look, Save };
  // The document's file is as it was last read or written, or the user has chosen; false: nothing is to be
  // done with it now.
  bool settleWithFile(std::int16_t index, Purpose purpose);
  void fileVanished(std::int16_t index);
  void reload(std::int16_t index, std::string_view bytes, const base::FileTrace& trace);
  void keepBackup(const std::string& path, std::string_view text);
  void writeText(const std::string& path, std::int16_t index);
  void showNotice();
  void cutOldEnd();
  void addNotice();
  bool mayWriteOver(const std::string& path, std::int16_t index);  // false: the user does not want it
  void showInTwins(const std::string& path, std::int16_t index);
  bool askForOutside(const std::string& folder, std::vector<std::string>& names, bool& dropped);
  std::string nameInProject(const std::string& path) const;
  void openText(const std::string& path);
  void addFile(const std::string& path, std::string& failed);  // into list and project; `failed` gets a line
  // Shows nothing: an empty untitled document without a record.
  void showNothing();
  void newPage();  // as the settings want it
  void applyEditorSettings();

  bool saveAllChanged();  // false: cancelled
  bool saveAll(const std::vector<std::int16_t>& documents);
  // Asks whether to save; runs `save` on Yes. False: the user wants to stay.
  bool askAndSave(const ui::Text& question, ui::Text title, const std::function<bool()>& save);
  // The same with the names of the unsaved documents, of which `save` gets those that were chosen.
  bool askWhichToSave(const ui::Text& question, ui::Text title,
                      const std::function<bool(const std::vector<std::int16_t>&)>& save);
  void keepForNextRun();
  bool leaveDocuments();  // the prompts before the documents go; false: stay
  bool offerProject();    // false: cancelled, like the two below
  bool offerInclusion();
  bool include(const std::vector<std::int16_t>& chosen);
  bool copyIntoProject(std::int16_t index);
  std::optional<std::vector<std::int16_t>> chooseFiles(const std::vector<std::int16_t>& offered);
  std::vector<std::int16_t> outsideProject();
  void writeProjectFile();
  std::string projectFile() const { return WebProject.WEBpath + WebProject.WEBtitle; }

  ui::Platform& platform_;
  ui::ErrorGate errors_{[this](const std::exception& error) { showError(platform_, error); }};
  std::map<int, Command> commands_;
  std::vector<const Command*> rows_;  // the same, in the order in which they were added
  std::string commandLine_;
  std::string shownName_;             // in the caption
  bool shownChanged_ = false;         // the caption bears the mark
  std::vector<std::int16_t> tabbed_;  // position in the list, by tab of TS; -1: the shown one has none

  bool diskDue_ = false;         // the window became the active one: files may have changed meanwhile
  bool busy_ = false;            // a long command lets window events run: no other may begin
  bool reopenHeldBack_ = false;  // ReopenLastFile is set, but off for this run
  bool switching_ = false;       // a switch of documents is under way: its own clicks are not followed
};

}  // namespace app
