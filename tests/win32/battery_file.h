#pragma once
// The battery's result file: what the Windows program writes and the native comparer reads.
//
//   "VEXBATTERY 1\n"
//   per case: "case <name> <width> <height> <fact count>\n", one line per fact,
//             then width * height * 4 bytes of B, G, R, 0 pixels, top row first, then "\n"
//   "end\n"

#include <map>
#include <string>

#include "battery.h"

namespace vex::drawtest {

bool WriteResults(const std::string& path, const std::vector<CaseResult>& results);
// Empty map and a message in `error` when the file is missing or malformed.
std::map<std::string, CaseResult> ReadResults(const std::string& path, std::string& error);

} // namespace vex::drawtest
