#pragma once
// The benchmark's corpus, made at run time: procedural images written as PNG by libpng at a
// given zlib level, so that nothing is downloaded and every run measures the same files.

#include <cstdint>
#include <string>
#include <vector>

namespace vex::bench {

enum class ImageKind { Photo, Screenshot, Gradient, PaletteArt, Plot, ScreenshotAlpha };

struct CorpusOptions {
    bool interlaced = false; // Adam7
    bool ancillary = false;  // gAMA, cHRM, eXIf and iTXt chunks, as cameras and editors write them
};

struct CorpusFile {
    std::string name;     // e.g. "photo 1024x1024 z6"
    int width = 0;
    int height = 0;
    int channels = 0;     // channels of the 8-bit decode every decoder is asked for: 3 or 4
    std::vector<uint8_t> png;
};

// photo: smooth fields with fine noise (RGB); screenshot: flat panels, text-like runs, title
// bars (RGB); gradient: RGB ramps under a radial alpha (RGBA); palette art: 8-bit palette
// shapes with a dither pattern (decoded to RGB); plot: axes, grid and anti-aliased curves on
// white (RGB); screenshot+alpha: the screenshot with a translucent shadow band (RGBA).
CorpusFile MakeCorpusFile(ImageKind kind, int width, int height, int level, CorpusOptions options = {});

} // namespace vex::bench
