/* libpng2bmp FILE.png OUT.bmp: the reference job for bench-png-process. libpng decodes the whole
   image into memory (8-bit samples, B, G, R order, palette and grey images as 8-bit indices with
   their palette, alpha kept), then the rows go out as a Windows bitmap, top row first. */
#include <png.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void put(unsigned char* at, unsigned value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        at[i] = (unsigned char)(value >> (8 * i));
}

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    FILE* in = fopen(argv[1], "rb");
    if (!in)
        return 2;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, NULL, NULL, NULL);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png)))
        return 3;
    png_init_io(png, in);
    png_read_info(png, info);
    png_set_strip_16(png);
    png_set_packing(png);
    png_set_bgr(png);
    if (png_get_color_type(png, info) == PNG_COLOR_TYPE_GRAY_ALPHA)
        png_set_gray_to_rgb(png);
    int passes = png_set_interlace_handling(png);
    (void)passes;
    png_read_update_info(png, info);
    png_uint_32 width = png_get_image_width(png, info), height = png_get_image_height(png, info);
    int channels = png_get_channels(png, info);
    size_t rowBytes = png_get_rowbytes(png, info);
    size_t stride = (rowBytes + 3) & ~(size_t)3;
    unsigned char* bits = malloc(stride * height);
    png_bytep* rows = malloc(sizeof(png_bytep) * height);
    for (png_uint_32 y = 0; y < height; ++y)
        rows[y] = bits + y * stride;
    png_read_image(png, rows);
    png_read_end(png, NULL);

    png_colorp palette = NULL;
    int entries = 0;
    unsigned char quads[256 * 4] = {0};
    if (channels == 1) {
        if (png_get_color_type(png, info) == PNG_COLOR_TYPE_PALETTE && png_get_PLTE(png, info, &palette, &entries)) {
            for (int i = 0; i < entries; ++i)
                quads[4 * i] = palette[i].blue, quads[4 * i + 1] = palette[i].green, quads[4 * i + 2] = palette[i].red;
        } else {
            entries = 256;
            for (int i = 0; i < 256; ++i)
                quads[4 * i] = quads[4 * i + 1] = quads[4 * i + 2] = (unsigned char)i;
        }
    }
    int bitCount = channels == 1 ? 8 : channels == 3 ? 24 : 32;
    unsigned char header[54] = {'B', 'M'};
    size_t offset = 54 + 4 * (size_t)entries;
    put(header + 2, (unsigned)(offset + stride * height), 4);
    put(header + 10, (unsigned)offset, 4);
    put(header + 14, 40, 4);
    put(header + 18, width, 4);
    put(header + 22, (unsigned)-(int)height, 4);
    put(header + 26, 1, 2);
    put(header + 28, (unsigned)bitCount, 2);
    put(header + 46, (unsigned)entries, 4);
    FILE* out = fopen(argv[2], "wb");
    if (!out)
        return 2;
    fwrite(header, 1, 54, out);
    fwrite(quads, 4, (size_t)entries, out);
    fwrite(bits, 1, stride * height, out);
    fclose(out);
    png_destroy_read_struct(&png, &info, NULL);
    fclose(in);
    free(rows);
    free(bits);
    return 0;
}
