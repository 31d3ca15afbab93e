#include "app/FrmH.h"

#include <algorithm>

#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/menu_names.h"
#include "base/cp1252.h"
#include "base/files.h"
#include "base/path.h"
#include "base/utf8.h"

namespace app {
namespace {

// Rows may have been left out: no separator stands first, last or beside another.
void tidySeparators(std::vector<ui::MenuItem>& items) {
  const auto both = [](const ui::MenuItem& a, const ui::MenuItem& b) {
    return a.separator() && b.separator();
  };
  items.erase(std::unique(items.begin(), items.end(), both), items.end());
  if (!items.empty() && items.front().separator()) items.erase(items.begin());
  if (!items.empty() && items.back().separator()) items.pop_back();
}

}  // namespace

FrmH::FrmH(ui::Platform& platform, ui::CodeView& codeView)
    : MainForm("FrmH", IDD_FrmH, codeView), platform_(platform) {
  showName("");
  platform_.onHelp([this](const ui::Form& form) {
    guarded(platform_, [&] { ShowHelp(platform_, "ka/" + std::string(form.name()) + ".htm"); });
  });
  TV.hint = "დოკუმენტები";
  using enum ui::FileIcon;
  TV.icons = {{kIconPages, Page},    {kIconPictures, Picture}, {kIconSounds, Sound},
              {kIconOthers, Other},  {kIconPage, Page},        {kIconStyle, Style},
              {kIconScript, Script}, {kIconXml, Xml},          {kIconOther, Other},
              {kIconMedia, Sound},   {kIconPicture, Picture},  {kIconPictureData, Picture}};
  TV.nodeClicked.connect([this](int node) { guarded(platform_, [&] { TV_NodeClick(node); }); });
  TV.contextMenu.connect([this] { guarded(platform_, [&] { TV_ContextMenu(); }); });
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
  T1.entering = [this](const ui::TextClip& clip) {
    std::string bytes;
    if (!busy_) guarded(platform_, [&] { bytes = entering(clip); });
    return bytes;
  };
  // A byte where there is one, or else UTF-8, where nobody gives typing another meaning.
  typed = [this](char32_t character) {
    const auto byte = T1.view() == ui::TextView::EightBit ? base::byteOfChar(character) : std::nullopt;
    if (byte) return std::string(1, static_cast<char>(*byte));
    std::string utf8;
    base::appendUtf8(utf8, character);
    return utf8;
  };
  entering = [](const ui::TextClip& clip) { return clip.letters; };
  clipOf = [](std::string bytes) { return ui::TextClip{bytes, bytes}; };
  addNotice();
  addOwnCommands();
}

void FrmH::addOwnCommands() {
  const auto always = CommandRule();
  const auto selection = [](const CommandState& state) { return state.hasSelection; };
  const auto onDocument = [this](const CommandState&) { return selectedDocument() >= 0; };
  addCommands({
      {mnunewF, "mnunewF", "|1|&ახალი გვერდი", ui::ctrl('N'), [this] { newPage(); }, always, nullptr,
       "ახალი HTML დოკუმენტი"},
      {mnunewT, "mnunewT", "|2|ახალი &ტექსტი", ui::ctrlShift('N'), [this] { mnunewF_Click(".TXT", ""); },
       always, nullptr, "ახალი ტექსტური დოკუმენტი"},
      {mnuOpen, "mnuOpen", "|3|&გახსნა...", ui::ctrl('O'), [this] { mnuOpen_Click(); }, always, nullptr,
       "ფაილის ან პროექტის გახსნა"},
      {mnuSave, "mnuSave", "|4|&შენახვა", ui::ctrl('S'), [this] { SaveDocument("", -1); }, always, nullptr,
       "დოკუმენტის შენახვა"},
      {mnuSaveas, "mnuSaveas", "|21|შენახვა &როგორც...", ui::ctrlShift('S'), [this] { mnuSaveas_Click(); },
       always, nullptr, "დოკუმენტის შენახვა სხვა სახელით"},
      {mnuSaveWEB, "mnuSaveWEB", "|30|&პროექტის შენახვა", ui::ctrlShift('P'), [this] { SaveProject(true); },
       [](const CommandState& state) { return state.webOpened || state.documents > 0; }, nullptr,
       "პროექტის ყველა დოკუმენტის და პროექტის ფაილის შენახვა"},
      {mnuCloseWEB,
       "mnuCloseWEB",
       "|31|პროექტის &დახურვა",
       {},
       [this] { mnuCloseWEB_Click(); },
       [](const CommandState& state) { return state.webOpened; },
       nullptr,
       "პროექტის დახურვა"},
      {mnuClose, "mnuClose", "|32|დოკუმენტის და&ხურვა", ui::ctrl('W'), [this] { mnuClose_Click(); },
       // A project's document leaves the list only together with its project.
       [](const CommandState& state) { return !state.inProject; }, nullptr, "დოკუმენტის დახურვა"},
      {mnunewwind,
       "mnunewwind",
       "|33|ახალი ფან&ჯარა",
       {},
       [this] {
         platform_.startProcess("\"" + base::joinPath(platform_.programFolder(), "Zervo.exe") + "\" NOMAX");
       },
       always,
       nullptr,
       "პროგრამის მეორე ფანჯარა"},
      {mnuExit,
       "mnuExit",
       "|34|გა&სვლა",
       {},
       [this] {
         if (queryClose()) close();
       },
       always,
       nullptr,
       "პროგრამიდან გასვლა"},

      {mnuwebAdd,
       "mnuwebAdd",
       "|35|ფაილების &ჩამატება...",
       {},
       [this] { mnuwebAdd_Click(); },
       always,
       nullptr,
       "ფაილების ჩამატება სიაში და პროექტში"},
      {mnuwebRemove,
       "mnuwebRemove",
       "|37|სიიდან &ამოშლა",
       {},
       [this] { mnuwebRemove_Click(); },
       onDocument,
       nullptr,
       "დოკუმენტის ამოშლა სიიდან და პროექტიდან; ფაილი დისკზე რჩება"},
      {mnuwebRename,
       "mnuwebRename",
       "|36|სახელის &შეცვლა...",
       {},
       [this] { mnuwebRename_Click(); },
       onDocument,
       nullptr,
       "დოკუმენტის ფაილის სახელის შეცვლა"},

      {mnuUndo, "mnuUndo", "|12|&გაუქმება", ui::ctrl('Z'), [this] { T1.undo(); },
       [](const CommandState& state) { return state.canUndo; }, nullptr, "ბოლო ცვლილების გაუქმება"},
      // Ctrl+Y types a no-break space.
      {mnuRedo, "mnuRedo", "|13|გა&მეორება", ui::ctrlShift('Z'), [this] { T1.redo(); },
       [](const CommandState& state) { return state.canRedo; }, nullptr, "გაუქმებულის დაბრუნება"},
      {mnuCut, "mnuCut", "|6|ამო&ჭრა", ui::ctrl('X'),
       [this] {
         platform_.setClipboard(clipOf(T1.selText()));
         T1.replaceSelection("");
       },
       selection, nullptr, "მონიშნულის გადატანა ბუფერში"},
      {mnuPaste, "mnuPaste", "|7|&ჩასმა", ui::ctrl('V'), [this] { T1.paste(); },
       [](const CommandState& state) { return state.canPaste; }, nullptr, "ბუფერის ტექსტის ჩასმა"},
      {mnuDelete,
       "mnuDelete",
       "|9|&წაშლა",
       {},
       [this] { T1.replaceSelection(""); },
       selection,
       nullptr,
       "მონიშნულის წაშლა"},
      {mnuSelectAll, "mnuSelectAll", "|18|ყველას მო&ნიშვნა", ui::ctrl('A'),
       [this] { T1.select(0, static_cast<int>(T1.text().size())); },
       [](const CommandState& state) { return state.hasText; }, nullptr, "მთელი ტექსტის მონიშვნა"},

      {mnuHelp,
       "mnuHelp",
       "|54|&დახმარება",
       {ui::kKeyF1, false, false, false},
       [this] { ShowHelp(platform_, "ka/index.htm"); },
       [this](const CommandState&) {
         return base::fileExists(base::joinPath(platform_.programFolder(), "Zervo.chm"));
       },
       nullptr,
       "დახმარების ფაილი"},
  });
  addMenu({kFileMenu,
           {{mnunewF, {}, {}},
            {mnunewT, {}, {}},
            {mnuOpen, {}, {}},
            {0, {}, {}},
            {mnuSave, {}, {}},
            {mnuSaveas, {}, {}},
            {mnuClose, {}, {}},
            {0, {}, {}},
            {mnuSaveWEB, {}, {}},
            {mnuCloseWEB, {}, {}},
            {0, {}, {}},
            {mnunewwind, {}, {}},
            {mnuExit, {}, {}}}});
  addMenu({kEditMenu,
           {{mnuUndo, {}, {}},
            {mnuRedo, {}, {}},
            {0, {}, {}},
            {mnuCut, {}, {}},
            {mnuCopy, {}, {}},
            {mnuPaste, {}, {}},
            {mnuDelete, {}, {}},
            {mnuSelectAll, {}, {}},
            {0, {}, {}}}});
  addToolBar({{mnunewF, ui::ToolIcon::NewPage, "ახალი გვერდი (Ctrl+N)"},
              {mnuOpen, ui::ToolIcon::Open, "გახსნა (Ctrl+O)"},
              {mnuSave, ui::ToolIcon::Save, "შენახვა (Ctrl+S)"},
              {mnuUndo, ui::ToolIcon::Undo, "გაუქმება (Ctrl+Z)"},
              {mnuRedo, ui::ToolIcon::Redo, "გამეორება (Ctrl+Shift+Z)"},
              {}});
  addMenu({kTypingMenu, {}});
  addMenu({kTagsMenu, {}});
  addMenu({kLinesMenu, {}});
  addViewCommands();
  addMenu({kHelpMenu, {{mnuHelp, {}, {}}, {mnuAbout, {}, {}}}});
}

void FrmH::addCommands(std::vector<Command> rows) {
  for (Command& row : rows) {
    const int id = row.id;
    if (!row.run) throw std::logic_error("command without a handler");
    if (!commands_.emplace(id, std::move(row)).second) throw std::logic_error("command added twice");
  }
}

void FrmH::addMenu(const MenuPlan& plan) {
  const auto at = std::find_if(menuPlans_.begin(), menuPlans_.end(),
                               [&](const MenuPlan& known) { return known.caption == plan.caption; });
  if (at == menuPlans_.end()) {
    menuPlans_.push_back(plan);
    return;
  }
  for (const MenuPlan::Line& line : plan.lines) {
    const bool there = line.command != 0 &&
                       std::any_of(at->lines.begin(), at->lines.end(), [&](const MenuPlan::Line& known) {
                         return known.command == line.command;
                       });
    if (there) continue;
    // What others add stands above "Exit", which users look for at the end.
    const bool endsWithExit = !at->lines.empty() && at->lines.back().command == mnuExit;
    at->lines.insert(at->lines.end() - (endsWithExit ? 1 : 0), line);
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
  const auto item = [this](int id) -> std::optional<ui::MenuItem> {
    if (id == 0) return ui::MenuItem{};
    const auto row = commands_.find(id);
    if (row == commands_.end()) return std::nullopt;
    ui::MenuItem made;
    made.caption = row->second.text ? row->second.text() : row->second.caption;
    if (made.caption.empty()) return std::nullopt;
    made.command = id;
    made.shortcut = row->second.shortcut;
    made.help = row->second.help;
    made.ownKey = row->second.ownKey;
    return made;
  };
  menus.clear();
  for (const MenuPlan& plan : menuPlans_) {
    ui::MenuItem top;
    top.caption = plan.caption;
    for (const MenuPlan::Line& line : plan.lines) {
      if (line.lines.empty()) {
        if (auto made = item(line.command)) top.items.push_back(std::move(*made));
        continue;
      }
      ui::MenuItem submenu;
      submenu.caption = line.submenu;
      submenu.help = line.help;
      std::vector<int> rows = line.lines;
      if (line.listed) {
        const std::vector<int> listed = line.listed();
        rows.insert(rows.end(), listed.begin(), listed.end());
      }
      for (const int id : rows) {
        if (auto made = item(id)) submenu.items.push_back(std::move(*made));
      }
      tidySeparators(submenu.items);
      top.items.push_back(std::move(submenu));
    }
    tidySeparators(top.items);
    menus.push_back(std::move(top));
  }
  menuOpening();
  if (window != nullptr) window->menusChanged();
}

void FrmH::menuTextsChanged() {
  if (!menus.empty()) buildMenus();  // else they are not made yet
}

CommandState FrmH::commandState() {
  CommandState state;
  state.hasText = !T1.text().empty();
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
    item.radio = command.radio;
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
  guarded(platform_, [&] { row->second.run(); });
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
  for (const std::string& path : paths) guarded(platform_, [&] { ofnen(path); });
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
