#include "corpus.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

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

std::vector<uint8_t> Plot(int width, int height)
{
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 3, 255);
    auto blend = [&](int x, int y, double coverage, uint8_t r, uint8_t g, uint8_t b) {
        if (x < 0 || y < 0 || x >= width || y >= height)
            return;
        uint8_t* px = &pixels[(static_cast<size_t>(y) * width + x) * 3];
        px[0] = Clamp(px[0] + (r - px[0]) * coverage);
        px[1] = Clamp(px[1] + (g - px[1]) * coverage);
        px[2] = Clamp(px[2] + (b - px[2]) * coverage);
    };
    for (int x = 60; x < width; x += std::max(1, width / 12)) // grid
        for (int y = 0; y < height - 40; ++y)
            blend(x, y, 1.0, 225, 225, 225);
    for (int y = 20; y < height - 40; y += std::max(1, height / 10))
        for (int x = 60; x < width; ++x)
            blend(x, y, 1.0, 225, 225, 225);
    for (int y = 0; y < height - 40; ++y) // axes
        blend(60, y, 1.0, 0, 0, 0);
    for (int x = 60; x < width; ++x)
        blend(x, height - 40, 1.0, 0, 0, 0);
    const uint8_t colours[4][3] = {{31, 119, 180}, {255, 127, 14}, {44, 160, 44}, {214, 39, 40}};
    for (int curve = 0; curve < 4; ++curve) {
        for (int x = 60; x < width; ++x) {
            double u = (x - 60) / static_cast<double>(width);
            double value = (height - 60) * (0.5 + 0.35 * std::sin(u * (6 + 3 * curve) + curve) * std::exp(-u * curve * 0.5));
            for (int dy = -3; dy <= 3; ++dy) {
                double distance = std::fabs(dy + (value - std::floor(value)));
                if (distance < 2.5)
                    blend(x, static_cast<int>(value) + dy, std::min(1.0, 2.5 - distance), colours[curve][0], colours[curve][1],
                          colours[curve][2]);
            }
        }
    }
    return pixels;
}

std::vector<uint8_t> WithShadow(const std::vector<uint8_t>& rgb, int width, int height)
{
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 4);
    for (size_t i = 0, n = static_cast<size_t>(width) * height; i < n; ++i) {
        int y = static_cast<int>(i / static_cast<size_t>(width));
        std::copy_n(&rgb[i * 3], 3, &pixels[i * 4]);
        pixels[i * 4 + 3] = y < height - 24 ? 255 : static_cast<uint8_t>(255 - 10 * (y - (height - 24)));
    }
    return pixels;
}

void WriteToVector(png_structp png, png_bytep data, png_size_t length)
{
    auto* out = static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
    out->insert(out->end(), data, data + length);
}

std::vector<uint8_t> EncodePng(int width, int height, int colorType, const std::vector<uint8_t>& pixels,
                               const std::vector<png_color>& palette, int level, CorpusOptions options = {})
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
                 options.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (colorType == PNG_COLOR_TYPE_PALETTE)
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    std::vector<png_byte> exif(4096, 0);
    std::string description(2000, 'x');
    char key[] = "Description", language[] = "en";
    png_text text{};
    if (options.ancillary) {
        png_set_gAMA_fixed(png, info, 45455);
        png_set_cHRM_fixed(png, info, 31270, 32900, 64000, 33000, 30000, 60000, 15000, 6000);
        exif[0] = 'M', exif[1] = 'M', exif[3] = 42;
        png_set_eXIf_1(png, info, static_cast<png_uint_32>(exif.size()), exif.data());
        text.compression = PNG_ITXT_COMPRESSION_NONE;
        text.key = key;
        text.text = description.data();
        text.itxt_length = description.size();
        text.lang = language;
        png_set_text(png, info, &text, 1);
    }
    png_write_info(png, info);
    size_t channels = colorType == PNG_COLOR_TYPE_RGB ? 3 : colorType == PNG_COLOR_TYPE_RGBA ? 4 : 1;
    std::vector<png_bytep> rows(static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        rows[static_cast<size_t>(y)] = const_cast<png_bytep>(pixels.data() + static_cast<size_t>(y) * width * channels);
    png_write_image(png, rows.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return out;
}

} // namespace

CorpusFile MakeCorpusFile(ImageKind kind, int width, int height, int level, CorpusOptions options)
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
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGB, Photo(width, height), palette, level, options);
        break;
    case ImageKind::Screenshot:
        kindName = "screenshot";
        file.channels = 3;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGB, Screenshot(width, height), palette, level, options);
        break;
    case ImageKind::Gradient:
        kindName = "gradient+alpha";
        file.channels = 4;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGBA, Gradient(width, height), palette, level, options);
        break;
    case ImageKind::Plot:
        kindName = "plot";
        file.channels = 3;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGB, Plot(width, height), palette, level, options);
        break;
    case ImageKind::ScreenshotAlpha:
        kindName = "screenshot+alpha";
        file.channels = 4;
        file.png = EncodePng(width, height, PNG_COLOR_TYPE_RGBA, WithShadow(Screenshot(width, height), width, height),
                             palette, level, options);
        break;
    case ImageKind::PaletteArt:
        kindName = "palette art";
        file.channels = 3;
        {
            auto pixels = PaletteArt(width, height, palette);
            file.png = EncodePng(width, height, PNG_COLOR_TYPE_PALETTE, pixels, palette, level, options);
        }
        break;
    }
    char name[64];
    std::snprintf(name, sizeof name, "%s %dx%d z%d%s%s", kindName, width, height, level, options.interlaced ? " adam7" : "",
                  options.ancillary ? " +chunks" : "");
    file.name = name;
    return file;
}

} // namespace vex::bench
