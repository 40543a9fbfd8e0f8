#include "battery_file.h"

#include <cstdio>
#include <cstring>
#include <memory>

namespace vex::drawtest {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

bool ReadLine(std::FILE* file, std::string& line)
{
    line.clear();
    int c;
    while ((c = std::fgetc(file)) != EOF && c != '\n')
        line.push_back(static_cast<char>(c));
    return c == '\n';
}

} // namespace

bool WriteResults(const std::string& path, const std::vector<CaseResult>& results)
{
    File file(std::fopen(path.c_str(), "wb"));
    if (!file)
        return false;
    std::fputs("VEXBATTERY 1\n", file.get());
    for (const auto& result : results) {
        const platform::Dib& pixels = result.pixels;
        std::fprintf(file.get(), "case %s %d %d %zu\n", result.name.c_str(), pixels.width(), pixels.height(),
            result.facts.size());
        for (const auto& fact : result.facts)
            std::fprintf(file.get(), "%s\n", fact.c_str());
        for (int32_t y = 0; y < pixels.height(); ++y)
            std::fwrite(pixels.row(y), 4, static_cast<size_t>(pixels.width()), file.get());
        std::fputc('\n', file.get());
    }
    std::fputs("end\n", file.get());
    return std::fflush(file.get()) == 0;
}

std::map<std::string, CaseResult> ReadResults(const std::string& path, std::string& error)
{
    std::map<std::string, CaseResult> results;
    File file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        error = "cannot open " + path;
        return {};
    }
    std::string line;
    if (!ReadLine(file.get(), line) || line != "VEXBATTERY 1") {
        error = path + " is not a battery result file";
        return {};
    }
    while (ReadLine(file.get(), line)) {
        if (line == "end")
            return results;
        char name[256] = {};
        int width = 0, height = 0;
        size_t factCount = 0;
        if (std::sscanf(line.c_str(), "case %255s %d %d %zu", name, &width, &height, &factCount) != 4 || width < 0
            || height < 0 || width > 8192 || height > 8192) {
            error = path + ": bad case header: " + line;
            return {};
        }
        CaseResult result;
        result.name = name;
        for (size_t i = 0; i < factCount; ++i) {
            ReadLine(file.get(), line);
            result.facts.push_back(line);
        }
        result.pixels = platform::Dib(width, height, 32, true);
        for (int32_t y = 0; y < height; ++y) {
            if (std::fread(result.pixels.row(y), 4, static_cast<size_t>(width), file.get()) != static_cast<size_t>(width)) {
                error = path + ": truncated pixels of " + result.name;
                return {};
            }
        }
        ReadLine(file.get(), line);
        results[result.name] = std::move(result);
    }
    error = path + ": no end marker (the Windows program stopped early?)";
    return {};
}

} // namespace vex::drawtest
