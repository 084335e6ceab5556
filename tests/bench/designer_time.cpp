// designer_time ROUNDS COUNT FOLDER
//
// The template designer with a document of so many rows: its loading, and the buttons that touch every row.
#include "measure.h"

#include "designer/frm_designer.h"
#include "startup/shared_state.h"
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
        for (int round = 0; round < rounds; ++round) {
            take("load", [&] { form.PerformLoad(); });
            measure::require(form.ListView1.rowCount() == count, "all rows in the list");
            take("move", [&] { click(form.cmdMoveDown); });
            form.ListView1.selectRow(1);
            take("delete", [&] { click(form.cmdDelete); });
            measure::require(form.ListView1.rowCount() == count - 1, "a row less");
            take("write", [&] { form.WriteTemplate(form.TemplateFile + ".out"); });
            form.TemplateFile = std::string(arguments[3]) + "\\large.txt";
            take("clear", [&] { click(form.cmdClear); });
        }
        for (const auto& [name, figures] : times) {
            measure::report("designer." + name, figures);
        }
    });
}
