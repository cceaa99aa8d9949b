#!/usr/bin/env python3
"""Writes charge.k: a quarter of an explosive cylinder in water, lit at one end. Units: g, cm, s.

    python3 make_deck.py > charge.k
"""
from math import cos, pi, sin

CHARGE, OUTER, LENGTH = 2.5, 10.0, 10.0  # radius of the charge, radius of the water, length of both
LAYERS = 4
CORE = 2  # elements along an edge of the square in the middle
RADII = [CHARGE, 5.0, OUTER]  # of the rings of elements around it
EXPLOSIVE, WATER = 1, 2  # part numbers


def number_text(value):
    text = f"{value:.6g}" if isinstance(value, float) else str(value)
    return text + ".0" if isinstance(value, float) and text.lstrip("-").isdigit() else text


def card(*values, width=10):
    """One line of right-aligned fields; None leaves a field blank."""
    return "".join(("" if v is None else number_text(v)).rjust(width) for v in values)


def node_card(nid, x, y, z):
    return f"{nid:8d}{x:16.7e}{y:16.7e}{z:16.7e}"


def segment_set(sid, title, segments):
    rows = [card(*segment, 0.0, 0.0, 0.0, 0.0) for segment in segments]
    return ["*SET_SEGMENT_TITLE", title, card(sid, 0.0, 0.0, 0.0, 0.0), *rows]


# One cross-section: labels of points and where they are. The square's border, from the x axis round to the y axis, is
# ring 0 of the arcs.
ARC = 2 * CORE
half = 0.55 * CHARGE
square = {(i, j): (half * i / CORE, half * j / CORE) for j in range(CORE + 1) for i in range(CORE + 1)}
border = [(CORE, j) for j in range(CORE)] + [(i, CORE) for i in range(CORE, -1, -1)]
arcs = {}
for ring, radius in enumerate(RADII, start=1):
    for k in range(ARC + 1):
        angle = pi / 2 * k / ARC
        arcs[ring, "arc", k] = (round(radius * cos(angle), 9), round(radius * sin(angle), 9))
points = {**square, **arcs}
number = {label: n for n, label in enumerate(points, start=1)}


def at(ring, k):
    return border[k] if ring == 0 else (ring, "arc", k)


quads = [(EXPLOSIVE, [(i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)]) for j in range(CORE) for i in range(CORE)]
for ring in range(1, len(RADII) + 1):
    part = EXPLOSIVE if RADII[ring - 1] <= CHARGE else WATER
    for k in range(ARC):
        quads.append((part, [at(ring - 1, k), at(ring, k), at(ring, k + 1), at(ring - 1, k + 1)]))


def nid(label, layer):
    return layer * len(points) + number[label]


def side(labels):
    """Segments of the surface that a line of points makes along the cylinder."""
    return [(nid(a, layer), nid(b, layer), nid(b, layer + 1), nid(a, layer + 1))
            for layer in range(LAYERS) for a, b in zip(labels, labels[1:])]


nodes = {nid(label, layer): (x, y, LENGTH * layer / LAYERS)
         for layer in range(LAYERS + 1) for label, (x, y) in points.items()}
solids = [(part, [nid(label, layer + up) for up in (0, 1) for label in quad])
          for layer in range(LAYERS) for part, quad in quads]
rings = range(1, len(RADII) + 1)
plane_x = side([at(ring, ARC) for ring in reversed(rings)] + [(0, j) for j in range(CORE, -1, -1)])
plane_y = side([(i, 0) for i in range(CORE + 1)] + [at(ring, 0) for ring in rings])
outside = side([at(len(RADII), k) for k in range(ARC + 1)])

lines = [
    "*KEYWORD",
    "*TITLE",
    "Charge in water",
    "$ units: g, cm, s",
    "*CONTROL_TERMINATION",
    card(6.0e-5),
    "*CONTROL_TIMESTEP",
    card(0.0, 0.67),
    "*CONTROL_BULK_VISCOSITY",
    card(1.5, 0.06, 2),
    "*DATABASE_ELOUT",
    card(2.0e-7),
    "*DATABASE_HISTORY_SOLID",
    "$      id1       id2       id3       id4       id5       id6       id7       id8",
    card(*(eid for eid, (part, _) in enumerate(solids, start=1) if part == WATER and eid <= len(quads))),
    "*BOUNDARY_NON_REFLECTING",
    "$     ssid        ad        as",
    card(3, 1.0, 1.0),
    "*BOUNDARY_SYMMETRY_FAILURE",
    "$     ssid        fs       vtx       vty       vtz       vhx       vhy       vhz",
    card(1, 1.0e20, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0),
    card(2, 1.0e20, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0),
    "*INITIAL_DETONATION",
    "$      pid         x         y         z        lt",
    card(EXPLOSIVE, 0.0, 0.0, 0.0, 0.0),
    "*PART",
    "explosive",
    "$      pid     secid       mid     eosid      hgid      grav    adpopt      tmid",
    card(EXPLOSIVE, 1, 81, 21, 0, 0, 0, 0),
    "water",
    card(WATER, 1, 91, 41, 0, 0, 0, 0),
    "*SECTION_SOLID",
    card(1, 11, 0),
    "*MAT_HIGH_EXPLOSIVE_BURN",
    "$      mid        ro         d       pcj      beta         k         g      sigy",
    card(81, 1.63, 6.93e5, 2.1e11, 0.0, 0.0, 0.0, 0.0),
    "*EOS_JWL",
    "$    eosid         a         b        r1        r2      omeg        e0        vo",
    card(21, 3.712e12, 3.231e10, 4.15, 0.95, 0.3, 7.0e10, 1.0),
    "*MAT_NULL",
    "$      mid        ro        pc        mu     terod     cerod        ym        pr",
    card(91, 1.0, -1.0e6, 0.01, 4.0, 0.25, 0.0, 0.0),
    "*EOS_GRUNEISEN",
    "$    eosid         c        s1        s2        s3     gamao         a        e0",
    card(41, 1.48e5, 1.75, 0.0, 0.0, 0.28, 0.0, 0.0),
    card(1.0),
    *segment_set(1, "plane of symmetry x=0", plane_x),
    *segment_set(2, "plane of symmetry y=0", plane_y),
    *segment_set(3, "outside of the water", outside),
    "*ELEMENT_SOLID",
    *(card(eid, part, *corners, width=8) for eid, (part, corners) in enumerate(solids, start=1)),
    "*NODE",
    *(node_card(n, *point) for n, point in nodes.items()),
    "*END",
]
print("\n".join(lines))
