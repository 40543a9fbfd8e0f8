#include "png/load_png.h"

#include <algorithm>
#include <cstring>
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
    try {
        FileSource file(FileName); // closed again when the decode ends, failures included
        return Open(file);
    } catch (const std::bad_alloc&) {
        Raise(ErrorCode::OutOfMemory);
    }
}

int32_t LoadPNG::OpenPNGFromMemory(std::span<const uint8_t> bytes)
{
    MemorySource source(bytes);
    return Open(source);
}

int32_t LoadPNG::Open(ByteSource& file)
{
    outputBits_ = 0;
    try {
        TextInflate inflateText = [this](std::span<const uint8_t> stream, int32_t capacity, std::string& text) {
            inflater_.InflateText(stream, capacity, text); // the result code is not looked at
        };
        int32_t code = ReadChunks(file, chunks_, inflateText);
        if (code != kErrorNone) {
            errorNumber_ = code; // never reset to 0 here: an earlier failure stays visible
            return 0;
        }
        Decode(file);
    } catch (const std::bad_alloc&) {
        Raise(ErrorCode::OutOfMemory);
    }
    return 0;
}

ColorRef LoadPNG::CompositionBackground() const
{
    return ownBackgroundOn_ ? ownBackground_ : chunks_.backgroundColor;
}

ConversionSettings LoadPNG::Settings() const
{
    ConversionSettings settings;
    settings.useAlpha = useAlpha_;
    settings.useTransparency = useTransparency_;
    settings.background = CompositionBackground();
    if (toBackgroundPicture_ && backgroundPicture_ && backgroundPicture_->type() == platform::PictureType::Bitmap) {
        settings.backgroundPicture = &backgroundPicture_->bitmap();
        settings.pictureX = backgroundX_;
        settings.pictureY = backgroundY_;
    }
    return settings;
}

namespace {

// The image data after the zlib header, IDAT after IDAT, for the streaming inflate.
class ImageDataReader final : public InflateInput {
public:
    ImageDataReader(ByteSource& file, const std::vector<DataPiece>& pieces, size_t skip)
        : file_(file)
        , pieces_(pieces)
        , skip_(skip)
    {
    }

    size_t Read(uint8_t* to, size_t count) override
    {
        size_t done = 0;
        while (done < count && piece_ < pieces_.size()) {
            const DataPiece& piece = pieces_[piece_];
            if (skip_ > 0) { // the zlib header, which may span IDATs
                size_t skipped = std::min(skip_, piece.count - at_);
                skip_ -= skipped;
                at_ += skipped;
            }
            size_t take = std::min(count - done, piece.count - at_);
            file_.ReadAt(piece.offset + static_cast<int64_t>(at_), to + done, take);
            done += take;
            at_ += take;
            if (at_ == piece.count) {
                ++piece_;
                at_ = 0;
            }
        }
        return done;
    }

private:
    ByteSource& file_;
    const std::vector<DataPiece>& pieces_;
    size_t skip_;
    size_t piece_ = 0;
    size_t at_ = 0;
};

// Takes the inflated rows as they come, unfilters each against the row above it and converts
// it into the bitmap. The window's bytes are left as they are: later matches copy from them.
class RowSink final : public InflateOutput {
public:
    RowSink(size_t rowLength, size_t rows, size_t step, RowConverter& converter)
        : rowLength_(rowLength)
        , rows_(rows)
        , step_(step)
        , converter_(converter)
        , current_(rowLength - 1)
        , previous_(rowLength - 1)
    {
    }

    size_t Take(const uint8_t* window, size_t windowStart, size_t end) override
    {
        while (row_ < rows_ && next_ + rowLength_ <= end) {
            const uint8_t* filtered = window + (next_ - windowStart);
            std::memcpy(current_.data(), filtered + 1, rowLength_ - 1);
            UnfilterRow(filtered[0], current_.data(), row_ == 0 ? nullptr : previous_.data(), rowLength_ - 1, step_);
            converter_.ConvertRow(static_cast<int32_t>(row_), current_.data());
            current_.swap(previous_);
            ++row_;
            next_ += rowLength_;
        }
        return row_ < rows_ ? next_ : end;
    }

private:
    size_t rowLength_, rows_, step_;
    RowConverter& converter_;
    std::vector<uint8_t> current_, previous_;
    size_t row_ = 0;
    size_t next_ = 0; // output index of the next row's filter byte
};

} // namespace

void LoadPNG::Decode(ByteSource& file)
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
    size_t skip = std::min<size_t>(2, chunks_.imageDataSize);
    size_t inputSize = chunks_.imageDataSize - skip;
    // Data that cannot possibly fill the image would end in the short-data error after the
    // inflate; raising it first keeps a tiny file from committing a huge output buffer.
    if (expected > static_cast<int64_t>(inputSize) * kMaxDeflateRatio + kMaxDeflateRatio)
        Raise(ErrorCode::SubscriptOutOfRange);

    ConversionSettings settings = Settings();
    ChunkData chunkData{chunks_.palette, chunks_.transparency, chunks_.hasTransparency};
    std::optional<platform::Dib> bitmap;
    bool treeError = false;
    // Rows (or Adam7 pass rows) straight into the bitmap as they are inflated, when the
    // bitmap's size cannot be an Overflow (which the whole-image path raises only after the
    // inflate).
    bool bitmapFits = int64_t{platform::Dib::StrideFor(header.width, 32)} * header.height <= std::numeric_limits<int32_t>::max();
    if (interlaced && bitmapFits) {
        RowConverter converter(header, true, chunkData, settings);
        Adam7Sink sink(header, converter);
        ImageDataReader reader(file, chunks_.imageData, skip);
        int32_t capacity = static_cast<int32_t>(expected);
        InflateOutcome outcome = inflater_.InflateStreaming(reader, inputSize, capacity, sink, static_cast<size_t>(rowBytes + 1));
        treeError = outcome.treeError;
        if (!treeError) {
            if (static_cast<int64_t>(outcome.produced) < expected)
                Raise(ErrorCode::SubscriptOutOfRange);
            if (header.colorType == 4 || header.colorType == 6)
                haveAlpha_ = true;
            bitmap = converter.Finish();
        }
    } else if (!interlaced && bitmapFits) {
        RowConverter converter(header, false, chunkData, settings);
        ImageDataReader reader(file, chunks_.imageData, skip);
        RowSink sink(static_cast<size_t>(rowBytes + 1), static_cast<size_t>(header.height),
                     static_cast<size_t>(FilterStep(bitsPerPixel)), converter);
        int32_t capacity = static_cast<int32_t>(expected);
        InflateOutcome outcome = inflater_.InflateStreaming(reader, inputSize, capacity, sink, static_cast<size_t>(rowBytes + 1));
        treeError = outcome.treeError;
        if (!treeError) {
            if (static_cast<int64_t>(outcome.produced) < expected)
                Raise(ErrorCode::SubscriptOutOfRange); // a row beyond the data
            if (header.colorType == 4 || header.colorType == 6)
                haveAlpha_ = true;
            bitmap = converter.Finish();
        }
    }
    if (!bitmap) {
        // One inflate of all the image data into one buffer, left uninitialised (every byte the
        // decode reads was written by the inflate); the unfilter then works in place.
        int32_t capacity = static_cast<int32_t>(expected);
        size_t bufferSize = Inflater::OutputSizeFor(capacity);
        std::unique_ptr<uint8_t[]> buffer(new uint8_t[bufferSize]);
        size_t produced = 0;
        {
            std::vector<uint8_t> joined;
            std::span<const uint8_t> input;
            auto* memory = dynamic_cast<MemorySource*>(&file);
            if (memory != nullptr && chunks_.imageData.size() == 1 &&
                chunks_.imageData[0].offset + static_cast<int64_t>(chunks_.imageData[0].count) <= memory->Size()) {
                input = memory->bytes().subspan(static_cast<size_t>(chunks_.imageData[0].offset) + skip, inputSize);
            } else {
                joined = ImageData(chunks_, file);
                input = std::span<const uint8_t>(joined).subspan(skip);
            }
            if (!treeError) {
                InflateOutcome outcome = inflater_.InflateInto(input, capacity, false, std::span<uint8_t>(buffer.get(), bufferSize));
                produced = outcome.produced; // the result code is not looked at
                treeError = outcome.treeError;
            }
            if (treeError) {
                // The inflate left the data as given: the decode goes on with the compressed bytes.
                produced = std::min(input.size(), bufferSize);
                std::copy_n(input.begin(), produced, buffer.get());
            }
        } // the compressed data is let go here
        // A row beyond the data is the host's subscript error.
        if (static_cast<int64_t>(produced) < expected)
            Raise(ErrorCode::SubscriptOutOfRange);
        bitmap = BuildBitmap(buffer, settings, chunkData);
    }
    if (!bitmap)
        return;
    outputBits_ = bitmap->bitCount();
    if (!picBox_)
        Raise(ErrorCode::ObjectNotSet);
    picBox_->Picture = platform::Picture::FromBitmap(std::move(*bitmap));
}

std::optional<platform::Dib> LoadPNG::BuildBitmap(std::unique_ptr<uint8_t[]>& buffer, const ConversionSettings& settings,
                                                   const ChunkData& chunkData)
{
    uint8_t* inflated = buffer.get();
    const PngHeader& header = chunks_.header;
    int bitsPerPixel = BitsPerPixel(header);
    size_t rowBytes = static_cast<size_t>(PackedRowBytes(header.width, bitsPerPixel));

    // Unfilter in place: the inflated buffer is the image from here on.
    std::vector<uint8_t> deinterlaced;
    PackedImage image;
    if (header.interlace == 1) {
        Deinterlace(inflated, header, deinterlaced);
        buffer.reset(); // the passes are in the image now
        image = PackedImage{deinterlaced.data(), rowBytes, true};
    } else {
        UnfilterImage(inflated, rowBytes + 1, static_cast<size_t>(header.height),
                      static_cast<size_t>(FilterStep(bitsPerPixel)));
        image = PackedImage{inflated + 1, rowBytes + 1, false};
    }

    if (header.colorType == 4 || header.colorType == 6)
        haveAlpha_ = true;
    return ConvertImage(header, image, chunkData, settings);
}

} // namespace vex::png
