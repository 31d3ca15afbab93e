#include "platform/win32/system/errors.h"

#include "base/error.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/message_loop.h"

namespace win32 {

void reportException() {
  int number = 0;
  std::string description;
  try {
    throw;
  } catch (const base::Error& error) {
    number = static_cast<int>(error.number());
    description = error.what();
  } catch (const std::bad_alloc&) {
    number = static_cast<int>(base::ErrorNumber::OutOfMemory);
    description = "მეხსიერება არ კმარა.";
  } catch (const std::exception& error) {
    number = static_cast<int>(base::ErrorNumber::InvalidCall);
    description = error.what();
  } catch (...) {
    number = static_cast<int>(base::ErrorNumber::InvalidCall);
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
