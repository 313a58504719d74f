"""usage: scene_pillow.py LIST FONT BOLD PICTURE [COUNT]: draws bench/scene's list by Pillow.

A picture that ends in .pbm is of one bit, diffused. With a count, so many pictures are drawn on all
processors, each with its number in it and in place of PICTURE's %d.
"""
import functools
import multiprocessing
import sys

from PIL import Image, ImageDraw, ImageFont

LIST, FONT, BOLD, PICTURE = sys.argv[1:5]
ANCHORS = {"start": "ls", "middle": "ms", "end": "rs"}


@functools.lru_cache(maxsize=None)
def font(size, bold):
    return ImageFont.truetype(BOLD if bold == "1" else FONT, int(size))


def shape(image, draw, kind, rest):
    if kind == "text":
        size, bold, x, y, anchor, color, words = rest
        draw.text((float(x), float(y)), words, fill=color, font=font(size, bold), anchor=ANCHORS[anchor])
    elif kind == "image":
        with Image.open(rest[3]) as picture:
            picture = picture.convert("RGBA")
            image.paste(picture, (int(rest[0]), int(rest[1])), picture)
    else:
        *places, color = rest
        places = [float(place) for place in places]
        if kind == "fill":
            x, y, w, h = places
            if h >= 1:
                draw.rectangle((x, y, x + w - 1, y + h - 1), fill=color)
        elif kind == "line":
            draw.line(places[:4], fill=color, width=int(places[4]))
        elif kind == "triangle":
            draw.polygon(places, fill=color)
        elif kind == "disc":
            x, y, r = places
            draw.ellipse((x - r, y - r, x + r, y + r), fill=color)


def picture(number=None):
    with open(LIST, encoding="utf-8") as file:
        (_, *size), *rows = (row.rstrip("\n").split("\t") for row in file)
    image = Image.new("RGB", tuple(map(int, size)))
    draw = ImageDraw.Draw(image)
    for kind, *rest in rows:
        shape(image, draw, kind, rest)
    if number is None:
        path = PICTURE
    else:
        draw.text((400, 474), str(number), fill="#808080", font=font("12", "0"), anchor="ms")
        path = PICTURE.replace("%d", str(number))
    if path.endswith(".pbm"):
        image = image.convert("1")  # by error diffusion
    image.save(path)


if len(sys.argv) == 5:
    picture()
else:
    with multiprocessing.Pool() as pool:
        pool.map(picture, range(int(sys.argv[5])))
