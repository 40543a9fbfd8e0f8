// A container for the control, as a form hosts it: Wine's ATL host window (AtlAxWin) places the
// registered control in a window, loads it from a stream, and the program drives it.
//     activex-client events                  events with by-reference changes, classinfo, stream
//     activex-client quick                   IQuickActivate and the connection enumerators
//     activex-client render DIR W H FILE [--backdrop PNG] [--picture PNG]...
//                                            each .vxp loaded into a W x H control; the
//                                            control window's pixels to DIR/<name>.bmp. A
//                                            backdrop is what the container paints behind
//                                            the control; a picture becomes its Picture.
//                                            Without either, the panel drawn through
//                                            IViewObject2 by a control in no window too,
//                                            to DIR/<name>.view.bmp
//     activex-client animate DIR W H FILE N  the panel loaded, then the first N + 1 different
//                                            pictures its window shows, to DIR/frame<i>.bmp
//     activex-client persist FILE...         each .vxp through the control's property bag,
//                                            stream and storage persistence and back
// Prints "FAIL ..." per difference and "PASS <mode>" when there was none; exits 1 on failure.
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>

#include <initguid.h>

#include "Vex_Panel_h.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "control/memory_property_bag.h"
#include "control/persisted_keys.h"
#include "control/vex_panel.h"
#include "headless/headless_host.h"
#include "headless/headless_surface.h"
#include "platform/win32/surface.h"
#include "control/vxp_format.h"
#include "model/dispatch_ids.h"
#include "model/property_table.h"
#include "pages/picture_import.h"
#include "platform/win32/gdi_bitmap.h"
#include "typelib_ids.h"

#include "check.h"
#include "window_bitmap.h"

extern "C" {
BOOL WINAPI AtlAxWinInit();
HRESULT WINAPI AtlAxCreateControlEx(const WCHAR* name, HWND window, IStream* stream, IUnknown** container,
    IUnknown** control, REFIID sinkIid, IUnknown* sink);
}

namespace {

using namespace vex::activex::test;

void Pump(int milliseconds)
{
    DWORD end = GetTickCount() + static_cast<DWORD>(milliseconds);
    do {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(1);
    } while (GetTickCount() < end);
}

// A .vxp's text as the stream the control saves to and loads from: "VXP1", the length, the text.
IStream* StreamOf(const std::string& text)
{
    IStream* stream = nullptr;
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    uint32_t length = static_cast<uint32_t>(text.size());
    stream->Write("VXP1", 4, nullptr);
    stream->Write(&length, 4, nullptr);
    stream->Write(text.data(), length, nullptr);
    LARGE_INTEGER start {};
    stream->Seek(start, STREAM_SEEK_SET, nullptr);
    return stream;
}

std::string FileText(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    if (!in)
        Fail("cannot read %s", file.c_str());
    return text.str();
}

// The container's own painting behind the control: a host window that paints a picture.
LRESULT CALLBACK BackdropProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(window, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    auto* picture = reinterpret_cast<const vex::platform::Dib*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (picture && (message == WM_ERASEBKGND || message == WM_PAINT)) {
        PAINTSTRUCT paint {};
        HDC dc = message == WM_PAINT ? BeginPaint(window, &paint) : reinterpret_cast<HDC>(wParam);
        vex::platform::win32::DibInfo info = vex::platform::win32::DescribeDib(*picture);
        SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(picture->width()), static_cast<DWORD>(picture->height()), 0, 0, 0,
            static_cast<UINT>(picture->height()), picture->bits().data(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
        if (message == WM_PAINT)
            EndPaint(window, &paint);
        return 1;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// A form with the control on it, width x height at (10, 10) of the form's client area, in
// Wine's ATL host window or, over a backdrop, in a host window that paints it.
struct Form {
    HWND window = nullptr;
    HWND host = nullptr;
    IUnknown* control = nullptr;

    Form(int width, int height, IStream* stream, const vex::platform::Dib* backdrop = nullptr)
    {
        WNDCLASSW windowClass {};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        windowClass.lpszClassName = L"VexTestForm";
        RegisterClassW(&windowClass);
        windowClass.lpfnWndProc = BackdropProcedure;
        windowClass.hbrBackground = nullptr;
        windowClass.lpszClassName = L"VexBackdropHost";
        RegisterClassW(&windowClass);
        window = CreateWindowExW(0, L"VexTestForm", L"Form1", WS_POPUP | WS_VISIBLE, 0, 0, width + 20, height + 20, nullptr,
            nullptr, GetModuleHandleW(nullptr), nullptr);
        host = CreateWindowExW(0, backdrop ? L"VexBackdropHost" : L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 10, 10, width,
            height, window, nullptr, GetModuleHandleW(nullptr), const_cast<vex::platform::Dib*>(backdrop));
        UpdateWindow(window);
        IUnknown* container = nullptr;
        HRESULT status = AtlAxCreateControlEx(L"Vex_Panel.VexPanel", host, stream, &container, &control, IID_NULL, nullptr);
        if (FAILED(status) || !control)
            Fail("AtlAxCreateControlEx: %#lx", static_cast<unsigned long>(status));
        if (container)
            container->Release();
        Pump(100);
    }
    ~Form()
    {
        if (control)
            control->Release();
        DestroyWindow(window);
        Pump(20);
    }
    HWND ControlWindow() const
    {
        HWND result = nullptr;
        IOleWindow* ole = nullptr;
        if (control && SUCCEEDED(control->QueryInterface(IID_IOleWindow, reinterpret_cast<void**>(&ole)))) {
            ole->GetWindow(&result);
            ole->Release();
        }
        return result;
    }
};

// ---- events ------------------------------------------------------------------------------------

// An event sink that records each event with its arguments and may change them.
class Sink final : public StackObject<IDispatch, IID_IDispatch, DIID___VexPanel> {
public:
    std::vector<std::string> seen;
    std::function<void(DISPID, DISPPARAMS*)> change;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { *count = 0; return S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override
    {
        std::string line;
        for (const vex::model::DispatchMember& event : vex::model::EventMembers())
            if (event.dispid == id)
                line = std::string(event.name);
        // The arguments come last first.
        for (UINT i = parameters->cArgs; i-- > 0;) {
            VARIANT& argument = parameters->rgvarg[i];
            if (V_VT(&argument) == (VT_I2 | VT_BYREF))
                line += " " + std::to_string(*V_I2REF(&argument));
            else if (V_VT(&argument) == (VT_R4 | VT_BYREF))
                line += " " + std::to_string(static_cast<int>(*V_R4REF(&argument)));
            else
                line += " ?";
        }
        seen.push_back(line);
        if (change)
            change(id, parameters);
        return S_OK;
    }
};

std::string Joined(const std::vector<std::string>& lines)
{
    std::string all;
    for (const std::string& line : lines)
        all += line + "; ";
    return all;
}

void Expect(const char* what, const std::vector<std::string>& seen, const std::string& expected)
{
    if (Joined(seen) != expected)
        Fail("%s: %s, expected %s", what, Joined(seen).c_str(), expected.c_str());
}

int Events()
{
    Form form(120, 60, nullptr);
    if (!form.control)
        return 1;
    HWND window = form.ControlWindow();
    if (!window)
        Fail("the control has no window in place");

    IProvideClassInfo2* classInfo = nullptr;
    GUID source {};
    if (FAILED(form.control->QueryInterface(IID_IProvideClassInfo2, reinterpret_cast<void**>(&classInfo)))
        || FAILED(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source)) || source != DIID___VexPanel)
        Fail("IProvideClassInfo2 does not name __VexPanel");
    if (classInfo)
        classInfo->Release();

    IConnectionPointContainer* container = nullptr;
    IConnectionPoint* point = nullptr;
    if (FAILED(form.control->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)))
        || FAILED(container->FindConnectionPoint(DIID___VexPanel, &point))) {
        Fail("no connection point for __VexPanel");
        return 1;
    }
    // The first sink changes what it is given; the second sees the changes.
    Sink first, second;
    first.change = [](DISPID id, DISPPARAMS* parameters) {
        if (id == 4) // KeyPress: KeyAscii = 0
            *V_I2REF(&parameters->rgvarg[0]) = 0;
        if (id == 6) { // MouseDown: Button = 7, y = 99
            *V_I2REF(&parameters->rgvarg[3]) = 7;
            *V_R4REF(&parameters->rgvarg[0]) = 99.0f;
        }
    };
    DWORD firstCookie = 0, secondCookie = 0;
    point->Advise(&first, &firstCookie);
    point->Advise(&second, &secondCookie);

    SendMessageW(window, WM_CHAR, 'A', 0);
    SendMessageW(window, WM_KEYDOWN, VK_F2, 0);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 20));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(10, 20));
    Expect("the first sink", first.seen, "KeyPress 65; KeyDown 113 0; MouseDown 1 0 10 20; MouseUp 1 0 10 20; Click; ");
    Expect("the second sink", second.seen, "KeyPress 0; KeyDown 113 0; MouseDown 7 0 10 99; MouseUp 1 0 10 20; Click; ");

    // MouseEnter on the first move inside, MouseMove after; MouseExit once the pointer has left
    // (the control polls the cursor).
    first.seen.clear();
    POINT inside { 30, 30 };
    ClientToScreen(window, &inside);
    SetCursorPos(inside.x, inside.y);
    Pump(50); // the system reports the cursor's jump as a move
    if (first.seen.empty()) // a system that does not: the move by hand
        SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(30, 30));
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(31, 30));
    SetCursorPos(inside.x + 500, inside.y + 500);
    Pump(200);
    Expect("enter and exit", first.seen, "MouseEnter 0 0 30 30; MouseMove 0 0 31 30; MouseExit 0 0 31 30; ");

    point->Unadvise(secondCookie);
    second.seen.clear();
    SendMessageW(window, WM_CHAR, 'B', 0);
    if (!second.seen.empty())
        Fail("an unadvised sink heard %s", Joined(second.seen).c_str());
    point->Unadvise(firstCookie);
    point->Release();
    container->Release();
    return Status();
}

// ---- quick activation ----------------------------------------------------------------------------

class PropertySink final : public StackObject<IPropertyNotifySink, IID_IPropertyNotifySink> {
public:
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
};

template <typename Interface>
Interface* NewControl(REFIID iid)
{
    Interface* control = nullptr;
    if (FAILED(CoCreateInstance(CLSID_VexPanel, nullptr, CLSCTX_INPROC_SERVER, iid, reinterpret_cast<void**>(&control))))
        Fail("CoCreateInstance");
    return control;
}

// IQuickActivate in place of the site's ambients and each sink's Advise: the container's font
// becomes a new panel's font, both sinks are advised, and the connection points enumerate what
// was advised.
int QuickActivation()
{
    IQuickActivate* quick = NewControl<IQuickActivate>(IID_IQuickActivate);
    if (!quick)
        return 1;
    FONTDESC description { sizeof description, const_cast<LPOLESTR>(L"Tahoma"), { { 140000, 0 } }, FW_BOLD, ANSI_CHARSET,
        FALSE, FALSE, FALSE };
    IFont* ambientFont = nullptr;
    OleCreateFontIndirect(&description, IID_IFont, reinterpret_cast<void**>(&ambientFont));
    Sink events;
    PropertySink properties;
    QACONTAINER container {};
    container.cbSize = sizeof container;
    container.pUnkEventSink = &events;
    container.pPropertyNotifySink = &properties;
    container.pFont = ambientFont;
    QACONTROL control {};
    control.cbSize = sizeof control;
    if (FAILED(quick->QuickActivate(&container, &control)) || control.dwMiscStatus != 131473 || !control.dwEventCookie
        || !control.dwPropNotifyCookie)
        Fail("QuickActivate: misc status %lu, cookies %lu %lu", control.dwMiscStatus, control.dwEventCookie,
            control.dwPropNotifyCookie);

    IPersistStreamInit* persist = nullptr;
    _VexPanel* panel = nullptr;
    IFontDisp* fontDisp = nullptr;
    IFont* font = nullptr;
    BSTR name = nullptr;
    quick->QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&persist));
    quick->QueryInterface(IID__VexPanel, reinterpret_cast<void**>(&panel));
    if (!persist || FAILED(persist->InitNew()) || FAILED(panel->get_Font(&fontDisp)) || !fontDisp
        || FAILED(fontDisp->QueryInterface(IID_IFont, reinterpret_cast<void**>(&font))) || FAILED(font->get_Name(&name))
        || std::wstring(name) != L"Tahoma")
        Fail("a new panel's font is not the container's Tahoma");
    SysFreeString(name);

    SIZEL extent { 5080, 2540 }, back {};
    if (FAILED(quick->SetContentExtent(&extent)) || FAILED(quick->GetContentExtent(&back)) || back.cx != 5080 || back.cy != 2540)
        Fail("the content extent came back as %ld x %ld", back.cx, back.cy);

    // The points in order, events first; the events' point lists the one sink with its cookie.
    IConnectionPointContainer* points = nullptr;
    IEnumConnectionPoints* allPoints = nullptr;
    IConnectionPoint* found[3] {};
    ULONG count = 0;
    quick->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&points));
    IID first {}, second {};
    if (FAILED(points->EnumConnectionPoints(&allPoints)) || allPoints->Next(3, found, &count) != S_FALSE || count != 2
        || FAILED(found[0]->GetConnectionInterface(&first)) || FAILED(found[1]->GetConnectionInterface(&second))
        || first != DIID___VexPanel || second != IID_IPropertyNotifySink) {
        Fail("EnumConnectionPoints gave %lu points", count);
    } else {
        IEnumConnections* connections = nullptr;
        CONNECTDATA data[2] {};
        ULONG listed = 0;
        if (FAILED(found[0]->EnumConnections(&connections)) || connections->Next(2, data, &listed) != S_FALSE || listed != 1
            || data[0].dwCookie != control.dwEventCookie || data[0].pUnk != static_cast<IDispatch*>(&events))
            Fail("EnumConnections listed %lu connections", listed);
        for (ULONG i = 0; i < listed; ++i)
            data[i].pUnk->Release();
        if (connections)
            connections->Release();
    }
    for (ULONG i = 0; i < count; ++i)
        found[i]->Release();
    for (IUnknown* object : std::initializer_list<IUnknown*> { allPoints, points, font, fontDisp, panel, persist, ambientFont, quick })
        if (object)
            object->Release();
    return Status();
}

// ---- persist ---------------------------------------------------------------------------------

// A container's property bag: the values by key, and the keys in the order read and written.
class Bag final : public StackObject<IPropertyBag, IID_IPropertyBag> {
public:
    std::vector<std::pair<std::string, VARIANT>> values;
    std::vector<std::string> reads, writes;

    ~Bag()
    {
        for (auto& [key, value] : values)
            VariantClear(&value);
    }
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override
    {
        std::string key = Narrow(name);
        reads.push_back(key);
        for (auto& [stored, variant] : values)
            if (stored == key) {
                VARTYPE wanted = V_VT(value);
                VariantInit(value);
                return wanted == VT_EMPTY || wanted == V_VT(&variant) ? VariantCopy(value, &variant)
                                                                      : VariantChangeType(value, &variant, 0, wanted);
            }
        return E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override
    {
        std::string key = Narrow(name);
        writes.push_back(key);
        VARIANT copy;
        VariantInit(&copy);
        VariantCopy(&copy, value);
        values.emplace_back(key, copy);
        return S_OK;
    }
};

// What a control saves to a stream, as text.
std::string Saved(IUnknown* control)
{
    IPersistStreamInit* persist = nullptr;
    IStream* stream = nullptr;
    control->QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&persist));
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    if (!persist || FAILED(persist->Save(stream, TRUE)))
        Fail("IPersistStreamInit::Save");
    HGLOBAL memory = nullptr;
    GetHGlobalFromStream(stream, &memory);
    const char* bytes = static_cast<const char*>(GlobalLock(memory));
    uint32_t length = 0;
    std::memcpy(&length, bytes + 4, 4);
    std::string text(bytes + 8, length);
    GlobalUnlock(memory);
    stream->Release();
    persist->Release();
    return text;
}

// The variant a key's value is written as: the value's own type (a Boolean persisted against a
// 16-bit default is still a Boolean), the font and pictures as objects.
VARTYPE WrittenType(const vex::model::PropertyInfo& info)
{
    using vex::model::ValueKind;
    switch (info.kind) {
    case ValueKind::Boolean: return VT_BOOL;
    case ValueKind::Byte: case ValueKind::Int16: case ValueKind::Enumeration: return VT_I2;
    case ValueKind::Int32: case ValueKind::Colour: return VT_I4;
    case ValueKind::Single: return VT_R4;
    case ValueKind::String: return VT_BSTR;
    default: return VT_DISPATCH;
    }
}

void PersistOne(const std::string& file, const std::string& text)
{
    // A: the file through the stream.
    IPersistStreamInit* first = NewControl<IPersistStreamInit>(IID_IPersistStreamInit);
    IStream* stream = StreamOf(text);
    if (!first || FAILED(first->Load(stream)))
        Fail("%s: IPersistStreamInit::Load", file.c_str());
    stream->Release();
    const std::string saved = Saved(first);

    // The .vxp loads and saves as the headless library loads and saves it.
    vex::control::HeadlessHost host;
    vex::control::HeadlessSurface surface(vex::platform::win32::CreateSurface(120, 60), { 120, 60 });
    vex::control::VexPanel headless(host, surface);
    vex::control::MemoryPropertyBag loaded = vex::control::ParseVxp(text), written;
    headless.ReadProperties(loaded);
    headless.WriteProperties(written);
    if (saved != vex::control::FormatVxp(written))
        Fail("%s: the control saves\n%s\nthe library\n%s", file.c_str(), saved.c_str(), vex::control::FormatVxp(written).c_str());

    // A's keys into a container's bag: written in the write order, each as its persisted type.
    Bag bag;
    IPersistPropertyBag* byBag = nullptr;
    first->QueryInterface(IID_IPersistPropertyBag, reinterpret_cast<void**>(&byBag));
    if (!byBag || FAILED(byBag->Save(&bag, TRUE, TRUE)))
        Fail("%s: IPersistPropertyBag::Save", file.c_str());
    size_t at = 0;
    for (const std::string& key : bag.writes) {
        while (at < vex::control::WriteOrder().size() && vex::control::WriteOrder()[at] != key)
            ++at;
        if (at == vex::control::WriteOrder().size())
            Fail("%s: %s written out of order", file.c_str(), key.c_str());
    }
    for (auto& [key, value] : bag.values) {
        const vex::model::PropertyInfo* info = vex::model::FindProperty(key);
        if (!info || V_VT(&value) != WrittenType(*info))
            Fail("%s: %s written as variant type %d", file.c_str(), key.c_str(), V_VT(&value));
    }
    if (byBag)
        byBag->Release();

    // B from the bag: all 59 keys read in the read order; it saves what A saves.
    IPersistPropertyBag* second = NewControl<IPersistPropertyBag>(IID_IPersistPropertyBag);
    if (!second || FAILED(second->Load(&bag, nullptr)))
        Fail("%s: IPersistPropertyBag::Load", file.c_str());
    std::vector<std::string> order(vex::control::ReadOrder().begin(), vex::control::ReadOrder().end());
    if (bag.reads != order)
        Fail("%s: the bag's keys were read as %s", file.c_str(), Joined(bag.reads).c_str());
    if (Saved(second) != saved)
        Fail("%s: through the property bag it saves\n%s\ninstead of\n%s", file.c_str(), Saved(second).c_str(), saved.c_str());
    second->Release();

    // C from a storage A saved to.
    ILockBytes* bytes = nullptr;
    IStorage* storage = nullptr;
    CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes);
    StgCreateDocfileOnILockBytes(bytes, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, &storage);
    IPersistStorage* toStorage = nullptr;
    first->QueryInterface(IID_IPersistStorage, reinterpret_cast<void**>(&toStorage));
    IPersistStorage* third = NewControl<IPersistStorage>(IID_IPersistStorage);
    if (!toStorage || !storage || FAILED(toStorage->Save(storage, FALSE)) || !third || FAILED(third->Load(storage))
        || Saved(third) != saved)
        Fail("%s: the storage round trip", file.c_str());
    if (third)
        third->Release();
    if (toStorage)
        toStorage->Release();
    if (storage)
        storage->Release();
    if (bytes)
        bytes->Release();
    first->Release();
}

int Persist(const std::vector<std::string>& files)
{
    for (const std::string& file : files) {
        try {
            PersistOne(file, FileText(file));
        } catch (const std::exception& error) {
            Fail("%s: %s", file.c_str(), error.what());
        }
    }
    return Status();
}

// ---- render ------------------------------------------------------------------------------------

// The animation as the window shows it: every different picture, in order, while the control's
// timer ticks (this thread's message loop runs it).
int Animate(const std::string& directory, int width, int height, const std::string& file, int ticks)
{
    IStream* stream = StreamOf(FileText(file));
    Form form(width, height, stream);
    stream->Release();
    HWND window = form.ControlWindow();
    if (!window)
        return 1;
    std::vector<std::vector<uint8_t>> frames { WindowPixels(window, width, height) };
    DWORD end = GetTickCount() + 5000;
    while (static_cast<int>(frames.size()) < ticks + 1 && GetTickCount() < end) {
        Pump(2);
        std::vector<uint8_t> now = WindowPixels(window, width, height);
        if (now != frames.back())
            frames.push_back(std::move(now));
    }
    if (static_cast<int>(frames.size()) < ticks + 1)
        Fail("%s: %zu pictures in 5 s", file.c_str(), frames.size());
    for (size_t i = 0; i < frames.size(); ++i)
        WriteBitmap(directory + "\\frame" + std::to_string(i) + ".bmp", frames[i], width, height);
    return Status();
}

// A PNG as a program gives it to the panel: decoded with alpha composed onto the panel's back
// colour, handed over as a standard picture object.
void SetPngPicture(IUnknown* control, const std::string& file)
{
    _VexPanel* panel = nullptr;
    control->QueryInterface(IID__VexPanel, reinterpret_cast<void**>(&panel));
    OLE_COLOR back = 0;
    COLORREF composed = 0;
    if (!panel || FAILED(panel->get_BackColor(&back)) || FAILED(OleTranslateColor(back, nullptr, &composed))) {
        Fail("%s: no back colour to compose onto", file.c_str());
        return;
    }
    vex::pages::PngSettings settings { true, true, true, composed };
    const vex::platform::PictureRef loaded = vex::pages::LoadPictureFile(file, settings);
    const vex::platform::Dib& dib = loaded->bitmap();
    vex::platform::win32::DibInfo info = vex::platform::win32::DescribeDib(dib);
    void* bits = nullptr;
    PICTDESC description {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0);
    std::memcpy(bits, dib.bits().data(), dib.bits().size());
    IPictureDisp* picture = nullptr;
    if (FAILED(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, reinterpret_cast<void**>(&picture)))
        || FAILED(panel->putref_Picture(picture)))
        Fail("%s: Picture not set", file.c_str());
    if (picture)
        picture->Release();
    panel->Release();
}

// What the control draws into a container's context through IViewObject2, as at design time or
// when a form is printed: a control loaded from the file, never placed in a window.
std::vector<uint8_t> ViewPixels(const std::string& file, int width, int height)
{
    std::vector<uint8_t> pixels;
    IPersistStreamInit* persist = NewControl<IPersistStreamInit>(IID_IPersistStreamInit);
    IViewObject2* view = nullptr;
    IOleObject* object = nullptr;
    if (!persist || FAILED(persist->QueryInterface(IID_IViewObject2, reinterpret_cast<void**>(&view)))
        || FAILED(persist->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&object)))) {
        Fail("%s: no IViewObject2", file.c_str());
        return pixels;
    }
    IStream* stream = StreamOf(FileText(file));
    SIZEL extent { MulDiv(width, 2540, 96), MulDiv(height, 2540, 96) }; // HIMETRIC at 96 pixels an inch
    SIZEL drawn {};
    if (FAILED(persist->Load(stream)) || FAILED(object->SetExtent(DVASPECT_CONTENT, &extent))
        || FAILED(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &drawn)) || drawn.cx != extent.cx || drawn.cy != extent.cy)
        Fail("%s: not loaded or sized for drawing", file.c_str());
    stream->Release();
    RECTL bounds { 0, 0, width, height };
    pixels = Drawn(width, height, [&](HDC memory) {
        if (FAILED(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr, 0)))
            Fail("%s: IViewObject2::Draw", file.c_str());
    });
    object->Release();
    view->Release();
    persist->Release();
    return pixels;
}

struct RenderEntry {
    std::string file, backdrop, picture;
};

int Render(const std::string& directory, int width, int height, const std::vector<RenderEntry>& entries)
{
    for (const RenderEntry& entry : entries) {
        try {
            std::optional<vex::platform::Dib> backdrop;
            if (!entry.backdrop.empty())
                backdrop = vex::pages::LoadPictureFile(entry.backdrop)->bitmap();
            IStream* stream = StreamOf(FileText(entry.file));
            Form form(width, height, stream, backdrop ? &*backdrop : nullptr);
            stream->Release();
            HWND window = form.ControlWindow();
            if (!window) {
                Fail("%s: no control window", entry.file.c_str());
                continue;
            }
            if (!entry.picture.empty()) {
                SetPngPicture(form.control, entry.picture);
                Pump(50);
            }
            std::string name = entry.file.substr(entry.file.find_last_of("/\\") + 1);
            name = name.substr(0, name.rfind('.'));
            if (!WriteBitmap(directory + "\\" + name + ".bmp", WindowPixels(window, width, height), width, height))
                Fail("cannot write %s.bmp", name.c_str());
            // Drawn into a context instead (nothing of a container to show through it).
            if (entry.backdrop.empty() && entry.picture.empty()
                && !WriteBitmap(directory + "\\" + name + ".view.bmp", ViewPixels(entry.file, width, height), width, height))
                Fail("cannot write %s.view.bmp", name.c_str());
            // The whole form too, the control on it, for looking at.
            WriteBitmap(directory + "\\" + name + ".form.bmp", WindowPixels(form.window, width + 20, height + 20), width + 20,
                height + 20);
        } catch (const std::exception& error) {
            Fail("%s: %s", entry.file.c_str(), error.what());
        }
    }
    return Status();
}

// FILE [--backdrop PNG] [--picture PNG] ...
std::vector<RenderEntry> RenderEntries(const std::vector<std::string>& arguments)
{
    std::vector<RenderEntry> entries;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if ((argument == "--backdrop" || argument == "--picture") && !entries.empty() && i + 1 < arguments.size())
            (argument == "--backdrop" ? entries.back().backdrop : entries.back().picture) = arguments[++i];
        else
            entries.push_back({ argument, {}, {} });
    }
    return entries;
}

} // namespace

int main(int argc, char** argv)
{
    OleInitialize(nullptr);
    AtlAxWinInit();
    std::string mode = argc > 1 ? argv[1] : "";
    int status = 2;
    if (mode == "events")
        status = Events();
    else if (mode == "quick")
        status = QuickActivation();
    else if (mode == "animate" && argc == 7)
        status = Animate(argv[2], std::atoi(argv[3]), std::atoi(argv[4]), argv[5], std::atoi(argv[6]));
    else if (mode == "persist")
        status = Persist(std::vector<std::string>(argv + 2, argv + argc));
    else if (mode == "render" && argc >= 5)
        status = Render(argv[2], std::atoi(argv[3]), std::atoi(argv[4]), RenderEntries(std::vector<std::string>(argv + 5, argv + argc)));
    else
        std::printf("usage: activex-client events | quick | render DIR W H FILE... | persist FILE...\n");
    if (status == 0)
        std::printf("PASS %s\n", mode.c_str());
    OleUninitialize();
    return status;
}
