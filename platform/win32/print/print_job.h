// One job on a printer's device context.
#pragma once

#include <memory>

#include "platform/win32/drawing/gdi_canvas.h"
#include "platform/win32/system/handles.h"
#include "ui/platform/printer.h"

namespace win32 {

// Of the paper in the device, as it lies, in 1/100 mm; nothing (0, 0) for a device without paper.
ui::Size paperOf(HDC device);

class GdiPrintJob final : public ui::PrintJob {
 public:
  explicit GdiPrintJob(UniqueCanvas device);
  GdiPrintJob(const GdiPrintJob&) = delete;
  GdiPrintJob& operator=(const GdiPrintJob&) = delete;
  ~GdiPrintJob() override;

  ui::Size sheet() const override { return paperOf(device_.get()); }
  bool begin(const std::string& name) override;
  // To a file instead of the printer's port, where `file` is not empty.
  bool begin(const std::string& name, const std::string& file);
  ui::Canvas& beginPage() override;
  void endPage() override;
  void finish() override;

 private:
  UniqueCanvas device_;
  std::unique_ptr<GdiCanvas> canvas_;
  bool begun_ = false;
};

}  // namespace win32
