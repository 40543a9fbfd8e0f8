#pragma once
// The host's text conversions recorded under Wine (text_conversions.txt beside this file): the
// native test checks ours against them; the Windows build checks them against the platform.

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace vex::testing {

inline constexpr int64_t kOverflow = int64_t { 6 } << 40; // the host's error 6
inline constexpr int64_t kMismatch = int64_t { 13 } << 40; // the host's error 13

struct ConversionCase {
    std::string text; // UTF-8
    int64_t integer, longValue, boolean; // the value, or kOverflow / kMismatch
};

// The table's cases; none when it cannot be read.
inline std::vector<ConversionCase> ReadConversionCases(const std::string& path)
{
    std::vector<ConversionCase> cases;
    std::ifstream file(path, std::ios::binary);
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        ConversionCase c;
        size_t at = 1;
        for (; at < line.size() && line[at] != '"'; ++at) {
            if (line[at] != '\\') {
                c.text += line[at];
                continue;
            }
            const char escaped = line[++at];
            const std::string simple = "tnrvf\"\\", meaning = "\t\n\r\v\f\"\\";
            if (escaped == 'x') {
                c.text += static_cast<char>(std::strtol(line.substr(at + 1, 2).c_str(), nullptr, 16));
                at += 2;
            } else {
                c.text += meaning[simple.find(escaped)];
            }
        }
        std::istringstream values(line.substr(at + 1));
        for (int64_t* value : { &c.integer, &c.longValue, &c.boolean }) {
            std::string word;
            values >> word;
            *value = word == "overflow" ? kOverflow : word == "mismatch" ? kMismatch : std::stoll(word);
        }
        cases.push_back(c);
    }
    return cases;
}

} // namespace vex::testing
