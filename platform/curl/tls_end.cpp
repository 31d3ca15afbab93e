#include "platform/curl/tls_end.h"

#ifdef _WIN32

#define SECURITY_WIN32
#include <curl/curl.h>
#include <schannel.h>
#include <security.h>

// The library's own table of what Windows offers.
extern "C" PSecurityFunctionTableA s_pSecFn;

namespace platform {
namespace {

DECRYPT_MESSAGE_FN decrypt = nullptr;

SecBuffer* bufferOf(PSecBufferDesc buffers, unsigned long kind) {
  for (unsigned long i = 0; i < buffers->cBuffers; ++i) {
    if (buffers->pBuffers[i].BufferType == kind) return &buffers->pBuffers[i];
  }
  return nullptr;
}

SECURITY_STATUS SEC_ENTRY decryptToEnd(PCtxtHandle context, PSecBufferDesc buffers, unsigned long number,
                                       unsigned long* quality) {
  constexpr unsigned char kAlert = 21;
  const SecBuffer* const record = bufferOf(buffers, SECBUFFER_DATA);
  const bool alert =
      record != nullptr && record->cbBuffer > 0 && *static_cast<unsigned char*>(record->pvBuffer) == kAlert;
  const SECURITY_STATUS status = decrypt(context, buffers, number, quality);
  if (status != SEC_E_OK || !alert) return status;
  const SecBuffer* const data = bufferOf(buffers, SECBUFFER_DATA);
  return data == nullptr || data->cbBuffer == 0 ? SEC_I_CONTEXT_EXPIRED : status;
}

}  // namespace

void hearEndOfTls() {
  if (s_pSecFn == nullptr || s_pSecFn->DecryptMessage == nullptr) return;
  static SecurityFunctionTableA table;
  table = *s_pSecFn;
  decrypt = table.DecryptMessage;
  table.DecryptMessage = &decryptToEnd;
  s_pSecFn = &table;
}

}  // namespace platform

#else

namespace platform {
void hearEndOfTls() {}
}  // namespace platform

#endif
