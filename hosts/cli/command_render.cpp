// vexpanel render FILE.vxp -o OUT.png [--size WxH] [--set Key=Value ...] [--backdrop IMAGE]
//                                     [--frames N] [--picture FILE.png]
// Renders a saved panel as a running program shows it. With --frames N it also writes the next
// N animation ticks, OUT-1.png to OUT-N.png beside OUT.png.

#include <filesystem>
#include <iostream>

#include "commands.h"
#include "png_io.h"
#include "render_job.h"

namespace vex::cli {

namespace {

std::string NumberedPath(const std::string& path, int number)
{
    std::filesystem::path file(path);
    std::filesystem::path numbered = file.parent_path() / (file.stem().string() + "-" + std::to_string(number));
    return numbered.string() + file.extension().string();
}

} // namespace

int CommandRender(Arguments arguments)
{
    RenderJob job;
    if (std::string problem = ParseRenderJob(arguments, job); !problem.empty())
        return UsageError("render", problem);
    if (job.output.empty())
        return UsageError("render", "no output file given (-o OUT.png)");

    std::vector<platform::Dib> images = RunRenderJob(job);
    for (size_t i = 0; i < images.size(); ++i) {
        const std::string path = i == 0 ? job.output : NumberedPath(job.output, static_cast<int>(i));
        if (!WritePng(path, images[i]))
            return 2;
        std::cout << path << "\n";
    }
    return 0;
}

} // namespace vex::cli
