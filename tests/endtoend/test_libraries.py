"""Libraries that lie beside the product: none is ever taken in place of one of the system's."""

import os
import re
import shutil
import subprocess

from case import FAILED, EndToEndCase
from pictures import quarters

# What a program of this kind could load, by itself or through what it uses. NOTE: version and combase are
# missing, since Wine's own libraries take them from beside any program.
NAMES = """
    atl bcrypt cfgmgr32 comctl32 comdlg32 crypt32 cryptbase cryptsp d2d1 dbghelp devobj dsound dwmapi
    dwrite gdiplus imagehlp mf mfplat mlang mpr msacm32 msctf msimg32 msvfw32 netapi32 ntmarta oleacc oleaut32
    olepro32 profapi propsys psapi quartz riched20 rsaenh secur32 sspicli urlmon userenv usp10 uxtheme
    wer windowscodecs wininet winmm wintrust wmp wtsapi32 xmllite password.cpl
""".split()
FILES = [name if "." in name else name + ".dll" for name in NAMES]

# Without this Wine takes its own libraries first, as Windows doesn't.
BESIDE_FIRST = {"WINEDLLOVERRIDES":
                "mscoree=;mshtml=;" + ",".join(name.split(".")[0] for name in NAMES) + "=n,b"}

# Windows takes these from its own folder, whatever lies beside a program.
ALWAYS_OF_THE_SYSTEM = {"kernel32", "user32", "gdi32", "advapi32", "ole32", "msvcrt"}


class LibrariesTest(EndToEndCase):
    def test_the_product_imports_only_what_the_system_always_takes_from_its_own_folder(self):
        table = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", self.program], check=True, text=True,
                               capture_output=True).stdout
        imported = {name.lower() for name in re.findall(r"^\s*DLL Name: (.*)\.dll$", table, re.MULTILINE)}
        self.assertIn("kernel32", imported)
        self.assertEqual(imported - ALWAYS_OF_THE_SYSTEM, set())

    def setUp(self):
        super().setUp()
        self.environment = BESIDE_FIRST

    def add_decoys(self, folder):
        for file in FILES:
            shutil.copy(os.path.join(self.helpers, "decoy.dll"), os.path.join(folder, file))

    def loaded(self, folder):
        return {file for file in FILES if os.path.exists(os.path.join(folder, file + ".loaded"))}

    def test_decoys_work_on_a_careless_program(self):
        folder = os.path.join(self.folder, "careless")
        os.mkdir(folder)
        program = shutil.copy(os.path.join(self.helpers, "careless.exe"), folder)
        self.add_decoys(folder)
        self.machine.start(program, *FILES, **BESIDE_FIRST).wait(60)
        self.assertEqual(self.loaded(folder), set(FILES))

    def test_a_show_loads_none_of_them(self):
        self.add_decoys(self.folder)
        names = "a.gif", "b.jpg", "c.bmp", "d.wmf"
        frames = {name: self.frame().centre(self.add(name, quarters(320, 160))) for name in names}
        self.write("sound.wav", b"")
        show = self.start_template("SOUNDSYNC=1", *(line for name in names
                                                    for line in (f"IMAGE={name}", "SOUND=sound.wav")))
        self.assertEqual(show.watch(frames, 5), [*names, "a.gif"])
        form = show.wait_for_form()
        modules = [module for (module,) in self.probe.ask("modules", form.process)]
        own = self.machine.windows_path(self.folder).lower()
        self.assertEqual([module for module in modules if module.lower().startswith(own)],
                         [self.machine.windows_path(self.program)])
        self.end_by_key(show)
        self.assertEqual(self.loaded(self.folder), set())

    def test_a_show_starts_without_the_common_controls(self):
        self.add("a.gif", quarters(320, 160))
        show = self.start_template("IMAGE=a.gif", "COMMENT=A text")
        modules = [module for (module,) in self.probe.ask("modules", show.wait_for_form().process)]
        self.assertEqual([module for module in modules if "comctl32" in module.lower()], [])
        self.end_by_key(show)

    def test_other_roads_load_none_of_them(self):
        self.add_decoys(self.folder)
        for arguments in ["/a", "0"], ["/x"]:
            with self.subTest(arguments):
                self.start(*arguments).wait_for_end()
        show = self.start("/s", ImageInterval="40000")
        show.wait_for_end(FAILED)
        self.assertEqual(self.loaded(self.folder), set())
