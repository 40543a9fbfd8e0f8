#include "model/property_table.h"

#include <array>

namespace vex::model {

namespace {

// The counted dispatch identifiers run down from ForeColor (Slot 64) to BackColor (Slot 0) in
// the interface's order, with no gap: a row added or dropped without renumbering breaks this.
constexpr bool SlotsCountDown()
{
    int32_t expected = Slot(64);
    for (const PropertyInfo& info : kProperties) {
        if (info.dispid < Slot(0) || info.dispid > Slot(64))
            continue;
        if (info.dispid != expected--)
            return false;
    }
    return expected == Slot(0) - 1;
}

// Each of the persisted keys has one read position and one write position, 1 to 59.
constexpr bool PositionsArePermutations()
{
    std::array<int, kPersistedKeyCount + 1> reads {}, writes {};
    size_t persisted = 0;
    for (const PropertyInfo& info : kProperties) {
        const bool isPersisted = info.persist != PersistAs::None;
        if (isPersisted != (info.readAt != 0) || isPersisted != (info.writeAt != 0))
            return false;
        if (!isPersisted)
            continue;
        ++persisted;
        if (info.readAt < 1 || info.readAt > int(kPersistedKeyCount) || info.writeAt < 1
            || info.writeAt > int(kPersistedKeyCount))
            return false;
        if (reads[info.readAt]++ || writes[info.writeAt]++)
            return false;
    }
    return persisted == kPersistedKeyCount;
}

// The interface has 68 properties: the 65 counted ones and FlagAbout, Caption, CaptionText.
static_assert(kPropertyCount == 65 + 3);
static_assert(SlotsCountDown());
static_assert(PositionsArePermutations());

} // namespace

const PropertyInfo* FindProperty(std::string_view name)
{
    for (const PropertyInfo& info : kProperties)
        if (info.name == name)
            return &info;
    return nullptr;
}

} // namespace vex::model
