"""Runs Doxygen over the public headers: reference.py HEADERS BUILD DOXYGEN

A comment in a header stands for all declarations below it up to the next blank line or comment. Doxygen wants a group of
members for that, so it reads copies, in BUILD/reference/include, with its marks around such declarations, unless the
comment describes parameters or a result, which not all of them have. Lines keep their numbers.
"""

import pathlib
import re
import shutil
import subprocess
import sys

COMMENT = re.compile(r"\s*///(?!<)")
CLASS = re.compile(r"\s*(template <.*>\s*)?(class|struct|enum|namespace|union)\b")
END = re.compile(r"\s*(///(?!<)|public:|protected:|private:|}|#|$)")
NO_CODE = re.compile(r"\"(?:\\.|[^\"\\])*\"|'(?:\\.|[^'\\])*'|//.*")


def grouped(lines):
    at = 0
    while at < len(lines):
        comment = at
        while at < len(lines) and COMMENT.match(lines[at]):
            at += 1
        first, depth, declarations = at, 0, 0
        while comment < first and at < len(lines) and (depth > 0 or not END.match(lines[at])) and not CLASS.match(lines[first]):
            code = NO_CODE.sub("", lines[at])
            depth += len(re.findall(r"[({]", code)) - len(re.findall(r"[)}]", code))
            declarations += depth == 0 and bool(re.search(r"[;}]\s*$", code))
            at += 1
        if declarations > 1 and comment > 0 and not any(re.search(r"@(param|return)", line) for line in lines[comment:first]):
            lines[comment - 1] += " /** @{ */"
            lines[at - 1] += " /** @} */"
        at = max(at, comment + 1)
    return lines


def main(headers, build, doxygen):
    reference = build / "reference"
    shutil.rmtree(reference, ignore_errors=True)
    for header in headers.rglob("*.h"):
        copy = reference / "include" / header.relative_to(headers)
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_text("\n".join(grouped(header.read_text(encoding="utf-8").split("\n"))), encoding="utf-8")
    return subprocess.run([doxygen, build / "Doxyfile"]).returncode


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]))
