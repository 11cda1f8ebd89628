"""Runs the program vek, and the example of the README, as a user does.

    vek_program_test.py SOURCE VEK EXAMPLE [RUNNER]

SOURCE is the source tree; RUNNER starts a program that this system cannot run itself.
"""

import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import types
import unittest
import xml.etree.ElementTree
import zlib

SOURCE, VEK, EXAMPLE = (pathlib.Path(argument) for argument in sys.argv[1:4])
RUNNER = sys.argv[4:]
EXAMPLES = SOURCE / "examples"
LIBRARY = str(EXAMPLES / "facade.slb")
SLIDE = str(EXAMPLES / "mullion.sld")


def run(program, *arguments, cwd=None):
    """Status and output. Files take the output: what Wine leaves running behind a program would keep pipes open."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}
    with tempfile.TemporaryFile("w+", encoding="utf-8") as out, tempfile.TemporaryFile("w+", encoding="utf-8") as err:
        command = [*RUNNER, str(program), *arguments]
        status = subprocess.run(command, cwd=cwd, env=environment, stdout=out, stderr=err, timeout=120).returncode
        out.seek(0)
        err.seek(0)
        return types.SimpleNamespace(returncode=status, stdout=out.read(), stderr=err.read())


def directory(data):
    """Names and slides of a library, by its layout."""
    entries, at = [], 32
    while data[at]:
        entries.append((data[at : at + 32].split(b"\0")[0].decode("cp1252"), struct.unpack_from("<I", data, at + 32)[0]))
        at += 36
    ends = [offset for _, offset in entries[1:]] + [len(data)]
    return {name: data[offset:end] for (name, offset), end in zip(entries, ends)}


def count_records(slide):
    """How many lines and fills a slide has, and the box of its coordinates, by the layout of the records."""
    order = ">" if slide[18] == 2 and slide[29] == 0x12 else "<"
    at = 31 if slide[18] == 2 else 34
    x = y = lines = fills = 0
    points = []
    while True:
        (word,) = struct.unpack_from(order + "H", slide, at)
        op, lo = word >> 8, struct.unpack("b", bytes([word & 255]))[0]
        if op < 0x80:
            x, y, to_x, to_y = struct.unpack_from(order + "hhhh", slide, at)
            points += [(x, y), (to_x, to_y)]
            lines, at = lines + 1, at + 8
        elif op == 0xFE:
            points += [(x, y)]
            x, y = x + lo, y + struct.unpack_from("b", slide, at + 2)[0]
            points += [(x, y)]
            lines, at = lines + 1, at + 3
        elif op == 0xFB:
            dy, to_dx, to_dy = struct.unpack_from("bbb", slide, at + 2)
            points += [(x + lo, y + dy), (x + to_dx, y + to_dy)]
            x, y = x + lo, y + dy
            lines, at = lines + 1, at + 5
        elif op == 0xFD:
            count = struct.unpack_from(order + "H", slide, at + 2)[0]
            points += [struct.unpack_from(order + "hh", slide, at + 2 + 6 * i) for i in range(1, count)]
            fills, at = fills + 1, at + 6 + 6 * count
        elif op == 0xFF:
            at += 2
        else:
            xs, ys = zip(*points)
            return lines, fills, (min(xs), min(ys), max(xs), max(ys))


def pixels_of(data):
    """Width, height and rows of 3 bytes a pixel of a PNG file without row filters."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n", data[:8]
    at, packed = 8, b""
    while at < len(data):
        size, kind = struct.unpack_from(">I4s", data, at)
        content = data[at + 8 : at + 8 + size]
        assert struct.unpack_from(">I", data, at + 8 + size)[0] == zlib.crc32(kind + content), kind
        if kind == b"IHDR":
            width, height, *form = struct.unpack(">IIBBBBB", content)
            assert form == [8, 2, 0, 0, 0], form
        packed += content if kind == b"IDAT" else b""
        at += 12 + size
    flat = zlib.decompress(packed)
    rows = [flat[i : i + 3 * width + 1] for i in range(0, len(flat), 3 * width + 1)]
    assert len(rows) == height and all(len(row) == 3 * width + 1 and row[0] == 0 for row in rows)
    return width, height, [row[1:] for row in rows]


class Case(unittest.TestCase):
    def setUp(self):
        # A folder whose name no 8-bit code page of the West holds.
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vek \u00dcbersicht \u0141\u00f3d\u017a "))
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, name):
        return str(self.folder / name)

    def file(self, name, data):
        pathlib.Path(self.path(name)).write_bytes(data)
        return self.path(name)

    def good(self, *arguments):
        result = run(VEK, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""), arguments)
        return result.stdout

    def bad(self, cause, *arguments):
        """Fails with one line that holds the cause, and leaves no file behind."""
        before = sorted(os.listdir(self.folder))
        result = run(VEK, *arguments)
        self.assertEqual((result.returncode, result.stdout), (2, ""), arguments)
        self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
        self.assertIn(cause, result.stderr)
        self.assertEqual(sorted(os.listdir(self.folder)), before)

    def svg(self, *arguments):
        out = self.path("out.svg")
        self.good(*arguments, "-o", out)
        return xml.etree.ElementTree.parse(out).getroot()


class Draw(Case):
    def test_slide_becomes_svg(self):
        root = self.svg("draw", SLIDE, "--size", "640x480")
        self.assertEqual((root.get("width"), root.get("height")), ("640", "480"))
        colours = xml.etree.ElementTree.tostring(root, encoding="unicode").lower()
        self.assertIn("#ff0000", colours)  # the axis
        self.assertIn("#000000", colours)  # colour 7 on white paper
        self.assertNotIn('stroke="#ffffff"', colours)

    def test_slide_becomes_metafile(self):
        self.good("draw", SLIDE, "-o", self.path("out.EMF"))
        data = (self.folder / "out.EMF").read_bytes()
        self.assertEqual((data[:4], data[40:44]), (b"\1\0\0\0", b" EMF"))
        self.assertEqual(struct.unpack_from("<I", data, 48)[0], len(data))

    def test_slide_becomes_pixels(self):
        self.good("draw", SLIDE, "-o", self.path("out.png"), "--size", "300x200")
        width, height, rows = pixels_of((self.folder / "out.png").read_bytes())
        self.assertEqual((width, height), (300, 200))
        colours = {row[i : i + 3] for row in rows for i in range(0, 900, 3)}
        self.assertLessEqual({b"\xff\xff\xff", b"\xff\0\0", b"\0\0\0"}, colours)
        self.assertEqual(rows[0], b"\xff" * 900)  # the margin
        # A square fills the height but for the margin: edges at half the margin, and nothing but paper beside them.
        square = self.file("square.json", b'{"items": [{"polyline": [[0, 0], [9, 0], [9, 9], [0, 9]], "closed": true}]}')
        self.good("draw", square, "-o", self.path("square.png"), "--size", "100x100")
        _, _, rows = pixels_of((self.folder / "square.png").read_bytes())
        black = [(x, y) for y, row in enumerate(rows) for x in range(100) if row[3 * x] == 0]
        xs, ys = {x for x, _ in black}, {y for _, y in black}
        self.assertEqual(len(black), 2 * (max(xs) - min(xs) + max(ys) - min(ys)))
        # At twice the scale the lines are two pixels wide.
        self.good("draw", square, "-o", self.path("large.png"), "--size", "200x200", "--scale", "2")
        _, _, large = pixels_of((self.folder / "large.png").read_bytes())
        black = [(x, y) for y, row in enumerate(large) for x in range(200) if row[3 * x] == 0]
        self.assertEqual(len(black), 8 * (max(x for x, _ in black) - min(x for x, _ in black) - 1))
        self.good("draw", square, "-o", self.path("dark.png"), "--size", "9x9", "--background", "#102030")
        _, _, rows = pixels_of((self.folder / "dark.png").read_bytes())
        self.assertEqual({row[i : i + 3] for row in rows for i in range(0, 27, 3)}, {b"\x10\x20\x30", b"\xef\xdf\xcf"})
        self.bad("too large", "draw", SLIDE, "-o", self.path("x.png"), "--size", "32767x32767")
        self.bad("y.png: cannot be written", "draw", SLIDE, "-o", self.path("no folder/y.png"))

    def test_library_becomes_a_sheet_or_one_slide(self):
        sheet, one = (len(list(self.svg("draw", LIBRARY, *a).iter())) for a in ([], ["--slide", "d\u00e4mmpaneel"]))
        self.assertGreater(sheet, 2 * one)
        self.assertGreater(one, 10)

    def test_view(self):
        self.good("draw", SLIDE, "-o", self.path("none.svg"))
        for view in ("P", "SO"):
            self.good("draw", SLIDE, "--view", view, "-o", self.path(view + ".svg"))
        none, plan, corner = ((self.folder / name).read_bytes() for name in ("none.svg", "P.svg", "SO.svg"))
        self.assertEqual(none, plan)
        self.assertNotEqual(none, corner)

    def test_slide_that_breaks_off_is_drawn_as_far_as_it_goes(self):
        cut = self.file("cut.sld", pathlib.Path(SLIDE).read_bytes()[:3000])
        self.assertGreater(len(list(self.svg("draw", cut).iter())), 10)

    def test_text(self):
        one, two = (len(list(self.svg("text", text).iter())) for text in ("\u00c4", "\u00c4 b c"))
        self.assertGreaterEqual(two, one)
        bars = [xml.etree.ElementTree.tostring(self.svg("text", text)) for text in ("A_", "A[", "A-")]
        self.assertEqual(bars[0], bars[1])
        self.assertNotEqual(bars[0], bars[2])
        self.bad("font can draw", "text", " ", "-o", self.path("x.svg"))


class Describe(Case):
    EVERY_KIND = """{"background": "#FFFFFF", "modes": [1, 2], "pointStyle": 2, "pointSize": 5, "items": [
      {"polyline": [[0, 0], [40, 0, 1], [40, 20]], "linetype": [1, 1, 0], "scale": 0.5, "color": "#12AB34"},
      {"polyline": [[0, 0, 0, 9, 9, 0], [20, 0, 5, 9, 9, 0, 0.5]], "width": 3, "mode": 2, "hidden": true},
      {"point": [10, 10], "style": 35, "size": -9, "color": 3},
      {"region": [[[0, 0], [60, 0], [60, 40], [0, 40]]], "fill": 5, "outline": true, "matrix":
        [[1, 0, 0, 100], [0, 1, 0, 0], [0, 0, 1, 0], [0, 0, 0, 1]]},
      {"region": [[[0, 0], [60, 0], [30, 40]]], "hatch": {"name": "steel", "scale": 0.5, "angle": 30}, "color": 1},
      {"text": "A B", "at": [0, 50], "height": 6, "turn": 90, "stack": [1, 2]},
      {"text": "AB", "align": "MC", "screenFixed": [5, 5], "noExtents": true},
      {"picture": "sign.bmp", "corners": [[1, 2], [3, 4]], "transparent": true}]}"""

    def test_every_kind(self):
        description = self.file("all.json", self.EVERY_KIND.encode())
        shutil.copy(EXAMPLES / "pictures" / "sign.bmp", self.folder)
        text = xml.etree.ElementTree.tostring(self.svg("draw", description), encoding="unicode").lower()
        for colour in ("#12ab34", "#00ff00", "#0000ff", "#ff0000"):
            self.assertIn(colour, text)
        info = self.good("info", description)
        self.assertIn("  items    2 polylines, 1 point, 2 regions, 3 texts, 1 picture\n", info)
        self.assertIn("to 160, ", info)
        self.good("draw", description, "-o", self.path("all.emf"))

    def test_sheets(self):
        sheets = sorted((EXAMPLES / "sheets").glob("*.json"))
        self.assertGreaterEqual(len(sheets), 3)
        for sheet in sheets:
            self.assertGreater(len(list(self.svg("draw", str(sheet)).iter())), 20)

    def test_slips_are_told_with_their_place(self):
        for text, cause in (
            ("{", "line 1, column 2"),
            ("[]", "no object"),
            ('{"item": []}', 'does not know "item"'),
            ('{"items": [{"point": [1, 2], "colour": 1}]}', 'items[0]: does not know "colour"'),
            ('{"items": [{"color": 1}]}', "items[0]: is no polyline"),
            ('{"items": [{"point": [1]}]}', "items[0].point: is no list of 2 to 3"),
            ('{"items": [{"polyline": [[1, 2], [1, "x"]]}]}', "items[0].polyline[1][1]: is no number"),
            ('{"items": [{"polyline": []}]}', "items[0].polyline: is an empty list"),
            ('{"items": [{"point": [1, 2], "color": "red"}]}', "items[0].color: is no colour"),
            ('{"items": [{"point": [1, 2], "style": 1.5}]}', "items[0].style: is no whole number"),
            ('{"items": [{"region": [[[0, 0], [1, 1]]], "hatch": {"scale": 1}}]}', 'items[0].hatch: has no "name"'),
            ('{"items": [{"picture": "nowhere.bmp"}]}', "items[0].picture: is no picture that can be read: nowhere.bmp"),
            ('{"patterns": "nowhere.pat"}', "nowhere.pat: is not there"),
        ):
            with self.subTest(text=text):
                self.bad(cause, "draw", self.file("slip.json", text.encode()), "-o", self.path("x.svg"))

    def test_hatch(self):
        names = self.good("list", str(EXAMPLES / "patterns" / "vek.pat")).splitlines()
        self.assertGreaterEqual(len(names), 20)
        lines = {}
        for name in names:
            path = self.svg("hatch", name.lower(), "--size", "300x300")
            lines[name] = sum(len(element.get("d", "")) for element in path.iter())
            self.assertGreater(lines[name], 500, name)
        own = self.file("own.pat", b"*FEW,\n0, 0,0, 0,1\n")
        self.assertIn("FEW", self.good("list", own))
        self.svg("hatch", "few", "--patterns", own, "--angle", "30", "--scale", "2")
        self.svg("hatch")
        for cause, arguments in (
            ("MARBLE: no such", ["MARBLE"]),
            ("in " + own, ["STEEL", "--patterns", own]),
            ("nowhere.pat: is not there", ["STEEL", "--patterns", self.path("nowhere.pat")]),
            ("wrong.pat:2", ["--patterns", self.file("wrong.pat", b"*A\nx\n")]),
            ("--scale", ["STEEL", "--scale", "0"]),
        ):
            self.bad(cause, "hatch", *arguments, "-o", self.path("x.svg"))


class Objects(Case):
    PROJECT = str(EXAMPLES / "facade.json")

    def drawn(self, *arguments):
        out = self.path("out.svg")
        self.good("draw", self.PROJECT, *arguments, "-o", out)
        return (self.folder / "out.svg").read_text()

    def test_views_and_kinds(self):
        views = "P N S O W NO NW SO SW E".split()
        pictures = {view: self.drawn("--view", view) for view in views}
        self.assertEqual(pictures["W"], pictures["E"])
        self.assertEqual(len(set(pictures.values())), len(views) - 1)
        self.assertEqual(self.drawn(), pictures["P"])
        solid = self.drawn("--view", "SO", "--full")
        self.assertEqual(set(re.findall('stroke="([^"]*)"', solid)), {"#000000"})
        self.assertLess(len(solid), len(pictures["SO"]))
        hidden = self.drawn("--view", "SO", "--cmode", "1")
        self.assertGreater(len(hidden), len(pictures["SO"]))
        self.assertEqual(len(set(re.findall('stroke="([^"]*)"', hidden))), 2)
        axes = self.drawn("--view", "NW", "--ucs", "--coord", "--cmode", "1", "--act", "handrail")
        self.assertGreater(len(axes), len(self.drawn("--view", "NW", "--cmode", "1")))
        self.assertIn('rx="6"', self.drawn("--kind", "drill"))  # the mark of the origin, as configured
        for kind in "fsheet", "bar", "drill", "hole", "extr":
            self.assertTrue(self.drawn("--kind", kind) != pictures["P"], kind)
        self.assertTrue(self.drawn("--kind", "hole") != self.drawn("--kind", "hole", "--act", "latch"))
        for ending in ".emf", ".png":
            self.good("draw", self.PROJECT, "--object", "Sandwich panel", "-o", self.path("out" + ending))

    def test_what_stands_in_it(self):
        objects = [line.split("\t") for line in self.good("list", self.PROJECT).splitlines()]
        self.assertEqual(len(objects), 11)
        for kind, name in objects:
            info = self.good("info", self.PROJECT, "--object", name)
            self.assertEqual(kind == "bgr", "elements" in info, name)
            self.assertNotIn("items    none", info)
        elements = self.good("info", self.PROJECT, "--kind", "bgr")
        self.assertIn("  elements 77\n    ANGLE       6  angle left, angle right\n", elements)

    @unittest.skipIf(RUNNER, "a terminal of this system")
    def test_progress_is_for_terminals(self):
        tree = json.loads(pathlib.Path(self.PROJECT).read_text(encoding="utf-8"))
        tree["DEF"]["facade"] = {"BT": tree.pop("BT"), "BGR": tree.pop("BGR")}
        tree["BGR"] = {str(i): {"REF": "facade", "ORG": {"@point": [3000 * i, 0, 0]}} for i in range(4)}
        del tree["USE"]
        many = self.file("many.json", json.dumps(tree).encode())
        command = [str(VEK), "draw", many, "--view", "NW", "--full", "-o"]
        quiet = subprocess.Popen([*command, self.path("quiet.svg")], stderr=subprocess.PIPE)
        master, terminal = os.openpty()
        with subprocess.Popen([*command, self.path("many.svg")], stderr=terminal) as program:
            os.close(terminal)
            told = os.read(master, 1000).decode()
            self.assertEqual(program.wait(120), 0)
        self.assertRegex(told, r"^\rvek: drawing .*many.json, 1 s")
        self.assertTrue(os.read(master, 10000).decode().endswith(" \r"))
        self.assertEqual(quiet.communicate(timeout=120), (None, b""))

    def test_wrong_use(self):
        own = self.file("own.json", b'{"BT": {"post": {"TYPE": "EXTR"}}}')
        for cause, arguments in (
            ("--kind", [self.PROJECT, "--kind", "wall"]),
            ("--view X", [self.PROJECT, "--view", "X"]),
            ("--full", [self.PROJECT, "--kind", "hole", "--full"]),
            ("--act nobody", [self.PROJECT, "--act", "nobody"]),
            ("--act nobody", [self.PROJECT, "--kind", "hole", "--act", "nobody"]),
            ("no object attic", [self.PROJECT, "--object", "attic"]),
            ("no object section of kind hole", [self.PROJECT, "--object", "section", "--kind", "hole"]),
            ("--slide", [self.PROJECT, "--slide", "PFOSTEN"]),
            ("has no objects", [SLIDE, "--full"]),
            ("own has nothing to draw", [own]),
            ("own has nothing to draw", [own, "--full"]),
            ("has no object", [self.file("none.json", b'{"OBJ": {}}')]),
            ("kind.json: ", [self.file("kind.json", b'{"KIND": "wall"}')]),
            ("nowhere.json", [self.file("use.json", b'{"USE": ["nowhere.json"], "BT": {}}')]),
            ("int.json:1: ", [self.file("int.json", b'{"BT": 12345678901}')]),
        ):
            with self.subTest(arguments=arguments):
                self.bad(cause, "draw", *arguments, "-o", self.path("x.svg"))


class Tell(Case):
    def test_list(self):
        names = self.good("list", LIBRARY).splitlines()
        self.assertEqual(names, list(directory(pathlib.Path(LIBRARY).read_bytes())))

    def test_info(self):
        blocks = self.good("info", LIBRARY)
        slides = directory(pathlib.Path(LIBRARY).read_bytes())
        self.assertGreaterEqual(len(slides), 8)
        for name, slide in slides.items():
            lines, fills, box = count_records(slide)
            expected = f"{LIBRARY} {name}\n  items    {lines} polylines, {fills} regions\n"
            expected += "  extents  {}, {} to {}, {}\n  colours ".format(*box)
            self.assertIn(expected, blocks)
        self.assertIn("7  #FFFFFF", self.good("info", LIBRARY, "--slide", "pfosten"))

    def test_help(self):
        for command in ([], ["draw"], ["list"], ["info"], ["text"], ["hatch"]):
            self.assertIn("Usage: vek", self.good(*command, "--help"))
        self.assertRegex(self.good("--version"), r"^vek \d+\.\d+\.\d+\n$")


class Refuse(Case):
    def test_wrong_use(self):
        out = self.path("x.svg")
        for cause, arguments in (
            ("subcommand", []),
            ("paint", ["paint"]),
            ("--frob", ["draw", SLIDE, "-o", out, "--frob"]),
            ("--output", ["draw", SLIDE]),
            ("x.bmp", ["draw", SLIDE, "-o", self.path("x.bmp")]),
            ("--size 3", ["draw", SLIDE, "-o", out, "--size", "3"]),
            ("--size 0x9", ["draw", SLIDE, "-o", out, "--size", "0x9"]),
            ("--size 9x99999", ["draw", SLIDE, "-o", out, "--size", "9x99999"]),
            ("--scale", ["draw", SLIDE, "-o", out, "--scale", "0"]),
            ("--background 256", ["draw", SLIDE, "-o", out, "--background", "256"]),
            ("--background #12345", ["draw", SLIDE, "-o", out, "--background", "#12345"]),
            ("--view X", ["draw", SLIDE, "-o", out, "--view", "X"]),
            ("--slide", ["draw", SLIDE, "-o", out, "--slide", "PFOSTEN"]),
            ("no slide NIRGENDS", ["draw", LIBRARY, "-o", out, "--slide", "NIRGENDS"]),
            ("mullion.sld", ["list", SLIDE]),
            ("nowhere.slb: is not there", ["list", self.path("nowhere.slb")]),
            ("facade.txt", ["info", self.path("facade.txt")]),
            ("y.svg: cannot be written", ["draw", SLIDE, "-o", self.path("no folder/y.svg")]),
        ):
            with self.subTest(arguments=arguments):
                self.bad(cause, *arguments)

    def test_bad_input(self):
        slide = pathlib.Path(SLIDE).read_bytes()
        header = b"h" * 32
        entry = b"A".ljust(32, b"\0")
        os.mkdir(self.path("folder.sld"))
        for name, data in (
            ("empty.sld", b""),
            ("cut.sld", slide[:30]),
            ("level.sld", slide[:18] + b"\3" + slide[19:]),
            ("empty.slb", b""),
            ("none.slb", header + bytes(36)),
            ("noise.slb", bytes(range(1, 256)) * 4),
        ):
            with self.subTest(name=name):
                self.bad(name, "draw", self.file(name, data), "-o", self.path("x.svg"))
        self.bad("folder.sld", "draw", self.path("folder.sld"), "-o", self.path("x.emf"))
        outside = self.file("outside.slb", header + entry + struct.pack("<I", 0x7FFFFFFF) + bytes(36))
        self.bad("A is damaged", "draw", outside, "--slide", "A", "-o", self.path("x.svg"))

    def test_old_picture_stays(self):
        old = self.file("x.svg", b"old")
        self.bad("cut.sld", "draw", self.file("cut.sld", b"x"), "-o", old)
        self.assertEqual((self.folder / "x.svg").read_bytes(), b"old")


class Readme(Case):
    def test_example_runs_as_it_stands_there(self):
        code = (EXAMPLES / "first_picture.cpp").read_text(encoding="utf-8")
        self.assertIn(code, (SOURCE / "README.md").read_text(encoding="utf-8"))
        shutil.copy(LIBRARY, self.folder)
        result = run(EXAMPLE, cwd=self.folder)
        lines, fills, _ = count_records(directory(pathlib.Path(LIBRARY).read_bytes())["PFOSTEN"])
        self.assertEqual(result.stdout, f"{lines + fills + 1} items in first_picture.svg\n")
        xml.etree.ElementTree.parse(self.path("first_picture.svg"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
