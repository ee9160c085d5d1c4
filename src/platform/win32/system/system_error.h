#pragma once

#include <cstdint>
#include <string>

#include "base/failure.h"

namespace quorvale {

// The system's own words for one of its error numbers, without the line end that it gives them.
std::string DescribeError(std::uint32_t error);

// Whether that number says that a path names nothing.
bool MeansMissing(std::uint32_t error);

// What a call for `path` failed with: kNotFound or, where the thing is there, `otherwise`.
Failure FileFailure(std::uint32_t error, const std::string& path, FailureNumber otherwise);

}  // namespace quorvale
