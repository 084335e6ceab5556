// designer_time ROUNDS COUNT FOLDER
//
// The template designer with a document of so many rows: its coming up and its loading, the buttons, and the
// item editor on one of the rows.
#include "measure.h"

#include "designer/frm_designer.h"
#include "editor/frm_edit.h"
#include "startup/shared_state.h"
#include "support/prompter.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"

#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

std::string writeTemplate(const std::string& folder, int count) {
    const std::string path = folder + "\\large.txt";
    std::ofstream file(path, std::ios::binary);
    file << "SOUNDSYNC=1\r\n";
    for (int number = 0; number < count; ++number) {
        file << "\r\nIMAGE=C:\\Pictures\\of the summer\\" << number << ".jpg\r\nSOUND=C:\\Sounds\\" << number
             << ".wav\r\nDISSOLVE=Normal\r\nThe harbour in the morning\r\nSeen from the old lighthouse\r\n";
    }
    return path;
}

void click(toolkit::CommandButton& button) {
    SendMessageA(reinterpret_cast<HWND>(button.hWnd()), BM_CLICK, 0, 0);
}

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "designer_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        const int count = std::stoi(arguments[2]);
        shared.DissolveNames[0] = "Normal";
        auto& form = application.form<frmDesigner>();
        form.show();
        form.TemplateFile = writeTemplate(arguments[3], count);
        const measure::Screen screen;
        std::map<std::string, std::vector<double>> times;
        // Milliseconds until what it does is on the screen.
        const auto take = [&](const std::string& name, const auto& action) {
            const double begun = measure::now();
            action();
            application.yield();
            screen.centre();
            times[name].push_back(measure::now() - begun);
        };
        auto& editor = application.form<frmEdit>();
        for (int round = 0; round < rounds; ++round) {
            form.TemplateDirty = False; // so that nothing is asked
            form.unload();
            take("open", [&] { form.show(); });
            measure::require(form.ListView1.rowCount() == count + 1, "all rows and a blank one");
            take("load", [&] { form.PerformLoad(); });
            measure::require(form.ListView1.rowCount() == count, "all rows in the list");
            take("down", [&] { click(form.cmdMoveDown); });
            take("up", [&] { click(form.cmdMoveUp); });
            // An insertion opens the editor, whose "Ok" brings the list back.
            editor.show();
            application.yield();
            take("gone", [&] { editor.unload(); });
            double begun = measure::now();
            application.form<Prompter>().whenShown(editor, [&] {
                times["insert"].push_back(measure::now() - begun);
                begun = measure::now();
                click(editor.cmdOk);
            });
            click(form.cmdInsert);
            application.yield();
            screen.centre();
            times["ok"].push_back(measure::now() - begun);
            measure::require(form.ListView1.rowCount() == count + 2, "the inserted row and a blank one");
            click(form.cmdDelete);
            take("delete", [&] { click(form.cmdDelete); });
            measure::require(form.ListView1.rowCount() == count, "two rows less");
            take("write", [&] { form.WriteTemplate(form.TemplateFile + ".out"); });
            form.TemplateFile = std::string(arguments[3]) + "\\large.txt";
            take("clear", [&] { click(form.cmdClear); });
        }
        for (const auto& [name, figures] : times) {
            measure::report("designer." + name, figures);
        }
    });
}
