"""Whatever ends a test program early must count as a failure of the whole run."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import tally

PASSED = '<testcase name="A" classname="S" status="run" result="completed"/>'
SKIPPED = '<testcase name="B" classname="S" status="run" result="skipped"><skipped/></testcase>'
FAILED = '<testcase name="C" classname="S" status="run" result="completed"><failure message="1 is not 2"/></testcase>'

def results(*cases):
    return f"<testsuites><testsuite>{''.join(cases)}</testsuite></testsuites>"


class TallyTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def build(self, name, tests, files):
        """A build folder with test name -> CTest status, and program -> results file."""
        build = self.folder / name
        (build / "results").mkdir(parents=True)
        (build / "tests.txt").write_text("room_test gtest room_test\ncheck single\n")
        cases = "".join(f'<testcase name="{n}" status="{s}"><system-out>note: x</system-out></testcase>'
                        for n, s in tests.items())
        (build / "ctest.xml").write_text(f"<testsuite>{cases}</testsuite>")
        for program, text in files.items():
            (build / "results" / f"{program}.xml").write_text(text)
        return build

    def counted(self, tests, files):
        counter = tally.Tally(self.build("native", tests, files))
        with contextlib.redirect_stdout(io.StringIO()) as output:
            counter.count()
        return counter.passed, counter.failed, counter.skipped, output.getvalue()

    def test_cases_are_counted_and_not_programs(self):
        run = self.counted({"room_test": "run", "check": "run"}, {"room_test": results(PASSED, PASSED, SKIPPED)})
        self.assertEqual(run, (3, 0, 1, "note: x\n"))

    def test_failed_cases_and_failed_checks_count(self):
        *run, output = self.counted({"room_test": "fail", "check": "fail"}, {"room_test": results(PASSED, FAILED)})
        self.assertEqual(run, [1, 2, 0])
        self.assertIn("FAILED native room_test S.C\n    1 is not 2", output)

    def test_a_program_that_dies_fails(self):
        self.assertEqual(self.counted({"room_test": "fail"}, {})[:3], (0, 1, 0))

    def test_a_program_that_ends_early_and_calls_it_success_fails(self):
        self.assertEqual(self.counted({"room_test": "run"}, {})[:3], (0, 1, 0))

    def test_a_results_file_that_breaks_off_fails(self):
        self.assertEqual(self.counted({"room_test": "fail"}, {"room_test": "<testsuites><tes"})[:3], (0, 1, 0))

    def test_a_program_that_fails_after_its_cases_fails(self):
        self.assertEqual(self.counted({"room_test": "fail"}, {"room_test": results(PASSED)})[:3], (1, 1, 0))

    def test_a_program_without_cases_fails(self):
        self.assertEqual(self.counted({"room_test": "run"}, {"room_test": results()})[:3], (0, 1, 0))

    def test_a_missing_program_or_report_fails(self):
        self.assertEqual(self.counted({"room_test": "notrun", "check": "notrun"}, {})[:3], (0, 2, 0))
        counter = tally.Tally(self.folder / "absent")
        with contextlib.redirect_stdout(io.StringIO()):
            counter.count()
        self.assertEqual(counter.failed, 1)


if __name__ == "__main__":
    unittest.main()
