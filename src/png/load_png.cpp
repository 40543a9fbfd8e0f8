#include "png/load_png.h"

#include <algorithm>
#include <limits>
#include <memory>
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
    // The reset comes first: a file that cannot be opened still leaves the flags cleared.
    BeginStream(chunks_);
    outputBits_ = 0;
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
    std::span<const uint8_t> input(chunks_.compressed.data() + skip, chunks_.compressed.size() - skip);
    // Data that cannot possibly fill the image would end in the short-data error after the
    // inflate; raising it first keeps a tiny file from committing a huge output buffer.
    if (expected > static_cast<int64_t>(input.size()) * kMaxDeflateRatio + kMaxDeflateRatio)
        Raise(ErrorCode::SubscriptOutOfRange);

    // One inflate of all the image data into one buffer, left uninitialised (every byte the
    // decode reads was written by the inflate); the unfilter then works in place.
    int32_t capacity = static_cast<int32_t>(expected);
    size_t bufferSize = Inflater::OutputSizeFor(capacity);
    std::unique_ptr<uint8_t[]> buffer(new uint8_t[bufferSize]);
    InflateOutcome outcome = inflater_.InflateInto(input, capacity, false, std::span<uint8_t>(buffer.get(), bufferSize));
    size_t produced = outcome.produced; // the result code is not looked at
    if (outcome.treeError) {
        // The inflate left the data as given: the decode goes on with the compressed bytes.
        produced = std::min(input.size(), bufferSize);
        std::copy_n(input.begin(), produced, buffer.get());
    }
    // A row beyond the data is the host's subscript error.
    if (static_cast<int64_t>(produced) < expected)
        Raise(ErrorCode::SubscriptOutOfRange);

    std::optional<platform::Dib> bitmap = BuildBitmap(buffer.get());
    if (!bitmap)
        return;
    outputBits_ = bitmap->bitCount();
    if (!picBox_)
        Raise(ErrorCode::ObjectNotSet);
    picBox_->Picture = platform::Picture::FromBitmap(std::move(*bitmap));
}

std::optional<platform::Dib> LoadPNG::BuildBitmap(uint8_t* inflated)
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
        UnfilterImage(inflated, rowBytes + 1, static_cast<size_t>(header.height),
                      static_cast<size_t>(FilterStep(bitsPerPixel)));
        image = PackedImage{inflated + 1, rowBytes + 1, false};
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
