#pragma once
// The property pages as data: each page is one table of editors in the order the page loads and
// applies them, with the editor's name, its kind, the property it edits and its list items. A
// toolkit (the Qt dialog, the ActiveX pages) lays the editors out from these tables; the rules
// that load and write them are in property_page.h, the same for every host.

#include <span>
#include <string_view>

namespace vex::pages {

enum class EditorKind {
    CheckBox, // a Boolean: 0 unchecked, 1 checked, 2 greyed
    TextBox,  // a string or a number, as text
    ComboBox, // an enumeration: the list index is the value
    ColorBox, // an OLE colour: a system colour from the list, or any value typed as text
};

std::string_view KindName(EditorKind kind); // "check", "text", "list", "colour"

struct EditorSpec {
    std::string_view name;     // "chkCaptionGetShadow"
    EditorKind kind;
    std::string_view property; // the control's property; empty for the page's own settings
    std::span<const std::string_view> items = {};
};

struct PageSpec {
    std::string_view name; // "PanelGeneral"
    std::string_view caption;
    std::span<const EditorSpec> editors;
};

// The seven pages the control declares, in their order: PanelGeneral, Panel3D, Custom,
// LongPicture, StandardColor, StandardFont, ImagePNG.
std::span<const PageSpec> Pages();

// The page called name, or nullptr.
const PageSpec* FindPage(std::string_view name);

} // namespace vex::pages
