"""The Debian package: what is in it, and what the tools of the desktops and of Debian say of it.

test_package.py SOURCE_FOLDER MIME_OF [unittest's words]. Builds the package first.
Each tool is also shown something bad, which it must refuse.
"""

import os
import pathlib
import re
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest

SOURCE, MIME_OF = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
EXPECTED = sorted(
    ["usr/bin/velna"]
    + [f"usr/libexec/velna/{name}" for name in ("Velna.HLP", "prefs.txt", "velna")]
    + [f"usr/share/{name}" for name in (
        "applications/velna.desktop", "man/man1/velna.1.gz", "metainfo/org.example.velna.metainfo.xml",
        "mime/packages/velna.xml", "thumbnailers/velna.thumbnailer")]
    + [f"usr/share/doc/velna/{name}" for name in ("changelog.Debian.gz", "changelog.gz", "copyright")]
    + [f"usr/share/doc/velna/examples/{path.relative_to(SOURCE / 'examples')}"
       for kind in ("*.vln", "*.bmp", "airfoils/*.xy") for path in (SOURCE / "examples").glob(kind)]
    + [f"usr/share/icons/hicolor/{size}/{icon}" for size in [f"{n}x{n}" for n in ICON_SIZES]
       for icon in ("apps/velna.png", "mimetypes/application-x-velna.png")]
    + [f"usr/share/icons/hicolor/scalable/{icon}"
       for icon in ("apps/velna.svg", "mimetypes/application-x-velna.svg")])


def said(*command, **options):
    """The status of a command and all that it says."""
    ended = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.STDOUT, text=True, check=False, **options)
    return ended.returncode, ended.stdout


def done(*command, **options):
    status, text = said(*command, **options)
    if status:
        raise AssertionError(f"{command}: {status}\n{text}")
    return text


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="velna-package-")))
        cls.package = pathlib.Path(done(SOURCE / "scripts/package", cls.folder).splitlines()[-1])
        cls.tree = cls.folder / "tree"
        done("dpkg-deb", "-x", cls.package, cls.tree)
        cls.version = re.search(r"project\(velna VERSION ([\d.]+)", (SOURCE / "CMakeLists.txt").read_text())[1]

    def share(self, name):
        return self.tree / "usr/share" / name

    def damaged(self, name, old, new):
        """A copy of a file of the package with a mistake in it."""
        text = self.share(name).read_text()
        self.assertIn(old, text)
        bad = self.folder / "bad" / pathlib.Path(name).name
        bad.parent.mkdir(exist_ok=True)
        bad.write_text(text.replace(old, new, 1))
        return bad

    def field(self, name):
        return done("dpkg-deb", "-f", self.package, name).strip()

    # ---- what is in it

    def test_everything_is_in_its_place_and_nothing_else(self):
        found = sorted(str(path.relative_to(self.tree)) for path in self.tree.rglob("*")
                       if path.is_symlink() or not path.is_dir())
        self.assertEqual(found, EXPECTED)
        self.assertEqual(os.readlink(self.tree / "usr/bin/velna"), "../libexec/velna/velna")

    def test_everything_is_roots_and_can_be_read_by_all(self):
        for line in done("dpkg-deb", "-c", self.package).splitlines():
            mode, owner, *_ = line.split()
            self.assertEqual(owner, "root/root", line)
            self.assertRegex(mode, r"^(drwxr-xr-x|-rwxr-xr-x|-rw-r--r--|lrwxrwxrwx)$", line)
        program = (self.tree / "usr/libexec/velna/velna").stat().st_mode
        self.assertEqual(stat.S_IMODE(program), 0o755)

    def test_is_small(self):
        self.assertLess(self.package.stat().st_size, 1 << 20)
        self.assertLess(int(self.field("Installed-Size")), 3 << 10)

    def test_one_version_is_told_everywhere(self):
        version = self.version
        self.assertTrue(self.field("Version").startswith(version + "-"))
        self.assertEqual(done(self.tree / "usr/bin/velna", "--version"), f"Velna {version}\n")
        self.assertIn(f'<release version="{version}"', self.share("metainfo/org.example.velna.metainfo.xml").read_text())
        changes = done("zcat", self.share("doc/velna/changelog.Debian.gz"))
        self.assertTrue(changes.startswith(f"velna ({self.field('Version')}) "), changes)

    def test_sums_are_those_of_the_files(self):
        control = self.folder / "control"
        done("dpkg-deb", "-e", self.package, control)
        done("md5sum", "--check", "--strict", control / "md5sums", cwd=self.tree)
        self.assertEqual(sorted(p.name for p in control.iterdir()), ["control", "md5sums"])

    # ---- what it needs

    def test_what_the_program_is_linked_to_is_needed_and_nothing_for_a_part_of_it(self):
        needed = re.sub(r" \([^)]*\)", "", self.field("Depends")).split(", ")
        for library in ("libc6", "libqt6widgets6", "libqt6printsupport6", "libqt6svg6", "qt6-qpa-plugins"):
            self.assertIn(library, needed)
        recommended = self.field("Recommends").split(", ")
        self.assertEqual(recommended, ["fonts-dejavu-core", "libgl1-mesa-dri", "libsdl2-2.0-0",
                                       "qt6-image-formats-plugins"])
        self.assertFalse(set(needed) & set(recommended))

    def test_is_hardened_and_stripped(self):
        program = self.tree / "usr/libexec/velna/velna"
        told = done("readelf", "-hWld", program) + done("readelf", "-W", "--dyn-syms", program)
        for sign in (r"Type:\s+DYN ", r"GNU_RELRO", r"FLAGS_1\).*NOW.*PIE", r"GNU_STACK.* RW ", r"__stack_chk_fail",
                     r"__\w+_chk@"):
            self.assertTrue(re.search(sign, told), sign)
        self.assertNotIn("RUNPATH", told)
        self.assertNotIn(".symtab", done("readelf", "-SW", program))

    def test_no_path_of_this_machine_is_in_it(self):
        folders = [os.fsencode(name) for name in (SOURCE, pathlib.Path.home())]
        for path in self.tree.rglob("*"):
            if path.is_file():
                for folder in folders:
                    self.assertNotIn(folder + b"/", path.read_bytes(), path)

    # ---- what others say of it

    def test_lintian_has_no_word(self):
        words = ("lintian", "--no-cfg", "--allow-root", "--tag-display-limit", "0")
        self.assertEqual(said(*words, "--fail-on", "error,warning", self.package), (0, ""))
        bad = self.folder / "worse"
        shutil.copytree(self.tree, bad, symlinks=True)
        done("dpkg-deb", "-e", self.package, bad / "DEBIAN")
        (bad / "usr/share/man/man1/velna.1.gz").unlink()
        done("dpkg-deb", "--root-owner-group", "-b", bad, self.folder / "worse.deb")
        status, text = said(*words, "--fail-on", "error,warning", self.folder / "worse.deb")
        self.assertNotEqual(status, 0)
        self.assertIn("no-manual-page", text)

    def test_the_desktop_entry_is_valid(self):
        self.assertEqual(said("desktop-file-validate", self.share("applications/velna.desktop")), (0, ""))
        status, text = said("desktop-file-validate",
                            self.damaged("applications/velna.desktop", "Type=Application", "Type=Programme"))
        self.assertNotEqual((status, text), (0, ""))

    def test_the_metadata_are_valid(self):
        name = "metainfo/org.example.velna.metainfo.xml"
        words = ("appstreamcli", "validate", "--no-net", "--pedantic", "--strict", "--no-color")
        status, text = said(*words, self.share(name))
        self.assertEqual((status, "Validation was successful." in text), (0, True), text)
        self.assertNotRegex(text, r"(?m)^[EWIP]: ")
        self.assertNotEqual(said(*words, self.damaged(name, "<summary>", "<summary>a. b. "))[0], 0)

    def test_the_metadata_speak_of_what_is_installed(self):
        text = self.share("metainfo/org.example.velna.metainfo.xml").read_text()
        entry = re.search(r'<launchable type="desktop-id">(.*)</launchable>', text)[1]
        self.assertTrue(self.share(f"applications/{entry}").exists())
        for picture in re.findall(r"/pictures/(.*)</image>", text):
            self.assertTrue((SOURCE / "docs/help/pictures" / picture).exists(), picture)

    def test_the_man_page_is_plain(self):
        page = self.folder / "velna.1"
        page.write_text(done("zcat", self.share("man/man1/velna.1.gz")))
        self.assertEqual(said("mandoc", "-Tlint", page), (0, ""))
        page.write_text(page.read_text().replace(".Sh OPTIONS", ".Sh OPTIONS\n.Xy"))
        self.assertNotEqual(said("mandoc", "-Tlint", page)[0], 0)

    def test_a_project_without_an_ending_is_known_by_its_first_line(self):
        data = self.folder / "data"
        shutil.copytree("/usr/share/mime/packages", data / "mime/packages")
        env = dict(os.environ, XDG_DATA_HOME=str(data), XDG_DATA_DIRS=str(data))
        project = self.folder / "without-ending"
        shutil.copy(SOURCE / "examples/glider.vln", project)
        other = self.folder / "other"
        other.write_text("# VELVET File Format V 1.0\n")

        def kinds():
            done("update-mime-database", data / "mime", env=env)
            return done(MIME_OF, project, other, env=env).split()

        (data / "mime/packages/velna.xml").unlink(missing_ok=True)
        self.assertEqual(kinds(), ["text/plain", "text/plain"])
        shutil.copy(self.share("mime/packages/velna.xml"), data / "mime/packages")
        self.assertEqual(kinds(), ["application/x-velna", "text/plain"])
        named = self.folder / "empty.vln"
        named.touch()
        self.assertEqual(done(MIME_OF, named, env=env).split(), ["application/x-velna"])

    def test_the_thumbnailer_calls_what_is_installed_for_the_type_that_is(self):
        entry = self.share("thumbnailers/velna.thumbnailer").read_text()
        self.assertIn("\nMimeType=application/x-velna;\n", entry)
        self.assertRegex(entry, r"\nExec=velna .*%s.*%i\n")
        self.assertIn("application/x-velna", self.share("mime/packages/velna.xml").read_text())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]] + sys.argv[3:], verbosity=2)
