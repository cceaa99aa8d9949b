#!/usr/bin/env python3
"""Writes plate.k: a clamped steel plate with a thicker rim under the air blast of a charge above it. Units: g, cm, s.

    python3 make_deck.py > plate.k
"""
SIDE = 100.0  # of the plate, which lies in z=0 with its centre at the origin
CELLS = 6  # shells along a side
THIN, THICK = 0.6, 1.2


def number_text(value):
    text = f"{value:.6g}" if isinstance(value, float) else str(value)
    return text + ".0" if isinstance(value, float) and text.lstrip("-").isdigit() else text


def card(*values, width=10):
    """One line of right-aligned fields; None leaves a field blank."""
    return "".join(("" if v is None else number_text(v)).rjust(width) for v in values)


def node_card(nid, x, y, z):
    return f"{nid:8d}{x:16.7e}{y:16.7e}{z:16.7e}"


def node(i, j):
    return 1 + i + j * (CELLS + 1)


steps = range(CELLS + 1)
nodes = {node(i, j): (SIDE * (i / CELLS - 0.5), SIDE * (j / CELLS - 0.5), 0.0) for j in steps for i in steps}
rim_nodes = [node(i, j) for j in steps for i in steps if i in (0, CELLS) or j in (0, CELLS)]
shells = []
for j in range(CELLS):
    for i in range(CELLS):
        corners = [node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1)]
        at_rim = i in (0, CELLS - 1) or j in (0, CELLS - 1)
        shells.append((corners, THICK if at_rim else THIN))

shell_cards = []
for eid, (corners, thickness) in enumerate(shells, start=1):
    shell_cards.append(card(eid, 1, *corners, width=8))
    shell_cards.append(card(*[thickness] * 4, 0.0, width=16))
centre = node(CELLS // 2, CELLS // 2)

lines = [
    "*KEYWORD",
    "*TITLE",
    "Clamped plate, 5 kg of TNT at 0.6 m",
    "$ units: g, cm, s",
    "*CONTROL_TERMINATION",
    card(2.0e-3),
    "*CONTROL_HOURGLASS",
    card(4, 0.03),
    "*DATABASE_NODOUT",
    card(1.0e-6),
    "*DATABASE_BINARY_D3DUMP",
    card(5000),
    "*DATABASE_HISTORY_NODE",
    "$      id1       id2       id3",
    card(centre, node(0, 0), node(CELLS, CELLS)),
    "*BOUNDARY_SPC_SET_ID",
    "         1clamped rim",
    "$     nsid       cid      dofx      dofy      dofz     dofrx     dofry     dofrz",
    card(1, 0, 1, 1, 1, 1, 1, 1),
    "*LOAD_BLAST",
    "$      wgt       xbo       ybo       zbo       tbo     iunit     isurf",
    card(5.0e3, 0.0, 0.0, 60.0, 0.0, 5, 2),
    "$      cfm       cfl       cft       cfp",
    card(2.205e-3, 3.281e-2, 1.0e3, 1.45e-5),
    "*LOAD_SEGMENT_SET",
    "$     ssid      lcid        sf        at        dt",
    card(4, 7, 1.0, 1.0e-4, 0.0),
    "*LOAD_SEGMENT_SET",
    "$ the loading of *LOAD_BLAST acts where the load curve is -2",
    card(3, -2, 1.0, 0.0, 0.0),
    "*DEFINE_CURVE_TITLE",
    "room pressure",
    "$     lcid      sidr       sfa       sfo      offa      offo    dattyp",
    card(7, 0, 1.0, 2.0, 0.0, 0.0, 0),
    card(0.0, 0.0, width=20),
    card(5.0e-4, 1.5e5, width=20),
    card(2.0e-3, 1.5e5, width=20),
    "*PART",
    "plate",
    "$      pid     secid       mid     eosid      hgid      grav    adpopt      tmid",
    card(1, 2, 24, 0, 0, 0, 0, 0),
    "*SECTION_SHELL",
    "$    secid    elform      shrf       nip     propt        qr     icomp     setyp",
    card(2, 2, 0.8333, 5, 1, 0, 0, 1),
    "$       t1        t2        t3        t4      nloc     marea      idof    edgset",
    card(THIN, THIN, THIN, THIN, 0, 0.0, 0.0, 0),
    "*MAT_PLASTIC_KINEMATIC",
    "$      mid        ro         e        pr      sigy      etan      beta",
    card(24, 7.83, 2.1e12, 0.29, 3.5e9, 1.2e10, 1.0),
    "$      src       srp        fs        vp",
    card(40.0, 5.0, 0.25, 0.0),
    "*SET_NODE_LIST_TITLE",
    "rim",
    card(1, 0.0, 0.0, 0.0, 0.0),
    *(card(*rim_nodes[i:i + 8]) for i in range(0, len(rim_nodes), 8)),
    "*SET_SEGMENT_TITLE",
    "side of the charge",
    card(3, 0.0, 0.0, 0.0, 0.0),
    *(card(*corners, 0.0, 0.0, 0.0, 0.0) for corners, _ in shells),
    "*SET_SEGMENT_TITLE",
    "side of the room",
    card(4, 0.0, 0.0, 0.0, 0.0),
    *(card(*reversed(corners), 0.0, 0.0, 0.0, 0.0) for corners, _ in shells),
    "*ELEMENT_SHELL_THICKNESS",
    "$    eid     pid      n1      n2      n3      n4",
    *shell_cards,
    "*NODE",
    *(node_card(nid, *point) for nid, point in nodes.items()),
    "*END",
]
print("\n".join(lines))
