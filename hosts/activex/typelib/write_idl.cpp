// Writes the type library's source, Vex_Panel.idl, from the property table, the dispatch table and
// the enumerations: the control's automation interface is stated once, in src/model, and the
// type library follows it. Built for the build machine and run while the Windows side builds:
//     write-idl OUTPUT.idl
//
// The IDL compiler takes identifiers only, and no help strings on enumeration members: a member
// whose published name is no identifier (or repeats one of another enumeration) is written under
// a stand-in identifier, and the finishing step (finish_typelib.cpp) gives every member its
// published name and its help string in the compiled library.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <string>

#include "model/dispatch_ids.h"
#include "model/enum_names.h"
#include "model/property_table.h"
#include "typelib_ids.h"

namespace {

using namespace vex::model;
using namespace vex::activex;

std::string IdlType(ValueKind kind, std::string_view enumeration)
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

std::string Id(int32_t dispid)
{
    char text[32];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<uint32_t>(dispid));
    return text;
}

void WriteEnumerations(std::ostream& out)
{
    std::set<std::string_view> used;
    for (const EnumInfo& info : Enumerations()) {
        out << "    typedef enum " << info.name << " {\n";
        for (const EnumMember& member : info.members) {
            const bool plain = IsIdentifier(member.name) && used.insert(member.name).second;
            out << "        " << (plain ? std::string(member.name) : StandIn(info.name, member.identifier)) << " = "
                << member.value << (&member == &info.members.back() ? "\n" : ",\n");
        }
        out << "    } " << info.name << ";\n\n";
    }
}

void WriteProperty(std::ostream& out, const DispatchMember& member)
{
    const PropertyInfo& info = *FindProperty(member.name);
    std::string attributes = "id(" + Id(member.dispid) + ")";
    if (info.Has(Hidden))
        attributes += ", hidden";
    if (info.Has(NotBrowsable))
        attributes += ", nonbrowsable";
    if (info.Has(Bindable))
        attributes += ", bindable";
    if (info.Has(DefaultBind))
        attributes += ", defaultbind";
    const std::string type = IdlType(info.kind, info.enumeration);
    out << "        [" << attributes << ", propget] HRESULT " << info.name << "([out, retval] " << type
        << "* value);\n";
    if (member.readOnly)
        return;
    out << "        [" << attributes << (info.Has(ByRef) ? ", propputref" : ", propput") << "] HRESULT " << info.name
        << "([in] " << type << " value);\n";
}

void WriteMethod(std::ostream& out, const DispatchMember& member)
{
    out << "        [id(" << Id(member.dispid) << ")] HRESULT " << member.name << "(";
    const char* separator = "";
    for (const Parameter& parameter : member.parameters) {
        out << separator << "[in] " << IdlType(parameter.kind, {}) << " " << parameter.name;
        separator = ", ";
    }
    if (member.returnsVariant)
        out << separator << "[out, retval] VARIANT* result";
    out << ");\n";
}

void WriteEvent(std::ostream& out, const DispatchMember& member)
{
    out << "        [id(" << member.dispid << ")] void " << member.name << "(";
    const char* separator = "";
    for (const Parameter& parameter : member.parameters) {
        out << separator << "[in, out] " << IdlType(parameter.kind, {}) << "* " << parameter.name;
        separator = ", ";
    }
    out << ");\n";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: write-idl OUTPUT.idl\n";
        return 2;
    }
    std::ostringstream out;
    out << "// Vex_Panel: written by write-idl from the property table (src/model); do not edit.\n"
           "import \"oaidl.idl\";\n"
           "import \"ocidl.idl\";\n\n"
        << "[uuid(" << kLibraryId << "), version(" << kLibraryVersion << "), helpstring(\"" << kLibraryHelp << "\")]\n"
        << "library Vex_Panel\n{\n    importlib(\"stdole2.tlb\");\n\n"
        // Containers know a colour property by its type: the alias OLE_COLOR under the standard
        // colour GUID (the IDL compiler would otherwise write the plain unsigned long it
        // stands for).
        << "    typedef [uuid(66504301-BE0F-101A-8BBB-00AA00300CAB), public] unsigned long OLE_COLOR;\n\n";
    WriteEnumerations(out);

    out << "    [uuid(" << kInterfaceId << "), version(" << kLibraryVersion
        << "), hidden, dual, nonextensible, oleautomation]\n    interface _VexPanel : IDispatch {\n";
    for (const DispatchMember& member : InterfaceMembers()) {
        if (member.kind == MemberKind::Property)
            WriteProperty(out, member);
        else
            WriteMethod(out, member);
    }
    out << "    };\n\n";

    out << "    [uuid(" << kEventsId << "), hidden]\n"
        << "    dispinterface __VexPanel {\n    properties:\n    methods:\n";
    for (const DispatchMember& member : EventMembers())
        WriteEvent(out, member);
    out << "    };\n\n";

    out << "    [uuid(" << kClassId << "), version(" << kLibraryVersion << "), control]\n"
        << "    coclass VexPanel {\n        [default] interface _VexPanel;\n"
        << "        [default, source] dispinterface __VexPanel;\n    };\n};\n";

    std::ofstream file(argv[1], std::ios::binary);
    file << out.str();
    file.close();
    if (!file) {
        std::cerr << "write-idl: cannot write " << argv[1] << "\n";
        return 1;
    }
    return 0;
}
