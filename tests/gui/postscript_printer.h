// A printer for the length of a test: Wine's PostScript driver, writing into a file.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <winspool.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <system_error>

namespace gui {

class PostScriptPrinter {
 public:
  static constexpr const wchar_t* kName = L"Zervo test";

  // Becomes the default printer; jobs come into `output`. A4, 600 dots an inch, 1/4 inch of which it cannot
  // print at each edge.
  PostScriptPrinter(const std::filesystem::path& folder, std::filesystem::path output)
      : output_(std::move(output)) {
    const std::filesystem::path ppd = folder / L"zervotest.ppd";
    std::ofstream(ppd) << kDescription;
    std::wstring description = ppd.wstring();
    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = const_cast<wchar_t*>(kName);
    driver.pDriverPath = driver.pConfigFile = const_cast<wchar_t*>(L"wineps.drv");
    driver.pDataFile = description.data();
    driver.pDefaultDataType = const_cast<wchar_t*>(L"RAW");
    AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY);
    std::wstring port = output_.wstring();
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = printer.pDriverName = const_cast<wchar_t*>(kName);
    printer.pPortName = port.data();
    printer.pPrintProcessor = const_cast<wchar_t*>(L"WinPrint");
    printer.pDatatype = const_cast<wchar_t*>(L"RAW");
    handle_ = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (handle_ != nullptr) SetDefaultPrinterW(kName);
  }
  PostScriptPrinter(const PostScriptPrinter&) = delete;
  PostScriptPrinter& operator=(const PostScriptPrinter&) = delete;
  ~PostScriptPrinter() {
    if (handle_ == nullptr) return;
    DeletePrinter(handle_);
    ClosePrinter(handle_);
    DeletePrinterDriverW(nullptr, nullptr, const_cast<wchar_t*>(kName));
    WriteProfileStringW(L"windows", L"device", nullptr);
  }

  // False where the system has no such driver.
  bool made() const { return handle_ != nullptr; }

  static bool anyInstalled() {
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 2, nullptr, 0, &size, &count);
    return size > 0;
  }

  // The whole job; empty while it is not complete.
  std::string job() const {
    std::ifstream file(output_, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    return bytes.find("%%EOF") == std::string::npos ? std::string() : bytes;
  }

  static int count(const std::string& job, const std::string& part) {
    int found = 0;
    for (std::size_t at = job.find(part); at != std::string::npos; at = job.find(part, at + part.size())) {
      ++found;
    }
    return found;
  }

  // How often each glyph is drawn, by its name; where the font has no names, by its number.
  static std::map<std::string, int> glyphs(const std::string& job) {
    static const std::regex shown("/(\\S+) glyphshow");
    std::map<std::string, int> times;
    for (std::sregex_iterator at(job.begin(), job.end(), shown), end; at != end; ++at) ++times[(*at)[1]];
    return times;
  }

 private:
  static constexpr const char* kDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "ZERVOTES.PPD"
*Manufacturer: "Zervo"
*Product: "(Zervo test)"
*PSVersion: "(3010) 0"
*ModelName: "Zervo test"
*ShortNickName: "Zervo test"
*NickName: "Zervo test"
*LanguageLevel: "2"
*ColorDevice: False
*DefaultColorSpace: Gray
*TTRasterizer: Type42
*DefaultResolution: 600dpi
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*ImageableArea Letter/Letter: "18 18 594 774"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)ppd";

  std::filesystem::path output_;
  HANDLE handle_ = nullptr;
};

}  // namespace gui
