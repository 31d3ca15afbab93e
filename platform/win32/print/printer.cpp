#include "platform/win32/print/printer.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <memory>

#include "base/error.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/print/print_job.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/message_loop.h"

namespace win32 {
namespace {

// A block of memory of the dialogs, locked while the object lives.
template <class Content>
class Locked {
 public:
  explicit Locked(HGLOBAL memory) : memory_(memory) {
    if (memory != nullptr) content_ = static_cast<Content*>(GlobalLock(memory));
  }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
  ~Locked() {
    if (content_ != nullptr) GlobalUnlock(memory_);
  }
  Content* get() const { return content_; }

 private:
  HGLOBAL memory_;
  Content* content_ = nullptr;
};

// A dialog that did not say yes: cancelled, or it could not do its work.
void throwUnlessCancelled() {
  const DWORD error = CommDlgExtendedError();
  if (error == 0) return;
  if (error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES || error == PDERR_PRINTERNOTFOUND) {
    throw base::Error(base::ErrorNumber::DeviceError,
                      "პრინტერი ვერ მოიძებნა. დააყენეთ პრინტერი Windows-ის პარამეტრებში.");
  }
  throw base::Error(base::ErrorNumber::DeviceError, "პრინტერი მიუწვდომელია (" + std::to_string(error) + ").");
}

// The widest letter and the height of a font of `points`, in 1/96 inch. Measured so large that no screen's
// rounding is in it.
SIZE measured(const ui::Font& font, int enlarged) {
  const UniqueCanvas device(CreateCompatibleDC(nullptr));
  const UniqueFont chosen = pictureFont(font, kBaseDpi * enlarged);
  const HGDIOBJ before = SelectObject(device.get(), chosen.get());
  SIZE most{};
  const auto measure = [&](wchar_t letter) {
    SIZE size{};
    GetTextExtentPoint32W(device.get(), &letter, 1, &size);
    most = {std::max(most.cx, size.cx), std::max(most.cy, size.cy)};
  };
  for (int byte = ' '; byte < 256; ++byte)
    measure(wideFromBytes(std::string(1, static_cast<char>(byte))).front());
  if (font.characterSet == ui::CharacterSet::Utf8) {
    for (wchar_t letter = 0x10D0; letter <= 0x10F0; ++letter) measure(letter);  // Georgian
    for (wchar_t letter = 0x0410; letter <= 0x044F; ++letter) measure(letter);  // Russian
  }
  SelectObject(device.get(), before);
  return most;
}

}  // namespace

SystemPrinter::~SystemPrinter() {
  if (mode_ != nullptr) GlobalFree(mode_);
  if (names_ != nullptr) GlobalFree(names_);
}

ui::CodeCell SystemPrinter::codeCell(const ui::Font& font) {
  constexpr int kEnlarged = 64;
  ui::CodeCell cell;
  cell.font = withDefaults(font);
  const SIZE size = measured(cell.font, kEnlarged);
  cell.width = static_cast<double>(size.cx) / kEnlarged;
  cell.height = static_cast<double>(size.cy) / kEnlarged;
  return cell;
}

void SystemPrinter::findPrinter() {
  if (mode_ != nullptr) return;
  PRINTDLGW request{};
  request.lStructSize = sizeof request;
  request.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
  if (PrintDlgW(&request) == 0) {
    throwUnlessCancelled();
    throw base::Error(base::ErrorNumber::DeviceError, "პრინტერი ვერ მოიძებნა.");
  }
  mode_ = request.hDevMode;
  names_ = request.hDevNames;
}

void SystemPrinter::putPaper(const ui::PageSetup& setup) {
  const Locked<DEVMODEW> mode(mode_);
  if (mode.get() == nullptr) return;
  DEVMODEW& device = *mode.get();
  device.dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
  device.dmOrientation = setup.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  device.dmPaperSize = static_cast<short>(setup.paper > 0 ? setup.paper : DMPAPER_USER);
  if (setup.paper > 0) return;
  device.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;  // in 1/10 mm, of the sheet upright
  device.dmPaperWidth = static_cast<short>((setup.landscape ? setup.height : setup.width) / 10);
  device.dmPaperLength = static_cast<short>((setup.landscape ? setup.width : setup.height) / 10);
}

void SystemPrinter::takePaper(ui::PageSetup& setup) const {
  const Locked<DEVMODEW> mode(mode_);
  const Locked<DEVNAMES> names(names_);
  if (mode.get() == nullptr || names.get() == nullptr) return;
  const DEVMODEW& device = *mode.get();
  setup.landscape = (device.dmFields & DM_ORIENTATION) != 0 && device.dmOrientation == DMORIENT_LANDSCAPE;
  const bool numbered = (device.dmFields & DM_PAPERSIZE) != 0 && device.dmPaperSize < DMPAPER_USER;
  setup.paper = numbered ? device.dmPaperSize : 0;
  const auto* const text = reinterpret_cast<const wchar_t*>(names.get());
  const UniqueCanvas paper(
      CreateICW(text + names.get()->wDriverOffset, text + names.get()->wDeviceOffset, nullptr, mode.get()));
  const ui::Size size = paper ? paperOf(paper.get()) : ui::Size{};
  if (size.width > 0 && size.height > 0) {
    setup.width = size.width;
    setup.height = size.height;
  }
}

bool SystemPrinter::pageSetup(ui::PageSetup& setup) {
  findPrinter();
  putPaper(setup);
  PAGESETUPDLGW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = activeWindow();
  request.hDevMode = mode_;
  request.hDevNames = names_;
  request.Flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS | PSD_NOWARNING;
  request.rtMargin = {setup.left, setup.top, setup.right, setup.bottom};
  const bool done = PageSetupDlgW(&request) != 0;
  mode_ = request.hDevMode;
  names_ = request.hDevNames;
  if (!done) {
    throwUnlessCancelled();
    return false;
  }
  setup.width = request.ptPaperSize.x;
  setup.height = request.ptPaperSize.y;
  takePaper(setup);
  setup.left = request.rtMargin.left;
  setup.top = request.rtMargin.top;
  setup.right = request.rtMargin.right;
  setup.bottom = request.rtMargin.bottom;
  return true;
}

std::optional<ui::PrintChoice> SystemPrinter::choose(const ui::PrintRequest& asked) {
  findPrinter();
  putPaper(asked.setup);
  PRINTDLGW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = activeWindow();
  request.hDevMode = mode_;
  request.hDevNames = names_;
  request.Flags = PD_RETURNDC | PD_NOWARNING | PD_COLLATE | (asked.hasSelection ? 0 : PD_NOSELECTION);
  request.nMinPage = 1;
  request.nMaxPage = static_cast<WORD>(std::clamp(asked.pages, 1, 0xFFFF));
  request.nFromPage = 1;
  request.nToPage = request.nMaxPage;
  request.nCopies = 1;
  const bool done = PrintDlgW(&request) != 0;
  mode_ = request.hDevMode;
  names_ = request.hDevNames;
  UniqueCanvas device(request.hDC);
  if (!done) {
    throwUnlessCancelled();
    return std::nullopt;
  }
  if (!device) {
    throw base::Error(base::ErrorNumber::DeviceError, "პრინტერი მიუწვდომელია.");
  }
  ui::PrintChoice choice;
  choice.selection = (request.Flags & PD_SELECTION) != 0;
  const bool range = (request.Flags & PD_PAGENUMS) != 0;
  choice.first = range ? request.nFromPage : 1;
  choice.last = range ? request.nToPage : asked.pages;
  choice.copies = request.nCopies;
  choice.collated = (request.Flags & PD_COLLATE) != 0;
  choice.job = std::make_unique<GdiPrintJob>(std::move(device));
  return choice;
}

}  // namespace win32
