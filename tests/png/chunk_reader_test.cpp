// The chunk reader on streams made in the test: what each chunk leaves in the state, the
// reader's error codes, and its file-like reading (a zero-length chunk reads as many bytes as
// the chunk buffer still holds).

#include <gtest/gtest.h>

#include <zlib.h>

#include "png/chunk_reader.h"
#include "png_writer.h"
#include "raises.h"

namespace vex::png {
namespace {

using testing::PngWriter;
using vex::testing::RaisedBy;

// zTXt goes through this stand-in for the decoder's inflate: zlib, raw deflate.
void RawInflate(std::span<const uint8_t> data, int32_t capacity, std::string& text)
{
    capacity += 100;
    std::vector<uint8_t> out(static_cast<size_t>(capacity));
    z_stream stream{};
    inflateInit2(&stream, -15);
    stream.next_in = const_cast<uint8_t*>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = out.data();
    stream.avail_out = static_cast<uInt>(out.size());
    inflate(&stream, Z_FINISH);
    text.append(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(stream.total_out));
    inflateEnd(&stream);
}

int32_t Read(const std::vector<uint8_t>& file, ChunkState& state)
{
    return ReadChunks(file, state, RawInflate);
}

std::vector<uint8_t> Bytes(std::string_view text)
{
    return std::vector<uint8_t>(text.begin(), text.end());
}

const std::vector<uint8_t> kSomeIdat = {0x78, 0x9C, 0x63, 0, 0, 0, 1, 0, 1};

TEST(ChunkReader, SignatureMustMatchEveryByte)
{
    ChunkState state;
    std::vector<uint8_t> good = PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", kSomeIdat).Iend().bytes();
    EXPECT_EQ(Read(good, state), kErrorNone);
    for (size_t i = 0; i < 8; ++i) {
        auto bad = good;
        bad[i] ^= 0x20;
        EXPECT_EQ(Read(bad, state), kErrorSignature) << "byte " << i;
    }
    EXPECT_EQ(Read(std::vector<uint8_t>(good.begin(), good.begin() + 7), state), kErrorSignature);
    EXPECT_EQ(Read({}, state), kErrorSignature);
}

TEST(ChunkReader, TruncationAndMissingImageData)
{
    ChunkState state;
    // Signature and IHDR, no IEND: the next "chunk" lies past the end of the file.
    EXPECT_EQ(Read(PngWriter().Ihdr(4, 3, 8, 2).bytes(), state), kErrorTruncated);
    EXPECT_EQ(state.header.width, 4); // what was read stays
    EXPECT_EQ(state.header.colorType, 2);
    // An IDAT whose last data byte is missing.
    auto cut = PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", kSomeIdat).Iend().bytes();
    cut.resize(8 + 25 + 8 + kSomeIdat.size() - 1);
    EXPECT_EQ(Read(cut, state), kErrorTruncated);
    EXPECT_EQ(Read(PngWriter().Ihdr(1, 1, 8, 0).Iend().bytes(), state), kErrorNoImageData);
}

TEST(ChunkReader, LengthsPastTwoGigabytesRaiseOverflow)
{
    ChunkState state;
    auto file = PngWriter().RawChunk(0x7FFFFFF0, "IDAT", {1, 2, 3}).bytes();
    EXPECT_EQ(RaisedBy([&] { Read(file, state); }), 6);
}

TEST(ChunkReader, WrongCrcIsAcceptedAndIdatsJoinInOrder)
{
    ChunkState state;
    auto file = PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", {1, 2}).Chunk("IDAT", {3}).Chunk("IDAT", {4, 5}).Iend().bytes();
    file[8 + 12 + 13 - 1] ^= 0xFF; // IHDR's CRC
    ASSERT_EQ(Read(file, state), kErrorNone);
    MemorySource source(file);
    EXPECT_EQ(ImageData(state, source), (std::vector<uint8_t>{1, 2, 3, 4, 5}));
}

// A zero-length chunk does not resize the buffer: it reads as many bytes as the chunk before
// it held. Here the second tEXt says length 0 but its three bytes follow, and are read.
TEST(ChunkReader, ZeroLengthChunkReadsThePreviousChunksSize)
{
    ChunkState state;
    PngWriter writer;
    writer.Ihdr(1, 1, 8, 0).Chunk("tEXt", Bytes(std::string_view("a\0b", 3)));
    writer.Append({0, 0, 0, 0, 't', 'E', 'X', 't', 'c', 0, 'd', 9, 9, 9, 9});
    writer.Chunk("IDAT", kSomeIdat).Iend();
    ASSERT_EQ(Read(writer.bytes(), state), kErrorNone);
    EXPECT_EQ(state.text, std::string("a\0b\0c\0d\0", 8));

    // At the end of the file the reused buffer reads past it harmlessly: a zero-length IEND
    // after a 9-byte IDAT still ends the stream.
    ChunkState other;
    EXPECT_EQ(Read(PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", kSomeIdat).Iend().bytes(), other), kErrorNone);

    // A zero-length IDAT after a 2-byte one takes the next two bytes of the file as its data.
    ChunkState again;
    PngWriter twice;
    twice.Ihdr(1, 1, 8, 0).Chunk("IDAT", {7, 8}).Append({0, 0, 0, 0, 'I', 'D', 'A', 'T', 5, 6, 1, 2, 3, 4}).Iend();
    ASSERT_EQ(Read(twice.bytes(), again), kErrorNone);
    MemorySource source(twice.bytes());
    EXPECT_EQ(ImageData(again, source), (std::vector<uint8_t>{7, 8, 5, 6}));
}

TEST(ChunkReader, NegativeLengthKeepsTheBufferToo)
{
    ChunkState state;
    PngWriter writer;
    writer.Ihdr(1, 1, 8, 0).Chunk("tEXt", {'x', 0, 'y'});
    writer.Append({0xFF, 0xFF, 0xFF, 0xFE, 't', 'E', 'X', 't', 'p', 0, 'q', 0, 0, 0, 0});
    writer.Chunk("IDAT", kSomeIdat).Iend();
    ASSERT_EQ(Read(writer.bytes(), state), kErrorNone);
    EXPECT_EQ(state.text, std::string("x\0y\0p\0q\0", 8));
}

TEST(ChunkReader, TextAndCompressedTextAccumulateAcrossChunksAndStreams)
{
    std::vector<uint8_t> zText = Bytes(std::string_view("Title\0\0", 7));
    auto compressed = testing::Compress(Bytes("Hello, compressed world"));
    zText.insert(zText.end(), compressed.begin(), compressed.end());
    auto file = PngWriter()
                    .Ihdr(1, 1, 8, 0)
                    .Chunk("tEXt", Bytes(std::string_view("T1\0A", 4)))
                    .Chunk("zTXt", zText)
                    .Chunk("tEXt", Bytes(std::string_view("T2\0B", 4)))
                    .Chunk("IDAT", kSomeIdat)
                    .Iend()
                    .bytes();
    ChunkState state;
    ASSERT_EQ(Read(file, state), kErrorNone);
    EXPECT_EQ(state.text, std::string("T1\0A\0T2\0B\0", 10));
    EXPECT_EQ(state.compressedText, std::string("Title\0Hello, compressed world\0", 30));
    ASSERT_EQ(Read(file, state), kErrorNone); // the same object reads a second file
    EXPECT_EQ(state.text, std::string("T1\0A\0T2\0B\0T1\0A\0T2\0B\0", 20));
    EXPECT_EQ(state.compressedText.size(), 60u);
}

TEST(ChunkReader, ModificationTimeLayout)
{
    auto time = [](std::vector<uint8_t> payload) {
        ChunkState state;
        Read(PngWriter().Ihdr(1, 1, 8, 0).Chunk("tIME", payload).Chunk("IDAT", kSomeIdat).Iend().bytes(), state);
        return state.modificationTime;
    };
    EXPECT_EQ(time({0x07, 0xD4, 7, 9, 8, 5, 3}), "09.07.2004 08:05:03");
    EXPECT_EQ(time({0x07, 0xCF, 12, 31, 23, 59, 58}), "31.12.1999 23:59:58");
    EXPECT_EQ(time({0, 5, 1, 2, 3, 4, 5}), "02.01.5 03:04:05");
    EXPECT_EQ(time({0x07, 0xD4, 7}), "00.07.2004 00:00:00"); // a short chunk reads zeros
}

TEST(ChunkReader, HeaderAndGammaAreTakenAsTheyStand)
{
    ChunkState state;
    auto file = PngWriter()
                    .Chunk("IHDR", {0x80, 0, 0, 1, 0, 0, 1, 0, 200, 9, 3, 4, 5})
                    .Chunk("gAMA", {0, 0, 0xB1, 0x8F})
                    .Chunk("IDAT", kSomeIdat)
                    .Iend()
                    .bytes();
    ASSERT_EQ(Read(file, state), kErrorNone);
    EXPECT_EQ(state.header.width, static_cast<int32_t>(0x80000001u));
    EXPECT_EQ(state.header.height, 256);
    EXPECT_EQ(state.header.bitDepth, 200);
    EXPECT_EQ(state.header.colorType, 9);
    EXPECT_EQ(state.header.compression, 3);
    EXPECT_EQ(state.header.filter, 4);
    EXPECT_EQ(state.header.interlace, 5);
    EXPECT_EQ(state.gamma, 45455);
}

struct BackgroundCase {
    int colorType, depth;
    std::vector<uint8_t> payload;
    ColorRef expected;
};

TEST(ChunkReader, BackgroundColourForEveryColourType)
{
    std::vector<uint8_t> palette = {10, 20, 30, 40, 50, 60, 70, 80, 90};
    const BackgroundCase cases[] = {
        {0, 1, {0, 1}, Rgb(255, 255, 255)},
        {0, 2, {0, 2}, Rgb(170, 170, 170)},
        {4, 4, {0, 3}, Rgb(51, 51, 51)},
        {0, 8, {0, 200}, Rgb(200, 200, 200)},
        {0, 16, {0, 255}, Rgb(255, 255, 255)},
        {0, 16, {1, 0}, 0},      // past the 16-bit ramp's 256 entries
        {0, 2, {0, 4}, 0},       // past 2^d - 1
        {0, 8, {0, 1, 2}, 0},    // wrong length
        {2, 16, {0xFF, 0xFF, 0, 0, 0x80, 0}, Rgb(255, 0, 128)},
        {6, 8, {0, 10, 0, 20, 0, 30}, Rgb(10, 20, 30)},
        {2, 8, {0, 10, 0, 20}, 0},
        {3, 8, {1}, Rgb(40, 50, 60)},
        {3, 8, {8}, 0},          // past the loose bound (last index - 1 = 7)
        {3, 8, {0, 0}, 0},
    };
    for (const auto& c : cases) {
        ChunkState state;
        state.palette = palette;
        auto file = PngWriter().Ihdr(1, 1, c.depth, c.colorType).Chunk("bKGD", c.payload).Chunk("IDAT", kSomeIdat).Iend().bytes();
        ASSERT_EQ(Read(file, state), kErrorNone);
        EXPECT_TRUE(state.hasBackground);
        EXPECT_EQ(state.backgroundColor, c.expected) << "type " << c.colorType << " depth " << c.depth;
    }
}

TEST(ChunkReader, BackgroundEdgeCases)
{
    // Colour type 1 assigns nothing: the previous colour stays.
    ChunkState state;
    state.backgroundColor = 0x123456;
    Read(PngWriter().Ihdr(1, 1, 8, 1).Chunk("bKGD", {0, 1}).Chunk("IDAT", kSomeIdat).Iend().bytes(), state);
    EXPECT_EQ(state.backgroundColor, 0x123456u);
    EXPECT_TRUE(state.hasBackground);

    // An index inside the loose bound but past the last entry reads past the palette.
    ChunkState loose;
    loose.palette = {1, 2, 3, 4, 5, 6};
    auto file = PngWriter().Ihdr(1, 1, 8, 3).Chunk("bKGD", {2}).Chunk("IDAT", kSomeIdat).Iend().bytes();
    EXPECT_EQ(RaisedBy([&] { Read(file, loose); }), 9);

    // The flags are per stream; the colour is not.
    ChunkState flags;
    Read(PngWriter().Ihdr(1, 1, 8, 0).Chunk("bKGD", {0, 9}).Chunk("tRNS", {0, 1}).Chunk("IDAT", kSomeIdat).Iend().bytes(), flags);
    EXPECT_TRUE(flags.hasBackground && flags.hasTransparency);
    Read(PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", kSomeIdat).Iend().bytes(), flags);
    EXPECT_FALSE(flags.hasBackground || flags.hasTransparency);
    EXPECT_EQ(flags.backgroundColor, Rgb(9, 9, 9));
    EXPECT_EQ(flags.transparency, (std::vector<uint8_t>{0, 1}));
}

} // namespace
} // namespace vex::png
