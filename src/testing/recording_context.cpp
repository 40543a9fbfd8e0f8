#include "testing/recording_context.h"

#include <cstdio>

namespace vex::platform {
namespace {

std::string Hex(ColorRef color)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", RedOf(color), GreenOf(color), BlueOf(color));
    return text;
}

std::string Numbers(const std::vector<int64_t>& args, size_t from, size_t count)
{
    std::string text;
    for (size_t i = from; i < from + count && i < args.size(); ++i) {
        if (i > from)
            text += ", ";
        text += std::to_string(args[i]);
    }
    return text;
}

std::string RectText(const std::vector<int64_t>& args, size_t from)
{
    return "{" + std::to_string(args[from]) + "," + std::to_string(args[from + 1]) + "," + std::to_string(args[from + 2]) + ","
        + std::to_string(args[from + 3]) + "}";
}

// Pens and brushes are recorded as (kind, colour): kind 1 = solid, 0 = null or hollow.
std::vector<int64_t> PenArgs(Pen pen) { return { pen.null ? 0 : 1, pen.color }; }
std::vector<int64_t> BrushArgs(Brush brush) { return { brush.hollow ? 0 : 1, brush.color }; }

std::string StyleText(const std::vector<int64_t>& args, size_t at, const char* none)
{
    return args[at] ? "solid " + Hex(static_cast<ColorRef>(args[at + 1])) : std::string(none);
}

} // namespace

std::string DrawCall::ToString() const
{
    std::string body;
    if (name == "SelectPen") {
        body = StyleText(args, 0, "null");
    } else if (name == "SelectBrush") {
        body = StyleText(args, 0, "hollow");
    } else if (name == "FrameRect" || name == "FillRect") {
        body = RectText(args, 0) + ", " + StyleText(args, 4, "hollow");
    } else if (name == "SetTextColor") {
        body = Hex(static_cast<ColorRef>(args[0]));
    } else if (name == "TransparentBlt") {
        body = Numbers(args, 0, 8) + ", key " + Hex(static_cast<ColorRef>(args[8]));
    } else if (name == "DrawText") {
        char format[16];
        std::snprintf(format, sizeof format, "0x%X", static_cast<unsigned>(args[4]));
        body = "\"" + text + "\", " + RectText(args, 0) + ", " + format;
    } else if (name == "SelectFont") {
        char size[32];
        std::snprintf(size, sizeof size, "%g", static_cast<double>(args[0]) / 100.0);
        body = "\"" + text + "\", " + size + "pt"
            + (args[1] ? " bold" : "") + (args[2] ? " italic" : "") + (args[3] ? " underline" : "") + (args[4] ? " strikethrough" : "");
    } else {
        body = Numbers(args, 0, args.size());
    }
    return (context ? "#" + std::to_string(context) + " " : std::string()) + name + "(" + body + ")";
}

RecordingContext::RecordingContext(DeviceContext& inner)
    : RecordingContext(nullptr, &inner, std::make_shared<SharedLog>(), 0)
{
}

RecordingContext::RecordingContext(std::unique_ptr<DeviceContext> inner)
    : RecordingContext(std::move(inner), nullptr, std::make_shared<SharedLog>(), 0)
{
}

RecordingContext::RecordingContext(std::unique_ptr<DeviceContext> owned, DeviceContext* inner, std::shared_ptr<SharedLog> log, int number)
    : owned_(std::move(owned))
    , inner_(inner ? inner : owned_.get())
    , log_(std::move(log))
    , number_(number)
{
}

void RecordingContext::Record(std::string name, std::vector<int64_t> args, std::string text) const
{
    log_->calls.push_back(DrawCall { number_, std::move(name), std::move(args), std::move(text) });
}

DeviceContext& RecordingContext::Unwrap(DeviceContext& context)
{
    auto* recording = dynamic_cast<RecordingContext*>(&context);
    return recording ? *recording->inner_ : context;
}

std::string RecordingContext::Log() const
{
    std::string text;
    for (const DrawCall& call : log_->calls)
        text += call.ToString() + "\n";
    return text;
}

size_t RecordingContext::Count(const std::string& name) const
{
    size_t count = 0;
    for (const DrawCall& call : log_->calls)
        count += call.name == name ? 1 : 0;
    return count;
}

std::vector<DrawCall> RecordingContext::CallsNamed(const std::string& name) const
{
    std::vector<DrawCall> calls;
    for (const DrawCall& call : log_->calls)
        if (call.name == name)
            calls.push_back(call);
    return calls;
}

// ---- Objects --------------------------------------------------------------------------------

std::unique_ptr<DeviceContext> RecordingContext::CreateCompatibleDC()
{
    int number = log_->contexts++;
    Record("CreateCompatibleDC", { number });
    return std::unique_ptr<DeviceContext>(new RecordingContext(inner_->CreateCompatibleDC(), nullptr, log_, number));
}

BitmapRef RecordingContext::CreateCompatibleBitmap(int32_t width, int32_t height)
{
    Record("CreateCompatibleBitmap", { width, height });
    return inner_->CreateCompatibleBitmap(width, height);
}

BitmapRef RecordingContext::CreateBitmapFromDib(const Dib& dib)
{
    Record("CreateBitmapFromDib", { dib.width(), dib.height(), dib.bitCount() });
    return inner_->CreateBitmapFromDib(dib);
}

BitmapRef RecordingContext::BitmapOf(const Picture& picture)
{
    Record("BitmapOf", { static_cast<int64_t>(picture.type()), picture.pixelWidth(), picture.pixelHeight() });
    return inner_->BitmapOf(picture);
}

BitmapRef RecordingContext::SelectBitmap(BitmapRef bitmap)
{
    Size size = bitmap ? bitmap->size() : Size {};
    Record("SelectBitmap", { size.width, size.height });
    return inner_->SelectBitmap(std::move(bitmap));
}

Size RecordingContext::Extent() const
{
    return inner_->Extent();
}

// ---- State ----------------------------------------------------------------------------------

Pen RecordingContext::SelectPen(Pen pen)
{
    Record("SelectPen", PenArgs(pen));
    return inner_->SelectPen(pen);
}

Brush RecordingContext::SelectBrush(Brush brush)
{
    Record("SelectBrush", BrushArgs(brush));
    return inner_->SelectBrush(brush);
}

FontDesc RecordingContext::SelectFont(const FontDesc& font)
{
    Record("SelectFont", { static_cast<int64_t>(font.size * 100.0f + 0.5f), font.bold, font.italic, font.underline, font.strikethrough }, font.name);
    return inner_->SelectFont(font);
}

ColorRef RecordingContext::SetTextColor(ColorRef color)
{
    Record("SetTextColor", { color });
    return inner_->SetTextColor(color);
}

int RecordingContext::SetBkMode(int mode)
{
    Record("SetBkMode", { mode });
    return inner_->SetBkMode(mode);
}

int RecordingContext::SetStretchBltMode(int mode)
{
    Record("SetStretchBltMode", { mode });
    return inner_->SetStretchBltMode(mode);
}

ColorRef RecordingContext::GetSysColor(int index) const
{
    return inner_->GetSysColor(index); // a query: not recorded
}

// ---- Drawing --------------------------------------------------------------------------------

Point RecordingContext::MoveToEx(int32_t x, int32_t y)
{
    Record("MoveToEx", { x, y });
    return inner_->MoveToEx(x, y);
}

void RecordingContext::LineTo(int32_t x, int32_t y)
{
    Record("LineTo", { x, y });
    inner_->LineTo(x, y);
}

void RecordingContext::Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    Record("Rectangle", { left, top, right, bottom });
    inner_->Rectangle(left, top, right, bottom);
}

void RecordingContext::FrameRect(const Rect& rect, Brush brush)
{
    Record("FrameRect", { rect.left, rect.top, rect.right, rect.bottom, brush.hollow ? 0 : 1, brush.color });
    inner_->FrameRect(rect, brush);
}

void RecordingContext::FillRect(const Rect& rect, Brush brush)
{
    Record("FillRect", { rect.left, rect.top, rect.right, rect.bottom, brush.hollow ? 0 : 1, brush.color });
    inner_->FillRect(rect, brush);
}

ColorRef RecordingContext::GetPixel(int32_t x, int32_t y) const
{
    Record("GetPixel", { x, y });
    return inner_->GetPixel(x, y);
}

// ---- Blits ----------------------------------------------------------------------------------

void RecordingContext::BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY)
{
    Record("BitBlt", { x, y, width, height, sourceX, sourceY });
    inner_->BitBlt(x, y, width, height, Unwrap(source), sourceX, sourceY);
}

void RecordingContext::StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight)
{
    Record("StretchBlt", { x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight });
    inner_->StretchBlt(x, y, width, height, Unwrap(source), sourceX, sourceY, sourceWidth, sourceHeight);
}

void RecordingContext::TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
    uint32_t transparentColor)
{
    Record("TransparentBlt", { x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight, transparentColor });
    inner_->TransparentBlt(x, y, width, height, Unwrap(source), sourceX, sourceY, sourceWidth, sourceHeight, transparentColor);
}

void RecordingContext::DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags)
{
    Record("DrawIconEx", { x, y, width, height, flags });
    inner_->DrawIconEx(x, y, icon, width, height, flags);
}

// ---- Text -----------------------------------------------------------------------------------

int32_t RecordingContext::DrawText(std::string_view text, Rect& rect, uint32_t format)
{
    Record("DrawText", { rect.left, rect.top, rect.right, rect.bottom, format }, std::string(text));
    return inner_->DrawText(text, rect, format);
}

Dib RecordingContext::Snapshot() const
{
    return inner_->Snapshot();
}

} // namespace vex::platform
