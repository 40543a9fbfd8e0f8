// A property page's window: a child dialog with one row per editor of the page's table.
//
//   check box   a check box titled with the property's name, across the row
//   text box    the property's name, then an edit box
//   list        the property's name, then a drop-down list with the table's items
//   colour      the name, a drop-down list of the system colours and the colour as text
//
// Editor i of the table is the child with id kEditorId + i (page_ids.h), so that a frame or a
// test finds it by the editor's name through the table. The Image page adds a "..." button that
// opens the file-open dialog for txtFileName and a "Clear picture" button.
#include "property_pages.h"

#include <commdlg.h>

#include "base/runtime_error.h"
#include "com_errors.h"
#include "container_host.h"
#include "module.h"
#include "page_ids.h"
#include "pages/image_page.h"
#include "pages/picture_import.h"

namespace vex::activex {

namespace {

// The layout in pixels: a column of names, then a column of editors.
constexpr int kMargin = 8;
constexpr int kNameWidth = 150;
constexpr int kEditorWidth = 190;
constexpr int kRowHeight = 24;
constexpr int kControlHeight = 21;
constexpr int kListDropHeight = 220; // a drop-down list's height when open
constexpr int kButtonWidth = 24;     // the "..." of the file name

// The name beside an editor: its property, or for the page's own settings the editor's name
// without its prefix ("FileName").
std::wstring EditorLabel(const pages::EditorSpec& spec)
{
    return Wide(spec.property.empty() ? spec.name.substr(3) : spec.property);
}

std::wstring WindowText(HWND window)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// An empty child dialog (DS_CONTROL: it takes part in the frame's tabbing); the controls are
// made in code. A dialog template must be DWORD-aligned.
struct alignas(4) EmptyDialog {
    DLGTEMPLATE header { WS_CHILD | DS_CONTROL | DS_3DLOOK, WS_EX_CONTROLPARENT, 0, 0, 0, 10, 10 };
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

} // namespace

SIZE PropertyPageObject::PageSize() const
{
    int rows = static_cast<int>(model_->EditorCount());
    if (dynamic_cast<const pages::ImagePage*>(model_.get()))
        ++rows; // the Clear picture button
    return { 2 * kMargin + kNameWidth + kEditorWidth + kMargin, 2 * kMargin + rows * kRowHeight };
}

HRESULT PropertyPageObject::Activate(HWND parent, LPCRECT rect, BOOL)
{
    if (!rect)
        return E_POINTER;
    if (window_)
        Deactivate();
    static const EmptyDialog kTemplate;
    window_ = CreateDialogIndirectParamW(ModuleInstance(), &kTemplate.header, parent, &DialogProcedure,
        reinterpret_cast<LPARAM>(this));
    if (!window_)
        return HRESULT_FROM_WIN32(GetLastError());
    MoveWindow(window_, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, FALSE);
    return Guard([&] {
        Build();
        ShowModel();
    });
}

HRESULT PropertyPageObject::Deactivate()
{
    if (window_) {
        HWND window = window_;
        window_ = nullptr;
        DestroyWindow(window);
    }
    return S_OK;
}

HRESULT PropertyPageObject::Show(UINT command)
{
    if (!window_)
        return E_UNEXPECTED;
    ShowWindow(window_, static_cast<int>(command));
    return S_OK;
}

HRESULT PropertyPageObject::Move(LPCRECT rect)
{
    if (!rect)
        return E_POINTER;
    if (!window_)
        return E_UNEXPECTED;
    MoveWindow(window_, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, TRUE);
    return S_OK;
}

HRESULT PropertyPageObject::TranslateAccelerator(MSG* message)
{
    if (!message)
        return E_POINTER;
    return window_ && IsDialogMessageW(window_, message) ? S_OK : S_FALSE;
}

INT_PTR CALLBACK PropertyPageObject::DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE;
    }
    auto* page = reinterpret_cast<PropertyPageObject*>(GetWindowLongPtrW(window, DWLP_USER));
    if (page && message == WM_COMMAND) {
        page->OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        return TRUE;
    }
    return FALSE;
}

void PropertyPageObject::Build()
{
    const HINSTANCE instance = ModuleInstance();
    const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    const auto make = [&](const wchar_t* windowClass, const std::wstring& text, DWORD style, int x, int y, int width,
                          int height, int id) {
        HWND control = CreateWindowExW(windowClass == std::wstring_view(L"EDIT") ? WS_EX_CLIENTEDGE : 0, windowClass,
            text.c_str(), WS_CHILD | WS_VISIBLE | style, x, y, width, height, window_,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance, nullptr);
        SendMessageW(control, WM_SETFONT, font, FALSE);
        return control;
    };
    const int editorX = 2 * kMargin + kNameWidth;
    const pages::PageSpec& spec = model_->spec();
    int y = kMargin;
    for (size_t i = 0; i < spec.editors.size(); ++i, y += kRowHeight) {
        const pages::EditorSpec& editor = spec.editors[i];
        const int id = kEditorId + static_cast<int>(i);
        const std::wstring label = EditorLabel(editor);
        if (editor.kind == pages::EditorKind::CheckBox) {
            make(L"BUTTON", label, BS_AUTOCHECKBOX | WS_TABSTOP, kMargin, y, kNameWidth + kMargin + kEditorWidth,
                kControlHeight, id);
            continue;
        }
        make(L"STATIC", label + L":", SS_LEFT, kMargin, y + 3, kNameWidth, kControlHeight - 3, -1);
        int listWidth = kEditorWidth;
        int textWidth = kEditorWidth;
        if (editor.kind == pages::EditorKind::ColorBox) {
            textWidth = 92; // "&H8000000F&"
            listWidth = kEditorWidth - textWidth - 4;
            make(L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP, editorX + listWidth + 4, y, textWidth, kControlHeight,
                kColourTextId + static_cast<int>(i));
        }
        if (editor.kind == pages::EditorKind::TextBox) {
            const bool file = editor.name == "txtFileName";
            make(L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP, editorX, y, textWidth - (file ? kButtonWidth + 4 : 0),
                kControlHeight, id);
            if (file)
                make(L"BUTTON", L"...", BS_PUSHBUTTON | WS_TABSTOP, editorX + kEditorWidth - kButtonWidth, y,
                    kButtonWidth, kControlHeight, kBrowseId);
            continue;
        }
        HWND list = make(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, editorX, y, listWidth,
            kListDropHeight, id);
        for (const std::string& item : model_->Editor(i).list)
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
    }
    if (dynamic_cast<pages::ImagePage*>(model_.get()))
        make(L"BUTTON", L"Clear picture", BS_PUSHBUTTON | WS_TABSTOP, editorX, y, 100, kControlHeight + 2,
            kClearPictureId);
}

void PropertyPageObject::ShowModel()
{
    showing_ = true;
    for (size_t i = 0; i < model_->EditorCount(); ++i) {
        const pages::EditorState& state = model_->Editor(i);
        HWND control = GetDlgItem(window_, kEditorId + static_cast<int>(i));
        switch (model_->spec().editors[i].kind) {
        case pages::EditorKind::CheckBox:
            SendMessageW(control, BM_SETCHECK, state.check == 2 ? BST_INDETERMINATE : state.check == 1 ? BST_CHECKED : BST_UNCHECKED, 0);
            break;
        case pages::EditorKind::TextBox:
            if (WindowText(control) != Wide(state.text)) // keeps the caret while the user types
                SetWindowTextW(control, Wide(state.text).c_str());
            break;
        case pages::EditorKind::ColorBox: {
            HWND text = GetDlgItem(window_, kColourTextId + static_cast<int>(i));
            if (WindowText(text) != Wide(state.text))
                SetWindowTextW(text, Wide(state.text).c_str());
            SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(state.listIndex), 0);
            break;
        }
        case pages::EditorKind::ComboBox:
            SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(state.listIndex), 0);
            break;
        }
    }
    showing_ = false;
}

template <typename Step>
void PropertyPageObject::Edit(Step step)
{
    try {
        step();
    } catch (const RuntimeError& error) {
        ShowError(error.number(), error.description());
    } catch (...) {
        // Nothing leaves a dialog procedure; the editor shows the model's value again below.
    }
    ShowModel();
    if (site_ && model_->Changed())
        site_->OnStatusChange(PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE);
}

void PropertyPageObject::OnCommand(int id, int code, HWND control)
{
    if (showing_)
        return;
    if (id == kBrowseId && code == BN_CLICKED) {
        Browse();
        return;
    }
    if (id == kClearPictureId && code == BN_CLICKED) {
        if (auto* image = dynamic_cast<pages::ImagePage*>(model_.get()))
            Edit([&] { image->ClearPicture(); });
        return;
    }
    const bool colourText = id >= kColourTextId && id < kColourTextId + static_cast<int>(model_->EditorCount());
    const size_t index = static_cast<size_t>(id - (colourText ? kColourTextId : kEditorId));
    if (index >= model_->EditorCount())
        return;
    switch (model_->spec().editors[index].kind) {
    case pages::EditorKind::CheckBox:
        if (code == BN_CLICKED)
            Edit([&] { model_->Check(index, SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0); });
        break;
    case pages::EditorKind::TextBox:
        if (code == EN_CHANGE) {
            const std::wstring text = WindowText(control);
            Edit([&] { model_->Type(index, Narrow(text.c_str(), text.size())); });
        }
        break;
    case pages::EditorKind::ColorBox:
        if (colourText && code == EN_CHANGE) {
            const std::wstring text = WindowText(control);
            Edit([&] { model_->Type(index, Narrow(text.c_str(), text.size())); });
            break;
        }
        [[fallthrough]];
    case pages::EditorKind::ComboBox:
        if (!colourText && code == CBN_SELCHANGE)
            Edit([&] { model_->Choose(index, static_cast<int32_t>(SendMessageW(control, CB_GETCURSEL, 0, 0))); });
        break;
    }
}

// The file-open dialog with the picture filters fills txtFileName.
void PropertyPageObject::Browse()
{
    const std::optional<size_t> fileName = model_->Find("txtFileName");
    if (!fileName)
        return;
    std::wstring filters;
    for (const pages::PictureFilter& filter : pages::PictureFilters())
        filters += Wide(filter.label) + L'\0' + Wide(filter.patterns) + L'\0';
    filters += L'\0';
    wchar_t file[MAX_PATH] {};
    OPENFILENAMEW dialog {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window_;
    dialog.lpstrFilter = filters.c_str();
    dialog.lpstrFile = file;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrTitle = L"Load Picture";
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    if (GetOpenFileNameW(&dialog))
        Edit([&] { model_->Type(*fileName, Narrow(file, wcslen(file))); });
}

// A run-time error as the host shows one.
void PropertyPageObject::ShowError(int32_t number, const std::string& description)
{
    const std::wstring text = L"Run-time error '" + std::to_wstring(number) + L"':\n\n" + Wide(description);
    MessageBoxW(window_ ? GetAncestor(window_, GA_ROOT) : nullptr, text.c_str(), L"Property Pages",
        MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

} // namespace vex::activex
