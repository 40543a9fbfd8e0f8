#include <cstdio>

#include "base/numeric.h"
#include "render/colour.h"

int main()
{
    // Something from the library that needs linking, checked for its value.
    if (vex::CInt(2.5) != 2 || vex::render::ShiftColour(0x101010, 15, false) != 0x1F1F1F)
        return 1;
    std::puts("consumer ok");
    return 0;
}
