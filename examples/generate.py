#!/usr/bin/env python3
"""Writes the example panels (*.vxp), the backdrop image and gallery.list.

The .vxp files are committed; run this again only to change the examples. Each panel sets only
the keys that differ from a saved panel's defaults. Pictures are embedded 32-bit top-down DIBs.
"""
import base64
import math
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))


def colour(r, g, b):
    return "&H%08X&" % (r | (g << 8) | (b << 16))


def dib_block(key, width, height, pixel):
    rows = bytearray()
    for y in range(height):
        for x in range(width):
            r, g, b = pixel(x, y)
            rows += bytes((b, g, r, 0))
    text = base64.b64encode(bytes(rows)).decode()
    lines = [f"{key} {{", "    Type = 1", f"    Width = {width}", f"    Height = {height}",
             "    BitCount = 32", "    TopDown = True"]
    for at in range(0, len(text), 76):
        lines.append(f'    Bits = "{text[at:at + 76]}"')
    lines.append("}")
    return lines


BOOLEAN_KEYS = {"Enabled", "CaptionGetShadow"}


def write_vxp(name, props, pictures=()):
    lines = ["# VexPanel saved panel"]
    for key, value in props.items():
        if key == "Font":
            face, size, bold = value
            lines += ["Font {", f'    Name = "{face}"', f"    Size = {size}!", f"    Bold = {bold}", "}"]
            continue
        if isinstance(value, bool) and key in BOOLEAN_KEYS:
            value = "True" if value else "False"
        elif isinstance(value, bool):  # kept as 16-bit integers
            value = "-1" if value else "0"
        elif isinstance(value, str) and not value.startswith("&H"):
            value = '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'
        lines.append(f"{key} = {value}")
    for block in pictures:
        lines += block
    with open(os.path.join(HERE, name), "w") as out:
        out.write("\n".join(lines) + "\n")


def write_png(name, width, height, pixel, alpha=False):
    raw = bytearray()
    for y in range(height):
        raw.append(0)
        for x in range(width):
            raw += bytes(pixel(x, y))
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)
    png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6 if alpha else 2, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b"")
    with open(os.path.join(HERE, name), "wb") as out:
        out.write(png)


# ---- Pictures --------------------------------------------------------------------------------

MAGENTA = (255, 0, 255)


def strip_pixel(x, y, size=24, frames=6):
    """A ball bouncing across six frames, on the magenta mask colour."""
    frame, fx = divmod(x, size)
    cx = 12
    cy = 5 + 14 * abs(math.sin(math.pi * frame / frames))
    d = math.hypot(fx - cx + 0.5, y - (size - cy) + 0.5)
    if d < 6:
        shade = int(255 - 18 * d)
        return (shade, 80 + 10 * frame, 40)
    return MAGENTA


def tile_pixel(x, y):
    """A 20x20 tile: a soft checker with a darker diagonal."""
    if x == y or x + y == 19:
        return (150, 170, 200)
    return (226, 232, 242) if (x // 10 + y // 10) % 2 == 0 else (240, 244, 250)


def stretch_pixel(x, y):
    """A small sunset scene, 48x24, meant to be stretched."""
    if y > 16 + 2 * math.sin(x / 5):
        return (40, 70 + y, 50)
    if math.hypot(x - 32, y - 14) < 5:
        return (255, 220, 120)
    t = y / 24
    return (int(250 - 120 * t), int(150 - 60 * t), int(90 + 100 * t))


def backdrop_pixel(x, y):
    """A form behind a transparent panel: diagonal stripes and a dot grid."""
    if (x % 24 == 12) and (y % 24 == 12):
        return (30, 30, 120)
    return (255, 214, 140) if ((x + y) // 16) % 2 == 0 else (250, 235, 200)


def badge_pixel(x, y):
    """A 40x40 badge with soft edges: a ring, a star-like highlight, alpha falling off outside."""
    d = math.hypot(x - 19.5, y - 19.5)
    alpha = max(0, min(255, int((19.5 - d) * 128)))
    if d < 12:
        t = d / 12
        r, g, b = int(255 - 60 * t), int(200 - 90 * t), int(60 + 20 * t)
    else:
        r, g, b = 150, 60, 30
    glow = max(0, 1 - math.hypot(x - 14, y - 14) / 7)
    r, g, b = (min(255, int(c + (255 - c) * glow)) for c in (r, g, b))
    return (r, g, b, alpha)


# ---- The examples ----------------------------------------------------------------------------

EXAMPLES = []


def example(name, size, label, props, pictures=(), extra=""):
    write_vxp(name + ".vxp", props, pictures)
    EXAMPLES.append(f"{name}.vxp --size {size[0]}x{size[1]}{extra} | {label}")


win = {"Appearance": 0}
example("windows-themes", (220, 80), "Windows: themes, lowered", dict(win, Caption="Windows appearance"))
example("windows-backcolour", (220, 80), "Windows: back colour, raised, centre",
        dict(win, WinOptionColor=1, WinBackColor=colour(200, 225, 255), WinContrast=2, WinGradientDirection=4,
             WinBorderTopStyle=2, WinBorderBottomStyle=2, WinBorderLeftStyle=2, WinBorderRightStyle=2,
             Caption="Raised, high contrast", ForeColor=colour(20, 40, 90)))
example("windows-shadow", (220, 80), "Windows: shadow borders, effect",
        dict(win, WinOptionColor=1, WinBackColor=colour(255, 236, 200), WinGradientDirection=5,
             WinBorderTopStyle=3, WinBorderBottomStyle=3, WinBorderLeftStyle=3, WinBorderRightStyle=3,
             Caption="Outlined caption", CaptionEfect=True, Font=("Tahoma", 14, True), CaptionGetShadow=True,
             CaptionFontIn=colour(255, 250, 230), CaptionFontOut=colour(150, 80, 20)))
example("windows-mixed", (220, 80), "Windows: mixed sides, left to right",
        dict(win, WinGradientDirection=2, WinContrast=2, WinBorderTopStyle=1, WinBorderBottomStyle=2,
             WinBorderLeftStyle=0, WinBorderRightStyle=3, Caption="Left top", CaptionAlignment=0))

d3 = {"Appearance": 1, "BackColor": colour(228, 226, 220)}
example("3d-lowered", (220, 80), "3D: lowered, width 2, lowered lettering",
        dict(d3, Panel3DBorderStyle=1, Panel3DBorderWidth=2, Caption="Lowered lettering", PanelFont3D=1,
             Font=("Tahoma", 12, True)))
example("3d-groove", (220, 80), "3D: groove with a band, shading",
        dict(d3, Panel3DBorderStyle=3, Panel3DBorderWidth=2, Panel3DBorderOffset=4,
             Panel3DOffsetColor=colour(170, 190, 215), Caption="Groove", PanelFont3D=4,
             Font=("Tahoma", 14, True), PanelFont3DShadow=colour(110, 110, 110),
             ))
example("3d-ridge", (220, 80), "3D: ridge, shadow lettering",
        dict(d3, Panel3DBorderStyle=4, Panel3DBorderWidth=3, Panel3DBorderOffset=2,
             Caption="Ridge and shadow", PanelFont3D=5, PanelFont3DShadow=colour(170, 170, 170),
             Font=("Tahoma", 12, True),
             ForeColor=colour(30, 60, 120)))
example("3d-flat", (220, 80), "3D: one-colour frame, raised lettering",
        dict(d3, Panel3DBorderStyle=3, Panel3DBorderWidth=1, Panel3DBorderOffset=3, Panel3DBorderOption=True,
             Panel3DBorderColor=colour(60, 90, 140), Caption="Raised letters", PanelFont3D=2,
             CaptionAlignment=4))

custom = {"Appearance": 2}
example("custom-vertical", (220, 80), "Custom: vertical centre gradient", dict(custom, Caption="Custom, default"))
example("custom-linear", (220, 80), "Custom: top to bottom, effect",
        dict(custom, CustomGradientDirection=0, CustomGradientStart=colour(255, 250, 235),
             CustomGradientEnds=colour(240, 170, 90), CustomBorderWidth=2, CustomBorderColor=colour(170, 100, 40),
             Caption="Sunrise", CaptionEfect=True, Font=("Tahoma", 16, True), CaptionFontIn=colour(255, 255, 255),
             CaptionFontOut=colour(140, 70, 10)))
example("custom-squares", (220, 80), "Custom: squares from the centre",
        dict(custom, CustomGradientDirection=6, CustomGradientStart=colour(40, 60, 110),
             CustomGradientEnds=colour(170, 200, 240), CustomBorderWidth=1, CustomBorderColor=colour(20, 30, 60),
             Caption="Centre to border", ForeColor=colour(255, 255, 255)))
example("custom-wrapped", (220, 80), "Custom: left to right, wrapped caption",
        dict(custom, CustomGradientDirection=2, CustomGradientStart=colour(220, 245, 220),
             CustomGradientEnds=colour(120, 190, 130), CustomBorderWidth=3, CustomBorderColor=colour(60, 110, 70),
             CaptionStyle=1, CaptionAlignment=7,
             Caption="A wrapped caption breaks at word boundaries and is centred by hand"))

strip = dib_block("Picture", 24 * 6, 24, strip_pixel)
example("picture-strip", (220, 80), "Frame strip (6 frames), masked, third tick",
        dict(custom, CustomGradientDirection=0, Caption="Animated picture", CaptionAlignment=4,
             PictureAlignment=1, PictureFrames=6, PictureUseMask=True, PictureAnimEnabled=True,
             PictureAnimDelay=80), [strip], extra=" --frames 3")
tile = dib_block("PictureBackground", 20, 20, tile_pixel)
example("background-tiled", (220, 80), "Tiled background, 3D lowered",
        dict(d3, Panel3DBorderStyle=1, Panel3DBorderWidth=1, PictureBackgroundStyle=2, Caption="Tiled"),
        [tile])
scene = dib_block("PictureBackground", 48, 24, stretch_pixel)
example("background-stretched", (220, 80), "Stretched background, effect",
        dict(d3, Panel3DBorderStyle=2, Panel3DBorderWidth=2, PictureBackgroundStyle=1, Caption="Stretched",
             Font=("Tahoma", 14, True),
             CaptionEfect=True, CaptionGetShadow=True, CaptionFontIn=colour(255, 255, 255),
             CaptionFontOut=colour(60, 30, 20), CaptionAlignment=1),
        [scene])
example("transparent", (220, 80), "Transparent panel over a backdrop",
        dict(win, BackStyle=0, WinBorderTopStyle=3, WinBorderBottomStyle=3, WinBorderLeftStyle=3,
             WinBorderRightStyle=3, WinOptionColor=1, WinBackColor=colour(255, 214, 140),
             Caption="See-through", CaptionEfect=True, Font=("Tahoma", 14, True), CaptionFontIn=colour(255, 255, 255),
             CaptionFontOut=colour(120, 60, 0)),
        extra=" --backdrop backdrop.png")

example("picture-png-alpha", (220, 80), "PNG picture with alpha (LoadPNG)",
        dict(d3, BackColor=colour(205, 220, 240), Panel3DBorderStyle=2, Panel3DBorderWidth=2,
             PictureAlignment=1, Caption="Loaded from a PNG", CaptionAlignment=4),
        extra=" --picture badge.png")

write_png("backdrop.png", 220, 80, backdrop_pixel)
write_png("badge.png", 40, 40, badge_pixel, alpha=True)
with open(os.path.join(HERE, "gallery.list"), "w") as out:
    out.write("# One example a line: FILE [render options] | label under the panel on the contact sheet.\n")
    out.write("\n".join(EXAMPLES) + "\n")
