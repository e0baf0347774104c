#include "frame/version_number.h"

#include <gtest/gtest.h>

using zunbrix::VersionNumber;

TEST(VersionNumber, ComparesPartsNumericallyFromTheFirst)
{
    EXPECT_GT(VersionNumber::fromText("1.0.0.10"), VersionNumber::fromText("1.0.0.9"));
    EXPECT_GT(VersionNumber::fromText("2.0.0.0"), VersionNumber::fromText("1.99.99.99"));
    EXPECT_EQ(VersionNumber::fromText("1.2.3.4"), VersionNumber(1, 2, 3, 4));
}

TEST(VersionNumber, UnreadableTextIsAllZero)
{
    EXPECT_EQ(VersionNumber::fromText("1.2.3"), VersionNumber());
    EXPECT_EQ(VersionNumber::fromText("a.b.c.d"), VersionNumber());
    EXPECT_EQ(VersionNumber::fromText(""), VersionNumber());
}
