// vexpanel gallery -o DIR [--examples DIR]
// Renders every example panel listed in the examples folder's gallery.list to DIR, one PNG per
// panel, and puts them all on one contact sheet, DIR/gallery.png, each with its label under it.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "contact_sheet.h"
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
    std::vector<LabelledImage> cells;
    for (const Example& example : examples)
        cells.push_back({ &example.image, example.label });
    const std::string sheet = output + "/gallery.png";
    if (!WritePng(sheet, ContactSheet(cells, 3)))
        return 2;
    std::cout << sheet << " (" << examples.size() << " panels)\n";
    return 0;
}

} // namespace vex::cli
