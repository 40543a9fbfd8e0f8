#include "render_job.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "base/runtime_error.h"
#include "control/vxp_format.h"
#include "headless_panel.h"
#include "panel_file.h"
#include "png_io.h"
#include "render/colour.h"

namespace vex::cli {

namespace {

bool ParseSize(std::string_view text, platform::Size& size)
{
    const size_t x = text.find('x');
    if (x == std::string_view::npos)
        return false;
    auto number = [](std::string_view digits, int32_t& value) {
        auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return error == std::errc() && end == digits.data() + digits.size() && value > 0 && value <= 16384;
    };
    return number(text.substr(0, x), size.width) && number(text.substr(x + 1), size.height);
}

std::string Resolve(const std::string& directory, std::string_view path)
{
    if (directory.empty() || path.empty() || path.front() == '/')
        return std::string(path);
    return (std::filesystem::path(directory) / path).string();
}

} // namespace

std::string ParseRenderJob(Arguments arguments, RenderJob& job, const std::string& directory)
{
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view option = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (option == "-o" || option == "--size" || option == "--set" || option == "--backdrop" || option == "--frames"
            || option == "--picture") {
            if (!hasValue)
                return std::string(option) + " needs a value";
            const std::string_view value = arguments[++i];
            if (option == "-o") {
                job.output = std::string(value);
            } else if (option == "--size") {
                if (!ParseSize(value, job.size))
                    return "--size takes WxH, each 1 to 16384";
            } else if (option == "--set") {
                if (value.find('=') == std::string_view::npos)
                    return "--set takes Key=Value";
                job.settings.emplace_back(value);
            } else if (option == "--backdrop") {
                job.backdrop = Resolve(directory, value);
            } else if (option == "--picture") {
                job.picture = Resolve(directory, value);
            } else {
                auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), job.frames);
                if (error != std::errc() || end != value.data() + value.size() || job.frames < 0 || job.frames > 10000)
                    return "--frames takes a count from 0 to 10000";
            }
        } else if (job.file.empty() && !option.starts_with("-")) {
            job.file = Resolve(directory, option);
        } else {
            return "unexpected argument " + std::string(option);
        }
    }
    if (job.file.empty())
        return "no panel file given";
    return {};
}

std::vector<platform::Dib> RunRenderJob(const RenderJob& job)
{
    std::vector<Setting> settings;
    for (const std::string& option : job.settings)
        settings.push_back(ParseSetting(option, "--set"));

    HeadlessPanel headless(job.size);
    headless.host.userMode = true;
    if (!job.backdrop.empty()) {
        headless.host.backdrop = ReadImagePicture(job.backdrop);
        if (!headless.host.backdrop)
            throw RuntimeError(ErrorCode::InvalidPicture);
        // The panel sits in the middle of a larger form.
        const platform::Picture& form = *headless.host.backdrop;
        headless.host.controlOffset = { std::max(0, (form.pixelWidth() - job.size.width) / 2),
            std::max(0, (form.pixelHeight() - job.size.height) / 2) };
    }

    control::VexPanel& panel = headless.panel;
    LoadPanel(panel, job.file, settings);
    if (!job.picture.empty()) {
        // As a program would load it: alpha composed onto the panel's back colour.
        const ColorRef back = render::TranslateColor(panel.BackColor(), headless.surface.Dc());
        platform::PictureRef picture = ReadPngPicture(job.picture, back);
        if (!picture)
            throw RuntimeError(ErrorCode::InvalidPicture);
        panel.setPicture(picture);
    }
    panel.OnResize();
    panel.OnShow();
    headless.host.form.Activate();

    std::vector<platform::Dib> images;
    images.push_back(headless.surface.Dc().Snapshot());
    const int16_t delay = std::max<int16_t>(panel.Properties().PictureAnimDelay, 1);
    for (int frame = 0; frame < job.frames; ++frame) {
        headless.host.Advance(delay);
        images.push_back(headless.surface.Dc().Snapshot());
    }
    return images;
}

} // namespace vex::cli
