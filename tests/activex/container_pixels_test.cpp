// The control in Wine's ATL container against the headless render: every example panel of the
// gallery, loaded from its .vxp into a 220 x 80 control, must show the window pixels the headless
// host paints, pixel for pixel, text included: the transparent one over the same backdrop painted
// by its container, the PNG one with the same picture given to it. A panel that needs nothing
// from its container is also drawn into a context through IViewObject2 by a control in no window
// (design time, printing), with the same pixels. The Windows side (activex-client render) writes
// the BMPs first; the animated strip has its own test.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "pages/picture_import.h"
#include "render_job.h"

namespace vex::cli {
namespace {

// A BMP as activex-client writes it (the library's own import reads it); empty when missing.
platform::Dib ReadBitmap(const std::string& path)
{
    try {
        return pages::LoadPictureFile(path)->bitmap();
    } catch (const std::exception&) {
        return {};
    }
}

// The number of differing pixels, and where the first is.
int Differences(const platform::Dib& window, const platform::Dib& headless, std::string& first)
{
    if (window.width() != headless.width() || window.height() != headless.height())
        return -1;
    int differing = 0;
    for (int32_t y = 0; y < headless.height(); ++y)
        for (int32_t x = 0; x < headless.width(); ++x)
            if (window.pixel(x, y) != headless.pixel(x, y) && differing++ == 0)
                first = std::to_string(x) + "," + std::to_string(y);
    return differing;
}

TEST(ActiveXContainer, GalleryPanelsShowTheHeadlessPixels)
{
    std::ifstream list(VEX_SOURCE_DIR "/examples/gallery.list");
    int compared = 0;
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream words(line.substr(0, line.find('|')));
        std::vector<std::string> texts;
        for (std::string word; words >> word;)
            texts.push_back(word);
        std::vector<std::string_view> views(texts.begin(), texts.end());
        RenderJob job;
        ASSERT_EQ(ParseRenderJob(views, job, VEX_SOURCE_DIR "/examples"), "") << line;
        if (job.frames)
            continue;
        SCOPED_TRACE(texts[0]);
        const std::string name = texts[0].substr(0, texts[0].rfind('.'));
        platform::Dib window = ReadBitmap(VEX_CONTAINER_DIR "/" + name + ".bmp");
        ASSERT_FALSE(window.empty()) << "no window pixels from the container";
        const platform::Dib headless = RunRenderJob(job).at(0);
        std::string first;
        EXPECT_EQ(Differences(window, headless, first), 0) << "first at " << first;
        if (job.backdrop.empty() && job.picture.empty()) { // and drawn into a context, in no window
            platform::Dib drawn = ReadBitmap(VEX_CONTAINER_DIR "/" + name + ".view.bmp");
            ASSERT_FALSE(drawn.empty()) << "nothing drawn through IViewObject2";
            EXPECT_EQ(Differences(drawn, headless, first), 0) << "drawn: first at " << first;
        }
        ++compared;
    }
    EXPECT_GE(compared, 16);
}

// The frame strip animated by the control's own timer in the container: the different pictures
// its window shows are the headless panel's after each tick, in order (the window is seen only
// when it changes, so a tick that repaints the same frame does not count).
TEST(ActiveXContainer, AnimatedStripShowsItsFramesInOrder)
{
    const std::vector<std::string_view> arguments { "picture-strip.vxp", "--size", "220x80", "--frames", "9" };
    RenderJob job;
    ASSERT_EQ(ParseRenderJob(arguments, job, VEX_SOURCE_DIR "/examples"), "");
    std::vector<platform::Dib> ticks;
    for (platform::Dib& picture : RunRenderJob(job)) {
        std::string unused;
        if (ticks.empty() || Differences(picture, ticks.back(), unused) != 0)
            ticks.push_back(std::move(picture));
    }
    ASSERT_GE(ticks.size(), 8u);
    ticks.resize(8); // the window's first eight pictures
    for (size_t i = 0; i < ticks.size(); ++i) {
        SCOPED_TRACE("picture " + std::to_string(i));
        platform::Dib window = ReadBitmap(VEX_CONTAINER_DIR "/animation/frame" + std::to_string(i) + ".bmp");
        ASSERT_FALSE(window.empty());
        std::string first;
        EXPECT_EQ(Differences(window, ticks[i], first), 0) << "first at " << first;
    }
}

} // namespace
} // namespace vex::cli
