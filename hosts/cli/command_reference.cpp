// vexpanel reference -o DIR [--examples DIR]
// Writes the property reference, DIR/properties.md, and for each enumeration that shows in the
// picture a strip of small panels, one per member, DIR/properties/ENUMERATION.png. The table,
// the defaults and the members come from the control itself, so the page cannot drift from it.

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "contact_sheet.h"
#include "control/vxp_format.h"
#include "headless_panel.h"
#include "panel_file.h"
#include "model/enum_names.h"
#include "png_io.h"
#include "property_notes.h"
#include "render_job.h"

#ifndef VEX_EXAMPLES_DIR
#define VEX_EXAMPLES_DIR "examples"
#endif

namespace vex::cli {

namespace {

using model::PropertyInfo;
using model::SetRule;
using model::ValueKind;

// A strip: an example panel rendered once per member, with `properties` set to that member.
struct Strip {
    std::string_view enumeration;
    std::string_view example;
    std::vector<std::string_view> properties;
    std::vector<std::string_view> settings {};
    std::string_view backdrop {};
};

const std::vector<Strip>& Strips()
{
    static const std::vector<Strip> strips = {
        { "TypeAppearance", "windows-themes.vxp", { "Appearance" }, { "Caption=\"Caption\"" } },
        { "TypeWinGradientDirection", "windows-themes.vxp", { "WinGradientDirection" }, { "WinContrast=2" } },
        { "TypeWinOptionColor", "windows-backcolour.vxp", { "WinOptionColor" } },
        { "TypeWinContrast", "windows-themes.vxp", { "WinContrast" } },
        { "TypeWinBorderStyle", "windows-themes.vxp",
            { "WinBorderTopStyle", "WinBorderBottomStyle", "WinBorderLeftStyle", "WinBorderRightStyle" } },
        { "TypeAlignment", "3d-flat.vxp", { "CaptionAlignment" }, { "Caption=\"Caption\"" } },
        { "TypePictureBackgroundStyle", "background-tiled.vxp", { "PictureBackgroundStyle" } },
        { "TypeCaptionStyle", "custom-wrapped.vxp", { "CaptionStyle" } },
        { "TypePanel3DStyle", "3d-groove.vxp", { "Panel3DBorderStyle" } },
        { "TypeCustomGradientStyle", "background-tiled.vxp", { "CustomGradientStyle" }, { "Appearance=Custom", "Caption=\"Caption\"" } },
        { "TypeCustomGradientDirection", "custom-linear.vxp", { "CustomGradientDirection" } },
        { "TypeBackStyle", "transparent.vxp", { "BackStyle" }, {}, "backdrop.png" },
        { "TypePanelFont3D", "3d-lowered.vxp", { "PanelFont3D" }, { "Caption=\"Lettering\"" } },
    };
    return strips;
}

constexpr platform::Size kCellSize { 168, 56 };
constexpr int32_t kStripColumns = 3;

const Strip* StripOf(std::string_view enumeration)
{
    for (const Strip& strip : Strips())
        if (strip.enumeration == enumeration)
            return &strip;
    return nullptr;
}

platform::Dib RenderStrip(const Strip& strip, const model::EnumInfo& info, const std::string& examples)
{
    std::vector<platform::Dib> images;
    std::vector<LabelledImage> cells;
    images.reserve(info.members.size());
    for (const model::EnumMember& member : info.members) {
        RenderJob job;
        job.file = examples + "/" + std::string(strip.example);
        job.size = kCellSize;
        if (!strip.backdrop.empty())
            job.backdrop = examples + "/" + std::string(strip.backdrop);
        for (std::string_view setting : strip.settings)
            job.settings.emplace_back(setting);
        for (std::string_view property : strip.properties)
            job.settings.push_back(std::string(property) + "=" + std::to_string(member.value));
        images.push_back(RunRenderJob(job).front());
        cells.push_back({ &images.back(), std::string(member.name) });
    }
    return ContactSheet(cells, kStripColumns);
}

std::string Code(std::string_view text) { return "`" + std::string(text) + "`"; }

std::string TypeText(const PropertyInfo& info)
{
    switch (info.kind) {
    case ValueKind::Byte: return "byte";
    case ValueKind::Boolean: return "Boolean";
    case ValueKind::Int16: return "16-bit integer";
    case ValueKind::Int32: return "32-bit integer";
    case ValueKind::Single: return "single";
    case ValueKind::Colour: return "colour";
    case ValueKind::String: return "string";
    case ValueKind::Enumeration: {
        std::string anchor(info.enumeration); // a heading's anchor is its text in lower case
        std::transform(anchor.begin(), anchor.end(), anchor.begin(), [](unsigned char c) { return std::tolower(c); });
        return "[" + Code(info.enumeration) + "](#" + anchor + ")";
    }
    case ValueKind::Font: return "font";
    case ValueKind::Picture: return "picture";
    }
    return {};
}

std::string Hex(uint32_t value)
{
    char text[16];
    std::snprintf(text, sizeof text, "&H%08X&", value);
    return text;
}

std::string Number(float value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

// The value a freshly placed panel holds, as a program reads it.
std::string DefaultText(const PropertyInfo& info, const control::VexPanel& placed)
{
    if (info.store == model::StoreKind::Window)
        return "the window's";
    if (info.name == "Caption")
        return "the control's name (`VexPanel1`)";
    const control::PropertyValue value = placed.GetProperty(info.name);
    switch (info.kind) {
    case ValueKind::Colour: {
        const auto colour = static_cast<uint32_t>(control::AsInt32(value));
        std::string text = Code(Hex(colour));
        if (info.Has(model::InitComputed))
            text += " (the button shadow, lightened)";
        else if (colour & 0x80000000u)
            text += " (system colour " + std::to_string(colour & 0xFFu) + ")";
        return text;
    }
    case ValueKind::Enumeration: {
        const int16_t number = control::AsInt16(value);
        return Code(model::MemberName(*model::FindEnumeration(info.enumeration), number)) + " (" + std::to_string(number) + ")";
    }
    case ValueKind::Boolean: return control::AsBoolean(value) ? "True" : "False";
    case ValueKind::String: return control::AsText(value).empty() ? "empty" : Code(control::AsText(value));
    case ValueKind::Font: {
        const platform::FontDesc font = control::AsFont(value);
        return font.name + ", " + Number(font.size) + " pt (the container's font)";
    }
    case ValueKind::Single: return Number(control::AsSingle(value));
    case ValueKind::Picture: return "none";
    default: return control::DescribeValue(value);
    }
}

// The values a set takes (a clamp stores its limit; other values fail as the type says).
std::string RangeText(const PropertyInfo& info)
{
    switch (info.rule) {
    case SetRule::AtLeast0: return "0 to 32767";
    case SetRule::AtLeast1: return "1 to 32767";
    case SetRule::DelayRange: return "1 to 32000";
    default: break;
    }
    switch (info.kind) {
    case ValueKind::Byte: return "0 to 255";
    case ValueKind::Boolean: return "True, False";
    case ValueKind::Int16: return "-32768 to 32767";
    case ValueKind::Colour: return "RGB or system colour";
    case ValueKind::Enumeration: return "any 16-bit value";
    case ValueKind::Single: return "a size the font takes";
    default: return "any";
    }
}

std::string SetText(const PropertyInfo& info)
{
    switch (info.rule) {
    case SetRule::Plain: return "stored; nothing else";
    case SetRule::S: return "stored, reported, redrawn";
    case SetRule::AtLeast0: return "a negative value is stored as 0; stored, reported, redrawn";
    case SetRule::AtLeast1: return "a value below 1 is stored as 1; stored, reported, redrawn";
    case SetRule::DelayRange:
        return "1 to 32000: stored, reported, redrawn; another value shows the control's error message and is not "
               "stored";
    case SetRule::P: return "stored and reported; no redraw";
    case SetRule::Cursor: return "stored and reported; the window shows the pointer; no redraw";
    case SetRule::F: return "written into `Font`, reported, redrawn";
    case SetRule::AnimSwitch:
        return "stored and reported; True starts a bitmap's animation from frame 0 (no picture: error 91, the value "
               "kept), False stops it";
    case SetRule::Lettering: return "stored and reported; redrawn only in the `Window3D` look";
    case SetRule::CaptionText: return "its own copy, then `Caption` is set to the same text; both reported";
    case SetRule::ResetsPainters: return "stored, reported, redrawn from scratch";
    case SetRule::ReadOnly: return "read only";
    }
    return {};
}

std::string FlagsText(const PropertyInfo& info)
{
    std::string text;
    auto add = [&](bool on, std::string_view word) {
        if (on)
            text += (text.empty() ? "" : ", ") + std::string(word);
    };
    add(info.Has(model::Hidden), "hidden");
    add(info.Has(model::NotBrowsable), "not browsable");
    add(info.Has(model::DefaultMember), "default member");
    add(info.Has(model::ByRef), "set by reference");
    add(info.Has(model::Bindable), "bindable");
    add(info.persist == model::PersistAs::None, "not saved");
    return text;
}

std::string Escape(std::string_view text)
{
    std::string escaped;
    for (char c : text)
        escaped += c == '|' ? std::string("\\|") : std::string(1, c);
    return escaped;
}

void WriteProperties(std::ostream& out, const control::VexPanel& placed)
{
    out << "| Property | Type | Default | Range | A set | Notes |\n|---|---|---|---|---|---|\n";
    for (size_t i = 0; i < model::kPropertyCount; ++i) {
        const PropertyInfo& info = model::kProperties[i];
        const PropertyNote& note = kPropertyNotes[i];
        if (note.name != info.name)
            throw CommandError("no note for " + std::string(info.name) + " (found " + std::string(note.name) + ")");
        std::string notes(note.note);
        if (std::string flags = FlagsText(info); !flags.empty())
            notes += " *(" + flags + ")*";
        out << "| " << Code(info.name) << " | " << TypeText(info) << " | " << Escape(DefaultText(info, placed)) << " | " << RangeText(info) << " | " << SetText(info) << " | " << notes << " |\n";
    }
}

void WriteEnumeration(std::ostream& out, const model::EnumInfo& info)
{
    out << "\n### " << info.name << "\n\n";
    std::string users;
    for (const PropertyInfo& property : model::kProperties)
        if (property.enumeration == info.name)
            users += (users.empty() ? "" : ", ") + Code(property.name);
    out << "Used by " << users << ". Members: ";
    for (size_t i = 0; i < info.members.size(); ++i)
        out << (i ? ", " : "") << "`" << info.members[i].name << "` " << info.members[i].value;
    out << ".\n";
    if (StripOf(info.name)) {
        out << "\n![" << info.name << ", one panel per member](properties/" << info.name << ".png)\n";
    } else if (info.name == "TypeBorder") {
        out << "\nThe corner styles are stored, saved and shown on the property page, but the panel keeps its "
               "rectangular shape: nothing on the screen changes, so there is no picture.\n";
    } else {
        out << "\nThe pointer is the window's; it draws nothing in the panel.\n";
    }
}

std::string Page(const control::VexPanel& placed)
{
    std::ostringstream out;
    out << "# Property reference\n\n"
           "<!-- Written by `vexpanel reference -o docs`; the test suite checks that it is current. -->\n\n"
           "Every property of the panel in the order of its interface. *Default* is what a freshly placed panel "
           "holds; a saved panel without the key reads the same value, except `Caption` (empty) and "
           "`CaptionFontShadow` (black). *A set* says what setting the property does: *reported* means the host "
           "hears that the property changed, *redrawn* that the panel paints itself again. An enumerated property "
           "takes any 16-bit value, a member or not; a number beyond is error 6 (Overflow) and nothing is stored. A "
           "colour is an RGB value `&H00BBGGRR&`, or with the high bit set a system colour `&H800000nn&`. See [using.md](using.md) for the events and errors.\n\n"
           "## Properties\n\n";
    WriteProperties(out, placed);
    out << "\n## Enumerations\n\nEach picture shows one example panel, " << kCellSize.width << "×" << kCellSize.height
        << " pixels, rendered once per member.\n";
    for (const model::EnumInfo& info : model::Enumerations())
        WriteEnumeration(out, info);
    return out.str();
}

} // namespace

int CommandReference(Arguments arguments)
{
    std::string output, examples = VEX_EXAMPLES_DIR;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == "-o" && hasValue)
            output = std::string(arguments[++i]);
        else if (arguments[i] == "--examples" && hasValue)
            examples = std::string(arguments[++i]);
        else
            return UsageError("reference", "usage: vexpanel reference -o DIR [--examples DIR]");
    }
    if (output.empty())
        return UsageError("reference", "no output folder given (-o DIR)");
    if (std::error_code error; !std::filesystem::create_directories(output + "/properties", error) && error)
        throw CommandError(output + "/properties: cannot create the folder: " + error.message());

    HeadlessPanel placed;
    placed.host.userMode = false;
    placed.panel.InitProperties();
    const std::string page = output + "/properties.md";
    std::ofstream(page, std::ios::binary) << Page(placed.panel);
    for (const Strip& strip : Strips()) {
        const model::EnumInfo* info = model::FindEnumeration(strip.enumeration);
        if (!info)
            throw CommandError("no enumeration " + std::string(strip.enumeration));
        if (!WritePng(output + "/properties/" + std::string(strip.enumeration) + ".png", RenderStrip(strip, *info, examples)))
            return 2;
    }
    std::cout << page << " (" << model::kPropertyCount << " properties, " << Strips().size() << " strips)\n";
    return 0;
}

} // namespace vex::cli
