#include "platform/win32/system/credentials.h"

#include <memory>

#include "base/error.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/system/windows_api.h"

// After windows.h, which it needs.
#include <wincred.h>

namespace win32 {
namespace {

// Apart from those of other programs.
std::wstring targetOf(const std::string& name) {
  return L"Zervo:" + wideFromUtf8(name);
}

struct Free {
  void operator()(CREDENTIALW* credential) const { CredFree(credential); }
};

}  // namespace

std::optional<std::string> Credentials::read(const std::string& name) {
  CREDENTIALW* found = nullptr;
  if (CredReadW(targetOf(name).c_str(), CRED_TYPE_GENERIC, 0, &found) == FALSE) return std::nullopt;
  const std::unique_ptr<CREDENTIALW, Free> owned(found);
  std::wstring secret(found->CredentialBlobSize / sizeof(wchar_t), L'\0');
  if (!secret.empty()) memcpy(secret.data(), found->CredentialBlob, secret.size() * sizeof(wchar_t));
  return utf8FromWide(secret);
}

void Credentials::keep(const std::string& name, const std::string& user, const std::string& secret) {
  std::wstring target = targetOf(name);
  std::wstring owner = wideFromUtf8(user);
  std::wstring text = wideFromUtf8(secret);
  CREDENTIALW credential{};
  credential.Type = CRED_TYPE_GENERIC;
  credential.TargetName = target.data();
  credential.UserName = owner.data();
  credential.CredentialBlobSize = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  credential.CredentialBlob = reinterpret_cast<BYTE*>(text.data());
  // For this user on this computer; it does not travel with a roaming profile.
  credential.Persist = CRED_PERSIST_LOCAL_MACHINE;
  if (CredWriteW(&credential, 0) == FALSE) {
    throw base::Error(base::ErrorNumber::PermissionDenied, systemMessage(GetLastError()));
  }
}

void Credentials::forget(const std::string& name) {
  CredDeleteW(targetOf(name).c_str(), CRED_TYPE_GENERIC, 0);
}

}  // namespace win32
