#!/usr/bin/env python3
"""Where a control of a Designer form sits: form-geometry.py FORM.ui NAME...

Prints "x y width height" a line per NAME (an object name such as IDC_1128 or
IDOK; "." for the form itself), in pixels from the form's top left corner, adding up the positions of
the widgets the control is nested in. The forms have fixed geometry, so this is
where the control appears in the dialog the form is loaded into. Exits 1 naming
the first control that the form lacks or places inside a layout.
"""

import sys
import xml.etree.ElementTree as ET


def rect_of(widget):
    rect = widget.find("property[@name='geometry']/rect")
    if rect is None:
        return None
    return [int(rect.find(tag).text) for tag in ("x", "y", "width", "height")]


def find(widget, name, x, y):
    """The control's rectangle inside `widget`, whose own corner is at x, y."""
    for child in widget.findall("widget"):
        rect = rect_of(child)
        if rect is None:
            continue  # laid out by a layout: no fixed place to click
        if child.get("name") == name:
            return [x + rect[0], y + rect[1], rect[2], rect[3]]
        found = find(child, name, x + rect[0], y + rect[1])
        if found:
            return found
    return None


def main(argv):
    if len(argv) < 3:
        sys.stderr.write("usage: form-geometry.py FORM.ui NAME...\n")
        return 2
    form = ET.parse(argv[1]).getroot().find("widget")
    for name in argv[2:]:
        if form is None:
            rect = None
        elif name == ".":
            rect = rect_of(form)
            rect = rect and [0, 0, rect[2], rect[3]]
        else:
            rect = find(form, name, 0, 0)
        if rect is None:
            sys.stderr.write("%s: no control %s with a fixed place\n" % (argv[1], name))
            return 1
        print(*rect)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
