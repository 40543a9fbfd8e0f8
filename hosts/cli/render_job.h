#pragma once
// Rendering a saved panel headless, as a running program shows it: loaded in run mode, resized,
// shown, its parent form activated (so a transparent panel captures what lies behind it and an
// animation starts), then optionally a number of animation ticks. Used by `render` and `gallery`.

#include <string>
#include <vector>

#include "commands.h"
#include "platform/dib.h"
#include "platform/geometry.h"

namespace vex::cli {

struct RenderJob {
    std::string file;                      // the .vxp
    std::string output;                    // -o
    platform::Size size { 240, 80 };       // --size WxH
    std::vector<std::string> settings;     // --set Key=Value: as a .vxp line writes it, or a member's name
    std::string backdrop;                  // --backdrop IMAGE: the form behind the panel
    std::string picture;                   // --picture FILE.png: Picture, through LoadPNG
    int frames = 0;                        // --frames N
};

// Reads the options after the file name; an empty string when they are good, else what is wrong.
// Relative paths in the options are taken from `directory` (empty: as given).
std::string ParseRenderJob(Arguments arguments, RenderJob& job, const std::string& directory = {});

// The panel as painted, then one image per animation tick. A bad file or setting raises a
// CommandError that names it, as does a backdrop or picture that cannot be read.
std::vector<platform::Dib> RunRenderJob(const RenderJob& job);

} // namespace vex::cli
