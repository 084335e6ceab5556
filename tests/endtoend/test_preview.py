"""The preview: what it puts into a window of another program, and what ends it."""

import os
import pathlib
import subprocess
import time

import pictures
from case import DESKTOP, EndToEndCase
from session import end, wait_until

WM_CLOSE = 0x10
CHILD = 0x40000000
VISIBLE = 0x10000000

WHITE = (255, 255, 255)
LOGO = pictures.Bitmap(pathlib.Path(__file__).resolve().parents[2] / "resources" / "logo.bmp")


class Host:
    """A program with a window that stands for the monitor of the system's dialog."""

    def __init__(self, machine, helpers, left=200, top=100, width=152, height=112):
        self.left, self.top = left, top
        self.process = subprocess.Popen(
            ["wine", os.path.join(helpers, "host.exe"), *map(str, (left, top, width, height))],
            env=machine.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL)
        self.handle = int(self.process.stdout.readline())

    def take_window_away(self):
        self.process.stdin.write(b"\n")
        self.process.stdin.flush()

    def kill(self):
        self.process.kill()
        self.process.wait()

    def close(self):
        end(self.process)


class PreviewCase(EndToEndCase):
    def host(self, *place):
        host = Host(self.machine, self.helpers, *place)
        self.addCleanup(host.close)
        return host

    def preview(self, host, **settings):
        """The product with its pictures in the host: `logo` and `area`, in front of which it stands."""
        preview = self.start("/p", str(host.handle), **settings)

        def pictures_there():
            if not preview.running():
                preview.wait_for_end()
                self.fail("the preview ends by itself")
            windows = self.probe.children(host)
            return windows if len(windows) == 2 else None
        preview.logo, preview.area = wait_until(pictures_there, "the pictures don't come into the host")
        return preview

    def close(self, preview):
        self.probe.ask("post", preview.area.handle, WM_CLOSE, 0, 0)
        preview.wait_for_end()

    def own_windows(self):
        return [window for window in self.probe.windows() if window.kind.startswith("Tessellarium")]

    def check_nothing_left(self, *hosts):
        wait_until(lambda: not self.own_windows(), "a window is left", 5)
        for host in hosts:
            wait_until(lambda: not self.probe.children(host), "a picture is left", 5)
        wait_until(lambda: ["Tessellarium.scr"] not in self.probe.ask("processes"), "a process is left", 5)

    def place_in(self, host, window):
        """Of a window, in pixels of the host's client area."""
        return (window.left - host.left, window.top - host.top,
                window.right - host.left, window.bottom - host.top)


class PlaceTest(PreviewCase):
    def test_the_pictures_become_children_of_the_host(self):
        host = self.host()
        preview = self.preview(host)
        for window in preview.area, preview.logo:
            self.assertEqual(window.kind, "TessellariumPictureBox")
            self.assertEqual(window.parent, host.handle)
            self.assertEqual(window.style & (CHILD | VISIBLE), CHILD | VISIBLE)
            self.assertTrue(window.visible)
        self.assertEqual(self.place_in(host, preview.area), (0, 0, 152, 112))
        self.assertEqual(self.place_in(host, preview.logo), (30, 30, 123, 83), "and in front")
        form, = self.own_windows()
        self.assertEqual((form.text, form.visible), ("Tessellarium", False))
        self.assertEqual(form.process, preview.area.process)
        self.assertEqual(self.probe.children(form), [])
        self.close(preview)
        self.check_nothing_left(host)

    def test_hosts_of_other_sizes(self):
        for size, area, logo in (((300, 200), (0, 0, 300, 200), (104, 74, 197, 127)),
                                 ((53, 21), (0, 0, 53, 21), (-20, -16, 73, 37)),
                                 ((1, 1), (0, 0, 1, 1), (-46, -26, 47, 27))):
            with self.subTest(size):
                host = self.host(200, 100, *size)
                preview = self.preview(host)
                self.assertEqual(self.place_in(host, preview.area), area)
                self.assertEqual(self.place_in(host, preview.logo), logo)
                self.close(preview)


class ScaledPlaceTest(PreviewCase):
    """Programs that start from now on take the screen for one of another resolution."""

    def use_dpi(self, dpi):
        self.machine.set_value(DESKTOP, "LogPixels", dpi)
        self.addCleanup(self.machine.set_value, DESKTOP, "LogPixels", self.dpi)
        # Positions are told to a program in pixels of the resolution that it knows.
        self.probe = self.machine.start_probe()
        self.addCleanup(self.probe.close)

    def check_place(self, dpi, area, logo):
        self.use_dpi(dpi)
        host = self.host()
        preview = self.preview(host)
        self.assertEqual(self.place_in(host, preview.area), area)
        self.assertEqual(self.place_in(host, preview.logo), logo)
        self.close(preview)

    def test_twelve_twips_to_a_pixel(self):
        # The logo's box grows with them, and its picture doesn't.
        self.check_place(120, (0, 0, 152, 112), (18, 23, 134, 89))

    def test_ten_twips_to_a_pixel(self):
        self.check_place(144, (0, 0, 152, 112), (6, 16, 146, 96))

    def test_seven_and_a_half_twips_to_a_pixel(self):
        # The program takes them for eight.
        self.check_place(192, (0, 0, 162, 119), (-12, 7, 174, 113))


class PaintingTest(PreviewCase):
    """Wine doesn't paint a window in one of another program; in the desktop it does."""

    class Desktop:
        left = top = 0

        def __init__(self, handle):
            self.handle = handle

    def start_on_desktop(self, **settings):
        preview = self.start("/p", self.probe.ask("desktop")[0][0], **settings)

        def pictures_there():
            windows = [window for window in self.own_windows() if window.kind == "TessellariumPictureBox"]
            return windows if len(windows) == 2 else None
        # As top-level windows of Wine they may come up in either order.
        preview.logo, preview.area = sorted(wait_until(pictures_there, "the pictures don't come up"),
                                            key=lambda window: window.right - window.left)
        return preview

    def test_a_white_area_with_the_logo_in_its_middle(self):
        frame = self.frame()
        frame.fill(0, 0, frame.width, frame.height, WHITE)
        frame.centre(LOGO)
        frame.ignore(0, 0, 40, 40)  # the mouse pointer, which a preview leaves alone
        for interval in "1", "120":
            with self.subTest(interval):
                preview = self.start_on_desktop(ImageInterval=interval)
                preview.wait_for_frame(frame)
                # What covers it for a while has to be repaired.
                cover = (preview.logo.left + 10, preview.logo.top - 10, 60, 40)
                self.machine.hold("cover", *cover)
                self.addCleanup(self.machine.release, "cover")
                wait_until(lambda: frame.difference(self.machine.shot()), "the cover doesn't come up")
                self.machine.release("cover")
                preview.wait_for_frame(frame)
                self.close(preview)
                self.check_nothing_left()

    def test_nobody_ends_it_by_mouse_or_key(self):
        preview = self.start_on_desktop()
        self.machine.act_on(preview.area, "mousemove", 50, 50)
        self.machine.act_on(preview.area, "mousemove", 60, 60)
        self.machine.act_on(preview.area, "click", 1)
        self.machine.act_on(preview.logo, "mousemove", preview.logo.left + 5, preview.logo.top + 5)
        self.machine.act_on(preview.logo, "click", 1)
        self.machine.act("key", "space")
        preview.must_stay(0.2)
        self.close(preview)


class EndTest(PreviewCase):
    # A moment, on a loaded machine: the preview looks at its host every 1 to 120 milliseconds.
    moment = 10

    def wait_for_quick_end(self, preview):
        begun = time.monotonic()
        preview.wait_for_end()
        self.assertLess(time.monotonic() - begun, self.moment)

    def test_it_stays_as_long_as_it_is_wanted(self):
        host = self.host()
        preview = self.preview(host, ImageInterval="1")
        # A request to the logo is none.
        self.probe.ask("post", preview.logo.handle, WM_CLOSE, 0, 0)
        preview.must_stay(0.3)
        self.assertEqual(len(self.probe.children(host)), 2)
        self.close(preview)

    def test_a_request_to_close_the_area_ends_it(self):
        host = self.host()
        for interval in "1", "120":
            with self.subTest(interval):
                preview = self.preview(host, ImageInterval=interval)
                self.probe.ask("post", preview.area.handle, WM_CLOSE, 0, 0)
                self.wait_for_quick_end(preview)
                self.check_nothing_left(host)

    def test_a_host_whose_window_goes_ends_it(self):
        for interval in "1", "120":
            with self.subTest(interval):
                host = self.host()
                preview = self.preview(host, ImageInterval=interval)
                host.take_window_away()
                self.wait_for_quick_end(preview)
                self.assertIsNone(host.process.poll())
                self.check_nothing_left()

    def test_a_host_that_is_killed_ends_it(self):
        for interval in "1", "120":
            with self.subTest(interval):
                host = self.host()
                preview = self.preview(host, ImageInterval=interval)
                host.kill()
                self.wait_for_quick_end(preview)
                self.check_nothing_left()

    def test_without_a_host_it_ends_and_shows_nothing(self):
        stale = self.host()
        stale.kill()
        wait_until(lambda: all(window.handle != stale.handle for window in self.probe.windows()),
                   "the killed program's window stays")
        live = self.host()
        for arguments in (["/p"], ["/p", "0"], ["/p:1234"], [f"/p:{live.handle}"], ["/p", "junk"],
                          ["/p", "-1"], ["/p", "1"], ["/p", "2147483647"], ["/p", str(stale.handle)]):
            with self.subTest(arguments):
                self.check_silent(self.start(*arguments))
                self.check_nothing_left(live)

    def test_the_number_may_stand_close_to_the_switch_and_have_a_tail(self):
        host = self.host()
        for arguments in ([f"/P{host.handle}"], ["/p", f"{host.handle}x"]):
            with self.subTest(arguments):
                preview = self.start(*arguments)
                wait_until(lambda: len(self.probe.children(host)) == 2, "the pictures don't come")
                _, preview.area = self.probe.children(host)
                self.close(preview)


class RunTest(PreviewCase):
    def files(self):
        """All beside the program, and beneath."""
        return sorted((os.path.join(folder, name), os.stat(os.path.join(folder, name)).st_mtime_ns)
                      for folder, folders, names in os.walk(self.folder) for name in folders + names)

    def test_two_run_side_by_side(self):
        hosts = self.host(), self.host(500, 100, 300, 200)
        first, second = self.preview(hosts[0]), self.preview(hosts[1])
        self.assertNotEqual(first.area.process, second.area.process)
        self.assertEqual(self.place_in(hosts[0], first.logo), (30, 30, 123, 83))
        self.assertEqual(self.place_in(hosts[1], second.logo), (104, 74, 197, 127))
        self.close(first)
        self.assertEqual(self.probe.children(hosts[0]), [])
        second.must_stay(0.2)
        self.assertEqual(len(self.probe.children(hosts[1])), 2)
        self.close(second)
        self.check_nothing_left(*hosts)

    def test_a_running_show_does_not_keep_it_away(self):
        host = self.host()
        show = self.start("/s")
        show.wait_for_form()
        preview = self.preview(host)
        self.probe.ask("post", preview.area.handle, WM_CLOSE, 0, 0)
        wait_until(lambda: not preview.running(), "the preview doesn't end")
        self.assertEqual(preview.process.returncode, 0)
        self.assertTrue(show.running())
        self.end_by_key(show)

    def test_it_writes_no_file(self):
        before = self.files()
        host = self.host()
        preview = self.preview(host)
        preview.must_stay(0.3)
        self.assertEqual(self.files(), before)
        self.close(preview)
        self.assertEqual(self.files(), before)

    def test_fifty_in_a_row_leave_nothing(self):
        before = self.files()
        host = self.host()
        for count in range(50):
            with self.subTest(count):
                preview = self.preview(host)
                self.assertEqual(self.place_in(host, preview.logo), (30, 30, 123, 83))
                self.close(preview)
                self.check_nothing_left(host)
        self.assertEqual(self.files(), before)
