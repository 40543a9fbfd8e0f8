// Any text either loads or ends in a run-time error; what loads must write out and read back to
// the same keys, and must load into a panel or fail with a run-time error.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/runtime_error.h"
#include "headless/headless_surface.h"
#include "testing/null_device_context.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "control/vxp_format.h"

using namespace vex::control;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MemoryPropertyBag bag;
    try {
        bag = ParseVxp(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const vex::RuntimeError&) {
        return 0;
    }
    MemoryPropertyBag again = ParseVxp(FormatVxp(bag)); // must not throw
    if (again.Entries().size() != bag.Entries().size())
        std::abort();
    for (size_t at = 0; at < bag.Entries().size(); ++at) {
        const auto& [key, value] = bag.Entries()[at];
        if (again.Entries()[at].first != key || TypeOf(again.Entries()[at].second) != TypeOf(value))
            std::abort();
        if (TypeOf(value) != ValueType::Picture && !SameValue(again.Entries()[at].second, value))
            std::abort();
    }
    HeadlessHost host;
    HeadlessSurface surface(std::make_unique<NullDeviceContext>(vex::platform::Size { 64, 32 }), { 64, 32 });
    VexPanel panel(host, surface);
    try {
        panel.ReadProperties(bag);
        panel.DrawControl(true);
    } catch (const vex::RuntimeError&) {
    }
    return 0;
}
