#pragma once
// Adam7 de-interlacing. An interlaced image is stored as seven reduced images ("passes"), one
// after another, each filtered on its own:
//
//   pass        1  2  3  4  5  6  7
//   first row   0  0  4  0  2  0  1      row step     8  8  8  4  4  2  2
//   first col   0  4  0  2  0  1  0      column step  8  8  4  4  2  2  1
//
// A pass with no columns or no rows holds no data at all, not even filter bytes. The result is
// the packed image exactly as a non-interlaced file would unfilter to: rows of
// PackedRowBytes(width, bits per pixel) bytes, pixels of under 8 bits packed from the most
// significant bit.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "png/inflate.h"
#include "png/pixel_convert.h"
#include "png/png_header.h"

namespace vex::png {

inline constexpr int kAdam7Passes = 7;

struct Adam7Pass {
    int firstRow, firstColumn, rowStep, columnStep;
};
inline constexpr Adam7Pass kAdam7[kAdam7Passes] = {
    {0, 0, 8, 8}, {0, 4, 8, 8}, {4, 0, 8, 4}, {0, 2, 4, 4}, {2, 0, 4, 2}, {0, 1, 2, 2}, {1, 0, 2, 1},
};

// Columns and rows that pass `pass` (0-based) owns in an image of the given size.
int64_t PassColumns(int64_t width, int pass);
int64_t PassRows(int64_t height, int pass);

// Bytes of one row of a pass, without the filter byte, by the pass pattern rule: within each
// block of 8 columns the pass owns the columns its pattern names ("1", "5", "15", "37", "1357",
// "2468", "12345678"); a partial last block contributes the leading pattern columns that fit.
int64_t PassRowBytes(int64_t width, int bitsPerPixel, int pass);

// Inflated bytes an interlaced image needs: every non-empty pass, (row bytes + 1) per row.
int64_t InterlacedDataSize(int64_t width, int64_t height, int bitsPerPixel);

// Unfilters every pass of `data` in place and scatters the pixels into `image` (resized to
// height * PackedRowBytes). The caller has checked that data holds InterlacedDataSize bytes.
void Deinterlace(uint8_t* data, const PngHeader& header, std::vector<uint8_t>& image);

// The same while the data is inflated: each pass row is unfiltered as soon as it is complete,
// converted to the bitmap's pixels and scattered straight into the bitmap the converter holds,
// so the image is never held twice.
class Adam7Sink final : public InflateOutput {
public:
    Adam7Sink(const PngHeader& header, RowConverter& converter);
    size_t Take(const uint8_t* window, size_t windowStart, size_t end) override;

private:
    void StartPass(int pass);
    void PlaceRow(int64_t y);

    int bitsPerPixel_;
    size_t step_;
    int64_t width_, height_;
    RowConverter& converter_;
    size_t pixelBytes_; // the bitmap's; 0 for pixels of under 8 bits, which move bit by bit
    int pass_ = -1;
    int64_t columns_ = 0, rows_ = 0, row_ = 0;
    size_t rowLength_ = 0;
    size_t next_ = 0; // output index of the next pass row's filter byte
    std::vector<uint8_t> current_, previous_, converted_;
};

} // namespace vex::png
