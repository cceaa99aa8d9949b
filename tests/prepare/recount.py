#!/usr/bin/env python3
"""recount.py MORVEX-DECK MORVEX FOLDER...: prepares and converts every deck of the folders, and counts each again.

The decks are read here by a reader of its own, as the keyword format means them: files, parameters, commas, long and
ten-column blocks, solids on two lines, sets by range and by part. Nodes with their coordinates in single precision,
elements by kind with part and nodes, parts, and sets with their members must be those in the written files. Decks that
prepare refuses (a missing file or parameter) are named and not counted."""
import pathlib
import re
import struct
import subprocess
import sys
import tempfile


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def number(text):
    text = text.strip()
    if not text:
        return 0.0
    fortran = re.fullmatch(r"([+-]?(?:\d+\.?\d*|\.\d+))[dDqQeE]?([+-]?\d+)?", text)
    if fortran and fortran.group(2) and not text.lstrip("+-").isdigit() and re.search(r"[dDqQeE+-]", text[1:]):
        return float(fortran.group(1) + "e" + fortran.group(2))
    return float(text)


class Deck:
    """What a deck says of its mesh."""

    def __init__(self, path):
        self.folder = path.parent
        self.parameters = {}
        self.nodes, self.shells, self.solids, self.particles = [], [], [], []
        self.parts, self.sets, self.asked = [], [], []
        self.read(path, False, False)
        self.answer()

    # ---- files and blocks

    def read(self, path, long, ten):
        lines = path.read_text(errors="replace").split("\n")
        block, name, wide, tens = [], None, long, ten
        for line in lines + ["*END"]:
            line = line.rstrip("\r")
            if line.startswith("$"):
                continue
            if not line.startswith("*"):
                block.append(line)
                continue
            if name:
                self.block(name, block, wide, tens, path, long, ten)
            words = line.upper().split() or ["*"]
            name, block = words[0].rstrip("+%-") if len(words[0]) > 1 else words[0], []
            mark = words[0][-1] if words[0][-1] in "+%-" else (words[1] if len(words) > 1 and words[1] in "+%-" else "")
            if name == "*KEYWORD":
                long = long or bool(re.search(r"LONG=[YK]", line.upper()))
                ten = ten or "I10=Y" in line.upper()
            wide, tens = (mark == "+" or (long and mark == "")), (mark == "%" or (ten and mark == ""))
            if name == "*END":
                break

    def fields(self, line, widths, wide, tens):
        if "," in line:
            texts = line.split(",")
        else:
            line = line.expandtabs(8)
            texts, at = [], 0
            for width in widths:
                width = 20 if wide else 10 if tens and width == 8 else width
                texts.append(line[at:at + width])
                at += width
        return [self.value(text) for text in texts] + [0.0] * (len(widths) - len(texts))

    def value(self, text):
        text = text.strip()
        match = re.fullmatch(r"(-?)&(\w+)", text)
        if match:
            found = self.parameters.get(match.group(2).lower(), 0.0)
            return -found if match.group(1) else found
        try:
            return number(text)
        except ValueError:
            return text

    def block(self, name, lines, wide, tens, path, long, ten):
        rows = [line for line in lines if line.strip()]
        if name == "*INCLUDE":
            for include in rows:
                found = [f / include.strip() for f in (path.parent, self.folder) if (f / include.strip()).is_file()]
                self.read(found[0], long, ten)
        elif name in ("*PARAMETER", "*PARAMETER_LOCAL"):
            for line in rows:
                texts = line.split(",") if "," in line else [line[i:i + 10] for i in range(0, len(line), 10)]
                for prefixed, text in zip(texts[::2], texts[1::2]):
                    if prefixed.strip()[:1].upper() in ("R", "I"):
                        self.parameters.setdefault(prefixed.strip()[1:].strip().lower(), self.value(text))
        elif name == "*NODE":
            for line in rows:
                f = self.fields(line, [8, 16, 16, 16], wide, tens)
                self.nodes.append((int(f[0]), *(single(x) for x in f[1:4])))
        elif name == "*ELEMENT_SPH":
            for line in rows:
                f = self.fields(line, [8, 8, 16], wide, tens)
                self.particles.append((int(f[0]), int(f[1])))
        elif name == "*ELEMENT_SHELL":
            self.shells += [tuple(map(int, self.fields(line, [8] * 6, wide, tens))) for line in rows]
        elif name == "*ELEMENT_SHELL_THICKNESS":
            self.shells += [tuple(map(int, self.fields(line, [8] * 6, wide, tens))) for line in lines[0::2] if line.strip()]
        elif name == "*ELEMENT_SOLID":
            table = [self.fields(line, [8] * 10, wide, tens) for line in rows]
            if table and not any(table[0][2:]):
                table = [head[:2] + nodes[:8] for head, nodes in zip(table[0::2], table[1::2])]
            self.solids += [tuple(map(int, row[:10])) for row in table]
        elif re.fullmatch(r"\*PART(_INERTIA|_CONTACT)*", name):
            self.part(name, lines, wide, tens)
        elif name.startswith("*SET_"):
            self.set(name, rows, lines, wide, tens)

    def part(self, name, lines, wide, tens):
        at = 0
        while at + 1 < len(lines):
            self.parts.append(int(self.fields(lines[at + 1], [10] * 8, wide, tens)[0]))
            at += 2
            if "_INERTIA" in name:
                at += 4 if int(self.fields(lines[at], [10] * 8, wide, tens)[4]) == 1 else 3
            at += 1 if "_CONTACT" in name else 0

    # ---- sets

    def set(self, name, rows, lines, wide, tens):
        match = re.fullmatch(r"\*SET_(NODE|PART|SHELL|SOLID|SEGMENT)(_LIST)?(_GENERATE|_GENERAL)?(_TITLE)?", name)
        if not match:
            return
        kind, _, way, title = match.groups()
        rows = [line for line in lines[1 if title else 0:] if line.strip()]
        sid = int(self.fields(rows[0], [10], wide, tens)[0])
        cards = [self.fields(line, [10] * 8, wide, tens) for line in rows[1:]]
        if way is None and kind == "SEGMENT":
            members = [tuple(map(int, card[:4])) for card in cards]
        elif way is None:
            members = [int(x) for card in cards for x in card[:8] if x]
        else:
            self.asked.append((kind, sid, way, cards))
            return
        self.sets.append((kind, sid, members))

    def answer(self):
        """The members of sets by range and by part."""
        ids = {"NODE": [n[0] for n in self.nodes], "PART": self.parts, "SHELL": [s[0] for s in self.shells],
               "SOLID": [s[0] for s in self.solids]}
        for kind, sid, way, cards in self.asked:
            found = set()
            for card in cards:
                if way == "_GENERATE":
                    ends = list(zip(card[0::2], card[1::2]))
                    found |= {i for i in ids[kind] for a, b in ends if a and a <= i <= b}
                elif card[0] == "PART" and kind == "NODE":
                    parts = [x for x in card[1:] if x]
                    for element in self.shells + self.solids:
                        if element[1] in parts:
                            found |= set(element[2:]) - {0}
                else:
                    found = None
                    break
            if found is not None:
                self.sets.append((kind, sid, sorted(found)))


class Written:
    """What the converter's files say."""

    def __init__(self, folder):
        self.nodes, self.shells, self.solids, self.particles = [], [], [], []
        self.parts, self.sets = [], []
        take = None
        for line in (folder / "model.geom").read_text(errors="replace").splitlines():
            if line.startswith("!") or not line.strip():
                continue
            if "Definition" in line:
                take = line.split()[0]
                continue
            f = line.split()
            if take == "Node":
                self.nodes.append((int(line[:8]), *(single(float(line[8 + 21 * i:29 + 21 * i])) for i in range(3))))
            elif take == "Shell" and "." not in line:
                self.shells.append(tuple(map(int, f[:6])))
            elif take == "Solid":
                self.solids.append(tuple(map(int, f[:10])))
            elif take == "SPH":
                self.particles.append((int(f[0]), int(f[1])))
        for line in (folder / "model.card").read_text(errors="replace").splitlines():
            if line.startswith(" Part definition:"):
                self.parts.append(int(line.split(":")[1].split()[0]))
        for line in (folder / "model.sets").read_text(errors="replace").splitlines():
            match = re.match(r" (\w+)(?: element)? set definition\s*:\s*(\d+)", line, re.IGNORECASE)
            if match:
                self.sets.append((match.group(1).upper(), int(match.group(2)), []))
            elif self.sets and line.strip() and not line.startswith("!"):
                values = [int(line[i:i + 10]) for i in range(0, len(line.rstrip()), 10)]
                self.sets[-1][2].extend([tuple(values[:4])] if self.sets[-1][0] == "SEGMENT" else [v for v in values if v])


def differences(deck, written):
    for what in ("nodes", "shells", "solids", "particles", "parts"):
        expected, found = getattr(deck, what), getattr(written, what)
        if expected != found:
            first = next((pair for pair in zip(expected, found) if pair[0] != pair[1]), None)
            yield f"{what}: {len(expected)} in the deck, {len(found)} written; {first}"
    kinds = {"SHELL": "ELEMENT", "SOLID": "ELEMENT"}
    expected = {(kinds.get(kind, kind), sid): members for kind, sid, members in deck.sets}
    found = {(kind, sid): members for kind, sid, members in written.sets}
    for key in expected:
        if found.get(key) != expected[key]:
            yield f"set {key}: {len(expected[key])} members in the deck, {len(found.get(key) or [])} written"


def main(morvex_deck, morvex, folders):
    failed = False
    decks = sorted(p for folder in folders for p in pathlib.Path(folder).rglob("*") if p.suffix in (".k", ".key", ".dyn"))
    for path in decks:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            run = subprocess.run([morvex_deck, "prepare", path, "-o", folder / "model.k"], capture_output=True, text=True)
            if run.returncode == 2:
                print(f"{path.name}: refused: {run.stderr.splitlines()[-1]}")
                continue
            flags = "cardflag setflag geomflag contflag icflag lcflag sphflag plotflag".split()
            (folder / "input.morvex").write_text(" sourcefile : model.k\n" + "".join(f" {f} : 1\n" for f in flags))
            subprocess.run([morvex], cwd=folder, check=True, capture_output=True)
            deck, found = Deck(path), list(differences(Deck(path), Written(folder)))
            print(f"{path.name}: {len(deck.nodes)} nodes, {len(deck.shells)} shells, {len(deck.solids)} solids, "
                  f"{len(deck.particles)} particles, {len(deck.parts)} parts, {len(deck.sets)} sets"
                  + "".join("\n    " + line for line in found))
            failed = failed or bool(found)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3:]))
