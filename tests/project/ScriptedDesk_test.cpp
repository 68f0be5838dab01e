#include "support/ScriptedDesk.h"

#include <gtest/gtest.h>

namespace {

using Problems = std::vector<std::string>;
const Msg kQuestion{"继续？", "注意", Icon::Question, Msg::YesNo, Msg::No};

}  // namespace

TEST(ScriptedDesk, AnswersInOrderAndKeepsEveryMessage)
{
    ScriptedDesk scripted;
    scripted.yes().open("/a").no().cancelSave().save("/b").cancelOpen();
    EXPECT_TRUE(desk().box(kQuestion));
    EXPECT_EQ(desk().openFile("in"), "/a");
    EXPECT_FALSE(desk().box(kQuestion));
    EXPECT_TRUE(desk().box({"好", "", Icon::Information}));
    EXPECT_EQ(desk().saveFile("out"), std::nullopt);
    EXPECT_EQ(desk().saveFile("out"), "/b");
    EXPECT_EQ(desk().openFile("in"), std::nullopt);
    EXPECT_EQ(scripted.messages, (std::vector<Msg>{kQuestion, kQuestion, {"好", "", Icon::Information}}));
    EXPECT_EQ(scripted.filters, (Problems{"in", "out", "out", "in"}));
}

TEST(ScriptedDesk, AQuestionThatNobodyAnswersIsAProblem)
{
    ScriptedDesk scripted;
    EXPECT_FALSE(desk().box(kQuestion));
    scripted.save("/a");
    EXPECT_EQ(desk().openFile("in"), std::nullopt);
    EXPECT_EQ(scripted.takeProblems(), (Problems{"no answer to a question: 继续？", "no answer to an open dialog: in",
                                                 "no one asked for an answer to a save dialog"}));
}

TEST(ScriptedDesk, AnAnswerThatNobodyAskedForIsAProblem)
{
    ScriptedDesk scripted;
    scripted.yes();
    EXPECT_EQ(scripted.takeProblems(), Problems{"no one asked for an answer to a question"});
}
