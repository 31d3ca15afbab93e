#include "platform/win32/print/print_job.h"

#include <utility>

#include "base/error.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

[[noreturn]] void throwRefused(DWORD error) {
  std::string sentence = "პრინტერმა დავალება არ მიიღო.";
  if (error != 0) sentence += "\r\n" + systemMessage(error);
  throw base::Error(base::ErrorNumber::DeviceError, sentence);
}

}  // namespace

ui::Size paperOf(HDC device) {
  const auto length = [device](int pixels, int perInch) {
    const int density = GetDeviceCaps(device, perInch);
    return density > 0 ? MulDiv(GetDeviceCaps(device, pixels), 2540, density) : 0;
  };
  return {length(PHYSICALWIDTH, LOGPIXELSX), length(PHYSICALHEIGHT, LOGPIXELSY)};
}

GdiPrintJob::GdiPrintJob(UniqueCanvas device) : device_(std::move(device)) {}

GdiPrintJob::~GdiPrintJob() {
  if (begun_) AbortDoc(device_.get());
}

bool GdiPrintJob::begin(const std::string& name) {
  return begin(name, {});
}

bool GdiPrintJob::begin(const std::string& name, const std::string& file) {
  const std::wstring wideName = wideFromUtf8(name);
  const std::wstring wideFile = wideFromUtf8(file);
  DOCINFOW document{};
  document.cbSize = sizeof document;
  document.lpszDocName = wideName.c_str();
  document.lpszOutput = file.empty() ? nullptr : wideFile.c_str();
  SetLastError(0);
  if (StartDocW(device_.get(), &document) <= 0) {
    const DWORD error = GetLastError();
    if (error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED) return false;
    throwRefused(error);
  }
  begun_ = true;
  return true;
}

ui::Canvas& GdiPrintJob::beginPage() {
  const HDC device = device_.get();
  SetLastError(0);
  if (StartPage(device) <= 0) throwRefused(GetLastError());
  const int across = GetDeviceCaps(device, LOGPIXELSX);
  const int down = GetDeviceCaps(device, LOGPIXELSY);
  if (across != down) {  // letters keep their shape where the device has other densities across and down
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, down, down, nullptr);
    SetViewportExtEx(device, across, down, nullptr);
  }
  // The device counts from where it can print.
  SetViewportOrgEx(device, -GetDeviceCaps(device, PHYSICALOFFSETX), -GetDeviceCaps(device, PHYSICALOFFSETY),
                   nullptr);
  canvas_ = std::make_unique<GdiCanvas>(device, down);
  return *canvas_;
}

void GdiPrintJob::endPage() {
  SetLastError(0);
  if (EndPage(device_.get()) <= 0) throwRefused(GetLastError());
}

void GdiPrintJob::finish() {
  begun_ = false;
  SetLastError(0);
  if (EndDoc(device_.get()) <= 0) throwRefused(GetLastError());
}

}  // namespace win32
