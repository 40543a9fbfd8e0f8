#pragma once
// Inflate (RFC 1951) of our own. The routine's contract, kept exactly:
//   Inflate(data, capacity, deflate64, result)
//   - data: in: the deflate stream (the bytes after a zlib header); out: the decompressed bytes,
//     trimmed to the number produced (empty if none).
//   - capacity: in: the number of output bytes expected; 100 is added to it before use and the
//     caller sees the added value. A stream that would produce more is cut at capacity bytes.
//   - deflate64: length code 285 reads 16 extra bits + 3 instead of meaning 258.
//   - result: 0 success, -1 broken stream, -2 a stored block's LEN/NLEN check failed (decoding
//     went on). A tree that cannot be built reports "Error in tree creation (Static)" through
//     onTreeError and returns result 0 with data unchanged.
// One Inflater belongs to one LoadPNG object; it keeps the fixed trees between calls.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vex::png {

inline constexpr int32_t kInflateOk = 0;
inline constexpr int32_t kInflateBroken = -1;
inline constexpr int32_t kInflateStoredLengthMismatch = -2;

class Inflater {
public:
    Inflater();
    ~Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Receives the tree-creation message; the owner shows it in the host's message box.
    std::function<void(const std::string& message)> onTreeError;

    void Inflate(std::vector<uint8_t>& data, int32_t& capacity, bool deflate64, int32_t& result);
};

} // namespace vex::png
