#include "tests/gui/driver.h"

#include <commctrl.h>
// windows.h first
#include <Scintilla.h>

#include <chrono>
#include <fstream>
#include <system_error>

#include "resources/ids.h"

namespace gui {
namespace {

constexpr int kFileNameOfCommonDialog = 0x47c;

// Memory of another process, for messages that carry pointers.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, std::size_t size) : size_(size) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    address_ = process_ == nullptr
                   ? nullptr
                   : VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (address_ == nullptr) throw Failure("no memory in the program");
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }

  template <class T>
  T* as(std::size_t offset = 0) const {
    return reinterpret_cast<T*>(static_cast<char*>(address_) + offset);
  }
  template <class T>
  void put(const T& value) const {
    if (!WriteProcessMemory(process_, address_, &value, sizeof value, nullptr)) throw Failure("cannot write");
  }
  template <class T>
  T get() const {
    T value;
    if (!ReadProcessMemory(process_, address_, &value, sizeof value, nullptr)) throw Failure("cannot read");
    return value;
  }
  template <class Char>
  std::basic_string<Char> string(std::size_t offset, std::size_t length) const {
    std::basic_string<Char> text(length, Char{});
    if (!ReadProcessMemory(process_, as<char>(offset), text.data(), length * sizeof(Char), nullptr)) {
      throw Failure("cannot read");
    }
    return text;
  }

 private:
  HANDLE process_;
  void* address_;
  std::size_t size_;
};

// A message that must be answered: a program that hangs fails the test instead of stopping it.
LRESULT send(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0) {
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(window, message, first, second, SMTO_NORMAL, 60'000, &answer) == 0) {
    throw Failure("the window does not answer message " + std::to_string(message));
  }
  return static_cast<LRESULT>(answer);
}

template <class T>
LPARAM pointer(T* address) {
  return reinterpret_cast<LPARAM>(address);
}

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(send(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(send(window, WM_GETTEXT, text.size(), pointer(text.data()))));
  return text;
}

std::wstring className(HWND window) {
  wchar_t name[256];
  return {name, static_cast<std::size_t>(GetClassNameW(window, name, 256))};
}

struct Search {
  DWORD process = 0;
  int id = 0;
  std::wstring notClass;
  HWND found = nullptr;
};

BOOL CALLBACK findChild(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (GetDlgCtrlID(window) != search.id) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK findMain(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if ((search.process != 0 && process != search.process) || !IsWindowVisible(window) ||
      className(window) != L"FrmH") {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

BOOL CALLBACK findDialog(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const std::wstring name = className(window);
  if (process != search.process || !IsWindowVisible(window) || !IsWindowEnabled(window) ||
      GetWindow(window, GW_OWNER) == nullptr || name == L"FrmH" || name.find(L"tooltips") == 0 ||
      (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

HWND child(HWND window, int id) {
  Search search;
  search.id = id;
  EnumChildWindows(window, findChild, pointer(&search));
  return search.found;
}

}  // namespace

std::wstring wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring result(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), 0);
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, result.data(), static_cast<int>(result.size()));
  return result;
}

std::string utf8(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  std::string result(static_cast<std::size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr)),
                     0);
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, result.data(), static_cast<int>(result.size()), nullptr,
                      nullptr);
  return result;
}

void waitFor(const std::string& what, const std::function<bool()>& condition, double seconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) throw Failure("waited in vain for: " + what);
    Sleep(15);
  }
}

void writeBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw Failure("cannot write " + utf8(path.wstring()));
}

std::string readBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void setClipboard(std::wstring_view text) {
  waitFor("the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
  EmptyClipboard();
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  auto* copy = static_cast<wchar_t*>(GlobalLock(memory));
  text.copy(copy, text.size());
  copy[text.size()] = 0;
  GlobalUnlock(memory);
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
}

std::wstring clipboard() {
  waitFor("the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
  std::wstring text;
  if (HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    text = static_cast<const wchar_t*>(GlobalLock(memory));
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return text;
}

namespace {

// Read-only files too.
void erase(const std::filesystem::path& folder) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, ignored)) {
    SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  std::filesystem::remove_all(folder, ignored);
}

}  // namespace

Folder::Folder(const std::wstring& name) {
  static int count = 0;
  path = std::filesystem::temp_directory_path() /
         (name + L"-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count));
  erase(path);  // of a test that was stopped
  std::filesystem::create_directories(path);
}

Folder::~Folder() {
  erase(path);
}

std::string Dialog::title() const {
  return utf8(windowText(window_));
}

std::string Dialog::text(int control) const {
  const HWND found = child(window_, control);
  if (found == nullptr) throw Failure("the dialog has no control " + std::to_string(control));
  return utf8(windowText(found));
}

std::string Dialog::boxText() const {
  const std::string label = text(IDC_frmBOXa_LBtext);
  if (!IsWindowVisible(child(window_, IDC_frmBOXa_Tlist))) return label;
  return text(IDC_frmBOXa_Tlist) + (label.empty() ? "" : "\r\n\r\n" + label);
}

void Dialog::press(int button) const {
  const HWND found = child(window_, button);
  if (found == nullptr || !IsWindowVisible(found))
    throw Failure("the dialog shows no button " + std::to_string(button));
  PostMessageW(window_, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), pointer(found));
  waitFor("the dialog to close", [this] { return !IsWindow(window_) || !IsWindowVisible(window_); });
}

void Dialog::chooseFile(const std::filesystem::path& path) const {
  const std::wstring name = path.wstring();
  waitFor("the file name field", [this] { return child(window_, kFileNameOfCommonDialog) != nullptr; });
  send(child(window_, kFileNameOfCommonDialog), WM_SETTEXT, 0, pointer(name.c_str()));
  PostMessageW(window_, WM_COMMAND, IDOK, 0);
  waitFor("the file dialog to close", [this] { return !IsWindow(window_) || !IsWindowVisible(window_); });
}

Zervo::Zervo(const std::filesystem::path& program, const std::wstring& arguments) {
  std::wstring line = L"\"" + program.wstring() + L"\"" + (arguments.empty() ? L"" : L" " + arguments);
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION made = {};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      program.parent_path().c_str(), &start, &made)) {
    throw Failure("cannot start " + utf8(program.wstring()) + ": error " + std::to_string(GetLastError()));
  }
  CloseHandle(made.hThread);
  process_ = made.hProcess;
  ours_ = true;
  try {
    WaitForInputIdle(process_, 30'000);
    waitFor("the main window", [this] {
      if (!alive()) throw Failure("the program ended at once");
      findWindow();
      return window_ != nullptr;
    });
  } catch (...) {
    TerminateProcess(process_, 99);
    CloseHandle(process_);
    throw;
  }
}

Zervo Zervo::started(const std::filesystem::path& program, const std::wstring& arguments) {
  Zervo zervo(program, arguments);
  zervo.ours_ = false;
  return zervo;
}

Zervo Zervo::running() {
  Zervo found;
  waitFor("a main window", [&] {
    found.findWindow();
    return found.window_ != nullptr;
  });
  DWORD id = 0;
  GetWindowThreadProcessId(found.window_, &id);
  found.process_ = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, id);
  return found;
}

Zervo::Zervo(Zervo&& other) noexcept : process_(other.process_), window_(other.window_), ours_(other.ours_) {
  other.process_ = nullptr;
  other.ours_ = false;
}

Zervo::~Zervo() {
  if (ours_ && alive()) {
    TerminateProcess(process_, 99);
    WaitForSingleObject(process_, 10'000);
  }
  if (process_ != nullptr) CloseHandle(process_);
}

void Zervo::findWindow() {
  Search search;
  search.process = process_ == nullptr ? 0 : GetProcessId(process_);
  EnumWindows(findMain, pointer(&search));
  window_ = search.found;
}

HWND Zervo::control(int id) const {
  const HWND found = child(window_, id);
  if (found == nullptr) throw Failure("the main window has no control " + std::to_string(id));
  return found;
}

std::string Zervo::caption() const {
  return utf8(windowText(window_));
}

void Zervo::command(int id) const {
  PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(id), 0);
}

std::string Zervo::text() const {
  const HWND view = control(IDC_FrmH_T1);
  const auto length = static_cast<std::size_t>(send(view, SCI_GETLENGTH));
  const RemoteMemory memory(view, length + 1);
  const LRESULT got = send(view, SCI_GETTEXT, length, pointer(memory.as<char>()));
  return memory.string<char>(0, static_cast<std::size_t>(got));
}

bool Zervo::showsUtf8() const {
  return send(control(IDC_FrmH_T1), SCI_GETCODEPAGE) == SC_CP_UTF8;
}

void Zervo::waitForText(const std::string& bytes) const {
  std::string seen;
  try {
    waitFor(
        "the text", [&] { return (seen = text()) == bytes; }, 15);
  } catch (const Failure&) {
    throw Failure("the code view shows\n" + seen + "\ninstead of\n" + bytes);
  }
}

void Zervo::select(int start, int end) const {
  send(control(IDC_FrmH_T1), SCI_SETSEL, static_cast<WPARAM>(start), end);
}

Range Zervo::selection() const {
  const HWND view = control(IDC_FrmH_T1);
  return {static_cast<int>(send(view, SCI_GETSELECTIONSTART)),
          static_cast<int>(send(view, SCI_GETSELECTIONEND))};
}

COLORREF Zervo::textColor(int position) const {
  const HWND view = control(IDC_FrmH_T1);
  const auto style = static_cast<unsigned char>(send(view, SCI_GETSTYLEAT, static_cast<WPARAM>(position)));
  return static_cast<COLORREF>(send(view, SCI_STYLEGETFORE, style));
}

void Zervo::type(wchar_t character) const {
  PostMessageW(control(IDC_FrmH_T1), WM_CHAR, character, 1);
}

namespace {

constexpr std::size_t kMaxTitle = 400;

struct Node {
  HTREEITEM item;
  int depth;
  std::string title;
};

void addNodes(HWND tree, const RemoteMemory& memory, HTREEITEM item, int depth, std::vector<Node>& nodes) {
  for (; item != nullptr;
       item = reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, TVGN_NEXT, pointer(item)))) {
    TVITEMW question = {};
    question.mask = TVIF_TEXT | TVIF_HANDLE;
    question.hItem = item;
    question.pszText = memory.as<wchar_t>(sizeof question);
    question.cchTextMax = kMaxTitle;
    memory.put(question);
    send(tree, TVM_GETITEMW, 0, pointer(memory.as<TVITEMW>()));
    const std::wstring text = memory.string<wchar_t>(sizeof question, kMaxTitle);
    nodes.push_back({item, depth, utf8(text.substr(0, text.find(L'\0')))});
    addNodes(tree, memory,
             reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, TVGN_CHILD, pointer(item))), depth + 1,
             nodes);
  }
}

std::vector<Node> nodesOf(HWND tree) {
  const RemoteMemory memory(tree, sizeof(TVITEMW) + kMaxTitle * sizeof(wchar_t));
  std::vector<Node> nodes;
  addNodes(tree, memory, reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, TVGN_ROOT)), 0, nodes);
  return nodes;
}

}  // namespace

std::vector<std::string> Zervo::tree() const {
  std::vector<std::string> titles;
  for (const Node& node : nodesOf(control(IDC_FrmH_TV))) {
    titles.push_back(std::string(static_cast<std::size_t>(2 * node.depth), ' ') + node.title);
  }
  return titles;
}

void Zervo::clickNode(const std::string& title) const {
  const HWND tree = control(IDC_FrmH_TV);
  for (const Node& node : nodesOf(tree)) {
    if (node.title != title || node.depth == 0) continue;
    send(tree, TVM_ENSUREVISIBLE, 0, pointer(node.item));
    union {  // the question is written where the answer comes
      HTREEITEM item;
      RECT place;
    } area = {};
    area.item = node.item;
    const RemoteMemory memory(tree, sizeof area);
    memory.put(area);
    if (send(tree, TVM_GETITEMRECT, TRUE, pointer(memory.as<RECT>())) == 0)
      throw Failure("the node is hidden: " + title);
    const RECT place = memory.get<RECT>();
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    PostMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(tree, WM_LBUTTONUP, 0, point);
    return;
  }
  throw Failure("the tree has no node " + title);
}

std::string Zervo::status(int panel) const {
  const HWND bar = control(IDC_FrmH_Status);
  const auto length =
      static_cast<std::size_t>(LOWORD(send(bar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(panel))));
  const RemoteMemory memory(bar, (length + 1) * sizeof(wchar_t));
  send(bar, SB_GETTEXTW, static_cast<WPARAM>(panel), pointer(memory.as<wchar_t>()));
  return utf8(memory.string<wchar_t>(0, length));
}

Dialog Zervo::dialog() const {
  Search search;
  search.process = GetProcessId(process_);
  EnumWindows(findDialog, pointer(&search));
  return Dialog(search.found);
}

Dialog Zervo::waitForDialog() const {
  Dialog found;
  waitFor("a dialog", [&] {
    if (!alive()) throw Failure("the program ended instead of asking");
    found = dialog();
    return static_cast<bool>(found) && !IsWindowEnabled(window_);
  });
  return found;
}

std::string Zervo::answer(int button) const {
  const Dialog box = waitForDialog();
  waitFor("the text of the box", [&] { return child(box.window(), IDC_frmBOXa_LBtext) != nullptr; });
  const std::string text = box.boxText();
  box.press(button);
  return text;
}

void Zervo::waitUntilFree() const {
  waitFor("the program to be free", [this] { return IsWindowEnabled(window_) && !dialog(); });
  send(window_, WM_NULL);
}

bool Zervo::alive() const {
  return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

DWORD Zervo::waitForEnd() {
  waitFor("the program to end", [this] { return !alive(); });
  DWORD code = 0;
  GetExitCodeProcess(process_, &code);
  return code;
}

}  // namespace gui
