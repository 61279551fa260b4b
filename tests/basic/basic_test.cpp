// The number and text helpers, by the cases the program meets.
#include "basic/basic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace veldor::basic {
namespace {

TEST(Val, ReadsTheLeadingNumber) {
    const std::pair<const char*, double> cases[] = {
        {"12abc", 12}, {"  1 2", 12},         {"", 0},           {"abc", 0},
        {"-", 0},      {".5", 0.5},           {"-3.25x", -3.25}, {"1e3", 1000},
        {"1e", 1},     {"2.5.1", 2.5},        {"14,250", 14},    {"&H1F", 31},
        {"&O17", 15},  {"145.575f", 145.575}, {"1e999", 0}};
    for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(Conversions, RoundHalfToEvenSaturateAndFloor) {
    const std::pair<double, int32_t> cases[] = {{2.5, 2},    {3.5, 4},    {-2.5, -2},
                                                {-3.5, -4},  {0.5, 0},    {1.5, 2},
                                                {2.4999, 2}, {2.5001, 3}, {1425000.5, 1425000}};
    for (const auto& [x, rounded] : cases) EXPECT_EQ(CLng(x), rounded) << x;
    EXPECT_EQ(CLng(1e12), std::numeric_limits<int32_t>::max());
    EXPECT_EQ(CLng(-1e12), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(CLng(std::nan("")), 0);
    EXPECT_EQ(CInt(40000.0), 32767);
    EXPECT_EQ(Int(2.9), 2);
    EXPECT_EQ(Int(-2.1), -3);
}

class WithTheSystemsMark : public ::testing::Test {
  protected:
    void TearDown() override { SetDecimalMark('.'); }
};

TEST_F(WithTheSystemsMark, PatternsFormat) {
    // The value, the pattern, and the text with a point and with a comma for the mark.
    const std::tuple<double, const char*, const char*, const char*> cases[] = {
        {1.1, "#.0", "1.1", "1,1"},
        {7, "000", "007", "007"},
        {5, "00", "05", "05"},
        {123, "00", "123", "123"},
        {1425000, "00000000", "01425000", "01425000"},
        {145.575, "###.00000", "145.57500", "145,57500"},
        {0.6, "###.00000", ".60000", ",60000"},
        {0.6, "##0.00000", "0.60000", "0,60000"},
        {2.5, "0", "3", "3"},
        {0.125, "#.00", ".13", ",13"},
        {-1.25, "0.0", "-1.3", "-1,3"},
        {0.04, "#.0", ".0", ",0"},
        {3.5, "#.##", "3.5", "3,5"}};
    for (const auto& [value, pattern, point, comma] : cases) {
        SetDecimalMark('.');
        EXPECT_EQ(Format(value, pattern), point) << pattern;
        SetDecimalMark(',');
        EXPECT_EQ(Format(value, pattern), comma) << pattern;
    }
}

TEST_F(WithTheSystemsMark, IsNumericFollowsTheLocale) {
    const std::tuple<const char*, bool, bool> cases[] = {
        {"14.250", true, false},   {"14,250", false, true}, {" 7 ", true, true},
        {"", false, false},        {".", false, false},     {"-5", true, true},
        {"1e5", true, true},       {"1e", false, false},    {"&H1F", true, true},
        {"145.575f", false, false}};
    for (const auto& [text, point, comma] : cases) {
        SetDecimalMark('.');
        EXPECT_EQ(IsNumeric(text), point) << text;
        SetDecimalMark(',');
        EXPECT_EQ(IsNumeric(text), comma) << text;
    }
}

}  // namespace
}  // namespace veldor::basic
