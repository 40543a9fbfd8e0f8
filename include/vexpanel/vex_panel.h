#pragma once
// The library's entry header: the panel control with its container contract (host services,
// control surface, property bags and the .vxp file format), the headless host and the version.

#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "vexpanel/version.h"
