// The control in a container: client site and ambient properties, in-place activation in a
// child window of the container's, extent, view drawing and the control's own OLE answers.
#include "com_panel.h"

#include <olectl.h>

#include <cstddef>

#include "module.h"
#include "property_pages.h"
#include "registration.h"

namespace vex::activex {

namespace {

constexpr LONG kHiMetricPerInch = 2540;
constexpr LONG kPixelsPerInch = 96;

// An ambient property of the site, or an Empty variant.
VARIANT Ambient(IOleClientSite* site, DISPID id)
{
    VARIANT value;
    VariantInit(&value);
    IDispatch* ambient = nullptr;
    if (site && SUCCEEDED(site->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&ambient)))) {
        DISPPARAMS none {};
        ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
        ambient->Release();
    }
    return value;
}

} // namespace

platform::Size ComPanel::ExtentPixels() const
{
    return { MulDiv(extent_.cx, kPixelsPerInch, kHiMetricPerInch), MulDiv(extent_.cy, kPixelsPerInch, kHiMetricPerInch) };
}

// UserMode, the font and the display name, as the container states them; what it does not
// state keeps its default (run mode, "MS Sans Serif" 8.25, "VexPanel1").
void ComPanel::ReadAmbient()
{
    VARIANT userMode = Ambient(site_, DISPID_AMBIENT_USERMODE);
    if (V_VT(&userMode) == VT_BOOL)
        host_.userMode = V_BOOL(&userMode) != VARIANT_FALSE;
    VariantClear(&userMode);
    VARIANT name = Ambient(site_, DISPID_AMBIENT_DISPLAYNAME);
    if (V_VT(&name) == VT_BSTR)
        host_.displayName = FromBstr(V_BSTR(&name));
    VariantClear(&name);
    VARIANT font = Ambient(site_, DISPID_AMBIENT_FONT);
    if ((V_VT(&font) == VT_DISPATCH || V_VT(&font) == VT_UNKNOWN) && V_UNKNOWN(&font)) {
        IFontDisp* fontDisp = nullptr;
        if (SUCCEEDED(V_UNKNOWN(&font)->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(&fontDisp)))) {
            Guard([&] { host_.ambientFont = FromFont(fontDisp); });
            fontDisp->Release();
        }
    }
    VariantClear(&font);
    HWND owner = nullptr;
    if (inPlaceSite_)
        inPlaceSite_->GetWindow(&owner);
    host_.owner = owner;
}

// ---- IOleObject -------------------------------------------------------------------------------------

HRESULT ComPanel::SetClientSite(IOleClientSite* site)
{
    if (site)
        site->AddRef();
    if (site_)
        site_->Release();
    site_ = site;
    ReadAmbient();
    return S_OK;
}

HRESULT ComPanel::GetClientSite(IOleClientSite** site)
{
    if (!site)
        return E_POINTER;
    *site = site_;
    if (site_)
        site_->AddRef();
    return S_OK;
}

HRESULT ComPanel::Close(DWORD saveOption)
{
    if (host_.userMode)
        Guard([&] { host_.form.Unload(); });
    InPlaceDeactivate();
    if (adviseHolder_)
        adviseHolder_->SendOnClose();
    return S_OK;
}

HRESULT ComPanel::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT)
{
    switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_SHOW:
    case OLEIVERB_UIACTIVATE:
        return ActivateInPlace(site, true);
    case OLEIVERB_INPLACEACTIVATE:
        return ActivateInPlace(site, false);
    case OLEIVERB_HIDE:
        window_.Show(false);
        return S_OK;
    case OLEIVERB_PROPERTIES:
        return ShowPropertyPages(static_cast<_VexPanel*>(this), parent, Wide(host_.displayName));
    default:
        return verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB;
    }
}

// In place: a child window of the site's window at the site's rectangle. The panel gets
// Resize (it paints its picture) and Show, and in run mode its form's Activate.
HRESULT ComPanel::ActivateInPlace(IOleClientSite* site, bool uiActivate)
{
    if (!site)
        site = site_;
    if (!site)
        return E_INVALIDARG;
    if (!window_.handle()) {
        IOleInPlaceSite* inPlace = nullptr;
        if (FAILED(site->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&inPlace))))
            return E_NOINTERFACE;
        if (inPlace->CanInPlaceActivate() != S_OK) {
            inPlace->Release();
            return E_FAIL;
        }
        inPlace->OnInPlaceActivate();
        HWND parent = nullptr;
        inPlace->GetWindow(&parent);
        IOleInPlaceFrame* frame = nullptr;
        IOleInPlaceUIWindow* document = nullptr;
        RECT position {}, clip {};
        OLEINPLACEFRAMEINFO frameInfo {};
        frameInfo.cb = sizeof frameInfo;
        inPlace->GetWindowContext(&frame, &document, &position, &clip, &frameInfo);
        if (frame)
            frame->Release();
        if (document)
            document->Release();
        if (!window_.Create(parent, position)) {
            inPlace->OnInPlaceDeactivate();
            inPlace->Release();
            return E_FAIL;
        }
        if (inPlaceSite_)
            inPlaceSite_->Release();
        inPlaceSite_ = inPlace;
        ReadAmbient();
        extent_ = { MulDiv(position.right - position.left, kHiMetricPerInch, kPixelsPerInch),
            MulDiv(position.bottom - position.top, kHiMetricPerInch, kPixelsPerInch) };
        Guard([&] { panel_->OnResize(); });
        window_.Show(true);
        Guard([&] { panel_->OnShow(); });
        if (host_.userMode)
            Guard([&] { host_.form.Activate(); });
    }
    if (uiActivate && !uiActive_ && inPlaceSite_) {
        uiActive_ = true;
        inPlaceSite_->OnUIActivate();
        SetFocus(window_.handle());
    }
    return S_OK;
}

HRESULT ComPanel::GetUserClassID(CLSID* classId) { return GetClassID(classId); }

HRESULT ComPanel::SetExtent(DWORD aspect, SIZEL* size)
{
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!size)
        return E_POINTER;
    extent_ = *size;
    if (!window_.handle()) {
        window_.Resize(ExtentPixels());
        Guard([&] { panel_->OnResize(); });
    }
    return S_OK;
}

HRESULT ComPanel::GetExtent(DWORD aspect, SIZEL* size)
{
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!size)
        return E_POINTER;
    *size = extent_;
    return S_OK;
}

HRESULT ComPanel::Advise(IAdviseSink* sink, DWORD* connection)
{
    if (!adviseHolder_ && FAILED(CreateOleAdviseHolder(&adviseHolder_)))
        return E_OUTOFMEMORY;
    return adviseHolder_->Advise(sink, connection);
}

HRESULT ComPanel::Unadvise(DWORD connection)
{
    return adviseHolder_ ? adviseHolder_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT ComPanel::EnumAdvise(IEnumSTATDATA** advise)
{
    if (!advise)
        return E_POINTER;
    *advise = nullptr;
    return adviseHolder_ ? adviseHolder_->EnumAdvise(advise) : S_OK;
}

HRESULT ComPanel::GetMiscStatus(DWORD aspect, DWORD* status)
{
    if (!status)
        return E_POINTER;
    *status = kMiscStatus;
    return S_OK;
}

// ---- IQuickActivate -----------------------------------------------------------------------------------

// What SetClientSite, the connection points' Advise and IViewObject::SetAdvise would do, in one
// call; the container's own ambient flags and font stand for the site's ambient properties.
HRESULT ComPanel::QuickActivate(QACONTAINER* container, QACONTROL* control)
{
    if (!container || !control)
        return E_POINTER;
    // Older containers pass a shorter QACONTAINER; everything up to the font is in every one.
    if (container->cbSize < offsetof(QACONTAINER, pUndoMgr) || control->cbSize < sizeof(QACONTROL))
        return E_INVALIDARG;
    SetClientSite(container->pClientSite);
    host_.userMode = (container->dwAmbientFlags & QACONTAINER_USERMODE) != 0;
    IFontDisp* font = nullptr;
    if (container->pFont && SUCCEEDED(container->pFont->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(&font)))) {
        Guard([&] { host_.ambientFont = FromFont(font); });
        font->Release();
    }
    control->dwEventCookie = 0;
    control->dwPropNotifyCookie = 0;
    if (container->pUnkEventSink)
        events_.Advise(container->pUnkEventSink, &control->dwEventCookie);
    if (container->pPropertyNotifySink)
        propertyNotify_.Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie);
    if (container->pAdviseSink)
        SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    control->dwMiscStatus = kMiscStatus;
    control->dwViewStatus = VIEWSTATUS_OPAQUE; // the window covers its rectangle, transparent or not
    control->dwPointerActivationPolicy = 0;
    return S_OK;
}

// ---- In place --------------------------------------------------------------------------------------

HRESULT ComPanel::GetWindow(HWND* window)
{
    if (!window)
        return E_POINTER;
    *window = window_.handle();
    return *window ? S_OK : E_FAIL;
}

HRESULT ComPanel::InPlaceDeactivate()
{
    UIDeactivate();
    if (window_.handle()) {
        window_.Destroy();
        if (inPlaceSite_)
            inPlaceSite_->OnInPlaceDeactivate();
    }
    if (inPlaceSite_) {
        inPlaceSite_->Release();
        inPlaceSite_ = nullptr;
    }
    return S_OK;
}

HRESULT ComPanel::UIDeactivate()
{
    if (uiActive_) {
        uiActive_ = false;
        if (inPlaceSite_)
            inPlaceSite_->OnUIDeactivate(FALSE);
    }
    return S_OK;
}

HRESULT ComPanel::SetObjectRects(LPCRECT position, LPCRECT)
{
    if (!position)
        return E_POINTER;
    extent_ = { MulDiv(position->right - position->left, kHiMetricPerInch, kPixelsPerInch),
        MulDiv(position->bottom - position->top, kHiMetricPerInch, kPixelsPerInch) };
    if (window_.handle())
        MoveWindow(window_.handle(), position->left, position->top, position->right - position->left,
            position->bottom - position->top, TRUE);
    return S_OK;
}

void ComPanel::OnWindowFocus(bool gained)
{
    IOleControlSite* control = nullptr;
    if (site_ && SUCCEEDED(site_->QueryInterface(IID_IOleControlSite, reinterpret_cast<void**>(&control)))) {
        control->OnFocus(gained);
        control->Release();
    }
}

// ---- IOleControl -----------------------------------------------------------------------------------

HRESULT ComPanel::GetControlInfo(CONTROLINFO* info)
{
    if (!info)
        return E_POINTER;
    info->cb = sizeof *info;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

HRESULT ComPanel::OnAmbientPropertyChange(DISPID)
{
    ReadAmbient();
    return S_OK;
}

HRESULT ComPanel::FreezeEvents(BOOL freeze)
{
    frozen_ += freeze ? 1 : (frozen_ > 0 ? -1 : 0);
    return S_OK;
}

// ---- IViewObject2 ------------------------------------------------------------------------------------

// The picture the panel keeps, copied (or stretched) to the container's rectangle. A control that
// was never shown paints its picture first.
HRESULT ComPanel::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds, LPCRECTL,
    BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR)
{
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!target || !bounds)
        return E_INVALIDARG;
    RECT rect { bounds->left, bounds->top, bounds->right, bounds->bottom };
    if (!window_.handle()) {
        window_.Resize({ rect.right - rect.left, rect.bottom - rect.top });
        HRESULT status = Guard([&] { panel_->DrawControl(true); });
        if (FAILED(status))
            return status;
    }
    window_.DrawInto(target, rect);
    return S_OK;
}

HRESULT ComPanel::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink)
{
    if (sink)
        sink->AddRef();
    if (viewSink_)
        viewSink_->Release();
    viewSink_ = sink;
    viewAspects_ = aspects;
    viewFlags_ = flags;
    return S_OK;
}

HRESULT ComPanel::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink)
{
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    if (sink) {
        *sink = viewSink_;
        if (viewSink_)
            viewSink_->AddRef();
    }
    return S_OK;
}

HRESULT ComPanel::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) { return GetExtent(aspect, size); }

} // namespace vex::activex
