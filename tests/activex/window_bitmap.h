// Pictures the Windows test programs take and keep: what a device context is painted with, as
// 32-bit top-down rows of B, G, R, X bytes, and .bmp files of them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace vex::activex::test {

inline BITMAPINFOHEADER TopDown32(int width, int height)
{
    BITMAPINFOHEADER header {};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = -height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

// What draw paints into a 32-bit top-down picture.
inline std::vector<uint8_t> Drawn(int width, int height, const std::function<void(HDC)>& draw)
{
    BITMAPINFOHEADER header = TopDown32(width, height);
    HDC memory = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(memory, reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(memory, section);
    draw(memory);
    GdiFlush();
    std::vector<uint8_t> pixels(static_cast<uint8_t*>(bits), static_cast<uint8_t*>(bits) + static_cast<size_t>(width) * height * 4);
    SelectObject(memory, old);
    DeleteObject(section);
    DeleteDC(memory);
    return pixels;
}

// What a window shows: its client area, or with its frame and title the whole window.
inline std::vector<uint8_t> WindowPixels(HWND window, int width, int height, bool withFrame = false)
{
    return Drawn(width, height, [&](HDC memory) {
        HDC source = withFrame ? GetWindowDC(window) : GetDC(window);
        BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
        ReleaseDC(window, source);
    });
}

inline bool WriteBitmap(const std::string& path, const std::vector<uint8_t>& pixels, int width, int height)
{
    BITMAPINFOHEADER header = TopDown32(width, height);
    BITMAPFILEHEADER file {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = static_cast<DWORD>(file.bfOffBits + pixels.size());
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()));
    return static_cast<bool>(out);
}

} // namespace vex::activex::test
