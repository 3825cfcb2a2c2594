#pragma once
// SHA-256 and hexadecimal text, on OpenSSL's libcrypto, for the audit
// trail's hash chain and key fingerprints.

#include <string>
#include <string_view>

namespace vx3 {

// The 32 raw bytes of the SHA-256 digest of `bytes`.
std::string Sha256(std::string_view bytes);

// Lower-case hexadecimal, two digits a byte.
std::string ToHex(std::string_view bytes);
// The bytes of a hexadecimal text (either case); false on anything else,
// `bytes` then untouched.
bool FromHex(std::string_view text, std::string & bytes);

}  // namespace vx3
