// Inflate throughput: our Inflater against zlib's inflate and libdeflate on the same data,
// in one run. The corpus is made here: procedural images of four kinds (photographic,
// screenshot, gradient, palette art) at 0.25 to 4 megapixels, PNG-filtered row by row as an
// encoder would, compressed by zlib at several levels. Figures are output megabytes per second
// (best of several timed runs, in CPU time of the thread).
//
//   bench-inflate [--quick] [--only TEXT]
//     --quick: the small images only; --only: the cases whose name contains TEXT

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <span>
#include <random>
#include <string>
#include <vector>

#include "png/inflate.h"

namespace {

using Bytes = std::vector<uint8_t>;

// ---- Corpus -----------------------------------------------------------------------------------

struct Image {
    unsigned width = 0, height = 0, channels = 0; // channels 1 = palette indices
    Bytes pixels;
};

uint8_t Clamp(double value) { return uint8_t(std::clamp(value, 0.0, 255.0)); }

// Smooth value noise at a few octaves, with sensor grain: a stand-in for a photograph.
Image Photographic(unsigned width, unsigned height, uint32_t seed)
{
    std::mt19937 random(seed);
    const unsigned grid = 64;
    std::vector<float> lattice((width / grid + 2) * (height / grid + 2) * 3);
    for (auto& v : lattice)
        v = float(random() % 256);
    auto lerp = [](float a, float b, float t) { return a + (b - a) * (t * t * (3 - 2 * t)); };
    const unsigned gw = width / grid + 2;
    Image image{width, height, 3, Bytes(size_t(width) * height * 3)};
    std::normal_distribution<float> grain(0.0f, 3.0f);
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            float fx = float(x) / grid, fy = float(y) / grid;
            unsigned ix = unsigned(fx), iy = unsigned(fy);
            float tx = fx - ix, ty = fy - iy;
            for (unsigned c = 0; c < 3; ++c) {
                auto at = [&](unsigned gx, unsigned gy) { return lattice[(gy * gw + gx) * 3 + c]; };
                float top = lerp(at(ix, iy), at(ix + 1, iy), tx);
                float bottom = lerp(at(ix, iy + 1), at(ix + 1, iy + 1), tx);
                float detail = 12.0f * std::sin(x * 0.13f + c) * std::cos(y * 0.11f);
                image.pixels[(size_t(y) * width + x) * 3 + c] = Clamp(lerp(top, bottom, ty) + detail + grain(random));
            }
        }
    return image;
}

// Flat panels, borders, title bars and rows of glyph-like marks, RGBA.
Image Screenshot(unsigned width, unsigned height, uint32_t seed)
{
    std::mt19937 random(seed);
    Image image{width, height, 4, Bytes(size_t(width) * height * 4)};
    auto fill = [&](unsigned x0, unsigned y0, unsigned x1, unsigned y1, uint32_t rgb) {
        for (unsigned y = y0; y < std::min(y1, height); ++y)
            for (unsigned x = x0; x < std::min(x1, width); ++x) {
                uint8_t* p = &image.pixels[(size_t(y) * width + x) * 4];
                p[0] = uint8_t(rgb >> 16), p[1] = uint8_t(rgb >> 8), p[2] = uint8_t(rgb), p[3] = 255;
            }
    };
    fill(0, 0, width, height, 0xd4d0c8);
    for (int window = 0; window < 12; ++window) {
        unsigned x0 = random() % width, y0 = random() % height;
        unsigned x1 = x0 + 100 + random() % (width / 2), y1 = y0 + 80 + random() % (height / 2);
        fill(x0, y0, x1, y1, 0x808080);
        fill(x0 + 1, y0 + 1, x1 - 1, y1 - 1, 0xffffff);
        fill(x0 + 1, y0 + 1, x1 - 1, y0 + 20, 0x0a246a);
        for (unsigned line = y0 + 30; line + 10 < y1; line += 16)
            for (unsigned x = x0 + 8; x + 6 < x1 - 8; x += 7) {
                uint32_t glyph = random();
                if (glyph % 9 == 0)
                    continue;
                for (unsigned gy = 0; gy < 9; ++gy)
                    for (unsigned gx = 0; gx < 5; ++gx)
                        if ((glyph >> ((gy * 5 + gx) % 31)) & 1)
                            fill(x + gx, line + gy, x + gx + 1, line + gy + 1, 0x000000);
            }
    }
    return image;
}

// Two-axis colour gradients with a soft vignette, RGBA with varying alpha.
Image Gradient(unsigned width, unsigned height, uint32_t)
{
    Image image{width, height, 4, Bytes(size_t(width) * height * 4)};
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            double u = double(x) / width, v = double(y) / height;
            double d = std::hypot(u - 0.5, v - 0.5);
            uint8_t* p = &image.pixels[(size_t(y) * width + x) * 4];
            p[0] = Clamp(255 * u);
            p[1] = Clamp(255 * v);
            p[2] = Clamp(255 * (1 - u) * (1 - d));
            p[3] = Clamp(255 * (1 - d));
        }
    return image;
}

// 8-bit palette art: flat shapes, dithered shading and outlines.
Image PaletteArt(unsigned width, unsigned height, uint32_t seed)
{
    std::mt19937 random(seed);
    Image image{width, height, 1, Bytes(size_t(width) * height)};
    struct Blob {
        double x, y, r;
        uint8_t colour;
    };
    std::vector<Blob> blobs;
    for (int i = 0; i < 40; ++i)
        blobs.push_back({double(random() % width), double(random() % height), 20.0 + random() % (width / 6),
                         uint8_t(16 * (random() % 15))});
    static const int bayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            uint8_t index = uint8_t(y * 4 / height);
            for (const Blob& b : blobs) {
                double d = std::hypot(x - b.x, y - b.y) / b.r;
                if (d < 1.0) {
                    int shade = int((1.0 - d) * 16.0 * 15.0 / 16.0);
                    index = uint8_t(b.colour + std::min(15, (shade + (bayer[y % 4][x % 4] > 7 ? 1 : 0))));
                    if (d > 0.96)
                        index = 255;
                }
            }
            image.pixels[size_t(y) * width + x] = index;
        }
    return image;
}

// The PNG filters, chosen per row by the smallest sum of absolute values (as encoders do);
// palette images use filter None.
Bytes Filter(const Image& image)
{
    const size_t bpp = image.channels, stride = size_t(image.width) * bpp;
    Bytes out;
    out.reserve((stride + 1) * image.height);
    Bytes candidate(stride);
    for (unsigned y = 0; y < image.height; ++y) {
        const uint8_t* row = &image.pixels[y * stride];
        const uint8_t* up = y > 0 ? row - stride : nullptr;
        int bestFilter = 0;
        long bestScore = -1;
        Bytes best;
        for (int filter = 0; filter < (image.channels == 1 ? 1 : 5); ++filter) {
            for (size_t i = 0; i < stride; ++i) {
                int a = i >= bpp ? row[i - bpp] : 0, b = up ? up[i] : 0, c = (up && i >= bpp) ? up[i - bpp] : 0;
                int predictor = 0;
                switch (filter) {
                case 1: predictor = a; break;
                case 2: predictor = b; break;
                case 3: predictor = (a + b) / 2; break;
                case 4: {
                    int p = a + b - c, pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
                    predictor = (pa <= pb && pa <= pc) ? a : (pb <= pc ? b : c);
                    break;
                }
                }
                candidate[i] = uint8_t(row[i] - predictor);
            }
            long score = 0;
            for (uint8_t v : candidate)
                score += v < 128 ? v : 256 - v;
            if (bestScore < 0 || score < bestScore) {
                bestScore = score;
                bestFilter = filter;
                best = candidate;
            }
        }
        out.push_back(uint8_t(bestFilter));
        out.insert(out.end(), best.begin(), best.end());
    }
    return out;
}

Bytes ZlibCompress(const Bytes& data, int level)
{
    uLongf size = compressBound(uLong(data.size()));
    Bytes out(size);
    if (compress2(out.data(), &size, data.data(), uLong(data.size()), level) != Z_OK)
        std::abort();
    out.resize(size);
    return out;
}

// ---- Timing -----------------------------------------------------------------------------------

// The machine is shared, so time is this thread's CPU time, not the wall clock: other
// processes taking the cores do not count against whoever is being measured.
double CpuSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Times the decoders in turns (so that a slow patch of the machine hits all of them), each turn
// repeating a decoder until it has run 20 ms; returns each decoder's best time per run.
std::vector<double> BestSeconds(const std::vector<std::function<void()>>& runs, int turns = 7)
{
    std::vector<double> best(runs.size(), 1e30);
    for (const auto& run : runs)
        run(); // warm the caches and the allocator
    for (int turn = 0; turn < turns; ++turn)
        for (size_t i = 0; i < runs.size(); ++i) {
            int repeats = 0;
            const double start = CpuSeconds();
            double elapsed;
            do {
                runs[i]();
                ++repeats;
                elapsed = CpuSeconds() - start;
            } while (elapsed < 0.02);
            best[i] = std::min(best[i], elapsed / repeats);
        }
    return best;
}

struct Case {
    std::string name;
    Bytes raw;    // the filtered rows
    Bytes zlib;   // zlib stream of them
};

struct Row {
    std::string name;
    double megabytes, ratio, ours, zlib, libdeflate;
};

} // namespace

int main(int argc, char** argv)
{
    bool quick = false;
    const char* only = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--quick") == 0)
            quick = true;
        else if (std::strcmp(argv[i], "--only") == 0 && i + 1 < argc)
            only = argv[++i];
    }
    struct Kind {
        const char* name;
        Image (*make)(unsigned, unsigned, uint32_t);
    };
    const Kind kinds[] = {{"photo", Photographic}, {"screen", Screenshot}, {"gradient", Gradient}, {"palette", PaletteArt}};
    struct Size {
        unsigned width, height;
        std::vector<int> levels;
    };
    std::vector<Size> sizes = {{512, 512, {1, 6, 9}}, {1024, 1024, {6}}, {2048, 2048, {6}}};
    if (quick)
        sizes.resize(1);

    std::vector<Case> cases;
    for (const Kind& kind : kinds)
        for (const Size& size : sizes) {
            Bytes raw;
            for (int level : size.levels) {
                char name[64];
                std::snprintf(name, sizeof name, "%s %.2gMP L%d", kind.name, size.width * size.height / 1048576.0, level);
                if (only != nullptr && std::strstr(name, only) == nullptr)
                    continue;
                if (raw.empty())
                    raw = Filter(kind.make(size.width, size.height, 7));
                cases.push_back({name, raw, ZlibCompress(raw, level)});
            }
        }

    vex::png::Inflater inflater;
    libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
    std::vector<Row> rows;
    double totalBytes = 0, oursTime = 0, zlibTime = 0, libdeflateTime = 0;
    std::printf("%-22s %7s %6s %10s %10s %10s %8s %8s\n", "data", "MB", "ratio", "ours MB/s", "zlib MB/s",
                "libdefl.", "vs zlib", "vs libd.");
    for (const Case& c : cases) {
        const size_t size = c.raw.size();
        // Ours: the image decode's entry, from the byte after the 2-byte zlib header.
        std::span<const uint8_t> stream(c.zlib.data() + 2, c.zlib.size() - 2);
        int32_t capacity = int32_t(size);
        Bytes ours(vex::png::Inflater::OutputSizeFor(capacity));
        size_t produced = 0;
        // zlib and libdeflate inflate the same raw deflate data (no header, no checksum).
        std::span<const uint8_t> raw(stream.data(), stream.size() - 4);
        Bytes theirs(size), third(size);
        z_stream z{};
        if (inflateInit2(&z, -15) != Z_OK)
            std::abort();
        const std::vector<double> seconds = BestSeconds({
            [&] {
                int32_t cap = int32_t(size);
                produced = inflater.InflateInto(stream, cap, false, ours).produced;
            },
            [&] {
                inflateReset(&z);
                z.next_in = const_cast<uint8_t*>(raw.data());
                z.avail_in = unsigned(raw.size());
                z.next_out = theirs.data();
                z.avail_out = unsigned(size);
                if (inflate(&z, Z_FINISH) != Z_STREAM_END || z.total_out != size)
                    std::abort();
            },
            [&] {
                size_t length = 0;
                if (libdeflate_deflate_decompress(decompressor, raw.data(), raw.size(), third.data(), size, &length) !=
                        LIBDEFLATE_SUCCESS ||
                    length != size)
                    std::abort();
            },
        });
        inflateEnd(&z);
        const double t0 = seconds[0], t1 = seconds[1], t2 = seconds[2];
        if (produced != size || !std::equal(c.raw.begin(), c.raw.end(), ours.begin()) || theirs != c.raw || third != c.raw) {
            std::fprintf(stderr, "%s: outputs differ\n", c.name.c_str());
            return 1;
        }
        const double mb = size / 1e6;
        rows.push_back({c.name, mb, double(size) / c.zlib.size(), mb / t0, mb / t1, mb / t2});
        const Row& r = rows.back();
        std::printf("%-22s %7.2f %6.2f %10.0f %10.0f %10.0f %8.2f %8.2f\n", r.name.c_str(), r.megabytes, r.ratio,
                    r.ours, r.zlib, r.libdeflate, r.ours / r.zlib, r.ours / r.libdeflate);
        std::fflush(stdout);
        totalBytes += mb;
        oursTime += t0;
        zlibTime += t1;
        libdeflateTime += t2;
    }
    double geoZlib = 0, geoLibdeflate = 0;
    for (const Row& r : rows) {
        geoZlib += std::log(r.ours / r.zlib);
        geoLibdeflate += std::log(r.ours / r.libdeflate);
    }
    std::printf("%-22s %7.2f %6s %10.0f %10.0f %10.0f %8.2f %8.2f\n", "all (total time)", totalBytes, "",
                totalBytes / oursTime, totalBytes / zlibTime, totalBytes / libdeflateTime, zlibTime / oursTime,
                libdeflateTime / oursTime);
    std::printf("%-22s %7s %6s %10s %10s %10s %8.2f %8.2f\n", "geometric mean", "", "", "", "", "",
                std::exp(geoZlib / rows.size()), std::exp(geoLibdeflate / rows.size()));
    double worst = 1e30;
    for (const Row& r : rows)
        worst = std::min(worst, r.ours / r.libdeflate);
    std::printf("\ngoal 3, inflate against libdeflate: %.2fx over the corpus (total time; goal 1.0x), %.2fx by geometric"
                " mean, slowest file %.2fx (goal 0.9x)\n",
                libdeflateTime / oursTime, std::exp(geoLibdeflate / rows.size()), worst);
    libdeflate_free_decompressor(decompressor);
    return 0;
}
