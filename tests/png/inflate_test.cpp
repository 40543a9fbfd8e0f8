// The inflate against zlib (many inputs, every level, strategy, window size and flush pattern),
// against the plain model on damaged streams, and on hand-made streams for each rule.

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "inflate_model.h"
#include "png/inflate.h"
#include "png/inflate_stream.h"
#include "raises.h"

using namespace vex;
using namespace vex::png;
using vex::png::testing::Compare;
using vex::png::testing::ModelInflate;
using vex::png::testing::ModelOutcome;
using vex::png::testing::RealInflate;
using vex::testing::RaisedBy;

namespace {

using Bytes = std::vector<uint8_t>;

// ---- Inputs -----------------------------------------------------------------------------------

Bytes Text(size_t size, uint32_t seed)
{
    static const char* words[] = {"the ", "panel ", "draws ", "a ", "border ", "of ", "width ", "three ",
                                  "pixels ", "and ", "its ", "caption ", "in ", "bold\n", "colour ", "gradient "};
    std::mt19937 random(seed);
    Bytes bytes;
    while (bytes.size() < size) {
        const char* word = words[random() % 16];
        bytes.insert(bytes.end(), word, word + std::strlen(word));
    }
    bytes.resize(size);
    return bytes;
}

Bytes Noise(size_t size, uint32_t seed)
{
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (auto& byte : bytes)
        byte = uint8_t(random());
    return bytes;
}

Bytes Runs(size_t size, uint32_t seed)
{
    std::mt19937 random(seed);
    Bytes bytes;
    while (bytes.size() < size)
        bytes.insert(bytes.end(), 1 + random() % 600, uint8_t(random() % 4));
    bytes.resize(size);
    return bytes;
}

// PNG-like rows: a filter byte, then RGB pixels of a noisy gradient with flat patches, filtered
// with Sub or Up as an encoder would.
Bytes ImageRows(unsigned width, unsigned height, uint32_t seed)
{
    std::mt19937 random(seed);
    const unsigned stride = width * 3;
    Bytes pixels(size_t(stride) * height), rows;
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            bool flat = ((x / 37) + (y / 23)) % 3 == 0;
            for (unsigned c = 0; c < 3; ++c)
                pixels[y * stride + x * 3 + c] =
                    uint8_t(flat ? 40 * c + 17 : (x * (c + 1) + y * 2 + random() % 9));
        }
    for (unsigned y = 0; y < height; ++y) {
        uint8_t filter = uint8_t(y % 3);
        rows.push_back(filter);
        for (unsigned i = 0; i < stride; ++i) {
            uint8_t value = pixels[y * stride + i];
            uint8_t left = i >= 3 ? pixels[y * stride + i - 3] : 0;
            uint8_t up = y > 0 ? pixels[(y - 1) * stride + i] : 0;
            rows.push_back(uint8_t(value - (filter == 1 ? left : filter == 2 ? up : 0)));
        }
    }
    return rows;
}

struct Input {
    std::string name;
    Bytes bytes;
};

std::vector<Input> Inputs()
{
    return {
        {"empty", {}},
        {"one byte", {0x5a}},
        {"text", Text(20000, 1)},
        {"noise", Noise(9000, 2)},
        {"runs", Runs(30000, 3)},
        {"image rows", ImageRows(120, 90, 4)},
        {"short text", Text(300, 5)},
    };
}

// ---- zlib as the encoder ----------------------------------------------------------------------

struct Settings {
    int level = 6;
    int strategy = Z_DEFAULT_STRATEGY;
    int windowBits = 15;
    int memLevel = 8;
    int flush = Z_NO_FLUSH; // with another flush, the input is fed in small pieces
    size_t piece = 0;
};

std::string Describe(const Settings& s)
{
    return "level " + std::to_string(s.level) + " strategy " + std::to_string(s.strategy) + " window " +
           std::to_string(s.windowBits) + " memLevel " + std::to_string(s.memLevel) + " flush " +
           std::to_string(s.flush) + " piece " + std::to_string(s.piece);
}

// A zlib stream of `input`, without its 2-byte header (what the inflate is given).
Bytes Compress(const Bytes& input, const Settings& s)
{
    z_stream z{};
    EXPECT_EQ(deflateInit2(&z, s.level, Z_DEFLATED, s.windowBits, s.memLevel, s.strategy), Z_OK);
    Bytes output(deflateBound(&z, input.size()) * 2 + 1024 + input.size() * 6);
    z.next_out = output.data();
    z.avail_out = unsigned(output.size());
    size_t offset = 0;
    const size_t piece = s.piece == 0 ? input.size() : s.piece;
    do {
        size_t take = std::min(piece, input.size() - offset);
        z.next_in = const_cast<uint8_t*>(input.data()) + offset;
        z.avail_in = unsigned(take);
        offset += take;
        int flush = offset == input.size() ? Z_FINISH : s.flush;
        int status = deflate(&z, flush);
        EXPECT_TRUE(status == Z_OK || status == Z_STREAM_END || status == Z_BUF_ERROR);
    } while (offset < input.size());
    while (deflate(&z, Z_FINISH) == Z_OK) {
    }
    output.resize(z.total_out);
    deflateEnd(&z);
    return Bytes(output.begin() + 2, output.end());
}

void ExpectRoundTrip(const Input& input, const Settings& settings)
{
    SCOPED_TRACE(input.name + ", " + Describe(settings));
    const Bytes stream = Compress(input.bytes, settings);
    Inflater inflater;
    int treeErrors = 0;
    inflater.onTreeError = [&](const std::string&) { ++treeErrors; };
    Bytes data = stream;
    int32_t capacity = int32_t(input.bytes.size());
    int32_t result = -99;
    inflater.Inflate(data, capacity, false, result);
    EXPECT_EQ(result, kInflateOk);
    EXPECT_EQ(treeErrors, 0);
    EXPECT_EQ(capacity, int32_t(input.bytes.size()) + 100);
    EXPECT_TRUE(data == input.bytes) << "decoded " << data.size() << " bytes of " << input.bytes.size();

    // The image decode's entry point gives the same bytes and writes nothing past the output
    // array it asked for.
    int32_t capacity2 = int32_t(input.bytes.size());
    const size_t asked = Inflater::OutputSizeFor(capacity2);
    Bytes output(asked + 64, 0xa5);
    InflateOutcome outcome = inflater.InflateInto(stream, capacity2, false, output);
    EXPECT_EQ(outcome.result, kInflateOk);
    ASSERT_EQ(outcome.produced, input.bytes.size());
    EXPECT_TRUE(std::equal(input.bytes.begin(), input.bytes.end(), output.begin()));
    EXPECT_TRUE(std::all_of(output.begin() + std::ptrdiff_t(asked), output.end(), [](uint8_t b) { return b == 0xa5; }));
}

// ---- Hand-made streams ------------------------------------------------------------------------

class BitWriter {
public:
    // `count` bits of `value`, least significant first (header fields, extra bits).
    BitWriter& Bits(uint32_t value, unsigned count)
    {
        for (unsigned i = 0; i < count; ++i)
            Bit((value >> i) & 1);
        return *this;
    }
    // A Huffman code: most significant bit first.
    BitWriter& Code(uint32_t code, unsigned length)
    {
        for (unsigned i = length; i-- > 0;)
            Bit((code >> i) & 1);
        return *this;
    }
    BitWriter& Header(bool final, unsigned type) { return Bits(final, 1).Bits(type, 2); }
    // Fixed-code literal/length symbol and distance symbol.
    BitWriter& Fixed(unsigned symbol)
    {
        if (symbol < 144)
            return Code(0x30 + symbol, 8);
        if (symbol < 256)
            return Code(0x190 + symbol - 144, 9);
        if (symbol < 280)
            return Code(symbol - 256, 7);
        return Code(0xc0 + symbol - 280, 8);
    }
    BitWriter& FixedDistance(unsigned symbol) { return Code(symbol, 5); }
    BitWriter& Align()
    {
        while (count_ % 8 != 0)
            Bit(0);
        return *this;
    }
    BitWriter& Byte(uint8_t byte)
    {
        Align();
        return Bits(byte, 8);
    }
    BitWriter& Stored(const Bytes& bytes, bool final, uint16_t complementXor = 0)
    {
        Header(final, 0).Align();
        uint16_t length = uint16_t(bytes.size());
        uint16_t complement = uint16_t(~length ^ complementXor);
        Byte(length & 0xff).Byte(length >> 8).Byte(complement & 0xff).Byte(complement >> 8);
        for (uint8_t b : bytes)
            Byte(b);
        return *this;
    }
    Bytes Finish(size_t trailer = 4)
    {
        Align();
        Bytes bytes = bytes_;
        bytes.insert(bytes.end(), trailer, 0xee); // stands for the Adler-32 that follows
        return bytes;
    }

private:
    void Bit(uint32_t bit)
    {
        if (count_ % 8 == 0)
            bytes_.push_back(0);
        bytes_.back() |= uint8_t(bit << (count_ % 8));
        ++count_;
    }
    Bytes bytes_;
    size_t count_ = 0;
};

// A dynamic block header whose literal/length code gives `litLengths` (257 or more entries) and
// whose distance code gives `distanceLengths`, written with a code-length code of 5-bit codes
// for the lengths 0..15 (no run-length symbols). Returns the canonical codes of both.
struct DynamicCodes {
    std::vector<uint32_t> litCodes, distanceCodes;
};

std::vector<uint32_t> CanonicalCodes(const std::vector<uint8_t>& lengths)
{
    unsigned count[16] = {};
    for (uint8_t l : lengths)
        ++count[l];
    count[0] = 0;
    uint32_t next[16] = {}, code = 0;
    for (unsigned l = 1; l < 16; ++l) {
        code = (code + count[l - 1]) << 1;
        next[l] = code;
    }
    std::vector<uint32_t> codes(lengths.size());
    for (size_t s = 0; s < lengths.size(); ++s)
        if (lengths[s] != 0)
            codes[s] = next[lengths[s]]++;
    return codes;
}

DynamicCodes DynamicHeader(BitWriter& writer, const std::vector<uint8_t>& litLengths,
                           const std::vector<uint8_t>& distanceLengths)
{
    writer.Bits(uint32_t(litLengths.size() - 257), 5).Bits(uint32_t(distanceLengths.size() - 1), 5).Bits(19 - 4, 4);
    // Code-length code: symbols 0..15 get length 4 (16 codes fill 4 bits), 16..18 unused.
    static const uint8_t order[19] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::vector<uint8_t> codeLengthLengths(19, 0);
    for (unsigned s = 0; s < 16; ++s)
        codeLengthLengths[s] = 4;
    for (unsigned i = 0; i < 19; ++i)
        writer.Bits(codeLengthLengths[order[i]], 3);
    std::vector<uint32_t> codeLengthCodes = CanonicalCodes(codeLengthLengths);
    for (uint8_t l : litLengths)
        writer.Code(codeLengthCodes[l], 4);
    for (uint8_t l : distanceLengths)
        writer.Code(codeLengthCodes[l], 4);
    return {CanonicalCodes(litLengths), CanonicalCodes(distanceLengths)};
}

} // namespace

// ---- Against zlib -----------------------------------------------------------------------------

// Every level and strategy; window sizes and memory levels; the input fed in small pieces with
// each flush (many small blocks, empty stored blocks after sync and full flushes, blocks that end
// mid-byte after partial flushes and Z_BLOCK). The fast loop is built twice (plain and BMI2,
// chosen by the processor): every other stream goes through the plain one.
TEST(InflateZlib, EveryEncoderSetting)
{
    std::vector<Settings> all;
    for (int level = 0; level <= 9; ++level)
        for (int strategy : {Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED})
            all.push_back({level, strategy});
    for (int windowBits = 8; windowBits <= 15; ++windowBits)
        for (int level : {1, 6, 9})
            for (int memLevel : {1, 8, 9})
                all.push_back({level, Z_DEFAULT_STRATEGY, windowBits, memLevel});
    for (int flush : {Z_SYNC_FLUSH, Z_FULL_FLUSH, Z_PARTIAL_FLUSH, Z_BLOCK})
        for (size_t piece : {size_t{1}, size_t{7}, size_t{1000}})
            for (int level : {0, 1, 6})
                all.push_back({level, Z_DEFAULT_STRATEGY, 15, 8, flush, piece});
    size_t run = 0;
    for (const Input& input : Inputs())
        for (const Settings& settings : all)
            if (settings.piece != 1 || input.bytes.size() <= 5000) {
                inflate_detail::forcePlainFastLoop = ++run % 2 == 0;
                ExpectRoundTrip(input, settings);
            }
    inflate_detail::forcePlainFastLoop = false;
}

TEST(InflateZlib, LargeImageAndText)
{
    Input image{"large image rows", ImageRows(700, 500, 9)};
    Input text{"large text", Text(1 << 20, 10)};
    for (int level : {1, 6, 9}) {
        Settings settings;
        settings.level = level;
        inflate_detail::forcePlainFastLoop = level == 6;
        ExpectRoundTrip(image, settings);
        ExpectRoundTrip(text, settings);
    }
    inflate_detail::forcePlainFastLoop = false;
}

// Many expected sizes around the real one: the last bytes go through the careful loop, and a
// smaller capacity cuts or raises exactly where the model does.
TEST(InflateZlib, CapacitiesAroundTheEnd)
{
    const Bytes input = ImageRows(40, 30, 11);
    for (int level : {1, 9}) {
        Settings settings;
        settings.level = level;
        const Bytes stream = Compress(input, settings);
        for (int32_t capacity = int32_t(input.size()) - 700; capacity <= int32_t(input.size()) + 5; capacity += 3) {
            SCOPED_TRACE("capacity " + std::to_string(capacity));
            ModelOutcome expected = ModelInflate(stream, capacity, false);
            EXPECT_EQ(Compare(expected, RealInflate(stream, capacity, false)), "");
            EXPECT_EQ(Compare(expected, RealInflate(stream, capacity, false, true)), "");
        }
    }
}

// ---- Against the model, on damaged streams ----------------------------------------------------

TEST(InflateModel, DamagedStreamsAgree)
{
    std::mt19937 random(1234);
    const std::vector<Input> inputs = Inputs();
    const int strategies[] = {Z_DEFAULT_STRATEGY, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED};
    int cases = 0;
    for (int round = 0; round < 2500; ++round) {
        const Input& input = inputs[random() % inputs.size()];
        Settings settings;
        settings.level = int(random() % 10);
        settings.strategy = strategies[random() % 4];
        Bytes stream = Compress(Bytes(input.bytes.begin(), input.bytes.begin() + std::min<size_t>(input.bytes.size(), 3000)), settings);
        switch (random() % 4) {
        case 0: // flip a few bits
            for (unsigned n = 1 + random() % 3; n > 0 && !stream.empty(); --n)
                stream[random() % stream.size()] ^= uint8_t(1u << (random() % 8));
            break;
        case 1: // cut short
            stream.resize(random() % (stream.size() + 1));
            break;
        case 2: // overwrite a run with noise
            if (!stream.empty()) {
                size_t at = random() % stream.size();
                for (size_t i = at; i < std::min(stream.size(), at + 1 + random() % 8); ++i)
                    stream[i] = uint8_t(random());
            }
            break;
        default: // pure noise
            stream = Noise(random() % 200, uint32_t(random()));
            break;
        }
        const int32_t capacity = int32_t(random() % 4000) - 100;
        const bool deflate64 = random() % 5 == 0;
        SCOPED_TRACE("round " + std::to_string(round));
        inflate_detail::forcePlainFastLoop = round % 2 == 1;
        ModelOutcome expected = ModelInflate(stream, capacity, deflate64);
        ASSERT_EQ(Compare(expected, RealInflate(stream, capacity, deflate64)), "");
        ASSERT_EQ(Compare(expected, RealInflate(stream, capacity, deflate64, true)), "");
        ++cases;
    }
    inflate_detail::forcePlainFastLoop = false;
    EXPECT_EQ(cases, 2500);
}

// ---- The rules, on hand-made streams ----------------------------------------------------------

namespace {

// A hand-made stream and what inflating it with `capacity` gives: raised, result, tree messages
// and data (the capacity after the call is always the given one + 100, unless that overflows; a
// raised error or a tree message leaves the data as it came).
struct Rule {
    std::string name;
    Bytes stream;
    int32_t capacity;
    ModelOutcome expected;
    bool deflate64 = false;
};

ModelOutcome Gives(int32_t result, Bytes data)
{
    ModelOutcome outcome;
    outcome.result = result;
    outcome.data = std::move(data);
    return outcome;
}

ModelOutcome Raises(int32_t number)
{
    ModelOutcome outcome;
    outcome.raised = number;
    return outcome;
}

ModelOutcome TreeMessage()
{
    ModelOutcome outcome;
    outcome.treeMessages = 1;
    return outcome;
}

std::vector<Rule> Rules()
{
    const auto cut = [](Bytes bytes, size_t by) {
        bytes.resize(bytes.size() - by);
        return bytes;
    };
    const auto fixed = [](std::initializer_list<unsigned> symbols, unsigned count = 1) {
        BitWriter writer;
        writer.Header(true, 1);
        for (unsigned n = 0; n < count; ++n)
            for (unsigned symbol : symbols)
                writer.Fixed(symbol);
        return writer;
    };
    // Over-subscribed: three literal/length codes of length 1.
    BitWriter over;
    over.Header(false, 1).Fixed('z').Fixed(256).Header(true, 2); // output before the bad block is dropped too
    std::vector<uint8_t> threeOnes(257, 0);
    threeOnes[0] = threeOnes[1] = threeOnes[256] = 1;
    DynamicHeader(over, threeOnes, { 1 });
    // Code-length codes of 5 bits for all 19 symbols: a repeat (16) with nothing before it, and
    // two runs of 138 zeros (18) over 258 lengths.
    const std::vector<uint32_t> fives = CanonicalCodes(std::vector<uint8_t>(19, 5));
    BitWriter noPrevious, pastTheEnd;
    noPrevious.Header(true, 2).Bits(0, 5).Bits(0, 5).Bits(19 - 4, 4);
    pastTheEnd.Header(true, 2).Bits(1, 5).Bits(0, 5).Bits(19 - 4, 4);
    for (int i = 0; i < 19; ++i) {
        noPrevious.Bits(5, 3);
        pastTheEnd.Bits(5, 3);
    }
    noPrevious.Code(fives[16], 5).Bits(0, 2);
    pastTheEnd.Code(fives[18], 5).Bits(127, 7).Code(fives[18], 5).Bits(127, 7);
    // Incomplete: 'A' and 256 of length 2, half the code space unused; 11 is no code.
    const auto incomplete = [](bool useHole) {
        std::vector<uint8_t> lit(257, 0);
        lit['A'] = lit[256] = 2;
        BitWriter writer;
        writer.Header(true, 2);
        DynamicCodes codes = DynamicHeader(writer, lit, { 0 });
        writer.Code(codes.litCodes['A'], 2).Code(codes.litCodes['A'], 2);
        if (useHole)
            writer.Code(3, 2);
        return writer.Code(codes.litCodes[256], 2).Finish();
    };
    // Long codes past both primary tables: literal/length lengths 1..13 for 13 literals and four
    // of 15 bits; distance lengths 1..14 and two of 15. Then length 3 at distance code 10 (11 bits;
    // base 33, 4 extra bits): distance 35.
    std::vector<uint8_t> lit(258, 0), distance(30, 0);
    for (unsigned i = 0; i < 13; ++i)
        lit[i * 16] = uint8_t(i + 1);
    lit[208] = lit[224] = lit[256] = lit[257] = 15;
    for (unsigned i = 0; i < 14; ++i)
        distance[i] = uint8_t(i + 1);
    distance[14] = distance[29] = 15;
    BitWriter longCodes;
    longCodes.Header(true, 2);
    DynamicCodes codes = DynamicHeader(longCodes, lit, distance);
    Bytes decoded;
    for (unsigned i = 0; i < 13; ++i) {
        longCodes.Code(codes.litCodes[i * 16], lit[i * 16]);
        decoded.push_back(uint8_t(i * 16));
    }
    for (int i = 0; i < 30; ++i) {
        longCodes.Code(codes.litCodes[i % 2 ? 208 : 224], 15);
        decoded.push_back(i % 2 ? 208 : 224);
    }
    longCodes.Code(codes.litCodes[257], 15).Code(codes.distanceCodes[10], 11).Bits(2, 4);
    for (int i = 0; i < 3; ++i)
        decoded.push_back(decoded[decoded.size() - 35]);
    longCodes.Code(codes.litCodes[256], 15);
    const auto deflate64 = [&](unsigned symbol, unsigned extraBits, uint32_t extra) {
        return fixed({ 'd' }).Fixed(symbol).Bits(extra, extraBits).Bits(1000 - 3, 16).FixedDistance(0).Fixed(256).Finish();
    };

    return {
        { "stored length mismatch reports and goes on", BitWriter().Stored({ 1, 2, 3 }, false, 0x0100).Stored({ 4, 5 }, true).Finish(), 5,
            Gives(kInflateStoredLengthMismatch, { 1, 2, 3, 4, 5 }) },
        { "stored data past the input: what came before is kept", cut(BitWriter().Stored({ 7, 8 }, false).Stored(Bytes(50, 9), true).Finish(0), 10),
            100, Gives(kInflateBroken, { 7, 8 }) },
        { "capacity + 1 stored bytes fit", BitWriter().Stored(Bytes(111, 1), true).Finish(), 10, Gives(kInflateOk, Bytes(111, 1)) },
        { "one more does not", BitWriter().Stored(Bytes(112, 1), true).Finish(), 10, Gives(kInflateBroken, {}) },
        { "a stored header needs a byte after it", BitWriter().Stored({}, true).Finish(0), 10, Gives(kInflateBroken, {}) },
        { "the trailer is that byte", BitWriter().Stored({}, true).Finish(1), 10, Gives(kInflateOk, {}) },
        { "two fixed blocks",
            BitWriter().Header(false, 1).Fixed('a').Fixed(200).Fixed(256).Header(true, 1).Fixed('b').Fixed(258).FixedDistance(1).Fixed(256).Finish(),
            10, Gives(kInflateOk, { 'a', 200, 'b', 200, 'b', 200, 'b' }) },
        { "over-subscribed tree: one message, the data kept", over.Finish(), 50, TreeMessage() },
        { "a repeat with nothing before it", noPrevious.Finish(), 10, TreeMessage() },
        { "a repeat past the end of the lengths", pastTheEnd.Finish(), 10, TreeMessage() },
        { "an incomplete code is accepted", incomplete(false), 10, Gives(kInflateOk, { 'A', 'A' }) },
        { "its holes are broken", incomplete(true), 10, Gives(kInflateBroken, { 'A', 'A' }) },
        { "long codes go through subtables", longCodes.Finish(), 50, Gives(kInflateOk, decoded) },
        { "a copy past the capacity is cut there (2581 wanted, 1100 fit)",
            [&] { BitWriter w = fixed({ 'c' }); for (int i = 0; i < 10; ++i) w.Fixed(285).FixedDistance(0); return w.Fixed(256).Finish(); }(),
            1000, Gives(kInflateOk, Bytes(1100, 'c')) },
        { "after a bad stored block the result stays -2 through the cut",
            BitWriter().Stored({ 'c' }, false, 1).Header(true, 1).Fixed(285).FixedDistance(0).Fixed(285).FixedDistance(0).Fixed(256).Finish(), 300,
            Gives(kInflateStoredLengthMismatch, Bytes(400, 'c')) },
        { "101 literals fill indices 0..100 of a capacity of 0", fixed({ 'l' }, 101).Fixed(256).Finish(), 0, Gives(kInflateOk, Bytes(101, 'l')) },
        { "a literal past the output", fixed({ 'l' }, 103).Fixed(256).Finish(), 0, Raises(9) },
        { "a distance before the start", fixed({ 'a', 257 }).FixedDistance(1).Fixed(256).Finish(), 10, Raises(9) },
        { "extra symbols: length 0 whatever the distance, distance 0 gives zeros",
            fixed({ 'a', 286 }).FixedDistance(5).Bits(1, 1).Fixed(287).FixedDistance(0).Fixed(258).FixedDistance(30).Fixed(257).FixedDistance(31)
                .Fixed('b').Fixed(256).Finish(),
            10, Gives(kInflateOk, { 'a', 0, 0, 0, 0, 0, 0, 0, 'b' }) },
        { "deflate64: 285 reads 16 bits of length", deflate64(285, 0, 0), 2000, Gives(kInflateOk, Bytes(1001, 'd')), true },
        { "deflate64: 284 with all its extra bits is 258 too", deflate64(284, 5, 31), 2000, Gives(kInflateOk, Bytes(1001, 'd')), true },
        { "without deflate64 285 is 258", fixed({ 'd', 285 }).FixedDistance(0).Fixed(256).Finish(), 2000, Gives(kInflateOk, Bytes(259, 'd')) },
        { "block type 3 keeps the output so far", BitWriter().Header(false, 1).Fixed('k').Fixed(256).Header(true, 3).Finish(), 10,
            Gives(kInflateBroken, { 'k' }) },
        { "nothing at all", {}, 10, Gives(kInflateBroken, {}) },
        { "no next block header", BitWriter().Header(false, 1).Fixed(256).Finish(0), 10, Gives(kInflateBroken, {}) },
        { "extra bits past the input", fixed({ 'x', 284 }).Finish(0), 10, Gives(kInflateBroken, { 'x' }) },
        { "an end-of-block code may end in zero bits past the input", { 0x03 }, 10, Gives(kInflateOk, {}) },
        { "not final: the next header is past the input", { 0x02 }, 10, Gives(kInflateBroken, {}) },
        { "capacity + 100 overflows", { 0x03 }, 2147483647 - 99, Raises(6) },
        { "capacity -102", { 0x03 }, -102, Raises(9) },
        { "capacity -101: no index 0", { 0x03 }, -101, Raises(9) },
        { "capacity -100: an output of one byte", { 0x03 }, -100, Gives(kInflateOk, {}) },
    };
}

} // namespace

// Each stream through both entry points, the model, and one object that has inflated every stream
// before it (the fixed trees are shared between calls; nothing else carries over).
TEST(InflateRules, HandMadeStreams)
{
    Inflater shared;
    shared.onTreeError = [](const std::string&) { };
    for (Rule& rule : Rules()) {
        SCOPED_TRACE(rule.name);
        ModelOutcome& expected = rule.expected;
        expected.capacity = rule.capacity > 2147483647 - 100 ? rule.capacity : rule.capacity + 100;
        if (expected.raised != 0 || expected.treeMessages != 0)
            expected.data = rule.stream;
        EXPECT_EQ(Compare(expected, RealInflate(rule.stream, rule.capacity, rule.deflate64)), "");
        EXPECT_EQ(Compare(expected, RealInflate(rule.stream, rule.capacity, rule.deflate64, true)), "");
        EXPECT_EQ(Compare(expected, ModelInflate(rule.stream, rule.capacity, rule.deflate64)), "");
        Bytes data = rule.stream;
        int32_t capacity = rule.capacity, result = 5; // a raised error leaves the result as it was
        EXPECT_EQ(RaisedBy([&] { shared.Inflate(data, capacity, rule.deflate64, result); }), expected.raised);
        EXPECT_EQ(result, expected.raised != 0 ? 5 : expected.result);
        EXPECT_EQ(data, expected.data);
    }
}

// The original's reader loaded bytes up to the longest code before each search, and the stored
// block's header check counts from there. After an end-of-block code of 1 bit in a code whose
// longest length is 15 it is two bytes ahead of the bits used.
TEST(InflateRules, StoredHeaderCheckCountsFromTheLoadedBytes)
{
    auto stream = [](size_t trailer) {
        std::vector<uint8_t> lit(257, 0);
        lit[256] = 1;
        lit['A'] = 15;
        BitWriter writer;
        writer.Header(false, 2);
        DynamicCodes codes = DynamicHeader(writer, lit, {1});
        writer.Code(codes.litCodes[256], 1); // the search loaded up to bit 1106 + 15
        return writer.Stored({}, true).Finish(trailer);
    };
    for (int32_t capacity : {10, 1000}) {
        EXPECT_EQ(RealInflate(stream(1), capacity, false).result, kInflateBroken);
        EXPECT_EQ(RealInflate(stream(2), capacity, false).result, kInflateBroken);
        EXPECT_EQ(RealInflate(stream(3), capacity, false).result, kInflateOk);
    }

    // The same after a distance search that looked further than the next literal search, in
    // both decoding loops (a long block reaches the fast one).
    for (size_t literals : {size_t{0}, size_t{600}})
        for (size_t trailer = 0; trailer < 6; ++trailer)
            for (int32_t capacity : {10, 5000}) {
                std::vector<uint8_t> lit(258, 0), distance{1, 15};
                lit['A'] = 1;
                lit[256] = lit[257] = 2;
                BitWriter writer;
                writer.Header(false, 2);
                DynamicCodes codes = DynamicHeader(writer, lit, distance);
                for (size_t i = 0; i < literals + 1; ++i)
                    writer.Code(codes.litCodes['A'], 1);
                writer.Code(codes.litCodes[257], 2).Code(codes.distanceCodes[0], 1);
                writer.Code(codes.litCodes[256], 2);
                Bytes bytes = writer.Stored({}, true).Finish(trailer);
                SCOPED_TRACE("literals " + std::to_string(literals) + " trailer " + std::to_string(trailer));
                EXPECT_EQ(Compare(ModelInflate(bytes, capacity, false), RealInflate(bytes, capacity, false)), "");
            }
}
