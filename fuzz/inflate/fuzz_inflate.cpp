// libFuzzer target for the inflate. Input: 3 bytes of settings, then the stream.
//   byte 0: bit 0 = deflate64; bits 1-2 choose how bytes 1-2 give the capacity; bit 3 runs the
//           plain x86-64 fast loop instead of the BMI2 one
// Checks, on every input: nothing crashes or trips a sanitizer; Inflate and InflateInto agree;
// the plain model agrees (results, raised errors, messages, bytes); and where zlib's raw inflate
// of the same bytes succeeds and ours returns 0, the outputs agree up to the capacity.

#include <zlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "inflate_model.h"
#include "png/inflate_stream.h"

using vex::png::testing::Compare;
using vex::png::testing::ModelInflate;
using vex::png::testing::ModelOutcome;
using vex::png::testing::RealInflate;

namespace {

void Fail(const char* what, const std::string& detail)
{
    std::fprintf(stderr, "fuzz-inflate: %s: %s\n", what, detail.c_str());
    std::abort();
}

// zlib's raw inflate of `stream`, up to `limit` bytes of output; false unless it reached the
// end of the final block.
bool ZlibInflate(const std::vector<uint8_t>& stream, size_t limit, std::vector<uint8_t>& output)
{
    z_stream z{};
    if (inflateInit2(&z, -15) != Z_OK)
        return false;
    output.assign(limit, 0);
    z.next_in = const_cast<uint8_t*>(stream.data());
    z.avail_in = unsigned(stream.size());
    z.next_out = output.data();
    z.avail_out = unsigned(limit);
    int status = inflate(&z, Z_FINISH);
    output.resize(z.total_out);
    inflateEnd(&z);
    return status == Z_STREAM_END;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 3)
        return 0;
    const bool deflate64 = (data[0] & 1) != 0;
    const int32_t value = data[1] | int32_t(data[2]) << 8;
    int32_t capacity;
    switch ((data[0] >> 1) & 3) {
    case 0: capacity = value % 600 - 110; break; // around the smallest sizes, negatives included
    case 1: capacity = value; break;
    case 2: capacity = value * 4; break;
    default: capacity = 2147483647 - 99 + value % 3; break; // the add overflows
    }
    const std::vector<uint8_t> stream(data + 3, data + size);
    vex::png::inflate_detail::forcePlainFastLoop = (data[0] & 8) != 0;

    const ModelOutcome real = RealInflate(stream, capacity, deflate64);
    const ModelOutcome into = RealInflate(stream, capacity, deflate64, true);
    if (std::string difference = Compare(real, into); !difference.empty())
        Fail("Inflate and InflateInto differ", difference);
    const ModelOutcome model = ModelInflate(stream, capacity, deflate64);
    if (std::string difference = Compare(model, real); !difference.empty())
        Fail("differs from the model", difference);

    if (real.raised == 0 && real.result == 0 && real.treeMessages == 0 && !deflate64) {
        const size_t lastIndex = size_t(real.capacity);
        std::vector<uint8_t> reference;
        if (ZlibInflate(stream, lastIndex + 2, reference)) {
            const std::vector<uint8_t>& ours = real.data;
            const bool sizeFits = ours.size() == reference.size() ||
                                  (reference.size() > lastIndex && (ours.size() == lastIndex || ours.size() == lastIndex + 1));
            if (!sizeFits || !std::equal(ours.begin(), ours.end(), reference.begin()))
                Fail("differs from zlib", std::to_string(ours.size()) + " bytes against " + std::to_string(reference.size()));
        }
    }
    return 0;
}
