// bench-png-process: what a user does with a PNG, loading it once in a fresh process. For each
// file of a corpus of large generated images (written to a temporary folder), two programs do
// the same job, decode the file and write it as a Windows bitmap: `vexpanel png2bmp` and a small
// libpng program (libpng_bmp.c). They take turns, 5 each; per file the figures are the least CPU
// time (user + system) and the least peak resident size, both from the rusage of the finished
// child (measured by the small rusage-of program), so the neighbours on a shared machine do not count. Then the same files are decoded in
// this process, from memory, by our LoadPNG, Wuffs and libpng (best of 5 turns in the thread's
// CPU time). Before any timing our pixels are checked against libpng's on every file.

#include <png.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../png/corpus.h"
#include "../png/decoders.h"
#include "png/load_png.h"
#include "wuffs_peer.h"

namespace {

using vex::bench::CorpusFile;
using vex::bench::DecodeOurs;
using vex::bench::DecodeLibpng;
using vex::bench::CorpusOptions;
using vex::bench::ImageKind;

struct Item {
    CorpusFile file;
    bool interlaced = false;
    std::string path;
};

std::vector<Item> MakeCorpus()
{
    struct Spec {
        ImageKind kind;
        int width, height, level;
        CorpusOptions options;
    };
    const Spec specs[] = {
        {ImageKind::Photo, 2048, 1536, 6, {}},
        {ImageKind::Photo, 2048, 1536, 1, {}},
        {ImageKind::Screenshot, 1920, 1080, 6, {}},
        {ImageKind::ScreenshotAlpha, 3000, 1500, 6, {false, true}},
        {ImageKind::ScreenshotAlpha, 3000, 1500, 9, {}},
        {ImageKind::Plot, 1600, 1200, 6, {}},
        {ImageKind::Plot, 2400, 1800, 9, {false, true}},
        {ImageKind::Gradient, 2100, 2100, 6, {}},
        {ImageKind::PaletteArt, 2048, 2048, 6, {}},
        {ImageKind::Photo, 2048, 1536, 6, {true, false}},
        {ImageKind::Gradient, 1500, 1500, 6, {true, false}},
    };
    std::vector<Item> items;
    for (const Spec& spec : specs)
        items.push_back({vex::bench::MakeCorpusFile(spec.kind, spec.width, spec.height, spec.level, spec.options),
                         spec.options.interlaced, ""});
    return items;
}

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
    for (int y = 0; y < file.height; ++y)
        for (int x = 0; x < file.width; ++x) {
            const uint8_t* px = &reference[(static_cast<size_t>(y) * file.width + x) * file.channels];
            if (dib.pixel(x, y) != vex::Rgb(px[0], px[1], px[2]) || (file.channels == 4 && dib.row(y)[x * 4 + 3] != px[3]))
                return false;
        }
    return true;
}

struct ChildCost {
    double seconds = 1e30; // user + system CPU
    double mebibytes = 1e30; // peak resident size
};

// Runs a program through rusage-of and reads its CPU time and peak resident size. A run that
// fails is tried again twice (a fork can fail on a machine short of memory) before giving up.
ChildCost RunChild(const std::vector<std::string>& arguments)
{
    std::string command = VEX_RUSAGE_OF_PATH " -q";
    for (const std::string& argument : arguments)
        command += " '" + argument + "'";
    long micros = 0, kibibytes = 0;
    int status = -1;
    for (int attempt = 0; attempt < 3 && status != 0; ++attempt) {
        FILE* pipe = popen(command.c_str(), "r");
        if (pipe == nullptr)
            continue;
        if (std::fscanf(pipe, "%ld %ld %d", &micros, &kibibytes, &status) != 3)
            status = -1;
        pclose(pipe);
    }
    if (status != 0) {
        std::fprintf(stderr, "%s failed on %s (exit status %d)\n", arguments[0].c_str(), arguments.back().c_str(), status);
        std::exit(1);
    }
    return {micros / 1e6, kibibytes / 1024.0};
}

double ThreadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec / 1e9;
}

// libpng as the bitmap holds the pixels, blue first.
uint64_t DecodeLibpngBgr(const CorpusFile& file) { return DecodeLibpng(file, vex::bench::ChannelOrder::Bgr); }

uint64_t DecodeWuffs(const CorpusFile& file) { return vex::bench::DecodeWuffs(file.png.data(), file.png.size(), file.channels == 4); }

double GeometricMean(const std::vector<double>& values)
{
    double sum = 0;
    for (double value : values)
        sum += std::log(value);
    return values.empty() ? 0 : std::exp(sum / static_cast<double>(values.size()));
}

} // namespace

int main()
{
    constexpr int kTurns = 5;
    std::vector<Item> corpus = MakeCorpus();
    std::filesystem::path folder = std::filesystem::temp_directory_path() / ("bench-png-process-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    for (size_t i = 0; i < corpus.size(); ++i) {
        corpus[i].path = (folder / ("file" + std::to_string(i) + ".png")).string();
        std::ofstream(corpus[i].path, std::ios::binary)
            .write(reinterpret_cast<const char*>(corpus[i].file.png.data()), static_cast<std::streamsize>(corpus[i].file.png.size()));
        if (!SamePixelsAsLibpng(corpus[i].file)) {
            std::printf("%s: our pixels differ from libpng's\n", corpus[i].file.name.c_str());
            return 1;
        }
    }
    const std::string output = (folder / "out.bmp").string();

    std::printf("Fresh process, decode + write a bitmap: CPU ms (user + system) and peak MiB, least of %d turns\n", kTurns);
    std::printf("%-36s %6s %8s %8s %6s %8s %8s %6s\n", "file", "MB", "ours ms", "libpng", "speed", "ours MiB", "libpng", "memory");
    std::vector<double> speedups, memoryRatios;
    double slowest = 1e30, worstMemory = 0;
    for (const Item& item : corpus) {
        ChildCost ours, theirs;
        for (int turn = 0; turn < kTurns; ++turn) {
            ChildCost a = RunChild({VEX_VEXPANEL_PATH, "png2bmp", item.path, output});
            ChildCost b = RunChild({VEX_LIBPNG_BMP_PATH, item.path, output});
            ours = {std::min(ours.seconds, a.seconds), std::min(ours.mebibytes, a.mebibytes)};
            theirs = {std::min(theirs.seconds, b.seconds), std::min(theirs.mebibytes, b.mebibytes)};
        }
        double speed = theirs.seconds / ours.seconds, memory = ours.mebibytes / theirs.mebibytes;
        speedups.push_back(speed);
        slowest = std::min(slowest, speed);
        if (!item.interlaced) {
            memoryRatios.push_back(memory);
            worstMemory = std::max(worstMemory, memory);
        }
        std::printf("%-36s %6.2f %8.1f %8.1f %6.2f %8.1f %8.1f %6.2f\n", item.file.name.c_str(), item.file.png.size() / 1e6,
                    ours.seconds * 1e3, theirs.seconds * 1e3, speed, ours.mebibytes, theirs.mebibytes, memory);
    }
    if (std::getenv("BENCH_KEEP_CORPUS") == nullptr)
        std::filesystem::remove_all(folder);
    else
        std::printf("(corpus kept in %s)\n", folder.c_str());

    std::printf("\nIn process, from memory: CPU ms, best of %d turns\n", kTurns);
    std::printf("%-36s %8s %8s %8s %9s %9s\n", "file", "ours", "wuffs", "libpng", "vs wuffs", "vs libpng");
    std::vector<double> versusWuffs, versusLibpng;
    for (const Item& item : corpus) {
        double best[3] = {1e30, 1e30, 1e30};
        uint64_t (*decoders[3])(const CorpusFile&) = {DecodeOurs, DecodeWuffs, DecodeLibpngBgr};
        for (int turn = 0; turn < kTurns; ++turn)
            for (int d = 0; d < 3; ++d) {
                double start = ThreadSeconds();
                if (decoders[d](item.file) == 0) {
                    std::printf("%s: decoder %d failed\n", item.file.name.c_str(), d);
                    return 1;
                }
                best[d] = std::min(best[d], ThreadSeconds() - start);
            }
        versusWuffs.push_back(best[1] / best[0]);
        versusLibpng.push_back(best[2] / best[0]);
        std::printf("%-36s %8.1f %8.1f %8.1f %9.2f %9.2f\n", item.file.name.c_str(), best[0] * 1e3, best[1] * 1e3,
                    best[2] * 1e3, versusWuffs.back(), versusLibpng.back());
    }

    std::printf("\ngoal 1, fresh process against libpng: %.2fx by geometric mean (goal 1.5x), slowest file %.2fx (goal 1.0x),"
                " peak memory %.2fx libpng's at worst on non-interlaced files (goal 1.1x; %.2fx by geometric mean)\n",
                GeometricMean(speedups), slowest, worstMemory, GeometricMean(memoryRatios));
    std::printf("goal 2, in process against Wuffs: %.2fx by geometric mean (goal 1.0x); against libpng %.2fx\n",
                GeometricMean(versusWuffs), GeometricMean(versusLibpng));
    return 0;
}
