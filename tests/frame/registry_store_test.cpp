#include "frame/registry_store.h"

#include "support/private_settings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSettings>

#include <gtest/gtest.h>

using zunbrix::RegistryStore;

namespace {

const QString kMain = QStringLiteral("Software\\Zunbrix");
const QString kMenu = QStringLiteral("Software\\Zunbrix\\MenuV2");

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, '\0');
    QRandomGenerator generator(1234);
    for (char& b : bytes)
        b = static_cast<char>(generator.bounded(256));
    return bytes;
}

class RegistryStoreTest : public ::testing::Test {
protected:
    zunbrix::testing::PrivateSettings settings_;
};

} // namespace

TEST_F(RegistryStoreTest, EachTypeRoundTrips)
{
    ASSERT_TRUE(RegistryStore::SetDword(kMain, "Language", 40023));
    ASSERT_TRUE(RegistryStore::SetDword(kMain, "Max", 0xFFFFFFFFu));
    const QString awkward = QString::fromUtf8("魂斗罗, \"quoted\"; a=b #x @Variant(\\) \r\n\tend ");
    ASSERT_TRUE(RegistryStore::SetString(kMain, "Caption", awkward));
    ASSERT_TRUE(RegistryStore::SetString(kMain, "Empty", QString()));
    const QByteArray bytes("\0\1\2\xff,=\n", 7);
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "CustomText", bytes));

    quint32 number = 0;
    EXPECT_TRUE(RegistryStore::GetDword(kMain, "Language", number));
    EXPECT_EQ(number, 40023u);
    EXPECT_TRUE(RegistryStore::GetDword(kMain, "Max", number));
    EXPECT_EQ(number, 0xFFFFFFFFu);
    QString text = "unchanged";
    EXPECT_TRUE(RegistryStore::GetString(kMain, "Caption", text));
    EXPECT_EQ(text, awkward);
    EXPECT_TRUE(RegistryStore::GetString(kMain, "Empty", text));
    EXPECT_EQ(text, QString());
    QByteArray data;
    EXPECT_TRUE(RegistryStore::GetBinary(kMenu, "CustomText", data));
    EXPECT_EQ(data, bytes);

    quint32 size = 0;
    EXPECT_TRUE(RegistryStore::GetSize(kMain, "Max", size));
    EXPECT_EQ(size, 4u);
    EXPECT_TRUE(RegistryStore::GetSize(kMenu, "CustomText", size));
    EXPECT_EQ(size, 7u);
    EXPECT_FALSE(RegistryStore::GetSize(kMain, "Missing", size));
    EXPECT_EQ(size, 7u);
}

TEST_F(RegistryStoreTest, WrongTypeOrMissingValueReadsAsAbsentAndLeavesOutUntouched)
{
    ASSERT_TRUE(RegistryStore::SetString(kMain, "Text", "12"));
    ASSERT_TRUE(RegistryStore::SetDword(kMain, "Number", 12));
    ASSERT_TRUE(RegistryStore::SetBinary(kMain, "Bytes", QByteArray(4, '\1')));

    quint32 number = 77;
    EXPECT_FALSE(RegistryStore::GetDword(kMain, "Text", number));
    EXPECT_FALSE(RegistryStore::GetDword(kMain, "Bytes", number));
    EXPECT_FALSE(RegistryStore::GetDword(kMain, "Missing", number));
    EXPECT_FALSE(RegistryStore::GetDword(kMenu, "Number", number)); // same name, other key
    EXPECT_EQ(number, 77u);
    QString text = "kept";
    EXPECT_FALSE(RegistryStore::GetString(kMain, "Number", text));
    EXPECT_FALSE(RegistryStore::GetString(kMain, "Bytes", text));
    EXPECT_EQ(text, "kept");
    QByteArray data("kept");
    EXPECT_FALSE(RegistryStore::GetBinary(kMain, "Text", data));
    EXPECT_EQ(data, "kept");
}

TEST_F(RegistryStoreTest, ValuesOfSeveralMegabytesRoundTrip)
{
    const QByteArray big = randomBytes(3 * 1024 * 1024 + 17);
    const QString longText(1024 * 1024, QChar(0x4E2D));
    ASSERT_TRUE(RegistryStore::SetBinary("Software\\Zunbrix\\History", "Data", big));
    ASSERT_TRUE(RegistryStore::SetString(kMain, "Long", longText));

    QByteArray data;
    EXPECT_TRUE(RegistryStore::GetBinary("Software\\Zunbrix\\History", "Data", data));
    EXPECT_EQ(data, big);
    QString text;
    EXPECT_TRUE(RegistryStore::GetString(kMain, "Long", text));
    EXPECT_EQ(text, longText);
    quint32 size = 0;
    EXPECT_TRUE(RegistryStore::GetSize(kMain, "Long", size));
    EXPECT_EQ(size, (1024u * 1024u + 1u) * 2u);
    EXPECT_TRUE(RegistryStore::GetSize("Software\\Zunbrix\\History", "Data", size));
    EXPECT_EQ(size, static_cast<quint32>(big.size()));
}

// Large bytes are kept out of the INI file, so that writing a small value stays cheap; whatever replaces or
// deletes them must take their file along.
TEST_F(RegistryStoreTest, LargeBytesLiveBesideTheIniFileAndLeaveWithTheirValue)
{
    const QDir side(settings_.folder() + "/Zunbrix.values");
    const auto sideFiles = [&] { return side.entryList(QDir::Files | QDir::Hidden); };
    const QByteArray first = randomBytes(2 * 1024 * 1024);
    const QByteArray second = first.right(64 * 1024);
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "HistoryDataList", first));
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "HistoryDataList", second));
    ASSERT_TRUE(RegistryStore::SetDword(kMenu, "HistoryDataIndex", 3));
    EXPECT_LT(QFileInfo(RegistryStore::FilePath()).size(), 1024);
    EXPECT_EQ(sideFiles().size(), 1);
    QByteArray data;
    EXPECT_TRUE(RegistryStore::GetBinary(kMenu, "HistoryDataList", data));
    EXPECT_EQ(data, second);

    // Replaced by small bytes, by another type, or deleted: no file stays behind.
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "HistoryDataList", "small"));
    EXPECT_TRUE(sideFiles().isEmpty());
    EXPECT_TRUE(RegistryStore::GetBinary(kMenu, "HistoryDataList", data));
    EXPECT_EQ(data, "small");
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "HistoryDataList", first));
    ASSERT_TRUE(RegistryStore::SetDword(kMenu, "HistoryDataList", 9));
    EXPECT_TRUE(sideFiles().isEmpty());
    EXPECT_FALSE(RegistryStore::GetBinary(kMenu, "HistoryDataList", data));
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "HistoryDataList", first));
    EXPECT_TRUE(RegistryStore::DeleteValue(kMenu, "HistoryDataList"));
    EXPECT_TRUE(sideFiles().isEmpty());

    // Names that look like paths or differ only in case each get their own plain file inside the folder.
    const QStringList names{"../../escape", "a/b\\c", QString::fromUtf8("名前"), "Case", "case"};
    for (int i = 0; i < names.size(); ++i)
        ASSERT_TRUE(RegistryStore::SetBinary(kMain + "\\..", names[i], first.mid(i, 100000)));
    EXPECT_EQ(sideFiles().size(), names.size());
    EXPECT_EQ(QDir(settings_.folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
              (QStringList{"Zunbrix.ini", "Zunbrix.values"}));
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_TRUE(RegistryStore::GetBinary(kMain + "\\..", names[i], data));
        EXPECT_EQ(data, first.mid(i, 100000)) << names[i].toStdString();
    }
}

TEST_F(RegistryStoreTest, ABrokenOrForeignFileReferenceReadsAsAbsent)
{
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "Lost", randomBytes(100000)));
    for (const QString& file : QDir(settings_.folder() + "/Zunbrix.values").entryList(QDir::Files))
        ASSERT_TRUE(QFile::remove(settings_.folder() + "/Zunbrix.values/" + file));
    QByteArray data("kept");
    EXPECT_FALSE(RegistryStore::GetBinary(kMenu, "Lost", data));
    EXPECT_EQ(data, "kept");

    // An entry edited by hand to point at another file is neither read nor removed with the value.
    {
        QSettings editor(RegistryStore::FilePath(), QSettings::IniFormat);
        editor.setValue("Software/Zunbrix/MenuV2/Foreign", "binary-file:../Zunbrix.ini");
    }
    EXPECT_FALSE(RegistryStore::GetBinary(kMenu, "Foreign", data));
    EXPECT_TRUE(RegistryStore::DeleteValue(kMenu, "Foreign"));
    EXPECT_TRUE(QFileInfo::exists(RegistryStore::FilePath()));
}

TEST_F(RegistryStoreTest, OverwriteAndDelete)
{
    ASSERT_TRUE(RegistryStore::SetDword(kMain, "Value", 1));
    ASSERT_TRUE(RegistryStore::SetString(kMain, "Value", "now text"));
    quint32 number = 0;
    EXPECT_FALSE(RegistryStore::GetDword(kMain, "Value", number));
    EXPECT_TRUE(RegistryStore::DeleteValue(kMain, "Value"));
    QString text;
    EXPECT_FALSE(RegistryStore::GetString(kMain, "Value", text));
    EXPECT_FALSE(RegistryStore::DeleteValue(kMain, "Value"));
    EXPECT_TRUE(RegistryStore::CreateKey("Software\\Zunbrix\\Coolboy"));
}

TEST_F(RegistryStoreTest, AnUnchangedValueLeavesTheFileAlone)
{
    const QDateTime longAgo(QDate(2001, 2, 3), QTime(4, 5, 6));
    const auto setFileTime = [&](const QDateTime& time) {
        QFile file(RegistryStore::FilePath());
        return file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime);
    };
    const auto fileTime = [] { return QFileInfo(RegistryStore::FilePath()).lastModified(); };
    ASSERT_TRUE(RegistryStore::SetString(kMain, "LastBuildDir", "/roms"));
    ASSERT_TRUE(setFileTime(longAgo));
    EXPECT_TRUE(RegistryStore::SetString(kMain, "LastBuildDir", "/roms"));
    EXPECT_EQ(fileTime(), longAgo);
    EXPECT_TRUE(RegistryStore::SetString(kMain, "LastBuildDir", "/more roms"));
    EXPECT_NE(fileTime(), longAgo);
    QString text;
    EXPECT_TRUE(RegistryStore::GetString(kMain, "LastBuildDir", text));
    EXPECT_EQ(text, "/more roms");
}

TEST_F(RegistryStoreTest, WritesAValidFileInTheRedirectedFolderAndNothingElse)
{
    const QString path = RegistryStore::FilePath();
    EXPECT_EQ(path, QDir(settings_.folder()).filePath("Zunbrix.ini"));
    for (quint32 i = 0; i < 50; ++i)
        ASSERT_TRUE(RegistryStore::SetDword(kMenu, QStringLiteral("V%1").arg(i), i * 3));
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "Blob", randomBytes(100000)));

    // Only the settings file itself: no temporary file left behind by the write.
    EXPECT_EQ(QDir(settings_.folder()).entryList(QDir::Files | QDir::Hidden), QStringList{"Zunbrix.ini"});
    EXPECT_EQ(QDir(settings_.folder() + "/Zunbrix.values").entryList(QDir::Files | QDir::Hidden).size(), 1);
    // Read back from disk as a plain INI file, apart from the store's own cache.
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("V49=dword:147"));
    const QSettings reader(path, QSettings::IniFormat);
    EXPECT_EQ(reader.status(), QSettings::NoError);
    EXPECT_EQ(reader.value("Software/Zunbrix/MenuV2/V7").toString(), "dword:21");
}

TEST(RegistryStore, FailsWhenTheFolderCannotBeMade)
{
    zunbrix::testing::PrivateSettings settings;
    QFile blocker(QDir(settings.folder()).filePath("file"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    qputenv("ZUNBRIX_CONFIG_DIR", (blocker.fileName() + "/sub").toLocal8Bit());
    EXPECT_FALSE(RegistryStore::SetDword(kMain, "X", 1));
    EXPECT_FALSE(RegistryStore::CreateKey(kMain));
    quint32 number = 5;
    EXPECT_FALSE(RegistryStore::GetDword(kMain, "X", number));
    EXPECT_EQ(number, 5u);
}
