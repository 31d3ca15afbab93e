#include "platform/win32/drawing/fonts.h"

#include <array>
#include <set>

#include "base/error.h"
#include "base/font_names.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/strings.h"
#include "resources/ids.h"

namespace win32 {
namespace {

constexpr int kInterfacePoints = 9;
constexpr int kCodePoints = 11;

UniqueFont makeFont(const std::wstring& name, int points, int dpi, bool bold, bool italic, int characterSet) {
  return UniqueFont(CreateFontW(-MulDiv(points, dpi, 72), 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, italic ? 1 : 0,
                                0, 0, static_cast<DWORD>(characterSet), OUT_DEFAULT_PRECIS,
                                CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, name.c_str()));
}

NONCLIENTMETRICSW menuMetrics(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  // Windows before 10 does not have it, and no screens of different density.
  using GetForDpi = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);
  static const auto getForDpi = reinterpret_cast<GetForDpi>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SystemParametersInfoForDpi")));
  if (getForDpi == nullptr ||
      getForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) == FALSE) {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  }
  return metrics;
}

int CALLBACK collectFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
  // Names that begin with "@" are for vertical writing.
  if (font->lfFaceName[0] != L'@') {
    reinterpret_cast<std::set<std::string>*>(names)->insert(utf8FromWide(font->lfFaceName));
  }
  return 1;
}

struct Bundled {
  std::string_view family;
  int id;
};
constexpr std::array<Bundled, 5> kBundled = {{{base::kSansFont, IDF_ZervoSans},
                                              {base::kIsoFont, IDF_ZervoISO},
                                              {base::kAsciiFont, IDF_ZervoASCII},
                                              {base::kRussianFont, IDF_ZervoRUS},
                                              {base::kMonoFont, IDF_ZervoMono}}};

const char* bundledFor(ui::CharacterSet set) {
  if (set == ui::CharacterSet::Utf8) return base::kMonoFont;
  return set == ui::CharacterSet::Russian ? base::kRussianFont : base::kIsoFont;
}

// As long as the program; empty when it is not there.
std::string_view fileOf(int id) {
  const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(10));  // RCDATA
  if (resource == nullptr) return {};
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, resource))),
          SizeofResource(nullptr, resource)};
}

}  // namespace

BundledFonts::BundledFonts() {
  for (const Bundled& bundled : kBundled) {
    const std::string_view file = fileOf(bundled.id);
    if (file.empty()) continue;
    DWORD count = 0;
    const HANDLE font = AddFontMemResourceEx(const_cast<char*>(file.data()), static_cast<DWORD>(file.size()),
                                             nullptr, &count);
    if (font != nullptr) fonts_.push_back(font);
  }
}

BundledFonts::~BundledFonts() {
  for (const HANDLE font : fonts_) RemoveFontMemResourceEx(font);
}

std::string bundledFontFile(std::string_view family) {
  for (const Bundled& bundled : kBundled) {
    if (bundled.family == family) return std::string(fileOf(bundled.id));
  }
  throw base::Error(base::ErrorNumber::InvalidCall, "no bundled font of that name");
}

UniqueFont interfaceFont(int dpi) {
  return makeFont(kInterfaceFont, kInterfacePoints, dpi, false, false, DEFAULT_CHARSET);
}

bool menuFontHasGeorgian() {
  const LOGFONTW font = menuMetrics(kBaseDpi).lfMenuFont;
  const UniqueFont made(CreateFontIndirectW(&font));
  const UniqueCanvas canvas(CreateCompatibleDC(nullptr));
  const HGDIOBJ old = SelectObject(canvas.get(), made.get());
  WORD glyph = 0xFFFF;
  GetGlyphIndicesW(canvas.get(), L"\u10D0", 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
  SelectObject(canvas.get(), old);
  return glyph != 0xFFFF;
}

UniqueFont menuFont(int dpi) {
  LOGFONTW font = menuMetrics(dpi).lfMenuFont;
  if (menuFontHasGeorgian()) return UniqueFont(CreateFontIndirectW(&font));
  font.lfFaceName[std::wstring(kInterfaceFont).copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
  font.lfCharSet = DEFAULT_CHARSET;
  return UniqueFont(CreateFontIndirectW(&font));
}

ui::Font withDefaults(ui::Font font) {
  if (font.name.empty()) font.name = bundledFor(font.characterSet);
  if (font.size <= 0) font.size = kCodePoints;
  return font;
}

UniqueFont codeFont(const ui::Font& font, int dpi) {
  const ui::Font full = withDefaults(font);
  return makeFont(wideFromUtf8(full.name), full.size, dpi, full.bold, full.italic, DEFAULT_CHARSET);
}

UniqueFont pictureFont(const ui::Font& font, int dpi) {
  return makeFont(font.name.empty() ? kInterfaceFont : wideFromUtf8(font.name),
                  font.size > 0 ? font.size : kInterfacePoints, dpi, font.bold, font.italic, DEFAULT_CHARSET);
}

std::vector<std::string> installedFonts() {
  // Fonts of this process alone are not listed by every system.
  std::set<std::string> names;
  for (const Bundled& bundled : kBundled) names.emplace(bundled.family);
  LOGFONTW all{};
  all.lfCharSet = DEFAULT_CHARSET;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &all, collectFont, reinterpret_cast<LPARAM>(&names), 0);
  ReleaseDC(nullptr, screen);
  return {names.begin(), names.end()};
}

}  // namespace win32
