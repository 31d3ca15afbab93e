#include "platform/curl/certificate.h"

#include <cstdint>
#include <optional>

#include "publish/digest.h"

namespace platform {
namespace {

// One value in DER: a tag, a length, that many bytes.
struct Value {
  unsigned char tag = 0;
  std::string_view whole;
  std::string_view inside;
};

// Takes the next one off `bytes`.
std::optional<Value> next(std::string_view& bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (bytes.size() < 2) return std::nullopt;
  std::size_t head = 2;
  std::size_t size = at(1);
  if (size >= 0x80) {
    const std::size_t digits = size - 0x80;
    if (digits == 0 || digits > 3 || bytes.size() < 2 + digits) return std::nullopt;
    size = 0;
    for (std::size_t i = 0; i < digits; ++i) size = size * 256 + at(2 + i);
    head += digits;
  }
  if (bytes.size() - head < size) return std::nullopt;
  const Value value{at(0), bytes.substr(0, head + size), bytes.substr(head, size)};
  bytes.remove_prefix(head + size);
  return value;
}

}  // namespace

std::string certificateBytes(std::string_view pem) {
  constexpr std::string_view kBegin = "-----BEGIN CERTIFICATE-----";
  const std::size_t begin = pem.find(kBegin);
  if (begin == std::string_view::npos) return {};
  const std::string_view rest = pem.substr(begin + kBegin.size());
  const std::size_t end = rest.find("-----END");
  if (end == std::string_view::npos) return {};
  return publish::fromBase64(rest.substr(0, end)).value_or(std::string());
}

std::string publicKeyIn(std::string_view certificate) {
  constexpr unsigned char kVersion = 0xA0;
  auto outer = next(certificate);
  if (!outer) return {};
  auto signedPart = next(outer->inside);
  if (!signedPart) return {};
  std::string_view fields = signedPart->inside;
  auto field = next(fields);
  if (field && field->tag == kVersion) field = next(fields);
  // The field is the serial number; then algorithm, issuer, dates, subject, key.
  for (int i = 0; i < 5 && field; ++i) field = next(fields);
  return field ? std::string(field->whole) : std::string();
}

}  // namespace platform
