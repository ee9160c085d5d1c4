#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.h"

namespace quorvale {

// Converts between UTF-16 and the process's code page, which the narrow calls use too. The manifest makes it UTF-8 on
// systems that can do that.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

// The system's message for an error number, without the line break at its end.
std::string DescribeError(std::uint32_t error);

// Whether the error means that a path names nothing.
bool MeansMissing(std::uint32_t error);

// The failure of a system call on `path`: kNotFound if the path names nothing, else `otherwise`.
Failure FileFailure(std::uint32_t error, const std::string& path, FailureNumber otherwise);

}  // namespace quorvale
