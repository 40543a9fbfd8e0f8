#pragma once
// Base64 (RFC 4648, with padding) for the pictures embedded in .vxp files.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vex::control {

std::string EncodeBase64(const uint8_t* data, size_t size);
// Strict decoding: the standard alphabet, length a multiple of 4, '=' only as final padding.
std::optional<std::vector<uint8_t>> DecodeBase64(std::string_view text);

} // namespace vex::control
