#include "corpus.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vex::bench {

namespace {

struct Random {
    uint64_t state;
    uint32_t Next()
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return static_cast<uint32_t>(state >> 11);
    }
};

uint8_t Clamp(double value)
{
    return static_cast<uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value);
}

std::vector<uint8_t> Photo(int width, int height)
{
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 3);
    Random random{0x9E3779B97F4A7C15ull};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            double u = x / static_cast<double>(width), v = y / static_cast<double>(height);
            double base = 110 + 50 * std::sin(u * 7.1 + v * 3.3) + 30 * std::sin(u * 19.0 - v * 11.0) +
                          15 * std::sin((u + v) * 41.0);
            uint8_t* px = &pixels[(static_cast<size_t>(y) * width + x) * 3];
            int noise = static_cast<int>(random.Next() % 13) - 6;
            px[0] = Clamp(base + 40 * v + noise);
            px[1] = Clamp(base * 0.9 + 20 * std::sin(u * 5.0) + noise);
            px[2] = Clamp(base * 0.7 + 60 * u + (noise >> 1));
        }
    }
    return pixels;
}

std::vector<uint8_t> Screenshot(int width, int height)
{
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 3, 0);
    Random random{12345};
    auto fill = [&](int x0, int y0, int x1, int y1, uint8_t r, uint8_t g, uint8_t b) {
        for (int y = std::max(0, y0); y < std::min(height, y1); ++y)
            for (int x = std::max(0, x0); x < std::min(width, x1); ++x) {
                uint8_t* px = &pixels[(static_cast<size_t>(y) * width + x) * 3];
                px[0] = r, px[1] = g, px[2] = b;
            }
    };
    fill(0, 0, width, height, 0, 120, 128); // desktop
    for (int w = 0; w < 6; ++w) {
        int x0 = static_cast<int>(random.Next() % static_cast<uint32_t>(width * 2 / 3));
        int y0 = static_cast<int>(random.Next() % static_cast<uint32_t>(height * 2 / 3));
        int x1 = x0 + width / 4 + static_cast<int>(random.Next() % static_cast<uint32_t>(width / 4));
        int y1 = y0 + height / 4 + static_cast<int>(random.Next() % static_cast<uint32_t>(height / 4));
        fill(x0, y0, x1, y1, 192, 192, 192);
        for (int x = x0; x < x1; ++x) // title bar gradient
            fill(x, y0, x + 1, y0 + 18, 0, 0, static_cast<uint8_t>(128 + 127 * (x - x0) / std::max(1, x1 - x0)));
        for (int line = y0 + 26; line + 10 < y1; line += 14) { // text-like runs
            int x = x0 + 6;
            while (x < x1 - 12) {
                int word = 3 + static_cast<int>(random.Next() % 40);
                for (int gx = x; gx < std::min(x + word, x1 - 6); gx += 2)
                    fill(gx, line + static_cast<int>(random.Next() % 3), gx + 1, line + 8, 0, 0, 0);
                x += word + 5;
            }
        }
    }
    return pixels;
}

std::vector<uint8_t> Gradient(int width, int height)
{
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            uint8_t* px = &pixels[(static_cast<size_t>(y) * width + x) * 4];
            double dx = x - width / 2.0, dy = y - height / 2.0;
            double distance = std::sqrt(dx * dx + dy * dy) / (width / 2.0);
            px[0] = static_cast<uint8_t>(255 * x / width);
            px[1] = static_cast<uint8_t>(255 * y / height);
            px[2] = static_cast<uint8_t>(255 - 255 * x / width);
            px[3] = Clamp(255 * (1.2 - distance));
        }
    }
    return pixels;
}

std::vector<uint8_t> PaletteArt(int width, int height, std::vector<png_color>& palette)
{
    palette.resize(64);
    for (int i = 0; i < 64; ++i)
        palette[static_cast<size_t>(i)] = png_color{static_cast<png_byte>(i * 4), static_cast<png_byte>(255 - i * 3),
                                                     static_cast<png_byte>((i * 37) & 255)};
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            int cell = ((x / 48) * 7 + (y / 40) * 3) % 32;
            int dither = ((x ^ y) & 1) && ((x / 48 + y / 40) % 3 == 0);
            int circle = ((x % 96 - 48) * (x % 96 - 48) + (y % 80 - 40) * (y % 80 - 40)) < 600 ? 32 : 0;
            pixels[static_cast<size_t>(y) * width + x] = static_cast<uint8_t>(cell + circle + dither);
        }
    }
    return pixels;
}

void WriteToVector(png_structp png, png_bytep data, png_size_t length)
{
    auto* out = static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
    out->insert(out->end(), data, data + length);
}

std::vector<uint8_t> EncodePng(int width, int height, int colorType, const std::vector<uint8_t>& pixels,
                               const std::vector<png_color>& palette, int level)
{
    std::vector<uint8_t> out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return {};
    }
    png_set_write_fn(png, &out, WriteToVector, nullptr);
    png_set_compression_level(png, level);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8, colorType,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (colorType == PNG_COLOR_TYPE_PALETTE)
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    png_write_info(png, info);
    size_t channels = colorType == PNG_COLOR_TYPE_RGB ? 3 : colorType == PNG_COLOR_TYPE_RGBA ? 4 : 1;
    for (int y = 0; y < height; ++y)
        png_write_row(png, pixels.data() + static_cast<size_t>(y) * width * channels);
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return out;
}

} // namespace

CorpusFile MakeCorpusFile(ImageKind kind, int width, int height, int level)
{
    CorpusFile file;
    file.width = width;
    file.height = height;
    std::vector<png_color> palette;
    const char* kindName = "";
    switch (kind) {
    case ImageKind::Photo:
        kindName = "photo";
        file.channels = 3;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGB, Photo(width, height), palette, level);
        break;
    case ImageKind::Screenshot:
        kindName = "screenshot";
        file.channels = 3;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGB, Screenshot(width, height), palette, level);
        break;
    case ImageKind::Gradient:
        kindName = "gradient+alpha";
        file.channels = 4;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGBA, Gradient(width, height), palette, level);
        break;
    case ImageKind::PaletteArt:
        kindName = "palette art";
        file.channels = 3;
        {
            auto pixels = PaletteArt(width, height, palette);
            file.png = EncodePng(width, height, PNG_COLOR_TYPE_PALETTE, pixels, palette, level);
        }
        break;
    }
    char name[64];
    std::snprintf(name, sizeof name, "%s %dx%d z%d", kindName, width, height, level);
    file.name = name;
    return file;
}

} // namespace vex::bench
