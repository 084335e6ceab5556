#include "contract/contract_test.h"

namespace contract {

namespace {

class Keyboard : public FormTest {
protected:
    std::vector<std::string> pressed(int keyCode) {
        driver->pressKey(keyCode);
        driver->settle();
        return form.take();
    }
};

enum Key { shift = 16, escape = 27, space = 32, up = 38, letterA = 65, f5 = 116 };

} // namespace

TEST_F(Keyboard, KeyWithACharacter_IsAKeyDownThenAKeyPress) {
    EXPECT_THAT(pressed(letterA), ElementsAre("form key 65 shift 0", "form character 97"));
    EXPECT_THAT(pressed(space), ElementsAre("form key 32 shift 0", "form character 32"));
    EXPECT_THAT(pressed(escape), ElementsAre("form key 27 shift 0", "form character 27"));
}

TEST_F(Keyboard, KeyWithoutACharacter_IsAKeyDownOnly) {
    EXPECT_THAT(pressed(shift), ElementsAre("form key 16 shift 1"));
    EXPECT_THAT(pressed(up), ElementsAre("form key 38 shift 0"));
    EXPECT_THAT(pressed(f5), ElementsAre("form key 116 shift 0"));
}

TEST_F(Keyboard, FormGetsTheKeysWhateverWasClicked) {
    driver->moveMouse({30, 50});
    driver->pressButton(sys::leftButton);
    driver->releaseButton(sys::leftButton);
    driver->settle();
    form.take();
    EXPECT_THAT(pressed(letterA), ElementsAre("form key 65 shift 0", "form character 97"));
}

TEST_F(Keyboard, FormShownLast_GetsTheKeysUntilItGoes) {
    auto& small = application.form<SmallForm>();
    std::vector<int> keys;
    small.keyDown = [&](int key, int) { keys.push_back(key); };
    small.show();
    driver->settle();
    EXPECT_THAT(pressed(f5), IsEmpty());
    EXPECT_THAT(keys, ElementsAre(f5));
    small.unload();
    driver->settle();
    EXPECT_THAT(pressed(f5), ElementsAre("form key 116 shift 0"));
}

TEST_F(Keyboard, SetFocus_GivesTheFormTheKeys) {
    application.form<SmallForm>().show();
    driver->settle();
    EXPECT_THAT(pressed(f5), IsEmpty());
    form.setFocus();
    driver->settle();
    EXPECT_THAT(pressed(f5), ElementsAre("form key 116 shift 0"));
}

TEST_F(Keyboard, HandlerThatUnloadsTheForm_EndsAllReports) {
    form.keyDown = [this](int, int) { form.unload(); };
    EXPECT_THAT(pressed(letterA), ElementsAre("query unload 1", "unload"));
}

TEST_F(Keyboard, KeysComeInTheOrderInWhichTheyWerePressed) {
    for (const int key : {up, letterA, f5}) {
        driver->pressKey(key);
    }
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("form key 38 shift 0", "form key 65 shift 0", "form character 97",
                                         "form key 116 shift 0"));
}

} // namespace contract
