// The caption renderer through a recording context: text rectangles and their insets, format
// bits, the hand placement of wrapped text, the effect's five or six copies and the 3D
// lettering; and that the text lands on the surface.

#include <gtest/gtest.h>

#include <ostream>

#include "base/numeric.h"
#include "paint_fixture.h"
#include "testing/recording_context.h"

namespace vex::render {
namespace {

using platform::Rect;
using testing::Panel;

// One DrawText call as the recording context saw it, with the text colour set before it.
struct TextCall {
    std::string text;
    Rect rect;
    uint32_t format;
    ColorRef colour;
    friend bool operator==(const TextCall&, const TextCall&) = default;
    friend std::ostream& operator<<(std::ostream& out, const TextCall& call)
    {
        return out << '"' << call.text << "\" {" << call.rect.left << "," << call.rect.top << "," << call.rect.right
                   << "," << call.rect.bottom << "} " << call.format << " #" << std::hex << call.colour << std::dec;
    }
};

std::vector<TextCall> TextCalls(const platform::RecordingContext& recorder, ColorRef colour)
{
    std::vector<TextCall> calls;
    for (const platform::DrawCall& call : recorder.Calls()) {
        if (call.name == "SetTextColor")
            colour = static_cast<ColorRef>(call.args[0]);
        if (call.name == "DrawText") {
            const Rect rect { static_cast<int32_t>(call.args[0]), static_cast<int32_t>(call.args[1]),
                static_cast<int32_t>(call.args[2]), static_cast<int32_t>(call.args[3]) };
            calls.push_back({ call.text, rect, static_cast<uint32_t>(call.args[4]), colour });
        }
    }
    return calls;
}

constexpr ColorRef kFore = Rgb(1, 2, 3);
constexpr ColorRef kIn = Rgb(10, 10, 10);
constexpr ColorRef kOut = Rgb(20, 20, 20);
constexpr ColorRef kShadow = Rgb(30, 30, 30);
constexpr ColorRef kLight = Rgb(40, 40, 40);
constexpr ColorRef kShade = Rgb(50, 50, 50);

struct CaptionPanel : Panel {
    CaptionPanel(int32_t width, int32_t height, int16_t appearance) : Panel(width, height), recorder(*services.surface)
    {
        services.dc = &recorder;
        props.Appearance = TypeAppearance(TypeAppearance(appearance));
        props.Caption = "Vex";
        props.ForeColor = kFore;
        props.CaptionFontIn = kIn;
        props.CaptionFontOut = kOut;
        props.CaptionFontShadow = kShadow;
        props.PanelFont3DHighLight = kLight;
        props.PanelFont3DShadow = kShade;
    }
    std::vector<TextCall>& Paint()
    {
        recorder.Clear();
        PaintContext context = Context();
        if (props.Appearance == TypeAppearance::Window3D)
            DrawCaption3D(context);
        else
            DrawCaption(context);
        calls = TextCalls(recorder, textColour);
        return calls;
    }
    // The bottom of the wrapped text measured from the inset top, as the painter measures it.
    int32_t MeasuredBottom(Rect rect)
    {
        services.surface->DrawText(props.Caption, rect, platform::dt::CalcRect | platform::dt::WordBreak);
        return rect.bottom;
    }
    platform::RecordingContext recorder;
    ColorRef textColour = 0; // the surface's text colour before the painter runs
    std::vector<TextCall> calls;
};

TEST(Caption, SingleLineFlagsForTheNineAlignments)
{
    const uint32_t expected[9] = { 32, 36, 40, 34, 38, 42, 33, 37, 41 };
    CaptionPanel panel(100, 40, 0);
    for (int16_t alignment = 0; alignment < 9; ++alignment) {
        panel.props.CaptionAlignment = TypeAlignment(TypeAlignment(alignment));
        auto& calls = panel.Paint();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0], (TextCall { "Vex", Rect { 4, 3, 96, 37 }, expected[alignment], kFore })) << alignment;
    }
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment(9));
    EXPECT_TRUE(panel.Paint().empty());
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment(-1));
    EXPECT_TRUE(panel.Paint().empty());
}

TEST(Caption, InsetsByAppearanceAndBorder)
{
    CaptionPanel custom(100, 40, 2);
    custom.props.CustomBorderWidth = 2; // three extra pixels across only
    EXPECT_EQ(custom.Paint().at(0).rect, (Rect { 5, 2, 95, 38 }));

    CaptionPanel raised(100, 40, 1);
    struct Case {
        int16_t style, inset;
    };
    raised.props.Panel3DBorderWidth = 2;
    raised.props.Panel3DBorderOffset = 3;
    for (Case c : { Case { 0, 3 }, Case { 1, 5 }, Case { 2, 5 }, Case { 3, 10 }, Case { 4, 10 }, Case { 5, 3 } }) {
        raised.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(c.style));
        EXPECT_EQ(raised.Paint().at(0).rect, (Rect { c.inset, c.inset, 100 - c.inset, 40 - c.inset })) << c.style;
    }
}

TEST(Caption, InsetOverflowsSixteenBits)
{
    CaptionPanel panel(100, 40, 1);
    panel.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle::GBLowered3D);
    panel.props.Panel3DBorderWidth = 16000;
    panel.props.Panel3DBorderOffset = 765; // 3 + 32000 + 765 = 32768
    EXPECT_THROW(panel.Paint(), RuntimeError);
    panel.props.Panel3DBorderOffset = 764;
    EXPECT_NO_THROW(panel.Paint());
}

TEST(Caption, EffectIsShadowFourOutlinesAndTheBody)
{
    CaptionPanel panel(100, 40, 0);
    panel.props.CaptionEfect = true;
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::RightMiddle);
    const Rect r { 4, 3, 96, 37 };
    auto at = [&](int dx, int dy) { return Rect { r.left + dx, r.top + dy, r.right + dx, r.bottom + dy }; };
    std::vector<TextCall> expected = { { "Vex", at(-1, 0), 38, kOut }, { "Vex", at(0, -1), 38, kOut },
        { "Vex", at(1, 0), 38, kOut }, { "Vex", at(0, 1), 38, kOut }, { "Vex", r, 38, kIn } };
    EXPECT_EQ(panel.Paint(), expected);

    panel.props.CaptionGetShadow = true;
    expected.insert(expected.begin(), TextCall { "Vex", at(2, 2), 38, kShadow });
    EXPECT_EQ(panel.Paint(), expected);

    // The effect in Window3D replaces the lettering, whatever its value.
    CaptionPanel three(100, 40, 1);
    three.props.CaptionEfect = true;
    three.props.PanelFont3D = TypePanelFont3D(TypePanelFont3D::RaisedShadingFont3D);
    EXPECT_EQ(three.Paint().size(), 5u);
}

TEST(Caption, WrappedTextIsPlacedByHand)
{
    CaptionPanel panel(100, 40, 0);
    panel.props.CaptionStyle = TypeCaptionStyle(TypeCaptionStyle::WrappedCaption);
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::CenterMiddle);
    const int32_t M = panel.MeasuredBottom(Rect { 4, 3, 96, 37 });
    ASSERT_EQ(M, 16) << "one line of the ambient font is 13 pixels high";
    auto& calls = panel.Paint();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].format, 1041u); // measure only
    EXPECT_EQ(calls[1], (TextCall { "Vex", Rect { 4, 13, 96, 37 }, 17, kFore }));

    panel.props.CaptionEfect = true;
    EXPECT_EQ(panel.Paint().back().rect.top, 12);

    panel.props.CaptionEfect = false;
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::RightBottom); // H - M, with the effect H - M - 2
    EXPECT_EQ(panel.Paint().back(), (TextCall { "Vex", Rect { 4, 24, 96, 37 }, 18, kFore }));
    panel.props.CaptionEfect = true;
    EXPECT_EQ(panel.Paint().back().rect.top, 22);

    panel.props.CaptionEfect = false;
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::LeftTop); // top: no measuring
    EXPECT_EQ(panel.Paint(), (std::vector<TextCall> { { "Vex", Rect { 4, 3, 96, 37 }, 16, kFore } }));
}

TEST(Caption, WrappedHalvesRoundToEven)
{
    for (auto [height, plain, effect] : { std::array { 39, 12, 12 }, std::array { 41, 14, 12 } }) {
        CaptionPanel panel(100, height, 0);
        panel.props.CaptionStyle = TypeCaptionStyle(TypeCaptionStyle::WrappedCaption);
        panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::LeftMiddle);
        ASSERT_EQ(panel.MeasuredBottom(Rect { 4, 3, 96, height - 3 }), 16);
        EXPECT_EQ(panel.Paint().back().rect.top, plain) << height;
        panel.props.CaptionEfect = true;
        EXPECT_EQ(panel.Paint().back().rect.top, effect) << height;
    }
}

TEST(Caption, LetteringCopiesBeforeTheFace)
{
    CaptionPanel panel(100, 40, 1);
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::LeftTop);
    const Rect r { 3, 3, 97, 37 };
    auto call = [&](ColorRef colour, int dx, int dy) {
        return TextCall { "Vex", Rect { r.left + dx, r.top + dy, r.right + dx, r.bottom + dy }, 32, colour };
    };
    const std::vector<std::vector<TextCall>> expected = {
        { call(kFore, 0, 0) },
        { call(kLight, 1, 1), call(kFore, 0, 0) },
        { call(kLight, -1, -1), call(kFore, 0, 0) },
        { call(kLight, 1, 1), call(kShade, -1, -1), call(kFore, 0, 0) },
        { call(kShade, 1, 1), call(kLight, -1, -1), call(kFore, 0, 0) },
        { call(kShade, 2, 2), call(kFore, 0, 0) },
    };
    for (int16_t lettering = 0; lettering < 6; ++lettering) {
        panel.props.PanelFont3D = TypePanelFont3D(TypePanelFont3D(lettering));
        EXPECT_EQ(panel.Paint(), expected[lettering]) << lettering;
    }
    panel.props.PanelFont3D = TypePanelFont3D(TypePanelFont3D(6));
    EXPECT_TRUE(panel.Paint().empty());
}

TEST(Caption, Wrapped3DTakesTheSurfaceTextColour)
{
    CaptionPanel panel(100, 40, 1);
    panel.props.CaptionStyle = TypeCaptionStyle(TypeCaptionStyle::WrappedCaption);
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::LeftTop);
    panel.props.PanelFont3D = TypePanelFont3D(TypePanelFont3D::ShadowFont3D); // no lettering on wrapped text
    panel.recorder.SetTextColor(Rgb(9, 9, 9));
    panel.textColour = Rgb(9, 9, 9);
    EXPECT_EQ(panel.Paint(), (std::vector<TextCall> { { "Vex", Rect { 3, 3, 97, 37 }, 16, Rgb(9, 9, 9) } }));
}

TEST(Caption, TextLandsOnTheSurfaceAndAnEmptyCaptionDrawsNothing)
{
    CaptionPanel panel(60, 20, 0);
    panel.Fill(Rgb(255, 255, 255));
    panel.props.Caption = "";
    panel.props.CaptionEfect = true;
    panel.props.CaptionGetShadow = true;
    EXPECT_EQ(panel.Paint().size(), 6u);
    const platform::Dib blank = panel.services.surface->Snapshot();
    EXPECT_EQ(blank.bits(), [&] {
        Panel white(60, 20);
        white.Fill(Rgb(255, 255, 255));
        return white.services.surface->Snapshot().bits();
    }());

    panel.props.Caption = "HH";
    panel.props.CaptionAlignment = TypeAlignment(TypeAlignment::CenterMiddle);
    panel.Paint();
    int inner = 0, outline = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 60; ++x) {
            inner += panel.Pixel(x, y) == kIn;
            outline += panel.Pixel(x, y) == kOut;
        }
    EXPECT_GT(inner, 5);
    EXPECT_GT(outline, inner);
}

} // namespace
} // namespace vex::render
