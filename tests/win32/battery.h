#pragma once
// The drawing battery: cases written once against the DeviceContext interface, run natively on
// platform/soft and under Wine on platform/win32, compared pixel for pixel by a native test.
//
// A case draws on a fresh surface (black, 32 bits per pixel) and may record facts: values the
// drawing calls return (DrawText's height and calc rectangles, previous positions ...), one text
// line each. Pixels and facts must match exactly unless the case grants a tolerance and says why.
//
// Adding cases: in any source of cases/, write
//     VEX_DRAWING_CASES(my_group) { cases.push_back({ "name", width, height, [](DeviceContext& dc, Facts& facts) { ... } }); }
// in a new file of cases/ (every cases/*.cpp is built into both sides). Whole panels can be cases too: draw the panel into dc.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/device_context.h"

namespace vex::drawtest {

using platform::DeviceContext;

class Facts {
public:
    void Add(std::string line) { lines_.push_back(std::move(line)); }
    void AddRect(const std::string& label, const platform::Rect& rect);
    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

struct DrawingCase {
    DrawingCase(std::string name, int32_t width, int32_t height, std::function<void(DeviceContext&, Facts&)> draw,
        int tolerance = 0, std::string tolerance_reason = {})
        : name(std::move(name))
        , width(width)
        , height(height)
        , draw(std::move(draw))
        , tolerance(tolerance)
        , tolerance_reason(std::move(tolerance_reason))
    {
    }

    std::string name;
    int32_t width = 0;
    int32_t height = 0;
    std::function<void(DeviceContext&, Facts&)> draw;
    // Largest difference accepted in any colour channel; 0 means identical. A case that sets it
    // says why in `tolerance_reason`.
    int tolerance = 0;
    std::string tolerance_reason;
};

using SurfaceFactory = std::unique_ptr<DeviceContext> (*)(int32_t width, int32_t height);

struct CaseResult {
    std::string name;
    platform::Dib pixels; // 32 bpp, top-down
    std::vector<std::string> facts;
};

// Every registered case, sorted by name.
const std::vector<DrawingCase>& Battery();
const DrawingCase* FindCase(const std::string& name);
CaseResult RunCase(const DrawingCase& drawingCase, SurfaceFactory makeSurface);

// Registration, used through VEX_DRAWING_CASES.
struct CaseGroup {
    explicit CaseGroup(void (*add)(std::vector<DrawingCase>& cases));
};

} // namespace vex::drawtest

#define VEX_DRAWING_CASES(group)                                                   \
    static void group(std::vector<::vex::drawtest::DrawingCase>& cases);           \
    static const ::vex::drawtest::CaseGroup group##_registration(group);          \
    static void group(std::vector<::vex::drawtest::DrawingCase>& cases)
