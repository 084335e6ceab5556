#include "toolkit/numbers.h"

#include "unit/toolkit/failure_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace toolkit;

TEST(Numbers, Floor16_BetweenIntegers_GoesTowardMinusInfinity) {
    EXPECT_EQ(floor16(2.9), 2);
    EXPECT_EQ(floor16(-2.1), -3);
    EXPECT_EQ(floor16(32767.9), 32767);
}

TEST(Numbers, Round16_Halves_GoToEven) {
    EXPECT_EQ(round16(2.5), 2);
    EXPECT_EQ(round16(3.5), 4);
    EXPECT_EQ(round16(-2.5), -2);
    EXPECT_EQ(round16(32767.4), 32767);
}

TEST(Numbers, Conversions_OutOfRange_FailWithOverflow) {
    EXPECT_EQ(failureOf([] { round16(32767.5); }), 6);
    EXPECT_EQ(failureOf([] { round16(-32768.6); }), 6);
    EXPECT_EQ(failureOf([] { floor16(32768); }), 6);
    EXPECT_EQ(failureOf([] { floor16(-32768.1); }), 6);
    EXPECT_EQ(failureOf([] { round32(2147483647.5); }), 6);
    EXPECT_EQ(failureOf([] { floor32(2147483648.0); }), 6);
    EXPECT_EQ(failureOf([] { round16(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(round16(-32768.5), -32768);
    EXPECT_EQ(round32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
}

TEST(Numbers, Wrap16_SumsAndProducts_WrapAround) {
    EXPECT_EQ(wrap16(32 * 1000), 32000);
    EXPECT_EQ(wrap16(33 * 1000), -32536);
    EXPECT_EQ(wrap16(66 * 1000), 464);
    EXPECT_EQ(wrap16(32767 + 1), -32768);
    EXPECT_EQ(wrap16(-32768 - 1), 32767);
}

TEST(Numbers, Val_NumberAtTheFront_TakesIt) {
    EXPECT_EQ(val("12"), 12);
    EXPECT_EQ(val("  12"), 12);
    EXPECT_EQ(val("12abc"), 12);
    EXPECT_EQ(val("-3.5x"), -3.5);
    EXPECT_EQ(val("+7"), 7);
    EXPECT_EQ(val(".5"), 0.5);
    EXPECT_EQ(val("2e2"), 200);
}

TEST(Numbers, Val_NoNumberAtTheFront_IsZero) {
    for (const char* text : {"", "   ", "abc", ":1234", "-", "+-1", ".", "inf", "nan", "e5"}) {
        EXPECT_EQ(val(text), 0) << text;
    }
}

TEST(Numbers, Val_BeyondWhatADoubleHolds_IsInfiniteOrZero) {
    EXPECT_EQ(val("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(val("-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(val("1e-999"), 0);
    EXPECT_EQ(val("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, TextOf_Numbers_ArePlain) {
    EXPECT_EQ(textOf(442.5F), "442.5");
    EXPECT_EQ(textOf(28800.0F), "28800");
    EXPECT_EQ(textOf(7), "7");
    EXPECT_EQ(textOf(std::int16_t{-7}), "-7");
}

} // namespace
