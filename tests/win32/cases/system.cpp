// The system colour table both sides answer GetSysColor from: the Windows side reads the prefix's
// registry, so a difference here means the prefix was not set up with the layer's scheme.

#include "helpers.h"

namespace vex::drawtest {

VEX_DRAWING_CASES(system_cases)
{
    cases.push_back({ "system_colors", 31, 1, [](DeviceContext& dc, Facts& facts) {
        for (int index = 0; index <= 30; ++index) {
            ColorRef color = dc.GetSysColor(index);
            facts.Add("GetSysColor(" + std::to_string(index) + ") = " + std::to_string(RedOf(color)) + " "
                + std::to_string(GreenOf(color)) + " " + std::to_string(BlueOf(color)));
            dc.FillRect({ index, 0, index + 1, 1 }, Brush::Solid(color));
        }
    } });
}

} // namespace vex::drawtest
