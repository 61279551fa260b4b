// The number and text helpers, by the cases the program meets.
#include "basic/basic.h"

#include <gtest/gtest.h>

namespace veldor::basic {
namespace {

struct ValCase {
    const char* text;
    double value;
};

class ValText : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValText, ReadsTheLeadingNumber) {
    EXPECT_DOUBLE_EQ(Val(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, ValText,
                         ::testing::Values(ValCase{"12abc", 12}, ValCase{"  1 2", 12},
                                           ValCase{"", 0}, ValCase{"abc", 0}, ValCase{"-", 0},
                                           ValCase{".5", 0.5}, ValCase{"-3.25x", -3.25},
                                           ValCase{"1e3", 1000}, ValCase{"1e", 1},
                                           ValCase{"2.5.1", 2.5}, ValCase{"14,250", 14},
                                           ValCase{"&H1F", 31}, ValCase{"&O17", 15},
                                           ValCase{"145.575f", 145.575}, ValCase{"1e999", 0}));

struct RoundCase {
    double x;
    int32_t rounded;
};

class HalfToEven : public ::testing::TestWithParam<RoundCase> {};

TEST_P(HalfToEven, RoundsToTheNearestEven) {
    EXPECT_EQ(CLng(GetParam().x), GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(Values, HalfToEven,
                         ::testing::Values(RoundCase{2.5, 2}, RoundCase{3.5, 4},
                                           RoundCase{-2.5, -2}, RoundCase{-3.5, -4},
                                           RoundCase{0.5, 0}, RoundCase{1.5, 2},
                                           RoundCase{2.4999, 2}, RoundCase{2.5001, 3},
                                           RoundCase{1425000.5, 1425000}));

TEST(Conversions, SaturateInsteadOfOverflowing) {
    EXPECT_EQ(CLng(1e12), std::numeric_limits<int32_t>::max());
    EXPECT_EQ(CLng(-1e12), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(CInt(40000.0), 32767);
    EXPECT_EQ(CLng(std::nan("")), 0);
}

TEST(Conversions, IntIsTheFloor) {
    EXPECT_EQ(Int(2.9), 2);
    EXPECT_EQ(Int(-2.1), -3);
}

struct FormatCase {
    double value;
    const char* pattern;
    const char* point;
    const char* comma;
};

class Patterns : public ::testing::TestWithParam<FormatCase> {
  protected:
    void TearDown() override { SetDecimalMark('.'); }
};

TEST_P(Patterns, FormatWithTheSystemsDecimalMark) {
    const FormatCase& t = GetParam();
    SetDecimalMark('.');
    EXPECT_EQ(Format(t.value, t.pattern), t.point);
    SetDecimalMark(',');
    EXPECT_EQ(Format(t.value, t.pattern), t.comma);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Patterns,
    ::testing::Values(FormatCase{1.1, "#.0", "1.1", "1,1"}, FormatCase{7, "000", "007", "007"},
                      FormatCase{5, "00", "05", "05"}, FormatCase{123, "00", "123", "123"},
                      FormatCase{1425000, "00000000", "01425000", "01425000"},
                      FormatCase{145.575, "###.00000", "145.57500", "145,57500"},
                      FormatCase{0.6, "###.00000", ".60000", ",60000"},
                      FormatCase{0.6, "##0.00000", "0.60000", "0,60000"},
                      FormatCase{2.5, "0", "3", "3"}, FormatCase{0.125, "#.00", ".13", ",13"},
                      FormatCase{-1.25, "0.0", "-1.3", "-1,3"}, FormatCase{0.04, "#.0", ".0", ",0"},
                      FormatCase{3.5, "#.##", "3.5", "3,5"}));

struct NumericCase {
    const char* text;
    bool point;
    bool comma;
};

class Numeric : public ::testing::TestWithParam<NumericCase> {
  protected:
    void TearDown() override { SetDecimalMark('.'); }
};

TEST_P(Numeric, FollowsTheLocale) {
    SetDecimalMark('.');
    EXPECT_EQ(IsNumeric(GetParam().text), GetParam().point) << GetParam().text;
    SetDecimalMark(',');
    EXPECT_EQ(IsNumeric(GetParam().text), GetParam().comma) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Numeric,
    ::testing::Values(NumericCase{"14.250", true, false}, NumericCase{"14,250", false, true},
                      NumericCase{" 7 ", true, true}, NumericCase{"", false, false},
                      NumericCase{".", false, false}, NumericCase{"-5", true, true},
                      NumericCase{"1e5", true, true}, NumericCase{"1e", false, false},
                      NumericCase{"&H1F", true, true}, NumericCase{"145.575f", false, false}));

}  // namespace
}  // namespace veldor::basic
