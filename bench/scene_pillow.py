"""usage: scene_pillow.py LIST FONT BOLD PICTURE: draws bench/scene's list by Pillow."""
import sys

from PIL import Image, ImageDraw, ImageFont

ANCHORS = {"start": "ls", "middle": "ms", "end": "rs"}
fonts = {}
image = Image.new("RGB", (800, 480))
draw = ImageDraw.Draw(image)
with open(sys.argv[1], encoding="utf-8") as file:
    for row in file:
        kind, *rest = row.rstrip("\n").split("\t")
        if kind == "fill":
            x, y, w, h = map(float, rest[:4])
            if h >= 1:
                draw.rectangle((x, y, x + w - 1, y + h - 1), fill=rest[4])
        elif kind == "line":
            draw.line(tuple(map(float, rest[:4])), fill=rest[5], width=int(rest[4]))
        elif kind == "image":
            with Image.open(rest[3]) as picture:
                picture = picture.convert("RGBA")
                image.paste(picture, (int(rest[0]), int(rest[1])), picture)
        else:
            size, bold, x, y, anchor, color, words = rest
            font = (size, bold)
            if font not in fonts:
                fonts[font] = ImageFont.truetype(sys.argv[3 if bold == "1" else 2], int(size))
            draw.text((float(x), float(y)), words, fill=color, font=fonts[font], anchor=ANCHORS[anchor])
image.save(sys.argv[4])
