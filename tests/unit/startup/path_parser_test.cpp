#include "startup/path_parser.h"

#include <gtest/gtest.h>

namespace {

struct Parts {
    const char* fileSpec;
    const char* path;
    const char* fileName;
    const char* extension;
    const char* urlPath;
};

class PathParserParts : public testing::TestWithParam<Parts> {};

TEST_P(PathParserParts, FileSpec_Assigned_GivesItsParts) {
    const Parts& expected = GetParam();
    PathParser parser;
    parser.setFileSpec(expected.fileSpec);
    EXPECT_EQ(parser.FileSpec(), expected.fileSpec);
    EXPECT_EQ(parser.Path, expected.path);
    EXPECT_EQ(parser.FileName, expected.fileName);
    EXPECT_EQ(parser.Extension, expected.extension);
    EXPECT_EQ(parser.UrlPath, expected.urlPath);
    EXPECT_EQ(parser.Path + parser.FileName, expected.fileSpec);
}

INSTANTIATE_TEST_SUITE_P(
    FileSpecs, PathParserParts,
    testing::Values(Parts{"C:\\images\\photo.jpg", "C:\\images\\", "photo.jpg", "jpg", ""},
                    Parts{"photo.jpg", "", "photo.jpg", "jpg", ""},
                    Parts{"C:photo.jpg", "C:", "photo.jpg", "jpg", ""}, Parts{"C:\\", "C:\\", "", "", ""},
                    Parts{"C:", "C:", "", "", ""}, Parts{"C:\\images\\", "C:\\images\\", "", "", ""},
                    Parts{"\\\\server\\share", "\\\\server\\", "share", "", ""},
                    Parts{"\\\\server\\share\\pic.gif", "\\\\server\\share\\", "pic.gif", "gif", ""},
                    Parts{"images/sub\\photo.jpg", "images/sub\\", "photo.jpg", "jpg", ""},
                    Parts{"images\\sub/photo.jpg", "images\\sub/", "photo.jpg", "jpg", ""},
                    Parts{"C:\\old.dir\\readme", "C:\\old.dir\\", "readme", "dir\\readme", ""},
                    Parts{"archive.tar.gz", "", "archive.tar.gz", "gz", ""},
                    Parts{"name.", "", "name.", "", ""}, Parts{".profile", "", ".profile", "profile", ""},
                    Parts{"a:b:c", "a:", "b:c", "", ""}, // the first colon counts
                    Parts{"scheme://host/a/b.gif", "scheme://host/a/", "b.gif", "gif", "a/b.gif"},
                    Parts{"scheme://host", "scheme://", "host", "", ""},
                    Parts{"scheme://host/", "scheme://host/", "", "", ""}, Parts{"", "", "", "", ""}));

TEST(PathParser, AnyPart_BeforeAnAssignment_IsEmpty) {
    const PathParser parser;
    EXPECT_EQ(parser.FileSpec() + parser.Path + parser.FileName + parser.Extension + parser.UrlPath, "");
}

TEST(PathParser, FileSpec_AssignedAgain_ReplacesAllParts) {
    PathParser parser;
    parser.setFileSpec("scheme://host/a/b.gif");
    parser.setFileSpec("x");
    EXPECT_EQ(parser.Path, "");
    EXPECT_EQ(parser.FileName, "x");
    EXPECT_EQ(parser.Extension, "");
    EXPECT_EQ(parser.UrlPath, "");
}

TEST(PathParser, AField_Written_ChangesThatFieldOnly) {
    PathParser parser;
    parser.setFileSpec("C:\\a\\b.c");
    parser.Path = "other";
    EXPECT_EQ(parser.FileName, "b.c");
    EXPECT_EQ(parser.FileSpec(), "C:\\a\\b.c");
}

TEST(PathParser, ParseBaseName_SeveralDots_EndsAtTheFirst) {
    PathParser parser;
    parser.setFileSpec("archive.tar.gz");
    EXPECT_EQ(parser.ParseBaseName(), "archive");
    parser.setFileSpec(".profile");
    EXPECT_EQ(parser.ParseBaseName(), "");
    parser.setFileSpec("C:\\old.dir\\readme");
    EXPECT_EQ(parser.ParseBaseName(), "readme");
}

TEST(PathParser, FileSpec_OfAnyLength_IsTakenApart) {
    for (const std::size_t length : {32760U, 32766U, 40000U, 65534U, 70000U}) {
        PathParser parser;
        const std::string folder = std::string(length, 'f') + "\\";
        parser.setFileSpec(folder + "a.b");
        EXPECT_EQ(parser.Path, folder) << length;
        EXPECT_EQ(parser.FileName, "a.b") << length;
    }
}

} // namespace
