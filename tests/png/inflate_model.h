#pragma once
// A plain model of the inflate for differential tests and the fuzzer: the original's bit reader
// (a 32-bit buffer filled a byte at a time, an input position that runs ahead of the bits used),
// trees as a code-length table and a symbol table indexed by reversed code, and a search from
// the shortest length to the longest; a copy one byte at a time. Slow and obviously close to
// the routine's description, so the fast decoder can be checked against it on any input.

#include <cstdint>
#include <string>
#include <vector>

namespace vex::png::testing {

struct ModelOutcome {
    int32_t raised = 0;        // the run-time error number, or 0
    int32_t result = 0;        // when nothing was raised
    int32_t capacity = 0;      // the capacity after the call (+100 unless the add overflowed)
    int32_t treeMessages = 0;  // how many tree-creation messages were shown
    std::vector<uint8_t> data; // the data after the call
};

ModelOutcome ModelInflate(const std::vector<uint8_t>& data, int32_t capacity, bool deflate64);

// The same outcome from the real Inflater (a fresh object), through Inflate or, with
// `intoSpan`, through InflateInto with an output buffer of exactly the size it asks for.
ModelOutcome RealInflate(const std::vector<uint8_t>& data, int32_t capacity, bool deflate64, bool intoSpan = false);

// Empty when equal; otherwise a short description of the first difference.
std::string Compare(const ModelOutcome& expected, const ModelOutcome& actual);

} // namespace vex::png::testing
