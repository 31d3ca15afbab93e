#include "platform/win32/system/errors.h"

#include "base/error.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/message_loop.h"
#include "ui/error_gate.h"

namespace win32 {

void reportException() {
  int number = static_cast<int>(base::ErrorNumber::InvalidCall);
  std::string description;
  try {
    ui::atGate([] { throw; });
    return;
  } catch (const base::Error& error) {  // nobody shows errors yet, or any more
    number = static_cast<int>(error.number());
    description = error.what();
  } catch (const std::exception& error) {
    description = error.what();
  } catch (...) {
    description = "უცნობი შეცდომა.";
  }
  const std::string text = "Error!!\r\nError:N: " + std::to_string(number) + "\r\n" + description;
  MessageBoxW(activeWindow(), wideFromUtf8(text).c_str(), L"ERROR!!!", MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

std::string systemMessage(DWORD error) {
  wchar_t* text = nullptr;
  const DWORD size = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string sentence = utf8FromWide(std::wstring_view(text, size));
  LocalFree(text);
  while (!sentence.empty() && sentence.back() <= ' ') sentence.pop_back();
  return sentence.empty() ? "Windows error " + std::to_string(error) : sentence;
}

}  // namespace win32
