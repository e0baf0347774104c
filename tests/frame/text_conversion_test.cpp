#include "frame/text_conversion.h"

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(TextConversion, AnsiIsAsciiWithQuestionMarksForEverythingElse)
{
    const QByteArray toolOutput("nesasm: error \"x\"\r\n\tline 12 ~");
    EXPECT_EQ(AnsiToWide(toolOutput), QString::fromLatin1(toolOutput));
    EXPECT_EQ(AnsiToWide("caf\xE9 \x80\xFF !"), "caf? ?? !");
    EXPECT_EQ(AnsiToWide(QByteArray()), "");

    QByteArray printable;
    for (char c = ' '; c < 0x7F; ++c)
        printable += c;
    EXPECT_EQ(WideToAnsi(QString::fromLatin1(printable)), printable);
    EXPECT_EQ(WideToAnsi(QString::fromUtf8("Ünder 1/2~")), "?nder 1/2~");
    // Control characters too, so a name can't break the line it is written into.
    EXPECT_EQ(WideToAnsi(QString::fromUtf8("\t魂\x7F")), "???");
    EXPECT_EQ(WideToAnsi(QString::fromUtf8("a\r\nb")), "a??b");
    // One byte per UTF-16 unit: as long as the text that was measured.
    const QString wide = QString::fromUtf8("café 魂 😀 x");
    EXPECT_EQ(WideToAnsi(wide), "caf? ? ?? x");
    EXPECT_EQ(WideToAnsi(wide).size(), wide.size());
    EXPECT_EQ(WideToAnsi(QString()), "");
}

TEST(TextConversion, Utf8RoundTripsEveryCharacter)
{
    const QString text = QString::fromUtf8("Contra 魂斗罗 😀 é\r\n");
    EXPECT_EQ(WideToUtf8(text),
              QByteArray("Contra \xE9\xAD\x82\xE6\x96\x97\xE7\xBD\x97 \xF0\x9F\x98\x80 \xC3\xA9\r\n"));
    EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
}
