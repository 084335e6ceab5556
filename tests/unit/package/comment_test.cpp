#include "package/comment.h"

#include <gtest/gtest.h>

namespace {

TEST(Comment, Carets_BecomeLineBreaks) {
    EXPECT_EQ(caretsToLineBreaks("a^^b"), "a\r\n\r\nb");
    EXPECT_EQ(caretsToLineBreaks("^"), "\r\n");
    EXPECT_EQ(caretsToLineBreaks(""), "");
    EXPECT_EQ(caretsToLineBreaks("plain\r\nlines\r\n"), "plain\r\nlines\r\n");
}

TEST(Comment, TextLongerThanTheCounter_IsCutAsTheCounterWraps) {
    EXPECT_EQ(caretsToLineBreaks(std::string(32767, 'a')).size(), 32767U);
    EXPECT_EQ(caretsToLineBreaks(std::string(32768, 'a')).size(), 0U);
    EXPECT_EQ(caretsToLineBreaks(std::string(65536 + 5, 'a')).size(), 5U);
}

} // namespace
