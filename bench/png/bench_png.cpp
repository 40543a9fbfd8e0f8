// bench-png: whole-file decode to 8-bit RGB or RGBA, in one run on the same generated files:
// our LoadPNG (from memory, to its device-independent bitmap) against libpng, libspng and
// stb_image. Throughput is output megabytes per second, counted the same for every decoder as
// width x height x channels (RGB, or RGBA for images with alpha), in the thread's CPU time; each
// figure is the best of 7 turns. Our palette images come out as 8-bit palette bitmaps (that is what the
// decoder builds); the others expand them to RGB.

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_PNG
#include <stb_image.h>

#include <png.h>
#include <spng.h>

#include <algorithm>
#include <ctime>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/runtime_error.h"
#include "corpus.h"
#include "decoders.h"
#include "png/load_png.h"

namespace {

using vex::bench::CorpusFile;
using vex::bench::DecodeOurs;
using vex::bench::DecodeLibpng;
using vex::bench::ImageKind;

// Each decoder returns a checksum of a few output bytes so that no work is optimised away.
uint64_t DecodeLibpngRgb(const CorpusFile& file) { return DecodeLibpng(file, vex::bench::ChannelOrder::Rgb); }

uint64_t DecodeSpng(const CorpusFile& file)
{
    spng_ctx* context = spng_ctx_new(0);
    spng_set_png_buffer(context, file.png.data(), file.png.size());
    int format = file.channels == 4 ? SPNG_FMT_RGBA8 : SPNG_FMT_RGB8;
    size_t size = 0;
    uint64_t sum = 0;
    if (spng_decoded_image_size(context, format, &size) == 0) {
        std::vector<uint8_t> out(size);
        if (spng_decode_image(context, out.data(), size, format, 0) == 0)
            sum = out.size() + out[out.size() / 2];
    }
    spng_ctx_free(context);
    return sum;
}

uint64_t DecodeStb(const CorpusFile& file)
{
    int width = 0, height = 0, channels = 0;
    stbi_uc* out = stbi_load_from_memory(file.png.data(), static_cast<int>(file.png.size()), &width, &height,
                                         &channels, file.channels);
    if (out == nullptr)
        return 0;
    size_t size = static_cast<size_t>(width) * height * file.channels;
    uint64_t sum = size + out[size / 2];
    stbi_image_free(out);
    return sum;
}

// Our picture must equal libpng's pixels before its speed means anything.
bool SamePixelsAsLibpng(const CorpusFile& file)
{
    vex::png::LoadPNG decoder;
    auto box = std::make_shared<vex::png::PictureBox>();
    decoder.setPicBox(box);
    decoder.OpenPNGFromMemory(file.png);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!box->Picture || !png_image_begin_read_from_memory(&image, file.png.data(), file.png.size()))
        return false;
    image.format = file.channels == 4 ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    std::vector<uint8_t> reference(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, reference.data(), 0, nullptr);
    const vex::platform::Dib& dib = box->Picture->bitmap();
    for (int y = 0; y < file.height; ++y) {
        for (int x = 0; x < file.width; ++x) {
            const uint8_t* px = &reference[(static_cast<size_t>(y) * file.width + x) * file.channels];
            if (dib.pixel(x, y) != vex::Rgb(px[0], px[1], px[2]))
                return false;
            if (file.channels == 4 && dib.row(y)[x * 4 + 3] != px[3])
                return false;
        }
    }
    return true;
}

struct Decoder {
    const char* name;
    uint64_t (*decode)(const CorpusFile&);
};
const Decoder kDecoders[] = {
    {"ours", DecodeOurs}, {"libpng", DecodeLibpngRgb}, {"libspng", DecodeSpng}, {"stb_image", DecodeStb}};
constexpr size_t kDecoderCount = std::size(kDecoders);

// The thread's CPU time: the machine is shared, and wall-clock time would measure the neighbours.
double CpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + now.tv_nsec * 1e-9;
}

// Seconds per decode of each decoder on one file: the decoders take turns, 7 turns, each turn
// repeating its decode for at least ~20 ms; the best turn counts.
void BestSeconds(const CorpusFile& file, double (&best)[std::size(kDecoders)], uint64_t& sink)
{
    int repeats[std::size(kDecoders)];
    for (size_t d = 0; d < std::size(kDecoders); ++d) {
        double start = CpuSeconds();
        sink += kDecoders[d].decode(file); // warm-up, and the size of one decode
        double once = std::max(CpuSeconds() - start, 1e-6);
        repeats[d] = std::max(1, static_cast<int>(0.02 / once));
        best[d] = 1e9;
    }
    for (int turn = 0; turn < 7; ++turn) {
        for (size_t d = 0; d < std::size(kDecoders); ++d) {
            double start = CpuSeconds();
            for (int r = 0; r < repeats[d]; ++r)
                sink += kDecoders[d].decode(file);
            best[d] = std::min(best[d], (CpuSeconds() - start) / repeats[d]);
        }
    }
}

std::string CpuName()
{
    std::ifstream info("/proc/cpuinfo");
    std::string line;
    while (std::getline(info, line))
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    return "unknown CPU";
}

} // namespace

int main()
{
    std::vector<CorpusFile> corpus;
    const ImageKind kinds[] = {ImageKind::Photo, ImageKind::Screenshot, ImageKind::Gradient, ImageKind::PaletteArt};
    const int sides[] = {512, 1024, 2048};
    const int levels[] = {1, 6, 9};
    for (ImageKind kind : kinds)
        for (int side : sides)
            for (int level : levels)
                corpus.push_back(vex::bench::MakeCorpusFile(kind, side, side, level));

    for (const auto& file : corpus) {
        if (!SamePixelsAsLibpng(file)) {
            std::fprintf(stderr, "bench-png: our decode of %s differs from libpng\n", file.name.c_str());
            return 1;
        }
    }
    std::printf("PNG decode to 8-bit RGB/RGBA, output MB/s (best of 7 turns, thread CPU time), %s, %u hardware threads\n\n",
                CpuName().c_str(), std::thread::hardware_concurrency());
    std::printf("| file | PNG KB |");
    for (const auto& decoder : kDecoders)
        std::printf(" %s |", decoder.name);
    std::printf(" ours/libpng | ours/libspng | ours/stb |\n|---|---:|");
    for (size_t i = 0; i < kDecoderCount + 3; ++i)
        std::printf("---:|");
    std::printf("\n");

    // Totals: all files, and the files every decoder turns into the same RGB/RGBA output (our
    // palette images stay 8-bit palette bitmaps, so they are totalled on their own).
    struct Total {
        const char* name;
        double seconds[kDecoderCount] = {};
        double bytes = 0;
    } totals[] = {{"**all files**"}, {"**RGB/RGBA files**"}, {"**palette files**"}};
    uint64_t sink = 0;
    for (const auto& file : corpus) {
        double bytes = static_cast<double>(file.width) * file.height * file.channels;
        bool palette = file.name.rfind("palette", 0) == 0;
        double rate[kDecoderCount];
        double best[kDecoderCount];
        BestSeconds(file, best, sink);
        for (size_t d = 0; d < kDecoderCount; ++d) {
            double seconds = best[d];
            totals[0].seconds[d] += seconds;
            totals[palette ? 2 : 1].seconds[d] += seconds;
            rate[d] = bytes / seconds / 1e6;
        }
        totals[0].bytes += bytes;
        totals[palette ? 2 : 1].bytes += bytes;
        std::printf("| %s | %zu |", file.name.c_str(), file.png.size() / 1024);
        for (double r : rate)
            std::printf(" %.0f |", r);
        std::printf(" %.2f | %.2f | %.2f |\n", rate[0] / rate[1], rate[0] / rate[2], rate[0] / rate[3]);
    }
    for (const Total& total : totals) {
        double rate[kDecoderCount];
        for (size_t d = 0; d < kDecoderCount; ++d)
            rate[d] = total.bytes / total.seconds[d] / 1e6;
        std::printf("| %s | |", total.name);
        for (double r : rate)
            std::printf(" **%.0f** |", r);
        std::printf(" **%.2f** | **%.2f** | **%.2f** |\n", rate[0] / rate[1], rate[0] / rate[2], rate[0] / rate[3]);
    }
    std::printf("\n(checksum %llu)\n", static_cast<unsigned long long>(sink));
    return 0;
}
