// The tables the automation layer publishes: the default interface's members and the events
// (dispatch identifier, kind, read-only, hidden and the property flags) and the enumerations'
// names and values, against the reviewed list in interface_tables.txt. (The count-down of the
// property identifiers is checked where the table is compiled.)
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "model/dispatch_ids.h"
#include "model/enum_names.h"

namespace vex::model {
namespace {

std::string Listing()
{
    std::ostringstream out;
    const auto members = [&](std::string_view heading, std::span<const DispatchMember> list) {
        out << "# " << heading << '\n';
        for (const DispatchMember& m : list)
            out << m.name << ' ' << int(m.kind) << ' ' << std::hex << m.dispid << std::dec << ' ' << m.readOnly << m.hidden
                << ' ' << m.flags << '\n';
    };
    members("interface: name, kind, dispid, read-only and hidden, flags", InterfaceMembers());
    members("events", EventMembers());
    for (const EnumInfo& info : Enumerations()) {
        out << "# " << info.name << '\n';
        for (const EnumMember& member : info.members)
            out << member.value << " \"" << member.name << "\"\n";
    }
    return out.str();
}

TEST(InterfaceTables, AsReviewed)
{
    std::ifstream file(VEX_SOURCE_DIR "/tests/control/interface_tables.txt");
    std::stringstream reviewed;
    reviewed << file.rdbuf();
    EXPECT_EQ(Listing(), reviewed.str());
}

} // namespace
} // namespace vex::model
