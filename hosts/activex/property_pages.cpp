// The property pages as COM objects: their classes and factories, the selection, Apply and the
// registration. The window with the editors is in property_page_window.cpp.
#include <initguid.h>

#include "property_pages.h"

#include <msstkppg.h>
#include <olectl.h>

#include <array>

#include "base/runtime_error.h"
#include "com_errors.h"
#include "com_panel.h"
#include "container_host.h"
#include "module.h"
#include "page_ids.h"
#include "pages/image_page.h"
#include "pages/page_tables.h"
#include "platform/win32/surface.h"

namespace vex::activex {

namespace {

GUID ParseGuid(const char* text)
{
    GUID guid {};
    std::wstring braced = L"{" + Wide(text) + L"}";
    CLSIDFromString(braced.c_str(), &guid);
    return guid;
}

// The class of each page in the order the control declares them.
std::array<GUID, std::size(kPageClasses)> PageClassIds()
{
    std::array<GUID, std::size(kPageClasses)> ids {};
    for (size_t i = 0; i < ids.size(); ++i) {
        const std::string_view page = kPageClasses[i].page;
        ids[i] = kPageClasses[i].classId ? ParseGuid(kPageClasses[i].classId)
            : page == "StandardColor"    ? CLSID_StockColorPage
                                         : CLSID_StockFontPage;
    }
    return ids;
}

// The server's own page of this class, or nullptr.
const pages::PageSpec* OwnPage(REFCLSID classId)
{
    for (const PageClass& page : kPageClasses)
        if (page.classId && ParseGuid(page.classId) == classId)
            return pages::FindPage(page.page);
    return nullptr;
}


std::wstring ClassKey(const char* classId) { return L"CLSID\\{" + Wide(classId) + L"}"; }

} // namespace

// ---- The pages the control declares -----------------------------------------------------------------

HRESULT SpecifyPages(CAUUID* pages)
{
    if (!pages)
        return E_POINTER;
    const auto ids = PageClassIds();
    pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof(GUID) * ids.size()));
    if (!pages->pElems) {
        pages->cElems = 0;
        return E_OUTOFMEMORY;
    }
    pages->cElems = static_cast<ULONG>(ids.size());
    std::copy(ids.begin(), ids.end(), pages->pElems);
    return S_OK;
}

HRESULT ComPanel::GetPages(CAUUID* pages) { return SpecifyPages(pages); }

HRESULT ShowPropertyPages(IUnknown* control, HWND owner, const std::wstring& caption)
{
    CAUUID pages {};
    HRESULT status = SpecifyPages(&pages);
    if (FAILED(status))
        return status;
    status = OleCreatePropertyFrame(owner, 0, 0, caption.c_str(), 1, &control, pages.cElems, pages.pElems,
        GetUserDefaultLCID(), 0, nullptr);
    CoTaskMemFree(pages.pElems);
    return status;
}

HRESULT GetPageClassObject(REFCLSID classId, REFIID iid, void** object)
{
    // One factory per page class; like the control's, it lives as long as the module.
    static std::vector<ModuleClassFactory> factories = [] {
        std::vector<ModuleClassFactory> made;
        for (const PageClass& page : kPageClasses)
            if (page.classId)
                made.emplace_back([classId = ParseGuid(page.classId)](REFIID iid, void** object) {
                    return PropertyPageObject::CreateFor(classId, iid, object);
                });
        return made;
    }();
    size_t index = 0;
    for (const PageClass& page : kPageClasses) {
        if (!page.classId)
            continue;
        if (ParseGuid(page.classId) == classId)
            return factories[index].QueryInterface(iid, object);
        ++index;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

bool RegisterPages(const std::wstring& modulePath)
{
    const auto write = [](const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(),
                   static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)))
            == ERROR_SUCCESS;
    };
    for (const PageClass& page : kPageClasses) {
        if (!page.classId)
            continue;
        const std::wstring key = ClassKey(page.classId);
        const std::wstring description = L"VexPanel " + Wide(pages::FindPage(page.page)->caption) + L" Page";
        if (!write(key, nullptr, description) || !write(key + L"\\InprocServer32", nullptr, modulePath)
            || !write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"))
            return false;
    }
    return true;
}

void UnregisterPages()
{
    for (const PageClass& page : kPageClasses)
        if (page.classId)
            RegDeleteTreeW(HKEY_CLASSES_ROOT, ClassKey(page.classId).c_str());
}

// ---- The page object -----------------------------------------------------------------------------

HRESULT PropertyPageObject::CreateFor(REFCLSID classId, REFIID iid, void** object)
{
    *object = nullptr;
    const pages::PageSpec* spec = OwnPage(classId);
    if (!spec)
        return CLASS_E_CLASSNOTAVAILABLE;
    PropertyPageObject* page = nullptr;
    HRESULT status = Guard([&] { page = new PropertyPageObject(*spec); });
    if (FAILED(status))
        return status;
    status = page->QueryInterface(iid, object);
    page->Release();
    return status;
}

PropertyPageObject::PropertyPageObject(const pages::PageSpec& spec)
    : model_(pages::CreatePage(spec))
{
    model_->Initialize();
    if (auto* image = dynamic_cast<pages::ImagePage*>(model_.get())) {
        reference_ = platform::win32::CreateSurface(1, 1);
        image->SetReferenceContext(reference_.get());
    }
    ObjectCreated();
}

PropertyPageObject::~PropertyPageObject()
{
    if (window_)
        DestroyWindow(window_);
    ReleaseObjects();
    if (site_)
        site_->Release();
    ObjectDestroyed();
}

HRESULT PropertyPageObject::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IPropertyPage) {
        *object = static_cast<IPropertyPage*>(this);
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

ULONG PropertyPageObject::AddRef() { return ++references_; }

ULONG PropertyPageObject::Release()
{
    ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT PropertyPageObject::SetPageSite(IPropertyPageSite* site)
{
    if (site)
        site->AddRef();
    if (site_)
        site_->Release();
    site_ = site;
    return S_OK;
}

HRESULT PropertyPageObject::GetPageInfo(PROPPAGEINFO* info)
{
    if (!info)
        return E_POINTER;
    const std::wstring title = Wide(model_->spec().caption);
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc((title.size() + 1) * sizeof(wchar_t)));
    if (!copy)
        return E_OUTOFMEMORY;
    std::copy(title.c_str(), title.c_str() + title.size() + 1, copy);
    info->cb = sizeof(PROPPAGEINFO);
    info->pszTitle = copy;
    info->size = PageSize();
    info->pszDocString = nullptr;
    info->pszHelpFile = nullptr;
    info->dwHelpContext = 0;
    return S_OK;
}

void PropertyPageObject::ReleaseObjects()
{
    for (IUnknown* object : objects_)
        object->Release();
    objects_.clear();
}

HRESULT PropertyPageObject::SetObjects(ULONG count, IUnknown** objects)
{
    if (count && !objects)
        return E_POINTER;
    return Guard([&] {
        std::vector<control::VexPanel*> selection;
        std::vector<IUnknown*> kept;
        for (ULONG i = 0; i < count; ++i) {
            void* found = nullptr;
            if (objects[i] && SUCCEEDED(objects[i]->QueryInterface(kPanelObjectId, &found))) {
                auto* panel = static_cast<ComPanel*>(static_cast<_VexPanel*>(found));
                kept.push_back(static_cast<_VexPanel*>(panel)); // the reference QueryInterface took
                selection.push_back(&panel->panel());
            }
        }
        ReleaseObjects();
        objects_ = std::move(kept);
        model_->SelectionChanged(selection);
        if (window_)
            ShowModel();
    });
}

HRESULT PropertyPageObject::IsPageDirty() { return model_->Changed() ? S_OK : S_FALSE; }

HRESULT PropertyPageObject::Apply()
{
    try {
        model_->ApplyChanges();
        return S_OK;
    } catch (const RuntimeError& error) {
        ShowError(error.number(), error.description());
        return ReportError(error.number(), error.description());
    } catch (...) {
        return ReportCurrentException();
    }
}

} // namespace vex::activex
