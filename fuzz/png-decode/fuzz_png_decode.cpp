// The whole decode from memory. The output options come from the input's last byte (a PNG's
// last byte is IEND's CRC, so the suite's seeds spread over all of them). The pixel limit is
// kept small so that the fuzzer's memory limit is never the reason a run stops.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/runtime_error.h"
#include "platform/picture.h"
#include "png/load_png.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    uint8_t options = size > 0 ? data[size - 1] : 0;
    vex::png::LoadPNG decoder;
    decoder.setMaxPixels(4'000'000);
    auto box = std::make_shared<vex::png::PictureBox>();
    decoder.setPicBox(box);
    decoder.setSetAlpha(options & 1);
    decoder.setSetTrans(options & 2);
    if (options & 4)
        decoder.SetOwnBkgndColor(true, 0x00405060u);
    if (options & 8) {
        vex::platform::Dib backdrop(5, 4, 24, false);
        backdrop.bits()[0] = 200;
        decoder.setBackgroundPicture(vex::platform::Picture::FromBitmap(backdrop));
        decoder.SetToBkgrnd(true, (options >> 4) - 8, (options >> 6) - 2);
    }
    try {
        decoder.OpenPNGFromMemory(std::span<const uint8_t>(data, size));
    } catch (const vex::RuntimeError&) {
        return 0;
    }
    if (box->Picture) {
        const vex::platform::Dib& dib = box->Picture->bitmap();
        if (dib.width() != decoder.Width() || dib.height() != decoder.Height() ||
            dib.bitCount() != decoder.OutputBitsPerPixel())
            __builtin_trap();
        volatile uint32_t sink = dib.pixel(dib.width() - 1, dib.height() - 1);
        (void)sink;
    }
    return 0;
}
