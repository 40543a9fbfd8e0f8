// The 3D border: rings of one-pixel lines drawn inward from the client edge. A lowered ring is
// dark at the top and left and light at the bottom and right; a raised ring the other way round.
// The GB styles are two bevels with a flat band of Panel3DBorderOffset rings between them.

#include "base/numeric.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/panel_line.h"

namespace vex::render {

namespace {

struct RingColours {
    ColorRef top;
    ColorRef bottom;
    ColorRef left;
    ColorRef right;
};

class Rings {
public:
    explicit Rings(PaintContext& context)
        : context_(context), right_(context.state.ClientWidth), bottom_(context.state.ClientHeight)
    {
        const PanelProperties& props = context.props;
        platform::DeviceContext& dc = context.services.Dc();
        if (!props.Panel3DBorderOption) {
            light_ = TranslateColor(props.Panel3DHighLight, dc);
            dark_ = TranslateColor(props.Panel3DShadow, dc);
        } else {
            light_ = dark_ = TranslateColor(props.Panel3DBorderColor, dc);
        }
    }

    RingColours Lowered() const { return { dark_, light_, dark_, light_ }; }
    RingColours Raised() const { return { light_, dark_, light_, dark_ }; }

    // count rings from depth `first` inward.
    void Bevel(int32_t first, int32_t count, const RingColours& colours)
    {
        int32_t& index = context_.state.PaintLoopIndex;
        for (index = 1; index <= count; index = Add32(index, 1))
            Ring(Add32(first, index - 1), colours);
    }

    // The gap band; its colour is translated afresh for every line, so a system colour that
    // changes half-way is picked up at once.
    void Band(int32_t first, int32_t count)
    {
        int32_t& index = context_.state.PaintLoopIndex;
        for (index = 1; index <= count; index = Add32(index, 1)) {
            const int32_t depth = Add32(first, index - 1);
            Ring(depth, [this](int) { return TranslateColor(context_.props.Panel3DOffsetColor, context_.services.Dc()); });
        }
    }

private:
    // One ring at depth e: top, bottom, left, right. The pen stops short of each end point, so
    // the bottom line holds the bottom-right corner and the sides stop one pixel above it.
    template <typename ColourOfSide>
    void Ring(int32_t e, ColourOfSide colourFor)
    {
        const int32_t right = Sub32(right_, e);
        const int32_t lastColumn = Sub32(Sub32(right_, 1), e);
        const int32_t lastRow = Sub32(Sub32(bottom_, 1), e);
        DrawPanelLine(context_, e, e, right, e, colourFor(0));
        DrawPanelLine(context_, e, lastRow, right, lastRow, colourFor(1));
        DrawPanelLine(context_, e, e, e, lastRow, colourFor(2));
        DrawPanelLine(context_, lastColumn, e, lastColumn, lastRow, colourFor(3));
    }
    void Ring(int32_t e, const RingColours& colours)
    {
        const ColorRef bySide[4] = { colours.top, colours.bottom, colours.left, colours.right };
        Ring(e, [&](int side) { return bySide[side]; });
    }

    PaintContext& context_;
    int32_t right_;
    int32_t bottom_;
    ColorRef light_ = 0;
    ColorRef dark_ = 0;
};

} // namespace

void Draw3DBorder(PaintContext& context)
{
    const PanelProperties& props = context.props;
    const int32_t W = props.Panel3DBorderWidth;
    const int32_t O = props.Panel3DBorderOffset;
    Rings rings(context);
    switch (props.Panel3DBorderStyle) {
    case TypePanel3DStyle::Lowered3D:
        rings.Bevel(0, W, rings.Lowered());
        break;
    case TypePanel3DStyle::Raised3D:
        rings.Bevel(0, W, rings.Raised());
        break;
    case TypePanel3DStyle::GBLowered3D: // a groove
        rings.Bevel(0, W, rings.Lowered());
        rings.Band(W, O);
        rings.Bevel(Add32(W, O), W, rings.Raised());
        break;
    case TypePanel3DStyle::GBRaised3D: // a ridge
        rings.Bevel(0, W, rings.Raised());
        rings.Band(W, O);
        rings.Bevel(Add32(W, O), W, rings.Lowered());
        break;
    default: // None3D or not a style: nothing
        break;
    }
}

} // namespace vex::render
