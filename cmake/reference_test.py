"""Tests of reference.py: which declarations share a comment."""

import unittest

from reference import grouped


class Grouped(unittest.TestCase):
    def marked(self, text):
        lines = text.split("\n")
        result = grouped(list(lines))
        self.assertEqual(len(result), len(lines))
        return [number for number, line in enumerate(result) if "@{" in line or "@}" in line]

    def test_a_comment_holds_to_the_next_blank_line_or_comment(self):
        cases = {
            "\n/// Both.\nint a();\nint b();\n\nint c();": [0, 3],
            "\n/// One.\nint a();\n\nint b();": [],
            "\n/// One.\nint a(int x,\n      int y);\n/// Other.\nint b();": [],
            "\n/// Both.\nint a()\n{\n\n    return '{';\n}\nint b(); // }\n};": [0, 7],
            "/// A class.\nclass A\n{\n    /// Both.\n    int a = 0;\n    int b = 0; ///< own\n};": [2, 5],
            "\n/// @param x of a\nint a(int x);\nint b();\n": [],
        }
        for text, expected in cases.items():
            self.assertEqual(self.marked(text), expected, text)


if __name__ == "__main__":
    unittest.main()
