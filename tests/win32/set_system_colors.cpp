// Writes the drawing layer's system colour scheme into the Wine prefix's registry
// (HKCU\Control Panel\Colors, values "R G B"), where user32 reads the colours when the Wine
// server starts. scripts/wine-prefix runs it once and restarts the server. Windows only.

#include <windows.h>

#include <cstdio>
#include <string>

#include "platform/system_colors.h"

int main()
{
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, "Control Panel\\Colors", 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key,
            nullptr)
        != ERROR_SUCCESS) {
        std::fprintf(stderr, "set-system-colors: cannot open HKCU\\Control Panel\\Colors\n");
        return 1;
    }
    int written = 0;
    for (const auto& entry : vex::platform::kClassicSystemColors) {
        if (entry.registryName.empty())
            continue;
        std::string name(entry.registryName);
        std::string value = std::to_string(vex::RedOf(entry.color)) + " " + std::to_string(vex::GreenOf(entry.color))
            + " " + std::to_string(vex::BlueOf(entry.color));
        if (RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                static_cast<DWORD>(value.size() + 1))
            != ERROR_SUCCESS) {
            std::fprintf(stderr, "set-system-colors: cannot write %s\n", name.c_str());
            RegCloseKey(key);
            return 1;
        }
        ++written;
    }
    RegCloseKey(key);
    std::printf("set-system-colors: %d colours written\n", written);
    return 0;
}
