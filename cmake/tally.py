"""Sums up a run of CTest and its GoogleTest programs.

    tally.py BUILD     after `ctest --output-junit BUILD/ctest.xml`

It prints the failures and, last, "passed failed skipped". A GoogleTest program counts by its cases, read from
BUILD/results; one that failed without a failed case (a crash, a leak, a missing program) counts as one failure, and so
does one that ran no case. Everything else counts as one case. Lines that a passed test prints as "note: ..." are
printed too.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ET

SHOWN_LINES = 25
TROUBLE = re.compile(r"runtime error:|ERROR: |WARNING: ThreadSanitizer|Unhandled |terminate called|Assertion|FAIL:")


def excerpt(text):
    """The relevant part of an output: the lines from the first sign of trouble, else the last ones."""
    lines = [line for line in (text or "").splitlines() if line.strip()]
    first = next((n for n, line in enumerate(lines) if TROUBLE.search(line)), max(len(lines) - SHOWN_LINES, 0))
    case = [line for line in lines[:first] if line.startswith("[ RUN ")][-1:]
    return "".join(f"    {line}\n" for line in case + lines[first:first + SHOWN_LINES])


def parsed(path):
    """The root of an XML file, None if it is absent or incomplete."""
    try:
        return ET.parse(path).getroot()
    except (OSError, ET.ParseError):
        return None


class Tally:
    def __init__(self, build):
        self.build = build
        self.passed = self.failed = self.skipped = 0

    def fail(self, name, text):
        self.failed += 1
        print(f"FAILED {self.build.name} {name}\n{excerpt(text)}", end="")

    def count_program(self, name, succeeded, output):
        results = parsed(self.build / "results" / f"{name}.xml")
        cases = list(results.iter("testcase")) if results is not None else []
        failed_before = self.failed
        for case in cases:
            failures = case.findall("failure")
            if failures:
                message = "\n".join(failure.text or failure.get("message", "") for failure in failures)
                self.fail(f"{name} {case.get('classname')}.{case.get('name')}", message)
            elif case.get("result") == "completed":
                self.passed += 1
            else:
                self.skipped += 1
        if results is None:
            self.fail(f"{name} (ended without results)", output)
        elif not any(case.get("result") == "completed" for case in cases):
            self.fail(f"{name} (ran no case)", output)
        elif not succeeded and self.failed == failed_before:
            self.fail(f"{name} (all cases passed, the program did not)", output)

    def count(self):
        report = parsed(self.build / "ctest.xml")
        if report is None:
            self.fail("(ctest gave no report)", "")
            return
        rows = (self.build / "tests.txt").read_text().splitlines()
        programs = {row.split()[0] for row in rows if row.split()[1] == "gtest"}
        for test in report.iter("testcase"):
            name, succeeded = test.get("name"), test.get("status") == "run"
            output = test.findtext("system-out", "")
            failure = test.find("failure")
            if failure is not None:
                output += "\n" + failure.get("message", "")
            if name in programs:
                self.count_program(name, succeeded, output)
            elif succeeded:
                self.passed += 1
                notes = [line for line in output.splitlines() if line.startswith("note: ")]
                print(*notes, sep="\n", end="\n" if notes else "")
            else:
                self.fail(name, output)


def main():
    tally = Tally(pathlib.Path(sys.argv[1]))
    tally.count()
    print(tally.passed, tally.failed, tally.skipped)


if __name__ == "__main__":
    main()
