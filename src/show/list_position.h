#pragma once

#include <cstdint>

namespace quorvale {

class Options;
struct OptionRow;
struct ShowState;

// The position, from 1, at which a tick goes on in a list of `count` entries: behind the one kept under `last`,
// wrapping at the end, or at the list's start when the option `reset` is on and this is the process's first tick. A
// stored position that is no number gives 0.
std::int32_t NextPosition(const Options& options, const ShowState& show, const OptionRow& reset, const OptionRow& last,
                          int count);

// Keeps a position in the option `last`. One that the store does not take holds for this run.
void KeepPosition(Options& options, ShowState& show, const OptionRow& last, std::int32_t position);

}  // namespace quorvale
