// vexpanel pages FILE.vxp [--page NAME] [--edit EDITOR=TEXT] [--choose EDITOR=INDEX]
//                         [--check EDITOR=0|1|2] [--apply] [-o OUT.vxp]
// Shows a saved panel's property pages as the designer's pages load them (SelectionChanged on
// the panel, loaded at design time): every editor with its kind, property, value and list items.
// With edits (they need --page; an editor is named by its name or its property's) the page
// changes its editors as a user would; --apply then writes them back (ApplyChanges) and saves
// the panel to OUT.vxp, or over FILE.vxp without -o. Message boxes print to standard error. An
// error in Apply ends the command with status 2 and saves nothing.
#include <iostream>
#include <optional>

#include "base/runtime_error.h"
#include "commands.h"
#include "control/property_value.h"
#include "control/vxp_format.h"
#include "headless_panel.h"
#include "pages/image_page.h"
#include "pages/page_tables.h"

namespace vex::cli {

namespace {

constexpr std::string_view kUsage = "usage: vexpanel pages FILE.vxp [--page NAME] [--edit EDITOR=TEXT] "
                                     "[--choose EDITOR=INDEX] [--check EDITOR=0|1|2] [--apply] [-o OUT.vxp]";

struct Edit {
    std::string_view option;
    std::string_view editor;
    std::string value;
};

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

void ListPage(const pages::PropertyPage& page)
{
    const pages::PageSpec& spec = page.spec();
    std::cout << spec.name << " (" << spec.caption << ")\n";
    for (size_t i = 0; i < page.EditorCount(); ++i) {
        const pages::EditorSpec& editor = spec.editors[i];
        const pages::EditorState& state = page.Editor(i);
        std::cout << "  " << editor.name << " " << pages::KindName(editor.kind);
        if (!editor.property.empty())
            std::cout << " " << editor.property;
        std::cout << " = ";
        switch (editor.kind) {
        case pages::EditorKind::CheckBox: std::cout << state.check; break;
        case pages::EditorKind::TextBox: std::cout << Quoted(state.text); break;
        case pages::EditorKind::ComboBox:
            std::cout << state.listIndex;
            if (state.listIndex >= 0 && static_cast<size_t>(state.listIndex) < state.list.size())
                std::cout << " " << Quoted(state.list[static_cast<size_t>(state.listIndex)]);
            break;
        case pages::EditorKind::ColorBox:
            std::cout << state.text;
            if (state.listIndex >= 0 && static_cast<size_t>(state.listIndex) < state.list.size())
                std::cout << " " << Quoted(state.list[static_cast<size_t>(state.listIndex)]);
            break;
        }
        std::cout << "\n";
        if (editor.kind == pages::EditorKind::ComboBox) {
            std::cout << "    items:";
            for (size_t item = 0; item < state.list.size(); ++item)
                std::cout << (item ? ", " : " ") << Quoted(state.list[item]);
            std::cout << "\n";
        }
    }
    // The colour editors share one list: the system colours, by index.
    for (size_t i = 0; i < page.EditorCount(); ++i)
        if (spec.editors[i].kind == pages::EditorKind::ColorBox) {
            std::cout << "  system colours:";
            const auto& list = page.Editor(i).list;
            for (size_t item = 0; item < list.size(); ++item)
                std::cout << (item ? ", " : " ") << item << " " << Quoted(list[item]);
            std::cout << "\n";
            break;
        }
}

void MakeEdit(pages::PropertyPage& page, const Edit& edit)
{
    std::optional<size_t> editor = page.Find(edit.editor);
    if (!editor)
        throw RuntimeError(ErrorCode::InvalidProcedureCall,
            "no editor " + std::string(edit.editor) + " on page " + std::string(page.spec().name));
    if (edit.option == "--edit")
        page.Type(*editor, edit.value);
    else if (edit.option == "--choose")
        page.Choose(*editor, control::AsInt32(control::PropertyValue(edit.value)));
    else
        page.Check(*editor, control::AsInt16(control::PropertyValue(edit.value)));
}

} // namespace

int CommandPages(Arguments arguments)
{
    if (arguments.empty())
        return UsageError("pages", kUsage);
    std::string file(arguments[0]);
    std::string output;
    std::string_view pageName;
    std::vector<Edit> edits;
    bool apply = false;
    for (size_t at = 1; at < arguments.size(); ++at) {
        std::string_view option = arguments[at];
        bool hasValue = at + 1 < arguments.size();
        if (option == "--apply") {
            apply = true;
        } else if (option == "--page" && hasValue) {
            pageName = arguments[++at];
        } else if (option == "-o" && hasValue) {
            output = arguments[++at];
        } else if ((option == "--edit" || option == "--choose" || option == "--check") && hasValue) {
            std::string_view edit = arguments[++at];
            size_t equals = edit.find('=');
            if (equals == std::string_view::npos)
                return UsageError("pages", std::string(option) + " needs EDITOR=VALUE");
            edits.push_back({ option, edit.substr(0, equals), std::string(edit.substr(equals + 1)) });
        } else {
            return UsageError("pages", kUsage);
        }
    }
    const pages::PageSpec* only = pageName.empty() ? nullptr : pages::FindPage(pageName);
    if (!pageName.empty() && !only)
        return UsageError("pages", "no page " + std::string(pageName));
    if ((!edits.empty() || apply) && !only)
        return UsageError("pages", "edits and --apply need --page NAME");

    control::MemoryPropertyBag bag = control::ReadVxpFile(file);
    HeadlessPanel loaded;
    loaded.host.userMode = false; // the pages are a designer's
    loaded.panel.ReadProperties(bag);
    control::VexPanel* selection[] = { &loaded.panel };

    for (const pages::PageSpec& spec : pages::Pages()) {
        if (only && &spec != only)
            continue;
        std::unique_ptr<pages::PropertyPage> page = pages::CreatePage(spec);
        page->Initialize();
        page->SelectionChanged(selection);
        for (const Edit& edit : edits)
            MakeEdit(*page, edit);
        if (apply) {
            if (auto* image = dynamic_cast<pages::ImagePage*>(page.get()))
                image->SetReferenceContext(&loaded.surface.Dc());
            size_t shown = 0;
            auto report = [&] {
                for (; shown < loaded.host.messageBoxes.size(); ++shown)
                    std::cerr << "vexpanel pages: message box \"" << loaded.host.messageBoxes[shown].title
                              << "\": " << loaded.host.messageBoxes[shown].text << "\n";
            };
            try {
                page->ApplyChanges();
            } catch (...) {
                report();
                throw;
            }
            report();
            control::MemoryPropertyBag saved;
            loaded.panel.WriteProperties(saved);
            control::WriteVxpFile(output.empty() ? file : output, saved);
            page->SelectionChanged(selection); // show what the control now holds
        }
        ListPage(*page);
    }
    return 0;
}

} // namespace vex::cli
