// Writing .vxp text: scalars on one line, the font and pictures as nested blocks.
#include <charconv>
#include <cstdio>

#include "control/base64.h"
#include "control/vxp_format.h"

namespace vex::control {

namespace {

constexpr size_t kBase64LineLength = 76;

std::string QuoteString(const std::string& text)
{
    std::string out = "\"";
    for (unsigned char c : text) {
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (c < 0x20 || c == 0x7F) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\x%02X", c);
                out += escape;
            } else {
                out += static_cast<char>(c);
            }
        }
    }
    return out + "\"";
}

std::string FormatSingle(float value)
{
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr) + "!";
}

std::string FormatScalar(const PropertyValue& value)
{
    switch (TypeOf(value)) {
    case ValueType::Int16: return std::to_string(std::get<int16_t>(value));
    case ValueType::Int32: {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "&H%08X&", static_cast<uint32_t>(std::get<int32_t>(value)));
        return buffer;
    }
    case ValueType::Single: return FormatSingle(std::get<float>(value));
    case ValueType::Boolean: return std::get<bool>(value) ? "True" : "False";
    case ValueType::String: return QuoteString(std::get<std::string>(value));
    default: return {};
    }
}

class Writer {
public:
    std::string text;

    void Line(int depth, const std::string& line) { text += std::string(depth * 4, ' ') + line + "\n"; }

    void Font(int depth, const std::string& key, const platform::FontDesc& font)
    {
        Line(depth, key + " {");
        Line(depth + 1, "Name = " + QuoteString(font.name));
        Line(depth + 1, "Size = " + FormatSingle(font.size));
        Line(depth + 1, std::string("Bold = ") + (font.bold ? "True" : "False"));
        Line(depth + 1, std::string("Italic = ") + (font.italic ? "True" : "False"));
        Line(depth + 1, std::string("Underline = ") + (font.underline ? "True" : "False"));
        Line(depth + 1, std::string("Strikethrough = ") + (font.strikethrough ? "True" : "False"));
        Line(depth, "}");
    }

    void DibFields(int depth, const platform::Dib& dib)
    {
        Line(depth, "Width = " + std::to_string(dib.width()));
        Line(depth, "Height = " + std::to_string(dib.height()));
        Line(depth, "BitCount = " + std::to_string(dib.bitCount()));
        Line(depth, std::string("TopDown = ") + (dib.topDown() ? "True" : "False"));
        if (!dib.palette().empty()) {
            const auto* bytes = reinterpret_cast<const uint8_t*>(dib.palette().data());
            Line(depth, "Palette = \"" + EncodeBase64(bytes, dib.palette().size() * sizeof(platform::RgbQuad)) + "\"");
        }
        std::string bits = EncodeBase64(dib.bits().data(), dib.bits().size());
        if (bits.empty())
            Line(depth, "Bits = \"\"");
        for (size_t at = 0; at < bits.size(); at += kBase64LineLength)
            Line(depth, "Bits = \"" + bits.substr(at, kBase64LineLength) + "\"");
    }

    void Picture(int depth, const std::string& key, const platform::PictureRef& picture)
    {
        Line(depth, key + " {");
        int type = picture ? static_cast<int>(picture->type()) : 0;
        Line(depth + 1, "Type = " + std::to_string(type));
        if (picture && picture->type() == platform::PictureType::Bitmap) {
            DibFields(depth + 1, picture->bitmap());
        } else if (picture && picture->type() == platform::PictureType::Icon) {
            Line(depth + 1, "Color {");
            DibFields(depth + 2, picture->icon().color);
            Line(depth + 1, "}");
            Line(depth + 1, "Mask {");
            DibFields(depth + 2, picture->icon().mask);
            Line(depth + 1, "}");
        }
        Line(depth, "}");
    }
};

} // namespace

std::string DescribeValue(const PropertyValue& value)
{
    switch (TypeOf(value)) {
    case ValueType::Font: {
        const auto& font = std::get<platform::FontDesc>(value);
        std::string text = QuoteString(font.name) + " " + FormatSingle(font.size);
        for (auto [on, name] : { std::pair { font.bold, " Bold" }, { font.italic, " Italic" },
                 { font.underline, " Underline" }, { font.strikethrough, " Strikethrough" } })
            if (on)
                text += name;
        return text;
    }
    case ValueType::Picture: {
        const auto& picture = std::get<platform::PictureRef>(value);
        if (!picture)
            return "Nothing";
        const char* kind = picture->type() == platform::PictureType::Bitmap ? "Bitmap"
            : picture->type() == platform::PictureType::Icon                ? "Icon"
                                                                             : "Picture";
        return std::string(kind) + " " + std::to_string(picture->pixelWidth()) + "x" + std::to_string(picture->pixelHeight());
    }
    default: return FormatScalar(value);
    }
}

std::string FormatVxp(const MemoryPropertyBag& bag)
{
    Writer writer;
    writer.Line(0, "# VexPanel saved panel");
    for (const auto& [key, value] : bag.Entries()) {
        if (auto* font = std::get_if<platform::FontDesc>(&value))
            writer.Font(0, key, *font);
        else if (auto* picture = std::get_if<platform::PictureRef>(&value))
            writer.Picture(0, key, *picture);
        else
            writer.Line(0, key + " = " + FormatScalar(value));
    }
    return writer.text;
}

} // namespace vex::control
