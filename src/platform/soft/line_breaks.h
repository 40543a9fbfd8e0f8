#pragma once
// Where a line of Windows-1252 text may be broken: the line-breaking classes of Unicode's
// UAX #14 for the characters of the code page and the pair rules that matter for them
// (break after spaces, after hyphens before letters, never before closing punctuation, ...).

#include <string_view>
#include <vector>

namespace vex::platform::soft {

// soft[i] is true when the line may be broken before character i (never before the first).
std::vector<bool> SoftBreaks(std::string_view text);

} // namespace vex::platform::soft
