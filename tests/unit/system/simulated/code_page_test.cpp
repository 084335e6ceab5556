#include "system/simulated/code_page.h"

#include <gtest/gtest.h>

namespace {

using namespace sys::simulated;

TEST(CodePage, CharactersThatItHas_AreAByteEach) {
    EXPECT_EQ(toCodePage("a\u00FCz\u20AC\u0178\u00FF"), "a\xFCz\x80\x9F\xFF");
    EXPECT_EQ(fromCodePage("a\xFCz\x80\x9F\xFF"), "a\u00FCz\u20AC\u0178\u00FF");
    EXPECT_EQ(toCodePage(""), "");
}

TEST(CodePage, EveryByte_ComesBack) {
    for (int byte = 1; byte <= 0xFF; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(toCodePage(fromCodePage(text)), text) << byte;
    }
}

TEST(CodePage, OtherTexts_StayAsTheyAre) {
    for (const char* text :
         {"\xFC.gif", "\u00FC\u65E5.gif", "\u00FC\xC3", "\U0001F600", "\xE2\x82", "\x80"}) {
        EXPECT_EQ(toCodePage(text), text);
    }
}

} // namespace
