// The tables the automation layer will publish: dispatch identifiers and enumeration names.
#include <gtest/gtest.h>

#include <set>

#include "model/dispatch_ids.h"
#include "model/enum_names.h"

namespace vex::model {
namespace {

TEST(InterfaceTables, PropertyIdentifiersCountDownWithoutGapsOrRepeats)
{
    std::vector<int32_t> counted;
    std::set<int32_t> all;
    int properties = 0;
    for (const DispatchMember& member : InterfaceMembers()) {
        EXPECT_TRUE(all.insert(member.dispid).second) << member.name;
        if (member.kind != MemberKind::Property)
            continue;
        ++properties;
        if (member.name != "FlagAbout" && member.name != "Caption" && member.name != "CaptionText")
            counted.push_back(member.dispid);
    }
    EXPECT_EQ(properties, 68);
    ASSERT_EQ(counted.size(), 65u);
    EXPECT_EQ(counted.front(), 0x68030040);
    for (size_t at = 1; at < counted.size(); ++at)
        EXPECT_EQ(counted[at], counted[at - 1] - 1);
    EXPECT_EQ(FindMember("BackColor")->dispid, 0x68030000);
    EXPECT_EQ(FindMember("Caption")->dispid, -518);
    EXPECT_EQ(FindMember("CaptionText")->dispid, 0);
    EXPECT_EQ(FindMember("FlagAbout")->dispid, 0x4003005D);
    EXPECT_EQ(FindMember("Refresh")->dispid, 0x60030041);
    EXPECT_EQ(FindMember("DrawControl")->dispid, 0x60030078);
    EXPECT_EQ(FindMember("Acerca")->dispid, -552);
    EXPECT_TRUE(FindMember("hWnd")->readOnly);
    EXPECT_TRUE(FindMember("hDC")->readOnly);
    EXPECT_EQ(FindMember("MouseEnter")->dispid, 10);
    EXPECT_EQ(FindMember("MouseExit")->dispid, 9);
    EXPECT_EQ(EventMembers().size(), 10u);
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
