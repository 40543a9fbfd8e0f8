#include "registration.h"

#include <oleauto.h>
#include <olectl.h>

#include "container_host.h"
#include "property_pages.h"
#include "typelib_ids.h"

namespace vex::activex {

namespace {

std::wstring Braced(const char* guid) { return L"{" + Wide(guid) + L"}"; }

std::wstring ClassKey() { return L"CLSID\\" + Braced(kClassId); }

// Writes key\value (the default value when name is empty) under HKEY_CLASSES_ROOT.
bool Write(const std::wstring& key, const std::wstring& name, const std::wstring& value)
{
    HKEY handle = nullptr;
    if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr) != ERROR_SUCCESS)
        return false;
    LSTATUS status = RegSetValueExW(handle, name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
        reinterpret_cast<const BYTE*>(value.c_str()), static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(handle);
    return status == ERROR_SUCCESS;
}

void Remove(const std::wstring& key) { RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str()); }

} // namespace

HRESULT RegisterServer(const std::wstring& modulePath)
{
    const std::wstring classKey = ClassKey();
    const std::wstring description = Wide(kClassName) + L" Control";
    const std::wstring classId = Braced(kClassId);
    const std::wstring progId = Wide(kProgId);
    const std::wstring versioned = Wide(kVersionedProgId);
    const bool written = Write(classKey, L"", description)
        && Write(classKey + L"\\InprocServer32", L"", modulePath)
        && Write(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment")
        && Write(classKey + L"\\ProgID", L"", versioned)
        && Write(classKey + L"\\VersionIndependentProgID", L"", progId)
        && Write(classKey + L"\\Control", L"", L"")
        && Write(classKey + L"\\MiscStatus", L"", L"0")
        && Write(classKey + L"\\MiscStatus\\1", L"", std::to_wstring(kMiscStatus))
        && Write(classKey + L"\\ToolboxBitmap32", L"", modulePath + L", " + std::to_wstring(kToolboxBitmap))
        && Write(classKey + L"\\TypeLib", L"", Braced(kLibraryId))
        && Write(classKey + L"\\Version", L"", Wide(kLibraryVersion))
        && Write(progId, L"", description)
        && Write(progId + L"\\CLSID", L"", classId)
        && Write(progId + L"\\CurVer", L"", versioned)
        && Write(versioned, L"", description)
        && Write(versioned + L"\\CLSID", L"", classId)
        && RegisterPages(modulePath);
    if (!written) {
        UnregisterServer();
        return SELFREG_E_CLASS;
    }
    ITypeLib* library = nullptr;
    HRESULT status = LoadTypeLibEx(modulePath.c_str(), REGKIND_REGISTER, &library);
    if (FAILED(status)) {
        UnregisterServer();
        return SELFREG_E_TYPELIB;
    }
    library->Release();
    return S_OK;
}

HRESULT UnregisterServer()
{
    Remove(ClassKey());
    Remove(Wide(kProgId));
    Remove(Wide(kVersionedProgId));
    UnregisterPages();
    GUID library {};
    std::wstring braced = Braced(kLibraryId);
    if (SUCCEEDED(CLSIDFromString(braced.c_str(), &library)))
        UnRegisterTypeLib(library, kLibraryMajor, kLibraryMinor, LOCALE_NEUTRAL, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    return S_OK;
}

} // namespace vex::activex
