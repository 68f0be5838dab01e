#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace {

using Problems = std::vector<std::string>;
const Msg kQuestion{"继续？", "注意", Icon::Question, Msg::YesNo, Msg::No};

}  // namespace

TEST(ScriptedDialogs, AnswersInOrderAndKeepsEveryMessage)
{
    ScriptedDialogs scripted;
    scripted.yes().open("/a").no().cancelSave().save("/b").cancelOpen();
    EXPECT_TRUE(dialogs().box(kQuestion));
    EXPECT_EQ(dialogs().openFile("in"), "/a");
    EXPECT_FALSE(dialogs().box(kQuestion));
    EXPECT_TRUE(dialogs().box({"好", "", Icon::Information}));
    EXPECT_EQ(dialogs().saveFile("out"), std::nullopt);
    EXPECT_EQ(dialogs().saveFile("out"), "/b");
    EXPECT_EQ(dialogs().openFile("in"), std::nullopt);
    EXPECT_EQ(scripted.messages, (std::vector<Msg>{kQuestion, kQuestion, {"好", "", Icon::Information}}));
    EXPECT_EQ(scripted.filters, (Problems{"in", "out", "out", "in"}));
}

TEST(ScriptedDialogs, AQuestionThatNobodyAnswersIsAProblem)
{
    ScriptedDialogs scripted;
    EXPECT_FALSE(dialogs().box(kQuestion));
    scripted.save("/a");
    EXPECT_EQ(dialogs().openFile("in"), std::nullopt);
    EXPECT_EQ(scripted.takeProblems(), (Problems{"no answer to a question: 继续？", "no answer to an open dialog: in",
                                                 "no one asked for an answer to a save dialog"}));
}

TEST(ScriptedDialogs, AnAnswerThatNobodyAskedForIsAProblem)
{
    ScriptedDialogs scripted;
    scripted.yes();
    EXPECT_EQ(scripted.takeProblems(), Problems{"no one asked for an answer to a question"});
}
