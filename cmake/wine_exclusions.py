"""Checks the list of the cases that Wine cannot pass.

    wine_exclusions.py FILE PROGRAMS

FILE has one case per line: "program Suite.Case | reason | Wine version". An entry without a reason or version, or one
that names no case, is an error. Each case is run alone from the folder PROGRAMS; one that passes is reported in a note,
since its entry can be removed.
"""

import pathlib
import subprocess
import sys

RUNNER = pathlib.Path(__file__).resolve().parent / "wine-run"
SECONDS = 60


def entries(text):
    """(line number, program, case, reason, version) of each entry; what is missing is empty."""
    for number, line in enumerate(text.splitlines(), 1):
        if line.strip() and not line.startswith("#"):
            case, reason, version = [*(part.strip() for part in line.split("|")), "", ""][:3]
            program, _, name = case.partition(" ")
            yield number, program, name.strip(), reason, version


def run(program, *arguments):
    """Exit status and output; None for a program that does not exist or does not end in time."""
    try:
        done = subprocess.run([RUNNER, program, *arguments], capture_output=True, text=True, errors="replace",
                              timeout=SECONDS, stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout
    except subprocess.TimeoutExpired:
        return None, ""


def cause(programs, program, name, reason, version):
    """Why an entry is wrong, or an empty text."""
    if not (program and name and reason and version):
        return "program, case, reason and Wine version are needed"
    if not (programs / f"{program}.exe").is_file():
        return f"{program} is not there"
    _, listed = run(programs / f"{program}.exe", "--gtest_list_tests", f"--gtest_filter={name}")
    if not any(line.startswith("  ") for line in listed.splitlines()):
        return f"{program} has no case {name}"
    return ""


def main():
    file, programs = (pathlib.Path(argument) for argument in sys.argv[1:])
    wrong = count = 0
    for number, program, name, reason, version in entries(file.read_text(encoding="utf-8")):
        count += 1
        error = cause(programs, program, name, reason, version)
        if error:
            wrong += 1
            print(f"{file.name}:{number}: {error}")
        elif run(programs / f"{program}.exe", f"--gtest_filter={name}")[0] == 0:
            print(f"note: {program} {name} passes under Wine; its entry in {file.name} can go")
        else:
            print(f"note: {program} {name} left out under Wine: {reason}")
    print(f"{count} entries")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
