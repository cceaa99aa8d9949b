#!/usr/bin/env python3
"""Writes bird.k: a bird of particles that flies into an aluminium panel. Units: g, cm, s.

    python3 make_deck.py > bird.k
"""
SIDE, CELLS = 36.0, 6  # the panel lies in z=0 with its centre at the origin
SPACING, RADIUS, LAYERS = 2.0, 5.0, 5  # the bird: a cylinder of particles along z, flying towards -z
GAP = 1.5  # between the panel and the first particles
BIRD_DENSITY = 0.95
SPEED = -1.5e4
PANEL, BIRD = 1, 2  # part numbers


def number_text(value):
    text = f"{value:.6g}" if isinstance(value, float) else str(value)
    return text + ".0" if isinstance(value, float) and text.lstrip("-").isdigit() else text


def card(*values, width=10):
    """One line of right-aligned fields; None leaves a field blank."""
    return "".join(("" if v is None else number_text(v)).rjust(width) for v in values)


def node_card(nid, x, y, z):
    return f"{nid:8d}{x:16.7e}{y:16.7e}{z:16.7e}"


def panel_node(i, j):
    return 1 + i + j * (CELLS + 1)


def node_set(sid, title, members):
    rows = [card(*members[i:i + 8]) for i in range(0, len(members), 8)]
    return ["*SET_NODE_LIST_TITLE", title, card(sid, 0.0, 0.0, 0.0, 0.0), *rows]


steps = range(CELLS + 1)
nodes = {panel_node(i, j): (SIDE * (i / CELLS - 0.5), SIDE * (j / CELLS - 0.5), 0.0) for j in steps for i in steps}
edge = [panel_node(i, j) for j in steps for i in steps if i in (0, CELLS) or j in (0, CELLS)]
shells = [
    (panel_node(i, j), panel_node(i + 1, j), panel_node(i + 1, j + 1), panel_node(i, j + 1))
    for j in range(CELLS) for i in range(CELLS)
]
centre = panel_node(CELLS // 2, CELLS // 2)

reach = int(RADIUS / SPACING) + 1
lattice = [SPACING * (k + 0.5) for k in range(-reach, reach)]
bird = {}
for layer in range(LAYERS):
    for y in lattice:
        for x in lattice:
            if x * x + y * y < RADIUS * RADIUS:
                bird[1001 + len(bird)] = (x, y, GAP + SPACING * layer)
nose = [nid for nid, (_, _, z) in bird.items() if z == GAP]
mass = BIRD_DENSITY * SPACING**3

lines = [
    "*KEYWORD",
    "*TITLE",
    "Bird on a panel at 150 m/s",
    "$ units: g, cm, s",
    "*CONTROL_TERMINATION",
    card(1.5e-3),
    "*CONTROL_SPH",
    "$     ncbs     boxid        dt      idim    memory      form     start      maxv",
    card(1, 0, 1.0e20, 3, 120, 0, 0.0, 5.0e4),
    "*CONTROL_CONTACT",
    card(0.1, 0.0, 1, 0, 1, 0, 1, 0),
    card(0, 0, 10, 0, 4.0),
    "*DATABASE_NODOUT",
    card(1.0e-6),
    "*DATABASE_HISTORY_NODE",
    card(centre),
    "*DATABASE_HISTORY_NODE_SET",
    card(3),
    "*DATABASE_HISTORY_SHELL",
    card(15, 16, 21, 22),
    "*CONTACT_AUTOMATIC_NODES_TO_SURFACE_ID",
    "         1bird on panel",
    "$     ssid      msid     sstyp     mstyp    sboxid    mboxid       spr       mpr",
    card(2, PANEL, 4, 3, 0, 0, 1, 1),
    "$       fs        fd        dc        vc       vdc    penchk        bt        dt",
    card(0.1, 0.0, 0.0, 0.0, 20.0, 0, 0.0, 1.0e20),
    "$      sfs       sfm       sst       mst      sfst      sfmt       fsf       vsf",
    card(1.0, 1.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0),
    "$     soft    sofscl    lcidab    maxpar     sbopt     depth     bsort    frcfrq",
    card(1, 0.2, 0, 1.025, 2.0, 2, 20, 1),
    "*BOUNDARY_SPC_SET",
    card(1, 0, 1, 1, 1, 1, 1, 1),
    "*INITIAL_VELOCITY_GENERATION",
    "$       id      styp     omega        vx        vy        vz     ivatn",
    card(BIRD, 2, 0.0, 0.0, 0.0, SPEED, 0),
    "$       xc        yc        zc        nx        ny        nz     phase",
    card(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0),
    "*PART",
    "panel",
    "$      pid     secid       mid     eosid      hgid      grav    adpopt      tmid",
    card(PANEL, 1, 11, 0, 0, 0, 0, 0),
    "*PART",
    "bird",
    card(BIRD, 2, 12, 5, 0, 0, 0, 0),
    "*SECTION_SHELL_TITLE",
    "panel",
    "$    secid    elform      shrf       nip     propt        qr     icomp     setyp",
    card(1, 16, 0.8333, 3, 1, 0, 0, 1),
    card(0.3, 0.3, 0.3, 0.3, 0, 0.0, 0.0, 0),
    "*SECTION_SPH_TITLE",
    "bird",
    "$    secid      cslh      hmin      hmax    sphini     death     start",
    card(2, 1.2, 0.2, 2.0, 0.0, 1.0e20, 0.0),
    "*MAT_SIMPLIFIED_JOHNSON_COOK_TITLE",
    "2024 aluminium",
    "$      mid        ro         e        pr        vp",
    card(11, 2.77, 7.31e11, 0.33, 0.0),
    "$        a         b         n         c    psfail    sigmax    sigsat      epso",
    card(3.69e9, 6.84e9, 0.73, 0.0083, 0.3, 1.0e20, 1.0e20, 1.0),
    "*MAT_NULL_TITLE",
    "bird",
    "$      mid        ro        pc        mu     terod     cerod        ym        pr",
    card(12, BIRD_DENSITY, -1.0e6, 0.01, 0.0, 0.0, 0.0, 0.0),
    "*EOS_LINEAR_POLYNOMIAL_TITLE",
    "bird",
    "$    eosid        c0        c1        c2        c3        c4        c5        c6",
    card(5, 0.0, 2.06e10, 7.4e10, 1.46e11, 0.0, 0.0, 0.0),
    card(0.0, 1.0),
    *node_set(1, "edge of the panel", edge),
    *node_set(2, "bird", list(bird)),
    *node_set(3, "nose of the bird", nose),
    "*ELEMENT_SHELL",
    *(card(eid, PANEL, *corners, width=8) for eid, corners in enumerate(shells, start=1)),
    "*ELEMENT_SPH",
    *(card(nid, BIRD, width=8) + card(mass, width=16) for nid in bird),
    "*NODE",
    *(node_card(nid, *point) for nid, point in {**nodes, **bird}.items()),
    "*END",
]
print("\n".join(lines))
