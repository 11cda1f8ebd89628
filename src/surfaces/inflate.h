// Unpacking of the zlib format (RFC 1950, 1951).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace VEK
{

/// Unpacks until `size` bytes are there. The checksum at the end is not looked at.
/// @return false when the data are damaged or end before that
bool inflate(std::string_view packed, std::size_t size, std::string& result);

} // namespace VEK
