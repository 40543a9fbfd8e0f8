#include "pages/property_page.h"

#include <cstdio>

#include "base/runtime_error.h"
#include "base/text_conversion.h"
#include "pages/image_page.h"
#include "pages/panel_access.h"

namespace vex::pages {

using control::PropertyValue;
using control::VexPanel;

PropertyPage::PropertyPage(const PageSpec& spec)
    : spec_(spec)
    , editors_(spec.editors.size())
{
}

std::optional<size_t> PropertyPage::Find(std::string_view nameOrProperty) const
{
    for (size_t i = 0; i < spec_.editors.size(); ++i)
        if (spec_.editors[i].name == nameOrProperty)
            return i;
    for (size_t i = 0; i < spec_.editors.size(); ++i)
        if (!spec_.editors[i].property.empty() && spec_.editors[i].property == nameOrProperty)
            return i;
    return std::nullopt;
}

void PropertyPage::Initialize()
{
    for (size_t i = 0; i < editors_.size(); ++i) {
        std::vector<std::string>& list = editors_[i].list;
        list.clear();
        for (std::string_view item : spec_.editors[i].items)
            list.emplace_back(item);
    }
}

void PropertyPage::SelectionChanged(std::span<VexPanel* const> selection)
{
    target_ = selection.empty() ? nullptr : selection.front();
    changed_ = false;
    if (!target_)
        return;
    for (size_t i = 0; i < editors_.size(); ++i)
        if (!spec_.editors[i].property.empty())
            Load(i, *target_);
    LoadSettings(*target_);
}

void PropertyPage::ApplyChanges()
{
    if (!target_)
        return;
    for (size_t i = 0; i < editors_.size(); ++i)
        if (!spec_.editors[i].property.empty())
            Write(i, *target_);
    ApplySettings(*target_);
    changed_ = false;
}

void PropertyPage::Load(size_t index, VexPanel& panel)
{
    const EditorSpec& spec = spec_.editors[index];
    EditorState& editor = editors_[index];
    PropertyValue value = GetProperty(panel, spec.property);
    switch (spec.kind) {
    case EditorKind::CheckBox: editor.check = control::AsInt16(value) & 1; break;
    case EditorKind::TextBox: editor.text = control::AsText(value); break;
    case EditorKind::ComboBox: editor.listIndex = control::AsInt16(value); break;
    case EditorKind::ColorBox: {
        auto colour = static_cast<OleColor>(control::AsInt32(value));
        editor.text = ColourText(colour);
        bool system = (colour & 0xFFFFFF00u) == 0x80000000u && (colour & 0xFFu) < spec.items.size();
        editor.listIndex = system ? static_cast<int32_t>(colour & 0xFFu) : -1;
        break;
    }
    }
}

void PropertyPage::Write(size_t index, VexPanel& panel)
{
    const EditorSpec& spec = spec_.editors[index];
    const EditorState& editor = editors_[index];
    switch (spec.kind) {
    case EditorKind::CheckBox: SetProperty(panel, spec.property, PropertyValue(editor.check == 1)); break;
    case EditorKind::TextBox: SetProperty(panel, spec.property, PropertyValue(editor.text)); break;
    case EditorKind::ComboBox: SetProperty(panel, spec.property, PropertyValue(editor.listIndex)); break;
    case EditorKind::ColorBox:
        SetProperty(panel, spec.property, PropertyValue(static_cast<int32_t>(ColourFromText(editor.text))));
        break;
    }
}

const EditorSpec& PropertyPage::SpecAt(size_t index) const
{
    if (index >= spec_.editors.size())
        Raise(ErrorCode::SubscriptOutOfRange);
    return spec_.editors[index];
}

void PropertyPage::Check(size_t index, int value)
{
    if (SpecAt(index).kind != EditorKind::CheckBox || value < 0 || value > 2)
        Raise(ErrorCode::InvalidPropertyValue);
    editors_[index].check = value;
    changed_ = true;
}

void PropertyPage::Type(size_t index, std::string text)
{
    EditorKind kind = SpecAt(index).kind;
    if (kind != EditorKind::TextBox && kind != EditorKind::ColorBox)
        Raise(ErrorCode::InvalidPropertyValue);
    editors_[index].text = std::move(text);
    if (kind == EditorKind::ColorBox)
        editors_[index].listIndex = -1;
    changed_ = true;
}

void PropertyPage::Choose(size_t index, int32_t listIndex)
{
    const EditorSpec& spec = SpecAt(index);
    EditorState& editor = editors_[index];
    if ((spec.kind != EditorKind::ComboBox && spec.kind != EditorKind::ColorBox) || listIndex < -1
        || listIndex >= static_cast<int32_t>(editor.list.size()))
        Raise(ErrorCode::InvalidPropertyValue);
    editor.listIndex = listIndex;
    if (spec.kind == EditorKind::ColorBox && listIndex >= 0)
        editor.text = ColourText(SystemColor(listIndex));
    changed_ = true;
}

std::unique_ptr<PropertyPage> CreatePage(const PageSpec& spec)
{
    if (spec.name == "ImagePNG")
        return std::make_unique<ImagePage>(spec);
    return std::make_unique<PropertyPage>(spec);
}

std::string ColourText(OleColor colour)
{
    char text[16];
    std::snprintf(text, sizeof text, "&H%08X&", static_cast<unsigned>(colour));
    return text;
}

OleColor ColourFromText(std::string_view text)
{
    // The box shows a colour as "&H8000000F&"; without the trailing '&' (the literal's Long
    // suffix) it is read as the host reads a Long, so "&H..." wraps into 32 bits.
    const size_t first = text.find_first_not_of(' ');
    const size_t last = text.find_last_not_of(' ');
    const bool hexadecimal = last != std::string_view::npos && last > first + 2 && text[first] == '&'
        && (text[first + 1] == 'H' || text[first + 1] == 'h');
    if (hexadecimal && text[last] == '&')
        text = text.substr(first, last - first);
    return static_cast<OleColor>(LongFromText(text));
}

} // namespace vex::pages
