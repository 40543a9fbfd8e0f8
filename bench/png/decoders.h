#pragma once
// The decoders both PNG benchmarks time: ours (LoadPNG from memory) and libpng's simplified API.
// Each returns a checksum of a few output bytes so that no work is optimised away, 0 on failure.

#include <cstdint>

#include "corpus.h"

namespace vex::bench {

uint64_t DecodeOurs(const CorpusFile& file);

// libpng writing 3 or 4 bytes a pixel in the given order: RGB(A) as the other peers write,
// or BGR(A) as a Windows bitmap holds it.
enum class ChannelOrder { Rgb, Bgr };
uint64_t DecodeLibpng(const CorpusFile& file, ChannelOrder order);

} // namespace vex::bench
