// Page and code generators as a part of the program.
#pragma once

#include <memory>
#include <string>

#include "app/workbench.h"
#include "generators/table_color_commands.h"
#include "generators/template_formats.h"

namespace generators {

// Keep it as long as the main window lives.
class Generators {
 public:
  explicit Generators(app::Workbench& bench);
  Generators(const Generators&) = delete;
  Generators& operator=(const Generators&) = delete;

  TemplateFormats& templates() { return templates_; }
  // Puts template `number` around the selection, which stays selected between the two texts.
  void applyTemplate(std::size_t number);

 private:
  std::string keptFile() const;
  void loadKept();
  void TFormatladen();  // the list changed: it is kept, and the menu follows
  void addTemplateRows();
  void mnuDesign_Click();
  void mnutempformat_Click();

  app::Workbench& bench_;
  TableColorCommands tableAndColor_;
  TemplateFormats templates_;
  std::size_t rows_ = 0;  // commands that apply a template
};

// Adds the commands to the main window; `bench` must outlive what is returned.
std::unique_ptr<Generators> attach(app::Workbench& bench);

}  // namespace generators
