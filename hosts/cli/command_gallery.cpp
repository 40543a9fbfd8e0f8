// vexpanel gallery -o DIR [--examples DIR]
// Renders every example panel listed in the examples folder's gallery.list to DIR, one PNG per
// panel, and puts them all on one contact sheet, DIR/gallery.png, each with its label under it.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "platform/soft/soft_device_context.h"
#include "png_io.h"
#include "render_job.h"

#ifndef VEX_EXAMPLES_DIR
#define VEX_EXAMPLES_DIR "examples"
#endif

namespace vex::cli {

namespace {

struct Example {
    RenderJob job;
    std::string label;
    platform::Dib image;
};

// "FILE [options] | label": the options are render's, the label goes under the panel.
bool ReadList(const std::string& directory, std::vector<Example>& examples)
{
    std::ifstream list(directory + "/gallery.list");
    if (!list) {
        std::cerr << "vexpanel gallery: no " << directory << "/gallery.list\n";
        return false;
    }
    std::string line;
    int number = 0;
    while (std::getline(list, line)) {
        ++number;
        if (line.empty() || line.front() == '#')
            continue;
        const size_t bar = line.find('|');
        Example example;
        example.label = bar == std::string::npos ? std::string() : line.substr(line.find_first_not_of(' ', bar + 1));
        std::istringstream words(line.substr(0, bar));
        std::vector<std::string> texts;
        for (std::string word; words >> word;)
            texts.push_back(word);
        std::vector<std::string_view> views(texts.begin(), texts.end());
        if (std::string problem = ParseRenderJob(views, example.job, directory); !problem.empty()) {
            std::cerr << "vexpanel gallery: gallery.list line " << number << ": " << problem << "\n";
            return false;
        }
        examples.push_back(std::move(example));
    }
    return true;
}

// The panels in rows of three on a light page, each with its label centred under it.
platform::Dib ContactSheet(const std::vector<Example>& examples)
{
    constexpr int32_t kColumns = 3, kMargin = 16, kLabel = 22;
    int32_t cellWidth = 0, cellHeight = 0;
    for (const Example& example : examples) {
        cellWidth = std::max(cellWidth, example.image.width());
        cellHeight = std::max(cellHeight, example.image.height());
    }
    const auto count = static_cast<int32_t>(examples.size());
    const int32_t rows = (count + kColumns - 1) / kColumns;
    const int32_t width = kMargin + kColumns * (cellWidth + kMargin);
    const int32_t height = kMargin + rows * (cellHeight + kLabel + kMargin);
    auto sheet = platform::soft::CreateSurface(width, height);
    sheet->FillRect({ 0, 0, width, height }, platform::Brush::Solid(Rgb(246, 246, 243)));
    sheet->SetBkMode(platform::kBkTransparent);
    sheet->SetTextColor(Rgb(40, 40, 40));
    for (int32_t i = 0; i < count; ++i) {
        const Example& example = examples[static_cast<size_t>(i)];
        const int32_t left = kMargin + (i % kColumns) * (cellWidth + kMargin);
        const int32_t top = kMargin + (i / kColumns) * (cellHeight + kLabel + kMargin);
        const int32_t x = left + (cellWidth - example.image.width()) / 2;
        auto source = sheet->CreateCompatibleDC();
        source->SelectBitmap(sheet->CreateBitmapFromDib(example.image));
        sheet->BitBlt(x, top, example.image.width(), example.image.height(), *source, 0, 0);
        sheet->FrameRect({ x - 1, top - 1, x + example.image.width() + 1, top + example.image.height() + 1 },
            platform::Brush::Solid(Rgb(200, 200, 196)));
        platform::Rect label { left, top + example.image.height() + 4, left + cellWidth, top + cellHeight + kLabel };
        sheet->DrawText(example.label, label, platform::dt::Center | platform::dt::Top | platform::dt::SingleLine);
    }
    return sheet->Snapshot();
}

} // namespace

int CommandGallery(Arguments arguments)
{
    std::string output, examplesDir = VEX_EXAMPLES_DIR;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == "-o" && hasValue)
            output = std::string(arguments[++i]);
        else if (arguments[i] == "--examples" && hasValue)
            examplesDir = std::string(arguments[++i]);
        else
            return UsageError("gallery", "usage: vexpanel gallery -o DIR [--examples DIR]");
    }
    if (output.empty())
        return UsageError("gallery", "no output folder given (-o DIR)");

    std::vector<Example> examples;
    if (!ReadList(examplesDir, examples))
        return 2;
    if (std::error_code error; !std::filesystem::create_directories(output, error) && error) {
        std::cerr << "vexpanel gallery: " << output << ": cannot create the folder: " << error.message() << "\n";
        return 2;
    }
    for (Example& example : examples) {
        std::vector<platform::Dib> images = RunRenderJob(example.job);
        // An animated example (--frames N) shows its last tick.
        example.image = std::move(images.back());
        const std::string name = std::filesystem::path(example.job.file).stem().string() + ".png";
        if (!WritePng(output + "/" + name, example.image))
            return 2;
    }
    const std::string sheet = output + "/gallery.png";
    if (!WritePng(sheet, ContactSheet(examples)))
        return 2;
    std::cout << sheet << " (" << examples.size() << " panels)\n";
    return 0;
}

} // namespace vex::cli
