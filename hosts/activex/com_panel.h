#pragma once
// The control object: one VexPanel with its container host and window, published through the
// type library's dual interface _VexPanel. IDispatch goes through the library's type
// information, so the host's argument coercions (Overflow for 40000 into a 16-bit property,
// Type mismatch for "abc", 2.5 rounding to 2) apply before a property's own set sees the value.

#include <windows.h>
#include <ocidl.h>

#include <atomic>
#include <memory>

#include "Vex_Panel_h.h"
#include "com_errors.h"
#include "com_values.h"
#include "container_host.h"
#include "control/vex_panel.h"
#include "model/property_table.h"

namespace vex::activex {

class ComPanel final : public _VexPanel, public ISupportErrorInfo {
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
        return Guard([&] { *value = Com<Type>::Out(panel_->Name()); });                             \
    }                                                                                                \
    VEX_COM_PUT_##Store(Name, Type)
    VEX_PROPERTIES(VEX_COM_PROPERTY)
#undef VEX_COM_PROPERTY
#undef VEX_COM_PUT_Window
#undef VEX_COM_PUT_Facet
#undef VEX_COM_PUT_Field

    // ---- _VexPanel: the methods ----------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE Refresh() override;
    HRESULT STDMETHODCALLTYPE Acerca(VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE DrawControl(VARIANT_BOOL OptionCLS) override;

    control::VexPanel& panel() { return *panel_; }

private:
    ComPanel();
    ~ComPanel();

    std::atomic<ULONG> references_ { 1 };
    ITypeInfo* typeInfo_ = nullptr;
    ContainerHost host_;
    ControlWindow window_;
    std::unique_ptr<control::VexPanel> panel_;
};

} // namespace vex::activex
