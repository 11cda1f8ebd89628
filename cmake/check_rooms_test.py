"""check_rooms.py must find each fault in a small source tree, and nothing in a correct one."""

import pathlib
import tempfile
import unittest

import check_rooms

TABLE = """platform|src/core/platform|platform|
values|src/core/values|values|platform
data|src/core/data|data,host|values
draw|src/draw|draw|data
surfaces|src/surfaces|surfaces|data
"""

GOOD = {
    "include/vek/export.h": "#ifdef _WIN32\n#endif\n",
    "include/vek/vek.h": "#include <vek/values.h>\n#include <vek/draw.h>\n",
    "include/vek/values.h": "#include <vek/values/point.h>\n#ifdef _WIN32\n#endif\n",
    "include/vek/values/point.h": "#include <vek/export.h>\n#include <cmath>\n",
    "include/vek/host.h": "#include <vek/values.h>\n",
    "include/vek/draw.h": "#include <vek/host.h>\n",
    "src/core/platform/files.h": "",
    "src/core/platform/files_win.cpp": '#include "core/platform/files.h"\n#include <windows.h>\n',
    "src/core/values/point.cpp": '#include "core/platform/files.h"\n#include "near.h"\n#include <vek/values.h>\n',
    "src/core/values/near.h": '// no <windows.h> here, no _WIN32\nconst char* text = "a // b";\n',
    "src/draw/text.cpp": '#include <vek/draw.h>\n#include "../core/values/near.h"\n',
    "src/draw/window/text.cpp": "#include <windows.h>\n",
}


class RoomsTest(unittest.TestCase):
    def findings(self, changes):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder).resolve()
            for name, text in {**GOOD, **changes}.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text)
            (root / "rooms.txt").write_text(TABLE)
            check = check_rooms.RoomCheck(root, root / "rooms.txt")
            self.assertEqual(check.check(), len({**GOOD, **changes}))
            return check.findings

    def assert_found(self, name, text, line, cause):
        findings = self.findings({name: text})
        self.assertEqual(len(findings), 1, findings)
        self.assertTrue(findings[0].startswith(f"{name}:{line}: "), findings)
        self.assertIn(cause, findings[0])

    def test_a_good_house_has_no_findings(self):
        self.assertEqual(self.findings({}), [])

    def test_lower_rooms_must_not_use_higher_ones(self):
        self.assert_found("src/core/data/a.cpp", "\n#include <vek/draw.h>\n", 2, "data must not use draw")
        self.assert_found("src/core/values/a.cpp", "#include <vek/host.h>\n", 1, "values must not use data")
        self.assert_found("include/vek/values/a.h", "#include <vek/data/b.h>\n", 1, "is not there")
        self.assert_found("src/core/platform/a.h", '#include "core/values/near.h"\n', 1, "platform must not use values")
        self.assert_found("src/core/platform/b.h", '#include "../values/near.h"\n', 1, "platform must not use values")

    def test_rooms_side_by_side_must_not_use_each_other(self):
        self.assert_found("src/surfaces/a.cpp", "/* two\nlines */ int i;\n#include <vek/draw.h>", 3, "must not use draw")

    def test_no_room_uses_the_whole(self):
        self.assert_found("src/draw/a.cpp", "#include <vek/vek.h>\n", 1, "must not use the whole")

    def test_every_source_belongs_to_a_room(self):
        self.assert_found("src/attic/a.cpp", "", 1, "belongs to no room")
        self.assert_found("include/vek/attic.h", "", 1, "belongs to no room")

    def test_portable_code_must_not_name_windows(self):
        self.assert_found("src/draw/a.cpp", "int i;\n#include <Windows.h>\n", 2, "in portable code")
        self.assert_found("src/draw/a.cpp", "#if defined(_WIN32)\n#endif\n", 1, "_WIN32 in portable code")
        self.assert_found("src/surfaces/svg.cpp", "#include <afxwin.h>\n", 1, "in portable code")
        self.assert_found("include/vek/values/point.h", "#ifdef _WIN32\n#endif\n", 1, "_WIN32 in portable code")
        self.assert_found("include/vek/values.h", "#include <windows.h>\n", 1, "in portable code")
        self.assert_found("tests/draw_test.cpp", "#include <windows.h>\n", 1, "in portable code")


if __name__ == "__main__":
    unittest.main()
