// The chunk reader on any bytes, twice on one state (text accumulates, flags reset). Defined
// outcomes only: an error code, or a RuntimeError the host would raise.

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/runtime_error.h"
#include "png/chunk_reader.h"
#include "png/inflate.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    vex::png::Inflater inflater;
    vex::png::TextInflate inflate = [&](std::vector<uint8_t>& bytes, int32_t& capacity) {
        int32_t result = 0;
        inflater.Inflate(bytes, capacity, false, result);
    };
    vex::png::ChunkState state;
    for (int pass = 0; pass < 2; ++pass) {
        try {
            int32_t code = vex::png::ReadChunks(std::span<const uint8_t>(data, size), state, inflate);
            if (code != 0 && code != 1 && code != 3 && code != 4)
                __builtin_trap();
        } catch (const vex::RuntimeError&) {
        }
    }
    return 0;
}
