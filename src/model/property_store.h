#pragma once
// The property store: one field per stored property of the table (property_table.h), each
// starting at its default, which is what a saved panel without keys loads. A freshly placed
// panel differs in Caption and CaptionFontShadow (InitProperties computes them).

#include "model/property_table.h"

namespace vex::model {

struct PanelProperties {
#define VEX_STORE_Field(Name, Type, Default) Type Name = Default;
#define VEX_STORE_Facet(Name, Type, Default)
#define VEX_STORE_Window(Name, Type, Default)
#define VEX_STORE(Name, Store, Type, Default, ...) VEX_STORE_##Store(Name, Type, Default)
    VEX_PROPERTIES(VEX_STORE)
#undef VEX_STORE
#undef VEX_STORE_Window
#undef VEX_STORE_Facet
#undef VEX_STORE_Field
};

} // namespace vex::model
