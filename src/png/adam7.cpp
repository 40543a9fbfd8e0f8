#include "png/adam7.h"

#include <cstring>
#include <string_view>
#include <type_traits>

#include "png/unfilter.h"

namespace vex::png {

namespace {

constexpr std::string_view kPassPattern[kAdam7Passes] = {"1", "5", "15", "37", "1357", "2468", "12345678"};

int64_t Owned(int64_t size, int first, int step)
{
    return size > first ? (size - first + step - 1) / step : 0;
}

// Copies the pixels of one reconstructed pass row into their places in the full image.
void ScatterRow(const uint8_t* passRow, int64_t columns, const Adam7Pass& pass, int bitsPerPixel, uint8_t* imageRow)
{
    if (bitsPerPixel >= 8) {
        size_t pixelBytes = static_cast<size_t>(bitsPerPixel / 8);
        for (int64_t i = 0; i < columns; ++i) {
            int64_t x = pass.firstColumn + i * pass.columnStep;
            std::memcpy(imageRow + x * pixelBytes, passRow + i * pixelBytes, pixelBytes);
        }
        return;
    }
    // Sub-byte pixels: move the bits of pass pixel i to the bit position of image pixel x.
    unsigned mask = (1u << bitsPerPixel) - 1;
    for (int64_t i = 0; i < columns; ++i) {
        int64_t sourceBit = i * bitsPerPixel;
        unsigned value = (passRow[sourceBit / 8] >> (8 - bitsPerPixel - sourceBit % 8)) & mask;
        int64_t x = pass.firstColumn + i * pass.columnStep;
        int64_t targetBit = x * bitsPerPixel;
        int shift = static_cast<int>(8 - bitsPerPixel - targetBit % 8);
        uint8_t& target = imageRow[targetBit / 8];
        target = static_cast<uint8_t>((target & ~(mask << shift)) | (value << shift));
    }
}

} // namespace

int64_t PassColumns(int64_t width, int pass)
{
    return Owned(width, kAdam7[pass].firstColumn, kAdam7[pass].columnStep);
}

int64_t PassRows(int64_t height, int pass)
{
    return Owned(height, kAdam7[pass].firstRow, kAdam7[pass].rowStep);
}

int64_t PassRowBytes(int64_t width, int bitsPerPixel, int pass)
{
    std::string_view pattern = kPassPattern[pass];
    int64_t rest = width % 8;
    int64_t leading = 0; // leading pattern columns inside the partial block
    for (char digit : pattern) {
        if (digit - '0' > rest)
            break;
        ++leading;
    }
    int64_t fullBlocks = (width - rest) / 8;
    int64_t fullBits = int64_t{bitsPerPixel} * fullBlocks * static_cast<int64_t>(pattern.size());
    int64_t fullBytes = (fullBits - fullBits % 8) / 8;
    if (bitsPerPixel >= 8)
        return fullBytes + (bitsPerPixel / 8) * leading;
    int64_t restBits = fullBits % 8 + (rest > 0 ? int64_t{bitsPerPixel} * leading : 0);
    return fullBytes + (restBits + 7) / 8;
}

int64_t InterlacedDataSize(int64_t width, int64_t height, int bitsPerPixel)
{
    int64_t total = 0;
    for (int pass = 0; pass < kAdam7Passes; ++pass) {
        if (PassColumns(width, pass) == 0)
            continue;
        total += (PassRowBytes(width, bitsPerPixel, pass) + 1) * PassRows(height, pass);
    }
    return total;
}

void Deinterlace(uint8_t* data, const PngHeader& header, std::vector<uint8_t>& image)
{
    int bitsPerPixel = BitsPerPixel(header);
    size_t step = static_cast<size_t>(FilterStep(bitsPerPixel));
    size_t imageRowBytes = static_cast<size_t>(PackedRowBytes(header.width, bitsPerPixel));
    image.assign(imageRowBytes * static_cast<size_t>(header.height), 0);

    size_t offset = 0;
    for (int pass = 0; pass < kAdam7Passes; ++pass) {
        int64_t columns = PassColumns(header.width, pass);
        int64_t rows = PassRows(header.height, pass);
        if (columns == 0 || rows == 0)
            continue;
        size_t rowLength = static_cast<size_t>(PassRowBytes(header.width, bitsPerPixel, pass)) + 1;
        uint8_t* block = data + offset;
        UnfilterImage(block, rowLength, static_cast<size_t>(rows), step);
        for (int64_t r = 0; r < rows; ++r) {
            int64_t y = kAdam7[pass].firstRow + r * kAdam7[pass].rowStep;
            ScatterRow(block + r * rowLength + 1, columns, kAdam7[pass], bitsPerPixel,
                       image.data() + static_cast<size_t>(y) * imageRowBytes);
        }
        offset += rowLength * static_cast<size_t>(rows);
    }
}

Adam7Sink::Adam7Sink(const PngHeader& header, RowConverter& converter)
    : bitsPerPixel_(BitsPerPixel(header))
    , step_(static_cast<size_t>(FilterStep(bitsPerPixel_)))
    , width_(header.width)
    , height_(header.height)
    , converter_(converter)
    , pixelBytes_(static_cast<size_t>(converter.Bitmap().bitCount() / 8))
    , current_(static_cast<size_t>(PackedRowBytes(header.width, bitsPerPixel_)))
    , previous_(current_.size())
    , converted_(static_cast<size_t>(header.width) * pixelBytes_)
{
    StartPass(0);
}

// Pass row r goes to image row y: converted a pass row at a time, then each pixel to its column.
void Adam7Sink::PlaceRow(int64_t y)
{
    const Adam7Pass& pass = kAdam7[pass_];
    uint8_t* target = converter_.Bitmap().row(static_cast<int32_t>(y));
    size_t columns = static_cast<size_t>(columns_);
    if (pixelBytes_ == 0) {
        ScatterRow(current_.data(), columns_, pass, bitsPerPixel_, target);
        return;
    }
    if (pass.columnStep == 1) { // the last pass owns whole rows
        converter_.ConvertPixels(static_cast<int32_t>(y), current_.data(), columns, 0, 1, target);
        return;
    }
    const size_t first = static_cast<size_t>(pass.firstColumn), step = static_cast<size_t>(pass.columnStep);
    converter_.ConvertPixels(static_cast<int32_t>(y), current_.data(), columns, first, step, converted_.data());
    auto scatter = [&](auto pixelBytes) {
        const uint8_t* from = converted_.data();
        uint8_t* to = target + first * pixelBytes;
        for (size_t i = 0; i < columns; ++i, from += pixelBytes, to += step * pixelBytes)
            std::memcpy(to, from, pixelBytes);
    };
    switch (pixelBytes_) {
    case 1: scatter(std::integral_constant<size_t, 1> {}); break;
    case 3: scatter(std::integral_constant<size_t, 3> {}); break;
    default: scatter(std::integral_constant<size_t, 4> {}); break;
    }
}

// The next pass that holds data, from `pass` on (pass 7: all done).
void Adam7Sink::StartPass(int pass)
{
    for (pass_ = pass; pass_ < kAdam7Passes; ++pass_) {
        columns_ = PassColumns(width_, pass_);
        rows_ = PassRows(height_, pass_);
        if (columns_ != 0 && rows_ != 0)
            break;
    }
    row_ = 0;
    if (pass_ < kAdam7Passes)
        rowLength_ = static_cast<size_t>(PassRowBytes(width_, bitsPerPixel_, pass_)) + 1;
}

size_t Adam7Sink::Take(const uint8_t* window, size_t windowStart, size_t end)
{
    while (pass_ < kAdam7Passes && next_ + rowLength_ <= end) {
        const uint8_t* filtered = window + (next_ - windowStart);
        size_t length = rowLength_ - 1;
        std::memcpy(current_.data(), filtered + 1, length);
        UnfilterRow(filtered[0], current_.data(), row_ == 0 ? nullptr : previous_.data(), length, step_);
        PlaceRow(kAdam7[pass_].firstRow + row_ * kAdam7[pass_].rowStep);
        current_.swap(previous_);
        next_ += rowLength_;
        if (++row_ == rows_)
            StartPass(pass_ + 1);
    }
    return pass_ < kAdam7Passes ? next_ : end;
}

} // namespace vex::png
