// The system's printers and their dialogs.
#pragma once

#include "platform/win32/system/handles.h"
#include "ui/platform/printer.h"

namespace win32 {

class SystemPrinter final : public ui::Printer {
 public:
  SystemPrinter() = default;
  SystemPrinter(const SystemPrinter&) = delete;
  SystemPrinter& operator=(const SystemPrinter&) = delete;
  ~SystemPrinter() override;

  ui::CodeCell codeCell(const ui::Font& font) override;
  bool pageSetup(ui::PageSetup& setup) override;
  std::optional<ui::PrintChoice> choose(const ui::PrintRequest& request) override;

 private:
  void findPrinter();  // the default one, when none was chosen yet
  void putPaper(const ui::PageSetup& setup);
  void takePaper(ui::PageSetup& setup) const;

  // The printer that was chosen last and how it is set, as the dialogs keep them.
  HGLOBAL mode_ = nullptr;
  HGLOBAL names_ = nullptr;
};

}  // namespace win32
