// The main window: menu bar, tool bar, tree, code view and status bar around a MainForm.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/win32/code_view/code_view.h"
#include "platform/win32/controls/control_peer.h"
#include "platform/win32/controls/status_peer.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/window/main_columns.h"
#include "platform/win32/window/menus.h"
#include "platform/win32/window/message_loop.h"
#include "platform/win32/window/tool_bar.h"
#include "platform/win32/window/window_base.h"
#include "ui/main_form.h"

namespace win32 {

class MainWindow final : public WindowBase<MainWindow>, private ui::FormPeer, private ui::MainPeer {
 public:
  // Makes the window, hidden. Form and code view outlive it.
  MainWindow(ui::MainForm& form, CodeView& view);
  ~MainWindow();

 private:
  friend class WindowBase<MainWindow>;
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void lookChanged(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> handleMenu(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> handleSplitter(UINT message, LPARAM lParam);
  LRESULT handleCommand(WPARAM wParam, LPARAM lParam);
  bool translate(MSG& message);
  void makeChildren();
  void setFonts();
  void layOut();
  Columns columns() const;
  enum class Splitter { None, Left, Right };
  Splitter splitterAt(POINT point) const;
  void dragSplitter(int x);
  void layOutColumn(const RECT& column, ControlPeer* tabs, HWND below);
  void layOutNotice(RECT& rest);
  std::vector<HWND> panes() const;
  void showContextMenu(POINT screen);
  void showHiddenTools();
  void dropFiles(const std::vector<std::string>& paths) { form_.filesDropped(paths); }
  ControlPeer* peerOf(HWND window) const;
  ControlPeer* peerOf(const ui::Control* control) const;

  void captionChanged() override;
  void close() override;
  void show() override;
  void setState(ui::WindowState state) override;
  ui::WindowPlace place() const override;
  void setPlace(ui::WindowPlace place) override;
  ui::PaneWidths paneWidths() const override { return widths_; }
  void setPaneWidths(ui::PaneWidths widths) override;
  void nextPane() override;
  void toolBarChanged() override {
    if (toolBar_) toolBar_->setDpi(dpi_);  // draws the pictures anew
  }
  void toolBarStates() override {
    if (toolBar_) toolBar_->showStates();
  }
  void menusChanged() override;

  ui::MainForm& form_;
  CodeView& view_;
  std::optional<LoopWindow> loop_;
  std::unique_ptr<Menu> menu_;
  std::vector<std::unique_ptr<ControlPeer>> peers_;
  StatusPeer* status_ = nullptr;
  bool shown_ = false;
  bool inMenu_ = false;
  bool menusStale_ = false;
  std::unique_ptr<ToolBar> toolBar_;
  UniqueFont font_;
  ui::WindowState state_ = ui::WindowState::Normal;
  int dpi_ = kBaseDpi;  // of the screen that the window is on
  ui::PaneWidths widths_;
  Splitter dragged_ = Splitter::None;
};

}  // namespace win32
