// The window of one form: made from the form's template, each control bound by its id.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/win32/controls/control_peer.h"
#include "platform/win32/window/dialog_layout.h"
#include "platform/win32/window/message_loop.h"
#include "ui/form.h"

namespace win32 {

class DialogHost final : private ui::FormPeer {
 public:
  enum class Kind { Modal, Modeless };
  // Makes the window and loads the form, still hidden. The form must outlive the window, which goes at once
  // when a modeless form closes, and with the object when a modal one does.
  DialogHost(ui::Form& form, HWND owner, Kind kind);
  ~DialogHost() override;
  DialogHost(const DialogHost&) = delete;
  DialogHost& operator=(const DialogHost&) = delete;

  HWND window() const { return window_; }  // null when closed
  bool shows(const ui::Form& form) const { return window_ != nullptr && &form == &form_; }
  void show();

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
  bool translate(MSG& message);
  void bind();
  void addHints();
  void giveMnemonics();
  void center(HWND owner);
  void command(int id, int code);
  ControlPeer* peerOf(HWND window) const;
  void layOut(WPARAM held);
  SIZE wantedSize() const;  // by the form, of the whole window; 0: as its controls need
  void takeKeptSize();
  void keepSize(HWND window);
  void destroy();

  void captionChanged() override;
  void heightChanged() override;
  void moveOff(const ui::ScreenArea& area) override;
  void close() override;

  ui::Form& form_;
  Kind kind_;
  HWND window_ = nullptr;
  HWND hints_ = nullptr;
  int dpi_ = 0;
  bool ready_ = false;
  bool layoutHeld_ = false;
  SIZE kept_{};  // what the registry has of the user's size
  std::vector<std::unique_ptr<ControlPeer>> peers_;
  std::optional<DialogLayout> layout_;
  std::optional<LoopWindow> loop_;
};

// What F1 does in the window of a form that does not use the key itself; none: nothing.
void setHelp(std::function<void(const ui::Form&)> help);

// Runs the form's window until it is closed; our other windows are disabled meanwhile.
void runModal(ui::Form& form);

}  // namespace win32
