#include "control/base64.h"

namespace vex::control {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int DigitOf(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    if (c == '+')
        return 62;
    if (c == '/')
        return 63;
    return -1;
}

} // namespace

std::string EncodeBase64(const uint8_t* data, size_t size)
{
    std::string out;
    out.reserve((size + 2) / 3 * 4);
    for (size_t i = 0; i < size; i += 3) {
        uint32_t group = uint32_t { data[i] } << 16;
        if (i + 1 < size)
            group |= uint32_t { data[i + 1] } << 8;
        if (i + 2 < size)
            group |= data[i + 2];
        out += kAlphabet[(group >> 18) & 63];
        out += kAlphabet[(group >> 12) & 63];
        out += i + 1 < size ? kAlphabet[(group >> 6) & 63] : '=';
        out += i + 2 < size ? kAlphabet[group & 63] : '=';
    }
    return out;
}

std::optional<std::vector<uint8_t>> DecodeBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::vector<uint8_t> out;
    out.reserve(text.size() / 4 * 3);
    for (size_t i = 0; i < text.size(); i += 4) {
        bool last = i + 4 == text.size();
        int padding = 0;
        uint32_t group = 0;
        for (size_t k = 0; k < 4; ++k) {
            char c = text[i + k];
            if (c == '=' && last && k >= 2) {
                ++padding;
                group <<= 6;
                continue;
            }
            int digit = DigitOf(c);
            if (digit < 0 || padding > 0)
                return std::nullopt;
            group = (group << 6) | static_cast<uint32_t>(digit);
        }
        out.push_back(static_cast<uint8_t>(group >> 16));
        if (padding < 2)
            out.push_back(static_cast<uint8_t>(group >> 8));
        if (padding < 1)
            out.push_back(static_cast<uint8_t>(group));
    }
    return out;
}

} // namespace vex::control
