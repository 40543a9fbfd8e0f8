#include "png/ancillary.h"

#include <cmath>
#include <cstdio>

#include "base/numeric.h"
#include "base/runtime_error.h"
#include "png/byte_order.h"

namespace vex::png {

namespace {

// RGB() of the host clamps each channel to 255.
ColorRef ClampedRgb(int64_t red, int64_t green, int64_t blue)
{
    auto clamp = [](int64_t value) { return static_cast<uint32_t>(value > 255 ? 255 : value); };
    return Rgb(clamp(red), clamp(green), clamp(blue));
}

double MaxSample(int depth)
{
    return std::pow(2.0, depth) - 1.0;
}

ColorRef GreyBackground(int depth, const std::vector<uint8_t>& payload)
{
    int32_t grey = ReverseInt(payload.data());
    if (grey > MaxSample(depth))
        return 0;
    if (depth == 16)
        return grey > 255 ? 0 : Rgb(grey, grey, grey); // the 16-bit ramp has only 256 entries
    int64_t value = int64_t{grey} * GreyRampStep(depth);
    return ClampedRgb(value, value, value);
}

ColorRef RgbBackground(int depth, const std::vector<uint8_t>& payload)
{
    double top = MaxSample(depth);
    auto channel = [&](size_t offset) {
        return CLng(Divide(ReverseInt(payload.data() + offset), top) * 255.0);
    };
    return ClampedRgb(channel(0), channel(2), channel(4));
}

ColorRef PaletteBackground(const std::vector<uint8_t>& payload, const std::vector<uint8_t>& palette)
{
    int64_t index = payload[0];
    int64_t upperBound = static_cast<int64_t>(palette.size()) - 1;
    if (palette.empty() || index > upperBound - 1)
        return 0;
    size_t first = static_cast<size_t>(index * 3);
    if (first + 2 >= palette.size())
        Raise(ErrorCode::SubscriptOutOfRange);
    return Rgb(palette[first], palette[first + 1], palette[first + 2]);
}

} // namespace

uint8_t GreyRampStep(int depth)
{
    if (depth == 16)
        return 1;
    return CByte(Divide(255.0, MaxSample(depth)));
}

std::optional<ColorRef> BackgroundColorFromChunk(const PngHeader& header, const std::vector<uint8_t>& payload,
                                                 const std::vector<uint8_t>& palette)
{
    int depth = header.bitDepth;
    switch (header.colorType) {
    case 0:
    case 4: return payload.size() == 2 ? GreyBackground(depth, payload) : 0;
    case 2:
    case 6: return payload.size() == 6 ? RgbBackground(depth, payload) : 0;
    case 3: return payload.size() == 1 ? PaletteBackground(payload, palette) : 0;
    default: return std::nullopt;
    }
}

std::string ModificationTimeText(const std::vector<uint8_t>& payload)
{
    uint8_t fields[7];
    for (size_t i = 0; i < 7; ++i)
        fields[i] = ByteAt(payload, i);
    char text[48];
    std::snprintf(text, sizeof text, "%02u.%02u.%d %02u:%02u:%02u", fields[3], fields[2], ReverseInt(fields),
                  fields[4], fields[5], fields[6]);
    return text;
}

void AppendText(std::string& text, const std::vector<uint8_t>& payload)
{
    text.append(payload.begin(), payload.end());
    text.push_back('\0');
}

CompressedTextStream SplitCompressedText(std::string& text, const std::vector<uint8_t>& payload)
{
    size_t keywordEnd = 0; // one past the keyword's last byte
    while (keywordEnd < payload.size() && payload[keywordEnd] != 0)
        ++keywordEnd;
    text.append(payload.begin(), payload.begin() + static_cast<std::ptrdiff_t>(keywordEnd));
    text.push_back('\0');

    CompressedTextStream result;
    size_t start = keywordEnd + 4; // keyword NUL, method byte, two zlib header bytes
    if (start < payload.size())
        result.stream = std::span<const uint8_t>(payload).subspan(start);
    int64_t upperBound = static_cast<int64_t>(payload.size()) - 1;
    result.capacity = upperBound > 0 ? ToInt32(12 * upperBound) : 0;
    return result;
}

} // namespace vex::png
