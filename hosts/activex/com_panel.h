#pragma once
// The control object: one VexPanel with its container host and window, published through the
// type library's dual interface _VexPanel. IDispatch goes through the library's type
// information, so the host's argument coercions (Overflow for 40000 into a 16-bit property,
// Type mismatch for "abc", 2.5 rounding to 2) apply before a property's own set sees the value.

#include <windows.h>
#include <ocidl.h>

#include <atomic>
#include <memory>
#include <vector>

#include "Vex_Panel_h.h"
#include "com_errors.h"
#include "com_values.h"
#include "container_host.h"
#include "control/vex_panel.h"
#include "model/property_table.h"

namespace vex::activex {

class ComPanel;

// One outgoing interface's connections: the sinks advised to it, called in the order of advice.
class ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(ComPanel& owner, REFIID iid) : owner_(owner), iid_(iid) { }
    ~ConnectionPoint();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

    REFIID iid() const { return iid_; }
    // The sinks now advised, each AddRef'd (a handler may unadvise while it runs).
    std::vector<IUnknown*> Sinks() const;

private:
    ComPanel& owner_;
    IID iid_;
    DWORD nextCookie_ = 1;
    std::vector<std::pair<DWORD, IUnknown*>> sinks_;
};

class ComPanel final : public _VexPanel,
                       public ISupportErrorInfo,
                       public IProvideClassInfo2,
                       public IConnectionPointContainer,
                       public IOleObject,
                       public IOleInPlaceObject,
                       public IOleInPlaceActiveObject,
                       public IOleControl,
                       public IViewObject2,
                       public IPersistStreamInit,
                       public IPersistPropertyBag,
                       public IPersistStorage,
                       public ISpecifyPropertyPages,
                       public IQuickActivate,
                       private ControlWindow::Owner,
                       private control::PanelEvents {
public:
    static HRESULT Create(REFIID iid, void** object);

    // ---- IUnknown ------------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // ---- IDispatch -----------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;

    // ---- ISupportErrorInfo ---------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

    // The table names the panel's enumerations; the library's own (same names, global) are
    // reached through Com<...>::Wire.
#define VEX_PANEL_ENUM(Enum) using Enum = model::Enum;
    VEX_ENUMERATIONS(VEX_PANEL_ENUM)
#undef VEX_PANEL_ENUM

    // ---- _VexPanel: every property of the table --------------------------------------------------
    // get_Name reads; put_Name (putref_Name for the font and pictures) writes through the
    // property's own set. Both are declared for every writable property; the library's
    // interface decides which one its vtable holds.
#define VEX_COM_PUT_Field(Name, Type)                                                                 \
    HRESULT STDMETHODCALLTYPE put_##Name(Com<Type>::Wire value)                                      \
    {                                                                                                \
        return Guard([&] { panel_->set##Name(Com<Type>::In(value)); });                              \
    }                                                                                                \
    HRESULT STDMETHODCALLTYPE putref_##Name(Com<Type>::Wire value) { return put_##Name(value); }
#define VEX_COM_PUT_Facet(Name, Type) VEX_COM_PUT_Field(Name, Type)
#define VEX_COM_PUT_Window(Name, Type)
#define VEX_COM_PROPERTY(Name, Store, Type, ...)                                                      \
    HRESULT STDMETHODCALLTYPE get_##Name(Com<Type>::Wire* value) override                            \
    {                                                                                                \
        if (!value)                                                                                  \
            return E_POINTER;                                                                        \
        return Guard([&] { *value = Publish(panel_->Name()); });                                     \
    }                                                                                                \
    VEX_COM_PUT_##Store(Name, Type)
    VEX_PROPERTIES(VEX_COM_PROPERTY)
#undef VEX_COM_PROPERTY
#undef VEX_COM_PUT_Window
#undef VEX_COM_PUT_Facet
#undef VEX_COM_PUT_Field

    // A property's value as the interface carries it; the font is the control's own font object.
    template <typename T>
    typename Com<T>::Wire Publish(const T& value)
    {
        return Com<T>::Out(value);
    }
    IFontDisp* Publish(const platform::FontDesc& font);

    // ---- _VexPanel: the methods ----------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE Refresh() override;
    HRESULT STDMETHODCALLTYPE Acerca(VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE DrawControl(VARIANT_BOOL OptionCLS) override;

    // ---- IProvideClassInfo2 ---------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;

    // ---- IConnectionPointContainer: the events (__VexPanel) and property notifications ---------
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // ---- IOleObject (com_panel_ole.cpp) ------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT rect) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) override { return OLE_S_USEREG; }
    HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* classId) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) override { return OLE_S_USEREG; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advise) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // ---- IQuickActivate: the site, the ambients and the sinks in one call -----------------------
    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override { return SetExtent(DVASPECT_CONTENT, size); }
    HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override { return GetExtent(DVASPECT_CONTENT, size); }

    // ---- IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject ------------------------------------
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

    // ---- IOleControl -------------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

    // ---- IViewObject2: the panel drawn into a container's context (design time, printing) ----
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
        LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) override;

    // ---- IPersistStreamInit (com_panel_persist.cpp) --------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* classId) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override { return dirty_ ? S_OK : S_FALSE; }
    HRESULT STDMETHODCALLTYPE Load(LPSTREAM stream) override;
    HRESULT STDMETHODCALLTYPE Save(LPSTREAM stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
    HRESULT STDMETHODCALLTYPE InitNew() override; // also IPersistPropertyBag's

    // ---- IPersistPropertyBag: the 59 keys in the container's own bag ---------------------------
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

    // ---- IPersistStorage: the stream's bytes as the storage's "Contents" ------------------------
    HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE HandsOffStorage() override { return S_OK; }

    // ---- ISpecifyPropertyPages: the seven pages (property_pages.cpp) ---------------------------
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

    control::VexPanel& panel() { return *panel_; }

private:
    ComPanel();
    ~ComPanel();

    // ControlWindow::Owner
    control::VexPanel* Panel() override { return panel_.get(); }
    void OnWindowFocus(bool gained) override;

    // control::PanelEvents: raised to every sink of __VexPanel, the parameters by reference.
    void Click() override;
    void DblClick() override;
    void KeyDown(int16_t& KeyCode, int16_t& Shift) override;
    void KeyPress(int16_t& KeyAscii) override;
    void KeyUp(int16_t& KeyCode, int16_t& Shift) override;
    void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseExit(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseEnter(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void FireEvent(std::string_view event, VARIANT* arguments, UINT count);
    void FireMouse(std::string_view event, int16_t& Button, int16_t& Shift, float& x, float& y);

    void OnPropertyChanged(const std::string& name);
    // The font object Font returns: one object while the font stays the same; a change to its
    // facets (Panel.Font.Bold = True) reaches the panel through its property notifications.
    class FontWatcher final : public IPropertyNotifySink {
    public:
        explicit FontWatcher(ComPanel& owner) : owner_(owner) { }
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
        ULONG STDMETHODCALLTYPE AddRef() override { return 2; } // lives with its control
        ULONG STDMETHODCALLTYPE Release() override { return 1; }
        HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override;
        HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

    private:
        ComPanel& owner_;
    };
    void ReleaseFontObject();
    void ReadAmbient();
    HRESULT ActivateInPlace(IOleClientSite* site, bool uiActivate);
    platform::Size ExtentPixels() const;

    std::atomic<ULONG> references_ { 1 };
    ITypeInfo* typeInfo_ = nullptr;
    ContainerHost host_;
    ControlWindow window_;
    std::unique_ptr<control::VexPanel> panel_;
    ConnectionPoint events_;
    ConnectionPoint propertyNotify_;
    IOleClientSite* site_ = nullptr;
    IOleInPlaceSite* inPlaceSite_ = nullptr;
    IOleAdviseHolder* adviseHolder_ = nullptr;
    IAdviseSink* viewSink_ = nullptr;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    SIZEL extent_ {}; // HiMetric
    bool dirty_ = false;
    bool initialised_ = false; // InitNew or Load ran
    bool uiActive_ = false;
    int frozen_ = 0;           // FreezeEvents nesting: events are not raised while frozen
    FontWatcher fontWatcher_ { *this };
    IFontDisp* font_ = nullptr; // the font object last handed out
    IConnectionPoint* fontPoint_ = nullptr;
    DWORD fontCookie_ = 0;
};

} // namespace vex::activex
