#pragma once
// VexGradiente: multi-colour gradients on a device context. A linear gradient is a run of
// parallel one-pixel lines, a "rectangular" one a run of concentric square outlines growing out
// of a centre point. The class knows nothing of the panel: it is given a device context, key
// colours (plain 0x00BBGGRR) and, optionally, the positions at which each key colour is reached.
//
// Calling order: Attach, set UseColourPositions, SetColours, SetColourPositions (the position
// array must exist; with UseColourPositions False it is replaced by evenly spread positions),
// then one draw call. Nothing is reset between paints.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/device_context.h"

namespace vex {

class VexGradiente {
public:
    // Shows a message box with an OK button only; the host decides on the title.
    using MessageBoxFunction = std::function<void(const std::string& text)>;

    VexGradiente() = default;
    explicit VexGradiente(MessageBoxFunction messageBox) : messageBox_(std::move(messageBox)) { }

    void setMessageBox(MessageBoxFunction messageBox) { messageBox_ = std::move(messageBox); }

    bool UseColourPositions() const { return useColourPositions_; }
    void setUseColourPositions(bool value) { useColourPositions_ = value; }

    void Attach(platform::DeviceContext& dc) { dc_ = &dc; }
    void SetColours(const std::vector<int32_t>& colours) { colours_ = colours; }
    void SetColourPositions(const std::vector<int32_t>& positions) { positions_ = positions; }

    // steps + 1 lines, steps = Height (TopToBottom) or Width; FlagColor skips the first half.
    void DrawLinearGradient(int32_t Left, int32_t Top, int32_t Width, int32_t Height, bool TopToBottom, bool FlagColor);
    // Squares of half-size 0 to Radius, from the centre outward, outlined with the current brush.
    void DrawRectangularGradients(int32_t CenterX, int32_t CenterY, int32_t Radius);

    // The colour table of a gradient over `steps`, one colour per line or square (steps + 1
    // entries). Also spreads the positions evenly when UseColourPositions is False.
    std::vector<ColorRef> BuildColourTable(int32_t steps);

    const std::vector<int32_t>& colourPositions() const { return positions_; }

    static const char* const kUnequalArraysMessage;

private:
    platform::DeviceContext& dc();
    bool DrawSquaresByRows(int32_t cx, int32_t cy, const std::vector<ColorRef>& table);
    void DrawColumns(int32_t Left, int32_t Top, int32_t Height, int32_t first, const std::vector<ColorRef>& table);

    bool useColourPositions_ = false;
    platform::DeviceContext* dc_ = nullptr;
    std::vector<int32_t> colours_;
    std::vector<int32_t> positions_;
    MessageBoxFunction messageBox_;
};

} // namespace vex
