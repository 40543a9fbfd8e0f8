#include "contact_sheet.h"

#include <algorithm>

#include "platform/soft/soft_device_context.h"

namespace vex::cli {

platform::Dib ContactSheet(std::span<const LabelledImage> cells, int32_t columns)
{
    constexpr int32_t kMargin = 16, kLabel = 22;
    int32_t cellWidth = 0, cellHeight = 0;
    for (const LabelledImage& cell : cells) {
        cellWidth = std::max(cellWidth, cell.image->width());
        cellHeight = std::max(cellHeight, cell.image->height());
    }
    const auto count = static_cast<int32_t>(cells.size());
    columns = std::clamp(count, 1, std::max(columns, 1));
    const int32_t rows = (count + columns - 1) / columns;
    const int32_t width = kMargin + columns * (cellWidth + kMargin);
    const int32_t height = kMargin + rows * (cellHeight + kLabel + kMargin);
    auto sheet = platform::soft::CreateSurface(width, height);
    sheet->FillRect({ 0, 0, width, height }, platform::Brush::Solid(Rgb(246, 246, 243)));
    sheet->SetBkMode(platform::kBkTransparent);
    sheet->SetTextColor(Rgb(40, 40, 40));
    for (int32_t i = 0; i < count; ++i) {
        const LabelledImage& cell = cells[static_cast<size_t>(i)];
        const platform::Dib& image = *cell.image;
        const int32_t left = kMargin + (i % columns) * (cellWidth + kMargin);
        const int32_t top = kMargin + (i / columns) * (cellHeight + kLabel + kMargin);
        const int32_t x = left + (cellWidth - image.width()) / 2;
        auto source = sheet->CreateCompatibleDC();
        source->SelectBitmap(sheet->CreateBitmapFromDib(image));
        sheet->BitBlt(x, top, image.width(), image.height(), *source, 0, 0);
        sheet->FrameRect({ x - 1, top - 1, x + image.width() + 1, top + image.height() + 1 },
            platform::Brush::Solid(Rgb(200, 200, 196)));
        platform::Rect label { left, top + image.height() + 4, left + cellWidth, top + cellHeight + kLabel };
        sheet->DrawText(cell.label, label, platform::dt::Center | platform::dt::Top | platform::dt::SingleLine);
    }
    return sheet->Snapshot();
}

} // namespace vex::cli
