// The example panels (examples/gallery.list) as saved files, loaded and painted by the control
// itself (ReadProperties, then DrawControl with a clear) on both sides. Those with a caption are
// named text_saved_*, those without saved_*. Panels that need a backdrop behind them are left
// to the gallery.

#include <cstdio>
#include <fstream>
#include <sstream>

#include "control/control_surface.h"
#include "render/colour.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "helpers.h"

namespace vex::drawtest {

namespace {

struct Example {
    std::string file;
    int32_t width = 0;
    int32_t height = 0;
};

std::string ReadText(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "drawing battery: cannot read %s\n", path.c_str());
        std::abort();
    }
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<Example> Examples()
{
    std::vector<Example> examples;
    std::istringstream list(ReadText(std::string(VEX_EXAMPLES_DIR) + "/gallery.list"));
    std::string line;
    while (std::getline(list, line)) {
        if (line.empty() || line[0] == '#' || line.find("--backdrop") != std::string::npos)
            continue;
        Example example;
        std::istringstream words(line.substr(0, line.find('|')));
        std::string word;
        words >> example.file;
        while (words >> word) {
            if (word == "--size" && words >> word)
                std::sscanf(word.c_str(), "%dx%d", &example.width, &example.height);
        }
        if (example.width > 0 && example.height > 0)
            examples.push_back(example);
    }
    return examples;
}

// The control's window as the battery gives it: a memory context of the case's backend.
// (The headless host's surface is built on the software layer, which the Windows side lacks.)
class BatterySurface final : public control::ControlSurface {
public:
    BatterySurface(std::unique_ptr<DeviceContext> dc, platform::Size size)
        : dc_(std::move(dc))
        , size_(size)
    {
    }
    DeviceContext& Dc() override { return *dc_; }
    int32_t hDC() override { return 0x101; }
    int32_t hWnd() override { return 0x100; }
    platform::Size ClientSize() override { return size_; }
    double ScaleWidth() override { return size_.width; }
    double ScaleHeight() override { return size_.height; }
    void Refresh() override { }
    void SetWindowEnabled(bool) override { }
    void SetCursor(int16_t, const platform::PictureRef&) override { }
    void ReleaseWindowRegions() override { }
    bool WindowEnabled() override { return true; }
    platform::Point ClientToScreen(platform::Point point) override { return point; }
    platform::Point CursorPos() override { return { -1000, -1000 }; }
    int32_t WindowFromPoint(platform::Point) override { return 0; }

private:
    std::unique_ptr<DeviceContext> dc_;
    platform::Size size_;
};

void PaintSaved(DeviceContext& dc, const std::string& text, int32_t width, int32_t height)
{
    // The control paints into a memory context of its own surface, copied to the case's surface.
    auto memory = dc.CreateCompatibleDC();
    memory->SelectBitmap(dc.CreateCompatibleBitmap(width, height));
    DeviceContext& drawn = *memory;
    // The state a host's control surface has (its FontTransparent and transparent FillStyle):
    // the pipeline relies on it and does not set it.
    drawn.SetBkMode(platform::kBkTransparent);
    drawn.SelectBrush(Brush::Hollow());
    control::HeadlessHost host;
    BatterySurface surface(std::move(memory), { width, height });
    control::VexPanel panel(host, surface);
    control::MemoryPropertyBag bag = control::ParseVxp(text);
    panel.ReadProperties(bag);
    panel.DrawControl(true);
    dc.BitBlt(0, 0, width, height, drawn, 0, 0);
}

} // namespace

VEX_DRAWING_CASES(saved_panel_cases)
{
    for (const Example& example : Examples()) {
        std::string text = ReadText(std::string(VEX_EXAMPLES_DIR) + "/" + example.file);
        std::string stem = example.file.substr(0, example.file.rfind('.'));
        for (char& c : stem) {
            if (c == '-')
                c = '_';
        }
        bool captioned = text.find("\nCaption = ") != std::string::npos || text.find("\nCaptionText = ") != std::string::npos;
        int32_t width = example.width;
        int32_t height = example.height;
        cases.push_back({ (captioned ? "text_saved_" : "saved_") + stem, width, height,
            [text, width, height](DeviceContext& dc, Facts&) { PaintSaved(dc, text, width, height); } });
    }
}

} // namespace vex::drawtest
