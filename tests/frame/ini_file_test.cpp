#include "frame/ini_file.h"
#include "frame/paths.h"

#include <QFile>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

#include <gtest/gtest.h>

using zunbrix::IniFile;

namespace {

IniFile parsed(const QByteArray& data)
{
    IniFile ini("unused.ini", true);
    ini.Parse(data);
    return ini;
}

QByteArray utf16WithMark(const QString& text)
{
    QByteArray data("\xFF\xFE");
    for (QChar c : text) {
        data += static_cast<char>(c.unicode() & 0xFF);
        data += static_cast<char>(c.unicode() >> 8);
    }
    return data;
}

} // namespace

TEST(IniFile, ParsesLinesAndWritesThemSorted)
{
    const IniFile ini = parsed("orphan=dropped\r\n"
                               "[zeta]\n"
                               "b=2\r\n\r\n\n"
                               "#comment=gone\r"
                               "a=x=y\n"
                               "novalue\n"
                               "[alpha] \n"
                               "=empty key\n"
                               "[]\n"
                               "lost=1\n"
                               "[alpha]\n"
                               "k=v");
    EXPECT_EQ(ini.ToText(), "[alpha]\r\nk=v\r\n"
                            "[zeta]\r\n=empty key\r\n[alpha] =\r\na=x=y\r\nb=2\r\nnovalue=");
    EXPECT_EQ(ini.GetString("zeta", "a", "-"), "x=y");
    EXPECT_EQ(ini.GetString("zeta", "#comment", "-"), "-");
    EXPECT_EQ(ini.GetString("", "orphan", "-"), "-");
}

TEST(IniFile, ByteOrderMarksChooseTheEncoding)
{
    const QString name = QString::fromUtf8("魂斗罗 😀");
    EXPECT_EQ(parsed(utf16WithMark("[s]\r\nname=" + name)).GetString("s", "name", ""), name);
    EXPECT_EQ(parsed("\xEF\xBB\xBF[s]\nname=" + name.toUtf8()).GetString("s", "name", ""), name);
    EXPECT_EQ(parsed("[s]\nname=" + name.toUtf8()).GetString("s", "name", ""), name);
    EXPECT_EQ(parsed("\xEF\xBB\xBF").ToText(), "");
    EXPECT_EQ(parsed("\xFF\xFE").ToText(), "");
    EXPECT_EQ(parsed("").ToText(), "");
}

TEST(IniFile, SortsByUtf16UnitsNotByCodePoint)
{
    IniFile ini("unused.ini", true);
    for (const QString& key : {QString::fromUtf8("\xEE\x80\x80"), QString::fromUtf8("😀"), QString("b"), QString("B"),
                               QString("a10"), QString("a9")})
        ini.SetString("s", key, "");
    // U+1F600 is stored as D83D DE00, below U+E000.
    EXPECT_EQ(ini.ToText(), QString::fromUtf8("[s]\r\nB=\r\na10=\r\na9=\r\nb=\r\n😀=\r\n\xEE\x80\x80="));
}

TEST(IniFile, EmptySectionsKeepTheirHeading)
{
    IniFile ini("unused.ini", true);
    ini.SetString("b", "k", "v");
    ini.SetString("a", "k", "v");
    ASSERT_TRUE(ini.Remove("a", "k"));
    EXPECT_EQ(ini.ToText(), "[a]\r\n\r\n[b]\r\nk=v");
    ini.SetString("c", "k", "v");
    ASSERT_TRUE(ini.Remove("c", "k"));
    EXPECT_EQ(ini.ToText(), "[a]\r\n\r\n[b]\r\nk=v\r\n[c]\r\n");
}

TEST(IniFile, Integers)
{
    IniFile ini("unused.ini", true);
    ini.SetInt("n", "neg", -2147483647 - 1);
    ini.SetInt("n", "pos", 20000);
    ini.SetString("n", "mixed", " \t+12abc");
    ini.SetString("n", "word", "abc");
    ini.SetString("n", "huge", "99999999999");
    ini.SetString("n", "tiny", "-99999999999");
    EXPECT_EQ(ini.GetString("n", "neg", ""), "-2147483648");
    EXPECT_EQ(ini.GetInt("n", "neg", 0), -2147483647 - 1);
    EXPECT_EQ(ini.GetInt("n", "pos", 0), 20000);
    EXPECT_EQ(ini.GetInt("n", "mixed", 5), 12);
    EXPECT_EQ(ini.GetInt("n", "word", 5), 0);
    EXPECT_EQ(ini.GetInt("n", "huge", 5), 2147483647);
    EXPECT_EQ(ini.GetInt("n", "tiny", 5), -2147483647 - 1);
    EXPECT_EQ(ini.GetInt("n", "missing", 5), 5);
    EXPECT_EQ(ini.GetInt("other", "pos", -1), -1);
}

TEST(IniFile, Remove)
{
    IniFile ini("unused.ini", true);
    ini.SetString("history", "count", "2");
    ini.SetString("history", "00000_name", "x");
    ini.SetString("list_view", "w", "1");
    EXPECT_FALSE(ini.Remove("missing", ""));
    EXPECT_FALSE(ini.Remove("history", "missing"));
    EXPECT_TRUE(ini.Remove("history", "count"));
    EXPECT_EQ(ini.GetString("history", "count", "-"), "-");
    EXPECT_TRUE(ini.Remove("history", ""));
    EXPECT_EQ(ini.ToText(), "[list_view]\r\nw=1");
}

TEST(IniFile, SaveAndLoadARealFile)
{
    QTemporaryDir temp;
    const QString path = temp.path() + QString::fromUtf8("\\列表.qvl");
    IniFile out(path, true);
    out.SetString("history", "00000_name", QString::fromUtf8("魂斗罗"));
    out.SetInt("history", "count", 1);
    ASSERT_TRUE(out.Save());

    QFile file(zunbrix::WithForwardSlashes(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
              "\xEF\xBB\xBF[history]\r\n00000_name=" + QString::fromUtf8("魂斗罗").toUtf8() + "\r\ncount=1");

    IniFile in(path, true);
    in.SetString("stale", "k", "v");
    ASSERT_TRUE(in.Load());
    EXPECT_EQ(in.ToText(), out.ToText());

    EXPECT_FALSE(IniFile(temp.path() + "/missing.qvl", true).Load());
    EXPECT_FALSE(IniFile(temp.path(), true).Load()) << "a folder is not a list";
#ifdef Q_OS_UNIX
    // No writer ever comes: a reader that opened it would wait for ever.
    const QString fifo = temp.filePath("pipe.qvl");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    EXPECT_FALSE(IniFile(fifo, true).Load());
#endif
    EXPECT_FALSE(IniFile(temp.path() + "/no/such/folder/x.qvl", true).Save());
}

TEST(IniFile, DefaultPathsLieBesideTheProgram)
{
    EXPECT_EQ(IniFile().Path(), zunbrix::ExeFolder() + "/frame_tests.ini");
    EXPECT_EQ(IniFile("lists\\a.qvl", false).Path(), zunbrix::ExeFolder() + "/lists/a.qvl");
}
