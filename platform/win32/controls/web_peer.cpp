#include "platform/win32/controls/web_peer.h"

#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr UINT_PTR kLook = 1;
constexpr UINT kLookEach = 100;  // ms
// Until a page without a document means that there is no engine: while the browser is at work, and when it
// says that it has done.
constexpr int kMostLooks = 100;
constexpr int kMostIdleLooks = 10;
constexpr UINT kForwardKey = 0x37F;  // WM_FORWARDMSG of the container

// Otherwise the control takes every page for one of the year 2006, without fonts of the page's own.
void askForNewestEngine() {
  constexpr DWORD kInternetExplorer11 = 11000;
  wchar_t program[MAX_PATH];
  if (GetModuleFileNameW(nullptr, program, MAX_PATH) == 0) return;
  const std::wstring path = program;
  RegSetKeyValueW(HKEY_CURRENT_USER,
                  L"Software\\Microsoft\\Internet Explorer\\Main\\FeatureControl\\FEATURE_BROWSER_EMULATION",
                  path.substr(path.rfind(L'\\') + 1).c_str(), REG_DWORD, &kInternetExplorer11,
                  sizeof kInternetExplorer11);
}

template <class Function>
Function entry(HMODULE library, const char* name) {
  return library == nullptr
             ? nullptr
             : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

struct Variant : VARIANT {
  Variant() { VariantInit(this); }
  explicit Variant(const std::wstring& text) : Variant() {
    vt = VT_BSTR;
    bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  explicit Variant(LONG number) : Variant() {
    vt = VT_I4;
    lVal = number;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(this); }
};

}  // namespace

void WebPeer::detach() {
  KillTimer(window(), kLook);
  browser_.reset();
  container_.reset();
  WatchedPeer::detach();
}

void WebPeer::prepare() {
  create();
  SetTimer(window(), kLook, kLookEach, nullptr);
}

// The system's own container for such controls.
void WebPeer::create() {
  static const UniqueLibrary atl(LoadLibraryW(L"atl.dll"));
  const auto init = entry<BOOL(WINAPI*)()>(atl.get(), "AtlAxWinInit");
  const auto getControl = entry<HRESULT(WINAPI*)(HWND, IUnknown**)>(atl.get(), "AtlAxGetControl");
  if (init == nullptr || getControl == nullptr || init() == FALSE) return;
  askForNewestEngine();
  RECT area;
  GetClientRect(window(), &area);
  container_.reset(CreateWindowExW(0, L"AtlAxWin", L"Shell.Explorer.2",
                                   WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, area.right, area.bottom,
                                   window(), nullptr, GetModuleHandleW(nullptr), nullptr));
  IUnknown* found = nullptr;
  if (!container_ || FAILED(getControl(container_.get(), &found)) || found == nullptr) return;
  const UniqueCom<IUnknown> control(found);
  IWebBrowser2* browser = nullptr;
  if (FAILED(control.get()->QueryInterface(IID_IWebBrowser2, reinterpret_cast<void**>(&browser)))) return;
  browser_.reset(browser);
  browser->put_Silent(VARIANT_TRUE);  // errors in the page's scripts are the page's
}

void WebPeer::show(ui::Aspect what) {
  if (what != ui::Aspect::Value) return;
  switch (view_.takeOrder()) {
    case ui::WebView::Order::Open:
      open();
      break;
    case ui::WebView::Order::Back:
      if (browser_) browser_.get()->GoBack();
      break;
    case ui::WebView::Order::None:
      break;
  }
}

void WebPeer::open() {
  looks_ = idleLooks_ = 0;
  loading_ = true;
  if (!browser_) return;  // look() says so
  if (view_.path() == openedPath_ && location() == openedAt_) {
    Variant level(static_cast<LONG>(REFRESH_COMPLETELY));
    browser_.get()->Refresh2(&level);  // keeps the place in the page
    return;
  }
  openedPath_ = view_.path();
  openedAt_.clear();
  Variant url(wideFromUtf8(openedPath_));
  Variant none;
  browser_.get()->Navigate2(&url, &none, &none, &none, &none);
}

bool WebPeer::hasDocument() const {
  IDispatch* document = nullptr;
  const HRESULT result = browser_.get()->get_Document(&document);
  return UniqueCom<IDispatch>(document) && SUCCEEDED(result);
}

std::wstring WebPeer::location() const {
  BSTR url = nullptr;
  if (FAILED(browser_.get()->get_LocationURL(&url)) || url == nullptr) return {};
  std::wstring text(url, SysStringLen(url));
  SysFreeString(url);
  return text;
}

// Asked from time to time: the control is there on systems without an engine too, and then shows nothing.
void WebPeer::look() {
  if (browser_ && hasDocument()) {
    READYSTATE state = READYSTATE_UNINITIALIZED;
    browser_.get()->get_ReadyState(&state);
    if (state != READYSTATE_COMPLETE) return;
    const std::wstring now = location();
    if (loading_) openedAt_ = now;
    const bool elsewhere = now != openedAt_;
    if (!loading_ && view_.canGoBack == elsewhere) return;
    loading_ = false;
    view_.canGoBack = elsewhere;
    view_.loaded();
  } else if (loading_) {
    VARIANT_BOOL busy = VARIANT_FALSE;
    if (browser_) browser_.get()->get_Busy(&busy);
    ++looks_;
    idleLooks_ = busy == VARIANT_FALSE ? idleLooks_ + 1 : 0;
    if (browser_ && looks_ <= kMostLooks && idleLooks_ <= kMostIdleLooks) return;
    loading_ = false;
    view_.failed();
  }
}

bool WebPeer::translate(MSG& message) {
  const bool key = message.message == WM_KEYDOWN || message.message == WM_KEYUP || message.message == WM_CHAR;
  if (!key || !container_ || IsChild(container_.get(), message.hwnd) == 0) return false;
  if (message.wParam == VK_ESCAPE || message.wParam == VK_F5) return false;  // the form's
  if (SendMessageW(container_.get(), kForwardKey, 0, reinterpret_cast<LPARAM>(&message)) != 0) return true;
  // Not the dialog's: arrows are to scroll the page.
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

LRESULT WebPeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER && wParam == kLook) {
    look();
    return 0;
  }
  if (message == WM_SIZE && container_) {
    MoveWindow(container_.get(), 0, 0, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), TRUE);
  }
  return forward(window, message, wParam, lParam);
}

}  // namespace win32
