// The main window's peer without a window; it keeps what it was given.
#pragma once

#include "ui/main_form.h"

namespace tests {

class FakeMainPeer : public ui::MainPeer {
 public:
  void show() override { ++shown; }
  void setState(ui::WindowState newState) override { state = newState; }
  ui::WindowPlace place() const override { return at; }
  void setPlace(ui::WindowPlace place) override { at = place; }
  ui::PaneWidths paneWidths() const override { return widths; }
  void setPaneWidths(ui::PaneWidths newWidths) override { widths = newWidths; }
  void nextPane() override { ++panesPassed; }
  void toolBarChanged() override {}
  void toolBarStates() override {}
  void menusChanged() override {}

  int shown = 0;
  ui::WindowState state = ui::WindowState::Normal;
  ui::WindowPlace at{0, 0};
  ui::PaneWidths widths;
  int panesPassed = 0;
};

}  // namespace tests
