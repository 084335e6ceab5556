// Copies of blocks between files by number.
#include "toolkit/file_table.h"

#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/file_table_fixture.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using toolkit::OpenMode;

constexpr std::size_t blockSize = 1025;

/// Bytes of which each run of some length stands at one place only.
std::string pattern(std::size_t length) {
    std::string bytes;
    while (bytes.size() < length) {
        bytes += std::to_string(bytes.size()) + ' ';
    }
    return bytes.substr(0, length);
}

class FileBlocksTest : public FileTableTest {
protected:
    static constexpr int otherNumber = number + 1;
    static constexpr const char* other = "D:\\other";

    FileBlocksTest() { drives.addMemoryDrive('D'); }

    void open(const std::string& content, OpenMode mode) {
        files.close(number);
        drives.addFile(path, content);
        files.open(number, path, mode);
    }
    /// Copies a block away, and gives what came of the file.
    std::string read(std::size_t size) {
        drives.addFile(other, "");
        files.open(otherNumber, other, OpenMode::binary);
        const std::size_t count = files.copyBlock(number, otherNumber, size);
        files.close(otherNumber);
        const std::string block = drives.content(other);
        EXPECT_EQ(block.size(), size) << "whole";
        EXPECT_LE(count, size);
        EXPECT_EQ(block.substr(count), std::string(size - count, '\0'));
        return block.substr(0, count);
    }
    /// Copies a block from another file.
    void write(const std::string& text) {
        drives.addFile(other, text);
        files.open(otherNumber, other, OpenMode::binaryRead);
        EXPECT_EQ(files.copyBlock(otherNumber, number, text.size()), text.size());
        files.close(otherNumber);
    }
    std::string closed() {
        files.close(number);
        return drives.content(path);
    }
};

TEST_F(FileBlocksTest, BinaryRead_MissingFile_Fails53AndMakesNone) {
    EXPECT_EQ(failureOf([&] { files.open(number, path, OpenMode::binaryRead); }), 53);
    EXPECT_FALSE(drives.exists(path));
}

TEST_F(FileBlocksTest, BinaryRead_FileThatMayOnlyBeRead_Opens) {
    drives.addFile(path, "abc");
    drives.setReadOnly(path);
    files.open(number, path, OpenMode::binaryRead);
    EXPECT_EQ(read(3), "abc");
}

TEST_F(FileBlocksTest, BinaryRead_Write_Fails75) {
    open("abc", OpenMode::binaryRead);
    write("x");
    EXPECT_EQ(failureOf([&] { files.close(number); }), 75);
    EXPECT_EQ(drives.content(path), "abc");
}

TEST_F(FileBlocksTest, Binary_MissingFile_IsMade) {
    files.open(number, path, OpenMode::binary);
    EXPECT_EQ(files.length(number), 0);
    EXPECT_EQ(files.position(number), 1);
    write("abc");
    EXPECT_EQ(closed(), "abc");
}

TEST_F(FileBlocksTest, Binary_FormerContent_IsNotEmptied) {
    open("former", OpenMode::binary);
    EXPECT_EQ(closed(), "former");
    files.open(number, path, OpenMode::binary);
    write("new");
    EXPECT_EQ(closed(), "newmer");
}

TEST_F(FileBlocksTest, Binary_FileThatMayOnlyBeRead_FailsAtTheCloseOfAWrite) {
    drives.addFile(path, "abc");
    drives.setReadOnly(path);
    files.open(number, path, OpenMode::binary);
    EXPECT_EQ(read(2), "ab");
    write("x");
    EXPECT_EQ(failureOf([&] { files.close(number); }), 75);
    EXPECT_EQ(drives.openFiles(), 0);
    EXPECT_EQ(drives.content(path), "abc");
}

TEST_F(FileBlocksTest, ReadBlock_AtTheEnd_ComesUpShortAndThenEmpty) {
    open("abcdef", OpenMode::binaryRead);
    EXPECT_EQ(read(4), "abcd");
    EXPECT_EQ(files.position(number), 5);
    EXPECT_EQ(read(4), "ef");
    EXPECT_EQ(files.position(number), 7);
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(files.position(number), 7);
    EXPECT_EQ(read(0), "");
}

TEST_F(FileBlocksTest, ReadBlock_BehindTheEnd_GetsNothing) {
    open("abc", OpenMode::binary);
    files.seek(number, 1000);
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(files.position(number), 1000);
    EXPECT_EQ(closed(), "abc");
}

TEST_F(FileBlocksTest, ReadBlock_OfAnyBytes_KeepsThem) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    open(every, OpenMode::binaryRead);
    EXPECT_EQ(read(256), every);
}

TEST_F(FileBlocksTest, ReadBlocks_AcrossTheEndOfABuffer_AreAsAnywhere) {
    const std::string content = pattern(2 * buffer + 100);
    for (const std::size_t size : {std::size_t{1025}, std::size_t{8193}, buffer}) {
        SCOPED_TRACE(size);
        open(content, OpenMode::binaryRead);
        std::string all;
        for (std::string block = read(size); !block.empty(); block = read(size)) {
            all += block;
            EXPECT_EQ(files.position(number), static_cast<std::int64_t>(all.size()) + 1);
        }
        EXPECT_TRUE(all == content);
    }
}

TEST_F(FileBlocksTest, BlocksAndFields_CanBeMixed) {
    open(pattern(buffer - 3) + " 17 \r\nrest", OpenMode::binaryRead);
    EXPECT_EQ(read(buffer - 3), pattern(buffer - 3));
    EXPECT_EQ(files.readNumberField(number), 17);
    EXPECT_EQ(read(2), "re");
    EXPECT_EQ(files.readField(number), "st");
}

TEST_F(FileBlocksTest, WriteBlock_AtAPosition_ReplacesWhatStandsThere) {
    open("abcdefgh", OpenMode::binary);
    files.seek(number, 3);
    write("XY");
    EXPECT_EQ(files.position(number), 5);
    files.seek(number, 8);
    write("Z!");
    EXPECT_EQ(files.length(number), 9);
    EXPECT_EQ(closed(), "abXYefgZ!");
}

TEST_F(FileBlocksTest, WriteBlock_AfterReadingAhead_WritesAtThePosition) {
    open("abcdefgh", OpenMode::binary);
    EXPECT_EQ(read(2), "ab");
    write("XY");
    EXPECT_EQ(files.position(number), 5);
    EXPECT_EQ(read(2), "ef");
    write("Z");
    EXPECT_EQ(closed(), "abXYefZh");
}

TEST_F(FileBlocksTest, ReadBlock_OfWhatWasWritten_GivesIt) {
    open("abcdefgh", OpenMode::binary);
    EXPECT_EQ(read(8), "abcdefgh");
    files.seek(number, 2);
    write("XYZ");
    files.seek(number, 1);
    EXPECT_EQ(read(8), "aXYZefgh") << "not what was read before";
}

TEST_F(FileBlocksTest, Writes_OfManyBlocks_AllArrive) {
    const std::string content = pattern(200 * blockSize);
    open(std::string(300 * blockSize, 'f'), OpenMode::binary);
    for (std::size_t start = 0; start < content.size(); start += blockSize) {
        EXPECT_EQ(files.position(number), static_cast<std::int64_t>(start) + 1);
        write(content.substr(start, blockSize));
    }
    EXPECT_TRUE(closed() == content + std::string(100 * blockSize, 'f'));
}

TEST_F(FileBlocksTest, Seek_WritesOutWhatIsInMemory) {
    drives.setFreeSpace('C', 2);
    files.open(number, path, OpenMode::binary);
    write("abc");
    EXPECT_EQ(failureOf([&] { files.seek(number, 1); }), 61);
    EXPECT_EQ(failureOf([&] { files.close(number); }), 0) << "met once";
    EXPECT_EQ(drives.openFiles(), 0);
}

TEST_F(FileBlocksTest, Read_WithAFullDisk_FailsBeforeItReads) {
    drives.setFreeSpace('C', 2);
    files.open(number, path, OpenMode::binary);
    write("abc");
    files.open(otherNumber, other, OpenMode::binary);
    EXPECT_EQ(failureOf([&] { files.copyBlock(number, otherNumber, 3); }), 61);
    EXPECT_EQ(files.position(otherNumber), 1);
}

// A larger block was written behind the end of the buffer.
TEST_F(FileBlocksTest, BlockLargerThanTheBuffer_Fails5AndMovesNothing) {
    open(std::string(buffer + 1, 'a'), OpenMode::binaryRead);
    EXPECT_EQ(read(buffer), std::string(buffer, 'a'));
    files.seek(number, 1);
    files.open(otherNumber, other, OpenMode::binary);
    EXPECT_EQ(failureOf([&] { files.copyBlock(number, otherNumber, buffer + 1); }), 5);
    EXPECT_EQ(files.position(number), 1);
    EXPECT_EQ(files.position(otherNumber), 1);
}

TEST_F(FileBlocksTest, Abandon_FreesNumberAndFileAndWritesNothing) {
    drives.setFreeSpace('C', 0);
    files.open(number, path, OpenMode::binary);
    write("abc");
    files.abandon(number);
    EXPECT_EQ(drives.openFiles(), 0);
    EXPECT_EQ(drives.content(path), "");
    files.abandon(number);
    files.open(number, path, OpenMode::binary);
}

TEST_F(FileBlocksTest, AbandonsFile_AtItsEnd_AbandonsTheNumberUnlessItIsLeftOpen) {
    for (const bool left : {false, true}) {
        files.open(number, path, OpenMode::binary);
        {
            toolkit::AbandonsFile freed(files, number);
            write("abc");
            if (left) {
                freed.leaveOpen();
            }
        }
        EXPECT_EQ(drives.openFiles(), left ? 1 : 0);
        EXPECT_EQ(closed(), left ? "abc" : "");
    }
}

} // namespace
