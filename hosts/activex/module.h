#pragma once
// The server module: its instance, the count of live objects and locks (DllCanUnloadNow), and
// the type library it carries.

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace vex::activex {

HINSTANCE ModuleInstance();
std::wstring ModulePath();
void ObjectCreated();
void ObjectDestroyed();

// The type information of one of the library's types (loaded from the module once), or an
// error HRESULT.
HRESULT TypeInfoOf(REFGUID guid, ITypeInfo** info);

} // namespace vex::activex
