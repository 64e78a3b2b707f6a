"""check_includes.py finds each kind of wrong include, and leaves the right ones alone."""

import os
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CHECKER = os.path.join(ROOT, "tools", "check_includes.py")
sys.path.insert(0, os.path.dirname(CHECKER))
sys.dont_write_bytecode = True

import check_includes  # noqa: E402

# Files that every example tree has, so that includes lead somewhere.
HOUSE = {
    "kits/include/app/Message.h": "#pragma once\n#include <support/SupportDefs.h>\n",
    "kits/include/support/SupportDefs.h": "#pragma once\n#include <cstdint>\n",
    "kits/interface/Display.h": "#pragma once\n#include <app/Message.h>\n",
    "kits/desktop/Panel.h": "#pragma once\n#include <QWidget>\n",
    "kits/translators/Codec.h": "#pragma once\n#include <jpeglib.h>\n",
    "kits/translators/CMakeLists.txt": "add_translator(jpeg\n SOURCES Jpeg.cpp Turn.cpp\n"
        " LIBRARIES JPEG::JPEG)\nadd_translator(qt\n SOURCES QtTranslator.cpp Turn.cpp Svg.cpp\n"
        " LIBRARIES Qt6::Gui)\n",
    "viewer/ImageList.h": "#pragma once\n#include <string>\n",
    "framework/Thread.h": "#pragma once\n",
}

BAD = [
    ("viewer/View.cpp", "#include <QPixmap>"),
    ("viewer/View.cpp", "#include <QtGui/QImage>"),
    ("viewer/View.cpp", "#  include <QString>"),
    ("viewer/View.cpp", "#include <unistd.h>"),
    ("viewer/View.cpp", "#include <sys/stat.h>"),
    ("viewer/View.cpp", "#include <linux/limits.h>"),
    ("viewer/View.cpp", "#include <pthread.h>"),
    ("viewer/View.cpp", "#include <string.h>"),
    ("viewer/View.cpp", "#include <jpeglib.h>"),
    ("viewer/View.cpp", "#include <png.h>"),
    ("viewer/View.cpp", "#if __has_include(<QImage>)\n#endif"),
    ("viewer/View.cpp", '#include "kits/interface/Display.h"'),
    ("viewer/View.cpp", '#include "../kits/desktop/Panel.h"'),
    ("viewer/View.cpp", '#include "kits/include/app/Message.h"'),
    ("viewer/View.cpp", '#include "viewer/Missing.h"'),
    ("framework/Color.cpp", '#include "viewer/ImageList.h"'),
    ("viewer/ImageList.cpp", '#include <string>\n#include "viewer/ImageList.h"'),
    ("viewer/ImageList.cpp", "#include <string>"),
    ("viewer/ImageList.cpp", ""),
    ("kits/app/Message.cpp", '#include <string>\n#include <app/Message.h>'),
    ("app/App.h", "#include <dbus/dbus.h>"),
    ("comment/Comment.cpp", "#include <iconv.h>"),
    ("window/Window.cpp", "#include <interface/Missing.h>"),
    ("settings/Prefs.cpp", "#include <fcntl.h>"),
    ("iap/Store.cpp", "#include <gtest/gtest.h>"),
    ("kits/include/app/Looper.h", "#include <QThread>"),
    ("kits/include/app/Looper.h", "#include <pthread.h>"),
    ("kits/include/app/Looper.h", '#include "kits/interface/Display.h"'),
    ("kits/include/app/Looper.h", '#include "viewer/ImageList.h"'),
    ("kits/interface/View.cpp", "#include <QPainter>"),
    ("kits/interface/View.cpp", "#include <qpa/qplatformwindow.h>"),
    ("kits/interface/View.cpp", '#include "kits/desktop/Panel.h"'),
    ("kits/interface/View.cpp", '#include "../desktop/Panel.h"'),
    ("kits/app/App.cpp", '#include "viewer/ImageList.h"'),
    ("kits/app/App.cpp", '#include "framework/Thread.h"'),
    ("kits/storage/File.cpp", "#include <jpeglib.h>"),
    ("kits/translation/Roster.cpp", '#include "kits/translators/Codec.h"'),
    ("kits/desktop/Window.cpp", '#include "viewer/ImageList.h"'),
    ("kits/desktop/Window.cpp", "#include <png.h>"),
    ("kits/translators/Jpeg.cpp", "#include <QImage>"),
    ("kits/translators/Turn.cpp", "#include <QImage>"),
    ("kits/translators/Jpeg.cpp", '#include "kits/desktop/Panel.h"'),
    ("tests/viewer/test.cpp", '#include "kits/desktop/Panel.h"'),
    ("tests/viewer/test.cpp", "#include <QImage>"),
    ("fuzz/message.cpp", '#include "kits/desktop/Panel.h"'),
]

GOOD = [
    ("viewer/View.cpp", '#include "viewer/ImageList.h"'),
    ("viewer/View.cpp", '#include "ImageList.h"'),
    ("viewer/View.cpp", '#include "../framework/Thread.h"'),
    ("viewer/ImageList.cpp", '// Why.\n#include "viewer/ImageList.h"\n#include <string>'),
    ("kits/app/Message.cpp", "#include <app/Message.h>"),
    ("viewer/View.cpp", "#include <app/Message.h>"),
    ("viewer/View.cpp", "#include <vector>\n#include <cstdint>\n#include <cmath>"),
    ("viewer/View.cpp", "// #include <QPixmap>"),
    ("viewer/View.cpp", "/*\n#include <QPixmap>\n*/"),
    ("kits/interface/View.cpp", '#include "kits/interface/Display.h"\n#include <sys/mman.h>'),
    ("kits/app/App.cpp", "#include <dbus/dbus.h>"),
    ("kits/desktop/Window.cpp", '#include "kits/interface/Display.h"\n#include <QWidget>'),
    ("kits/translators/Jpeg.cpp", '#include "Codec.h"\n#include <jpeglib.h>'),
    ("kits/translators/QtTranslator.cpp", "#include <QImageReader>"),
    ("kits/translators/Svg.h", "#include <QByteArray>"),
    ("tests/kits/desktop/test.cpp", '#include "kits/desktop/Panel.h"\n#include <QWidget>'),
    ("tests/viewer/test.cpp", '#include "viewer/ImageList.h"\n#include <gtest/gtest.h>'),
]


class CheckIncludes(unittest.TestCase):
    def tree(self, files, once=True):
        """A house with these files as well; the headers among them can be included twice."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for path, text in {**HOUSE, **files}.items():
            whole = os.path.join(folder.name, path)
            os.makedirs(os.path.dirname(whole), exist_ok=True)
            with open(whole, "w", encoding="utf-8") as file:
                file.write(text + "\n")
                if once and path in files and path.endswith(".h"):
                    file.write("#pragma once\n")
        return folder.name

    def test_the_example_house_is_clean(self):
        self.assertEqual(check_includes.check(self.tree({})), [])

    def test_each_bad_include_is_found(self):
        for path, text in BAD:
            with self.subTest(path=path, text=text):
                faults = check_includes.check(self.tree({path: text}))
                self.assertEqual(len(faults), 1, faults)
                self.assertTrue(faults[0].startswith(f"{path}:1: "), faults)

    def test_each_good_include_passes(self):
        for path, text in GOOD:
            with self.subTest(path=path, text=text):
                self.assertEqual(check_includes.check(self.tree({path: text})), [])

    def test_a_header_that_cannot_be_included_twice_is_found(self):
        self.assertEqual(check_includes.check(self.tree({"viewer/View.h": "#include <string>"},
            once=False)), ["viewer/View.h:1: no #pragma once"])

    def test_the_line_number_counts_what_is_in_comments(self):
        faults = check_includes.check(
            self.tree({"viewer/View.cpp": "/* two\nlines */\n#include <QPixmap>"}))
        self.assertTrue(faults[0].startswith("viewer/View.cpp:3: QPixmap: "), faults)

    def test_the_command_says_so_by_its_status(self):
        clean = subprocess.run([sys.executable, CHECKER, self.tree({})], capture_output=True,
            text=True, check=False)
        self.assertEqual((clean.returncode, clean.stdout), (0, ""))
        bad = subprocess.run([sys.executable, CHECKER, self.tree({"app/A.h": "#include <QWidget>"})],
            capture_output=True, text=True, check=False)
        self.assertEqual(bad.returncode, 1)
        self.assertIn("app/A.h:1: QWidget", bad.stdout)


if __name__ == "__main__":
    unittest.main()
