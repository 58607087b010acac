"""The widgets' pictures, drawn pixel by pixel: they are small, and edges must stay hard.

The engine stretches the title bar in its width and the background in both directions, so the first is the same in
every column and the second changes so slowly that no stretching shows.
"""
from PIL import Image

LIGHT, MIDDLE, DARK, EDGE, INK = (122, 86, 130), (84, 58, 92), (60, 46, 64), (37, 26, 41), (28, 16, 22)
CREAM, RED = (255, 243, 214), (179, 60, 40)
BUTTON = 20


def flat(size, color):
    return Image.new("RGB", size, color)


def titlebar():
    image = flat((64, BUTTON), MIDDLE)
    for y in range(BUTTON):
        color = LIGHT if y < 2 else EDGE if y >= BUTTON - 2 else MIDDLE if y < BUTTON // 2 else DARK
        image.paste(color, (0, y, image.width, y + 1))
    return image


def button(face):
    """An empty button, lit from above and from the left."""
    image = flat((BUTTON, BUTTON), EDGE)
    image.paste(LIGHT, (1, 1, BUTTON - 1, BUTTON - 1))
    image.paste(INK, (2, 2, BUTTON - 1, BUTTON - 1))
    image.paste(face, (2, 2, BUTTON - 2, BUTTON - 2))
    return image


def maximize():
    image = button(DARK)
    image.paste(CREAM, (5, 5, 15, 15))
    image.paste(DARK, (6, 8, 14, 14))
    return image


def close():
    image = button(RED)
    for i in range(9):
        for x in (5 + i, 13 - i):
            image.paste(CREAM, (x, 5 + i, x + 2, 6 + i))
    return image


def text_cursor():
    return flat((2, 16), CREAM)


def background():
    image = flat((400, 200), EDGE)
    for y in range(image.height):
        part = y / (image.height - 1)
        color = tuple(round(a + (b - a) * part) for a, b in zip(EDGE, INK))
        image.paste(color, (0, y, image.width, y + 1))
    return image


def text_input():
    """The ground of an input line.  It is not stretched, so it is as wide as the widest window."""
    image = flat((2048, BUTTON), INK)
    image.paste(MIDDLE, (0, 0, image.width, 1))
    return image


GIFS = {"titlebar": titlebar, "maximize": maximize, "close": close, "text_cursor": text_cursor}
PNGS = {"background": background, "text_input": text_input}
