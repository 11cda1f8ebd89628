"""Checks that rooms use only the rooms they may use.

    check_rooms.py ROOT TABLE

ROOT is the source tree, TABLE the list of rooms that CMake writes, lowest first, one per line:

    name|folder|main header,...|room that it may use,...

A finding is one line, file:line: cause. It reports
- an include of a room that is neither named for the including room nor used by one that is;
- an include from <vek/> or between sources that leads nowhere;
- a source that belongs to no room;
- windows.h, _WIN32 or a header of the window toolkit named in code that must be portable.
"""

import pathlib
import re
import sys

SOURCES = {".h", ".cpp", ".inl"}
FOLDERS = ["include", "src", "apps", "bench", "fuzz", "tests"]

# Folders in which Windows may be named: window code, the toolkit, and the access to the operating system.
WINDOWS_FOLDERS = {"window", "toolkit", "platform"}
# Public headers, besides the main ones, with something that exists on Windows only; they may test for _WIN32.
WIN32_HEADERS = {"include/vek/export.h", "include/vek/surfaces/gdi.h", "include/vek/values/system.h", "include/vek/pictures/raster.h"}

# Headers that moved out of a room and are still included by its main header.
KEPT = {("include/vek/surfaces.h", "include/vek/bitmaps.h")}

TOKEN = re.compile(
    r'(?P<comment>//[^\n]*|/\*.*?\*/)|R"(?P<raw>[^()\s\\]*)\(.*?\)(?P=raw)"'
    r"|\"(?:\\.|[^\"\\\n])*\"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'",
    re.DOTALL,
)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)
WINDOWS_NAME = re.compile(r"\b_WIN32\b|<\s*(?:windows|afx\w*)\.h\s*>|\"(?:windows|afx\w*)\.h\"", re.IGNORECASE)


def without_comments(text):
    """Comments become blanks; line breaks stay, so that line numbers are kept."""
    return TOKEN.sub(lambda m: re.sub(r"[^\n]", " ", m[0]) if m["comment"] else m[0], text)


class RoomCheck:
    def __init__(self, root, table):
        self.root = root
        self.findings = []
        self.folders = {}
        self.main_headers = {}
        self.reach = {}
        for line in table.read_text().splitlines():
            name, folder, headers, uses = line.split("|")
            self.folders[folder] = name
            self.main_headers.update({f"include/vek/{header}.h": name for header in headers.split(",")})
            self.reach[name] = {name}.union(*(self.reach[lower] for lower in uses.split(",") if lower))

    def room(self, path):
        """The room of a file under src/ or include/, or None."""
        if path in self.main_headers:
            return self.main_headers[path]
        parts = path.split("/")
        if path.startswith("include/vek/"):
            return parts[2] if len(parts) > 3 and parts[2] in self.reach else None
        return next((n for f, n in self.folders.items() if path.startswith(f + "/")), None)

    def find(self, path, text, position, cause):
        self.findings.append(f"{path}:{text.count(chr(10), 0, position) + 1}: {cause}")

    def included(self, path, quote, name):
        """The path of an included file of this repository, None for any other header."""
        beside = (self.root / path).parent / name
        if quote == '"' and beside.is_file():
            return beside.resolve().relative_to(self.root).as_posix()
        if name.startswith("vek/"):
            return "include/" + name
        return "src/" + name if quote == '"' else None

    def check_includes(self, path, text):
        room = self.room(path)
        is_shared = path in ("include/vek/vek.h", "include/vek/export.h")
        if room is None and not is_shared:
            self.find(path, text, 0, "belongs to no room")
            return
        for match in INCLUDE.finditer(text):
            target = self.included(path, match[1], match[2])
            if target is None or target == "include/vek/export.h":
                continue
            lower = self.room(target)
            if not (self.root / target).is_file():
                self.find(path, text, match.start(), f"{match[2]} is not there")
            elif (is_shared and lower is not None) or (path, target) in KEPT:
                continue
            elif lower not in self.reach[room]:
                self.find(path, text, match.start(), f"room {room} must not use {lower or 'the whole'} ({match[2]})")

    def check_windows(self, path, text):
        if WINDOWS_FOLDERS.intersection(path.split("/")[:-1]):
            return
        for match in WINDOWS_NAME.finditer(text):
            if match[0] != "_WIN32" or not (path in self.main_headers or path in WIN32_HEADERS):
                self.find(path, text, match.start(), f"{match[0].strip()} in portable code")

    def check(self):
        files = [f for folder in FOLDERS for f in sorted((self.root / folder).rglob("*")) if f.suffix in SOURCES]
        for file in files:
            path = file.relative_to(self.root).as_posix()
            text = without_comments(file.read_text(encoding="utf-8"))
            self.check_windows(path, text)
            if path.startswith(("src/", "include/")):
                self.check_includes(path, text)
        return len(files)


def main():
    check = RoomCheck(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]))
    count = check.check()
    print(*check.findings, sep="\n", end="\n" if check.findings else "")
    print(f"{count} files, {len(check.findings)} findings")
    return 1 if check.findings or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
