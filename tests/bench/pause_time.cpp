// pause_time COUNT MILLISECONDS
//
// The show's pauses, and in turn with each the same wait by a bare loop: one look at the queue, until the
// tick count has reached the end.
#include "measure.h"

#include "show/main_form.h"
#include "startup/shared_state.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"

#include <string>
#include <vector>

namespace {

struct Times {
    std::vector<double> length{}; // milliseconds
    std::vector<double> late{};   // of the tick count behind the pause's end

    template <class Wait> void add(DWORD milliseconds, const Wait& wait) {
        const double begun = measure::now();
        const DWORD end = GetTickCount() + milliseconds;
        wait(end);
        late.push_back(static_cast<double>(GetTickCount() - end));
        length.push_back(measure::now() - begun);
    }
    void report(const std::string& who) const {
        measure::report("pause." + who, length);
        measure::report("late." + who, late);
    }
};

void bareWait(DWORD end) {
    do {
        measure::deliverMessages();
    } while (GetTickCount() < end);
}

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "pause_time");
    return measure::run([&] {
        const int count = std::stoi(arguments[1]);
        const auto milliseconds = static_cast<DWORD>(std::stoul(arguments[2]));
        shared.DissolveDelay = static_cast<std::int16_t>(milliseconds);
        MainForm& form = application.form<MainForm>();

        Times product;
        Times bare;
        for (int pause = 0; pause < count; ++pause) {
            product.add(milliseconds, [&](DWORD) { form.Pause(1); });
            bare.add(milliseconds, bareWait);
        }
        product.report("product");
        bare.report("bare");
    });
}
