#include "frame/registry_store.h"

#include "support/private_settings.h"

#include <QDir>
#include <QFile>
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

TEST_F(RegistryStoreTest, WritesAValidFileInTheRedirectedFolderAndNothingElse)
{
    const QString path = RegistryStore::FilePath();
    EXPECT_EQ(path, QDir(settings_.folder()).filePath("Zunbrix.ini"));
    for (quint32 i = 0; i < 50; ++i)
        ASSERT_TRUE(RegistryStore::SetDword(kMenu, QStringLiteral("V%1").arg(i), i * 3));
    ASSERT_TRUE(RegistryStore::SetBinary(kMenu, "Blob", randomBytes(100000)));

    // Only the settings file itself: no temporary file left behind by the write.
    EXPECT_EQ(QDir(settings_.folder()).entryList(QDir::Files | QDir::Hidden), QStringList{"Zunbrix.ini"});
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
