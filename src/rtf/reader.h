#pragma once

#include "rtf/document.h"

#include <cstddef>
#include <string_view>

namespace kelvo::rtf {

/// More of a file is not looked at.
inline constexpr std::size_t MostBytes = 64u << 20;

/// Reads any bytes. Damaged RTF gives what could be read of it, bytes that are no RTF are read as plain
/// text. The work is bounded whatever the bytes are: `Document::cutOff` tells when a bound was met.
/// Pictures are kept undecoded, within a bound of their own. Objects and where links lead are left out,
/// hidden text too.
Document Read(std::string_view bytes);

} // namespace kelvo::rtf
