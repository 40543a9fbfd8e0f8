#pragma once
// The panel's outgoing events. Every parameter is passed by reference, as the host language
// raises them, so a handler may change the values it is given. The default handlers do nothing.

#include <cstdint>

namespace vex::control {

class PanelEvents {
public:
    virtual ~PanelEvents() = default;
    virtual void Click() { }
    virtual void DblClick() { }
    virtual void KeyDown(int16_t& KeyCode, int16_t& Shift) { }
    virtual void KeyPress(int16_t& KeyAscii) { }
    virtual void KeyUp(int16_t& KeyCode, int16_t& Shift) { }
    virtual void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) { }
    virtual void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) { }
    virtual void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) { }
    virtual void MouseExit(int16_t& Button, int16_t& Shift, float& x, float& y) { }
    virtual void MouseEnter(int16_t& Button, int16_t& Shift, float& x, float& y) { }
};

} // namespace vex::control
