// A dialog or window as a portable class: its controls are members, its handlers act on them.
#pragma once

#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/menu.h"
#include "ui/platform/screen_area.h"

namespace ui {

class Button;

// The window behind a form.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  virtual void captionChanged() = 0;
  virtual void heightChanged() {}
  virtual void moveOff(const ScreenArea& /*area*/) {}
  virtual void close() = 0;  // the form is done; ends a modal run
};

class Form {
 public:
  // `name` is the form's class name, also its window class; string literal. `id` is the dialog template's.
  Form(const char* name, int id) : name_(name), id_(id) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const char* name() const { return name_; }
  int id() const { return id_; }
  const std::vector<Control*>& controls() const { return controls_; }

  const Text& caption() const { return caption_; }
  void setCaption(Text caption);

  // Enter presses the default button, Esc the cancel button (where enabled). Not owned.
  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;

  // Runs when the window is made, before it is shown.
  virtual void load() {}
  // The window is on the screen: work that the user watches may begin.
  virtual void shown() {}
  // The user closes the window (title bar, Alt+F4): false keeps it open.
  virtual bool queryClose() { return true; }

  // The window became the active one.
  virtual void activated() {}
  // A key pressed in one of the controls, before the control and the dialog see it; true: handled.
  virtual bool keyPressed(const Shortcut&) { return false; }

  // Of the whole window, in 1/96 inch; 0: as in the template.
  int height() const { return height_; }
  void setHeight(int height);
  int width = 0;           // the same; set before the form is shown
  bool atPointer = false;  // comes up beside the pointer (where that is in the program), not in the middle

  // The window goes aside as far as it must, if it covers any of the area.
  void moveOff(const ScreenArea& area);

  void close();
  bool closed() const { return closed_; }
  // The platform calls this before it shows the form (again).
  void open(FormPeer* peer);
  void detach() { peer_ = nullptr; }

 private:
  friend class Control;
  const char* name_;
  int id_;
  Text caption_;
  int height_ = 0;
  std::vector<Control*> controls_;
  FormPeer* peer_ = nullptr;
  bool closed_ = true;
};

}  // namespace ui
