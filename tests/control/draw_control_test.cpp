// The drawing pipeline's own steps: clearing, the paint state, the window's enabled state, the
// Custom appearance's border rings and the texture/capture choice.
#include "panel_fixture.h"
#include "render/colour.h"

namespace vex::control::testing {
namespace {

std::vector<platform::Rect> Frames(const RecordingDc& dc)
{
    std::vector<platform::Rect> frames;
    for (const RectCall& call : dc.calls)
        if (call.op == "FrameRect")
            frames.push_back(call.rect);
    return frames;
}

TEST_F(PanelTest, ClearingOnlyWhenAsked)
{
    panel.setBackColor(0x00336699);
    dc().calls.clear();
    panel.DrawControl(false);
    EXPECT_TRUE(dc().calls.empty());
    panel.DrawControl(true);
    ASSERT_EQ(dc().calls.size(), 1u);
    EXPECT_EQ(dc().calls[0].op, "FillRect");
    EXPECT_EQ(dc().calls[0].rect, (platform::Rect { 0, 0, 100, 50 }));
    EXPECT_EQ(dc().calls[0].brush, platform::Brush::Solid(0x336699));
}

TEST_F(PanelTest, PaintStateIsFilledFromTheSurface)
{
    surface.SetClientSize({ 321, 123 });
    panel.DrawControl(false);
    EXPECT_EQ(panel.PaintState().ClientRect, (platform::Rect { 0, 0, 321, 123 }));
    EXPECT_EQ(panel.PaintState().ClientWidth, 321);
    EXPECT_EQ(panel.PaintState().ClientHeight, 123);
    EXPECT_EQ(panel.PaintState().SysColors, render::PrepareSysColors(dc()));
}

TEST_F(PanelTest, EveryPaintSetsTheContextFromTheProperties)
{
    // A host's device context may start opaque with a solid brush, or a host call may change it.
    const platform::FontDesc font { "Arial", 12.0f, true, false, false, false };
    panel.setFont(font);
    panel.setForeColor(0x8000000D); // a system colour: the context gets its RGB
    dc().SetBkMode(platform::kBkOpaque);
    dc().SelectBrush(platform::Brush::Solid(0x0000FF));
    dc().SelectFont(platform::FontDesc {});
    dc().SetTextColor(0);
    panel.DrawControl(false);
    EXPECT_EQ(dc().SetBkMode(platform::kBkOpaque), platform::kBkTransparent);
    EXPECT_EQ(dc().SelectBrush(platform::Brush::Solid(0x0000FF)), platform::Brush::Hollow());
    EXPECT_EQ(dc().SelectFont(platform::FontDesc {}), font);
    EXPECT_EQ(dc().SetTextColor(0), render::TranslateColor(0x8000000D, dc()));
}

TEST_F(PanelTest, WindowIsEnabledFromEnabledAtRunTimeAndAlwaysAtDesignTime)
{
    panel.setEnabled(false);
    EXPECT_FALSE(surface.WindowEnabled());
    host.userMode = false;
    panel.DrawControl(false);
    EXPECT_TRUE(surface.WindowEnabled());
}

TEST_F(PanelTest, UnknownAppearanceDrawsNothingButTheClearing)
{
    panel.setCustomBorderWidth(3);
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    dc().calls.clear();
    panel.setAppearance(TypeAppearance(3));
    ASSERT_EQ(dc().calls.size(), 1u);
    EXPECT_EQ(dc().calls[0].op, "FillRect");
}

TEST_F(PanelTest, CustomTextureBorderRingsFromTheOutsideIn)
{
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    panel.setCustomBorderColor(0x00A88562);
    panel.setCustomBorderWidth(3);
    dc().calls.clear();
    panel.setAppearance(TypeAppearance::Custom);
    EXPECT_EQ(Frames(dc()), (std::vector<platform::Rect> { { 0, 0, 100, 50 }, { 1, 1, 99, 49 }, { 2, 2, 98, 48 } }));
    EXPECT_EQ(dc().calls.back().brush, platform::Brush::Solid(0xA88562));
    EXPECT_EQ(panel.PaintState().PaintLoopIndex, 4); // the shared counter stays past the end

    dc().calls.clear();
    panel.setCustomBorderColor(0x80000010); // a system colour is translated first
    EXPECT_EQ(dc().calls.back().brush, platform::Brush::Solid(dc().GetSysColor(16)));
}

TEST_F(PanelTest, CustomWidthZeroDrawsNoRingAndEachStyleFramesOnce)
{
    panel.setAppearance(TypeAppearance::Custom);
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    dc().calls.clear();
    panel.setCustomBorderWidth(0);
    EXPECT_TRUE(Frames(dc()).empty());
    panel.setCustomBorderWidth(2);
    EXPECT_EQ(Frames(dc()).size(), 2u);
    dc().calls.clear();
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseGradient); // the gradient painter frames itself
    EXPECT_EQ(Frames(dc()).size(), 2u);
}

TEST_F(PanelTest, ClientBeyondSixteenBitsOverflowsOnlyInTheCustomBorderStep)
{
    surface.SetClientSize({ 40000, 50 });
    panel.setAppearance(TypeAppearance::Windows);
    panel.setAppearance(TypeAppearance::Window3D);
    EXPECT_EQ(RaisedBy([&] {
        panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
        panel.setAppearance(TypeAppearance::Custom);
    }), 6);
}

TEST_F(PanelTest, TransparentCapturingCustomTextureStillFramesTheBorder)
{
    MemoryPropertyBag bag;
    bag.Set("Appearance", int16_t(2));
    bag.Set("CustomGradientStyle", int16_t(0));
    bag.Set("BackStyle", int16_t(0));
    bag.Set("CustomBorderWidth", int16_t(2));
    panel.ReadProperties(bag);
    ClearRecords();
    host.form.Activate();
    EXPECT_EQ(panel.CaptureBackground(), 1);
    EXPECT_EQ(host.captures, 1);
    ASSERT_FALSE(Redraws().empty());
    EXPECT_EQ(Frames(dc()).size(), 2 * Redraws().size()); // two rings on every paint
}

} // namespace
} // namespace vex::control::testing
