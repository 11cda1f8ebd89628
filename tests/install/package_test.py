"""Looks at an unpacked package: package_test.py PREFIX COMPILER [FLAG...]"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

PREFIX, COMPILER = pathlib.Path(sys.argv[1]), sys.argv[2:]
WINDOWS = (PREFIX / "bin/vek.exe").exists()


def pkg_config(*arguments):
    """The flags. A shell would read them: a backslash stands before each byte that is not plain."""
    command = ["env", f"PKG_CONFIG_LIBDIR={PREFIX}/lib/pkgconfig", "pkg-config", *arguments]
    flags = subprocess.run(command, check=True, capture_output=True).stdout
    return [re.sub(rb"\\(.)", rb"\1", flag).decode() for flag in re.findall(rb"(?:\\.|[^\s\\])+", flags)]


class Package(unittest.TestCase):
    def test_pkg_config_gives_what_a_program_needs(self):
        source = pathlib.Path(__file__).with_name("json.cpp")
        with tempfile.TemporaryDirectory() as folder:
            program = pathlib.Path(folder) / "program"
            subprocess.run([*COMPILER, "-std=c++20", source, "-o", program,
                            *pkg_config("--cflags", "--libs", "vek-json")], check=True)
            if not WINDOWS:
                subprocess.run([program], check=True, stdout=subprocess.DEVNULL)
        config = (PREFIX / "lib/cmake/vek/vekConfigVersion.cmake").read_text()
        self.assertIn(f'"{pkg_config("--modversion", "vek")[0]}"', config)

    @unittest.skipIf(WINDOWS, "no Debian package")
    def test_debian_package_says_what_it_is(self):
        package, = PREFIX.parent.parent.glob("*.deb")
        fields = subprocess.run(["dpkg-deb", "-f", package], check=True, capture_output=True, text=True).stdout
        for line in (r"Package: vek", r"Section: graphics", r"Maintainer: .+ <.+@.+>", r"Description: draw ", r" The program"):
            self.assertRegex(fields, rf"(?m)^{line}")

    @unittest.skipIf(WINDOWS, "compiled natively, in half the time")
    def test_debugger_views_name_what_the_headers_declare(self):
        """Each expression is compiled as a member of its class, private names included."""
        space = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
        source, types = ["#include <vek/vek.h>"], []
        for number, view in enumerate(xml.etree.ElementTree.parse(PREFIX / "share/vek/vek.natvis").iter(space + "Type")):
            types.append(view.get("Name"))
            expressions = [node.get("Condition") for node in view.iter() if node.get("Condition")]
            for node in view.iter():
                text = (node.text or "").strip()
                if node.tag == space + "DisplayString":
                    expressions += re.findall(r"{([^{}]+)}", re.sub(r"{{(?!{[^{])|}}(?!})", "", text))
                elif text:
                    expressions.append(text)
            expressions = [re.sub(r",(su|g|x|d)$", "", expression) for expression in expressions]
            self.assertTrue(expressions, types[-1])
            statements = "".join(f"(void)({expression});" for expression in expressions)
            base = types[-1].replace("*", "CVekPoint3d")
            source.append(f"struct View{number} : {base} {{ void all() {{ {statements} }} }};")
        for name in ("CVekString", "CVekArrayTempl<*>", "CVekPoint3d", "CVekVertexArray", "CVekDisplayItem"):
            self.assertIn(name, types)
        subprocess.run([*COMPILER, "-std=c++20", "-fsyntax-only", "-fno-access-control", *pkg_config("--cflags", "vek"),
                        "-x", "c++", "-"], input="\n".join(source), text=True, check=True)

    def test_bill_of_materials_names_what_is_inside(self):
        packages = {"nlohmann-json": "nlohmann-json3-dev", "CLI11": "libcli11-dev", "stb_image": "", "stb_image_write": ""}
        if WINDOWS:
            packages |= {"libstdc++": "gcc-mingw-w64-base", "libgcc": "gcc-mingw-w64-base",
                         "mingw-w64-crt": "mingw-w64-common", "winpthreads": "mingw-w64-common"}
        documents = PREFIX / "share/doc/vek"
        bill = json.loads((documents / "vek.cdx.json").read_text())
        self.assertEqual((bill["bomFormat"], bill["specVersion"]), ("CycloneDX", "1.4"))
        versions = {component["bom-ref"]: component["version"] for component in bill["components"]}
        self.assertEqual(set(versions), set(packages))
        self.assertEqual(set(bill["dependencies"][0]["dependsOn"]), set(packages))
        notices = (documents / "copyright").read_text()
        for name, package in packages.items():
            self.assertIn(f"======== {package or 'libstb-dev'} ========", notices)
            self.assertRegex(versions[name], r"^\d+(\.\d+)*$")
            if package:
                full = subprocess.run(["dpkg-query", "-Wf", "${Version}", package], check=True, capture_output=True, text=True)
                self.assertTrue(full.stdout.startswith(versions[name]), f"{name}: {full.stdout}")
        for holder in ("Niels Lohmann", "Henry Schreiner", "Sean Barrett"):
            self.assertIn(holder, notices)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
