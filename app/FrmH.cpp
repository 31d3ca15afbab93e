#include "app/FrmH.h"

#include <algorithm>

#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/cp1252.h"
#include "base/files.h"
#include "base/path.h"
#include "base/utf8.h"

namespace app {
FrmH::FrmH(ui::Platform& platform, ui::CodeView& codeView)
    : MainForm("FrmH", IDD_FrmH, codeView), platform_(platform) {
  showName("");
  platform_.onHelp(
      [this](const ui::Form& form) { ShowHelp(platform_, "ka/" + std::string(form.name()) + ".htm"); });
  TV.hint = "დოკუმენტები";
  using enum ui::FileIcon;
  TV.icons = {{kIconPages, Page},    {kIconPictures, Picture}, {kIconSounds, Sound},
              {kIconOthers, Other},  {kIconPage, Page},        {kIconStyle, Style},
              {kIconScript, Script}, {kIconXml, Xml},          {kIconOther, Other},
              {kIconMedia, Sound},   {kIconPicture, Picture},  {kIconPictureData, Picture}};
  TV.nodeClicked.connect([this](int node) { TV_NodeClick(node); });
  TV.contextMenu.connect([this] { TV_ContextMenu(); });
  TV.draggable = [this](int node) { return !busy_ && documentOfNode(node) >= 0; };
  TV.canDropOn = [this](int node, int target) { return TV_CanDropOn(node, target); };
  TV.droppedOn.connect([this](int node, int target) { perform([&] { TV_DroppedOn(node, target); }); });
  TV.droppedInText.connect([this](int node) {
    perform([&] {
      documentDropped(documentOfNode(node));
      T1.setFocus();
    });
  });
  TS.hint = "გახსნილი დოკუმენტები";
  TS.movable = true;
  TS.chosen.connect([this](int tab) {
    perform([&] {
      const std::int16_t document = tabbed_[static_cast<std::size_t>(tab)];
      if (document >= 0) showDocument(document);
      T1.setFocus();
    });
    showTabs();
  });
  TS.closeAsked.connect([this](int tab) { perform([&] { TS_CloseAsked(tab); }); });
  TS.moved.connect([this](int from, int to) { perform([&] { TS_Moved(from, to); }); });
  Status.panelClicked.connect([this](std::string_view key) { perform([&] { panelClicked(key); }); });
  leftPane = &TV;
  above = &TS;
  rightTabs = &Ttags;
  rightPane = &Ltags;
  T1.changed.connect([this] { T1_Change(); });
  T1.selectionChanged.connect([this] { T1_SelChange(); });
  T1.keyDown.connect([this](int key) { keyDown(key); });
  T1.keyUp.connect([this](int key) { keyUp(key); });
  T1.reformed.connect([this] { T1_Reformed(); });
  T1.typed = [this](char32_t character) { return busy_ ? std::string() : typed(character); };
  T1.controlTyped = [this](int code) {
    if (!busy_ && controlTyped) controlTyped(code);
  };
  T1.entering = [this](const ui::TextClip& clip) { return busy_ ? std::string() : entering(clip); };
  // A byte where there is one, or else UTF-8, where nobody gives typing another meaning.
  typed = [this](char32_t character) {
    const auto byte = T1.view() == ui::TextView::EightBit ? base::byteOfChar(character) : std::nullopt;
    if (byte) return std::string(1, static_cast<char>(*byte));
    std::string utf8;
    base::appendUtf8(utf8, character);
    return utf8;
  };
  entering = [](const ui::TextClip& clip) { return clip.letters; };
  clipOf = [](const std::string& bytes) { return ui::TextClip{bytes, bytes}; };
  addNotice();
  addOwnCommands();
}

void FrmH::addOwnCommands() {
  using ui::MenuIcon;
  const auto onDocument = [this](const CommandState&) { return selectedDocument() >= 0; };
  addCommands({
      {.id = mnunewF,
       .icon = MenuIcon::NewPage,
       .caption = "&ახალი გვერდი",
       .place = {&kFileMenu, 1},
       .shortcut = ui::ctrl('N'),
       .run = [this] { newPage(); },
       .help = "ახალი HTML დოკუმენტი"},
      {.id = mnunewT,
       .icon = MenuIcon::NewText,
       .caption = "ახალი &ტექსტი",
       .place = {&kFileMenu, 1},
       .shortcut = ui::ctrlShift('N'),
       .run = [this] { mnunewF_Click(".TXT", ""); },
       .help = "ახალი ტექსტური დოკუმენტი"},
      {.id = mnuOpen,
       .icon = MenuIcon::Open,
       .caption = "&გახსნა...",
       .place = {&kFileMenu, 1},
       .shortcut = ui::ctrl('O'),
       .run = [this] { mnuOpen_Click(); },
       .help = "ფაილის ან პროექტის გახსნა"},
      {.id = mnuSave,
       .icon = MenuIcon::Save,
       .caption = "&შენახვა",
       .place = {&kFileMenu, 2},
       .shortcut = ui::ctrl('S'),
       .run = [this] { SaveDocument("", -1); },
       .help = "დოკუმენტის შენახვა"},
      {.id = mnuSaveas,
       .icon = MenuIcon::SaveAs,
       .caption = "შენახვა &როგორც...",
       .place = {&kFileMenu, 2},
       .shortcut = ui::ctrlShift('S'),
       .run = [this] { mnuSaveas_Click(); },
       .help = "დოკუმენტის შენახვა სხვა სახელით"},
      {.id = mnuClose,
       .icon = MenuIcon::Close,
       .caption = "დოკუმენტის და&ხურვა",
       .place = {&kFileMenu, 2},
       .shortcut = ui::ctrl('W'),
       .run = [this] { mnuClose_Click(); },
       // A project's document leaves the list only together with its project.
       .enabled = [](const CommandState& state) { return !state.inProject; },
       .help = "დოკუმენტის დახურვა"},
      {.id = mnuSaveWEB,
       .icon = MenuIcon::SaveProject,
       .caption = "&პროექტის შენახვა",
       .place = {&kFileMenu, 3},
       .shortcut = ui::ctrlShift('P'),
       .run = [this] { SaveProject(true); },
       .enabled = [](const CommandState& state) { return state.webOpened || state.documents > 0; },
       .help = "პროექტის ყველა დოკუმენტის და პროექტის ფაილის შენახვა"},
      {.id = mnuCloseWEB,
       .icon = MenuIcon::CloseProject,
       .caption = "პროექტის &დახურვა",
       .place = {&kFileMenu, 3},
       .run = [this] { mnuCloseWEB_Click(); },
       .enabled = [](const CommandState& state) { return state.webOpened; },
       .help = "პროექტის დახურვა"},
      {.id = mnunewwind,
       .icon = MenuIcon::NewWindow,
       .caption = "ახალი ფან&ჯარა",
       .place = {&kFileMenu, 4},
       .run =
           [this] {
             platform_.startProcess("\"" + base::joinPath(platform_.programFolder(), "Zervo.exe") +
                                    "\" NOMAX");
           },
       .help = "პროგრამის მეორე ფანჯარა"},
      {.id = mnuExit,
       .icon = MenuIcon::Exit,
       .caption = "გა&სვლა",
       .place = {&kFileMenu, 99},
       .run =
           [this] {
             if (queryClose()) close();
           },
       .help = "პროგრამიდან გასვლა"},

      // In the menu of the tree alone.
      {.id = mnuwebAdd,
       .icon = MenuIcon::AddFiles,
       .caption = "ფაილების &ჩამატება...",
       .run = [this] { mnuwebAdd_Click(); },
       .help = "ფაილების ჩამატება სიაში და პროექტში"},
      {.id = mnuwebRemove,
       .icon = MenuIcon::Remove,
       .caption = "სიიდან &ამოშლა",
       .run = [this] { mnuwebRemove_Click(); },
       .enabled = onDocument,
       .help = "დოკუმენტის ამოშლა სიიდან და პროექტიდან; ფაილი დისკზე რჩება"},
      {.id = mnuwebRename,
       .icon = MenuIcon::Rename,
       .caption = "სახელის &შეცვლა...",
       .run = [this] { mnuwebRename_Click(); },
       .enabled = onDocument,
       .help = "დოკუმენტის ფაილის სახელის შეცვლა"},

      {.id = mnuUndo,
       .icon = MenuIcon::Undo,
       .caption = "&გაუქმება",
       .place = {&kEditMenu, 1},
       .shortcut = ui::ctrl('Z'),
       .run = [this] { T1.undo(); },
       .enabled = [](const CommandState& state) { return state.canUndo; },
       .help = "ბოლო ცვლილების გაუქმება"},
      {.id = mnuRedo,
       .icon = MenuIcon::Redo,
       .caption = "გა&მეორება",
       .place = {&kEditMenu, 1},
       .shortcut = ui::ctrlShift('Z'),  // Ctrl+Y types a no-break space
       .run = [this] { T1.redo(); },
       .enabled = [](const CommandState& state) { return state.canRedo; },
       .help = "გაუქმებულის დაბრუნება"},
      {.id = mnuCut,
       .icon = MenuIcon::Cut,
       .caption = "ამო&ჭრა",
       .place = {&kEditMenu, 2},
       .shortcut = ui::ctrl('X'),
       .run =
           [this] {
             platform_.setClipboard(clipOf(T1.selText()));
             T1.replaceSelection("");
           },
       .enabled = hasSelection,
       .help = "მონიშნულის გადატანა ბუფერში"},
      {.id = mnuPaste,
       .icon = MenuIcon::Paste,
       .caption = "&ჩასმა",
       .place = {&kEditMenu, 2, 2},
       .shortcut = ui::ctrl('V'),
       .run = [this] { T1.paste(); },
       .enabled = [](const CommandState& state) { return state.canPaste; },
       .help = "ბუფერის ტექსტის ჩასმა"},
      {.id = mnuDelete,
       .icon = MenuIcon::Delete,
       .caption = "&წაშლა",
       .place = {&kEditMenu, 2, 2},
       .run = [this] { T1.replaceSelection(""); },
       .enabled = hasSelection,
       .help = "მონიშნულის წაშლა"},
      {.id = mnuSelectAll,
       .icon = MenuIcon::SelectAll,
       .caption = "ყველას მო&ნიშვნა",
       .place = {&kEditMenu, 2, 2},
       .shortcut = ui::ctrl('A'),
       .run = [this] { T1.select(0, static_cast<int>(T1.document()->size())); },
       .enabled = hasText,
       .help = "მთელი ტექსტის მონიშვნა"},

      {.id = mnuHelp,
       .icon = MenuIcon::Help,
       .caption = "&დახმარება",
       .place = {&kHelpMenu, 1},
       .shortcut = {ui::kKeyF1, false, false, false},
       .run = [this] { ShowHelp(platform_, "ka/index.htm"); },
       .enabled =
           [this](const CommandState&) {
             return base::fileExists(base::joinPath(platform_.programFolder(), "Zervo.chm"));
           },
       .help = "დახმარების ფაილი"},
  });
  addToolBar({{mnunewF, ui::ToolIcon::NewPage, "ახალი გვერდი (Ctrl+N)"},
              {mnuOpen, ui::ToolIcon::Open, "გახსნა (Ctrl+O)"},
              {mnuSave, ui::ToolIcon::Save, "შენახვა (Ctrl+S)"},
              {mnuUndo, ui::ToolIcon::Undo, "გაუქმება (Ctrl+Z)"},
              {mnuRedo, ui::ToolIcon::Redo, "გამეორება (Ctrl+Shift+Z)"},
              {}});
  addViewCommands();
}

void FrmH::addCommands(std::vector<Command> rows) {
  for (Command& row : rows) {
    const int id = row.id;
    if (!row.run) throw std::logic_error("command without a handler");
    const auto [at, added] = commands_.emplace(id, std::move(row));
    if (!added) throw std::logic_error("command added twice");
    rows_.push_back(&at->second);
  }
}

void FrmH::addToolBar(const std::vector<ui::ToolBarButton>& buttons) {
  toolBar.insert(toolBar.end(), buttons.begin(), buttons.end());
}

void FrmH::setToolColor(int command, base::Color color) {
  for (ui::ToolBarButton& button : toolBar) {
    if (button.command == command) button.color = color;
  }
  if (window != nullptr) window->toolBarChanged();
}

void FrmH::buildMenus() {
  menus = menuBar(rows_);
  menuOpening();
  if (window != nullptr) window->menusChanged();
}

void FrmH::menuTextsChanged() {
  if (!menus.empty()) buildMenus();  // else they are not made yet
}

std::vector<ui::MenuItem> FrmH::menuItems(const std::vector<int>& ids) {
  std::vector<ui::MenuItem> items;
  for (const int id : ids) items.push_back(menuItem(commands_.at(id)));
  refreshItems(items, commandState());
  return items;
}

CommandState FrmH::commandState() {
  CommandState state;
  state.hasText = T1.document()->size() > 0;  // asked after each key: text() would move the whole of it
  state.hasSelection = T1.selLength() > 0;
  state.canUndo = T1.canUndo();
  state.canRedo = T1.canRedo();
  state.canPaste = platform_.clipboardHasText();
  state.changed = FileChanged;
  state.untitled = CurrentFilePath.empty();
  state.webOpened = WebProject.WEBopened;
  state.inProject = CurrentItemIndex >= 0 && WebProject.Item(CurrentItemIndex).IsInWEB;
  state.documents = WebProject.Count();
  return state;
}

void FrmH::menuOpening() {
  const CommandState state = commandState();
  refreshItems(menus, state);
}

void FrmH::refreshItems(std::vector<ui::MenuItem>& items, const CommandState& state) {
  for (ui::MenuItem& item : items) {
    refreshItems(item.items, state);
    const auto row = commands_.find(item.command);
    if (row == commands_.end()) continue;
    const Command& command = row->second;
    item.enabled = !command.enabled || command.enabled(state);
    item.checked = command.checked && command.checked();
  }
}

void FrmH::refreshToolBar() {
  const CommandState state = commandState();
  bool changed = false;
  for (ui::ToolBarButton& button : toolBar) {
    const auto row = commands_.find(button.command);
    const bool enabled = row == commands_.end() || !row->second.enabled || row->second.enabled(state);
    changed = changed || enabled != button.enabled;
    button.enabled = enabled;
  }
  if (changed && window != nullptr) window->toolBarStates();
}

bool FrmH::runCommand(int id) {
  const auto row = commands_.find(id);
  if (row == commands_.end() || busy_) return false;
  if (row->second.enabled && !row->second.enabled(commandState())) return false;
  ui::atGate([&] { row->second.run(); });
  return true;
}

bool FrmH::commandChecked(int id) {
  const auto row = commands_.find(id);
  return row != commands_.end() && row->second.checked && row->second.checked();
}

void FrmH::setPanel(std::string_view key, ui::Text text) {
  Status.setPanel(key, std::move(text));
}

void FrmH::menuHighlighted(const ui::Text& help) {
  Status.setWhole(help);
}

void FrmH::filesDropped(const std::vector<std::string>& paths) {
  if (busy_) return;
  for (const std::string& path : paths) ui::atGate([&] { ofnen(path); });
}

void FrmH::TV_NodeClick(int node) {
  const ui::TreeView::Node& clicked = TV.nodes()[static_cast<std::size_t>(node)];
  if (busy_ || switching_ || clicked.tag.empty() || clicked.icon == kIconMedia ||
      clicked.icon == kIconPictureData)
    return;
  showDocument(static_cast<std::int16_t>(std::stoi(clicked.tag)));
}

void FrmH::T1_Change() {
  if (!Loading) FileChanged = true;
  if (FileChanged != shownChanged_) showName(shownName_);
  textChanged();
}

// A conversion, or its undoing: bytes that were letters of a font may be UTF-8 now.
void FrmH::T1_Reformed() {
  const auto document = T1.document();
  if (!document->viewChosen) {
    T1.setView(base::readsAsUtf8(T1.text()) ? ui::TextView::Utf8 : ui::TextView::EightBit);
  }
  viewChanged();
}

void FrmH::T1_SelChange() {
  const ui::CaretPlace place = T1.caret();
  setPanel("kPosition", "სტრიქონი " + std::to_string(place.line) + ", სვეტი " + std::to_string(place.column));
  selectionChanged();
}

void FrmH::saveProps() {
  WriteProps(platform_, storedProps());
}

PropsRecord FrmH::storedProps() const {
  PropsRecord stored = Props;
  stored.ReopenLastFile = stored.ReopenLastFile || reopenHeldBack_;
  return stored;
}

void FrmH::setProps(const PropsRecord& props) {
  WriteProps(platform_, props);
  Props = props;
  reopenHeldBack_ = reopenHeldBack_ && props.ReopenLastFile;
  if (reopenHeldBack_) Props.ReopenLastFile = false;
  applyEditorSettings();
  propsInForce();
}

}  // namespace app
