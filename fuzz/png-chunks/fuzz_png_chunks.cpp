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
    vex::png::TextInflate inflate = [&](std::span<const uint8_t> stream, int32_t capacity, std::string& text) {
        inflater.InflateText(stream, capacity, text);
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
