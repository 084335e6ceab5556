// The bases of the suite's tests: a machine, a program on it, and a form on its screen.
#pragma once

#include "contract/driver.h"
#include "contract/test_form.h"
#include "system/failure.h"
#include "toolkit/application.h"

#include <gmock/gmock.h>

#include <ostream>

namespace sys {

inline void PrintTo(const Color& color, std::ostream* out) {
    *out << int{color.red} << '/' << int{color.green} << '/' << int{color.blue};
}

} // namespace sys

namespace contract {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// The code of the failure that an action lets out; 0 if it lets out none.
template <class Action> int failureOf(const Action& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

/// A machine with a program on it that has done nothing yet.
class MachineTest : public testing::Test {
protected:
    std::unique_ptr<Driver> driver = makeDriver();
    sys::System& system = driver->system();
    toolkit::Application application{system, "Contract Test"};

    /// A part of the screen in pixels, and one of them.
    std::vector<sys::Color> seen(const sys::PixelRect& area) { return driver->pixels(area); }
    sys::Color seen(int x, int y) { return seen({x, y, x + 1, y + 1}).front(); }
};

/// The test form is on the screen, nothing is under way, and the pointer lies on the form's own ground.
class FormTest : public MachineTest {
protected:
    FormTest() {
        form.show();
        driver->settle();
        driver->moveMouse({5, 5});
        driver->settle();
        form.take();
    }

    TestForm& form = application.form<TestForm>();
};

} // namespace contract
