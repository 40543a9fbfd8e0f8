#pragma once
// The control's registration: the class under its fixed CLSID (InprocServer32 with the apartment
// threading model, Control, MiscStatus, ToolboxBitmap32, TypeLib, Version, the ProgIDs), the
// ProgID Vex_Panel.VexPanel and its versioned Vex_Panel.VexPanel.1, and the type library.
// Unregistering removes every key written here and the library's registration.

#include <windows.h>

#include <string>

namespace vex::activex {

// The OLEMISC flags the container reads before it creates the control: set the client site
// first, activate when visible, inside-out, no linking inside, recompose on resize.
inline constexpr DWORD kMiscStatus = 0x20000 | 0x100 | 0x80 | 0x10 | 0x1;
inline constexpr int kToolboxBitmap = 101; // the BITMAP resource of the toolbox

HRESULT RegisterServer(const std::wstring& modulePath);
HRESULT UnregisterServer();

} // namespace vex::activex
