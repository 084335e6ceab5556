"""The settings dialog, worked by messages to its windows, and what a show makes of its settings."""

import os
import shutil
import subprocess

from case import FAILED, SETTINGS
from dialog import (BM_CLICK, CB_SETCURSEL, CONTENTS, HOME_PAGE, LBN_DBLCLK, LBN_SELCHANGE, SYSTEM_DIALOG, WM_COMMAND,
                    Dialog)
from dialog_case import DialogCase
from package_case import PackageCase
from pictures import quarters
from session import end, wait_until

CB_GETCOUNT = 0x146
WM_LBUTTONDOWN, WM_LBUTTONUP = 0x201, 0x202
BM_GETCHECK, BM_SETCHECK = 0xF0, 0xF1
LB_SETCURSEL, LB_GETCOUNT, LB_GETTOPINDEX = 0x186, 0x18B, 0x18E
REG_SZ = 1

BROWSERS = "Software\\Wine\\WineBrowser"

KEYS = ["ImagePath", "ImageInterval", "ImageListFile", "FullScreen", "ImagePositionRandom", "ImageOrderRandom",
        "AllImages", "Blocks", "DissolveType", "DissolveDelay", "MouseSensitivity", "IgnoreMouse"]


class DialogTest(DialogCase):
    def test_a_folder_chosen_in_the_dialog_is_shown(self):
        picture = self.add("a.bmp", quarters(300, 200))
        self.add("b.bmp", quarters(200, 100))
        dialog = self.open(ImagePath=self.machine.windows_path(self.folder) + "\\", ImageInterval="120")
        self.assertEqual([box.text for box in dialog.controls("button") if "Mode" in box.text],
                         ["Template Mode", "Folder Mode"])
        dialog.click("Folder Mode")
        dialog.click("Select", 1)
        folders, _ = dialog.lists()
        dialog.choose(folders, 2, LBN_SELCHANGE, LBN_DBLCLK)
        dialog.wait_for_text("edit", self.windows_folder() + "\\")
        texts = ("Delay Interval: 1 Seconds", "Dissolve Size: 22", "Dissolve Delay: 33", "Mouse Sensitivity: 444")
        for bar, position, text in zip(dialog.controls("scrollbar"), (1, 22, 33, 444), texts):
            dialog.scroll(bar, position)
            dialog.wait_for_text("static", text)
        dialog.click("Full Screen")
        self.keep_shot(self.machine.shot(), "folder")
        dialog.click("Done")
        dialog.show.wait_for_end()
        stored = self.stored()
        self.assertEqual([stored[key] for key in ("ImageInterval", "Blocks", "DissolveDelay", "MouseSensitivity")],
                         ["1", "22", "33", "444"])
        self.check_show(self.frame().stretch(picture, blur=8))

    def test_a_folder_of_many_files_is_listed_whole(self):
        many = os.path.join(self.pictures, "many")
        os.mkdir(many)
        for number in range(1200):
            with open(os.path.join(many, f"picture {number:04}.jpg"), "wb"):
                pass
        dialog = self.open(AllImages="1", ImagePath=self.windows_folder() + "\\")
        dialog.click("Select", 1)
        folders, files = dialog.lists()
        dialog.choose(folders, 3, LBN_SELCHANGE, LBN_DBLCLK)
        dialog.wait_for_text("edit", self.windows_folder("many") + "\\")
        self.assertEqual(dialog.send(files.handle, LB_GETCOUNT), 1200)
        self.assertEqual(dialog.send(files.handle, LB_SETCURSEL, 1199), 1199)
        self.assertGreater(dialog.send(files.handle, LB_GETTOPINDEX), 1180)
        self.keep_shot(self.machine.shot(), "many")
        dialog.close()
        dialog.show.wait_for_end()

    def test_the_folders_of_a_network_are_listed_from_their_share_down(self):
        network = os.path.join(os.path.dirname(self.machine.drive), "dosdevices", "unc")  # as Wine looks for them
        self.addCleanup(shutil.rmtree, network)
        os.makedirs(os.path.join(network, "server", "share", "pictures", "inner"))
        dialog = self.open(AllImages="1", ImagePath="\\\\server\\share\\pictures\\")
        dialog.click("Select", 1)
        folders, _ = dialog.lists()
        for row, folder in ((2, "pictures\\inner\\"), (0, ""), (1, "pictures\\")):
            dialog.choose(folders, row, LBN_SELCHANGE, LBN_DBLCLK)
            dialog.wait_for_text("edit", "\\\\server\\share\\" + folder)
        dialog.close()
        dialog.show.wait_for_end()

    def test_a_template_chosen_in_the_dialog_is_shown(self):
        picture = self.add("a.bmp", quarters(300, 200))
        self.write("t1.txt", b"IMAGE=a.bmp\r\n")
        dialog = self.open(ImagePath=self.windows_folder() + "\\")
        dialog.click("Select")
        _, files = dialog.lists()
        dialog.choose(files, sorted(os.listdir(self.pictures)).index("t1.txt"), LBN_SELCHANGE)
        dialog.wait_for_text("edit", self.windows_folder("t1.txt"))
        dialog.click("Done")
        dialog.show.wait_for_end()
        self.check_show(self.frame().centre(picture))

    def test_cancel_and_the_close_box_save_nothing(self):
        picture = self.add("a.bmp", quarters(300, 200))
        for end in (lambda dialog: dialog.click("Cancel"), Dialog.close):
            dialog = self.open(AllImages="1")
            dialog.click("Full Screen")
            end(dialog)
            dialog.show.wait_for_end()
            self.check_show(self.frame().centre(picture))

    def test_done_writes_the_twelve_values_as_texts(self):
        dialog = self.open(AllImages="1", DissolveType="Random Vertical")
        dialog.click("Done")
        dialog.show.wait_for_end()
        values = self.machine.values(SETTINGS)
        self.assertEqual(sorted(values), sorted(KEYS))
        self.assertEqual({kind for kind, _ in values.values()}, {REG_SZ})
        self.assertEqual({data.count("\0") for _, data in values.values()}, {1})
        self.assertEqual(self.stored()["ImagePath"], self.windows_folder() + "\\")
        self.assertEqual(self.stored()["DissolveType"], "Random Vertical")

    def test_a_mark_or_an_item_set_by_another_program_counts(self):
        dialog = self.open(AllImages="1", IgnoreMouse="0")
        ignore, full, random = (dialog.controls("button", text)[0].handle
                                for text in ("Ignore Mouse", "Full Screen", "Random"))
        for button in ignore, full, random:
            dialog.send(button, BM_SETCHECK, 1)
        self.assertEqual(dialog.send(dialog.controls("button", "Original")[0].handle, BM_GETCHECK), 0)
        dialog.click("Select", 1)
        _, transitions = dialog.controls("combobox")
        dialog.send(transitions.handle, CB_SETCURSEL, 3)
        dialog.click("Done")
        dialog.show.wait_for_end()
        stored = self.stored()
        self.assertEqual([stored[key] for key in ("IgnoreMouse", "FullScreen", "ImagePositionRandom",
                                                  "ImageOrderRandom")], ["1", "1", "1", "0"])
        self.assertEqual(stored["DissolveType"], "Top To Bottom")

    def test_a_text_set_by_another_program_counts(self):
        dialog = self.open(AllImages="1")
        dialog.enter("C:\\somewhere")
        dialog.click("Done")
        dialog.show.wait_for_end()
        self.assertEqual(self.stored()["ImagePath"], "C:\\somewhere\\")


class FailureRoadsTest(DialogCase):
    def done_with(self, text):
        dialog = self.open(ImagePath=self.windows_folder() + "\\", AllImages="0")
        dialog.enter(text)
        dialog.click("Done")
        return dialog

    def test_a_template_in_a_missing_folder_is_asked_for_and_saved_on_ok(self):
        box = ("Tessellarium", "The Template File You Have Specified Does Not Exist", ["OK", "Cancel"])
        dialog = self.done_with("C:\\no such folder\\t.txt")
        self.assertEqual(dialog.message_box(), box)
        dialog.answer("Cancel")
        dialog.wait_for_text("edit", "C:\\no such folder\\t.txt")
        self.assertNotIn("Blocks", self.stored())
        dialog.click("Done")
        self.assertEqual(dialog.message_box(), box)
        dialog.answer("OK")
        dialog.show.wait_for_end()
        self.assertEqual(self.stored()["ImagePath"], "C:\\no such folder\\")
        self.assertEqual(self.stored()["ImageListFile"], "t.txt")

    def test_what_can_not_be_opened_is_told_and_ends_the_dialog_unsaved(self):
        for text, description in {self.windows_folder("none.txt"): "File not found",
                                  self.windows_folder() + "\\": "Path/File access error",
                                  self.windows_folder(): "Path/File access error",
                                  "": "Path/File access error"}.items():
            with self.subTest(text):
                dialog = self.done_with(text)
                self.assertEqual(dialog.message_box(),
                                 ("Tessellarium", "An error has occurred: " + description, ["OK"]))
                dialog.answer("OK")
                dialog.show.wait_for_end()
                self.assertNotIn("Blocks", self.stored())

    def test_a_folder_that_has_vanished_ends_with_the_default_report(self):
        os.mkdir(os.path.join(self.pictures, "inner"))
        dialog = self.open(AllImages="1")
        dialog.click("Select", 1)
        folders, _ = dialog.lists()
        os.rmdir(os.path.join(self.pictures, "inner"))
        last = len(self.windows_folder().split("\\"))
        dialog.choose(folders, last, LBN_SELCHANGE, LBN_DBLCLK)
        self.assertEqual(dialog.message_box(), ("Tessellarium", "Path not found", ["OK"]))
        dialog.answer("OK")
        dialog.show.wait_for_end(FAILED)

    def test_a_drive_that_is_not_ready_ends_with_the_default_report(self):
        dialog = self.open(AllImages="1")
        dialog.click("Select", 1)
        drives = dialog.controls("combobox")[0]
        self.assertEqual(dialog.send(drives.handle, CB_GETCOUNT), 2, "C and Z")
        last = os.path.join(os.path.dirname(self.machine.drive), "dosdevices", "z:")
        self.addCleanup(os.symlink, os.readlink(last), last)
        os.remove(last)
        dialog.choose_from_drop_down(drives, 1)
        self.assertEqual(dialog.message_box(), ("Tessellarium", "Device unavailable", ["OK"]))
        self.keep_shot(self.machine.shot(), "not ready")
        dialog.answer("OK")
        dialog.show.wait_for_end(FAILED)
        self.assertNotIn("Blocks", self.stored())


class HelpTest(DialogCase):
    def test_the_viewer_is_asked_for_the_contents_page_of_the_help_file(self):
        viewer = subprocess.Popen(["wine", os.path.join(self.helpers, "help_viewer.exe")],
                                  env=self.machine.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(end, viewer)
        self.assertEqual(viewer.stdout.readline(), "ready\n")
        dialog = self.open()
        dialog.choose_from_menu(CONTENTS)
        self.assertEqual(viewer.stdout.readline().split("\t"),
                         [str(dialog.form.handle), "3", "1", "C:\\Program Files\\Tessellarium\\Tessellarium.HLP\n"])
        dialog.close()
        dialog.show.wait_for_end()


    def test_a_missing_help_file_is_told_by_the_viewer_and_leaves_the_dialog(self):
        dialog = self.open()
        self.probe.ask("post", dialog.form.handle, WM_COMMAND, CONTENTS, 0)

        def told():
            boxes = [window for window in dialog.show.windows() if window.kind == SYSTEM_DIALOG and window.visible]
            return self.probe.children(boxes[0]) if boxes else None
        parts = wait_until(told, "the viewer tells nothing")
        self.assertTrue(any("Tessellarium.HLP" in part.text for part in parts), parts)
        self.keep_shot(self.machine.shot(), "no help file")
        self.assertNotEqual(parts[0].process, dialog.form.process)
        self.probe.ask("post", next(part for part in parts if part.text == "&No").handle, BM_CLICK, 0, 0)
        dialog.click("Cancel")
        dialog.show.wait_for_end()

    def test_a_missing_viewer_leaves_the_dialog(self):
        self.environment["WINEDLLOVERRIDES"] = "winhlp32.exe=d"
        dialog = self.open()
        dialog.choose_from_menu(CONTENTS)
        dialog.click("Cancel")
        dialog.show.wait_for_end()


class HomePageTest(DialogCase):
    page = "http://www.tessellarium.example/fw/Tessellarium/Tessellarium.html"

    def setUp(self):
        super().setUp()
        browser = self.write("browser", b'#!/bin/sh\necho "$*" >> "$0.pages"\n')
        os.chmod(browser, 0o755)
        self.pages = browser + ".pages"
        self.machine.set_value(BROWSERS, "Browsers", browser)
        self.addCleanup(self.machine.set_value, BROWSERS, "Browsers", None)

    def check_opened(self, number):
        """The browser has been given the page so many times, and nothing else."""
        def given():
            if not os.path.exists(self.pages):
                return []
            with open(self.pages, encoding="utf-8") as pages:
                return pages.read().splitlines()
        wait_until(lambda: len(given()) >= number, "the page isn't opened")
        wait_until(lambda: ["winebrowser.exe"] not in self.probe.ask("processes"), "its starter stays")
        self.assertEqual(given(), [self.page] * number)

    def test_a_missing_browser_leaves_the_dialog(self):
        self.environment["WINEDLLOVERRIDES"] = "winebrowser.exe=d"
        dialog = self.open()
        dialog.choose_from_menu(HOME_PAGE)
        dialog.answer("Yes")
        dialog.click("Cancel")
        dialog.show.wait_for_end()

    def test_the_menu_asks_before_it_opens_the_page_and_the_banner_does_not(self):
        dialog = self.open()
        for answer, opened in (("No", 0), ("Yes", 1)):
            dialog.choose_from_menu(HOME_PAGE)
            self.assertEqual(dialog.message_box(), ("Tessellarium", "Open the Tessellarium page in your browser?",
                                                    ["Yes", "No"]))
            dialog.answer(answer)
            self.probe.settle(dialog.form)
            self.check_opened(opened)
        banner, = dialog.controls("tessellariumpicturebox")
        dialog.post(banner.handle, WM_LBUTTONDOWN)
        dialog.post(banner.handle, WM_LBUTTONUP)
        self.check_opened(2)
        dialog.close()
        dialog.show.wait_for_end()


class KilledTest(DialogCase):
    def moments(self, reached, whole):
        """After so many changes of twelve the dialog is killed; `reached` tells how far it came. On a busy machine
        the blow falls late, and more of them are tried."""
        yield from (2, 5, 8, 11)
        for _ in range(8):
            if reached - {0, whole}:
                return
            yield 1
        self.assertTrue(reached - {0, whole}, f"none was killed in the midst of saving: {reached}")

    def test_a_dialog_killed_while_it_saves_leaves_settings_that_a_start_reads(self):
        picture = self.add("a.bmp", quarters(300, 200))
        old = {"ImagePath": "C:\\", "ImageInterval": "1", "ImageListFile": "old.txt", "FullScreen": "0",
               "ImagePositionRandom": "0", "ImageOrderRandom": "0", "AllImages": "1", "Blocks": "10",
               "DissolveType": "Normal", "DissolveDelay": "0", "MouseSensitivity": "100", "IgnoreMouse": "0"}
        new = {**old, "ImagePath": self.windows_folder() + "\\", "ImageListFile": "",
               "ImageOrderRandom": "1", "Blocks": "20", "MouseSensitivity": "200", "IgnoreMouse": "1"}
        reached = set()
        for changes in self.moments(reached, 6):
            dialog = self.open(**old)
            dialog.enter(self.windows_folder())
            dialog.click("Random", 1)
            dialog.click("Ignore Mouse")
            _, size, _, mouse = dialog.controls("scrollbar")
            dialog.scroll(size, 20)
            dialog.scroll(mouse, 200)
            self.probe.ask("kill at change", dialog.form.process, SETTINGS, changes)
            self.probe.ask("post", dialog.controls("button", "Done")[0].handle, BM_CLICK, 0, 0)
            wait_until(lambda: not dialog.show.running(), "it isn't ended")
            stored = self.stored()
            self.assertEqual(sorted(stored), sorted(KEYS))
            written = [stored[key] == new[key] for key in KEYS if old[key] != new[key]]
            self.assertEqual(written, sorted(written, reverse=True), "in their order")
            self.assertEqual([stored[key] for key in KEYS if stored[key] not in (old[key], new[key])], [])
            reached.add(sum(written))
            dialog = Dialog(self, self.start_program(self.program, "/c"))
            dialog.close()
            dialog.show.wait_for_end()
            if all(written):
                self.check_show(self.frame().centre(picture))

    def test_a_first_dialog_killed_while_it_saves_leaves_settings_that_a_start_reads(self):
        picture = self.add("a.bmp", quarters(300, 200))
        reached = set()
        for changes in self.moments(reached, 12):
            self.machine.clear_key(SETTINGS)
            dialog = Dialog(self, self.start_program(self.program, "/c"))
            dialog.click("Folder Mode")
            dialog.enter(self.windows_folder())
            dialog.click("Full Screen")
            dialog.scroll(dialog.controls("scrollbar")[0], 1)
            self.probe.ask("kill at change", dialog.form.process, SETTINGS, changes)
            self.probe.ask("post", dialog.controls("button", "Done")[0].handle, BM_CLICK, 0, 0)
            wait_until(lambda: not dialog.show.running(), "it isn't ended")
            stored = self.stored()
            self.assertEqual(sorted(stored), sorted(KEYS[:len(stored)]), "the first ones")
            self.assertEqual(stored.get("ImagePath", self.windows_folder() + "\\"), self.windows_folder() + "\\")
            self.assertEqual(stored.get("FullScreen", "1"), "1")
            reached.add(len(stored))
            dialog = Dialog(self, self.start_program(self.program, "/c"))
            self.assertEqual(dialog.controls("edit")[0].text,
                             self.windows_folder() + "\\" if stored else "", "the text")
            dialog.close()
            dialog.show.wait_for_end()
            if "AllImages" in stored:
                self.check_show(self.frame().stretch(picture, blur=8))


class StandAloneDialogTest(PackageCase, DialogCase):
    def open_package(self, **settings):
        self.add("a.bmp", quarters(300, 200))
        package = self.write_package("IMAGE=a.bmp")
        self.machine.clear_key(SETTINGS)
        for name, value in settings.items():
            self.machine.set_value(SETTINGS, name, value)
        return Dialog(self, self.start_program(package, "/c"))

    def test_no_other_content_can_be_chosen_and_the_rest_is_saved(self):
        dialog = self.open_package(AllImages="1")
        guidance = dialog.controls("edit")[1].text
        self.assertTrue(guidance.startswith("Tessellarium is running in Stand-Alone Mode.\r\n"), guidance)
        disabled = 0x08000000
        self.assertEqual([button.text for button in dialog.controls("button") if button.style & disabled],
                         ["Template Mode", "Select", "New", "Edit", "Folder Mode", "Select"])
        self.assertEqual([dialog.send(dialog.controls("button", text)[0].handle, BM_GETCHECK)
                          for text in ("Template Mode", "Folder Mode")], [0, 0])
        dialog.click("Full Screen")
        dialog.click("Done")
        dialog.show.wait_for_end()
        self.assertEqual(self.stored()["FullScreen"], "1")
        self.assertEqual(self.stored()["DissolveType"], "Normal")
