// Interprets the input as a short program of drawing calls on a small software surface: any
// coordinates, sizes, modes, fonts and text. The layer must clip everything and never read or
// write outside its bitmaps (ASan) or overflow (UBSan).

#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "platform/soft/soft_device_context.h"

namespace {

using namespace vex::platform;
using vex::Rgb;

int32_t Coordinate(FuzzedDataProvider& data)
{
    // Mostly near the surface, sometimes anywhere in the 32-bit range.
    if (data.ConsumeBool())
        return data.ConsumeIntegralInRange<int32_t>(-80, 80);
    return data.ConsumeIntegral<int32_t>();
}

int32_t Extent(FuzzedDataProvider& data)
{
    // Blit and icon sizes stay moderate so that one input cannot ask for gigabytes; negative
    // and zero sizes are part of the test.
    return data.ConsumeIntegralInRange<int32_t>(-300, 300);
}

Icon MakeIcon(FuzzedDataProvider& data)
{
    int32_t size = data.ConsumeIntegralInRange<int32_t>(1, 8);
    Icon icon { Dib(size, size, 32), Dib(size, size, 1) };
    for (auto& byte : icon.color.bits())
        byte = data.ConsumeIntegral<uint8_t>();
    for (auto& byte : icon.mask.bits())
        byte = data.ConsumeIntegral<uint8_t>();
    return icon;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    FuzzedDataProvider data(bytes, size);
    auto surface = soft::CreateSurface(64, 48);
    auto memory = surface->CreateCompatibleDC();
    memory->SelectBitmap(surface->CreateCompatibleBitmap(16, 12));
    for (int32_t i = 0; i < 16; ++i)
        memory->FillRect({ i, 0, i + 1, 12 }, Brush::Solid(Rgb(i * 16, 255 - i * 16, 7)));
    static const char* const faces[] = { "MS Sans Serif", "Tahoma", "No Such Face" };

    for (int step = 0; step < 48 && data.remaining_bytes() > 0; ++step) {
        DeviceContext& dc = data.ConsumeBool() ? static_cast<DeviceContext&>(*surface) : *memory;
        switch (data.ConsumeIntegralInRange<int>(0, 11)) {
        case 0: dc.MoveToEx(Coordinate(data), Coordinate(data)); break;
        case 1: dc.LineTo(Coordinate(data), Coordinate(data)); break;
        case 2: dc.Rectangle(Coordinate(data), Coordinate(data), Coordinate(data), Coordinate(data)); break;
        case 3: dc.FrameRect({ Coordinate(data), Coordinate(data), Coordinate(data), Coordinate(data) }, Brush::Solid(data.ConsumeIntegral<uint32_t>())); break;
        case 4: dc.FillRect({ Coordinate(data), Coordinate(data), Coordinate(data), Coordinate(data) }, Brush::Solid(data.ConsumeIntegral<uint32_t>())); break;
        case 5: dc.SelectPen(data.ConsumeBool() ? Pen::Null() : Pen::Solid(data.ConsumeIntegral<uint32_t>()));
            dc.SelectBrush(data.ConsumeBool() ? Brush::Hollow() : Brush::Solid(data.ConsumeIntegral<uint32_t>()));
            break;
        case 6: dc.SetStretchBltMode(data.ConsumeIntegralInRange<int>(0, 5)); break;
        case 7: surface->BitBlt(Coordinate(data), Coordinate(data), Extent(data), Extent(data), data.ConsumeBool() ? *memory : *surface,
                Coordinate(data), Coordinate(data));
            break;
        case 8: surface->StretchBlt(Coordinate(data), Coordinate(data), Extent(data), Extent(data), data.ConsumeBool() ? *memory : *surface,
                Coordinate(data), Coordinate(data), Extent(data), Extent(data));
            break;
        case 9: surface->TransparentBlt(Coordinate(data), Coordinate(data), Extent(data), Extent(data), *memory, Coordinate(data),
                Coordinate(data), Extent(data), Extent(data), data.ConsumeIntegral<uint32_t>());
            break;
        case 10: {
            Icon icon = MakeIcon(data);
            dc.DrawIconEx(Coordinate(data), Coordinate(data), icon, Extent(data), Extent(data), data.ConsumeIntegralInRange<uint32_t>(0, 3));
            break;
        }
        case 11: {
            FontDesc font;
            font.name = faces[data.ConsumeIntegralInRange<int>(0, 2)];
            font.size = static_cast<float>(data.ConsumeIntegralInRange<int>(1, 400)) / 4.0f;
            font.bold = data.ConsumeBool();
            font.italic = data.ConsumeBool();
            font.underline = data.ConsumeBool();
            font.strikethrough = data.ConsumeBool();
            dc.SelectFont(font);
            dc.SetBkMode(data.ConsumeBool() ? kBkOpaque : kBkTransparent);
            Rect rect { Coordinate(data), Coordinate(data), Coordinate(data), Coordinate(data) };
            uint32_t format = data.ConsumeIntegral<uint32_t>() & (dt::Center | dt::Right | dt::VCenter | dt::Bottom | dt::WordBreak | dt::SingleLine | dt::CalcRect);
            std::string text = data.ConsumeRandomLengthString(40);
            dc.DrawText(text, rect, format);
            break;
        }
        }
    }
    surface->GetPixel(Coordinate(data), Coordinate(data));
    return 0;
}
