#pragma once

#include <cstddef>
#include <cstdint>

// What libFuzzer calls, which names no header for it.

// Once, before all else.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
// With each input, for as long as the call takes. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
