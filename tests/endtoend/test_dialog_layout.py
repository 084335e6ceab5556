"""The settings dialog's controls: of which kind they are, where they stand, and whether all of each can be read."""

from dialog import ABOUT, Dialog
from dialog_case import DialogCase
from session import wait_until

TWIPS_PER_INCH = 1440
CLIENT_SIZE = 8325, 5295

WS_VISIBLE, WS_MAXIMIZEBOX, WS_MINIMIZEBOX, WS_THICKFRAME = 0x10000000, 0x10000, 0x20000, 0x40000

# The lower bits of a button's style, and of a label's
PUSH, CHECK, GROUP, OPTION = 0, 2, 7, 9
CENTRE, LEFT = 1, 12

# The frames of the right-hand panel, and those of the options
PANEL = 3120, 0, 5115, 3075
SIZE, PLACEMENT, ORDER = (3240, 3180, 1215, 795), (4740, 3180, 1155, 795), (6120, 3180, 1215, 795)

NOWHERE = 0, 0, 0, 0


def named(text):
    """A hidden label: the name of the control behind it."""
    return "Static", LEFT, text, NOWHERE


# In the order of the tab key: class, kind of button or label, text, place in twips within what it stands in. Without
# a text: it depends on what the machine holds.
RULES = [  # which have colours of their own, and thereby their place in front of all others
    ("TessellariumLabel", None, "", (0, 2940, 3120, 15)),
    ("TessellariumLabel", None, "", (0, 1680, 3120, 15)),
    ("TessellariumLabel", None, "", (0, 1200, 3120, 15)),
]
LEFT_COLUMN = [
    ("Button", CHECK, "Template Mode", (60, 60, 1455, 195)),
    ("Button", PUSH, "Select", (60, 360, 780, 780)),
    ("Button", PUSH, "New", (900, 360, 780, 780)),
    ("Button", PUSH, "Edit", (1740, 360, 780, 780)),
    named("Template or folder"),
    ("Edit", None, None, (60, 1320, 2955, 285)),
    ("Button", CHECK, "Folder Mode", (60, 1800, 1515, 195)),
    ("Button", PUSH, "Select", (60, 2100, 780, 780)),
    ("Static", CENTRE, "Delay Interval: 1 Seconds", (60, 3000, 2900, 200)),
    ("ScrollBar", None, "", (60, 3240, 2990, 285)),
    ("Static", CENTRE, "Dissolve Size: ", (60, 3540, 2900, 200)),
    ("ScrollBar", None, "", (60, 3780, 2990, 285)),
    ("Static", CENTRE, "Dissolve Delay:", (60, 4080, 2900, 200)),
    ("ScrollBar", None, "", (60, 4320, 2990, 285)),
    ("Static", CENTRE, "Mouse Sensitivity: 100", (60, 4680, 2900, 200)),
    ("ScrollBar", None, "", (60, 4920, 2990, 285)),
    ("Button", CHECK, "Ignore Mouse", (3120, 4980, 1305, 225)),
]
PANELS = [
    ("Button", GROUP, "", PANEL, [
        named("What to do"),
        ("Edit", None, None, (120, 240, 4875, 2715))]),
    ("Button", GROUP, "", PANEL, [
        named("Drive"),
        ("ComboBox", None, None, (120, 180, 2355, 315)),
        named("Folder"),
        ("ListBox", None, None, (120, 660, 2355, 2340)),
        named("Template"),
        ("ListBox", None, None, (2520, 180, 2475, 2820))]),
    ("Button", GROUP, "", PANEL, [
        named("Drive"),
        ("ComboBox", None, None, (120, 180, 2355, 315)),
        named("Folder"),
        ("ListBox", None, None, (120, 720, 2355, 1890)),
        named("Pictures in the folder"),
        ("ListBox", None, None, (2580, 180, 2415, 2430)),
        ("Static", LEFT, "Dissolve Type:", (120, 2760, 1080, 210)),
        ("ComboBox", None, None, (1200, 2700, 3735, 315))]),
]
OPTIONS = [
    ("Static", None, "", SIZE, [
        ("Static", LEFT, "Size", (0, 30, 1215, 225)),
        ("Button", OPTION, "Full Screen", (0, 300, 1215, 225)),
        ("Button", OPTION, "Original", (0, 570, 1215, 225))]),
    ("Static", None, "", PLACEMENT, [
        ("Static", LEFT, "Placement", (0, 30, 1155, 225)),
        ("Button", OPTION, "Random", (0, 300, 1155, 225)),
        ("Button", OPTION, "Centered", (0, 540, 1155, 225))]),
    ("Static", None, "", ORDER, [
        ("Static", LEFT, "Order", (0, 30, 1215, 225)),
        ("Button", OPTION, "Random", (0, 300, 1215, 225)),
        ("Button", OPTION, "Sequential", (0, 600, 1215, 195))]),
]
BOTTOM_ROW = [
    ("TessellariumPictureBox", None, "", (3150, 4260, 4170, 495)),
    ("Button", PUSH, "Done", (7440, 3480, 780, 780)),
    ("Button", PUSH, "Cancel", (7440, 4380, 780, 780)),
]

EM_GETLINECOUNT = 0xBA


class LayoutCase(DialogCase):
    size = (1920, 1200)

    def open_all(self):
        """The dialog with each of its panels seen once, so that all of its windows are there; and the screen
        with the controls that are seen on it, for each panel."""
        dialog = self.open(AllImages="0", ImagePath=self.windows_folder() + "\\")
        looks = [self.look(dialog)]
        self.check_guidance(dialog, looks[0][0])
        dialog.click("Select")
        looks.append(self.look(dialog))
        dialog.click("Folder Mode")
        self.check_guidance(dialog, self.look(dialog)[0])
        dialog.click("Select", 1)
        looks.append(self.look(dialog))
        return dialog, looks

    def check_guidance(self, dialog, shot):
        """It stands on the ground of the dialog, and its lines aren't broken."""
        _, guidance = dialog.controls("edit")
        with self.subTest(guidance.text[:50]):
            ground = shot.pixel(guidance.left + 5, guidance.top - 2)
            self.assertEqual(shot.pixel(guidance.right - 5, guidance.bottom - 5), ground)
            self.assertEqual(dialog.send(guidance.handle, EM_GETLINECOUNT), guidance.text.count("\r\n") + 1)

    def look(self, dialog):
        """The screen once nothing changes on it any more, and the controls that are seen."""
        shot = None

        def quiet():
            nonlocal shot
            self.probe.settle(dialog.form)
            before, shot = shot, self.machine.shot()
            return before and before.data == shot.data
        wait_until(quiet, "the screen doesn't come to rest")
        return shot, [control for control in dialog.all_controls() if control.visible]

    def pixels(self, twips):
        return int(twips * self.dpi / TWIPS_PER_INCH + 0.5)

    def rect(self, place, origin):
        """The pixels of a place in twips, each edge rounded by itself."""
        left, top, width, height = place
        return (origin[0] + self.pixels(left), origin[1] + self.pixels(top),
                origin[0] + self.pixels(left + width), origin[1] + self.pixels(top + height))

    def check_table(self, dialog):
        (client,) = self.probe.ask("client", dialog.form.handle)
        left, top, width, height = map(int, client)
        # The dialog's edges lie in the middle of the screen, and are rounded there.
        for pixels, twips in zip((width, height), CLIENT_SIZE):
            self.assertAlmostEqual(pixels, twips * self.dpi / TWIPS_PER_INCH, delta=1)
        self.assertFalse(dialog.form.style & WS_MAXIMIZEBOX)
        middle = (dialog.form.top + dialog.form.bottom) / 2
        self.assertAlmostEqual(middle, self.size[1] / 2, delta=1.5, msg="centred with its frame")
        windows = iter(dialog.all_controls())

        def check(rows, parent, origin):
            for kind, look, text, place, *inside in rows:
                window = next(windows)
                with self.subTest(f"{kind} {text or ''} at {place}"):
                    self.assertEqual(window.kind, kind)
                    self.assertEqual(window.parent, parent)
                    if look is not None:
                        self.assertEqual(window.style & 0xF, look)
                    if place == NOWHERE:
                        self.assertFalse(window.style & WS_VISIBLE)
                    if text is not None:
                        self.assertEqual(window.text, text)
                    self.assertEqual((window.left, window.top, window.right, window.bottom),
                                     self.rect(place, origin))
                if inside:
                    check(inside[0], window.handle, (window.left, window.top))
        check(RULES + LEFT_COLUMN + PANELS + OPTIONS + BOTTOM_ROW, dialog.form.handle, (left, top))
        self.assertEqual(list(windows), [])

    def check_apart(self, controls):
        """No two that stand in the same one lie over each other."""
        for number, one in enumerate(controls):
            for other in controls[:number]:
                if one.parent == other.parent:
                    apart = (one.right <= other.left or other.right <= one.left
                             or one.bottom <= other.top or other.bottom <= one.top
                             or one.right == one.left or other.right == other.left)
                    with self.subTest("apart"):
                        self.assertTrue(apart, f"{one} and {other}")

    def check_whole(self, shot, controls):
        """What can be read of a caption ends before the edges of its control."""
        for control in controls:
            marks = control.kind == "Button" and control.style & 0xF in (CHECK, OPTION)
            if control.text and (control.kind == "Static" or marks):
                edges = [shot.part(control.right - 1, control.top, control.right, control.bottom)]
                if control.kind == "Static":
                    edges += [shot.part(control.left, control.bottom - 1, control.right, control.bottom)]
            elif control.text and control.kind == "Button" or control.kind in ("ComboBox", "Edit"):
                edges = self.within_frame(shot, control)
            else:
                continue
            for edge in edges:
                with self.subTest("whole"):
                    self.assertEqual(len(edge.colours()), 1, f"{control} is cut off")

    def within_frame(self, shot, control):
        """The pixels beside a frame of one pixel, but for its round corners and a drop-down list's arrow."""
        corner = 4
        left, top, right, bottom = control.left + 1, control.top + 1, control.right - 1, control.bottom - 1
        last = right - (control.bottom - control.top if control.kind == "ComboBox" else corner)
        return [shot.part(left + corner, top, last, top + 1), shot.part(left + corner, bottom - 1, last, bottom),
                shot.part(left, top + corner, left + 1, bottom - corner),
                shot.part(right - 1, top + corner, right, bottom - corner)]

    def check_about(self, dialog):
        """The box is a dialog by itself, of a fixed size, and all of it can be read."""
        dialog.choose_from_menu(ABOUT)
        about = Dialog(self, dialog.show, "About Tessellarium")
        self.assertEqual(about.form.style & (WS_THICKFRAME | WS_MAXIMIZEBOX | WS_MINIMIZEBOX), 0)
        self.assertEqual(about.form.parent, 0, "its owner")
        shot, controls = self.look(about)
        self.keep_shot(shot, f"about at {self.dpi}")
        self.assertEqual([control.kind for control in controls],
                         ["TessellariumLabel"] * 2 + ["Static"] * 4 + ["Button"])
        self.check_apart(controls)
        self.check_whole(shot, controls)
        about.click("OK")

    def check_all(self):
        dialog, looks = self.open_all()
        for shot, controls in looks:
            self.check_apart(controls)
            self.check_whole(shot, controls)
        self.check_table(dialog)
        self.check_about(dialog)
        dialog.close()
        dialog.show.wait_for_end()


class LayoutAt100PercentTest(LayoutCase):
    def test_the_controls_are_those_of_the_table_and_can_be_read(self):
        self.check_all()


class LayoutAt150PercentTest(LayoutCase):
    dpi = 144

    def test_the_controls_are_those_of_the_table_and_can_be_read(self):
        self.check_all()


class LayoutAt200PercentTest(LayoutCase):
    dpi = 192

    def test_the_controls_are_those_of_the_table_and_can_be_read(self):
        self.check_all()
