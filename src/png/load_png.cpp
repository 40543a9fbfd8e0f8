#include "png/load_png.h"

#include <algorithm>
#include <limits>
#include <new>

#include "base/runtime_error.h"
#include "png/adam7.h"
#include "png/pixel_convert.h"
#include "png/png_file.h"
#include "png/unfilter.h"

namespace vex::png {

namespace {

// Deflate cannot expand data by more than 1032 to 1 (a 258-byte copy coded in two bits).
constexpr int64_t kMaxDeflateRatio = 1032;

} // namespace

LoadPNG::LoadPNG()
{
    inflater_.onTreeError = [this](const std::string& message) {
        if (messageBox_)
            messageBox_(message);
    };
}

void LoadPNG::SetOwnBkgndColor(bool OwnBkgndOn, std::optional<OleColor> BackColor)
{
    ownBackgroundOn_ = OwnBkgndOn;
    if (BackColor)
        ownBackground_ = *BackColor & 0x00FFFFFFu;
}

void LoadPNG::SetToBkgrnd(bool SetToBG, std::optional<int32_t> x, std::optional<int32_t> y)
{
    toBackgroundPicture_ = SetToBG;
    backgroundX_ = x.value_or(0);
    backgroundY_ = y.value_or(0);
}

int32_t LoadPNG::OpenPNG(const std::string& FileName)
{
    std::vector<uint8_t> bytes = ReadBinaryFile(FileName); // the file is closed again here
    return OpenPNGFromMemory(bytes);
}

int32_t LoadPNG::OpenPNGFromMemory(std::span<const uint8_t> bytes)
{
    outputBits_ = 0;
    try {
        TextInflate inflateText = [this](std::vector<uint8_t>& data, int32_t& capacity) {
            int32_t result = 0;
            inflater_.Inflate(data, capacity, false, result);
        };
        int32_t code = ReadChunks(bytes, chunks_, inflateText);
        if (code != kErrorNone) {
            errorNumber_ = code; // never reset to 0 here: an earlier failure stays visible
            return 0;
        }
        Decode();
    } catch (const std::bad_alloc&) {
        Raise(ErrorCode::OutOfMemory);
    }
    return 0;
}

ColorRef LoadPNG::CompositionBackground() const
{
    return ownBackgroundOn_ ? ownBackground_ : chunks_.backgroundColor;
}

void LoadPNG::Decode()
{
    const PngHeader& header = chunks_.header;
    if (!IsSupportedFormat(header.colorType, header.bitDepth))
        return; // no picture, no error: a format we cannot show is not decoded at all
    int64_t pixels = int64_t{header.width} * header.height;
    if (header.width <= 0 || header.height <= 0 || pixels > maxPixels_) {
        errorNumber_ = kErrorImageRefused;
        return;
    }
    int bitsPerPixel = BitsPerPixel(header);
    int64_t rowBytes = PackedRowBytes(header.width, bitsPerPixel);
    bool interlaced = header.interlace == 1;
    int64_t expected = interlaced ? InterlacedDataSize(header.width, header.height, bitsPerPixel)
                                  : (rowBytes + 1) * header.height;
    if (expected > std::numeric_limits<int32_t>::max() - 100) {
        errorNumber_ = kErrorImageRefused;
        return;
    }

    // The zlib header's two bytes are skipped unread; the Adler-32 trailer is never checked.
    size_t skip = std::min<size_t>(2, chunks_.compressed.size());
    std::vector<uint8_t> data(chunks_.compressed.begin() + static_cast<std::ptrdiff_t>(skip), chunks_.compressed.end());
    // Data that cannot possibly fill the image would end in the short-data error after the
    // inflate; raising it first keeps a tiny file from committing a huge output buffer.
    if (expected > static_cast<int64_t>(data.size()) * kMaxDeflateRatio + kMaxDeflateRatio)
        Raise(ErrorCode::SubscriptOutOfRange);
    int32_t capacity = static_cast<int32_t>(expected);
    int32_t result = 0;
    inflater_.Inflate(data, capacity, false, result); // the result is not looked at
    // A row beyond the data is the host's subscript error.
    if (static_cast<int64_t>(data.size()) < expected)
        Raise(ErrorCode::SubscriptOutOfRange);

    std::optional<platform::Dib> bitmap = BuildBitmap(data);
    if (!bitmap)
        return;
    outputBits_ = bitmap->bitCount();
    if (!picBox_)
        Raise(ErrorCode::ObjectNotSet);
    picBox_->Picture = platform::Picture::FromBitmap(std::move(*bitmap));
}

std::optional<platform::Dib> LoadPNG::BuildBitmap(std::vector<uint8_t>& inflated)
{
    const PngHeader& header = chunks_.header;
    int bitsPerPixel = BitsPerPixel(header);
    size_t rowBytes = static_cast<size_t>(PackedRowBytes(header.width, bitsPerPixel));

    // Unfilter in place: the inflated buffer is the image from here on.
    std::vector<uint8_t> deinterlaced;
    PackedImage image;
    if (header.interlace == 1) {
        Deinterlace(inflated, header, deinterlaced);
        image = PackedImage{deinterlaced.data(), rowBytes, true};
    } else {
        UnfilterImage(inflated.data(), rowBytes + 1, static_cast<size_t>(header.height),
                      static_cast<size_t>(FilterStep(bitsPerPixel)));
        image = PackedImage{inflated.data() + 1, rowBytes + 1, false};
    }

    if (header.colorType == 4 || header.colorType == 6)
        haveAlpha_ = true;

    ConversionSettings settings;
    settings.useAlpha = useAlpha_;
    settings.useTransparency = useTransparency_;
    settings.background = CompositionBackground();
    if (toBackgroundPicture_ && backgroundPicture_ && backgroundPicture_->type() == platform::PictureType::Bitmap) {
        settings.backgroundPicture = &backgroundPicture_->bitmap();
        settings.pictureX = backgroundX_;
        settings.pictureY = backgroundY_;
    }
    ChunkData chunkData{chunks_.palette, chunks_.transparency, chunks_.hasTransparency};
    return ConvertImage(header, image, chunkData, settings);
}

} // namespace vex::png
