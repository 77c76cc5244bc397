"""The package in a bare system: installed, worked by an ordinary user, and removed. Where no bare system can be had, it
is unpacked into a folder instead."""

import contextlib
import os
import pathlib
import pwd
import shutil
import subprocess
import sys
import tempfile

import base
from program import Program
from screen import PATIENCE, wait_for

SOURCE = base.HERE.parents[1]
GLIDER = "usr/share/doc/velna/examples/glider.vln"
RECOMMENDED = ("libsdl2-2.0-0", "qt6-image-formats-plugins")


def done(*command, **options):
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=True,
                          text=True, **options).stdout


class BareSystem:
    """A Debian system of its own under a folder, with an ordinary user "flyer"."""

    home = "home/flyer"

    def __init__(self, root):
        self.root = root
        self.open = contextlib.ExitStack()
        subprocess.run(["debootstrap", "--variant=minbase", "bookworm", root], stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, check=True)
        done("mount", "-t", "proc", "proc", root / "proc")
        self.open.callback(done, "umount", root / "proc")
        self.inside("useradd", "--create-home", "flyer")

    def inside(self, *command):
        env = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive"}
        return done("chroot", self.root, *command, env=env)

    def install(self, package):
        """What the program only recommends stays away; what keeps the lists of the desktop's types is there."""
        shutil.copy(package, self.root / "velna.deb")
        self.inside("apt-get", "install", "-q", "-y", "--no-install-recommends", "shared-mime-info", "desktop-file-utils",
                    "/velna.deb")
        (self.root / "velna.deb").unlink()
        self.inside("apt-get", "clean")

    def has(self, package):
        state = subprocess.run(["chroot", self.root, "dpkg-query", "-W", "-f", "${db:Status-Status}", package],
                               capture_output=True, check=False)
        return state.stdout == b"installed"

    def changed(self):
        """What of the package is no longer as it was installed."""
        return self.inside("dpkg", "--verify", "velna")

    def remove(self):
        self.inside("dpkg", "--remove", "velna")

    def command(self, user):
        return [shutil.which("chroot"), f"--userspec={user}:{user}", self.root, "/usr/bin/velna"]

    def seen_inside(self, path):
        return "/" + str(path.relative_to(self.root))

    def end(self):
        self.open.close()


class UnpackedTree(BareSystem):
    """The package's files under a folder, worked by nobody where the test is the administrator's."""

    def __init__(self, root):
        self.root = root
        self.open = contextlib.ExitStack()
        (root / self.home).mkdir(parents=True)

    def install(self, package):
        done("dpkg-deb", "-x", package, self.root)
        self.before = self.state()

    def state(self):
        return {path: path.stat().st_mtime_ns for path in (self.root / "usr").rglob("*")}

    def has(self, package):
        return False

    def changed(self):
        return "" if self.state() == self.before else "the tree is not as it was"

    def remove(self):
        shutil.rmtree(self.root / "usr")

    def command(self, user):
        as_other = [shutil.which("setpriv"), "--reuid", "nobody", "--regid", "nogroup", "--clear-groups"]
        return (as_other if user == "flyer" and os.geteuid() == 0 else []) + [self.root / "usr/bin/velna"]

    def seen_inside(self, path):
        return str(path)


class Installed(Program):
    """The program as it lies in such a system, in a user's home."""

    def __init__(self, screen, system, probe_folder, user="flyer"):
        self.screen = screen
        self.folder = system.root / (system.home if user == "flyer" else "root")
        self.folder.mkdir(exist_ok=True)
        self.socket = self.folder / "probe"
        self.socket.unlink(missing_ok=True)
        self.log = system.root / f"{user}.txt"
        self.command = system.command(user)
        self.env = {name: screen.env[name] for name in ("DISPLAY", "LC_ALL", "LIBGL_ALWAYS_SOFTWARE")}
        self.env |= {"HOME": system.seen_inside(self.folder), "PATH": "/usr/bin:/bin",
                     "QT_PLUGIN_PATH": system.seen_inside(probe_folder),
                     "QT_QPA_GENERIC_PLUGINS": f"velnaprobe:{system.seen_inside(self.socket)}"}
        self.process = None

    def errors(self):
        return self.log.read_text(errors="replace") if self.log.exists() else ""

    def end(self):
        """The home stays: what is left in it is looked at."""
        home, self.folder = self.folder, pathlib.Path("/nonexistent")
        super().end()
        self.folder = home


class InstalledPackage(base.WindowTest):
    starts = False

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # Short: the name of a socket has not more than 107 letters.
        root = pathlib.Path(tempfile.mkdtemp(prefix="velna-root-", dir="/tmp"))
        root.chmod(0o755)
        cls.addClassCleanup(shutil.rmtree, root, ignore_errors=True)
        packages = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.package = pathlib.Path(done(SOURCE / "scripts/package", packages).splitlines()[-1])
        try:
            cls.system = BareSystem(root)
        except (OSError, subprocess.CalledProcessError) as refused:
            print(f"no bare system ({refused}): the package is unpacked", file=sys.stderr)
            shutil.rmtree(root)
            root.mkdir(mode=0o755)
            cls.system = UnpackedTree(root)
        cls.addClassCleanup(cls.system.end)
        cls.system.install(cls.package)
        cls.probe = root / "probe-plugins"
        shutil.copytree(base.BUILD / "plugins", cls.probe)
        cls.own(root / cls.system.home)

    @classmethod
    def own(cls, folder):
        """The home, and all in it, is the user's."""
        if os.geteuid():
            return
        names = (cls.system.root / "etc/passwd").read_text() if (cls.system.root / "etc/passwd").exists() else ""
        user = next((line.split(":")[2] for line in names.splitlines() if line.startswith("flyer:")), None)
        owner = int(user) if user else pwd.getpwnam("nobody").pw_uid
        for path in (folder, *folder.rglob("*")):
            os.chown(path, owner, -1)

    def started(self, *files, user="flyer"):
        program = Installed(self.screen, self.system, self.probe, user)
        self.addCleanup(self._finish, program)
        return program.start(words=[self.system.seen_inside(file) for file in files])

    def test_1_a_project_is_opened_by_its_name_changed_and_saved(self):
        home = self.system.root / self.system.home
        project = home / "my glider.vln"
        shutil.copy(self.system.root / GLIDER, project)
        self.own(home)
        before = project.read_bytes()
        program = self.started(project)
        # The settings that come with it ask for the demonstration, which waits while a file is opened.
        program.enter("SpanText", "1234")
        wait_for(lambda: program.text("SpanText") == "1234", "the new span")
        self.take("installed")
        self.screen.key("shift+F12")
        wait_for(lambda: project.read_bytes() != before, "the project to be saved")
        self.assertIn(b"\r\n617\r\n", project.read_bytes())
        self.assertEqual(program.quit(), 0)
        said = [line for line in program.errors().splitlines() if not line.startswith("QStandardPaths: XDG_RUNTIME_DIR")]
        self.assertEqual(said, [])
        self.assertEqual(self.system.changed(), "")
        kept = sorted(str(path.relative_to(home)) for path in home.rglob("*") if path.is_file()
                      and not path.name.startswith((".bash", ".profile")) and ".cache" not in path.parts)
        self.assertEqual(kept, [".config/velna/prefs-owner.txt", ".config/velna/prefs.txt", ".config/velna/settings.txt",
                                "my glider.vln"])

    def test_2_the_administrators_start_leaves_the_system_alone_too(self):
        program = self.started(self.system.root / GLIDER, user="root")
        self.assertEqual(program.quit(), 0)
        self.assertEqual(self.system.changed(), "")
        folder = self.system.root / "usr/libexec/velna"
        self.assertEqual(sorted(path.name for path in folder.iterdir()), ["Velna.HLP", "prefs.txt", "velna"])

    def test_3_nothing_that_is_only_recommended_is_needed(self):
        for package in RECOMMENDED:
            self.assertFalse(self.system.has(package), package)
        program = self.started(self.system.root / GLIDER)
        # The flight asks for a joystick, which needs SDL.
        program.click("FlyingPreview")
        wait_for(lambda: program.find("FlyingInfo"), "the flight")
        self.screen.key("Escape")
        wait_for(lambda: not program.find("FlyingInfo"), "the flight to end")
        self.assertEqual(program.quit(), 0)

    def without(self, *folders):
        """Some of the system's folders are away during a test."""
        for folder in folders:
            path = self.system.root / folder
            if path.exists():
                path.rename(path.with_name(path.name + "-away"))
                self.addCleanup(path.with_name(path.name + "-away").rename, path)

    def test_4_without_letters_it_runs(self):
        if type(self.system) is UnpackedTree:
            self.skipTest("the fonts are the machine's own")
        self.without("usr/share/fonts")
        self.assertEqual(self.started(self.system.root / GLIDER).quit(), 0)

    def test_5_without_a_driver_it_says_what_it_lacks(self):
        if type(self.system) is UnpackedTree:
            self.skipTest("the drivers are the machine's own")
        self.without("usr/lib/x86_64-linux-gnu/dri")
        program = Installed(self.screen, self.system, self.probe)
        self.addCleanup(self._finish, program)
        program.start(wait=False)
        program.dialog("Fatal Error In Velna")
        self.take("no-driver")
        self.screen.key("Return")
        self.assertEqual(program.process.wait(PATIENCE), 1)
        program.process = None

    def test_9_removed_it_leaves_nothing_but_the_users_settings(self):
        types = self.system.root / "usr/share/mime/application/x-velna.xml"
        if type(self.system) is BareSystem:
            self.assertTrue(types.exists())
        self.system.remove()
        self.assertFalse(types.exists())
        left = [path.relative_to(self.system.root) for top in ("usr", "etc", "var", "opt")
                for path in (self.system.root / top).rglob("*velna*")]
        self.assertEqual(left, [])
        for name in ("usr/share/mime/globs2", "usr/share/applications/mimeinfo.cache"):
            cache = self.system.root / name
            self.assertNotIn(b"velna", cache.read_bytes() if cache.exists() else b"")
        self.assertTrue((self.system.root / self.system.home / ".config/velna/prefs.txt").exists())


if __name__ == "__main__":
    base.main()
