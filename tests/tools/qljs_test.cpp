#include "tools/Qljs.h"

#include "base/RunTimeError.h"

#include <gtest/gtest.h>

namespace {

QljsResult calc(const QljsInput& in)
{
    QljsResult out;
    EXPECT_TRUE(CalcQljs(in, out));
    return out;
}

RunTimeError::Number failure(const QljsInput& in)
{
    QljsResult out;
    try {
        CalcQljs(in, out);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "nothing failed";
    return RunTimeError::PathNotFound;
}

std::string refusal(const QljsInput& in)
{
    QljsResult out{"kept", "kept"};
    const auto outcome = CalcQljs(in, out);
    EXPECT_EQ(out.l, "kept");
    EXPECT_EQ(out.r, "kept");
    if (!outcome.refusal) return {};
    EXPECT_EQ(outcome.refusal->msg.title, "注意");
    EXPECT_EQ(outcome.refusal->msg.icon, Icon::None);
    EXPECT_EQ(outcome.refusal->field, "");
    return outcome.refusal->msg.text;
}

}  // namespace

TEST(Qljs, StretchThatIsTheWholeTransition)
{
    const auto result = calc({"100", "200", "50"});
    EXPECT_EQ(result.l, "50");
    EXPECT_EQ(result.r, "无限大,完整");
}

TEST(Qljs, ShorterStretchHasARadius) { EXPECT_EQ(calc({"100", "200", " 30 "}).r, "500"); }

TEST(Qljs, VerySmallRadiusCountsAsComplete)
{
    const auto result = calc({"100", "0.05", "50"});
    EXPECT_EQ(result.l, "200000");
    EXPECT_EQ(result.r, "无限大,完整");
}

TEST(Qljs, ExactlyAHundredKilometresIsNotBeyond)
{
    // L = 100000, and A * A / (L - L0) = 10000 / 50000
    EXPECT_EQ(calc({"100", "0.1", "50000"}).r, ".2");
}

TEST(Qljs, StretchLongerThanTheTransitionIsNegative) { EXPECT_EQ(calc({"100", "200", "150"}).r, "-100"); }

TEST(Qljs, NegativeRadiusGivesANegativeLength)
{
    const auto result = calc({"100", "-200", "50"});
    EXPECT_EQ(result.l, "-50");
    EXPECT_EQ(result.r, "-100");
}

TEST(Qljs, LengthsAreComparedAsSingles)
{
    // 1/3 is no double of eight decimals, but both narrow to the same single.
    EXPECT_EQ(calc({"1", "3", "0.33333334"}).r, "无限大,完整");
}

TEST(Qljs, ResultsCarrySevenDigits)
{
    // 1234.567 squared is 1524155.677; the single nearest to A squares to 1524155.72, stored as 1524155.75.
    EXPECT_EQ(calc({"1234.567", "1", "0"}).l, "1524156");
    EXPECT_EQ(SingleText(0.1F), ".1");
    EXPECT_EQ(SingleText(16777216.0F), "16777220");
    EXPECT_EQ(SingleText(-0.001F), "-.001");
    EXPECT_EQ(SingleText(-0.0F), "0");
}

TEST(Qljs, TiesGoToTheEvenThousandth)
{
    EXPECT_EQ(calc({"1", "16", "1"}).l, ".062");    // .0625
    EXPECT_EQ(calc({"0.75", "3", "1"}).l, ".188");  // .1875
}

TEST(Qljs, EmptyBoxesArePlainMessages)
{
    EXPECT_EQ(refusal({" ", "", ""}), "缓和参数A不能为空！");
    EXPECT_EQ(refusal({"100", "  ", ""}), "曲线半径R不能为空！");
}

TEST(Qljs, EachTextIsReadBeforeTheNextIsAskedFor) { EXPECT_EQ(failure({"1.2.3", "", ""}), RunTimeError::TypeMismatch); }

TEST(Qljs, EmptyL0IsNoMessageButATypeError)
{
    EXPECT_EQ(failure({"100", "200", ""}), RunTimeError::TypeMismatch);
    EXPECT_EQ(failure({"100", "200", "   "}), RunTimeError::TypeMismatch);
}

TEST(Qljs, NothingIsTrapped)
{
    EXPECT_EQ(failure({"-", "200", "50"}), RunTimeError::TypeMismatch);
    EXPECT_EQ(failure({"100", "1-2", "50"}), RunTimeError::TypeMismatch);
    EXPECT_EQ(failure({"100", "200", "1.2.3"}), RunTimeError::TypeMismatch);
    EXPECT_EQ(failure({"100", "0", "50"}), RunTimeError::DivisionByZero);
    EXPECT_EQ(failure({"1e39", "200", "50"}), RunTimeError::Overflow);
    EXPECT_EQ(failure({"1e30", "1e-30", "50"}), RunTimeError::Overflow);
}
