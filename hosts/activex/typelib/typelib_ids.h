#pragma once
// The control's fixed identities: the type library, its interfaces and the class, the ProgID and
// the version. The IDL writer, the type library's finishing step, the server's registration and
// the tests all read them here.

#include <string>
#include <string_view>

namespace vex::activex {

inline constexpr const char* kLibraryId = "B0836113-DC80-4B43-9A29-F391FB9FB182";
inline constexpr const char* kClassId = "D2C04A06-3C5F-4714-8217-CAC69A033407";
inline constexpr const char* kInterfaceId = "64CB5AD5-F617-4F1E-B894-CA00889C956B"; // _VexPanel
inline constexpr const char* kEventsId = "A4F9CEBF-EB71-431D-A1ED-D60B99FA07E3";    // __VexPanel
inline constexpr const char* kLibraryVersion = "1.0";
inline constexpr int kLibraryMajor = 1;
inline constexpr int kLibraryMinor = 0;
inline constexpr const char* kLibraryHelp = "Vex_Panel";
inline constexpr const char* kProgId = "Vex_Panel.VexPanel";
inline constexpr const char* kVersionedProgId = "Vex_Panel.VexPanel.1";
inline constexpr const char* kClassName = "VexPanel";

// Whether a published name is an identifier the IDL compiler takes.
inline bool IsIdentifier(std::string_view name)
{
    if (name.empty() || (name[0] >= '0' && name[0] <= '9'))
        return false;
    for (char c : name)
        if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'))
            return false;
    return true;
}

// A member's name in the library: its published name, bracketed when it carries blanks or a
// hyphen ("[Size NE SW]", "[Arrow and Hourglass ]" with its trailing blank).
inline std::string LibraryName(std::string_view name)
{
    return IsIdentifier(name) ? std::string(name) : "[" + std::string(name) + "]";
}

// The identifier an enumeration member is compiled under when its published name is not one:
// "TypeMousePointer_IBeam" for "I-Beam".
inline std::string StandIn(std::string_view enumeration, std::string_view identifier)
{
    return std::string(enumeration) + "_" + std::string(identifier);
}

} // namespace vex::activex
