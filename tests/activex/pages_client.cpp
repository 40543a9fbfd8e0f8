// The control's property pages as a container's frame drives them:
//     activex-pages pages DIR    ISpecifyPropertyPages names the seven pages in order; each of the
//                                server's pages is made from its registered class, activated on a
//                                form with a page site of ours, edited through its controls
//                                (found by editor name) and applied; the control's properties are
//                                then read back through IDispatch (DIR: the examples, for a PNG)
//     activex-pages frame FILE [PAGE]
//                                the properties verb opens the system's frame
//                                (OleCreatePropertyFrame) with the pages (each of the server's
//                                as a tab, in order); with tab PAGE shown (its first editor found)
//                                the frame's window is written to FILE (.bmp) and closed
// Prints "FAIL ..." per difference and "PASS <mode>" when there was none; exits 1 on failure.
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>
#include <prsht.h>
#include <commctrl.h>

#include <initguid.h>

#include <msstkppg.h>

#include "Vex_Panel_h.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>
#include <vector>

#include "page_ids.h"
#include "pages/page_tables.h"

#include "check.h"
#include "window_bitmap.h"

namespace {

using namespace vex::activex;
using namespace vex::activex::test;

// A property read through the control's IDispatch, as text ("-1" for True).
std::string Property(IDispatch* control, const char* name)
{
    std::wstring wide = Wide(name);
    LPOLESTR names[] = { wide.data() };
    DISPID id = 0;
    VARIANT value;
    VariantInit(&value);
    DISPPARAMS none {};
    if (FAILED(control->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))
        || FAILED(control->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr))
        || FAILED(VariantChangeType(&value, &value, 0, VT_BSTR)))
        return "<unreadable>";
    std::string text = Narrow(value.bstrVal);
    VariantClear(&value);
    return text;
}

// The frame's side of a page: records the status the page reports.
class Site final : public StackObject<IPropertyPageSite, IID_IPropertyPageSite> {
public:
    DWORD status = 0;

    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override
    {
        status |= flags;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override
    {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return E_NOTIMPL; }
};

// Answers the message boxes the page shows while the main thread is in Apply: each one's text
// is kept and OK pressed.
class Answerer {
public:
    Answerer() : thread_(CreateThread(nullptr, 0, &Run, this, 0, nullptr)) { }
    ~Answerer()
    {
        stop_ = true;
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }
    std::vector<std::string> texts; // read after the thread has stopped

private:
    static DWORD WINAPI Run(void* self)
    {
        auto& answerer = *static_cast<Answerer*>(self);
        while (!answerer.stop_) {
            HWND box = FindWindowW(L"#32770", L"Property Pages");
            wchar_t text[512] {};
            if (box && IsWindowVisible(box) && GetDlgItemTextW(box, 0xFFFF, text, 511) > 0) {
                answerer.texts.push_back(Narrow(text));
                SendMessageW(box, WM_COMMAND, IDOK, 0);
            }
            Sleep(20);
        }
        return 0;
    }

    std::atomic<bool> stop_ { false };
    HANDLE thread_;
};

// ---- The pages the control declares -------------------------------------------------------------

void CheckDeclaredPages(IUnknown* control)
{
    ISpecifyPropertyPages* specify = nullptr;
    if (FAILED(control->QueryInterface(IID_ISpecifyPropertyPages, reinterpret_cast<void**>(&specify)))) {
        Fail("no ISpecifyPropertyPages");
        return;
    }
    CAUUID pages {};
    if (FAILED(specify->GetPages(&pages)) || pages.cElems != std::size(kPageClasses))
        Fail("GetPages: %lu pages", static_cast<unsigned long>(pages.cElems));
    for (ULONG i = 0; i < pages.cElems && i < std::size(kPageClasses); ++i) {
        const std::string_view name = kPageClasses[i].page;
        const GUID expected = kPageClasses[i].classId ? ParseGuid(kPageClasses[i].classId)
            : name == "StandardColor"                 ? CLSID_StockColorPage
                                                      : CLSID_StockFontPage;
        if (pages.pElems[i] != expected)
            Fail("page %lu is not %s", static_cast<unsigned long>(i), kPageClasses[i].page);
    }
    CoTaskMemFree(pages.pElems);
    specify->Release();
}

// ---- Edits through a page ------------------------------------------------------------------------

enum class Action { Type, Check, Choose };

struct Edit {
    const char* editor;
    Action action;
    std::string value; // the text typed, "1"/"0" for a check box, the list index chosen
};

struct PageCase {
    const char* page;
    const char* loaded;             // the editor of edits[0] shows this from the control, or nullptr
    std::vector<Edit> edits;
    const char* error;              // the message box Apply shows, or nullptr when it succeeds
    std::vector<std::pair<const char*, const char*>> after; // property, value read back ("!0": not 0)
};

std::vector<PageCase> Cases(const std::string& examples)
{
    return {
        { "PanelGeneral", "VexPanel1",
            { { "txtCaption", Action::Type, "Through the page" }, { "cboCaptionStyle", Action::Choose, "1" },
                { "chkCaptionEfect", Action::Check, "1" } },
            nullptr, { { "Caption", "Through the page" }, { "CaptionStyle", "1" }, { "CaptionEfect", "-1" } } },
        { "Panel3D", "1",
            { { "txtPanel_3DBorderWidth", Action::Type, "3" }, { "cboWinGradientDirection", Action::Choose, "7" } },
            nullptr, { { "Panel3DBorderWidth", "3" }, { "WinGradientDirection", "7" } } },
        // A text that is no number stops Apply there: the editors before it are written, the
        // ones after it are not.
        { "LongPicture", "1",
            { { "txtPictureFrames", Action::Type, "abc" }, { "chkPictureBackgroundUseMask", Action::Check, "1" },
                { "cboPictureAlignment", Action::Choose, "8" } },
            "Run-time error '13':\n\nType mismatch",
            { { "PictureBackgroundUseMask", "-1" }, { "PictureFrames", "1" }, { "PictureAlignment", "0" } } },
        { "Custom", "1",
            { { "txtCustom_BorderWidth", Action::Type, "40000" } },
            "Run-time error '6':\n\nOverflow", { { "CustomBorderWidth", "1" } } },
        { "ImagePNG", nullptr, { { "txtFileName", Action::Type, examples + "\\badge.png" } }, nullptr,
            { { "Picture", "!0" } } },
    };
}

HWND EditorWindow(HWND page, const vex::pages::PageSpec& spec, const char* editor)
{
    for (size_t i = 0; i < spec.editors.size(); ++i)
        if (spec.editors[i].name == editor)
            return GetDlgItem(page, kEditorId + static_cast<int>(i));
    return nullptr;
}

std::string WindowText(HWND window)
{
    wchar_t text[256] {};
    GetWindowTextW(window, text, 255);
    return Narrow(text);
}

// What a user's click or typing makes the control send to the page.
void Perform(HWND page, HWND editor, const Edit& edit)
{
    const WPARAM id = static_cast<WPARAM>(GetDlgCtrlID(editor));
    switch (edit.action) {
    case Action::Type: SetWindowTextW(editor, Wide(edit.value).c_str()); break; // sends EN_CHANGE
    case Action::Check:
        SendMessageW(editor, BM_SETCHECK, std::stoi(edit.value) ? BST_CHECKED : BST_UNCHECKED, 0);
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(editor));
        break;
    case Action::Choose:
        SendMessageW(editor, CB_SETCURSEL, static_cast<WPARAM>(std::stoi(edit.value)), 0);
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(editor));
        break;
    }
}

void RunCase(const PageCase& test, IUnknown* control, IDispatch* dispatch, HWND form)
{
    const vex::pages::PageSpec* spec = vex::pages::FindPage(test.page);
    const char* classId = nullptr;
    for (const PageClass& page : kPageClasses)
        if (spec && page.page == spec->name)
            classId = page.classId;
    IPropertyPage* page = nullptr;
    if (!classId
        || FAILED(CoCreateInstance(ParseGuid(classId), nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage,
            reinterpret_cast<void**>(&page)))) {
        Fail("%s: the page's class is not registered", test.page);
        return;
    }
    Site site;
    page->SetPageSite(&site);
    page->SetObjects(1, &control);
    PROPPAGEINFO info {};
    if (FAILED(page->GetPageInfo(&info))) // its title is checked as the frame's tab
        Fail("%s: no page info", test.page);
    CoTaskMemFree(info.pszTitle);
    RECT rect { 0, 0, info.size.cx, info.size.cy };
    page->Activate(form, &rect, FALSE);
    page->Show(SW_SHOW);
    HWND window = FindWindowExW(form, nullptr, L"#32770", nullptr);

    HWND first = EditorWindow(window, *spec, test.edits[0].editor);
    if (test.loaded && WindowText(first) != test.loaded && SendMessageW(first, CB_GETCURSEL, 0, 0) != std::atoi(test.loaded))
        Fail("%s: %s does not show %s", test.page, test.edits[0].editor, test.loaded);
    if (page->IsPageDirty() != S_FALSE || site.status)
        Fail("%s: changed before an edit", test.page);
    for (const Edit& edit : test.edits) {
        HWND editor = EditorWindow(window, *spec, edit.editor);
        if (!editor) {
            Fail("%s: no editor %s", test.page, edit.editor);
            continue;
        }
        Perform(window, editor, edit);
    }
    if (page->IsPageDirty() != S_OK || !(site.status & PROPPAGESTATUS_DIRTY))
        Fail("%s: the edits did not mark the page changed", test.page);

    std::vector<std::string> boxes;
    HRESULT applied = S_OK;
    {
        Answerer answerer;
        applied = page->Apply();
        Sleep(50);
        boxes = answerer.texts;
    }
    if (test.error) {
        // The page stays changed, so that the frame keeps its Apply and the user's edits.
        if (SUCCEEDED(applied) || boxes.size() != 1 || boxes[0] != test.error || page->IsPageDirty() != S_OK)
            Fail("%s: Apply gave %#lx and %zu message boxes (%s)", test.page, static_cast<unsigned long>(applied),
                boxes.size(), boxes.empty() ? "" : boxes[0].c_str());
    } else if (FAILED(applied) || !boxes.empty() || page->IsPageDirty() != S_FALSE) {
        Fail("%s: Apply gave %#lx", test.page, static_cast<unsigned long>(applied));
    }
    for (const auto& [property, expected] : test.after) {
        const std::string value = Property(dispatch, property);
        if (expected[0] == '!' ? value == expected + 1 : value != expected)
            Fail("%s: %s is %s, not %s", test.page, property, value.c_str(), expected);
    }
    page->Deactivate();
    page->SetObjects(0, nullptr);
    page->SetPageSite(nullptr);
    page->Release();
}

HWND MakeForm()
{
    WNDCLASSW windowClass {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = L"VexPagesForm";
    RegisterClassW(&windowClass);
    return CreateWindowExW(0, L"VexPagesForm", L"Pages", WS_POPUP | WS_VISIBLE, 0, 0, 400, 320, nullptr, nullptr,
        GetModuleHandleW(nullptr), nullptr);
}

IUnknown* NewControl()
{
    IUnknown* control = nullptr;
    if (FAILED(CoCreateInstance(CLSID_VexPanel, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, reinterpret_cast<void**>(&control)))) {
        Fail("the control is not registered");
        return nullptr;
    }
    IPersistStreamInit* persist = nullptr;
    if (SUCCEEDED(control->QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&persist)))) {
        persist->InitNew();
        persist->Release();
    }
    return control;
}

int Pages(const std::string& examples)
{
    IUnknown* control = NewControl();
    if (!control)
        return 1;
    CheckDeclaredPages(control);
    IDispatch* dispatch = nullptr;
    control->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
    HWND form = MakeForm();
    for (const PageCase& test : Cases(examples))
        RunCase(test, control, dispatch, form);
    DestroyWindow(form);
    dispatch->Release();
    control->Release();
    return Status();
}


// ---- The system's frame ------------------------------------------------------------------------

// A window's pixels, its frame and title too, as a .bmp file.
bool WriteWindowBitmap(const std::string& file, HWND window)
{
    RECT rect {};
    GetWindowRect(window, &rect);
    const int width = rect.right - rect.left, height = rect.bottom - rect.top;
    return WriteBitmap(file, WindowPixels(window, width, height, true), width, height);
}

struct FrameDriver {
    std::string file;
    int page = 0;                // the tab shown
    std::vector<std::string> tabs; // the frame's tab titles
    bool editorFound = false;
    bool written = false;
};

// Waits for the frame, shows a page, finds the page's first editor by its id, writes the frame's
// picture and closes the frame.
DWORD WINAPI DriveFrame(void* argument)
{
    auto& driver = *static_cast<FrameDriver*>(argument);
    HWND frame = nullptr;
    for (int waited = 0; waited < 200 && !frame; ++waited, Sleep(50)) {
        HWND found = FindWindowW(L"#32770", nullptr);
        if (found && IsWindowVisible(found) && FindWindowExW(found, nullptr, L"SysTabControl32", nullptr))
            frame = found;
    }
    if (!frame)
        return 0;
    HWND tabs = FindWindowExW(frame, nullptr, L"SysTabControl32", nullptr);
    const int count = static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        wchar_t title[64] {};
        TCITEMW item {};
        item.mask = TCIF_TEXT;
        item.pszText = title;
        item.cchTextMax = 63;
        SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        driver.tabs.push_back(Narrow(title));
    }
    SendMessageW(frame, PSM_SETCURSEL, static_cast<WPARAM>(driver.page), 0);
    Sleep(300);
    // The property sheet's page holds the server's page, which holds the editors.
    HWND sheetPage = reinterpret_cast<HWND>(SendMessageW(frame, PSM_GETCURRENTPAGEHWND, 0, 0));
    HWND ours = sheetPage ? FindWindowExW(sheetPage, nullptr, L"#32770", nullptr) : nullptr;
    driver.editorFound = ours && GetDlgItem(ours, kEditorId);
    RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN | RDW_FRAME);
    Sleep(300);
    driver.written = WriteWindowBitmap(driver.file, frame);
    PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    return 0;
}

int Frame(const std::string& file, int page)
{
    IUnknown* control = NewControl();
    if (!control)
        return 1;
    IOleObject* object = nullptr;
    if (FAILED(control->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&object)))) {
        Fail("no IOleObject");
        return 1;
    }
    FrameDriver driver;
    driver.file = file;
    driver.page = page;
    HANDLE thread = CreateThread(nullptr, 0, &DriveFrame, &driver, 0, nullptr);
    // The properties verb opens the system's frame with the control's pages.
    if (HRESULT status = object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, nullptr, nullptr); FAILED(status))
        Fail("the properties verb: %#lx", static_cast<unsigned long>(status));
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    std::string titles;
    for (const std::string& tab : driver.tabs)
        titles += tab + " ";
    std::printf("frame tabs: %s\n", titles.c_str());
    // Each of the server's pages is a tab titled with its caption, in its order; the system's own
    // pages may be missing. A page that is not there leaves the others to be found.
    auto next = driver.tabs.cbegin();
    for (const PageClass& ours : kPageClasses) {
        if (!ours.classId)
            continue;
        const std::string_view caption = vex::pages::FindPage(ours.page)->caption;
        const auto tab = std::find(next, driver.tabs.cend(), caption);
        if (tab == driver.tabs.cend())
            Fail("the frame has no tab %s", std::string(caption).c_str());
        else
            next = tab + 1;
    }
    if (!driver.editorFound)
        Fail("the frame's page %d shows no editor", page);
    if (!driver.written)
        Fail("cannot write %s", file.c_str());
    object->Release();
    control->Release();
    return Status();
}

// The About box: Acerca shows it as a dialog of the caller's; its picture is written and it is
// answered.
struct AboutDriver {
    std::string file;
    std::string text;
    bool written = false;
};

DWORD WINAPI DriveAbout(void* argument)
{
    auto& driver = *static_cast<AboutDriver*>(argument);
    for (int waited = 0; waited < 200; ++waited, Sleep(50)) {
        HWND box = FindWindowW(L"#32770", nullptr);
        wchar_t text[512] {};
        if (!box || !IsWindowVisible(box) || !GetDlgItemTextW(box, 0xFFFF, text, 511)) // a message box's text
            continue;
        driver.text = Narrow(text);
        RedrawWindow(box, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN | RDW_FRAME);
        Sleep(300);
        driver.written = WriteWindowBitmap(driver.file, box);
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        break;
    }
    return 0;
}

int About(const std::string& file)
{
    IUnknown* control = NewControl();
    if (!control)
        return 1;
    IDispatch* automation = nullptr;
    DISPID acerca = 0;
    wchar_t name[] = L"Acerca";
    LPOLESTR names[] = { name };
    if (FAILED(control->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&automation)))
        || FAILED(automation->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &acerca))) {
        Fail("no Acerca");
        return 1;
    }
    AboutDriver driver;
    driver.file = file;
    HANDLE thread = CreateThread(nullptr, 0, &DriveAbout, &driver, 0, nullptr);
    DISPPARAMS none {};
    VARIANT result;
    VariantInit(&result);
    if (HRESULT status = automation->Invoke(acerca, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, &result, nullptr, nullptr);
        FAILED(status))
        Fail("Acerca: %#lx", static_cast<unsigned long>(status));
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    std::printf("about box: %s\n", driver.text.c_str());
    if (driver.text.rfind("VexPanel", 0) != 0)
        Fail("the About box says \"%s\"", driver.text.c_str());
    if (!driver.written)
        Fail("cannot write %s", file.c_str());
    automation->Release();
    control->Release();
    return Status();
}

} // namespace

int main(int argc, char** argv)
{
    OleInitialize(nullptr);
    const std::string mode = argc > 1 ? argv[1] : "";
    int status = 2;
    if (mode == "pages" && argc == 3)
        status = Pages(argv[2]);
    else if (mode == "frame" && argc >= 3)
        status = Frame(argv[2], argc > 3 ? std::atoi(argv[3]) : 0);
    else if (mode == "about" && argc == 3)
        status = About(argv[2]);
    else
        std::printf("usage: activex-pages pages EXAMPLES | frame FILE.bmp [PAGE] | about FILE.bmp\n");
    if (status == 0)
        std::printf("PASS %s\n", mode.c_str());
    OleUninitialize();
    return status;
}
