"""Turns a picture source into plain SVG.

A source in gfx/ is SVG with three extras, all in the namespace "brumble":
  {NAME}                        is replaced by the sprite's variable or a palette colour;
  <b:letters x="" y="" size="" style="" anchor="" colour="">TEXT</b:letters>
                                is drawn with the alphabet of lettering.py;
  <b:part ref="" .../>          is replaced by gfx/parts/REF.svg or by a generator of
                                GENERATORS; its "transform" attribute is kept.
"""
import os
import re
import xml.etree.ElementTree as ET

import effects
import kitten
import lettering
import masonry
import monster
import palette

HERE = os.path.dirname(os.path.abspath(__file__))
SVG = "http://www.w3.org/2000/svg"
OURS = "brumble"
ET.register_namespace("", SVG)

GENERATORS = {  # "name" or "name:argument:argument"
    "kitten": lambda hair, spin: kitten.group(int(hair), int(spin)),
    "monster": monster.portrait,
    "pupil": monster.pupil,
    "back_wall": masonry.back_wall,
    "walls": masonry.walls,
    "fire": effects.hearth,
    "flame": lambda width, height, seed: effects.still_flame(float(width), float(height), int(seed)),
}


def substitute(text, variables):
    values = {name: value for name, value in vars(palette).items() if name.isupper()}
    values.update(variables)
    return re.sub(r"\{([A-Z_0-9]+)\}", lambda m: values[m.group(1)], text)


def fragment(markup):
    return ET.fromstring('<g xmlns="%s" xmlns:b="%s">%s</g>' % (SVG, OURS, markup))


def part(element):
    name, *arguments = element.get("ref").split(":")
    if name in GENERATORS:
        group = fragment(GENERATORS[name](*arguments))
    else:
        with open(os.path.join(HERE, "gfx", "parts", name + ".svg"), encoding="utf-8") as f:
            source = ET.fromstring(substitute(f.read(), {}))
        group = ET.Element("{%s}g" % SVG)
        group.extend(list(source))
        expand(group)
    for key, value in element.items():
        if key != "ref":
            group.set(key, value)
    return group


def letters(element):
    text = (element.text or "").strip()
    get = element.get
    return fragment(lettering.svg(text, float(get("x")), float(get("y")), float(get("size")), get("style", "plain"),
                                  get("anchor", "start"), get("colour")))


def expand(parent):
    for i, child in enumerate(list(parent)):
        if child.tag == "{%s}part" % OURS:
            parent[i] = part(child)
        elif child.tag == "{%s}letters" % OURS:
            parent[i] = letters(child)
        else:
            expand(child)


def picture(source, variables):
    """The plain SVG text of gfx/`source`."""
    with open(os.path.join(HERE, "gfx", source), encoding="utf-8") as f:
        root = ET.fromstring(substitute(f.read(), variables))
    expand(root)
    return ET.tostring(root, encoding="unicode")
