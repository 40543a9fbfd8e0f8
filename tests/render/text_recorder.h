#pragma once
// A device context in front of another that passes every call on and writes down each DrawText:
// the rectangle it was given, the format bits and the text colour at the time.

#include <string>
#include <vector>

#include "platform/device_context.h"

namespace vex::render::testing {

struct TextCall {
    std::string text;
    platform::Rect rect;
    uint32_t format;
    ColorRef colour;
    friend bool operator==(const TextCall&, const TextCall&) = default;
};

class TextRecorder final : public platform::DeviceContext {
public:
    explicit TextRecorder(platform::DeviceContext& inner) : inner_(inner) { }

    std::vector<TextCall> calls;

    std::unique_ptr<DeviceContext> CreateCompatibleDC() override { return inner_.CreateCompatibleDC(); }
    platform::BitmapRef CreateCompatibleBitmap(int32_t w, int32_t h) override { return inner_.CreateCompatibleBitmap(w, h); }
    platform::BitmapRef CreateBitmapFromDib(const platform::Dib& dib) override { return inner_.CreateBitmapFromDib(dib); }
    platform::BitmapRef BitmapOf(const platform::Picture& picture) override { return inner_.BitmapOf(picture); }
    platform::BitmapRef SelectBitmap(platform::BitmapRef bitmap) override { return inner_.SelectBitmap(std::move(bitmap)); }
    platform::Size Extent() const override { return inner_.Extent(); }
    platform::Pen SelectPen(platform::Pen pen) override { return inner_.SelectPen(pen); }
    platform::Brush SelectBrush(platform::Brush brush) override { return inner_.SelectBrush(brush); }
    platform::FontDesc SelectFont(const platform::FontDesc& font) override { return inner_.SelectFont(font); }
    ColorRef SetTextColor(ColorRef color) override
    {
        colour_ = color;
        return inner_.SetTextColor(color);
    }
    int SetBkMode(int mode) override { return inner_.SetBkMode(mode); }
    int SetStretchBltMode(int mode) override { return inner_.SetStretchBltMode(mode); }
    ColorRef GetSysColor(int index) const override { return inner_.GetSysColor(index); }
    platform::Point MoveToEx(int32_t x, int32_t y) override { return inner_.MoveToEx(x, y); }
    void LineTo(int32_t x, int32_t y) override { inner_.LineTo(x, y); }
    void Rectangle(int32_t l, int32_t t, int32_t r, int32_t b) override { inner_.Rectangle(l, t, r, b); }
    void FrameRect(const platform::Rect& rect, platform::Brush brush) override { inner_.FrameRect(rect, brush); }
    void FillRect(const platform::Rect& rect, platform::Brush brush) override { inner_.FillRect(rect, brush); }
    ColorRef GetPixel(int32_t x, int32_t y) const override { return inner_.GetPixel(x, y); }
    void BitBlt(int32_t x, int32_t y, int32_t w, int32_t h, DeviceContext& s, int32_t sx, int32_t sy) override
    {
        inner_.BitBlt(x, y, w, h, &s == this ? inner_ : s, sx, sy);
    }
    void StretchBlt(int32_t x, int32_t y, int32_t w, int32_t h, DeviceContext& s, int32_t sx, int32_t sy, int32_t sw,
        int32_t sh) override
    {
        inner_.StretchBlt(x, y, w, h, &s == this ? inner_ : s, sx, sy, sw, sh);
    }
    void TransparentBlt(int32_t x, int32_t y, int32_t w, int32_t h, DeviceContext& s, int32_t sx, int32_t sy,
        int32_t sw, int32_t sh, uint32_t key) override
    {
        inner_.TransparentBlt(x, y, w, h, &s == this ? inner_ : s, sx, sy, sw, sh, key);
    }
    void DrawIconEx(int32_t x, int32_t y, const platform::Icon& icon, int32_t w, int32_t h, uint32_t flags) override
    {
        inner_.DrawIconEx(x, y, icon, w, h, flags);
    }
    int32_t DrawText(std::string_view text, platform::Rect& rect, uint32_t format) override
    {
        calls.push_back(TextCall { std::string(text), rect, format, colour_ });
        return inner_.DrawText(text, rect, format);
    }
    platform::Dib Snapshot() const override { return inner_.Snapshot(); }

private:
    platform::DeviceContext& inner_;
    ColorRef colour_ = 0;
};

} // namespace vex::render::testing
