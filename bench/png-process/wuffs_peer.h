#pragma once
// Wuffs' PNG decoder as a benchmark peer (its single-file C release, built into the benchmark
// only): a whole file from memory to B, G, R or B, G, R, A (not premultiplied) pixels.

#include <cstddef>
#include <cstdint>

namespace vex::bench {

// A checksum of a few output bytes (0 when the file could not be decoded).
uint64_t DecodeWuffs(const uint8_t* data, size_t size, bool alpha);

} // namespace vex::bench
