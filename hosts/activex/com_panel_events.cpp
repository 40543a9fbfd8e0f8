// The control's outgoing interfaces: the events of __VexPanel, raised to every advised sink with
// their parameters by reference (a handler's change reaches the panel's own variable, and the
// next sink sees it), and IPropertyNotifySink for the container's property browser.
#include "com_panel.h"

#include <algorithm>

#include "model/dispatch_ids.h"
#include "module.h"

namespace vex::activex {

namespace {

// A snapshot enumerator: the items as they were when it was made, each held (AddRef'd) while
// the enumerator lives and AddRef'd again for the caller that takes it.
template <typename Interface, typename Item>
class Enumerator final : public Interface {
public:
    Enumerator(const IID& iid, std::vector<Item> items, size_t position = 0)
        : iid_(iid), items_(std::move(items)), position_(position)
    {
        for (Item& item : items_)
            Hold(item);
    }
    ~Enumerator()
    {
        for (Item& item : items_)
            Drop(item);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        if (iid != IID_IUnknown && iid != iid_) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* out, ULONG* fetched) override
    {
        if (!out || (count > 1 && !fetched))
            return E_POINTER;
        ULONG given = 0;
        for (; given < count && position_ < items_.size(); ++given, ++position_) {
            out[given] = items_[position_];
            Hold(out[given]);
        }
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override
    {
        const size_t left = items_.size() - position_;
        position_ += std::min<size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override
    {
        position_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override
    {
        if (!copy)
            return E_POINTER;
        *copy = nullptr;
        return Guard([&] { *copy = new Enumerator(iid_, items_, position_); });
    }

private:
    static void Hold(IConnectionPoint* point) { point->AddRef(); }
    static void Drop(IConnectionPoint* point) { point->Release(); }
    static void Hold(CONNECTDATA& connection) { connection.pUnk->AddRef(); }
    static void Drop(CONNECTDATA& connection) { connection.pUnk->Release(); }

    std::atomic<ULONG> references_ { 1 };
    IID iid_;
    std::vector<Item> items_;
    size_t position_;
};

} // namespace

// ---- ConnectionPoint --------------------------------------------------------------------------------

ConnectionPoint::~ConnectionPoint()
{
    for (auto& [cookie, sink] : sinks_)
        sink->Release();
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IConnectionPoint) {
        *object = static_cast<IConnectionPoint*>(this);
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

// A connection point lives and dies with its control.
ULONG ConnectionPoint::AddRef() { return static_cast<IConnectionPointContainer&>(owner_).AddRef(); }
ULONG ConnectionPoint::Release() { return static_cast<IConnectionPointContainer&>(owner_).Release(); }

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid)
{
    if (!iid)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container)
{
    if (!container)
        return E_POINTER;
    *container = &owner_;
    (*container)->AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie)
{
    if (!sink || !cookie)
        return E_POINTER;
    *cookie = 0;
    IUnknown* typed = nullptr;
    // An event sink may answer only for IDispatch (a script engine's sinks do).
    if (FAILED(sink->QueryInterface(iid_, reinterpret_cast<void**>(&typed)))
        && (iid_ == IID_IPropertyNotifySink || FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&typed)))))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = nextCookie_++;
    sinks_.emplace_back(*cookie, typed);
    return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie)
{
    for (auto at = sinks_.begin(); at != sinks_.end(); ++at)
        if (at->first == cookie) {
            IUnknown* sink = at->second;
            sinks_.erase(at);
            sink->Release();
            return S_OK;
        }
    return CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections)
{
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return Guard([&] {
        std::vector<CONNECTDATA> items;
        for (const auto& [cookie, sink] : sinks_)
            items.push_back({ sink, cookie });
        *connections = new Enumerator<IEnumConnections, CONNECTDATA>(IID_IEnumConnections, std::move(items));
    });
}

std::vector<IUnknown*> ConnectionPoint::Sinks() const
{
    std::vector<IUnknown*> sinks;
    for (const auto& [cookie, sink] : sinks_) {
        sink->AddRef();
        sinks.push_back(sink);
    }
    return sinks;
}

// ---- The container side -------------------------------------------------------------------------

HRESULT ComPanel::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    if (!points)
        return E_POINTER;
    *points = nullptr;
    return Guard([&] {
        *points = new Enumerator<IEnumConnectionPoints, IConnectionPoint*>(IID_IEnumConnectionPoints, { &events_, &propertyNotify_ });
    });
}

HRESULT ComPanel::FindConnectionPoint(REFIID iid, IConnectionPoint** point)
{
    if (!point)
        return E_POINTER;
    *point = nullptr;
    if (iid == events_.iid())
        *point = &events_;
    else if (iid == propertyNotify_.iid())
        *point = &propertyNotify_;
    else
        return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

HRESULT ComPanel::GetClassInfo(ITypeInfo** info)
{
    if (!info)
        return E_POINTER;
    return TypeInfoOf(CLSID_VexPanel, info);
}

HRESULT ComPanel::GetGUID(DWORD kind, GUID* guid)
{
    if (!guid)
        return E_POINTER;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
        return E_INVALIDARG;
    *guid = DIID___VexPanel;
    return S_OK;
}

// A property changed: the form is dirty, and the container's property browser hears of it.
void ComPanel::OnPropertyChanged(const std::string& name)
{
    dirty_ = true;
    const model::DispatchMember* member = model::FindMember(name);
    if (!member)
        return;
    for (IUnknown* sink : propertyNotify_.Sinks()) {
        static_cast<IPropertyNotifySink*>(sink)->OnChanged(member->dispid);
        sink->Release();
    }
    if (viewSink_)
        viewSink_->OnViewChange(DVASPECT_CONTENT, -1);
}

// ---- Raising the events ------------------------------------------------------------------------------

// arguments are in the order of the event's parameters; IDispatch takes them last first.
void ComPanel::FireEvent(std::string_view event, VARIANT* arguments, UINT count)
{
    if (frozen_ > 0)
        return;
    const model::DispatchMember* member = model::FindMember(event);
    VARIANT reversed[4];
    for (UINT i = 0; i < count; ++i)
        reversed[i] = arguments[count - 1 - i];
    DISPPARAMS parameters { count ? reversed : nullptr, nullptr, count, 0 };
    for (IUnknown* sink : events_.Sinks()) {
        static_cast<IDispatch*>(sink)->Invoke(member->dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
            nullptr, nullptr, nullptr);
        sink->Release();
    }
}

namespace {

VARIANT ByReference(int16_t& value)
{
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_I2 | VT_BYREF;
    V_I2REF(&variant) = &value;
    return variant;
}

VARIANT ByReference(float& value)
{
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_R4 | VT_BYREF;
    V_R4REF(&variant) = &value;
    return variant;
}

} // namespace

void ComPanel::Click() { FireEvent("Click", nullptr, 0); }
void ComPanel::DblClick() { FireEvent("DblClick", nullptr, 0); }

void ComPanel::KeyDown(int16_t& KeyCode, int16_t& Shift)
{
    VARIANT arguments[] = { ByReference(KeyCode), ByReference(Shift) };
    FireEvent("KeyDown", arguments, 2);
}

void ComPanel::KeyPress(int16_t& KeyAscii)
{
    VARIANT arguments[] = { ByReference(KeyAscii) };
    FireEvent("KeyPress", arguments, 1);
}

void ComPanel::KeyUp(int16_t& KeyCode, int16_t& Shift)
{
    VARIANT arguments[] = { ByReference(KeyCode), ByReference(Shift) };
    FireEvent("KeyUp", arguments, 2);
}

void ComPanel::FireMouse(std::string_view event, int16_t& Button, int16_t& Shift, float& x, float& y)
{
    VARIANT arguments[] = { ByReference(Button), ByReference(Shift), ByReference(x), ByReference(y) };
    FireEvent(event, arguments, 4);
}

void ComPanel::MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) { FireMouse("MouseDown", Button, Shift, x, y); }
void ComPanel::MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) { FireMouse("MouseMove", Button, Shift, x, y); }
void ComPanel::MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) { FireMouse("MouseUp", Button, Shift, x, y); }
void ComPanel::MouseExit(int16_t& Button, int16_t& Shift, float& x, float& y) { FireMouse("MouseExit", Button, Shift, x, y); }
void ComPanel::MouseEnter(int16_t& Button, int16_t& Shift, float& x, float& y) { FireMouse("MouseEnter", Button, Shift, x, y); }

} // namespace vex::activex
