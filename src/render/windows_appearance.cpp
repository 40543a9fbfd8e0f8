// The Windows appearance: the whole client area shaded along one axis from a base colour, then
// the four border sides, each in its own style, in the order top, left, right, bottom.

#include <vector>

#include "base/numeric.h"
#include "platform/solid_line.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/panel_line.h"

namespace vex::render {

namespace {

using enum TypeWinBorderStyle;

int32_t ContrastShift(TypeWinContrast contrast)
{
    switch (contrast) {
    case TypeWinContrast::LowContrast:
        return 20;
    case TypeWinContrast::MediumContrast:
        return 40;
    case TypeWinContrast::HighContrast:
        return 80;
    default:
        return 0;
    }
}

bool IsBorder(TypeWinBorderStyle style) { return style >= LoweredBorder && style <= ShadowBorder; }

// How far the inner lines of the neighbouring sides keep away from a side in this style.
int32_t BorderOffset(TypeWinBorderStyle style)
{
    if (style == LoweredBorder || style == RaisedBorder)
        return 1;
    return style == ShadowBorder ? 2 : 0;
}

ColorRef Shift(ColorRef colour, double amount) { return ShiftColour(colour, CLng(amount), false); }

// Rows y = 0 .. H and columns x = 0 .. W are whole lines; the row at H and the column at W lie
// just outside the surface and are clipped, as the original's lines are.
class Shading {
public:
    Shading(PaintContext& context, ColorRef base, int32_t total)
        : context_(context), base_(base), total_(total),
          width_(context.state.ClientWidth), height_(context.state.ClientHeight) { }

    void Draw(TypeWinGradientDirection direction)
    {
        using enum TypeWinGradientDirection;
        switch (direction) {
        case pTopToButtomDirection: // top to bottom: base at the top, darkened by T at the bottom
            Away(height_, [&](int32_t y, ColorRef c) { Row(y, c); });
            break;
        case pButtomToTopDirection:
            Toward(height_, [&](int32_t y, ColorRef c) { Row(y, c); });
            break;
        case pLeftToRightDirection:
            BeginColumns();
            Away(width_, [&](int32_t x, ColorRef c) { Column(x, c); });
            EndColumns();
            break;
        case pRightToLeftDirection:
            BeginColumns();
            Toward(width_, [&](int32_t x, ColorRef c) { Column(x, c); });
            EndColumns();
            break;
        case pVerticalCenterDirection: // light on the middle row, darker toward the top and bottom edges
            FromCentre(height_, [&](int32_t y, ColorRef c) { Row(y, c); });
            break;
        case pHorizontalCenterDirection: // the same across the columns
            BeginColumns();
            FromCentre(width_, [&](int32_t x, ColorRef c) { Column(x, c); });
            EndColumns();
            break;
        default: // no shading at all
            break;
        }
    }

private:
    // Lines 0 .. length in the base colour shifted by -step * i.
    template <typename Line>
    void Away(int32_t length, Line line)
    {
        const float step = CSng(Divide(total_, length));
        int32_t i = 0;
        for (; i <= length; ++i)
            line(i, Shift(base_, -static_cast<double>(step) * i));
        context_.state.PaintLoopIndex = i;
    }

    // Lines length down to 0 in the fully darkened base shifted back up by step * i: channels
    // clamped at 0 by the first shift stay darker than the base.
    template <typename Line>
    void Toward(int32_t length, Line line)
    {
        const float step = CSng(Divide(total_, length));
        const ColorRef dark = Shift(base_, -static_cast<double>(step) * length);
        int32_t i = length;
        for (; i >= 0; --i)
            line(i, Shift(dark, static_cast<double>(step) * i));
        context_.state.PaintLoopIndex = i;
    }

    // From the middle line out to 0, then from the middle out to length; the middle is drawn
    // twice and keeps the second colour.
    template <typename Line>
    void FromCentre(int32_t length, Line line)
    {
        const int32_t half = IntDiv32(length, 2);
        const float step = CSng(Divide(total_, half));
        const ColorRef dark = Shift(base_, -static_cast<double>(step) * half);
        for (int32_t i = half; i >= 0; --i)
            line(i, Shift(dark, static_cast<double>(step) * i));
        int32_t i = half;
        for (; i <= length; ++i)
            line(i, Shift(base_, -static_cast<double>(step) * Sub32(i, half)));
        context_.state.PaintLoopIndex = i;
    }

    void Row(int32_t y, ColorRef colour) { DrawPanelLine(context_, 0, y, width_, y, colour); }

    // Columns are collected and painted together: each is one colour from row 0 to H - 1, and
    // a column drawn twice keeps its last colour.
    void BeginColumns()
    {
        if (width_ >= 0)
            columns_.assign(static_cast<size_t>(width_) + 1, 0);
    }
    void Column(int32_t x, ColorRef colour) { columns_[static_cast<size_t>(x)] = colour; }
    void EndColumns()
    {
        if (columns_.empty() || height_ == 0)
            return;
        const platform::Rect span = platform::AxisLineRect(0, 0, 0, height_);
        platform::SolidColumns(context_.services.Dc(), 0, span.top, span.bottom, columns_.data(),
            static_cast<int32_t>(columns_.size()));
    }

    PaintContext& context_;
    ColorRef base_;
    int32_t total_;
    int32_t width_;
    int32_t height_;
    std::vector<ColorRef> columns_;
};

// The four border sides. B is the working base colour; S3 the button shadow of the paint's colour
// table (the highlight is its button highlight). "themes" is ThemesColorOption.
class WinBorders {
public:
    WinBorders(PaintContext& context, ColorRef base)
        : context_(context), props_(context.props), themes_(context.props.WinOptionColor == TypeWinOptionColor::ThemesColorOption), base_(base),
          shadow_(context.state.SysColors.ButtonShadow), highlight_(context.state.SysColors.ButtonHighlight),
          width_(context.state.ClientWidth), height_(context.state.ClientHeight) { }

    void Draw()
    {
        Top();
        Left();
        Right();
        Bottom();
    }

private:
    ColorRef B(int32_t amount) const { return ShiftColour(base_, amount, false); }
    ColorRef S3(int32_t amount) const { return ShiftColour(shadow_, amount, false); }
    void Line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, ColorRef colour)
    {
        DrawPanelLine(context_, x1, y1, x2, y2, colour);
    }
    void RowLine(int32_t y, int32_t from, int32_t to, ColorRef colour) { Line(from, y, to, y, colour); }
    void ColumnLine(int32_t x, int32_t from, int32_t to, ColorRef colour) { Line(x, from, x, to, colour); }

    void Top()
    {
        const int32_t lf = IsBorder(props_.WinBorderLeftStyle) ? 1 : 0;
        const int32_t rf = IsBorder(props_.WinBorderRightStyle) ? 1 : 0;
        const int32_t W = width_;
        const int32_t inner = Sub32(W, rf);
        switch (props_.WinBorderTopStyle) {
        case LoweredBorder:
            RowLine(0, 0, W, themes_ ? S3(40) : B(-50));
            RowLine(1, lf, inner, themes_ ? highlight_ : B(40));
            break;
        case RaisedBorder:
            if (themes_) {
                RowLine(0, 0, W, highlight_);
            } else {
                RowLine(0, lf, inner, B(40)); // the outer row is shortened too, as it always was
            }
            RowLine(1, lf, inner, themes_ ? S3(40) : B(-50));
            break;
        case ShadowBorder:
            RowLine(0, 0, W, B(-40));
            RowLine(1, lf, inner, B(-25));
            RowLine(2, lf, inner, B(-20));
            break;
        default:
            break;
        }
    }

    void Left()
    {
        const int32_t to = BorderOffset(props_.WinBorderTopStyle);
        const int32_t bf = IsBorder(props_.WinBorderBottomStyle) ? 1 : 0;
        const int32_t H = height_;
        const int32_t end = Sub32(H, bf);
        switch (props_.WinBorderLeftStyle) {
        case LoweredBorder:
            ColumnLine(0, 0, H, themes_ ? S3(40) : B(-50));
            ColumnLine(1, to, end, themes_ ? highlight_ : B(40));
            break;
        case RaisedBorder:
            ColumnLine(0, 0, H, themes_ ? highlight_ : B(40));
            ColumnLine(1, to, end, themes_ ? S3(40) : B(-50));
            break;
        case ShadowBorder:
            if (themes_)
                ColumnLine(0, 0, H, B(-40));
            else
                RowLine(0, 0, width_, B(-40)); // along the top edge, not down the left one: kept
            ColumnLine(1, to, end, B(-25));
            ColumnLine(2, to, end, B(-20));
            break;
        default:
            break;
        }
    }

    void Right()
    {
        const int32_t to = BorderOffset(props_.WinBorderTopStyle);
        const int32_t bo = BorderOffset(props_.WinBorderBottomStyle);
        const int32_t H = height_;
        const int32_t end = Sub32(H, bo);
        const int32_t outer = Sub32(width_, 1);
        const int32_t inner = Sub32(width_, 2);
        switch (props_.WinBorderRightStyle) {
        case LoweredBorder:
            if (themes_) {
                ColumnLine(outer, 0, H, highlight_);
                ColumnLine(inner, to, end, S3(40));
            } else {
                // Here and below the full-length line is the inner column.
                ColumnLine(inner, 0, H, B(-50));
                ColumnLine(outer, to, end, B(40));
            }
            break;
        case RaisedBorder:
            ColumnLine(inner, 0, H, themes_ ? highlight_ : B(40));
            ColumnLine(outer, to, end, themes_ ? S3(40) : B(-50));
            break;
        case ShadowBorder:
            ColumnLine(outer, 0, H, B(-40));
            ColumnLine(inner, to, end, B(-25));
            ColumnLine(Sub32(width_, 3), to, end, B(-20));
            break;
        default:
            break;
        }
    }

    void Bottom()
    {
        const int32_t lo = BorderOffset(props_.WinBorderLeftStyle);
        const int32_t ro = BorderOffset(props_.WinBorderRightStyle);
        const int32_t W = width_;
        const int32_t end = Sub32(W, ro);
        const int32_t outer = Sub32(height_, 1);
        const int32_t inner = Sub32(height_, 2);
        switch (props_.WinBorderBottomStyle) {
        case LoweredBorder:
            RowLine(outer, 0, W, themes_ ? highlight_ : B(40));
            RowLine(inner, lo, end, themes_ ? S3(40) : B(-50));
            break;
        case RaisedBorder:
            RowLine(outer, 0, W, themes_ ? S3(40) : B(-50));
            RowLine(inner, lo, end, themes_ ? highlight_ : B(40));
            break;
        case ShadowBorder:
            RowLine(outer, 0, W, B(-40));
            RowLine(inner, lo, end, B(-25));
            RowLine(Sub32(height_, 3), lo, end, B(-20));
            break;
        default:
            break;
        }
    }

    PaintContext& context_;
    const PanelProperties& props_;
    bool themes_;
    ColorRef base_;
    ColorRef shadow_;
    ColorRef highlight_;
    int32_t width_;
    int32_t height_;
};

} // namespace

void DrawWindowsAppearance(PaintContext& context)
{
    const PanelProperties& props = context.props;
    const ColorRef base = props.WinOptionColor == TypeWinOptionColor::ThemesColorOption
        ? context.state.SysColors.ShadedFace
        : TranslateColor(props.WinBackColor, context.services.Dc());

    // A pending capture of the form behind a transparent panel shows through: no shading then.
    if (context.state.CaptureBackground == 0 || props.BackStyle == TypeBackStyle::Opaque)
        Shading(context, base, ContrastShift(props.WinContrast)).Draw(props.WinGradientDirection);

    WinBorders(context, base).Draw();
}

// The shading draws rows 0..H across the width or columns 0..W down the height in every
// direction; the centred ones halve the side they run along (a half of 0 is a division by zero).
bool WindowsAppearanceCoversClient(PaintContext& context)
{
    const PanelProperties& props = context.props;
    if (context.state.CaptureBackground != 0 && props.BackStyle != TypeBackStyle::Opaque)
        return false; // no shading over a pending capture
    switch (props.WinGradientDirection) {
        using enum TypeWinGradientDirection;
    case pTopToButtomDirection:
    case pButtomToTopDirection:
    case pLeftToRightDirection:
    case pRightToLeftDirection:
        return true;
    case pVerticalCenterDirection:
        return context.state.ClientHeight >= 2;
    case pHorizontalCenterDirection:
        return context.state.ClientWidth >= 2;
    default:
        return false;
    }
}

} // namespace vex::render
