#include "frame/text_conversion.h"

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(TextConversion, AnsiIsAsciiWithQuestionMarksForEverythingElse)
{
    const QByteArray ascii("nesasm: error \"x\"\r\n\tline 12 ~");
    EXPECT_EQ(AnsiToWide(ascii), QString::fromLatin1(ascii));
    EXPECT_EQ(WideToAnsi(QString::fromLatin1(ascii)), ascii);
    EXPECT_EQ(AnsiToWide("caf\xE9 \x80\xFF !"), "caf? ?? !");
    EXPECT_EQ(WideToAnsi(QString::fromUtf8("café 魂 😀!")), "caf? ? ?!");
    EXPECT_EQ(AnsiToWide(QByteArray()), "");
}

TEST(TextConversion, Utf8RoundTripsEveryCharacter)
{
    const QString text = QString::fromUtf8("Contra 魂斗罗 😀 é\r\n");
    EXPECT_EQ(WideToUtf8(text),
              QByteArray("Contra \xE9\xAD\x82\xE6\x96\x97\xE7\xBD\x97 \xF0\x9F\x98\x80 \xC3\xA9\r\n"));
    EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
}
