"""Drives the gallery with pointer and keys, as a person would, and looks at the screen.

    gallery_test.py GALLERY READER SHOTS [RUNNER] [-- TEST...]

READER is a program that saves the metafile on the clipboard. SHOTS is the folder for screenshots; RUNNER starts a
program that this system cannot run itself. The display is that of the environment, and LANGUAGES there are those in
which the dialogs are opened, "de" without it.
"""

import json
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import xml.etree.ElementTree

GALLERY, READER, SHOTS = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
RUNNER = sys.argv[4 : (sys.argv + ["--"]).index("--")]
TESTS = sys.argv[5 + len(RUNNER) :]
LANGUAGES = os.environ.get("LANGUAGES", "de").split()
EXAMPLES = pathlib.Path(__file__).parents[2] / "examples"
DEADLINE = 20.0  # seconds, for whatever is waited for
BETWEEN = 0.1  # seconds from one look to the next

# In the window, at 96 dots an inch and in its size at start: the picture without its border, and the status bar's text.
PICTURE = (244, 46, 992, 672)
STATUS = (4, 680, 860, 694)
MIDDLE = ((PICTURE[0] + PICTURE[2]) // 2, (PICTURE[1] + PICTURE[3]) // 2)

WHITE, BLACK = (255, 255, 255), (0, 0, 0)
OUTLINE, LINE, HIGHLIGHT, SLAB = (0, 82, 165), (255, 0, 0), (255, 0, 255), (128, 128, 128)


class Picture:
    """A part of the screen."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def __eq__(self, other):
        return self.data == other.data

    def part(self, left, top, right, bottom):
        rows = (self.data[3 * (y * self.width + left) : 3 * (y * self.width + right)] for y in range(top, bottom))
        return Picture(right - left, bottom - top, b"".join(rows))

    def places(self, color):
        """Where a colour is, from the top."""
        found, at = [], self.data.find(bytes(color))
        while at >= 0:
            if at % 3 == 0:
                found.append((at // 3 % self.width, at // 3 // self.width))
            at = self.data.find(bytes(color), at + 1)
        return found

    def box(self, color):
        """Left, top, right and bottom of a colour."""
        xs, ys = zip(*self.places(color))
        return min(xs), min(ys), max(xs), max(ys)


def wait(what, condition):
    """The first true value of a condition."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(BETWEEN)
    raise AssertionError(f"waited {DEADLINE:.0f} s for {what}")


def xdotool(*arguments):
    result = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, timeout=DEADLINE)
    return result.stdout.split()


def windows(name):
    return xdotool("search", "--onlyvisible", "--name", name)


def place(name):
    """Left, top, width and height of a window."""
    lines = xdotool("getwindowgeometry", "--shell", windows(name)[0])
    numbers = dict(line.split("=") for line in lines)
    return [int(numbers[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")]


def screen():
    data = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"], capture_output=True,
                          timeout=DEADLINE, check=True).stdout
    kind, width, height, most = data.split(maxsplit=4)[:4]
    pixels = data[-3 * int(width) * int(height) :]
    assert (kind, most) == (b"P6", b"255")
    return Picture(int(width), int(height), pixels)


class Gallery(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.program = None

    def tearDown(self):
        if self.program and self.program.poll() is None:
            self.program.kill()
            self.program.wait(DEADLINE)
        shutil.rmtree(self.folder)

    def start(self, name, *examples):
        """Shows a picture by its name."""
        self.assertEqual(windows("VEK Gallery"), [], "another gallery is open")
        with open(self.folder / "output.txt", "w") as output:
            command = [*RUNNER, str(GALLERY), *examples, "--show", name]
            self.program = subprocess.Popen(command, stdout=output, stderr=output)
        wait("the window", lambda: windows(f"{name} - VEK Gallery"))
        self.left, self.top, *self.size = place("VEK Gallery")
        self.to(*MIDDLE)
        return self.still()

    def still(self):
        """The picture, when two looks at the window are alike."""
        self.window = None

        def alike():
            before, self.window = self.window, self.shot()
            return before is not None and before == self.window

        wait("a picture that stands still", alike)
        return self.window.part(*PICTURE)

    def shot(self):
        return screen().part(self.left, self.top, self.left + self.size[0], self.top + self.size[1])

    def changed(self, before):
        """The picture, when it is another one than before and stands still."""
        wait("another picture", lambda: self.shot().part(*PICTURE) != before)
        return self.still()

    def status(self):
        return self.window.part(*STATUS)

    def save(self, name, picture=None):
        """Keeps a picture, that of the window if none is given."""
        SHOTS.mkdir(parents=True, exist_ok=True)
        picture = picture or self.window
        data = f"P6 {picture.width} {picture.height} 255\n".encode() + picture.data
        subprocess.run(["convert", "ppm:-", str(SHOTS / f"{name}.png")], input=data, timeout=DEADLINE, check=True)

    def to(self, x, y):
        xdotool("mousemove", self.left + x, self.top + y)

    def click(self, button, times=1):
        xdotool("click", "--repeat", times, "--delay", 50, button)

    def key(self, *keys):
        xdotool("key", "--delay", 60, *keys)

    def export(self, keys, file, *answers):
        """Writes a picture by the dialog for files. The pointer must be on nothing."""
        self.click(1)  # without a window manager the focus may stay with nobody after a dialog
        self.key(keys)
        wait("the dialog", lambda: windows("Save As"))
        xdotool("type", "--delay", 15, "Z:" + str(file).replace("/", "\\"))
        self.key("Return")
        for answer in answers:
            time.sleep(1)
            self.key(answer)
        wait(f"{file.name}", lambda: file.exists() and file.stat().st_size > 0)
        wait("the end of the dialog", lambda: not windows("Save As"))

    def assertBox(self, actual, expected):
        """Coordinates are cut to whole pixels, so that an edge may lie one further."""
        for a, b in zip(actual, expected):
            self.assertLessEqual(abs(a - b), 1.5, f"{actual} for {expected}")

    def test_view(self):
        first = self.start("All kinds")
        box = first.box(OUTLINE)
        x, y = 300, 200
        self.to(PICTURE[0] + x, PICTURE[1] + y)
        self.click(5, 2)
        small = self.changed(first)
        self.save("zoomed-out")
        expected = [p + (edge - p) / 1.44 for edge, p in zip(box, (x, y, x, y))]
        self.assertBox(small.box(OUTLINE), expected)
        self.click(4, 2)
        self.assertEqual(self.changed(small), first, "as many notches in as out")

        self.click(5, 2)
        small = self.changed(first)
        box = small.box(OUTLINE)
        self.to(*MIDDLE)
        xdotool("mousedown", 2)
        self.to(MIDDLE[0] - 60, MIDDLE[1] + 35)
        self.changed(small)
        self.to(MIDDLE[0] - 90, MIDDLE[1] + 70)
        xdotool("mouseup", 2)
        self.to(*MIDDLE)
        moved = self.still()
        self.save("panned")
        self.assertBox(moved.box(OUTLINE), [edge + shift for edge, shift in zip(box, (-90, 70, -90, 70))])

        self.click(2, 2)
        self.assertEqual(self.changed(moved), first, "the extents again")

        self.click(1)  # the keys go to the picture
        self.key("Right", "Down", "Down")
        panned = self.changed(first)
        box = first.box(OUTLINE)
        self.assertBox(panned.box(OUTLINE), [edge + shift for edge, shift in zip(box, (-40, -80, -40, -80))])
        self.key("Left", "Up", "Up", "ctrl+minus")
        small = self.changed(panned)
        middle = ((PICTURE[2] - PICTURE[0]) / 2, (PICTURE[3] - PICTURE[1]) / 2) * 2
        self.assertBox(small.box(OUTLINE), [p + (edge - p) / 1.2 for edge, p in zip(box, middle)])
        self.key("ctrl+plus")
        self.assertEqual(self.changed(small), first)

    def test_pick(self):
        first = self.start("All kinds")
        blank = self.status()
        x, y = first.places(OUTLINE)[0]
        self.to(PICTURE[0] + x + 20, PICTURE[1] + y)
        self.click(1)
        self.to(*MIDDLE)
        outline = self.changed(first)
        self.save("picked")
        named = self.status()
        self.assertNotEqual(named, blank)
        self.assertEqual(outline.box(HIGHLIGHT)[:3], first.box(OUTLINE)[:3])  # its name hangs beneath
        self.assertFalse(outline.places(OUTLINE))

        x, y = first.places(LINE)[0]
        self.to(PICTURE[0] + x, PICTURE[1] + y)
        self.click(1)
        self.to(*MIDDLE)
        line = self.changed(outline)
        self.assertNotEqual(self.status(), named)
        self.assertTrue(line.places(OUTLINE) == first.places(OUTLINE), "the highlight has moved on")
        self.assertEqual(line.box(HIGHLIGHT)[:2], first.box(LINE)[:2])

        self.click(1)  # on nothing
        self.assertEqual(self.changed(line), first, "no highlight")
        self.assertEqual(self.status(), blank)

    def test_objects(self):
        elevation = self.start("facade, elevation")
        blank = self.status()
        self.save("elevation")
        x, y = min(elevation.places(SLAB))
        self.to(PICTURE[0] + x, PICTURE[1] + y)
        self.click(1)
        self.to(*MIDDLE)
        picked = self.changed(elevation)
        self.save("element")
        self.assertNotEqual(self.status(), blank)
        self.assertEqual(picked.box(HIGHLIGHT), elevation.box(SLAB))  # the element with all its lines, and no other
        self.key("Escape")
        self.assertEqual(self.changed(picked), elevation)
        self.key("alt+p")
        for name, steps in ("corner", 3), ("solid", 1), ("section", 1), ("sandwich panel", 4), ("lock holes", 4):
            before = self.still()
            self.key(*["Down"] * steps)
            wait(name, lambda: windows(f"{name} - VEK Gallery"))
            self.changed(before)
            self.save(name.replace(" ", "-"))

    def test_menu(self):
        first = self.start("All kinds")
        self.click(1)  # on nothing: the keys go to the window
        self.key("alt+v", "b", "b")
        dark = self.changed(first)
        self.save("black")
        self.assertGreater(len(dark.places(BLACK)), len(dark.data) // 3 * 8 // 10)
        self.assertGreater(len(dark.places(WHITE)), 200, "black letters become white")
        self.key("alt+v", "b", "o")
        self.assertEqual(self.changed(dark), first)

        metafile, drawing = self.folder / "kinds.emf", self.folder / "kinds.svg"
        self.export("ctrl+e", metafile)
        self.assertEqual(metafile.read_bytes()[40:44], b" EMF")
        self.assertEqual(struct.unpack_from("<I", metafile.read_bytes(), 48)[0], metafile.stat().st_size)
        self.export("ctrl+shift+e", drawing)
        root = xml.etree.ElementTree.parse(drawing).getroot()
        self.assertEqual((root.get("width"), root.get("height")), ("752", "630"))
        self.assertGreater(len(list(root.iter())), 10)
        before, written = self.still() and self.status(), metafile.read_bytes()
        metafile.chmod(0o444)
        self.export("ctrl+e", metafile, "Return", "Return")  # over it, and the box that tells of the failure
        self.assertEqual(metafile.read_bytes(), written)
        self.assertTrue(self.still() and self.status() != before, "the word of the export before")
        self.assertEqual(sorted(file.name for file in self.folder.iterdir()), ["kinds.emf", "kinds.svg", "output.txt"])

        before = self.still() and self.status()
        self.key("ctrl+c")
        wait("the word of the copy", lambda: self.shot().part(*STATUS) != before)
        copy = self.folder / "copy.emf"
        with open(self.folder / "reader.txt", "w") as output:
            reader = [*RUNNER, str(READER), "Z:" + str(copy)]
            subprocess.run(reader, stdout=output, stderr=output, timeout=DEADLINE, check=True)
        self.assertEqual(copy.read_bytes(), metafile.read_bytes())
        self.key("alt+f", "x")
        self.assertEqual(self.program.wait(DEADLINE), 0)

    def test_dialogs(self):
        dialogs = [
            ("o", "VEK_OUTL_0000", "outline", "Escape"),
            ("f", "VEK_OUTL_0100", "filter", "Escape"),
            ("m", "VEK_MFC_0012", "material", "Escape"),
            ("u", "VEK084", "unit", "Return"),
            ("l", "VEK_MFC_0009", "label", "Escape"),
            ("n", "VEK_MFC_0009", "label-lines", "Escape"),
            ("h", "VEK_HOLE_0000", "holes", "Return"),
        ]
        texts = json.loads((EXAMPLES / "texts.json").read_text("utf-8"))["*MSG*"]["VEK_"]
        for language in LANGUAGES:
            self.start("All kinds", "--language", language)
            for key, title, name, end in dialogs:
                title = texts[language][title]
                self.click(1)  # on nothing: the keys go to the window
                self.to(*MIDDLE)
                before = self.still() and self.status()
                self.key("alt+d", key)
                wait(f"the dialog {title}", lambda: windows(title))
                self.to(2, 2)  # a row under the pointer would be selected
                self.still()
                self.save(f"{name}-{language}")
                left, top, width, height = place(title)
                alone = screen().part(left, top, left + width, top + height)
                self.save(f"dialog-{name}-{language}", alone)
                self.key(end)
                wait("the end of the dialog", lambda: not windows(title))
                if end == "Return" and self.size == [1000, 700]:
                    wait("the word of what came back", lambda: self.shot().part(*STATUS) != before)
                self.to(*MIDDLE)
            self.program.kill()
            self.program.wait(DEADLINE)

    def test_export_of_a_slide_whose_name_no_file_can_have(self):
        slides = (EXAMPLES / "facade.slb").read_bytes()
        (self.folder / "facade.slb").write_bytes(slides.replace(b"RIEGEL", b"RIE*EL"))
        first = self.start("PFOSTEN", "Z:" + str(self.folder))
        self.to(100, 86)
        self.click(1)
        self.key("Down")
        self.changed(first)
        self.key("ctrl+e")
        wait("the dialog", lambda: windows("Save As"))
        self.key("Escape")
        wait("the end of the dialog", lambda: not windows("Save As"))
        self.to(70, 86)  # as after an export
        self.click(1)
        wait("the effect of a click", lambda: windows("PFOSTEN - VEK Gallery"))
        self.key("Down")
        wait("the effect of a key", lambda: windows(r"RIE\*EL - VEK Gallery"))

    def test_list(self):
        slides = (EXAMPLES / "facade.slb").read_bytes()
        (self.folder / "facade.slb").write_bytes(slides.replace(b"RIEGEL", b"RIE*EL"))
        first = self.start("PFOSTEN", "Z:" + str(self.folder))
        self.save("mullion")
        self.to(100, 86)  # the line of the picture shown
        self.click(1)
        self.key("Down")
        second = self.changed(first)
        self.save("transom")
        self.assertEqual(len(windows(r"RIE\*EL - VEK Gallery")), 1)
        self.key("Left")  # the heading stands for the first picture
        self.assertEqual(self.changed(second), first)
        self.key("Tab", "alt+p", "Down", "Down")  # to the picture and back
        self.assertEqual(self.changed(first), second)
        self.key("Up")
        self.assertEqual(self.changed(second), first)

        self.to(300, 200)  # who zooms out and in again sees the extents
        self.click(5)
        small = self.changed(first)
        self.click(4)
        self.assertEqual(self.changed(small), first)
        for x, y in (100, 50), (238, 400):  # the label, then the bar between list and picture
            self.assertEqual(self.still(), first)
            self.to(x, y)
            xdotool("mousedown", 1)
            self.to(x + 100, y)
            xdotool("mouseup", 1)
            self.to(*MIDDLE)
        narrow = self.changed(first)
        self.save("narrow")
        self.assertEqual(len(set(narrow.part(104, 0, 130, 300).data)), 1, "the picture fits what is left of it")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + TESTS, verbosity=2)
