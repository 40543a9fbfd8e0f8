#pragma once
// The server module: its instance, the count of live objects and locks (DllCanUnloadNow), and
// the type library it carries.

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>

namespace vex::activex {

HINSTANCE ModuleInstance();
std::wstring ModulePath();
void ObjectCreated();
void ObjectDestroyed();

// A class factory that lives as long as the module (AddRef and Release count nothing) and makes
// its class's objects with `create`; a lock keeps the module loaded.
class ModuleClassFactory final : public IClassFactory {
public:
    using Create = std::function<HRESULT(REFIID iid, void** object)>;
    explicit ModuleClassFactory(Create create) : create_(std::move(create)) { }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    Create create_;
};

// The type information of one of the library's types (loaded from the module once), or an
// error HRESULT.
HRESULT TypeInfoOf(REFGUID guid, ITypeInfo** info);

} // namespace vex::activex
