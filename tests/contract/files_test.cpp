#include "contract/contract_test.h"
#include "system/wildcard.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace contract {

namespace {

using sys::Access;
using testing::UnorderedElementsAre;

enum Code { fileNotFound = 53, permissionDenied = 70, pathFileAccess = 75, pathNotFound = 76 };

class Files : public MachineTest {
protected:
    std::string path(const std::string& name) const { return folder + '\\' + name; }
    void write(const std::string& name, const std::string& text, Access access = Access::write) {
        const auto file = files.open(path(name), access);
        file->write(text.data(), text.size());
    }
    static std::string rest(sys::File& file) {
        std::string text(1000, '\0');
        text.resize(file.read(text.data(), text.size()));
        return text;
    }
    std::string content(const std::string& name) { return rest(*files.open(path(name), Access::read)); }
    int failureOfOpening(const std::string& where, Access access) {
        return failureOf([&] { files.open(where, access); });
    }

    sys::Files& files = system.files();
    std::string folder = driver->folder();
};

constexpr std::array allAccesses = {Access::read, Access::write, Access::readWrite, Access::append};

} // namespace

TEST_F(Files, Write_MakesANewFileOrANewContent) {
    write("a.txt", "a longer text");
    EXPECT_EQ(content("a.txt"), "a longer text");
    write("a.txt", "short");
    EXPECT_EQ(content("a.txt"), "short");
    write("a.txt", "");
    EXPECT_EQ(content("a.txt"), "");
}

TEST_F(Files, ReadWrite_KeepsTheContentAndBeginsAtItsStart) {
    write("a.txt", "0123456789");
    {
        const auto file = files.open(path("a.txt"), Access::readWrite);
        EXPECT_EQ(file->length(), 10);
        file->write("ab", 2);
        file->seek(8);
        EXPECT_EQ(rest(*file), "89");
        file->seek(4);
        file->write("X", 1);
    }
    EXPECT_EQ(content("a.txt"), "ab23X56789");
}

TEST_F(Files, ReadWrite_MakesAMissingFile) {
    write("new.txt", "abc", Access::readWrite);
    EXPECT_EQ(content("new.txt"), "abc");
}

TEST_F(Files, ReadWriteOfAReadOnlyFile_OnlyReads) {
    write("a.txt", "abc");
    driver->makeReadOnly(path("a.txt"));
    const auto file = files.open(path("a.txt"), Access::readWrite);
    EXPECT_EQ(rest(*file), "abc");
    EXPECT_EQ(failureOf([&] { file->write("x", 1); }), pathFileAccess);
}

TEST_F(Files, Append_WritesAlwaysToTheEnd) {
    write("a.txt", "abc");
    {
        const auto file = files.open(path("a.txt"), Access::append);
        EXPECT_EQ(file->length(), 3);
        file->write("d", 1);
        file->seek(0);
        file->write("e", 1);
        EXPECT_EQ(file->length(), 5);
    }
    EXPECT_EQ(content("a.txt"), "abcde");
    write("new.txt", "n", Access::append);
    EXPECT_EQ(content("new.txt"), "n");
}

TEST_F(Files, Read_StartsAtThePositionAndEndsWithTheFile) {
    write("a.txt", "0123456789");
    const auto file = files.open(path("a.txt"), Access::read);
    std::array<char, 4> bytes{};
    EXPECT_EQ(file->read(bytes.data(), 4), 4U);
    EXPECT_EQ(std::string(bytes.data(), 4), "0123");
    file->seek(8);
    EXPECT_EQ(file->read(bytes.data(), 4), 2U);
    EXPECT_EQ(file->read(bytes.data(), 4), 0U);
    file->seek(100);
    EXPECT_EQ(file->read(bytes.data(), 4), 0U);
    EXPECT_EQ(file->length(), 10);
    file->seek(0);
    EXPECT_EQ(file->read(bytes.data(), 0), 0U);
    EXPECT_EQ(file->read(bytes.data(), 1), 1U);
    EXPECT_EQ(bytes[0], '0');
}

TEST_F(Files, WriteBehindTheEnd_FillsWithZeros) {
    {
        const auto file = files.open(path("a.bin"), Access::readWrite);
        file->write("ab", 2);
        file->seek(5);
        file->write("c", 1);
    }
    EXPECT_EQ(content("a.bin"), std::string("ab\0\0\0c", 6));
}

TEST_F(Files, Write_ToAFileOpenedForReading_Fails) {
    write("a.txt", "abc");
    const auto file = files.open(path("a.txt"), Access::read);
    EXPECT_EQ(failureOf([&] { file->write("x", 1); }), pathFileAccess);
    EXPECT_EQ(rest(*file), "abc");
}

TEST_F(Files, AllBytes_ComeBack) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    write("a.bin", bytes);
    EXPECT_EQ(content("a.bin"), bytes);
}

TEST_F(Files, MissingFile_Is53) {
    EXPECT_EQ(failureOfOpening(path("none.txt"), Access::read), fileNotFound);
    EXPECT_EQ(failureOf([&] { files.remove(path("none.txt")); }), fileNotFound);
}

TEST_F(Files, MissingFolder_Is76) {
    for (const Access access : allAccesses) {
        EXPECT_EQ(failureOfOpening(path("none\\a.txt"), access), pathNotFound);
    }
    EXPECT_EQ(failureOf([&] { files.remove(path("none\\a.txt")); }), pathNotFound);
    EXPECT_EQ(failureOf([&] { files.list(path("none\\*.txt")); }), pathNotFound);
}

TEST_F(Files, FolderAsAFile_Is75) {
    driver->addFolder(path("sub"));
    for (const Access access : allAccesses) {
        EXPECT_EQ(failureOfOpening(path("sub"), access), pathFileAccess);
    }
    EXPECT_EQ(failureOf([&] { files.remove(path("sub")); }), pathFileAccess);
}

TEST_F(Files, EmptyName_Is75) {
    for (const Access access : allAccesses) {
        EXPECT_EQ(failureOfOpening("", access), pathFileAccess);
    }
    EXPECT_FALSE(files.exists(""));
}

TEST_F(Files, ChangeOfAReadOnlyFile_Is75) {
    write("a.txt", "abc");
    driver->makeReadOnly(path("a.txt"));
    EXPECT_EQ(failureOfOpening(path("a.txt"), Access::write), pathFileAccess);
    EXPECT_EQ(failureOfOpening(path("a.txt"), Access::append), pathFileAccess);
    EXPECT_EQ(failureOf([&] { files.remove(path("a.txt")); }), pathFileAccess);
    EXPECT_EQ(content("a.txt"), "abc");
}

TEST_F(Files, RemovalOfAnOpenFile_Is70) {
    write("a.txt", "abc");
    {
        const auto file = files.open(path("a.txt"), Access::read);
        EXPECT_EQ(failureOf([&] { files.remove(path("a.txt")); }), permissionDenied);
    }
    files.remove(path("a.txt"));
    EXPECT_FALSE(files.exists(path("a.txt")));
}

TEST_F(Files, SecondWriter_Is70) {
    const auto file = files.open(path("a.txt"), Access::write);
    EXPECT_EQ(failureOfOpening(path("a.txt"), Access::append), permissionDenied);
    EXPECT_EQ(failureOfOpening(path("a.txt"), Access::write), permissionDenied);
    EXPECT_EQ(failureOfOpening(path("a.txt"), Access::read), 0);
}

TEST_F(Files, MissingDrive_Is68) {
    EXPECT_EQ(failureOfOpening("Q:\\a.txt", Access::read), 68);
    EXPECT_EQ(failureOf([&] { files.list("Q:\\*.txt"); }), 68);
}

TEST_F(Files, Exists_KnowsPlainFilesOnly) {
    write("a.txt", "");
    driver->addFolder(path("sub"));
    EXPECT_TRUE(files.exists(path("a.txt")));
    EXPECT_TRUE(files.exists(path("A.TXT")));
    EXPECT_FALSE(files.exists(path("b.txt")));
    EXPECT_FALSE(files.exists(path("sub")));
    EXPECT_FALSE(files.exists(path("none\\a.txt")));
    EXPECT_FALSE(files.exists(""));
}

TEST_F(Files, Length_IsThatOfAPlainFile) {
    write("a.txt", "abc");
    driver->addFolder(path("sub"));
    EXPECT_EQ(files.length(path("A.TXT")), 3);
    const auto file = files.open(path("a.txt"), Access::append);
    EXPECT_EQ(files.length(path("a.txt")), 3) << "while it is written";
    for (const std::string& other : {path("b.txt"), path("sub"), path("none\\a.txt"), std::string()}) {
        EXPECT_EQ(files.length(other), 0) << other;
    }
}

TEST_F(Files, List_FindsByPattern) {
    for (const char* name : {"a.jpg", "B.JPG", "c.gif", "ab.jpg", "noextension"}) {
        write(name, "");
    }
    driver->addFolder(path("folder.jpg"));
    EXPECT_THAT(files.list(path("*.jpg")), UnorderedElementsAre("a.jpg", "B.JPG", "ab.jpg"));
    EXPECT_THAT(files.list(path("*.GIF")), UnorderedElementsAre("c.gif"));
    EXPECT_THAT(files.list(path("a*.jpg")), UnorderedElementsAre("a.jpg", "ab.jpg"));
    EXPECT_THAT(files.list(path("?b.jpg")), UnorderedElementsAre("ab.jpg"));
    EXPECT_THAT(files.list(path("a.jpg")), UnorderedElementsAre("a.jpg"));
    EXPECT_THAT(files.list(path("*.bmp")), IsEmpty());
    EXPECT_THAT(files.list(path("*.*")),
                UnorderedElementsAre("a.jpg", "B.JPG", "ab.jpg", "c.gif", "noextension"));
}

TEST_F(Files, List_OfAnExtensionOfThreeLettersFindsLongerOnes) {
    for (const char* name : {"a.jpeg", "b.jpe", "c.jpg", "d.jpex", "e.jp"}) {
        write(name, "");
    }
    EXPECT_THAT(files.list(path("*.jpe")), UnorderedElementsAre("a.jpeg", "b.jpe", "d.jpex"));
    EXPECT_THAT(files.list(path("*.jpeg")), UnorderedElementsAre("a.jpeg"));
    EXPECT_THAT(files.list(path("*.jpg")), UnorderedElementsAre("c.jpg"));
}

TEST_F(Files, List_FindsWhatTheRuleOfPatternsSays) {
    const std::vector<std::string> names = {"a.jpg", "a.b.JPG",   "b.jpeg", "c.jpe",
                                            "plain", "a.jpg.txt", "wmf"};
    for (const std::string& name : names) {
        write(name, "");
    }
    for (const char* pattern :
         {"*", "*.*", "*.jpg", "*.jpe", "*.jpeg", "*.wmf", "a*", "?.jpg", "*.j*", "plain"}) {
        std::vector<std::string> expected;
        std::ranges::copy_if(names, std::back_inserter(expected),
                             [&](const std::string& name) { return sys::patternFinds(pattern, name); });
        EXPECT_THAT(files.list(path(pattern)), testing::UnorderedElementsAreArray(expected)) << pattern;
    }
}

TEST_F(Files, List_LeavesHiddenFilesOut) {
    write("a.jpg", "");
    write("b.jpg", "");
    driver->hide(path("a.jpg"));
    EXPECT_THAT(files.list(path("*.jpg")), ElementsAre("b.jpg"));
    EXPECT_TRUE(files.exists(path("a.jpg")));
}

TEST_F(Files, Names_AreFoundInAnyCase) {
    write("Mixed.Txt", "abc");
    EXPECT_EQ(content("mIXED.tXT"), "abc");
    EXPECT_THAT(files.list(path("MIXED.*")), ElementsAre("Mixed.Txt"));
}

} // namespace contract
