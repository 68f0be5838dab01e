// The check in pieces: the same findings, and no piece that grows with the project.

#include "CheckedSample.h"
#include "check/CheckSteps.h"
#include "support/DamagedProjects.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace {

TEST(CheckSteps, WhatAPieceAddsComesBeforeWhatWaits)
{
    CheckSteps steps;
    std::string made;
    const auto write = [&](const char* letter) { return [&made, letter] { made += letter; }; };
    EXPECT_TRUE(steps.done());
    steps.once([&] {
        made += 'a';
        steps.once(write("b"));
        steps.once([&] {
            made += 'c';
            steps.once(write("d"));
        });
        steps.once(write("e"));
    });
    steps.rows(0, [&](std::size_t) { made += '!'; });
    steps.rows(2, [&](std::size_t row) {
        made += static_cast<char>('0' + row);
        if (row == 0) steps.once(write("x"));
    });
    steps.once(write("z"));
    int pieces = 0;
    for (; !steps.done(); ++pieces) steps.make();
    EXPECT_EQ(made, "abcde0x1z");
    EXPECT_EQ(pieces, 9);
}

TEST(CheckSteps, APieceIsMadeAgainUntilItSaysNo)
{
    CheckSteps steps;
    int left = 3;
    steps.again([&] { return --left > 0; });
    for (int made = 1; made <= 3; ++made) {
        EXPECT_FALSE(steps.done());
        steps.make();
    }
    EXPECT_TRUE(steps.done());
}

int piecesOf(const std::string& folder)
{
    CheckRun run(folder);
    int pieces = 0;
    for (; !run.done(); ++pieces) run.step();
    return pieces;
}

/// Rows of one file of a project, sound ones, and how many rules each row meets: a piece for each.
struct Kind {
    const char* file;
    const char* model;
    std::function<std::string(int)> row;
    const char *first, *last;  ///< the lines before and behind the rows
    int pieces;
};

std::string number(int value) { return std::to_string(value); }

std::string repeated(int count, const std::string& text)
{
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

// Every row is taken as a line, then its fields are looked at; the rest are the rules of its file.
const Kind kKinds[] = {
    {"导线点参数.txt", "交点法", [](int i) { return "P" + number(i) + "," + number(i) + ",0,"; }, "", "", 3},
    {"断链参数.txt", "交点法", [](int i) { return number(100 * i) + "," + number(100 * i + 1); }, "", "", 3},
    {"平曲线参数.txt", "交点法",
     [](int i) { return "J" + number(i) + "," + number(400 * i) + "," + number(i % 2 * 120) + ",50,60,250"; },
     "0,0,0\r\n", "900000,0\r\n", 3},
    {"平曲线参数.txt", "积木法",
     [](int i) { return number(100 * i) + "," + number(100 * i + 100) + "," + number(100 * i) + ",0,0,0,0"; }, "", "",
     4},
    {"竖曲线参数.txt", "交点法", [](int i) { return number(400 * i + 400) + ",100,900"; }, "0,100\r\n",
     "900000,100\r\n", 5},
    {"超高参数.txt", "交点法", [](int i) { return number(100 * i) + ",-2,-2," + number(100 * i + 100) + ",-2,-2"; }, "",
     "", 5},
    {"超高宽度参数.txt", "交点法",
     [](int i) { return number(100 * i) + "," + number(100 * i + 100) + ",2,5,5,1,1,5,5,1,1,-4"; }, "", "", 7},
    {"左幅填方参数.txt", "交点法",
     [](int i) { return number(100 * i) + ",5,1.5," + number(100 * i + 100) + ",5,1.5" + repeated(24, ",0"); }, "", "",
     3},
};

class EachKind : public testing::TestWithParam<Kind> {};

TEST_P(EachKind, ARowMoreIsAPieceMoreForEachRule)
{
    const Kind& kind = GetParam();
    const ProjectFolder folder{{"其他参数.txt", std::string(kind.model) + "\r\n线性\r\n1\r\n1\r\n0\r\n"},
                               {"平曲线参数.txt", "0,0,0\r\nJ1,5000,1000,50,60,2500\r\n900000,0\r\n"}};
    const auto piecesAt = [&](int rows) {
        std::string text = kind.first;
        for (int i = 0; i < rows; ++i) text += kind.row(i) + "\r\n";
        folder.write(kind.file, text + kind.last);
        for (const auto& finding : CheckProject(ProjectPath(gProject)))
            EXPECT_EQ(finding.severity, Severity::Warning) << FindingText(finding);
        return piecesOf(ProjectPath(gProject));
    };
    EXPECT_GE(piecesAt(300) - piecesAt(100), 200 * kind.pieces);
}

INSTANTIATE_TEST_SUITE_P(Check, EachKind, testing::ValuesIn(kKinds),
                         [](const auto& param) { return "Kind" + std::to_string(param.index); });

TEST(CheckRun, ALineOfADamagedFileIsAPieceToo)
{
    for (const char* piece : {"\r\n", "abc\r\n", "1,2\r\n"})
        for (const char* file : {"其他参数.txt", "超高参数.txt", "右幅挖方参数.txt"}) {
            const ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n1\r\n1\r\n0\r\n"}};
            folder.write(file, repeated(40000, piece));
            EXPECT_GE(piecesOf(ProjectPath(gProject)), 40000) << file << piece;
        }
}

TEST(CheckRun, FindsTheSameWhateverIsDoneBetweenThePieces)
{
    const ProjectFolder workspace;
    for (const auto& project : kDamagedProjects) {
        const std::string folder = project.makeIn(workspace.root());
        const auto files = ProjectFolder::filesIn(folder);
        CheckRun run(folder), beside(folder);
        while (!run.done()) {
            run.step();
            if (!beside.done()) beside.step();
        }
        std::vector<std::string> texts, whole;
        for (const auto& finding : run.take()) texts.push_back(FindingText(finding));
        for (const auto& finding : CheckProject(folder)) whole.push_back(FindingText(finding));
        EXPECT_EQ(texts, whole) << project.name;
        EXPECT_FALSE(whole.empty()) << project.name;
        EXPECT_EQ(ProjectFolder::filesIn(folder), files);
        std::filesystem::remove_all(folder);
    }
}

TEST(CheckRun, CanBeLeftAtAnyPiece)
{
    const CheckedSample road("示例一");
    const int all = piecesOf(road.path());
    for (int pieces = 0; pieces < all; pieces += 7) {
        CheckRun run(road.path());
        for (int i = 0; i < pieces; ++i) run.step();
        EXPECT_FALSE(run.done());
    }
}

TEST(AmountText, HasTheDecimalsOfItsUnit)
{
    EXPECT_EQ(AmountText({}), "");
    EXPECT_EQ(AmountText({0.0626, "米"}), "0.063 米");
    EXPECT_EQ(AmountText({-12.5, "米"}), "-12.500 米");
    EXPECT_EQ(AmountText({12.34, "毫米"}), "12.3 毫米");
    EXPECT_EQ(AmountText({0.5, "秒"}), "0.5 秒");
    EXPECT_EQ(AmountText({51.26, "公里"}), "51.3 公里");
    EXPECT_EQ(AmountText({0.02, "%"}), "0.02%");
    EXPECT_EQ(AmountText({40000, "行"}), "40000 行");
    EXPECT_EQ(AmountText({3, "项"}), "3 项");
    EXPECT_EQ(AmountText({501, "个"}), "501 个");
}

}  // namespace
