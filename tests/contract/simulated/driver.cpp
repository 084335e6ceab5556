#include "contract/driver.h"

#include "system/simulated/machine.h"
#include "toolkit/application.h"

namespace contract {

namespace {

class SimulatedDriver final : public Driver {
public:
    sys::System& system() override { return machine_; }

    void pressKey(int keyCode) override {
        constexpr int shift = 16;
        machine_.user().press(keyCode, keyCode == shift ? sys::shiftKey : 0);
    }
    void moveMouse(sys::Point to) override { machine_.user().moveMouse(to); }
    void pressButton(sys::MouseButton button) override { machine_.user().pressMouse(button); }
    void releaseButton(sys::MouseButton button) override { machine_.user().releaseMouse(button); }
    void doubleClick(sys::MouseButton button) override { machine_.user().doubleClick(button); }
    void answerMessageBox(const std::string&, std::int64_t duration) override {
        machine_.setMessageBoxDuration(duration);
    }

    void requestClose(sys::WindowHandle window, sys::CloseReason reason) override {
        machine_.user().closeWindow(window, reason);
    }

    std::intptr_t sendMessage(sys::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                              std::intptr_t lParam) override {
        return machine_.sendMessage(window, message, wParam, lParam);
    }

    std::vector<sys::Color> pixels(const sys::PixelRect& area) override {
        const sys::simulated::Bitmap screen = machine_.screen();
        std::vector<sys::Color> colors;
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                const auto& pixel = screen.at(x, y);
                colors.push_back({pixel.red, pixel.green, pixel.blue});
            }
        }
        return colors;
    }

    void settle() override {
        while (machine_.nextDue().value_or(machine_.now() + 1) <= machine_.now()) {
            toolkit::Application::current().pass();
        }
        toolkit::Application::current().presentChanged();
    }

    bool waitUntil(const std::function<bool()>& condition) override {
        runUntil(machine_.now() + 10'000, condition);
        return condition();
    }

    void letPass(std::int64_t milliseconds) override {
        const std::int64_t end = machine_.now() + milliseconds;
        runUntil(end, [] { return false; });
        machine_.advance(end - machine_.now());
        toolkit::Application::current().presentChanged();
    }

    std::string folder() override {
        machine_.files().addFolder(testFolder);
        return testFolder;
    }
    void addFolder(const std::string& path) override { machine_.files().addFolder(path); }
    void hide(const std::string& path) override { machine_.files().setHidden(path); }
    void makeReadOnly(const std::string& path) override { machine_.files().setReadOnly(path); }
    void setRegistryText(const std::string& subKey, const std::string& name,
                         const std::string& text) override {
        machine_.platform().setRegistryText(sys::currentUserRoot, subKey, name, text);
    }
    void setRegistryNumber(const std::string& subKey, const std::string& name,
                           std::uint32_t number) override {
        machine_.platform().setRegistryNumber(sys::currentUserRoot, subKey, name, number);
    }

private:
    static constexpr const char* testFolder = "C:\\contract";

    void runUntil(std::int64_t end, const std::function<bool()>& condition) {
        while (!condition() && machine_.nextDue().value_or(end + 1) <= end) {
            toolkit::Application::current().pass();
        }
    }

    static sys::simulated::MachineOptions options() {
        sys::simulated::MachineOptions options;
        options.screen = {640, 480}; // a small one is soon composed
        return options;
    }

    sys::simulated::Machine machine_{options()};
};

} // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<SimulatedDriver>(); }

} // namespace contract
