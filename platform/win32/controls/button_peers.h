// Labels, message signs and everything that is pressed.
#pragma once

#include "platform/win32/controls/watched_peer.h"
#include "platform/win32/system/handles.h"
#include "ui/controls.h"

namespace win32 {

// Shows the caption of a control.
class CaptionPeer : public ControlPeer {
 public:
  using ControlPeer::ControlPeer;
  // Whether the control is pressed by the letter of its caption; a label only leads to what follows it.
  virtual bool isPressed() const { return true; }
  // The letter, where the caption marks none itself.
  void setMnemonic(char32_t letter);

 protected:
  void show(ui::Aspect what) override;

 private:
  char32_t mnemonic_ = 0;
};

class LabelPeer final : public CaptionPeer {
 public:
  LabelPeer(ui::Label& model, HWND window) : CaptionPeer(model, window) {}
  bool isPressed() const override { return false; }
};

class IconPeer final : public ControlPeer {
 public:
  IconPeer(ui::IconBox& model, HWND window) : ControlPeer(model, window), icon_(model) {}

 protected:
  void show(ui::Aspect) override {}
  void prepare() override;

 private:
  void showProgram();

  ui::IconBox& icon_;
  UniqueIcon own_;
};

class ProgressPeer final : public ControlPeer {
 public:
  ProgressPeer(ui::ProgressBar& model, HWND window) : ControlPeer(model, window), bar_(model) {}

 protected:
  void show(ui::Aspect what) override {
    if (what != ui::Aspect::Value) return;
    send(PBM_SETRANGE32, 0, ui::ProgressBar::kMost);
    send(PBM_SETPOS, static_cast<WPARAM>(bar_.value()));
  }

 private:
  ui::ProgressBar& bar_;
};

class ButtonPeer final : public WatchedPeer<ButtonPeer, CaptionPeer> {
 public:
  ButtonPeer(ui::Button& model, HWND window) : WatchedPeer(model, window), button_(model) {}
  void onCommand(int code) override;

 private:
  friend class Subclass<ButtonPeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  ui::Button& button_;
  bool pointerInside_ = false;
};

class CheckPeer final : public CaptionPeer {
 public:
  CheckPeer(ui::CheckBox& model, HWND window) : CaptionPeer(model, window), check_(model) {}
  void onCommand(int code) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  ui::CheckBox& check_;
};

class OptionPeer final : public CaptionPeer {
 public:
  OptionPeer(ui::OptionButton& model, HWND window) : CaptionPeer(model, window), option_(model) {}
  void onCommand(int code) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  ui::OptionButton& option_;
};

}  // namespace win32
