#pragma once
// LoadPNG: reads a PNG file and hands the picture to a picture box. One object per decode:
//
//   LoadPNG png;
//   png.setPicBox(box);  png.setSetAlpha(true);  ...   // output settings
//   png.OpenPNG(path);                                 // always returns 0
//   png.ErrorNumber(), png.Width(), ... , box->Picture // results
//
// ErrorNumber codes:
//   1  the file does not start with the PNG signature (a missing file is created empty: 1)
//   3  a chunk runs past the end of the file (also a file without IEND)
//   4  IEND without image data
//   5  the image's size is refused: width or height not positive, more pixels than
//      MaxPixels(), or decoded data that would not fit a 32-bit size. Nothing is allocated
//      for the image. (Our own code; the others are the file format's.)
// ErrorNumber is never reset: after a failure, a later success on the same object still
// reports the old code. Other failures are raised as RuntimeError: the host's file errors
// (75, 76, 70) from opening, Subscript out of range (9) when the image data runs out before
// the last row (or the bKGD palette read goes past the palette), Overflow (6) for positions
// past 2^31 (a file of 2^31 bytes or more among them), Out of memory (7) when an allocation
// fails, Object variable not set (91) when a picture is produced with no PicBox set.
// Colour types and depths outside the supported table produce no picture and no error.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/ole_color.h"
#include "platform/picture.h"
#include "png/chunk_reader.h"
#include "png/inflate.h"
#include "png/pixel_convert.h"

namespace vex::png {

inline constexpr int32_t kErrorImageRefused = 5;
inline constexpr int64_t kDefaultMaxPixels = 100'000'000;

// The picture box the finished bitmap goes to.
struct PictureBox {
    platform::PictureRef Picture;
};

class LoadPNG {
public:
    LoadPNG();
    LoadPNG(const LoadPNG&) = delete;
    LoadPNG& operator=(const LoadPNG&) = delete;

    // Reads and decodes a file; always 0, the outcome is in ErrorNumber and the picture box.
    int32_t OpenPNG(const std::string& FileName);
    // The same from bytes in memory (OpenPNG reads the file and comes here).
    int32_t OpenPNGFromMemory(std::span<const uint8_t> bytes);

    // ---- Header and ancillary chunks ----
    int32_t Width() const { return chunks_.header.width; }
    int32_t Height() const { return chunks_.header.height; }
    int32_t Bitdepht() const { return chunks_.header.bitDepth; }
    int32_t ColorType() const { return chunks_.header.colorType; }
    int32_t Compression() const { return chunks_.header.compression; }
    int32_t Filter() const { return chunks_.header.filter; }
    int32_t Interlacing() const { return chunks_.header.interlace; }
    int32_t ErrorNumber() const { return errorNumber_; }
    bool HaveAlpha() const { return haveAlpha_; }
    bool HaveTransparence() const { return chunks_.hasTransparency; }
    bool HasBKGDChunk() const { return chunks_.hasBackground; }
    ColorRef BkgdColor() const { return chunks_.backgroundColor; }
    const std::string& Text() const { return chunks_.text; }
    const std::string& zText() const { return chunks_.compressedText; }
    const std::string& ModiTime() const { return chunks_.modificationTime; }
    double gama() const { return chunks_.gamma / 100000.0; }
    // Bits per pixel of the bitmap built (1, 4, 8, 24 or 32); 0 until a bitmap is built.
    int32_t OutputBitsPerPixel() const { return outputBits_; }

    // ---- Output settings (before OpenPNG) ----
    void setSetTrans(bool value) { useTransparency_ = value; }
    void setSetAlpha(bool value) { useAlpha_ = value; }
    void setBackgroundPicture(platform::PictureRef picture) { backgroundPicture_ = std::move(picture); }
    // Composes onto BackColor instead of the file's bKGD colour while switched on. An omitted
    // colour keeps the one given before (black at first). Taken as a plain 0x00BBGGRR colour.
    void SetOwnBkgndColor(bool OwnBkgndOn, std::optional<OleColor> BackColor = std::nullopt);
    // Composes onto BackgroundPicture while switched on; image pixel (0, 0) sits on picture
    // pixel (x, y), and image pixels outside the picture fall back to the background colour.
    // Omitted offsets are 0.
    void SetToBkgrnd(bool SetToBG, std::optional<int32_t> x = std::nullopt, std::optional<int32_t> y = std::nullopt);
    void setPicBox(std::shared_ptr<PictureBox> box) { picBox_ = std::move(box); }

    // ---- Our own settings ----
    // Images with more pixels than this are refused with ErrorNumber 5.
    void setMaxPixels(int64_t pixels) { maxPixels_ = pixels; }
    int64_t MaxPixels() const { return maxPixels_; }
    // The host's message box, used for the inflate's tree error. Unset: the message is dropped.
    void setMessageBox(std::function<void(const std::string& text)> messageBox) { messageBox_ = std::move(messageBox); }

private:
    int32_t Open(ByteSource& file);
    void Decode(ByteSource& file);
    std::optional<platform::Dib> BuildBitmap(std::unique_ptr<uint8_t[]>& inflated, const ConversionSettings& settings,
                                             const ChunkData& chunkData);
    ColorRef CompositionBackground() const;
    ConversionSettings Settings() const;

    ChunkState chunks_;
    Inflater inflater_;
    int32_t errorNumber_ = 0;
    int32_t outputBits_ = 0;
    bool haveAlpha_ = false;
    bool useTransparency_ = false;
    bool useAlpha_ = false;
    bool ownBackgroundOn_ = false;
    ColorRef ownBackground_ = 0;
    bool toBackgroundPicture_ = false;
    int32_t backgroundX_ = 0;
    int32_t backgroundY_ = 0;
    platform::PictureRef backgroundPicture_;
    std::shared_ptr<PictureBox> picBox_;
    int64_t maxPixels_ = kDefaultMaxPixels;
    std::function<void(const std::string&)> messageBox_;
};

} // namespace vex::png
