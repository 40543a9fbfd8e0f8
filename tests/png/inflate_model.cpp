#include "inflate_model.h"

#include <algorithm>
#include <limits>

#include "base/runtime_error.h"
#include "png/inflate.h"
#include "raises.h"

namespace vex::png::testing {

namespace {

struct Broken {}; // the stream is broken: result -1
struct Cut {};    // a copy passed the capacity: finish
struct TreeFailure {};

struct Tree {
    std::vector<int32_t> lengthTable;
    std::vector<int32_t> symbolTable;
    int32_t shortest = 16;
    int32_t longest = 0;
};

class Model {
public:
    Model(const std::vector<uint8_t>& data, int32_t capacity, bool deflate64)
        : input_(data)
        , capacity_(capacity)
        , deflate64_(deflate64)
    {
        for (int n = 0; n <= 16; ++n) {
            powers_[n] = int32_t{1} << n;
            masks_[n] = powers_[n] - 1;
        }
    }

    // Returns the result; throws RuntimeError, TreeFailure.
    int32_t Run(std::vector<uint8_t>& output)
    {
        output_.assign(size_t(capacity_) + 1, 0);
        try {
            Blocks();
        } catch (const Broken&) {
            result_ = -1;
        } catch (const Cut&) {
        }
        output_.resize(size_t(outPos_));
        output = output_;
        return result_;
    }

private:
    void Need(int32_t n)
    {
        while (bitCount_ < n && inPos_ < int32_t(input_.size())) {
            bitBuffer_ += input_[size_t(inPos_)] * powers_[bitCount_];
            bitCount_ += 8;
            ++inPos_;
        }
    }

    int32_t Read(int32_t n)
    {
        while (bitCount_ < n) {
            if (inPos_ >= int32_t(input_.size()))
                throw Broken{};
            bitBuffer_ += input_[size_t(inPos_)] * powers_[bitCount_];
            bitCount_ += 8;
            ++inPos_;
        }
        int32_t value = bitBuffer_ & masks_[n];
        Drop(n);
        return value;
    }

    void Drop(int32_t n)
    {
        bitBuffer_ /= powers_[n];
        bitCount_ -= n;
    }

    int32_t Decode(const Tree& tree)
    {
        Need(tree.longest);
        for (int32_t length = tree.shortest; length <= tree.longest; ++length) {
            int32_t index = bitBuffer_ & masks_[length];
            if (tree.lengthTable[size_t(index)] == length) {
                Drop(length);
                return tree.symbolTable[size_t(index)];
            }
        }
        throw Broken{};
    }

    static int32_t Build(Tree& tree, const int32_t* lengths, int32_t maxSymbol)
    {
        int32_t count[17] = {};
        for (int32_t s = 0; s <= maxSymbol; ++s)
            ++count[lengths[s]];
        tree.longest = 0;
        tree.shortest = 16;
        for (int32_t l = 1; l <= 16; ++l)
            if (count[l] != 0) {
                tree.longest = std::max(tree.longest, l);
                tree.shortest = std::min(tree.shortest, l);
            }
        int32_t left = 1;
        for (int32_t l = 1; l <= tree.longest; ++l) {
            left = left * 2 - count[l];
            if (left < 0)
                return left;
        }
        tree.lengthTable.assign(size_t{1} << tree.longest, 0);
        tree.symbolTable.assign(size_t{1} << tree.longest, 0);
        int32_t next[17] = {};
        int32_t code = 0;
        count[0] = 0;
        for (int32_t l = 1; l <= 16; ++l) {
            code = (code + count[l - 1]) * 2;
            next[l] = code;
        }
        for (int32_t s = 0; s <= maxSymbol; ++s) {
            int32_t l = lengths[s];
            if (l == 0)
                continue;
            int32_t c = next[l]++;
            int32_t reversed = 0;
            for (int32_t b = 0; b < l; ++b)
                reversed = reversed * 2 + ((c >> b) & 1);
            tree.lengthTable[size_t(reversed)] = l;
            tree.symbolTable[size_t(reversed)] = s;
        }
        return 0;
    }

    void Blocks()
    {
        for (;;) {
            int32_t final = Read(1);
            int32_t type = Read(2);
            if (type == 3)
                throw Broken{};
            if (type == 0) {
                Stored();
            } else {
                if (type == 1)
                    Fixed();
                else
                    Dynamic();
                Symbols();
            }
            if (final == 1)
                return;
        }
    }

    void Stored()
    {
        const int32_t last = int32_t(input_.size()) - 1;
        if (inPos_ + 4 > last)
            throw Broken{};
        while (bitCount_ >= 8) {
            --inPos_;
            bitCount_ -= 8;
        }
        int32_t length = input_[size_t(inPos_)] + input_[size_t(inPos_) + 1] * 256;
        int32_t complement = input_[size_t(inPos_) + 2] + input_[size_t(inPos_) + 3] * 256;
        inPos_ += 4;
        if (length != (complement ^ 0xffff))
            result_ = -2;
        if (inPos_ + length - 1 > last || outPos_ + length - 1 > capacity_)
            throw Broken{};
        for (int32_t i = 0; i < length; ++i)
            output_[size_t(outPos_ + i)] = input_[size_t(inPos_ + i)];
        inPos_ += length;
        outPos_ += length;
        bitBuffer_ = 0;
        bitCount_ = 0;
    }

    void Fixed()
    {
        int32_t lengths[288];
        for (int32_t s = 0; s < 288; ++s)
            lengths[s] = s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : 8;
        Build(litLen_, lengths, 287);
        for (int32_t s = 0; s < 32; ++s)
            lengths[s] = 5;
        Build(distance_, lengths, 31);
    }

    void Dynamic()
    {
        static const int32_t order[19] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
        int32_t hlit = Read(5) + 257;
        int32_t hdist = Read(5) + 1;
        int32_t hclen = Read(4) + 4;
        int32_t codeLengths[19] = {};
        for (int32_t i = 0; i < hclen; ++i)
            codeLengths[order[i]] = Read(3);
        Tree codeTree;
        if (Build(codeTree, codeLengths, 18) != 0)
            throw TreeFailure{};
        int32_t lengths[320] = {};
        int32_t n = 0;
        while (n < hlit + hdist) {
            int32_t symbol = Decode(codeTree);
            if (symbol < 16) {
                lengths[n++] = symbol;
                continue;
            }
            int32_t value = 0, times;
            if (symbol == 16) {
                if (n == 0)
                    throw TreeFailure{};
                value = lengths[n - 1];
                times = Read(2) + 3;
            } else if (symbol == 17) {
                times = Read(3) + 3;
            } else {
                times = Read(7) + 11;
            }
            if (n + times > hlit + hdist)
                throw TreeFailure{};
            while (times-- > 0)
                lengths[n++] = value;
        }
        if (Build(litLen_, lengths, hlit - 1) != 0 || Build(distance_, lengths + hlit, hdist - 1) != 0)
            throw TreeFailure{};
    }

    void Symbols()
    {
        static const int32_t lengthBase[32] = {3,  4,  5,  6,  7,  8,  9,  10,  11,  13,  15,  17,  19,  23, 27, 31,
                                               35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258, 0,  0,  0};
        static const int32_t lengthExtra[32] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2,
                                                3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0, 0, 0, 0};
        static const int32_t distanceBase[32] = {1,    2,    3,    4,    5,    7,     9,     13,    17,  25,  33,
                                                 49,   65,   97,   129,  193,  257,   385,   513,   769, 1025, 1537,
                                                 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577, 0,   0};
        static const int32_t distanceExtra[32] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6, 6,
                                                  7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13, 0, 0};
        for (;;) {
            int32_t symbol = Decode(litLen_);
            if (symbol < 256) {
                if (outPos_ > capacity_)
                    throw RuntimeError(ErrorCode::SubscriptOutOfRange);
                output_[size_t(outPos_++)] = uint8_t(symbol);
                continue;
            }
            if (symbol == 256)
                return;
            int32_t length = lengthBase[symbol - 257] + Read(lengthExtra[symbol - 257]);
            if (deflate64_ && length == 258)
                length = Read(16) + 3;
            int32_t code = Decode(distance_);
            int32_t distance = distanceBase[code] + Read(distanceExtra[code]);
            for (int32_t i = 0; i < length; ++i) {
                if (outPos_ > capacity_) {
                    outPos_ = capacity_;
                    throw Cut{};
                }
                if (outPos_ - distance < 0)
                    throw RuntimeError(ErrorCode::SubscriptOutOfRange);
                output_[size_t(outPos_)] = output_[size_t(outPos_ - distance)];
                ++outPos_;
            }
        }
    }

    std::vector<uint8_t> input_;
    int32_t inPos_ = 0;
    int32_t bitBuffer_ = 0;
    int32_t bitCount_ = 0;
    std::vector<uint8_t> output_;
    int32_t outPos_ = 0;
    int32_t capacity_;
    bool deflate64_;
    int32_t result_ = 0;
    int32_t powers_[17];
    int32_t masks_[17];
    Tree litLen_;
    Tree distance_;
};

} // namespace

ModelOutcome ModelInflate(const std::vector<uint8_t>& data, int32_t capacity, bool deflate64)
{
    ModelOutcome outcome;
    outcome.data = data;
    if (capacity > std::numeric_limits<int32_t>::max() - 100) {
        outcome.raised = int32_t(ErrorCode::Overflow);
        outcome.capacity = capacity;
        return outcome;
    }
    capacity += 100;
    outcome.capacity = capacity;
    if (capacity < 0) {
        outcome.raised = int32_t(ErrorCode::SubscriptOutOfRange);
        return outcome;
    }
    Model model(data, capacity, deflate64);
    try {
        std::vector<uint8_t> output;
        outcome.result = model.Run(output);
        outcome.data = std::move(output);
    } catch (const RuntimeError& error) {
        outcome.raised = error.number();
    } catch (const TreeFailure&) {
        outcome.treeMessages = 1;
        outcome.result = 0;
    }
    return outcome;
}

ModelOutcome RealInflate(const std::vector<uint8_t>& data, int32_t capacity, bool deflate64, bool intoSpan)
{
    ModelOutcome outcome;
    Inflater inflater;
    inflater.onTreeError = [&](const std::string& message) {
        if (message == "Error in tree creation (Static)")
            ++outcome.treeMessages;
        else
            outcome.treeMessages += 1000; // a wrong message shows as a difference
    };
    outcome.data = data;
    outcome.capacity = capacity;
    outcome.raised = vex::testing::RaisedBy([&] {
        if (intoSpan) {
            int32_t given = capacity;
            std::vector<uint8_t> output(capacity >= -101 && capacity < std::numeric_limits<int32_t>::max() - 100
                                            ? Inflater::OutputSizeFor(given)
                                            : 0);
            InflateOutcome result = inflater.InflateInto(data, outcome.capacity, deflate64, output);
            outcome.result = result.result;
            if (!result.treeError)
                outcome.data.assign(output.begin(), output.begin() + std::ptrdiff_t(result.produced));
        } else {
            outcome.result = -99; // must be written
            inflater.Inflate(outcome.data, outcome.capacity, deflate64, outcome.result);
        }
    });
    if (outcome.raised != 0)
        outcome.result = 0;
    return outcome;
}

std::string Compare(const ModelOutcome& expected, const ModelOutcome& actual)
{
    if (expected.raised != actual.raised)
        return "raised " + std::to_string(actual.raised) + ", expected " + std::to_string(expected.raised);
    if (expected.capacity != actual.capacity)
        return "capacity " + std::to_string(actual.capacity) + ", expected " + std::to_string(expected.capacity);
    if (expected.raised != 0)
        return actual.data == expected.data ? "" : "data changed although an error was raised";
    if (expected.result != actual.result)
        return "result " + std::to_string(actual.result) + ", expected " + std::to_string(expected.result);
    if (expected.treeMessages != actual.treeMessages)
        return "tree messages " + std::to_string(actual.treeMessages) + ", expected " +
               std::to_string(expected.treeMessages);
    if (expected.data.size() != actual.data.size())
        return "size " + std::to_string(actual.data.size()) + ", expected " + std::to_string(expected.data.size());
    auto mismatch = std::mismatch(expected.data.begin(), expected.data.end(), actual.data.begin());
    if (mismatch.first != expected.data.end())
        return "byte " + std::to_string(mismatch.first - expected.data.begin()) + " differs";
    return "";
}

} // namespace vex::png::testing
