// The model of one control: holds its state, complete without a window. A peer, where there is one, shows it.
#pragma once

#include <string>

#include "ui/text.h"

namespace ui {

class Form;

// One for each class of controls. Whoever must do something for every kind switches over them all, without a
// default: the compiler names what a new kind is missing.
enum class ControlKind {
  Label,
  IconBox,
  Button,
  CheckBox,
  OptionButton,
  TextBox,
  ProgressBar,
  ListBox,
  ComboBox,
  ListView,
  TreeView,
  StatusBar,
  PictureBox,
  TabStrip,
  PageTabs,
  WebView,
};

// What of a control changed, for its peer.
enum class Aspect { Text, Enabled, Visible, Items, Selection, Value, Focus, Font, Edit };

// The window behind a control. Reads the model in refresh() and calls the model's user...() functions when
// the user acts.
class Peer {
 public:
  virtual ~Peer() = default;
  virtual void refresh(Aspect what) = 0;
};

class Control {
 public:
  Control(Form& form, int id);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  int id() const { return id_; }
  virtual ControlKind kind() const = 0;

  // Caption, with "&" before the mnemonic letter; for labels the shown text.
  const Text& caption() const { return caption_; }
  void setCaption(Text caption);

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool visible() const { return visible_; }
  void setVisible(bool visible);
  void setFocus() { tell(Aspect::Focus); }

  // Grows with a window that the user may size; set before the form is shown.
  bool stretches = false;

  // Tool tip, and the name for screen readers where the control has no caption.
  Text hint;

  // The peer is not owned; the platform detaches it (nullptr) when the window goes.
  void attach(Peer* peer) { peer_ = peer; }

 protected:
  void tell(Aspect what) const {
    if (peer_ != nullptr) peer_->refresh(what);
  }

 private:
  int id_;
  Text caption_;
  bool enabled_ = true;
  bool visible_ = true;
  Peer* peer_ = nullptr;
};

}  // namespace ui
