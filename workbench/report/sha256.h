// The digest that names a script or style sheet in a page's content security policy.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace workbench {

// SHA-256 of the bytes (FIPS 180-4).
std::array<std::uint8_t, 32> sha256(std::string_view bytes);

// "sha256-" and the digest in base 64: a source expression of a policy, quotes not included.
std::string integritySource(std::string_view bytes);

}  // namespace workbench
