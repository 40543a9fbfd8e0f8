// Checks the control's type library and registration from the Windows side:
//     activex-check typelib SERVER        the library in SERVER, loaded back, against the tables
//     activex-check registered SERVER     every key of the registration (the property pages' classes
//                                         too), pointing at SERVER
//     activex-check unregistered          none of them left
// Prints one line per difference and exits 1 when there is any.
#include <windows.h>
#include <oleauto.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "model/dispatch_ids.h"
#include "model/enum_names.h"
#include "model/property_table.h"
#include "page_ids.h"
#include "typelib_ids.h"

#include "check.h"

namespace {

using namespace vex::model;
using vex::activex::LibraryName;
using namespace vex::activex::test;

std::string NameOf(ITypeInfo* info, MEMBERID id = MEMBERID_NIL, std::string* help = nullptr)
{
    BSTR name = nullptr, doc = nullptr;
    info->GetDocumentation(id, &name, &doc, nullptr, nullptr);
    std::string result = Narrow(name);
    if (help)
        *help = Narrow(doc);
    SysFreeString(name);
    SysFreeString(doc);
    return result;
}

// The type of a parameter or result as the library names it: "short", "BSTR", "TypeAppearance*".
std::string TypeName(ITypeInfo* info, const TYPEDESC& type)
{
    switch (type.vt) {
    case VT_UI1: return "unsigned char";
    case VT_BOOL: return "VARIANT_BOOL";
    case VT_I2: return "short";
    case VT_I4: return "long";
    case VT_R4: return "float";
    case VT_BSTR: return "BSTR";
    case VT_VARIANT: return "VARIANT";
    case VT_PTR: return TypeName(info, *type.lptdesc) + "*";
    case VT_USERDEFINED: {
        ITypeInfo* referenced = nullptr;
        if (FAILED(info->GetRefTypeInfo(type.hreftype, &referenced)))
            return "?";
        std::string name = NameOf(referenced);
        TYPEATTR* attributes = nullptr;
        referenced->GetTypeAttr(&attributes);
        // A colour is the alias under the standard colour GUID, which containers look for.
        GUID colour { 0x66504301, 0xBE0F, 0x101A, { 0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB } };
        if (name == "OLE_COLOR" && (attributes->typekind != TKIND_ALIAS || attributes->guid != colour))
            name = "OLE_COLOR without the colour GUID";
        referenced->ReleaseTypeAttr(attributes);
        referenced->Release();
        return name;
    }
    default: return "vt" + std::to_string(type.vt);
    }
}

std::string Expected(ValueKind kind, std::string_view enumeration)
{
    switch (kind) {
    case ValueKind::Byte: return "unsigned char";
    case ValueKind::Boolean: return "VARIANT_BOOL";
    case ValueKind::Int16: return "short";
    case ValueKind::Int32: return "long";
    case ValueKind::Single: return "float";
    case ValueKind::Colour: return "OLE_COLOR";
    case ValueKind::String: return "BSTR";
    case ValueKind::Enumeration: return std::string(enumeration);
    case ValueKind::Font: return "IFontDisp*";
    case ValueKind::Picture: return "IPictureDisp*";
    }
    return "?";
}

ITypeInfo* TypeNamed(ITypeLib* library, const std::string& name)
{
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ITypeInfo* info = nullptr;
        library->GetTypeInfo(i, &info);
        if (NameOf(info) == name)
            return info;
        info->Release();
    }
    Fail("no type %s in the library", name.c_str());
    return nullptr;
}

struct Function {
    std::string name;
    MEMBERID id;
    INVOKEKIND kind;
    WORD flags;
    std::vector<std::string> parameterTypes;
    std::vector<USHORT> parameterFlags;
    std::string result;
};

std::vector<Function> FunctionsOf(ITypeInfo* info)
{
    std::vector<Function> functions;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* description = nullptr;
        info->GetFuncDesc(i, &description);
        Function function;
        function.name = NameOf(info, description->memid);
        function.id = description->memid;
        function.kind = description->invkind;
        function.flags = description->wFuncFlags;
        for (SHORT p = 0; p < description->cParams; ++p) {
            function.parameterTypes.push_back(TypeName(info, description->lprgelemdescParam[p].tdesc));
            function.parameterFlags.push_back(description->lprgelemdescParam[p].paramdesc.wParamFlags);
        }
        function.result = TypeName(info, description->elemdescFunc.tdesc);
        functions.push_back(function);
        info->ReleaseFuncDesc(description);
    }
    info->ReleaseTypeAttr(attributes);
    return functions;
}

// Parameter names of the function at index (GetNames on a property returns the getter's).
std::vector<std::string> ParameterNames(ITypeInfo* info, UINT index)
{
    FUNCDESC* description = nullptr;
    info->GetFuncDesc(index, &description);
    BSTR names[8] {};
    UINT count = 0;
    info->GetNames(description->memid, names, 8, &count);
    std::vector<std::string> result;
    for (UINT n = 1; n < count; ++n)
        result.push_back(Narrow(names[n]));
    for (UINT n = 0; n < count; ++n)
        SysFreeString(names[n]);
    info->ReleaseFuncDesc(description);
    return result;
}

void CheckInterface(ITypeLib* library)
{
    ITypeInfo* info = TypeNamed(library, "_VexPanel");
    if (!info)
        return;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    if (attributes->typekind != TKIND_DISPATCH && attributes->typekind != TKIND_INTERFACE)
        Fail("_VexPanel is of kind %d", attributes->typekind);
    if (!(attributes->wTypeFlags & TYPEFLAG_FDUAL))
        Fail("_VexPanel is not dual");
    info->ReleaseTypeAttr(attributes);
    // The dual interface's vtable view holds the accessors in declaration order.
    HREFTYPE vtable = 0;
    ITypeInfo* functionsInfo = info;
    if (SUCCEEDED(info->GetRefTypeOfImplType(-1, &vtable)))
        info->GetRefTypeInfo(vtable, &functionsInfo);
    std::vector<Function> functions = FunctionsOf(functionsInfo);

    size_t at = 0;
    auto next = [&](const std::string& name, INVOKEKIND kind) -> const Function* {
        if (at >= functions.size() || functions[at].name != name || functions[at].kind != kind) {
            Fail("expected %s (%d) at function %zu, found %s", name.c_str(), kind, at,
                at < functions.size() ? functions[at].name.c_str() : "the end");
            return nullptr;
        }
        return &functions[at++];
    };
    for (const DispatchMember& member : InterfaceMembers()) {
        if (member.kind == MemberKind::Method) {
            const Function* function = next(std::string(member.name), INVOKE_FUNC);
            if (!function)
                return;
            if (function->id != member.dispid)
                Fail("%s has id %ld", function->name.c_str(), function->id);
            size_t expected = member.parameters.size() + (member.returnsVariant ? 1 : 0);
            if (function->parameterTypes.size() != expected)
                Fail("%s has %zu parameters", function->name.c_str(), function->parameterTypes.size());
            for (size_t p = 0; p < member.parameters.size() && p < function->parameterTypes.size(); ++p)
                if (function->parameterTypes[p] != Expected(member.parameters[p].kind, {}))
                    Fail("%s parameter %zu is %s", function->name.c_str(), p, function->parameterTypes[p].c_str());
            if (member.returnsVariant && function->parameterTypes.back() != "VARIANT*")
                Fail("%s returns %s", function->name.c_str(), function->parameterTypes.back().c_str());
            continue;
        }
        const PropertyInfo& property = *FindProperty(member.name);
        const std::string type = Expected(property.kind, property.enumeration);
        WORD flags = 0;
        if (property.Has(Hidden))
            flags |= FUNCFLAG_FHIDDEN;
        if (property.Has(NotBrowsable))
            flags |= FUNCFLAG_FNONBROWSABLE;
        if (property.Has(Bindable))
            flags |= FUNCFLAG_FBINDABLE;
        if (property.Has(DefaultBind))
            flags |= FUNCFLAG_FDEFAULTBIND;
        std::vector<INVOKEKIND> kinds { INVOKE_PROPERTYGET };
        if (!member.readOnly)
            kinds.push_back(property.Has(ByRef) ? INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT);
        for (INVOKEKIND kind : kinds) {
            const Function* function = next(std::string(member.name), kind);
            if (!function)
                return;
            if (function->id != member.dispid)
                Fail("%s has id %ld, the table %ld", function->name.c_str(), function->id, static_cast<long>(member.dispid));
            if ((function->flags & (FUNCFLAG_FHIDDEN | FUNCFLAG_FNONBROWSABLE | FUNCFLAG_FBINDABLE | FUNCFLAG_FDEFAULTBIND)) != flags)
                Fail("%s has flags %#x, the table %#x", function->name.c_str(), function->flags, flags);
            std::string got = function->parameterTypes.empty() ? "none" : function->parameterTypes[0];
            std::string want = kind == INVOKE_PROPERTYGET ? type + "*" : type;
            if (got != want)
                Fail("%s (%d) takes %s, the table %s", function->name.c_str(), kind, got.c_str(), want.c_str());
        }
    }
    if (at != functions.size())
        Fail("%zu functions more than the table's", functions.size() - at);
    if (functionsInfo != info)
        functionsInfo->Release();
    info->Release();
}

void CheckEnumerations(ITypeLib* library)
{
    for (const EnumInfo& enumeration : Enumerations()) {
        ITypeInfo* info = TypeNamed(library, std::string(enumeration.name));
        if (!info)
            continue;
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        if (attributes->typekind != TKIND_ENUM || attributes->cVars != enumeration.members.size())
            Fail("%s: kind %d with %d members", NameOf(info).c_str(), attributes->typekind, attributes->cVars);
        for (UINT i = 0; i < attributes->cVars && i < enumeration.members.size(); ++i) {
            VARDESC* variable = nullptr;
            info->GetVarDesc(i, &variable);
            std::string help;
            std::string name = NameOf(info, variable->memid, &help);
            const EnumMember& member = enumeration.members[i];
            if (name != LibraryName(member.name))
                Fail("%s member %u is \"%s\", not \"%s\"", NameOf(info).c_str(), i, name.c_str(), LibraryName(member.name).c_str());
            if (help != member.name)
                Fail("%s member %s has help \"%s\"", NameOf(info).c_str(), name.c_str(), help.c_str());
            std::wstring wide = Wide(name);
            ITypeInfo* owners[2] {};
            MEMBERID ids[2] {};
            USHORT found = 2;
            bool here = false;
            if (SUCCEEDED(library->FindName(wide.data(), 0, owners, ids, &found)))
                for (USHORT k = 0; k < found; ++k) {
                    here = here || (NameOf(owners[k]) == NameOf(info) && ids[k] == variable->memid);
                    owners[k]->Release();
                }
            if (!here)
                Fail("FindName does not find %s of %s", name.c_str(), NameOf(info).c_str());
            VARIANT value;
            VariantInit(&value);
            if (variable->varkind != VAR_CONST || FAILED(VariantChangeType(&value, variable->lpvarValue, 0, VT_I4))
                || V_I4(&value) != member.value)
                Fail("%s member %s has another value", NameOf(info).c_str(), name.c_str());
            info->ReleaseVarDesc(variable);
        }
        info->ReleaseTypeAttr(attributes);
        info->Release();
    }
}

void CheckEvents(ITypeLib* library)
{
    ITypeInfo* info = TypeNamed(library, "__VexPanel");
    if (!info)
        return;
    std::vector<Function> functions = FunctionsOf(info);
    std::span<const DispatchMember> events = EventMembers();
    if (functions.size() != events.size())
        Fail("__VexPanel has %zu events", functions.size());
    for (size_t i = 0; i < functions.size() && i < events.size(); ++i) {
        const DispatchMember& event = events[i];
        const Function& function = functions[i];
        if (function.name != event.name || function.id != event.dispid)
            Fail("event %zu is %s (%ld)", i, function.name.c_str(), function.id);
        std::vector<std::string> names = ParameterNames(info, static_cast<UINT>(i));
        if (function.parameterTypes.size() != event.parameters.size() || names.size() != event.parameters.size()) {
            Fail("%s has %zu parameters", function.name.c_str(), function.parameterTypes.size());
            continue;
        }
        for (size_t p = 0; p < event.parameters.size(); ++p) {
            const Parameter& parameter = event.parameters[p];
            if (names[p] != parameter.name || function.parameterTypes[p] != Expected(parameter.kind, {}) + "*"
                || (function.parameterFlags[p] & (PARAMFLAG_FIN | PARAMFLAG_FOUT)) != (PARAMFLAG_FIN | PARAMFLAG_FOUT))
                Fail("%s parameter %zu is %s %s", function.name.c_str(), p, function.parameterTypes[p].c_str(), names[p].c_str());
        }
    }
    info->Release();
}

void CheckClass(ITypeLib* library)
{
    ITypeInfo* info = nullptr;
    if (FAILED(library->GetTypeInfoOfGuid(ParseGuid(vex::activex::kClassId), &info))) {
        Fail("no class %s", vex::activex::kClassId);
        return;
    }
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    if (attributes->typekind != TKIND_COCLASS || !(attributes->wTypeFlags & TYPEFLAG_FCONTROL) || attributes->cImplTypes != 2)
        Fail("the class: kind %d, flags %#x, %d interfaces", attributes->typekind, attributes->wTypeFlags, attributes->cImplTypes);
    const char* names[] = { "_VexPanel", "__VexPanel" };
    const int flags[] = { IMPLTYPEFLAG_FDEFAULT, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE };
    for (UINT i = 0; i < attributes->cImplTypes && i < 2; ++i) {
        HREFTYPE reference = 0;
        INT implFlags = 0;
        ITypeInfo* implemented = nullptr;
        info->GetRefTypeOfImplType(i, &reference);
        info->GetImplTypeFlags(i, &implFlags);
        info->GetRefTypeInfo(reference, &implemented);
        if (NameOf(implemented) != names[i] || implFlags != flags[i])
            Fail("the class's interface %u is %s with flags %d", i, NameOf(implemented).c_str(), implFlags);
        implemented->Release();
    }
    if (NameOf(info) != vex::activex::kClassName)
        Fail("the class is called %s", NameOf(info).c_str());
    info->ReleaseTypeAttr(attributes);
    info->Release();
}

// What the system's own lookup needs (ITypeComp::Bind and FindName on Windows; Wine's finds names
// without it): each member's name in the name bucket of its hash (LHashValOfNameSys, low seven
// bits), its entry carrying that hash. Read from the server's TYPELIB resource.
void CheckNameHashes(const wchar_t* server, SYSKIND syskind, LCID locale)
{
    HMODULE module = LoadLibraryExW(server, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HRSRC resource = module ? FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB") : nullptr;
    HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
    const auto* bytes = loaded ? static_cast<const uint8_t*>(LockResource(loaded)) : nullptr;
    const size_t size = resource ? SizeofResource(module, resource) : 0;
    auto field = [&](int64_t at) {
        int32_t value = -1;
        if (bytes && at >= 0 && static_cast<size_t>(at) + 4 <= size)
            std::memcpy(&value, bytes + at, 4);
        return value;
    };
    const int64_t directory = 0x54 + ((field(0x14) & 0x100) ? 4 : 0) + 4 * int64_t { field(0x20) };
    const int64_t buckets = field(directory + 16 * 6), names = field(directory + 16 * 7);
    for (const EnumInfo& enumeration : Enumerations())
        for (const EnumMember& member : enumeration.members) {
            const std::string name = LibraryName(member.name);
            const ULONG hash = LHashValOfNameSysA(syskind, locale, name.c_str());
            bool found = false;
            for (int32_t at = field(buckets + 4 * (hash & 0x7F)), steps = 0; at >= 0 && !found && steps < 10000;
                 at = field(names + at + 4), ++steps) {
                const int32_t length = field(names + at + 8);
                found = (length >> 16 & 0xFFFF) == static_cast<int32_t>(hash & 0xFFFF) && (length & 0xFF) == static_cast<int32_t>(name.size())
                    && static_cast<size_t>(names + at + 12) + name.size() <= size
                    && std::memcmp(bytes + names + at + 12, name.data(), name.size()) == 0;
            }
            if (!found)
                Fail("%s of %s is not in the name bucket of its hash", name.c_str(), std::string(enumeration.name).c_str());
        }
    if (module)
        FreeLibrary(module);
}

int CheckTypeLibrary(const wchar_t* server)
{
    ITypeLib* library = nullptr;
    HRESULT status = LoadTypeLibEx(server, REGKIND_NONE, &library);
    if (FAILED(status)) {
        Fail("LoadTypeLibEx: %#lx", static_cast<unsigned long>(status));
        return 1;
    }
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    BSTR name = nullptr;
    library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
    if (Narrow(name) != "Vex_Panel" || attributes->guid != ParseGuid(vex::activex::kLibraryId)
        || attributes->wMajorVerNum != vex::activex::kLibraryMajor || attributes->wMinorVerNum != vex::activex::kLibraryMinor)
        Fail("the library is %s %d.%d", Narrow(name).c_str(), attributes->wMajorVerNum, attributes->wMinorVerNum);
    std::printf("library %s, %s\n", Narrow(name).c_str(), attributes->syskind == SYS_WIN64 ? "win64" : "win32");
    SysFreeString(name);
    CheckNameHashes(server, attributes->syskind, attributes->lcid);
    library->ReleaseTLibAttr(attributes);
    CheckInterface(library);
    CheckEnumerations(library);
    CheckEvents(library);
    CheckClass(library);
    library->Release();
    return Status();
}

// ---- Registration -----------------------------------------------------------------------------

std::wstring Braced(const char* guid) { return L"{" + Wide(guid) + L"}"; }

bool Read(const std::wstring& key, const wchar_t* value, std::wstring* out)
{
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS)
        return false;
    wchar_t buffer[1024] {};
    DWORD size = sizeof buffer - sizeof(wchar_t);
    LSTATUS status = RegQueryValueExW(handle, value, nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &size);
    RegCloseKey(handle);
    if (out)
        *out = buffer;
    return status == ERROR_SUCCESS;
}

struct Key {
    std::wstring key;
    const wchar_t* value; // nullptr: the default value
    std::wstring expected; // empty: only that the key exists
};

std::vector<Key> Registration(const std::wstring& server)
{
    const std::wstring classKey = L"CLSID\\" + Braced(vex::activex::kClassId);
    const std::wstring progId = Wide(vex::activex::kProgId);
    const std::wstring versioned = Wide(vex::activex::kVersionedProgId);
    const std::wstring library = L"TypeLib\\" + Braced(vex::activex::kLibraryId);
    std::vector<Key> keys = {
        { classKey + L"\\InprocServer32", nullptr, server },
        { classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment" },
        { classKey + L"\\ProgID", nullptr, versioned },
        { classKey + L"\\VersionIndependentProgID", nullptr, progId },
        { classKey + L"\\Control", nullptr, L"" },
        { classKey + L"\\MiscStatus\\1", nullptr, L"131473" },
        { classKey + L"\\ToolboxBitmap32", nullptr, server + L", 101" },
        { classKey + L"\\TypeLib", nullptr, Braced(vex::activex::kLibraryId) },
        { classKey + L"\\Version", nullptr, Wide(vex::activex::kLibraryVersion) },
        { progId + L"\\CLSID", nullptr, Braced(vex::activex::kClassId) },
        { progId + L"\\CurVer", nullptr, versioned },
        { versioned + L"\\CLSID", nullptr, Braced(vex::activex::kClassId) },
        { library + L"\\1.0", nullptr, L"" },
        { L"Interface\\" + Braced(vex::activex::kInterfaceId), nullptr, L"" },
        { L"Interface\\" + Braced(vex::activex::kEventsId), nullptr, L"" },
    };
    for (const vex::activex::PageClass& page : vex::activex::kPageClasses) {
        if (!page.classId)
            continue;
        keys.push_back({ L"CLSID\\" + Braced(page.classId) + L"\\InprocServer32", nullptr, server });
        keys.push_back({ L"CLSID\\" + Braced(page.classId) + L"\\InprocServer32", L"ThreadingModel", L"Apartment" });
    }
    return keys;
}

bool Exists(const std::wstring& key)
{
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS)
        return false;
    RegCloseKey(handle);
    return true;
}

int CheckRegistered(const std::wstring& server)
{
    for (const Key& key : Registration(server)) {
        std::wstring value;
        if (!Exists(key.key))
            Fail("missing key %ls", key.key.c_str());
        else if (!key.expected.empty() && (!Read(key.key, key.value, &value) || _wcsicmp(value.c_str(), key.expected.c_str()) != 0))
            Fail("%ls %ls is \"%ls\", not \"%ls\"", key.key.c_str(), key.value ? key.value : L"(default)", value.c_str(),
                key.expected.c_str());
    }
    return Status();
}

int CheckUnregistered()
{
    std::vector<std::wstring> keys = { L"CLSID\\" + Braced(vex::activex::kClassId), Wide(vex::activex::kProgId),
        Wide(vex::activex::kVersionedProgId), L"TypeLib\\" + Braced(vex::activex::kLibraryId),
        L"Interface\\" + Braced(vex::activex::kInterfaceId), L"Interface\\" + Braced(vex::activex::kEventsId) };
    for (const vex::activex::PageClass& page : vex::activex::kPageClasses)
        if (page.classId)
            keys.push_back(L"CLSID\\" + Braced(page.classId));
    for (const std::wstring& key : keys)
        if (Exists(key))
            Fail("%ls is still there", key.c_str());
    return Status();
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    CoInitialize(nullptr);
    std::wstring mode = argc > 1 ? argv[1] : L"";
    int status = 2;
    if (mode == L"typelib" && argc == 3)
        status = CheckTypeLibrary(argv[2]);
    else if (mode == L"registered" && argc == 3)
        status = CheckRegistered(argv[2]);
    else if (mode == L"unregistered")
        status = CheckUnregistered();
    else
        std::printf("usage: activex-check typelib|registered SERVER, or activex-check unregistered\n");
    if (status == 0)
        std::printf("PASS %ls\n", mode.c_str());
    CoUninitialize();
    return status;
}
