"""Where the default aircraft's handles lie in the four views, and what a drag there must show.

The fits are computed here from the aircraft's numbers and the drawing area's size, as the drawing area's
user would measure them; nothing of the program is asked.
"""

from dataclasses import dataclass

WING = dict(pos1=180, pos2=10, span=700, length1=230, length2=150, elevation=50, thickness=0.13)
STAB = dict(pos1=650, pos2=40, span=250, length1=130, length2=80, elevation=50, thickness=0.13)
FIN = dict(pos1=650, pos2=100, span=150, length1=150, length2=80, shift=30, thickness=0.1)
# Sections of the fuselage: place, lowest point, height, width.
SECTIONS = [(0, 10, 20, 20), (200, 10, 100, 100), (800, 30, 10, 10)]
BOX = dict(pos=200, elevation=50, shift=5, length=30, width=15, height=25)


@dataclass
class View:
    """A view's transform, for a drawing area of w by h pixels."""

    zoom: float
    xoff: float
    yoff: float
    down: int  # +1 where the second axis goes down the screen

    def at(self, along, across):
        return round(self.xoff + self.zoom * along), round(self.yoff + self.down * self.zoom * across)


def vtop(w, h):
    zoom = 0.95 * min(w / 1400, h / 800)
    return View(zoom, w / 2, (h - zoom * 800) / 2, 1)


def front(w, h):
    bottom = min(10, 50 - 0.13 * 150 / 2, 50 - 0.13 * 80 / 2, 30)
    top = max(110, 50 + 0.13 * 230 / 2, 50 + 0.13 * 80 / 2, 180)
    zoom = 0.95 * min(w / 1400, h / (top - bottom))
    return View(zoom, w / 2, (h + zoom * (bottom + top)) / 2, -1)


def side(w, h):
    zoom = 0.95 * min(w / 800, h / 100)
    return View(zoom, (w - zoom * 800) / 2, (h + zoom * 120) / 2, -1)


def side_with_tail(w, h):
    """Side as fitted with the Rudder tab open: wing and tail are taken in."""
    zoom = 0.95 * min(w / 830, h / 170)
    return View(zoom, (w - zoom * 830) / 2, (h + zoom * 190) / 2, -1)


def htop(w, h):
    zoom = 0.95 * min(w / 800, h / 100)
    return View(zoom, (w - zoom * 800) / 2, h / 2, -1)


@dataclass
class Handle:
    """A place to press, in model lengths, the way to drag in pixels, and the panel's fields that change:
    name -> (start value, change for each model length dragged right, and for each dragged down)."""

    name: str
    place: tuple
    way: tuple
    fields: dict
    shift: bool = False


def panel_handles(view, part, fields):
    """The handles of a wing or the stabiliser in VTop; `fields` are the names of its text boxes."""
    root, tip = 0, part["span"]
    lead = part["pos1"] + part["pos2"]
    rear_tip, rear_root = lead + part["length2"], part["pos1"] + part["length1"]
    chord1, chord2, pos1, pos2 = part["length1"], part["length2"], part["pos1"], part["pos2"]
    at = view.at
    return [
        Handle("tip", at(tip, lead + chord2 / 2), (7, 23), {fields["PosE"]: (pos2, 0, 1)}),
        Handle("tip with Shift", at(tip, lead + chord2 / 2), (31, 9),
               {fields["Span"]: (2 * part["span"], 2, 0)}, True),
        Handle("root", at(root, pos1 + chord1 * 0.6), (5, 19), {fields["PosB"]: (pos1, 0, 1)}),
        Handle("root with Shift", at(root, pos1 + chord1 * 0.6), (17, -8), {fields["Shift"]: (0, 1, 0)}, True),
        Handle("rear corner of the tip", at(tip, rear_tip), (4, 15), {fields["LengthE"]: (chord2, 0, 1)}),
        Handle("front corner of the tip", at(tip, lead), (4, -15),
               {fields["LengthE"]: (chord2, 0, -1), fields["PosE"]: (pos2, 0, 1)}),
        Handle("rear corner of the root", at(root, rear_root), (4, 13), {fields["LengthB"]: (chord1, 0, 1)}),
        Handle("front corner of the root", at(root, pos1), (3, 14),
               {fields["LengthB"]: (chord1, 0, -1), fields["PosB"]: (pos1, 0, 1), fields["PosE"]: (pos2, 0, -1)}),
    ]


def names(suffix):
    """The text boxes of a wing ("") or of the stabiliser ("Stab")."""
    return {key: f"{key}{suffix}Text" for key in
            ("PosE", "PosB", "LengthE", "LengthB", "Span", "Shift", "ElevationB", "ElevationE")}


def vtop_handles(w, h):
    view = vtop(w, h)
    nose = view.at(0, 0)
    handles = [(1, handle) for handle in panel_handles(view, WING, names(""))]
    handles += [(2, handle) for handle in panel_handles(view, STAB, names("Stab"))]
    handles += [
        (0, Handle("fuselage", nose, (21, 6), {"ShiftOffsetText": (0, 1, 0)})),
        (0, Handle("fuselage with Shift", nose, (6, 21), {"PosOffsetText": (0, 0, 1)}, True)),
    ]
    return view, handles


def front_handles(w, h):
    view = front(w, h)
    wing, stab, fin = names(""), names("Stab"), FIN
    tip, stab_tip = view.at(700, 50), view.at(250, 50)
    root = view.at(0, 50 + 12)  # above the stabiliser's root, which lies in the middle of the wing's
    low, high = view.at(0, fin["shift"]), view.at(0, fin["shift"] + fin["span"])
    return view, [
        (1, Handle("wing tip", tip, (3, -25), {wing["ElevationE"]: (0, 0, -1)})),
        (1, Handle("wing tip with Shift", tip, (-25, 4), {wing["Span"]: (1400, 2, 0)}, True)),
        (1, Handle("wing root", root, (3, -18), {wing["ElevationB"]: (50, 0, -1)})),
        (1, Handle("wing root with Shift", root, (18, 3), {wing["Shift"]: (0, 1, 0)}, True)),
        (2, Handle("stabiliser tip", stab_tip, (3, -25), {stab["ElevationE"]: (0, 0, -1)})),
        (2, Handle("stabiliser tip with Shift", stab_tip, (25, 3), {stab["Span"]: (500, 2, 0)}, True)),
        (3, Handle("fin, lower edge", low, (17, 5), {"Offset1RudderText": (0, 1, 0)})),
        (3, Handle("fin, lower edge with Shift", low, (5, 17), {"ShiftRudderText": (30, 0, -1)}, True)),
        (3, Handle("fin, upper edge", high, (17, 5), {"Offset2RudderText": (0, 1, 0)})),
        (3, Handle("fin, upper edge with Shift", high, (5, -17), {"SpanRudderText": (150, 0, -1)}, True)),
    ]


def side_handles(w, h):
    view = side(w, h)
    pos, low, height, _ = SECTIONS[1]
    bar, top, bottom = view.at(pos, low + height / 2), view.at(pos, low + height), view.at(pos, low)
    return view, [
        (0, Handle("section", bar, (4, -22), {"ElevationFuselageText": (low, 0, -1)})),
        (0, Handle("section with Shift", bar, (22, 4), {"PosFuselageText": (pos, 1, 0)}, True)),
        (0, Handle("top of a section", top, (4, -22), {"HeightFuselageText": (height, 0, -1)})),
        (0, Handle("bottom of a section", bottom, (4, 22),
                   {"ElevationFuselageText": (low, 0, -1), "HeightFuselageText": (height, 0, 1)})),
    ]


def fin_handles(w, h):
    """In Side, with the Rudder tab open."""
    view = side_with_tail(w, h)
    p1, p2, s, l1, l2, sp = (FIN[k] for k in ("pos1", "pos2", "shift", "length1", "length2", "span"))
    root, tip = view.at(p1 + l1 * 0.6, s), view.at(p1 + p2 + l2 / 2, s + sp)
    return view, [
        (3, Handle("fin root", root, (-20, 5), {"PosBRudderText": (p1, 1, 0)})),
        (3, Handle("fin root with Shift", root, (5, -20), {"ShiftRudderText": (s, 0, -1)}, True)),
        (3, Handle("fin tip", tip, (-20, 5), {"PosERudderText": (p2, 1, 0)})),
        (3, Handle("fin tip with Shift", tip, (5, 20), {"SpanRudderText": (sp, 0, -1)}, True)),
        (3, Handle("rear corner of the fin's tip", view.at(p1 + p2 + l2, s + sp), (-15, 3),
                   {"LengthERudderText": (l2, 1, 0)})),
        (3, Handle("rear corner of the fin's root", view.at(p1 + l1, s), (-15, 3),
                   {"LengthBRudderText": (l1, 1, 0)})),
        (3, Handle("front corner of the fin's tip", view.at(p1 + p2, s + sp), (-15, 3),
                   {"LengthERudderText": (l2, -1, 0), "PosERudderText": (p2, 1, 0)})),
        (3, Handle("front corner of the fin's root", view.at(p1, s), (-15, 3),
                   {"LengthBRudderText": (l1, -1, 0), "PosBRudderText": (p1, 1, 0),
                    "PosERudderText": (p2, -1, 0)})),
    ]


def htop_handles(w, h):
    view = htop(w, h)
    pos, _, _, width = SECTIONS[1]
    # The plus end lies below the middle: in this view it is drawn at plus pixels.
    plus, minus, bar = view.at(pos, -width / 2), view.at(pos, width / 2), view.at(pos, -width / 4)
    return view, [
        (0, Handle("plus end", plus, (3, 12), {"WidthFuselageText": (width, 0, 2)})),
        (0, Handle("minus end", minus, (3, -12), {"WidthFuselageText": (width, 0, -2)})),
        (0, Handle("section with Shift", bar, (19, 3), {"PosFuselageText": (pos, 1, 0)}, True)),
        (0, Handle("section", bar, (19, 3), {"PosFuselageText": (pos, 0, 0)})),
    ]


def box_handles(w, h, view_name):
    """The one box, with the Electronics tab open."""
    if view_name == "Side":
        view = side(w, h)
        edge = view.at(BOX["pos"] + BOX["length"] / 2, BOX["elevation"])
        across = "ElevationServoText", BOX["elevation"]
    else:
        view = htop(w, h)
        edge = view.at(BOX["pos"] + BOX["length"] / 2, BOX["shift"] - BOX["width"] / 2)
        across = "ShiftServoText", BOX["shift"]
    return view, [
        Handle("box", edge, (25, 6), {"PosServoText": (BOX["pos"], 1, 0)}),
        Handle("box with Shift", edge, (6, -25), {across[0]: (across[1], 0, -1)}, True),
    ]
