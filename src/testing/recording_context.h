#pragma once
// A device context that records every call made to it, with its arguments, and passes each on
// to the context it decorates: for tests that check *which* calls a painter makes (how many
// DrawText calls, which pens, which rectangles), while the pixels are still drawn.
//
// Memory contexts made from a recording context record into the same log, each call tagged
// with the number of the context it was made on (0 = the root). Blits from a recording source
// pass the decorated source on, so any implementation can sit underneath.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/device_context.h"

namespace vex::platform {

struct DrawCall {
    int context = 0;            // 0 = the root context, then 1, 2, ... in order of creation
    std::string name;           // the method: "LineTo", "SelectPen", "DrawText", ...
    std::vector<int64_t> args;  // numeric arguments in call order (colours as 0x00BBGGRR)
    std::string text;           // DrawText's text, SelectFont's face name

    // "LineTo(10, 20)", "SelectPen(solid #FF0000)", "DrawText(\"Caption\", {0,0,36,13}, 0x25)";
    // calls on a memory context are prefixed with "#<context> ".
    std::string ToString() const;
};

class RecordingContext final : public DeviceContext {
public:
    // Records into a new log; `inner` must outlive this context.
    explicit RecordingContext(DeviceContext& inner);
    // Records into a new log and owns what it decorates.
    explicit RecordingContext(std::unique_ptr<DeviceContext> inner);

    DeviceContext& Inner() { return *inner_; }
    const std::vector<DrawCall>& Calls() const { return log_->calls; }
    std::string Log() const; // one ToString() line per call
    void Clear() { log_->calls.clear(); }
    // How many calls of this name the log holds (on every context).
    size_t Count(const std::string& name) const;
    // The calls of one name, in order.
    std::vector<DrawCall> CallsNamed(const std::string& name) const;

    std::unique_ptr<DeviceContext> CreateCompatibleDC() override;
    BitmapRef CreateCompatibleBitmap(int32_t width, int32_t height) override;
    BitmapRef CreateBitmapFromDib(const Dib& dib) override;
    BitmapRef BitmapOf(const Picture& picture) override;
    BitmapRef SelectBitmap(BitmapRef bitmap) override;
    Size Extent() const override;

    Pen SelectPen(Pen pen) override;
    Brush SelectBrush(Brush brush) override;
    FontDesc SelectFont(const FontDesc& font) override;
    ColorRef SetTextColor(ColorRef color) override;
    int SetBkMode(int mode) override;
    int SetStretchBltMode(int mode) override;
    ColorRef GetSysColor(int index) const override;
    bool OleTranslateColor(OleColor color, ColorRef& out) const override { return inner_->OleTranslateColor(color, out); }

    Point MoveToEx(int32_t x, int32_t y) override;
    void LineTo(int32_t x, int32_t y) override;
    void Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom) override;
    void FrameRect(const Rect& rect, Brush brush) override;
    void FillRect(const Rect& rect, Brush brush) override;
    ColorRef GetPixel(int32_t x, int32_t y) const override;

    void BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY) override;
    void StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight) override;
    void TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
        uint32_t transparentColor) override;
    void DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags) override;

    int32_t DrawText(std::string_view text, Rect& rect, uint32_t format) override;

    Dib Snapshot() const override;

private:
    struct SharedLog {
        std::vector<DrawCall> calls;
        int contexts = 1;
    };
    RecordingContext(std::unique_ptr<DeviceContext> owned, DeviceContext* inner, std::shared_ptr<SharedLog> log, int number);
    void Record(std::string name, std::vector<int64_t> args, std::string text = {}) const;
    static DeviceContext& Unwrap(DeviceContext& context);

    std::unique_ptr<DeviceContext> owned_;
    DeviceContext* inner_;
    std::shared_ptr<SharedLog> log_;
    int number_ = 0;
};

} // namespace vex::platform
