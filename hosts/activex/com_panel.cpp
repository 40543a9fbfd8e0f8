#include "com_panel.h"

#include <new>

#include "com_errors.h"
#include "module.h"
#include "property_pages.h"

namespace vex::activex {

namespace {

// A new control's extent until a container gives it one: the size a form gives a new panel.
constexpr platform::Size kInitialSize { 120, 60 };

} // namespace

HRESULT ComPanel::Create(REFIID iid, void** object)
{
    *object = nullptr;
    ComPanel* panel = nullptr;
    HRESULT status = Guard([&] { panel = new ComPanel(); });
    if (FAILED(status))
        return status;
    if (!panel->typeInfo_) {
        panel->Release();
        return TYPE_E_CANTLOADLIBRARY;
    }
    status = panel->QueryInterface(iid, object);
    panel->Release();
    return status;
}

ComPanel::ComPanel()
    : window_(*this, kInitialSize)
    , events_(*this, DIID___VexPanel)
    , propertyNotify_(*this, IID_IPropertyNotifySink)
{
    TypeInfoOf(IID__VexPanel, &typeInfo_);
    extent_ = { MulDiv(kInitialSize.width, 2540, 96), MulDiv(kInitialSize.height, 2540, 96) };
    host_.window = &window_;
    host_.onPropertyChanged = [this](const std::string& name) { OnPropertyChanged(name); };
    panel_ = std::make_unique<control::VexPanel>(host_, window_);
    panel_->SetEventSink(this);
    ObjectCreated();
}

ComPanel::~ComPanel()
{
    ReleaseFontObject();
    Guard([&] { panel_->OnTerminate(); });
    window_.Destroy();
    panel_.reset();
    if (typeInfo_)
        typeInfo_->Release();
    if (viewSink_)
        viewSink_->Release();
    if (adviseHolder_)
        adviseHolder_->Release();
    if (inPlaceSite_)
        inPlaceSite_->Release();
    if (site_)
        site_->Release();
    ObjectDestroyed();
}

// ---- IUnknown ----------------------------------------------------------------------------------

HRESULT ComPanel::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__VexPanel)
        *object = static_cast<_VexPanel*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2)
        *object = static_cast<IProvideClassInfo2*>(this);
    else if (iid == IID_IConnectionPointContainer)
        *object = static_cast<IConnectionPointContainer*>(this);
    else if (iid == IID_IOleObject)
        *object = static_cast<IOleObject*>(this);
    else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceObject)
        *object = static_cast<IOleInPlaceObject*>(this);
    else if (iid == IID_IOleInPlaceActiveObject)
        *object = static_cast<IOleInPlaceActiveObject*>(this);
    else if (iid == IID_IOleControl)
        *object = static_cast<IOleControl*>(this);
    else if (iid == IID_IViewObject || iid == IID_IViewObject2)
        *object = static_cast<IViewObject2*>(this);
    else if (iid == IID_IPersist || iid == IID_IPersistStreamInit)
        *object = static_cast<IPersistStreamInit*>(this);
    else if (iid == IID_IPersistPropertyBag)
        *object = static_cast<IPersistPropertyBag*>(this);
    else if (iid == IID_IPersistStorage)
        *object = static_cast<IPersistStorage*>(this);
    else if (iid == IID_IQuickActivate)
        *object = static_cast<IQuickActivate*>(this);
    else if (iid == IID_ISpecifyPropertyPages)
        *object = static_cast<ISpecifyPropertyPages*>(this);
    else if (iid == kPanelObjectId) // this server's pages, in-process
        *object = static_cast<_VexPanel*>(this);
    else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG ComPanel::AddRef() { return ++references_; }

ULONG ComPanel::Release()
{
    ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

// ---- IDispatch through the type information ---------------------------------------------------

HRESULT ComPanel::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT ComPanel::GetTypeInfo(UINT index, LCID, ITypeInfo** info)
{
    if (!info)
        return E_POINTER;
    *info = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    typeInfo_->AddRef();
    *info = typeInfo_;
    return S_OK;
}

HRESULT ComPanel::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    return DispGetIDsOfNames(typeInfo_, names, count, ids);
}

HRESULT ComPanel::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
    EXCEPINFO* exception, UINT* argumentError)
{
    if (iid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    SetErrorInfo(0, nullptr);
    return typeInfo_->Invoke(static_cast<_VexPanel*>(this), id, flags, parameters, result, exception, argumentError);
}

HRESULT ComPanel::InterfaceSupportsErrorInfo(REFIID iid) { return iid == IID__VexPanel ? S_OK : S_FALSE; }

// ---- The font object -----------------------------------------------------------------------------

HRESULT ComPanel::FontWatcher::QueryInterface(REFIID iid, void** object)
{
    if (iid == IID_IUnknown || iid == IID_IPropertyNotifySink) {
        *object = static_cast<IPropertyNotifySink*>(this);
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

HRESULT ComPanel::FontWatcher::OnChanged(DISPID)
{
    IFontDisp* font = owner_.font_;
    if (!font)
        return S_OK;
    return Guard([&] {
        platform::FontDesc changed = FromFont(font);
        if (!(changed == owner_.panel_->Font()))
            owner_.panel_->setFont(changed);
    });
}

void ComPanel::ReleaseFontObject()
{
    if (fontPoint_) {
        fontPoint_->Unadvise(fontCookie_);
        fontPoint_->Release();
        fontPoint_ = nullptr;
    }
    if (font_) {
        font_->Release();
        font_ = nullptr;
    }
}

IFontDisp* ComPanel::Publish(const platform::FontDesc& font)
{
    if (!font_ || !(FromFont(font_) == font)) {
        ReleaseFontObject();
        font_ = ToFont(font);
        IConnectionPointContainer* points = nullptr;
        if (SUCCEEDED(font_->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&points)))) {
            if (SUCCEEDED(points->FindConnectionPoint(IID_IPropertyNotifySink, &fontPoint_))
                && FAILED(fontPoint_->Advise(&fontWatcher_, &fontCookie_))) {
                fontPoint_->Release();
                fontPoint_ = nullptr;
            }
            points->Release();
        }
    }
    font_->AddRef();
    return font_;
}

// ---- Methods -----------------------------------------------------------------------------------

HRESULT ComPanel::Refresh()
{
    return Guard([&] { panel_->Refresh(); });
}

HRESULT ComPanel::Acerca(VARIANT* result)
{
    if (result)
        VariantInit(result); // always Empty
    return Guard([&] { panel_->Acerca(); });
}

HRESULT ComPanel::DrawControl(VARIANT_BOOL OptionCLS)
{
    return Guard([&] { panel_->DrawControl(OptionCLS != VARIANT_FALSE); });
}

} // namespace vex::activex
