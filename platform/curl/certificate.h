// What is shown of a certificate, and what trust in it is kept by.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// The bytes of the first certificate in a text in PEM; empty where there is none.
std::string certificateBytes(std::string_view pem);

// The public key in a certificate's bytes, with its kind (what fingerprints of keys are made of); empty where
// the bytes are no certificate.
std::string publicKeyIn(std::string_view certificate);

}  // namespace platform
