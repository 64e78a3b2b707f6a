"""What is installed runs where it lies.

    test_install.py CMAKE BUILD
"""

import glob
import os
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
# What desktops call the compressed form of a type.
OTHER_NAMES = {"image/svg+xml-compressed"}


class Installation(unittest.TestCase):
    cmake, build = None, None

    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="lorivane-install-")
        self.addCleanup(place.cleanup)
        self.prefix = place.name
        subprocess.run([self.cmake, "--install", self.build, "--prefix", self.prefix], check=True,
            stdout=subprocess.DEVNULL)
        self.program = os.path.join(self.prefix, "bin", "lorivane")
        self.home = os.path.dirname(os.path.realpath(self.program))

    def names(self, *pattern):
        return {os.path.basename(path) for path in glob.glob(os.path.join(self.home, *pattern))}

    def test_the_link_runs_the_program(self):
        self.assertFalse(os.path.isabs(os.readlink(self.program)), "it could not be moved")
        said = subprocess.run([self.program, "--version"], check=True, capture_output=True)
        self.assertRegex(said.stdout.decode(), r"^Lorivane \d")

    def test_what_it_looks_for_lies_beside_it(self):
        built = {os.path.basename(path)
            for path in glob.glob(os.path.join(self.build, "add-ons/translators/*.so"))}
        self.assertTrue(built)
        self.assertEqual(self.names("add-ons", "translators", "*"), built)
        self.assertTrue(os.access(os.path.join(self.home, "add-ons", "open-document"), os.X_OK))
        self.assertEqual(self.names("*.txt"), {"ReadMe_Deu.txt", "ReadMe_Eng.txt", "ReadMe_Jpn.txt"})

    def entry(self):
        with open(os.path.join(self.prefix, "share/applications/lorivane.desktop"),
                encoding="utf-8") as file:
            return dict(line.strip().split("=", 1) for line in file if "=" in line)

    def test_the_desktop_offers_it_for_what_it_shows(self):
        types = set()
        for path in glob.glob(os.path.join(ROOT, "kits/translators/*.cpp")):
            with open(path, encoding="utf-8") as file:
                types.update(re.findall(r'", "((?:image|video)/[^"]+)"', file.read()))
        self.assertTrue({"image/jpeg", "image/png", "image/gif"} <= types)
        offered = self.entry()["MimeType"].removesuffix(";").split(";")
        self.assertEqual(sorted(offered), sorted(types | OTHER_NAMES))

    def test_the_desktop_knows_it(self):
        entry = self.entry()
        self.assertEqual(entry["Exec"].split()[0], os.path.basename(self.program))
        icon = f"share/icons/hicolor/scalable/apps/{entry['Icon']}.svg"
        self.assertTrue(os.path.isfile(os.path.join(self.prefix, icon)))


if __name__ == "__main__":
    Installation.cmake, Installation.build = sys.argv.pop(1), sys.argv.pop(1)
    unittest.main()
