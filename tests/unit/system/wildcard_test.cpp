#include "system/wildcard.h"

#include <gtest/gtest.h>

namespace {

using sys::patternFinds;

TEST(PatternFinds, LongNames) {
    EXPECT_TRUE(patternFinds("*.jpg", "a.jpg"));
    EXPECT_TRUE(patternFinds("*.JPG", "a.b.jpg"));
    EXPECT_FALSE(patternFinds("*.jpg", "a.jpg.txt"));
    EXPECT_FALSE(patternFinds("*.jpg", "jpg"));
    EXPECT_TRUE(patternFinds("a*c", "abbc"));
    EXPECT_FALSE(patternFinds("a*c", "abbcd"));
    EXPECT_TRUE(patternFinds("?a?.txt", "bad.txt"));
    EXPECT_TRUE(patternFinds("ba??.txt", "bad.txt"))
        << "a question mark before the dot may stand for nothing";
    EXPECT_FALSE(patternFinds("b?.txt", "bad.txt"));
    EXPECT_FALSE(patternFinds("bad.txt", "bad.tx"));
    EXPECT_FALSE(patternFinds("", "a"));
}

TEST(PatternFinds, NamesWithoutExtension) {
    EXPECT_TRUE(patternFinds("*.*", "plain"));
    EXPECT_TRUE(patternFinds("*", "a.b"));
    EXPECT_TRUE(patternFinds("*.", "plain"));
    EXPECT_FALSE(patternFinds("*.", "a.b"));
    EXPECT_FALSE(patternFinds("plain.txt", "plain"));
}

TEST(PatternFinds, ThreeLetterExtension_FindsLongerOnes) {
    EXPECT_TRUE(patternFinds("*.jpe", "a.jpeg"));
    EXPECT_TRUE(patternFinds("*.jpe", "a.jpe"));
    EXPECT_TRUE(patternFinds("*.JPE", "a.b.Jpeg2000"));
    EXPECT_FALSE(patternFinds("*.jpe", "a.jpeg.txt"));
    EXPECT_FALSE(patternFinds("*.jpg", "a.jpeg"));
    EXPECT_FALSE(patternFinds("*.jp", "a.jpg")) << "two letters find no more";
    EXPECT_FALSE(patternFinds("*.jpeg", "a.jpegs")) << "nor do four";
    EXPECT_FALSE(patternFinds("*.j?e", "a.jpeg")) << "nor a wildcard";
}

} // namespace
