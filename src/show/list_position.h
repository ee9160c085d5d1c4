#pragma once

#include <cstdint>

namespace quorvale {

class Options;
struct OptionRow;
struct ShowState;

// The position (from 1) that a tick shows next in a list of `count` entries: the one after the position stored in
// `last`, or 1 after the end. The process's first tick starts at 1 if the option `reset` is on. If the stored position
// is not a number, the result is 0.
std::int32_t NextPosition(const Options& options, const ShowState& show, const OptionRow& reset, const OptionRow& last,
                          int count);

// Stores a position in the option `last`. If that fails, the position is kept in memory for this run.
void KeepPosition(Options& options, ShowState& show, const OptionRow& last, std::int32_t position);

}  // namespace quorvale
