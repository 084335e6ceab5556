#include "toolkit/file_table.h"

#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/file_table_fixture.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using testing::ElementsAre;
using toolkit::OpenMode;

TEST_F(FileTableTest, Open_NumberTaken_Fails55AndLeavesTheOpenFile) {
    open("one\r\n");
    EXPECT_EQ(failureOf([&] { files.open(number, path, OpenMode::output); }), 55);
    EXPECT_EQ(files.readLine(number), "one");
    EXPECT_EQ(drives.content(path), "one\r\n");
}

TEST_F(FileTableTest, Open_Failing_LeavesTheNumberFree) {
    EXPECT_EQ(failureOf([&] { files.open(number, "C:\\none.txt", OpenMode::input); }), 53);
    EXPECT_EQ(failureOf([&] { files.open(number, "C:\\none\\a.txt", OpenMode::output); }), 76);
    open("one\r\n");
    EXPECT_EQ(files.readLine(number), "one");
}

TEST_F(FileTableTest, Close_FreesNumberAndFile) {
    open("");
    EXPECT_EQ(drives.openFiles(), 1);
    files.close(number);
    EXPECT_EQ(drives.openFiles(), 0);
    files.close(number);
    open("one\r\n");
    EXPECT_EQ(files.readLine(number), "one");
}

TEST_F(FileTableTest, NumberThatIsNotOpen_Fails52) {
    EXPECT_EQ(failureOf([&] { files.atEnd(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.length(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.position(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.seek(number, 1); }), 52);
    EXPECT_EQ(failureOf([&] { files.readLine(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.readField(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.readNumberField(number); }), 52);
    EXPECT_EQ(failureOf([&] { files.writeLine(number, ""); }), 52);
    files.open(number + 1, path, OpenMode::binary);
    EXPECT_EQ(failureOf([&] { files.copyBlock(number, number + 1, 1); }), 52);
    EXPECT_EQ(failureOf([&] { files.copyBlock(number + 1, number, 1); }), 52);
}

TEST_F(FileTableTest, TwoNumbers_AreReadApart) {
    open("one\r\ntwo\r\n");
    files.open(number + 1, path, OpenMode::input);
    EXPECT_EQ(files.readLine(number), "one");
    EXPECT_EQ(files.readLine(number + 1), "one");
    files.close(number);
    EXPECT_EQ(files.readLine(number + 1), "two");
}

TEST_F(FileTableTest, ReadLine_TakesAllUpToTheLineEnd) {
    open(" a,\"b\" \r\n\r\nlone\rcarriage\nand line\n\r\r\r\nlast");
    EXPECT_THAT(lines(), ElementsAre(" a,\"b\" ", "", "lone\rcarriage\nand line\n\r\r", "last"));
}

TEST_F(FileTableTest, ReadLine_CarriageReturnAtTheVeryEnd_IsACharacter) {
    open("last\r");
    EXPECT_THAT(lines(), ElementsAre("last\r"));
}

TEST_F(FileTableTest, ReadLine_AnyByte_IsKept) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    open(every + "\r\n");
    EXPECT_THAT(lines(), ElementsAre(every));
}

TEST_F(FileTableTest, Reads_AtTheEndOfTheFile_Fail62) {
    open("a\r\n");
    EXPECT_FALSE(files.atEnd(number));
    files.readLine(number);
    EXPECT_TRUE(files.atEnd(number));
    EXPECT_EQ(failureOf([&] { files.readLine(number); }), 62);
    EXPECT_EQ(failureOf([&] { files.readField(number); }), 62);
    EXPECT_EQ(failureOf([&] { files.readNumberField(number); }), 62);
}

TEST_F(FileTableTest, EmptyFile_IsAtItsEnd) {
    open("");
    EXPECT_TRUE(files.atEnd(number));
}

TEST_F(FileTableTest, ReadField_EndsAtCommaLineEndAndEndOfFile) {
    EXPECT_THAT(fieldsOf("a,b c\r\nd"), ElementsAre("a", "b c", "d"));
    EXPECT_THAT(fieldsOf("a,\r\nb,"), ElementsAre("a", "", "b")) << "the comma at the end begins no field";
    EXPECT_THAT(fieldsOf(",,\r\n\r\n"), ElementsAre("", "", "", ""));
}

TEST_F(FileTableTest, ReadField_SkipsLeadingBlanksAndTabs) {
    EXPECT_THAT(fieldsOf(" \t a\r\n\t,\t b"), ElementsAre("a", "", "b"));
    EXPECT_THAT(fieldsOf("  \t"), ElementsAre("")) << "nothing but blanks is one empty field";
    EXPECT_THAT(fieldsOf(" \n \r a"), ElementsAre("\n \r a")) << "no blanks";
}

TEST_F(FileTableTest, ReadField_LoneCarriageReturnOrLineFeed_IsACharacter) {
    EXPECT_THAT(fieldsOf("a\rb\nc\n\rd\r\n\re"), ElementsAre("a\rb\nc\n\rd", "\re"));
    EXPECT_THAT(fieldsOf("\r"), ElementsAre("\r"));
}

TEST_F(FileTableTest, ReadField_Quoted_RunsToTheNextQuote) {
    EXPECT_THAT(fieldsOf("\"a, b\r\n c \"\r\nd"), ElementsAre("a, b\r\n c ", "d"));
    EXPECT_THAT(fieldsOf(" \t\"a\""), ElementsAre("a"));
    EXPECT_THAT(fieldsOf("\"\""), ElementsAre(""));
    EXPECT_THAT(fieldsOf("\"open, to\r\nthe end"), ElementsAre("open, to\r\nthe end"));
    EXPECT_THAT(fieldsOf("\""), ElementsAre(""));
}

TEST_F(FileTableTest, ReadField_ClosingQuote_SwallowsBlanksAndOneTerminator) {
    EXPECT_THAT(fieldsOf("\"a\" \t\r\n\"b\" , c"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(fieldsOf("\"a\",,b"), ElementsAre("a", "", "b")) << "one comma";
    EXPECT_THAT(fieldsOf("\"a\"\r\n\r\nb"), ElementsAre("a", "", "b")) << "one line end";
    EXPECT_THAT(fieldsOf("\"a\",\r\nb"), ElementsAre("a", "", "b")) << "a comma or a line end";
    EXPECT_THAT(fieldsOf("\"a\"b, \"c\"\"d\""), ElementsAre("a", "b", "c", "d")) << "no terminator between";
    EXPECT_THAT(fieldsOf("\"a\" \rb"), ElementsAre("a", "\rb"));
}

TEST_F(FileTableTest, ReadField_QuoteInsideAField_IsACharacter) {
    EXPECT_THAT(fieldsOf("a\"b,c\"d"), ElementsAre("a\"b", "c\"d"));
}

TEST_F(FileTableTest, ReadNumberField_BlanksAroundIt_BelongToTheField) {
    EXPECT_THAT(numbersOf(" 3 \r\n"), ElementsAre(3));
    EXPECT_THAT(numbersOf(" 3 \r\n-4\t \r\n\t+5.5\t,6"), ElementsAre(3, -4, 5.5, 6));
    EXPECT_THAT(numbersOf("3 \r\n\r\n4"), ElementsAre(3, 0, 4)) << "one line end";
    EXPECT_THAT(numbersOf("3 ,,4"), ElementsAre(3, 0, 4)) << "one comma";
}

TEST_F(FileTableTest, ReadNumberField_EndsAtABlank) {
    EXPECT_THAT(numbersOf("1 2  3\t4"), ElementsAre(1, 2, 3, 4));
    files.close(number);
    open("12 apples, 3");
    EXPECT_EQ(files.readNumberField(number), 12);
    EXPECT_EQ(files.readField(number), "apples");
    EXPECT_EQ(files.readNumberField(number), 3);
}

TEST_F(FileTableTest, ReadNumberField_TakesTheNumberAtTheFront) {
    EXPECT_THAT(numbersOf("12abc,.5,-.5,+7,1e2,007"), ElementsAre(12, 0.5, -0.5, 7, 100, 7));
}

TEST_F(FileTableTest, ReadNumberField_NoNumberInFront_IsTakenWholeAndGives0) {
    EXPECT_THAT(numbersOf("no 12 number here,5"), ElementsAre(0, 5));
    EXPECT_THAT(numbersOf("- 3,5"), ElementsAre(0, 5));
    EXPECT_THAT(numbersOf("-.x 3\r\n5"), ElementsAre(0, 5));
    EXPECT_THAT(numbersOf("\"7, 8\" ,5"), ElementsAre(0, 5)) << "a quote doesn't begin a number";
    EXPECT_THAT(numbersOf("   \r\n5"), ElementsAre(0, 5));
    EXPECT_THAT(numbersOf("\n3,5"), ElementsAre(0, 5));
}

TEST_F(FileTableTest, Fields_OfBothKinds_CanBeMixed) {
    open(" 3 \r\n\"x, y\" \r\n-1.5,z\r\n 2\r\n");
    EXPECT_EQ(files.readNumberField(number), 3);
    EXPECT_EQ(files.readField(number), "x, y");
    EXPECT_EQ(files.readNumberField(number), -1.5);
    EXPECT_EQ(files.readField(number), "z");
    EXPECT_EQ(files.readNumberField(number), 2);
    EXPECT_TRUE(files.atEnd(number));
}

// Every mark that takes more than one byte to tell comes to lie across the end of a buffer.
TEST_F(FileTableTest, Fields_AcrossTheEndOfABuffer_AreAsAnywhere) {
    const std::string tail = "\r\n\"q,\r\nu\" \r\n -.5 \r\n\"a\"b\r\rc";
    for (std::size_t front = buffer - tail.size(); front <= buffer; ++front) {
        SCOPED_TRACE(front);
        files.close(number);
        open(std::string(front, 'x') + tail);
        EXPECT_EQ(files.readField(number), std::string(front, 'x'));
        EXPECT_EQ(files.readField(number), "q,\r\nu");
        EXPECT_EQ(files.readNumberField(number), -0.5);
        EXPECT_THAT(fields(), ElementsAre("a", "b\r\rc"));
    }
}

TEST_F(FileTableTest, Lines_AcrossTheEndOfABuffer_AreAsAnywhere) {
    for (const std::size_t front : {buffer - 2, buffer - 1, buffer, 3 * buffer - 1}) {
        SCOPED_TRACE(front);
        files.close(number);
        open(std::string(front, 'x') + "\r\nlast");
        EXPECT_THAT(lines(), ElementsAre(std::string(front, 'x'), "last"));
    }
}

TEST_F(FileTableTest, Position_Is1BasedAndThatOfTheNextByte) {
    open("ab\r\ncd,e");
    EXPECT_EQ(files.position(number), 1);
    files.readLine(number);
    EXPECT_EQ(files.position(number), 5);
    files.readField(number);
    EXPECT_EQ(files.position(number), 8);
    files.readField(number);
    EXPECT_EQ(files.position(number), 9);
    EXPECT_EQ(files.length(number), 8);
}

TEST_F(FileTableTest, Seek_MovesToA1BasedPosition) {
    open("abc\r\ndef\r\n");
    files.readLine(number);
    files.seek(number, 2);
    EXPECT_EQ(files.position(number), 2);
    EXPECT_EQ(files.readLine(number), "bc");
    files.seek(number, 10);
    EXPECT_EQ(files.readLine(number), "\n") << "the last byte";
    EXPECT_TRUE(files.atEnd(number));
    files.seek(number, 1);
    EXPECT_FALSE(files.atEnd(number));
    EXPECT_EQ(files.readLine(number), "abc");
}

TEST_F(FileTableTest, Seek_BehindTheEnd_IsTheEnd) {
    open("abc");
    files.seek(number, 100);
    EXPECT_TRUE(files.atEnd(number));
    EXPECT_EQ(files.position(number), 100);
    EXPECT_EQ(failureOf([&] { files.readLine(number); }), 62);
}

TEST_F(FileTableTest, Seek_Below1_Fails5AndMovesNothing) {
    open("abc");
    files.seek(number, 2);
    EXPECT_EQ(failureOf([&] { files.seek(number, 0); }), 5);
    EXPECT_EQ(failureOf([&] { files.seek(number, -3); }), 5);
    EXPECT_EQ(files.readLine(number), "bc");
}

TEST_F(FileTableTest, Seek_FarAway_ReadsThere) {
    open(std::string(3 * buffer, 'x') + "far\r\n" + std::string(buffer, 'y'));
    files.seek(number, static_cast<std::int64_t>(3 * buffer) + 1);
    EXPECT_EQ(files.readLine(number), "far");
    EXPECT_EQ(files.position(number), static_cast<std::int64_t>(3 * buffer) + 6);
    files.seek(number, static_cast<std::int64_t>(3 * buffer));
    EXPECT_EQ(files.readLine(number), "xfar");
}

TEST_F(FileTableTest, Read_OfAFailingDrive_Fails57AndTheFileStaysOpen) {
    drives.failTransfers(path);
    open("abc");
    EXPECT_EQ(failureOf([&] { files.readField(number); }), 57);
    EXPECT_EQ(drives.openFiles(), 1);
    EXPECT_EQ(failureOf([&] { files.open(number, path, OpenMode::input); }), 55);
}

TEST_F(FileTableTest, WriteLine_AddsTheLineEnd) {
    files.open(number, path, OpenMode::output);
    files.writeLine(number, "one");
    files.writeLine(number, "");
    files.writeLine(number, "a,\"b\"\r\nc");
    files.close(number);
    EXPECT_EQ(drives.content(path), "one\r\n\r\na,\"b\"\r\nc\r\n");
}

TEST_F(FileTableTest, Output_ReplacesAFormerContent) {
    drives.addFile(path, "a long former content");
    files.open(number, path, OpenMode::output);
    files.writeLine(number, "new");
    files.close(number);
    EXPECT_EQ(drives.content(path), "new\r\n");
    files.open(number, path, OpenMode::output);
    files.close(number);
    EXPECT_EQ(drives.content(path), "") << "also when nothing is written";
}

TEST_F(FileTableTest, Append_WritesBehindAFormerContent) {
    drives.addFile(path, "old\r\n");
    files.open(number, path, OpenMode::append);
    files.writeLine(number, "new");
    files.close(number);
    files.open(number, "C:\\other.txt", OpenMode::append);
    files.writeLine(number, "first");
    files.close(number);
    EXPECT_EQ(drives.content(path), "old\r\nnew\r\n");
    EXPECT_EQ(drives.content("C:\\other.txt"), "first\r\n");
}

TEST_F(FileTableTest, Writes_LargerThanABuffer_AllArrive) {
    std::string expected;
    files.open(number, path, OpenMode::output);
    for (const std::size_t length : {std::size_t{10}, buffer - 14, std::size_t{1}, 3 * buffer, buffer}) {
        const std::string text(length, static_cast<char>('a' + length % 26));
        files.writeLine(number, text);
        expected += text + "\r\n";
    }
    files.close(number);
    EXPECT_TRUE(drives.content(path) == expected);
}

TEST_F(FileTableTest, FullDisk_IsMetAtTheCloseAndFreesTheNumber) {
    drives.setFreeSpace('C', 4);
    files.open(number, path, OpenMode::output);
    files.writeLine(number, "one");
    EXPECT_EQ(failureOf([&] { files.close(number); }), 61);
    EXPECT_EQ(drives.openFiles(), 0);
    EXPECT_EQ(failureOf([&] { files.close(number); }), 0) << "the number isn't open any more";
    open("one");
}

TEST_F(FileTableTest, FullDisk_IsMetAtALongWriteAndOnlyOnce) {
    drives.setFreeSpace('C', 1000);
    files.open(number, path, OpenMode::output);
    files.writeLine(number, std::string(buffer - 10, 'x'));
    EXPECT_EQ(failureOf([&] { files.writeLine(number, std::string(100, 'x')); }), 61);
    EXPECT_EQ(drives.openFiles(), 1) << "stays open after the failure";
    EXPECT_EQ(failureOf([&] { files.close(number); }), 0);
}

} // namespace
