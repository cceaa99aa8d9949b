#!/usr/bin/env python3
"""Writes taylor.k: a quarter of a copper bar that hits a hard wall end on. Units: g, cm, s.

    python3 make_deck.py > taylor.k
"""
from math import cos, pi, sin

RADIUS, LENGTH = 0.32, 3.24
LAYERS = 8  # elements along the bar
CORE, RING = 2, 2  # elements along an edge of the square core; rings of elements around it
SPEED = -1.9e4


def number_text(value):
    text = f"{value:.6g}" if isinstance(value, float) else str(value)
    return text + ".0" if isinstance(value, float) and text.lstrip("-").isdigit() else text


def card(*values, width=10):
    """One line of right-aligned fields; None leaves a field blank."""
    return "".join(("" if v is None else number_text(v)).rjust(width) for v in values)


def node_card(nid, x, y, z):
    return f"{nid:8d}{x:16.7e}{y:16.7e}{z:16.7e}"


def section_points():
    """The points of one cross-section, as {label: (x, y)}: a square core, then arcs that grow round."""
    half = 0.55 * RADIUS
    points = {(i, j): (half * i / CORE, half * j / CORE) for j in range(CORE + 1) for i in range(CORE + 1)}
    border = [(CORE, j) for j in range(CORE)] + [(i, CORE) for i in range(CORE, -1, -1)]
    for ring in range(1, RING + 1):
        for k, label in enumerate(border):
            angle = pi / 2 * k / (2 * CORE)
            inner, outer = points[label], (RADIUS * cos(angle), RADIUS * sin(angle))
            part = ring / RING
            points[ring, "arc", k] = tuple(round((1 - part) * a + part * b, 9) for a, b in zip(inner, outer))
    return points, border


def section_quads(border):
    """The quadrilaterals of one cross-section, as four labels each."""
    quads = [((i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)) for j in range(CORE) for i in range(CORE)]
    for ring in range(1, RING + 1):
        for k in range(2 * CORE):
            a, b = (border[k], border[k + 1]) if ring == 1 else ((ring - 1, "arc", k), (ring - 1, "arc", k + 1))
            quads.append((a, (ring, "arc", k), (ring, "arc", k + 1), b))
    return quads


def node_set(sid, title, nodes):
    rows = [card(*nodes[i:i + 8]) for i in range(0, len(nodes), 8)]
    return ["*SET_NODE_LIST_TITLE", title, card(sid, 0.0, 0.0, 0.0, 0.0), *rows]


points, border = section_points()
number = {label: n for n, label in enumerate(points, start=1)}
per_layer = len(points)
nodes = {}
for layer in range(LAYERS + 1):
    for label, (x, y) in points.items():
        nodes[layer * per_layer + number[label]] = (x, y, LENGTH * layer / LAYERS)
solids = []
for layer in range(LAYERS):
    for quad in section_quads(border):
        low = [layer * per_layer + number[label] for label in quad]
        solids.append([*low, *(n + per_layer for n in low)])

NEAR = 1e-9
on_x = [n for n, p in nodes.items() if abs(p[0]) < NEAR]
on_y = [n for n, p in nodes.items() if abs(p[1]) < NEAR]
face = [n for n, p in nodes.items() if p[2] < NEAR]
moving = [n for n, p in nodes.items() if p[2] >= NEAR]

lines = [
    "*KEYWORD",
    "*TITLE",
    "Copper bar on a hard wall at 190 m/s",
    "$ units: g, cm, s",
    "*CONTROL_TERMINATION",
    card(8.0e-5, 0, 0.0, 0.0, 0.0),
    "*CONTROL_ENERGY",
    card(2, 2, 2, 2),
    "*DATABASE_GLSTAT",
    card(1.0e-6),
    "*DATABASE_NODOUT",
    card(5.0e-7, 0, 0, 1),
    "*DATABASE_BINARY_D3PLOT",
    card(2.0e-6, 0, 0, 0, 0),
    "*BOUNDARY_SPC_SET",
    "$     nsid       cid      dofx      dofy      dofz     dofrx     dofry     dofrz",
    card(1, 0, 1, 0, 0, 0, 0, 0),
    card(2, 0, 0, 1, 0, 0, 0, 0),
    card(3, 0, 0, 0, 1, 0, 0, 0),
    "*INITIAL_VELOCITY",
    "$     nsid    nsidex     boxid    irigid",
    card(4, 0, 0, 0),
    card(0.0, 0.0, SPEED, 0.0, 0.0, 0.0),
    "*PART",
    "copper bar",
    "$      pid     secid       mid     eosid      hgid      grav    adpopt      tmid",
    card(1, 1, 29, 4, 7, 0, 0, 0),
    "*SECTION_SOLID_TITLE",
    "bar",
    card(1, 1, 0),
    "*MAT_JOHNSON_COOK_TITLE",
    "copper",
    "$      mid        ro         g         e        pr       dtf        vp    rateop",
    card(29, 8.96, 4.77e11, 1.29e12, 0.35, 0.0, 0.0, 0.0),
    "$        a         b         n         c         m        tm        tr      epso",
    card(9.0e8, 2.92e9, 0.31, 0.025, 1.09, 1356.0, 293.0, 1.0),
    "$       cp        pc     spall        it        d1        d2        d3        d4",
    card(3.83e6, -1.2e10, 2.0, 0.0, 0.54, 4.89, -3.03, 0.014),
    "$       d5",
    card(1.12, 0.0),
    "*EOS_GRUNEISEN_TITLE",
    "copper",
    "$    eosid         c        s1        s2        s3     gamao         a        e0",
    card(4, 3.94e5, 1.489, 0.0, 0.0, 2.02, 0.47, 0.0),
    "$       v0",
    card(1.0),
    "*HOURGLASS_TITLE",
    "bar",
    "$     hgid       ihq        qm       ibq        q1        q2        qb        qw",
    card(7, 6, 0.05, 1, 1.5, 0.06, 0.0, 0.0),
    *node_set(1, "plane of symmetry x=0", on_x),
    *node_set(2, "plane of symmetry y=0", on_y),
    *node_set(3, "impact face", face),
    *node_set(4, "all behind the impact face", moving),
    "*ELEMENT_SOLID",
    *(card(eid, 1, *solid, width=8) for eid, solid in enumerate(solids, start=1)),
    "*NODE",
    *(node_card(nid, *point) for nid, point in nodes.items()),
    "*END",
]
print("\n".join(lines))
