#pragma once
// A property page as a toolkit-neutral model: the state of each editor of its table
// (page_tables.h) and the host's three notifications.
//
//   Initialize        fills every list (cleared first) with the table's items.
//   SelectionChanged  loads every editor, in table order, from the first selected control.
//   ApplyChanges      writes every editor back to that control, in the same order, all of them
//                     each time, through the public sets. A conversion error stops it and is
//                     raised to the host: the editors before it are written, the rest are not.
// The user's edits (Check, Type, Choose) change only the editor and mark the page changed, so
// that the host enables its Apply button.
//
// Loading and writing rules:
//   check box  from a Boolean: (value And 1), so True = -1 gives 1; back: True exactly when 1
//   list       the list index is the enumeration's value; back: the index, -1 when none chosen
//   text box   the value as text; back: the text as a String, which the property converts
//   colour     the value as "&HXXXXXXXX&" and, for a system colour, its index in the list;
//              back: the colour the text names

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "control/vex_panel.h"
#include "pages/page_tables.h"

namespace vex::pages {

struct EditorState {
    int check = 0;                 // check box: 0 unchecked, 1 checked, 2 greyed
    std::string text;              // text box, colour
    int32_t listIndex = -1;        // list; colour: the system colour shown, -1 for any other
    std::vector<std::string> list; // filled by Initialize
};

class PropertyPage {
public:
    explicit PropertyPage(const PageSpec& spec);
    virtual ~PropertyPage() = default;
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    const PageSpec& spec() const { return spec_; }
    size_t EditorCount() const { return editors_.size(); }
    const EditorState& Editor(size_t index) const { return editors_.at(index); }
    // The editor with this name, or else the one editing the property of this name.
    std::optional<size_t> Find(std::string_view nameOrProperty) const;

    // ---- The host's notifications ----------------------------------------------------------
    void Initialize();
    void SelectionChanged(std::span<control::VexPanel* const> selection);
    void ApplyChanges();

    // ---- The user's edits. A value the editor cannot hold raises Invalid property value (380).
    void Check(size_t editor, int value);
    void Type(size_t editor, std::string text);
    void Choose(size_t editor, int32_t index);
    bool Changed() const { return changed_; }

    // The control the page edits: the first selected one, or nullptr.
    control::VexPanel* Target() const { return target_; }

protected:
    EditorState& MutableEditor(size_t index) { return editors_.at(index); }
    // The page's own load and write steps, after every editor bound to a property.
    virtual void LoadSettings(control::VexPanel&) { }
    virtual void ApplySettings(control::VexPanel&) { }

private:
    const EditorSpec& SpecAt(size_t index) const;
    void Load(size_t index, control::VexPanel& panel);
    void Write(size_t index, control::VexPanel& panel);

    const PageSpec& spec_;
    std::vector<EditorState> editors_;
    control::VexPanel* target_ = nullptr;
    bool changed_ = false;
};

// The page of this table: ImagePNG gets its picture page, every other a plain PropertyPage.
std::unique_ptr<PropertyPage> CreatePage(const PageSpec& spec);

// A colour as the colour editor shows it ("&H8000000F&") and the colour a text names (the same
// form, with or without the trailing '&', or a decimal number). Type mismatch (13) otherwise.
std::string ColourText(OleColor colour);
OleColor ColourFromText(std::string_view text);

} // namespace vex::pages
