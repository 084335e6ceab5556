#include "system/simulated/files.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace {

using sys::Access;
using sys::simulated::Drives;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

/// The failure's code, or 0.
template <class Action> int codeOf(const Action& action) {
    try {
        action();
        return 0;
    } catch (const Failure& failure) {
        return failure.number();
    }
}

std::string readAll(sys::File& file) {
    std::string content(static_cast<std::size_t>(file.length()), '\0');
    content.resize(file.read(content.data(), content.size()));
    return content;
}

void writeText(sys::File& file, const std::string& text) { file.write(text.data(), text.size()); }

/// Tests run side by side in several processes, and each needs a folder of its own.
fs::path newFolder() {
    std::string folder = testing::TempDir() + "simulated_files_XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
        throw std::runtime_error("no folder for the test");
    }
    return folder;
}

/// The rules that hold on every drive: on one in memory and on one that is a folder of the host.
class EveryDrive : public testing::TestWithParam<bool> {
protected:
    EveryDrive() {
        if (GetParam()) {
            folder_ = newFolder();
            drives.mapDrive('C', folder_.string());
        } else {
            drives.addMemoryDrive('C');
        }
        drives.addFile("C:\\Pics\\Sea.JPG", "sea");
        drives.addFolder("C:\\Pics\\Sub");
    }
    ~EveryDrive() override {
        if (GetParam()) {
            fs::remove_all(folder_);
        }
    }

    int openCode(const std::string& path, Access access = Access::read) {
        return codeOf([&] { drives.open(path, access); });
    }
    /// The codes for reading, writing, reading and writing, appending.
    std::vector<int> openCodes(const std::string& path) {
        return {openCode(path, Access::read), openCode(path, Access::write),
                openCode(path, Access::readWrite), openCode(path, Access::append)};
    }
    int removeCode(const std::string& path) {
        return codeOf([&] { drives.remove(path); });
    }
    int listCode(const std::string& pattern) {
        return codeOf([&] { drives.list(pattern); });
    }

    Drives drives{"C:\\Pics"};

private:
    fs::path folder_;
};

INSTANTIATE_TEST_SUITE_P(SimulatedFiles, EveryDrive, testing::Bool(),
                         [](const auto& kind) { return std::string(kind.param ? "Host" : "Memory"); });

TEST_P(EveryDrive, Names_AreFoundInAnyCase) {
    EXPECT_EQ(readAll(*drives.open("c:\\pics\\SEA.jpg", Access::read)), "sea");
    EXPECT_TRUE(drives.exists("C:/PICS/sea.Jpg"));
    EXPECT_EQ(drives.content("C:\\pics\\sea.jpg"), "sea");
}

TEST_P(EveryDrive, Paths_AreResolvedBeforeAnythingIsLookedUp) {
    EXPECT_TRUE(drives.exists("Sea.jpg")) << "in the current folder";
    EXPECT_TRUE(drives.exists("C:Sea.jpg"));
    EXPECT_TRUE(drives.exists("\\Pics\\Sea.jpg"));
    EXPECT_TRUE(drives.exists("C:\\Pics\\Nowhere\\..\\.\\Sea.jpg"));
    EXPECT_TRUE(drives.exists("C:\\..\\..\\Pics\\Sea.jpg")) << "the root is its own parent";
    EXPECT_TRUE(drives.exists("C:\\Pics\\\\Sea.jpg. ")) << "dots and blanks at the end don't count";
    EXPECT_TRUE(drives.exists(std::string("C:\\Pics\\Sea.jpg\0.txt", 20)));
    EXPECT_FALSE(drives.exists("C:\\Sea.jpg"));
}

TEST_P(EveryDrive, MissingFile_FailsByWhetherItsFolderExists) {
    EXPECT_THAT(openCodes("C:\\None\\Sea.jpg"), Each(76));
    EXPECT_THAT(openCodes("C:\\Pics\\Sea.jpg\\x.jpg"), Each(76)) << "a file is no folder";
    EXPECT_THAT(openCodes("C:\\Pics\\a*.jpg"), Each(53));
    EXPECT_THAT(openCodes("C:\\Pics\\a:b"), Each(53));
    EXPECT_THAT(openCodes("\\\\server\\share\\x"), Each(76));
    EXPECT_THAT(openCodes(""), Each(75));
    EXPECT_EQ(openCode("C:\\Pics\\Lake.jpg"), 53);
    EXPECT_EQ(removeCode("C:\\Pics\\Lake.jpg"), 53);
    EXPECT_EQ(removeCode("C:\\None\\Lake.jpg"), 76);
    EXPECT_EQ(listCode("C:\\None\\*.jpg"), 76);
    EXPECT_EQ(listCode("C:\\Pics\\Sea.jpg\\*.jpg"), 76);
}

TEST_P(EveryDrive, Folder_IsNoFile) {
    EXPECT_THAT(openCodes("C:\\Pics"), Each(75));
    EXPECT_THAT(openCodes("C:\\Pics\\"), Each(75));
    EXPECT_THAT(openCodes("C:\\"), Each(75));
    EXPECT_THAT(openCodes("C:\\None\\"), Each(76));
    EXPECT_FALSE(drives.exists("C:\\Pics"));
    EXPECT_EQ(removeCode("C:\\Pics\\Sub"), 75);
}

TEST_P(EveryDrive, MissingDrive_IsADeviceThatIsUnavailable) {
    EXPECT_EQ(openCode("Q:\\x.jpg"), 68);
    EXPECT_EQ(openCode("Q:\\x.jpg", Access::write), 68);
    EXPECT_EQ(listCode("Q:\\*.jpg"), 68);
    EXPECT_FALSE(drives.exists("Q:\\x.jpg"));
    EXPECT_EQ(removeCode("Q:\\x.jpg"), 76);
    drives.setReady('c', false);
    EXPECT_EQ(openCode("C:\\Pics\\Sea.jpg"), 68);
    EXPECT_EQ(listCode("C:\\Pics\\*.*"), 68);
    drives.setReady('C', true);
    EXPECT_EQ(openCode("C:\\Pics\\Sea.jpg"), 0);
}

TEST_P(EveryDrive, Reading_GivesWhatIsThereFromThePosition) {
    const auto file = drives.open("Sea.jpg", Access::read);
    EXPECT_EQ(file->length(), 3);
    std::string bytes(8, ' ');
    EXPECT_EQ(file->read(bytes.data(), 2), 2U);
    EXPECT_EQ(file->read(bytes.data(), 8), 1U);
    EXPECT_EQ(bytes[0], 'a');
    EXPECT_EQ(file->read(bytes.data(), 8), 0U);
    file->seek(1);
    EXPECT_EQ(file->read(bytes.data(), 8), 2U);
    EXPECT_EQ(bytes.substr(0, 2), "ea");
    file->seek(100);
    EXPECT_EQ(file->read(bytes.data(), 8), 0U);
    EXPECT_EQ(codeOf([&] { file->write("x", 1); }), 75);
}

TEST_P(EveryDrive, Write_MakesTheFileAnew) {
    writeText(*drives.open("Sea.jpg", Access::write), "x");
    EXPECT_EQ(drives.content("Sea.jpg"), "x");
    writeText(*drives.open("New.txt", Access::write), "new");
    EXPECT_EQ(drives.content("C:\\Pics\\new.txt"), "new");
    drives.open("Empty.txt", Access::write);
    EXPECT_TRUE(drives.exists("Empty.txt"));
    EXPECT_THAT(drives.list("*.txt"), ElementsAre("Empty.txt", "New.txt"));
}

TEST_P(EveryDrive, ReadWrite_KeepsTheContent) {
    {
        const auto file = drives.open("Sea.jpg", Access::readWrite);
        file->seek(1);
        writeText(*file, "kiing");
        file->seek(0);
        EXPECT_EQ(readAll(*file), "skiing");
    }
    EXPECT_EQ(drives.content("Sea.jpg"), "skiing");
    writeText(*drives.open("New.txt", Access::readWrite), "n");
    EXPECT_EQ(drives.content("New.txt"), "n");
}

TEST_P(EveryDrive, Write_PastTheEndFillsWithZeros) {
    const auto file = drives.open("Sea.jpg", Access::readWrite);
    file->seek(5);
    writeText(*file, "x");
    EXPECT_EQ(drives.content("Sea.jpg"), std::string("sea\0\0x", 6));
}

TEST_P(EveryDrive, Append_WritesToTheEndWhereverThePositionIs) {
    {
        const auto file = drives.open("Sea.jpg", Access::append);
        file->seek(0);
        writeText(*file, "s");
        writeText(*file, "ide");
    }
    EXPECT_EQ(drives.content("Sea.jpg"), "seaside");
    writeText(*drives.open("New.txt", Access::append), "n");
    EXPECT_EQ(drives.content("New.txt"), "n");
}

TEST_P(EveryDrive, Remove_TakesTheFileAway) {
    drives.remove("sea.JPG");
    EXPECT_FALSE(drives.exists("Sea.jpg"));
    EXPECT_THAT(drives.list("*.*"), IsEmpty());
}

TEST_P(EveryDrive, OpenFile_CannotBeRemoved) {
    auto file = drives.open("Sea.jpg", Access::read);
    EXPECT_EQ(drives.openFiles(), 1);
    EXPECT_EQ(removeCode("sea.jpg"), 70);
    file.reset();
    EXPECT_EQ(drives.openFiles(), 0);
    EXPECT_EQ(removeCode("sea.jpg"), 0);
}

TEST_P(EveryDrive, List_IsInByteOrderAndOfPlainFilesOnly) {
    for (const char* name : {"b.jpg", "B.JPG.bak", "a.jpg", "Zoo.jpg", "hid.jpg", "c.jpeg"}) {
        drives.addFile(std::string("C:\\L\\") + name, "");
    }
    drives.addFolder("C:\\L\\folder.jpg");
    drives.setHidden("C:\\l\\HID.jpg");
    EXPECT_THAT(drives.list("C:\\l\\*.jpg"), ElementsAre("Zoo.jpg", "a.jpg", "b.jpg"));
    EXPECT_THAT(drives.list("C:\\L\\*.jpe"), ElementsAre("c.jpeg"));
    EXPECT_THAT(drives.list("C:\\L\\*"), ElementsAre("B.JPG.bak", "Zoo.jpg", "a.jpg", "b.jpg", "c.jpeg"));
    EXPECT_THAT(drives.list("C:\\L\\"), IsEmpty());
    EXPECT_TRUE(drives.exists("C:\\L\\hid.jpg"));
}

TEST_P(EveryDrive, ListPattern_IsAPathLikeOthers) {
    drives.addFile("C:\\L\\a.jpg", "");
    EXPECT_THAT(drives.list("*.jpg"), ElementsAre("Sea.JPG")) << "in the current folder";
    EXPECT_THAT(drives.list("C:*.jpg"), ElementsAre("Sea.JPG"));
    EXPECT_THAT(drives.list("\\Pics\\..\\L\\a*"), ElementsAre("a.jpg"));
}

TEST_P(EveryDrive, Fault_OpensWithItsCodeUntilHealed) {
    drives.failOpening("C:\\Pics\\SEA.jpg", FailureCode::permissionDenied);
    EXPECT_EQ(openCode("Sea.jpg"), 70);
    EXPECT_EQ(removeCode("Sea.jpg"), 70);
    EXPECT_TRUE(drives.exists("Sea.jpg"));
    drives.heal("Sea.jpg");
    EXPECT_EQ(openCode("Sea.jpg"), 0);
    drives.failOpening("C:\\Pics", FailureCode::deviceUnavailable);
    EXPECT_EQ(listCode("*.*"), 68);
}

TEST_P(EveryDrive, FailingTransfers_ComeAfterTheOpen) {
    drives.failTransfers("Sea.jpg");
    const auto file = drives.open("Sea.jpg", Access::readWrite);
    char byte = 0;
    EXPECT_EQ(codeOf([&] { file->read(&byte, 1); }), 57);
    EXPECT_EQ(codeOf([&] { file->write(&byte, 1); }), 57);
}

TEST_P(EveryDrive, FailingTransfers_BeginBehindTheSoundBytes) {
    drives.failTransfers("Sea.jpg", 2);
    const auto file = drives.open("Sea.jpg", Access::readWrite);
    std::array<char, 3> bytes{};
    EXPECT_EQ(file->read(bytes.data(), 2), 2U);
    EXPECT_EQ(codeOf([&] { file->read(bytes.data(), 1); }), 57);
    file->seek(0);
    EXPECT_EQ(codeOf([&] { file->read(bytes.data(), 3); }), 57);
    EXPECT_EQ(codeOf([&] { file->write("SE", 2); }), 0);
    EXPECT_EQ(codeOf([&] { file->write("A", 1); }), 57);
}

TEST_P(EveryDrive, ReadOnlyFile_OpensForReadingAlone) {
    drives.setReadOnly("Sea.jpg");
    EXPECT_EQ(openCode("Sea.jpg"), 0);
    EXPECT_EQ(openCode("Sea.jpg", Access::write), 75);
    EXPECT_EQ(openCode("Sea.jpg", Access::append), 75);
    EXPECT_EQ(removeCode("Sea.jpg"), 75);
    const auto file = drives.open("Sea.jpg", Access::readWrite);
    EXPECT_EQ(codeOf([&] { file->write("x", 1); }), 75);
    EXPECT_EQ(readAll(*file), "sea") << "and nothing was lost";
}

TEST_P(EveryDrive, ReadOnlyFolder_TakesNothingNew) {
    drives.setReadOnly("C:\\Pics");
    EXPECT_EQ(openCode("New.txt", Access::write), 75);
    EXPECT_EQ(openCode("New.txt", Access::readWrite), 75);
    EXPECT_EQ(openCode("C:\\Pics\\Sub\\New.txt", Access::append), 75);
    EXPECT_EQ(removeCode("Sea.jpg"), 75);
    EXPECT_EQ(openCode("Sea.jpg"), 0);
    EXPECT_EQ(openCode("C:\\New.txt", Access::write), 0);
}

TEST_P(EveryDrive, FullDisk_TakesNoFurtherByte) {
    drives.setFreeSpace('C', 4);
    {
        const auto file = drives.open("New.txt", Access::write);
        writeText(*file, "abc");
        EXPECT_EQ(codeOf([&] { writeText(*file, "de"); }), 61);
        writeText(*file, "d");
        file->seek(0);
        EXPECT_EQ(codeOf([&] { writeText(*file, "ABCD"); }), 0) << "nothing new is needed";
        EXPECT_EQ(codeOf([&] { writeText(*file, "E"); }), 61);
    }
    EXPECT_EQ(drives.content("New.txt"), "ABCD");
    drives.remove("Sea.jpg");
    EXPECT_EQ(codeOf([&] { writeText(*drives.open("X", Access::write), "xyz"); }), 0)
        << "freed by the removal";
    EXPECT_EQ(codeOf([&] { writeText(*drives.open("X", Access::write), "xyz"); }), 0) << "freed by the anew";
    EXPECT_EQ(codeOf([&] { writeText(*drives.open("X", Access::append), "!"); }), 61);
}

class HostDrive : public testing::Test {
protected:
    HostDrive() {
        fs::create_directories(root / "drive");
        put(root / "outside.txt", "outside");
        drives.mapDrive('D', (root / "drive").string());
    }
    ~HostDrive() override { fs::remove_all(root); }

    static void put(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }

    const fs::path root = newFolder();
    Drives drives{"D:\\"};
};

// On a host that writes names in UTF-8 a template of Windows found none of its pictures with an umlaut: the
// bytes of its names were looked for as they stood.
TEST_F(HostDrive, Names_AreOfTheCodePage) {
    put(root / "drive" / "\u00DCber \u20AC.gif", "uber");
    EXPECT_THAT(drives.list("D:\\*.gif"), ElementsAre("\xDC"
                                                      "ber \x80.gif"));
    EXPECT_EQ(drives.content("D:\\\xDC"
                             "BER \x80.gif"),
              "uber");
    EXPECT_FALSE(drives.exists("D:\\\u00DCber \u20AC.gif"));
    drives.addFile("D:\\caf\xE9.txt", "new");
    EXPECT_TRUE(fs::exists(root / "drive" / "caf\u00E9.txt"));
    EXPECT_EQ(drives.content("D:\\CAF\xE9.TXT"), "new");
}

TEST_F(HostDrive, NamesThatAreNoTextOfTheCodePage_KeepTheirBytes) {
    for (const char* name : {"\xFC.gif", "\u65E5.gif"}) {
        put(root / "drive" / name, "found");
        EXPECT_EQ(drives.content(std::string("D:\\") + name), "found");
    }
    EXPECT_THAT(drives.list("D:\\*.gif"), ElementsAre("\u65E5.gif", "\xFC.gif"));
}

TEST_F(HostDrive, NoPath_LeavesTheFolder) {
    EXPECT_FALSE(drives.exists("D:\\..\\outside.txt"));
    EXPECT_FALSE(drives.exists("D:\\x\\..\\..\\outside.txt"));
    EXPECT_FALSE(drives.exists("D:../outside.txt"));
    drives.open("D:\\..\\outside.txt", Access::write);
    EXPECT_TRUE(fs::exists(root / "drive" / "outside.txt"));
}

TEST_F(HostDrive, HostPath_IsThatOfAFileThatLiesThere) {
    put(root / "drive" / "a.txt", "");
    drives.addFile("E:\\a.txt", "in memory");
    EXPECT_EQ(drives.hostPath("d:/A.TXT"), (root / "drive" / "a.txt").string());
    for (const char* path : {"E:\\a.txt", "D:\\b.txt", "D:\\", "Q:\\a.txt", ""}) {
        EXPECT_EQ(drives.hostPath(path), std::nullopt) << path;
    }
}

TEST_F(HostDrive, NamesThatDifferInCase_GoByTheExactOneOrTheFirst) {
    put(root / "drive" / "a.txt", "small");
    put(root / "drive" / "A.txt", "capital");
    EXPECT_EQ(drives.content("D:\\a.txt"), "small");
    EXPECT_EQ(drives.content("D:\\A.TXT"), "capital");
    EXPECT_THAT(drives.list("D:\\a.*"), ElementsAre("A.txt", "a.txt"));
}

TEST_F(HostDrive, Listing_LeavesOutWhatNoSuchDriveCouldHold) {
    put(root / "drive" / "plain.txt", "");
    put(root / "drive" / ".hidden.txt", "");
    put(root / "drive" / "a:b.txt", "");
    put(root / "drive" / "back\\slash.txt", "");
    fs::create_symlink("/dev/zero", root / "drive" / "device.txt");
    fs::create_symlink("nowhere", root / "drive" / "dangling.txt");
    EXPECT_THAT(drives.list("D:\\*.txt"), ElementsAre("plain.txt"));
    EXPECT_EQ(codeOf([&] { drives.open("D:\\device.txt", Access::read); }), 75);
    EXPECT_EQ(codeOf([&] { drives.open("D:\\dangling.txt", Access::read); }), 53);
}

TEST_F(HostDrive, MissingHostFolder_IsAnEmptyPlace) {
    drives.mapDrive('E', (root / "none").string());
    EXPECT_EQ(codeOf([&] { drives.list("E:\\*.*"); }), 76);
    EXPECT_EQ(codeOf([&] { drives.open("E:\\x", Access::write); }), 76);
}

} // namespace
