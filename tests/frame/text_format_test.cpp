#include "frame/text_format.h"

#include <gtest/gtest.h>

using zunbrix::FormatText;

TEST(FormatText, IntegersWithWidthsAndPadding)
{
    EXPECT_EQ(FormatText("%04d-%02d-%02d %d", {2024LL, 3LL, 7LL, -12LL}), "2024-03-07 -12");
    EXPECT_EQ(FormatText("[%5d|%-5d|%x|%X|%u]", {42LL, 42LL, 255LL, 255LL, 7LL}), "[   42|42   |ff|FF|7]");
    EXPECT_EQ(FormatText("%0.5d_path", {12LL}), "00012_path");
    EXPECT_EQ(FormatText("%lld", {1LL << 40}), "1099511627776");
}

TEST(FormatText, RealsAndPercent)
{
    EXPECT_EQ(FormatText("%0.3lf MB", {1.5}), "1.500 MB");
    EXPECT_EQ(FormatText("%0.3f%%", {99.9996}), "100.000%");
    EXPECT_EQ(FormatText("100%%", {}), "100%");
}

TEST(FormatText, TextsKeepUnicodeAndHonourWidthAndPrecision)
{
    const QString name = QString::fromUtf8("魂斗罗");
    EXPECT_EQ(FormatText("%s!", {name}), name + "!");
    EXPECT_EQ(FormatText("[%5s][%-4s][%.2s]", {QString("ab"), QString("ab"), QString("abcdef")}),
              "[   ab][ab  ][ab]");
}

TEST(FormatText, MismatchedOrMissingArgumentsAreHarmless)
{
    EXPECT_EQ(FormatText("%s and %d", {5LL, QString("x")}), "5 and 0");
    EXPECT_EQ(FormatText("%d %f", {2.9, 3LL}), "2 3.000000");
    EXPECT_EQ(FormatText("%d/%s/%0.1f", {}), "0//0.0");
    EXPECT_EQ(FormatText("%d", {1LL, 2LL}), "1");
}

TEST(FormatText, NonConversionsStayAsWritten)
{
    EXPECT_EQ(FormatText("50%! off", {}), "50%! off");
    EXPECT_EQ(FormatText("ends with %", {}), "ends with %");
    EXPECT_EQ(FormatText("%q %5", {1LL}), "%q %5");
}

TEST(FormatText, HugeWidthsAreCapped)
{
    EXPECT_EQ(FormatText("%999999999999d", {1LL}).size(), 4096);
    EXPECT_EQ(FormatText("%999999999999s", {QString("a")}).size(), 4096);
}
