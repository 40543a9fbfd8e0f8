// The server's entry points: DllGetClassObject with the class factories of VexPanel and its
// property pages, DllCanUnloadNow, DllRegisterServer and DllUnregisterServer (registration.cpp).
#include <initguid.h>

#include "module.h"

#include <atomic>

#include "com_errors.h"
#include "com_panel.h"
#include "property_pages.h"
#include "registration.h"

namespace vex::activex {

namespace {

HINSTANCE gInstance = nullptr;
std::atomic<long> gObjects { 0 };
std::atomic<long> gLocks { 0 };

ModuleClassFactory gFactory { &ComPanel::Create };

} // namespace

HINSTANCE ModuleInstance() { return gInstance; }

HRESULT ModuleClassFactory::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IClassFactory) {
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

HRESULT ModuleClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    return create_(iid, object);
}

HRESULT ModuleClassFactory::LockServer(BOOL lock)
{
    lock ? ++gLocks : --gLocks;
    return S_OK;
}

std::wstring ModulePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        DWORD length = GetModuleFileNameW(gInstance, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void ObjectCreated() { ++gObjects; }
void ObjectDestroyed() { --gObjects; }

HRESULT TypeInfoOf(REFGUID guid, ITypeInfo** info)
{
    *info = nullptr;
    static ITypeLib* library = nullptr; // loaded once, kept for the module's life
    if (!library) {
        HRESULT status = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library);
        if (FAILED(status))
            return status;
    }
    return library->GetTypeInfoOfGuid(guid, info);
}

} // namespace vex::activex

using namespace vex::activex;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        gInstance = instance;
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_VexPanel)
        return GetPageClassObject(classId, iid, object);
    return gFactory.QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow() { return gObjects == 0 && gLocks == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer()
{
    HRESULT status = S_OK;
    HRESULT guarded = Guard([&] { status = RegisterServer(ModulePath()); });
    return FAILED(guarded) ? guarded : status;
}

STDAPI DllUnregisterServer()
{
    HRESULT status = S_OK;
    HRESULT guarded = Guard([&] { status = UnregisterServer(); });
    return FAILED(guarded) ? guarded : status;
}
