"""Pictures that are no pictures, or too large for the machine: the program goes on."""

import gzip
import os
import resource
import struct
import zlib

import base
from screen import wait_for


def write_png(file, width, height):
    """A grey picture of any size, small as a file."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    pixels = zlib.compressobj()
    rows = b"".join(pixels.compress(b"\0" + b"\x80" * width) for _ in range(height)) + pixels.flush()
    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    file.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", rows) + chunk(b"IEND", b""))


class PoorPictures(base.WindowTest):
    starts = False

    def setUp(self):
        self.program = self.new_program()
        # Memory that is not to be had comes as it does without sanitizers.
        self.program.env["ASAN_OPTIONS"] += ":allocator_may_return_null=1"
        self.program.start()

    def open_on_wing(self, picture):
        self.program.tab(1)
        self.program.open(picture, "Texture")

    def one_box(self):
        """The message about a wing's picture comes, and when it is closed no other follows."""
        self.program.dialog()
        wait_for(lambda: any("wingSection" in c.told.get("text", "") for c in self.program.controls()), "the message")
        self.program.push("OK")
        self.program.no_dialog()
        self.assertGreater(int(self.program.get("DrawArea").width), 0)
        self.assertFalse(any(c.isWindow and c.modal for c in self.program.controls()))

    def refused(self, picture):
        self.open_on_wing(picture)
        self.one_box()
        return self.program.errors()

    def test_what_is_no_picture_is_told_once_and_the_program_goes_on(self):
        folder = self.program.folder
        drawing = b'<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><rect width="9" height="9"/></svg>'
        (folder / "drawing.png").write_bytes(drawing)
        (folder / "zipped.bmp").write_bytes(gzip.compress(drawing))
        os.mkfifo(folder / "pipe.bmp")
        write_png(folder / "huge.png", 20001, 5000)
        for name in ("drawing.png", "zipped.bmp", "pipe.bmp", "huge.png"):
            with self.subTest(name):
                self.assertIn(name, self.refused(folder / name))
        self.assertIn("more than 100 megapixels", self.program.errors())
        self.program.save(folder / "plane.vln")

    def limit_memory(self, room):
        """The program gets `room` bytes beyond what it has; None lifts the limit."""
        pid = self.program.process.pid
        hard = resource.prlimit(pid, resource.RLIMIT_AS)[1]
        with open(f"/proc/{pid}/statm") as told:
            size = int(told.read().split()[0]) * resource.getpagesize()
        resource.prlimit(pid, resource.RLIMIT_AS, (hard if room is None else size + room, hard))

    def close_boxes(self):
        def none_left():
            box = [c for c in self.program.controls() if "Button" in c.kind and c.active and c.modal]
            if box:
                self.screen.key("Escape")
            return not any(c.isWindow and c.modal for c in self.program.controls())

        wait_for(none_left, "the boxes to be closed", 20)

    def test_a_save_that_memory_has_no_room_for_does_not_end_the_program(self):
        folder = self.program.folder
        write_png(folder / "large.png", 9000, 8000)
        self.limit_memory(100 << 20)
        self.refused(folder / "large.png")
        # Elsewhere than the picture, so that a copy is wanted.
        (folder / "out").mkdir()
        self.program.save(folder / "out" / "poor.vln", settle=False)
        wait_for(lambda: self.program.running_or_raise() and self.program.dialog(), "the word about the picture")
        self.take("poor-save")
        self.close_boxes()
        # Behind a view it is skipped, too.
        self.screen.move(*self.program.get("DrawArea").at(40, 40))
        self.screen.key("o")
        self.program.choose_file(folder / "large.png")
        self.program.no_dialog()
        self.program.click("VTop")
        self.limit_memory(None)
        self.program.running_or_raise()
        self.program.save(folder / "rich.vln")
        self.assertTrue((folder / "rich.vln").read_bytes().startswith(b"# VELNA"))


if __name__ == "__main__":
    base.main()
