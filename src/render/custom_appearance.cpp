// The Custom appearance: a two- or three-colour gradient from VexGradiente, or the background
// picture as a texture, inside a flat frame of CustomBorderWidth rings of CustomBorderColor.
//
// The corner styles and CustomBorderRadio are stored and persisted but change nothing on the
// screen: the window keeps its rectangular shape and the frame its square corners. The region
// builders that would use them were never called, and are not built here.

#include <cmath>
#include <vector>

#include "base/numeric.h"
#include "gradient/vex_gradiente.h"
#include "render/background_picture.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/picture_placement.h"

namespace vex::render {

namespace {

using enum TypeCustomGradientDirection;

class CustomGradient {
public:
    explicit CustomGradient(PaintContext& context)
        : scaleWidth_(context.services.ScaleWidth()), scaleHeight_(context.services.ScaleHeight())
    {
        PainterMemory& memory = context.memory;
        if (!memory.gradient)
            memory.gradient = std::make_shared<VexGradiente>();
        engine_ = memory.gradient.get();
        engine_->setMessageBox([&services = context.services](const std::string& text) {
            services.MessageBox(text, std::string(), 0); // OK button only, the host's title
        });
        engine_->Attach(context.services.Dc());
    }

    void Linear(ColorRef first, ColorRef second, bool topToBottom)
    {
        engine_->setUseColourPositions(false);
        engine_->SetColours({ static_cast<int32_t>(first), static_cast<int32_t>(second) });
        engine_->SetColourPositions({ 0 });
        engine_->DrawLinearGradient(0, 0, CLng(scaleWidth_), CLng(scaleHeight_), topToBottom, false);
    }

    // first at both ends, second at line `middle`.
    void Centred(ColorRef first, ColorRef second, bool vertical)
    {
        const int32_t length = CLng(vertical ? scaleHeight_ : scaleWidth_);
        const auto middle = static_cast<int32_t>(std::trunc(length / 2.0));
        engine_->setUseColourPositions(true);
        engine_->SetColours({ static_cast<int32_t>(first), static_cast<int32_t>(second), static_cast<int32_t>(first) });
        engine_->SetColourPositions({ 0, middle, length });
        engine_->DrawLinearGradient(0, 0, CLng(scaleWidth_), CLng(scaleHeight_), vertical, false);
    }

    // The second colour at the centre, the first on the outermost square.
    void Squares(ColorRef outside, ColorRef centre)
    {
        engine_->setUseColourPositions(false);
        engine_->SetColours({ static_cast<int32_t>(centre), static_cast<int32_t>(outside) });
        engine_->SetColourPositions({ 0 });
        int32_t radius = CLng(scaleWidth_ / 2);
        if (scaleHeight_ / 2 > radius)
            radius = CLng(scaleHeight_ / 2);
        engine_->DrawRectangularGradients(CLng(scaleWidth_ / 2), CLng(scaleHeight_ / 2), radius);
    }

private:
    double scaleWidth_;
    double scaleHeight_;
    VexGradiente* engine_ = nullptr;
};

} // namespace

void DrawCustomGradient(PaintContext& context)
{
    const PanelProperties& props = context.props;
    platform::DeviceContext& dc = context.services.Dc();
    const ColorRef start = TranslateColor(props.CustomGradientStart, dc);
    const ColorRef end = TranslateColor(props.CustomGradientEnds, dc);
    const bool showsBackground = context.state.CaptureBackground == 0 || props.BackStyle == TypeBackStyle::Opaque;
    const TypeCustomGradientDirection direction = props.CustomGradientDirection;
    if (showsBackground && props.CustomGradientStyle == TypeCustomGradientStyle::UseGradient
        && direction >= TopToButtom && direction <= RetangleBorderToCenter) {
        CustomGradient gradient(context);
        switch (direction) {
        case TopToButtom: gradient.Linear(start, end, true); break;
        case ButtomToTop: gradient.Linear(end, start, true); break;
        case LeftToRight: gradient.Linear(start, end, false); break;
        case RightToLeft: gradient.Linear(end, start, false); break;
        case VerticalCenter: gradient.Centred(start, end, true); break;
        case HorizontalCenter: gradient.Centred(start, end, false); break;
        // The two square directions run the other way round to their names; kept.
        case RetangleCenterToBorder: gradient.Squares(start, end); break;
        case RetangleBorderToCenter: gradient.Squares(end, start); break;
        default: break;
        }
    }
    DrawCustomFrame(context);
}

// The gradient covers what it is drawn over, and it is drawn over the surface's scale size, which
// must be the client's. The squares cover the client when the outermost one reaches past every
// edge: square r outlines columns cx - r and cx + r - 1, rows cy - r and cy + r - 1.
bool CustomGradientCoversClient(PaintContext& context)
{
    const PanelProperties& props = context.props;
    const TypeCustomGradientDirection direction = props.CustomGradientDirection;
    if ((context.state.CaptureBackground != 0 && props.BackStyle != TypeBackStyle::Opaque)
        || props.CustomGradientStyle != TypeCustomGradientStyle::UseGradient || direction < TopToButtom
        || direction > RetangleBorderToCenter)
        return false;
    const int32_t width = context.state.ClientWidth;
    const int32_t height = context.state.ClientHeight;
    const double scaleWidth = context.services.ScaleWidth();
    const double scaleHeight = context.services.ScaleHeight();
    if (std::nearbyint(scaleWidth) != width || std::nearbyint(scaleHeight) != height)
        return false;
    if (direction != RetangleCenterToBorder && direction != RetangleBorderToCenter)
        return true;
    const double cx = std::nearbyint(scaleWidth / 2);
    const double cy = std::nearbyint(scaleHeight / 2);
    double radius = std::nearbyint(scaleWidth / 2);
    if (scaleHeight / 2 > radius)
        radius = std::nearbyint(scaleHeight / 2);
    return cx - radius <= 0 && cy - radius <= 0 && cx + radius >= width && cy + radius >= height;
}

void DrawCustomTexture(PaintContext& context)
{
    RenderBackgroundPicture(context, true, context.props.CustomBorderWidth);
}

// Ring k (from 0) frames (k, k) - (W - k, H - k): ring 0 is the outermost pixel ring. The client
// size is read afresh and narrowed to 16 bits, so a surface beyond 32767 pixels overflows here.
void DrawCustomFrame(PaintContext& context)
{
    platform::DeviceContext& dc = context.services.Dc();
    const platform::Brush brush = platform::Brush::Solid(TranslateColor(context.props.CustomBorderColor, dc));
    const platform::Size client = context.services.ClientSize();
    const int16_t W = ToInt16(client.width);
    const int16_t H = ToInt16(client.height);
    int32_t& ring = context.state.PaintLoopIndex;
    for (ring = 1; ring <= context.props.CustomBorderWidth; ring = Add32(ring, 1)) {
        const int32_t k = ring - 1;
        context.services.Dc().FrameRect(platform::Rect { k, k, Sub32(W, k), Sub32(H, k) }, brush);
    }
}

void DrawCustomPicture(PaintContext& context)
{
    if (!context.props.Picture)
        return;
    RenderPicture(context, true, Add16(context.props.CustomBorderWidth, 3));
}

} // namespace vex::render
