// Wuffs as a benchmark peer: only the modules a PNG decode needs, through its image API.
#define WUFFS_IMPLEMENTATION
#define WUFFS_CONFIG__MODULES
#define WUFFS_CONFIG__MODULE__ADLER32
#define WUFFS_CONFIG__MODULE__AUX__BASE
#define WUFFS_CONFIG__MODULE__AUX__IMAGE
#define WUFFS_CONFIG__MODULE__BASE
#define WUFFS_CONFIG__MODULE__CRC32
#define WUFFS_CONFIG__MODULE__DEFLATE
#define WUFFS_CONFIG__MODULE__PNG
#define WUFFS_CONFIG__MODULE__ZLIB
#include "wuffs-v0.4.c"

#include "wuffs_peer.h"

namespace vex::bench {

namespace {

class Callbacks : public wuffs_aux::DecodeImageCallbacks {
public:
    explicit Callbacks(bool alpha) : alpha_(alpha) { }
    wuffs_base__pixel_format SelectPixfmt(const wuffs_base__image_config&) override
    {
        return wuffs_base__make_pixel_format(alpha_ ? WUFFS_BASE__PIXEL_FORMAT__BGRA_NONPREMUL : WUFFS_BASE__PIXEL_FORMAT__BGR);
    }

private:
    bool alpha_;
};

} // namespace

uint64_t DecodeWuffs(const uint8_t* data, size_t size, bool alpha)
{
    Callbacks callbacks(alpha);
    wuffs_aux::sync_io::MemoryInput input(data, size);
    wuffs_aux::DecodeImageResult result = wuffs_aux::DecodeImage(callbacks, input);
    if (!result.error_message.empty())
        return 0;
    wuffs_base__table_u8 plane = result.pixbuf.plane(0);
    size_t bytes = plane.height * plane.stride;
    return bytes + plane.ptr[bytes / 2];
}

} // namespace vex::bench
