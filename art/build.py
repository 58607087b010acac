"""Renders the pictures, fonts, sounds and the tune.  Started by art/render, which checks the tools first."""
import io
import os
import subprocess
import sys
import tempfile

import numpy
from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
sys.path.insert(1, os.path.join(HERE, "fonts"))

import compose  # noqa: E402
import digits  # noqa: E402
import palette  # noqa: E402
import sprites  # noqa: E402
import widgets  # noqa: E402

RUNTIME = os.path.join(os.path.dirname(HERE), "runtime")
ICONS = os.path.join(os.path.dirname(HERE), "desktop", "icons")
GFX, GUI, SFX, MUSIC = "data/gfx", "data/gui", "data/sfx", "data/music"
SOUNDS = ("kitten_01", "kitten_02", "kitten_03", "kitten_04", "kitten_05", "kitten_burn", "bonus_1", "bonus_2", "bonus_3",
          "oven_open", "oven_shut", "oven_breath", "oven_burning", "hellfire", "lose_hair", "hit_small", "hit_big",
          "gameover", "gameover_best")
TUNES = ("title", "play", "last")


def target(path):
    """The full path of a file of the runtime folder (or one given in full), whose folder is made."""
    full = os.path.join(RUNTIME, path)
    os.makedirs(os.path.dirname(full), exist_ok=True)
    return full


def rasterise(svg, *options):
    done = subprocess.run(["rsvg-convert", "-f", "png", *options], input=svg.encode("utf-8"), stdout=subprocess.PIPE, check=True)
    return Image.open(io.BytesIO(done.stdout)).convert("RGBA")


def save_png(image, path, opaque=False):
    """Keeps the colour type (RGB or RGBA): the game tells the two apart by it."""
    pixels = image.convert("RGB" if opaque else "RGBA")
    if not opaque and pixels.getpixel((0, 0))[3] != 0:
        sys.exit("%s: the top left corner must be clear" % path)
    pixels.save(target(path))
    subprocess.run(["optipng", "-quiet", "-o2", "-nc", "-nb", "-np", "-strip", "all", target(path)], check=True)


def check_colour(image, name, size):
    """The kittens' colour fills a part of each of their cells, and is next to nowhere else in play."""
    colour = [int(palette.KITTEN[i:i + 2], 16) for i in (1, 3, 5)]
    pixels = numpy.array(image.convert("RGBA")).astype(int)
    distance = abs(pixels[..., :3] - colour).max(axis=-1) + 255 * (pixels[..., 3] == 0)
    if not name.startswith("kitten_0"):
        if (distance <= 20).sum() >= 25:
            sys.exit("%s: looks like a kitten" % name)
        return
    w, h = size
    for y in range(0, image.height, h):
        for x in range(0, image.width, w):
            if (distance[y:y + h, x:x + w] == 0).sum() < 130:
                sys.exit("%s: too little of the kittens' colour in the cell at %d, %d" % (name, x, y))


def save_gif(image, path):
    """Every colour as it is; a GIF knows no half-clear edges."""
    colors = [color for _, color in image.getcolors()]
    pixels = Image.new("P", image.size)
    pixels.putpalette([value for color in colors for value in color])
    pixels.putdata([colors.index(color) for color in image.getdata()])
    pixels.save(target(path), optimize=False)


def write_text(path, text):
    with open(target(path), "w", encoding="ascii", newline="\n") as f:
        f.write(text)


def tag(name, content, indent=1):
    return "%s<%s>%s</%s>\n" % ("  " * indent, name, content, name)


def sprite_file(kind, picture, rect, z, more=""):
    attributes = " ".join('%s="%d"' % pair for pair in rect)
    return ('<Sprite type="%s">\n' % kind + (tag("ImageFilename", picture) if picture else "") +
            "  <ImageRect %s></ImageRect>\n" % attributes + tag("Z", z) + tag("Alpha", 255) + more + "</Sprite>\n")


def still(name, sprite):
    picture = "%s/%s.png" % (GFX, name)
    image = rasterise(sprite.svg())
    if sprite.z > sprites.SCREENS:
        check_colour(image, name, image.size)
    save_png(image, picture, sprite.opaque)
    x, y = sprite.at
    write_text("%s/%s.xml" % (GFX, name), sprite_file("sprite_base", picture, (("x", x), ("y", y)), sprite.z))


def sheet(name, sprite):
    """Draws all cells as one picture, row by row.  The rectangle on screen has the size of one cell."""
    w, h = sprite.size
    columns = min(sprite.columns, sprite.cells)
    rows = -(-sprite.cells // columns)
    svg = ['<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d">' % (w * columns, h * rows)]
    for i in range(sprite.cells):
        svg.append('<svg x="%d" y="%d" width="%d" height="%d">%s</svg>' % (i % columns * w, i // columns * h, w, h, sprite.draw(i)))
    svg.append("</svg>")
    picture = "%s/%s.png" % (GFX, name)
    image = rasterise("".join(svg))
    check_colour(image, name, sprite.size)
    save_png(image, picture)
    more = (tag("CurrentAnimation", sprite.current) + tag("CurrentFrame", 0) + tag("MiniumUpdateTime", 30) + tag("Play", 1) +
            tag("TimeMultiply", 1) + "".join(animation_element(each, columns, w, h) for each in sprite.animations))
    x, y = sprite.at
    write_text("%s/%s.xml" % (GFX, name), sprite_file("sprite_animated", picture, (("x", x), ("y", y), ("w", w), ("h", h)), sprite.z, more))


def animation_element(animation, columns, w, h):
    out = '  <Animation name="%s" loop="%d">\n' % (animation.name, animation.loop)
    if animation.wait:
        out += rect_element(animation.frames[0][0], animation.wait, columns, w, h)
    if animation.sound:
        out += '    <Frame type="frame_sound" sound_file="%s/%s.wav"></Frame>\n' % (SFX, animation.sound)
    for cell, length in animation.frames:
        out += rect_element(cell, length, columns, w, h)
    return out + "  </Animation>\n"


def rect_element(cell, length, columns, w, h):
    return ('    <Frame type="frame_rect">\n      <Rect x="%d" y="%d" w="%d" h="%d"></Rect>\n      <FrameLength>%d</FrameLength>\n    </Frame>\n'
            % (cell % columns * w, cell // columns * h, w, h, length))


def sprite_table():
    lines = "".join('  <Sprite handle="%d" sprite_file="%s/%s.xml"></Sprite>\n' % (handle, GFX, name)
                    for handle, name in sorted(sprites.HANDLES.items()))
    write_text("%s/gfx_resources.xml" % GFX, "<GfxFactory>\n%s</GfxFactory>\n" % lines)


def numbers():
    save_png(rasterise(digits.sheet()), "%s/numbers.png" % GFX)
    write_text("%s/numbers.ogf" % GFX, digits.description("%s/numbers.png" % GFX))


def icon():
    """The window's icon: no alpha in a 24-bit BMP, hence a dark ground."""
    monster = rasterise(compose.picture("monster.svg", {})).resize((32, 32), Image.LANCZOS)
    ground = Image.new("RGBA", (32, 32), "#251a29")
    ground.alpha_composite(monster)
    ground.convert("RGB").save(target("%s/icon.bmp" % GFX))


def app_icons():
    """The icons of menus and task bars: one drawing, and a plainer one for the small sizes."""
    large, small = (compose.picture(source, {}) for source in ("app_icon.svg", "app_icon_small.svg"))
    write_text("%s/brumble.svg" % ICONS, large + "\n")
    for size in (16, 22, 24, 32, 48, 64, 128, 256):
        source = small if size < 48 else large
        save_png(rasterise(source, "-w", str(size), "-h", str(size)), "%s/%d.png" % (ICONS, size))


def gui():
    for name, draw in widgets.GIFS.items():
        save_gif(draw(), "%s/%s.gif" % (GUI, name))
    for name, draw in widgets.PNGS.items():
        save_png(draw(), "%s/%s.png" % (GUI, name), opaque=True)
    text_input()


def text_input():
    """An input line: its text starts at the left edge, where the cursor counts from."""
    more = ('  <FontStartPosition x="0" y="2"></FontStartPosition>\n'
            '  <FontRect x="0" y="0" w="400" h="20"></FontRect>\n' +
            tag("Text", "") + tag("BackdropFile", "%s/text_input.png" % GUI) + tag("FontFile", "system"))
    rect = (("x", 0), ("y", 0), ("w", 400), ("h", 20))
    write_text("%s/text_input.xml" % GUI, sprite_file("sprite_text", None, rect, 100, more))


def run_script(script, *arguments):
    subprocess.run([sys.executable, os.path.join(HERE, "sfx", script)] + list(arguments), check=True)


def sound(name):
    run_script(name + ".py", target("%s/%s.wav" % (SFX, name)))


def tune(name):
    """A tune as Ogg Vorbis; -R keeps the encoder from using the clock."""
    with tempfile.TemporaryDirectory() as folder:
        wav = os.path.join(folder, name + ".wav")
        run_script(name + ".py", wav)
        subprocess.run(["sox", "-R", wav, "-C", "0.7", "--comment", "", target("%s/%s.ogg" % (MUSIC, name))], check=True)


def sounds():
    for name in SOUNDS:
        sound(name)


def music():
    for name in TUNES:
        tune(name)


def gfx():
    for name in sprites.SPRITES:
        one_sprite(name)
    sprite_table()
    numbers()
    icon()


def one_sprite(name):
    sprite = sprites.SPRITES[name]
    (sheet if isinstance(sprite, sprites.Sheet) else still)(name, sprite)


def main(wanted):
    steps = {"gfx": gfx, "gui": gui, "sfx": sounds, "music": music, "numbers": numbers, "icons": app_icons}
    for name in wanted or ("gfx", "gui", "icons", "sfx", "music"):
        if name in steps:
            steps[name]()
        elif name.startswith("sfx/") and name[4:] in SOUNDS:
            sound(name[4:])
        elif name.startswith("music/") and name[6:] in TUNES:
            tune(name[6:])
        elif name in sprites.SPRITES:
            one_sprite(name)
        else:
            sys.exit("art/render: no picture, sound or group is called " + name)


if __name__ == "__main__":
    main(sys.argv[1:])
