// Drives a Zervo.exe from outside, as a script does: by command and control ids, reading what its controls
// show. Nothing sleeps for a fixed time; everything waits for what it names and throws Failure when that does
// not come.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace gui {

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::wstring wide(std::string_view utf8);
std::string utf8(std::wstring_view wide);

void waitFor(const std::string& what, const std::function<bool()>& condition, double seconds = 30);

void writeBytes(const std::filesystem::path& path, std::string_view bytes);
std::string readBytes(const std::filesystem::path& path);  // empty when it cannot be read

void setClipboard(std::wstring_view text);
std::wstring clipboard();

// A new empty folder that goes away with the object.
class Folder {
 public:
  explicit Folder(const std::wstring& name = L"zervo");
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder();
  std::filesystem::path operator/(const std::wstring& name) const { return path / name; }
  std::filesystem::path path;
};

// A dialog of the program: its own box or a common dialog.
class Dialog {
 public:
  Dialog() = default;
  explicit Dialog(HWND window) : window_(window) {}
  explicit operator bool() const { return window_ != nullptr; }
  HWND window() const { return window_; }
  std::string title() const;
  std::string text(int control) const;
  std::string boxText() const;                               // of a box of the program, its list included
  void press(int button) const;                              // waits until the dialog is gone
  void chooseFile(const std::filesystem::path& path) const;  // in a common open or save dialog

 private:
  HWND window_ = nullptr;
};

struct Range {
  int start;
  int end;
  bool operator==(const Range&) const = default;
};

class Zervo {
 public:
  // Starts `program` with `arguments` just as they stand and waits for its main window. Ended with the
  // object.
  Zervo(const std::filesystem::path& program, const std::wstring& arguments);
  // The same, but the program stays when the object goes.
  static Zervo started(const std::filesystem::path& program, const std::wstring& arguments);
  // The main window that is on the screen, of a program that was started before. It is not ended with the
  // object.
  static Zervo running();
  Zervo(Zervo&& other) noexcept;
  Zervo& operator=(Zervo&&) = delete;
  ~Zervo();

  HWND window() const { return window_; }
  HWND control(int id) const;
  std::string caption() const;

  void command(int id) const;  // returns at once

  // The code view: its text and positions are bytes.
  std::string text() const;
  void waitForText(const std::string& bytes) const;
  bool showsUtf8() const;  // as letters; otherwise a byte is a letter
  void select(int start, int end) const;
  Range selection() const;
  void type(wchar_t character) const;
  COLORREF textColor(int position) const;

  // The tree: titles with two spaces before those of documents, from top to bottom.
  std::vector<std::string> tree() const;
  void clickNode(const std::string& title) const;

  std::string status(int panel) const;

  Dialog dialog() const;  // the one that is open now, if any
  Dialog waitForDialog() const;
  // The message of the box that comes up, after pressing the given button of it.
  std::string answer(int button) const;
  void waitUntilFree() const;  // no dialog is open and the program waits for the user

  bool alive() const;
  DWORD waitForEnd();  // exit code

 private:
  Zervo() = default;
  void findWindow();
  HANDLE process_ = nullptr;
  HWND window_ = nullptr;
  bool ours_ = false;
};

}  // namespace gui
