#include "package/template_line.h"

#include <gtest/gtest.h>

namespace {

TemplateLine inShow(const std::string& line) {
    return classifyTemplateLine(line, TemplateSpelling::withOlder);
}

TemplateLine inDesigner(const std::string& line) {
    return classifyTemplateLine(line, TemplateSpelling::current);
}

TEST(TemplateLine, ModeLine_AnyCase_GivesItsSoundMode) {
    EXPECT_EQ(inShow("SOUNDSYNC=1").soundMode, 1);
    EXPECT_EQ(inShow("soundsync=2").soundMode, 2);
    EXPECT_EQ(inShow("SoundAsync").soundMode, 3);
    EXPECT_EQ(inShow("SOUNDASYNC").kind, TemplateLineKind::mode);
}

TEST(TemplateLine, ModeLine_NotExact_IsSomethingElse) {
    EXPECT_EQ(inShow("SOUNDSYNC=3").kind, TemplateLineKind::comment);
    EXPECT_EQ(inShow("SOUNDSYNC=1 ").kind, TemplateLineKind::comment);
    EXPECT_EQ(inShow("SOUNDASYNC=").kind, TemplateLineKind::comment);
}

TEST(TemplateLine, Keyword_AnyCase_GivesTheValueInItsOwnCase) {
    EXPECT_EQ(inShow("image=Sub\\One.JPG").kind, TemplateLineKind::image);
    EXPECT_EQ(inShow("image=Sub\\One.JPG").value, "Sub\\One.JPG");
    EXPECT_EQ(inShow("Dissolve=Top To Bottom").kind, TemplateLineKind::dissolve);
    EXPECT_EQ(inShow("Dissolve=Top To Bottom").value, "Top To Bottom");
    EXPECT_EQ(inShow("sOuNd=a.wav").kind, TemplateLineKind::sound);
    EXPECT_EQ(inShow("sOuNd=a.wav").value, "a.wav");
}

TEST(TemplateLine, Value_WithEqualsSigns_BeginsBehindTheFirst) {
    EXPECT_EQ(inShow("IMAGE=a=b=c.gif").value, "a=b=c.gif");
    EXPECT_EQ(inShow("IMAGE=").value, "");
    EXPECT_EQ(inShow("IMAGE=").kind, TemplateLineKind::image);
}

TEST(TemplateLine, OlderSpelling_InTheShow_IsUnderstood) {
    EXPECT_EQ(inShow("<One.gif>").kind, TemplateLineKind::image);
    EXPECT_EQ(inShow("<One.gif>").value, "One.gif");
    EXPECT_EQ(inShow("[Normal]").kind, TemplateLineKind::dissolve);
    EXPECT_EQ(inShow("[Normal]").value, "Normal");
}

TEST(TemplateLine, OlderSpelling_InTheDesigner_IsAComment) {
    EXPECT_EQ(inDesigner("<One.gif>").kind, TemplateLineKind::comment);
    EXPECT_EQ(inDesigner("[Normal]").kind, TemplateLineKind::comment);
    EXPECT_EQ(inDesigner("IMAGE=One.gif").kind, TemplateLineKind::image);
}

TEST(TemplateLine, JustTheTwoBrackets_AreAComment) {
    EXPECT_EQ(inShow("<>").kind, TemplateLineKind::comment);
    EXPECT_EQ(inShow("[]").kind, TemplateLineKind::comment);
    EXPECT_EQ(inShow("<a]").kind, TemplateLineKind::comment);
    EXPECT_EQ(inShow("<x>").value, "x");
}

TEST(TemplateLine, AnythingElse_IsACommentWithItself) {
    for (const char* line : {"", "END", "#", "IMAGES=a", " IMAGE=a", "SOUND", "text, with a comma"}) {
        EXPECT_EQ(inShow(line).kind, TemplateLineKind::comment) << line;
        EXPECT_EQ(inShow(line).value, line);
    }
}

TEST(TemplateLine, BracketTest_StandsBeforeTheKeyword) {
    // The order of the tests shows where a line could be two things.
    EXPECT_EQ(inShow("[DISSOLVE=x]").value, "DISSOLVE=x");
    EXPECT_EQ(inShow("<IMAGE=x>").value, "IMAGE=x");
}

} // namespace
