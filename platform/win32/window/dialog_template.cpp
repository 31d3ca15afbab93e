#include "platform/win32/window/dialog_template.h"

#include "base/error.h"
#include "resources/ids.h"

namespace win32 {
namespace {

// Of DLGTEMPLATEEX, in words: version, signature, help id, styles, count of controls and place come first;
// then menu, class and title, of which templates here have none (one zero word each).
constexpr std::size_t kStyleAt = 6;  // low word first
constexpr std::size_t kMenuAt = 13;
constexpr std::size_t kClassAt = kMenuAt + 1;
constexpr std::size_t kTitleAt = kClassAt + 1;
constexpr WORD kExtendedSignature = 0xFFFF;

void registerClass(const std::wstring& className) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  GetClassInfoExW(nullptr, L"#32770", &windowClass);
  windowClass.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(IDI_Zervo));
  windowClass.lpszClassName = className.c_str();
  RegisterClassExW(&windowClass);  // fails harmlessly when it is there already
}

}  // namespace

std::vector<WORD> dialogTemplate(int id, const std::wstring& className, bool sizable) {
  const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5));  // RT_DIALOG
  if (resource == nullptr) throw base::Error(base::ErrorNumber::InvalidCall, "no template for the dialog");
  const auto* const words = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
  std::vector<WORD> dialog(words, words + SizeofResource(nullptr, resource) / sizeof(WORD));
  if (dialog.size() <= kTitleAt || dialog[1] != kExtendedSignature || dialog[kMenuAt] != 0 ||
      dialog[kClassAt] != 0 || dialog[kTitleAt] != 0) {
    throw base::Error(base::ErrorNumber::InvalidCall, "a dialog's template has no menu, class or title");
  }
  if (sizable) {
    dialog[kStyleAt] &= static_cast<WORD>(~DS_MODALFRAME);
    dialog[kStyleAt + 1] |= WS_THICKFRAME >> 16U;
  }
  registerClass(className);
  dialog.insert(dialog.begin() + kClassAt, className.begin(), className.end());
  // The controls stand on multiples of four bytes: an odd class name is made up for by a title of one blank.
  if (className.size() % 2 != 0) {
    dialog.insert(dialog.begin() + static_cast<std::ptrdiff_t>(kTitleAt + className.size()), L' ');
  }
  return dialog;
}

}  // namespace win32
