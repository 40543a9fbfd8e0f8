// The tables the automation layer will publish: dispatch identifiers and enumeration names.
#include <gtest/gtest.h>

#include "model/dispatch_ids.h"
#include "model/enum_names.h"
#include "model/property_table.h"

namespace vex::model {
namespace {

// The count-down of the property identifiers is checked where the table is compiled; here the
// members whose identifiers and flags are fixed by the interface.
TEST(InterfaceTables, FixedIdentifiersAndFlags)
{
    struct Expected {
        std::string_view name;
        int32_t dispid;
        bool readOnly, hidden;
    };
    for (const Expected& expected : {
             Expected { "ForeColor", 0x68030040, false, false }, Expected { "BackColor", 0x68030000, false, false },
             Expected { "Caption", -518, false, false }, Expected { "CaptionText", 0, false, true },
             Expected { "FlagAbout", 0x4003005D, false, true }, Expected { "Refresh", 0x60030041, false, false },
             Expected { "DrawControl", 0x60030078, false, false }, Expected { "Acerca", -552, false, false },
             Expected { "hWnd", 0x6803000C, true, true }, Expected { "hDC", 0x68030001, true, false },
             Expected { "OptionPicBackGround", 0x6803003B, false, true }, Expected { "MouseEnter", 10, false, false },
             Expected { "MouseExit", 9, false, false } }) {
        const DispatchMember* member = FindMember(expected.name);
        ASSERT_NE(member, nullptr) << expected.name;
        EXPECT_EQ(member->dispid, expected.dispid) << expected.name;
        EXPECT_EQ(member->readOnly, expected.readOnly) << expected.name;
        EXPECT_EQ(member->hidden, expected.hidden) << expected.name;
    }
    EXPECT_EQ(InterfaceMembers().size(), 68u + 3);
    EXPECT_EQ(EventMembers().size(), 10u);
    EXPECT_TRUE(FindMember("Caption")->flags & (Bindable | DefaultBind));
    EXPECT_TRUE(FindMember("FontBold")->flags & NotBrowsable);
}

TEST(InterfaceTables, EnumerationNamesAreKeptExactly)
{
    EXPECT_EQ(Enumerations().size(), 15u);
    const EnumInfo* pointer = FindEnumeration("TypeMousePointer");
    ASSERT_NE(pointer, nullptr);
    EXPECT_EQ(MemberName(*pointer, 3), "I-Beam");
    EXPECT_EQ(MemberName(*pointer, 8), "Size NW NS");
    EXPECT_EQ(MemberName(*pointer, 13), "Arrow and Hourglass ");
    EXPECT_EQ(MemberName(*pointer, 99), "Custom");
    EXPECT_EQ(MemberName(*pointer, 16), "");
    EXPECT_EQ(MemberName(*FindEnumeration("TypeCustomGradientDirection"), 6), "RetangleCenterToBorder");
    EXPECT_EQ(MemberName(*FindEnumeration("TypeWinGradientDirection"), 1), "pButtomToTopDirection");
    size_t members = 0;
    for (const EnumInfo& info : Enumerations())
        members += info.members.size();
    EXPECT_EQ(members, 3u + 2 + 6 + 2 + 3 + 4 + 9 + 3 + 2 + 5 + 2 + 8 + 2 + 6 + 17);
}

} // namespace
} // namespace vex::model
