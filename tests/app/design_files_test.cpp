// The designer's Load and Save buttons on the offscreen platform: each file kind written into a temporary
// folder, read back byte for byte, loaded again; bad files refused by name with the design left alone.
#include "app/design_dialog_fixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

namespace zunbrix {
namespace {

namespace c = design_command;
using testing::expectTile21At10And12;

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

template <typename Bytes>
QByteArray bytesOf(const Bytes& field, std::size_t offset = 0, std::size_t size = sizeof(Bytes))
{
    return QByteArray(reinterpret_cast<const char*>(field.data()) + offset, qsizetype(size));
}

// The type of each record of a record file, in file order: 16-byte headers, the size at offset 12.
std::vector<std::uint32_t> recordTypes(const QByteArray& file)
{
    std::vector<std::uint32_t> types;
    for (qsizetype at = 0; at + 16 <= file.size();) {
        types.push_back(qFromLittleEndian<std::uint32_t>(file.constData() + at));
        EXPECT_EQ(qFromLittleEndian<std::uint32_t>(file.constData() + at + 8), 1u); // version
        at += 16 + qFromLittleEndian<std::uint32_t>(file.constData() + at + 12);
    }
    return types;
}

class DesignFilesTest : public testing::DesignDialogTest {
protected:
    // Chooses `name` in the temporary folder with file type `filter` and runs the button.
    void choose(int command, const QString& name, int filter = 1)
    {
        questions_->answer = {folder_.filePath(name), filter};
        dialog_.runCommand(command);
    }
    QString path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
};

TEST_F(DesignFilesTest, WholeMenuIsSavedAsRecordsAndLoadedBackAsOneStep)
{
    choose(c::SaveMenu, "menu");
    const QByteArray saved = readFile(path("menu.qvm"));
    std::vector<std::uint32_t> expected{27, 1, 2, 3, 9, 8, 10, 11, 14};
    expected.insert(expected.end(), document_.ArrowTileList.size(), 15);
    expected.insert(expected.end(), {4, 28, 29});
    EXPECT_EQ(recordTypes(saved), expected);
    // The background palette record: type 2, 16 bytes, right after the character map and the attributes.
    const qsizetype palette = (16 + 256) + (16 + 64);
    EXPECT_EQ(saved.mid(palette + 16, 16), bytesOf(document_.BkgPalette));

    dragTile();
    document_.BkgPalette[1] = 0x30;
    choose(c::LoadMenu, "menu.qvm");
    EXPECT_TRUE(placedTiles().empty());
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    EXPECT_TRUE(questions_->refusals.isEmpty());
    dialog_.undoButton()->click();
    EXPECT_EQ(placedTiles().size(), 1u);

    // Each dialog starts at the file last chosen; the menu's load offers the two memory images too.
    EXPECT_EQ(questions_->asked.back().startPath, path("menu"));
    EXPECT_EQ(questions_->asked.back().filters,
              (QStringList{"qvm (*.qvm)", "bin_2000 (*.bin)", "bin_2C00 (*.bin)"}));
}

TEST_F(DesignFilesTest, LoadsRememberTheTypeChosenAndPlainSavesStartAtTheFirst)
{
    // A memory image of the wrong size changes nothing, but the type chosen is kept for the next load.
    writeFile(path("ppu.bin"), QByteArray(20000, '\x11'));
    const auto attributes = document_.Attributes;
    choose(c::LoadMenu, "ppu.bin", 3);
    EXPECT_EQ(document_.Attributes, attributes);
    choose(c::LoadMenu, "ppu.bin", 3);
    EXPECT_EQ(questions_->asked.back().startFilter, 3);

    choose(c::SaveBkgChr, "tiles", 2);
    choose(c::SaveBkgChr, "tiles", 2);
    EXPECT_EQ(questions_->asked.back().startFilter, 1);
    EXPECT_EQ(readFile(path("tiles.bin")), bytesOf(document_.ChrData, 0, 4096));
}

TEST_F(DesignFilesTest, NameTablePageAndTextListSaveTheirSectionsAndLoadOnlyThose)
{
    dragTile();
    document_.CustomText.push_back(TextEntry{-1, 3, 4, QStringLiteral("HI")});
    choose(c::SaveTextList, "texts");
    choose(c::SaveNameTablePage, "page");
    EXPECT_EQ(recordTypes(readFile(path("texts.qvt"))), (std::vector<std::uint32_t>{9, 8, 6}));
    EXPECT_EQ(recordTypes(readFile(path("page.qvc"))), (std::vector<std::uint32_t>{12, 1, 9, 8, 10, 11, 14, 6}));

    // The text list brings the texts back and leaves the tiles; the page brings the tiles back.
    dialog_.runCommand(c::ResetTextList);
    choose(c::LoadTextList, "texts.qvt");
    ASSERT_EQ(document_.CustomText.size(), 1u);
    EXPECT_EQ(document_.CustomText[0].text, QStringLiteral("HI"));
    EXPECT_EQ(document_.CustomText[0].x, 3);
    expectTile21At10And12(placedTiles());
    dialog_.runCommand(c::ResetBkgTiles);
    ASSERT_TRUE(placedTiles().empty());
    choose(c::LoadNameTablePage, "page.qvc");
    expectTile21At10And12(placedTiles());
}

TEST_F(DesignFilesTest, PlainFilesHoldTheConsoleDataAndLoadBack)
{
    dragTile();
    TileEntry sprite;
    sprite.x = 100;
    sprite.y = 50;
    sprite.tile = 0x41;
    sprite.palette = 2;
    sprite.flip = TileEntry::kFlipHorizontal;
    dialog_.editor().addSprite(sprite);

    choose(c::SaveSpriteChr, "sprites", 1);
    choose(c::SaveBkgPalette, "bkg", 1);
    choose(c::SaveSpritePalette, "spr", 2);
    choose(c::SaveAttributes, "attr", 1);
    choose(c::SaveAttributes, "mmc5", 3);
    choose(c::SaveNameTable, "screen", 1);
    choose(c::SaveSprites, "oam", 1);
    choose(c::ExportCharMap, "map", 1);
    EXPECT_TRUE(questions_->refusals.isEmpty());

    EXPECT_EQ(readFile(path("sprites.chr")), bytesOf(document_.ChrData, 4096, 4096));
    EXPECT_EQ(readFile(path("bkg.pal")), bytesOf(document_.BkgPalette));
    EXPECT_EQ(readFile(path("spr.bin")), bytesOf(document_.SpritePalette));
    EXPECT_EQ(readFile(path("attr.attr")), bytesOf(document_.Attributes));
    EXPECT_EQ(readFile(path("mmc5.attr")).size(), 1024);
    EXPECT_EQ(readFile(path("map.bin")), bytesOf(document_.CharMapData));
    const QByteArray screen = readFile(path("screen.nam"));
    ASSERT_EQ(screen.size(), 960);
    EXPECT_EQ(std::uint8_t(screen[12 * 32 + 10]), 0x21);
    const QByteArray oam = readFile(path("oam.spl"));
    ASSERT_EQ(oam.size(), 256);
    // y, tile, palette with the flips in bits 7 to 5 (horizontal is bit 6), x; the other slots F8.
    EXPECT_EQ(oam.left(4), QByteArray::fromHex("32414264"));
    EXPECT_EQ(oam.mid(4), QByteArray(252, '\xF8'));

    // Changed, then each loaded back.
    document_.ChrData[4096] ^= 0xFF;
    document_.BkgPalette[1] = 0x30;
    document_.Attributes[0] ^= 0xFF;
    dialog_.runCommand(c::ResetBkgTiles);
    dialog_.runCommand(c::ResetSprites);
    choose(c::LoadSpriteChr, "sprites.chr");
    choose(c::LoadBkgPalette, "bkg.pal");
    choose(c::LoadAttributes, "attr.attr");
    choose(c::LoadNameTable, "screen.nam");
    choose(c::LoadSprites, "oam.spl");
    EXPECT_EQ(readFile(path("sprites.chr")), bytesOf(document_.ChrData, 4096, 4096));
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    EXPECT_EQ(readFile(path("attr.attr")), bytesOf(document_.Attributes));
    expectTile21At10And12(placedTiles());
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.SpriteTileList[0].x, 100);
    EXPECT_EQ(document_.SpriteTileList[0].palette, 2);
    EXPECT_TRUE(questions_->refusals.isEmpty());
}

TEST_F(DesignFilesTest, BadFilesAreRefusedByNameAndTheDesignStays)
{
    dragTile();
    // An attribute record of 100 bytes, for a field of 64.
    QByteArray record(16 + 100, '\0');
    qToLittleEndian<std::uint32_t>(1, record.data());
    qToLittleEndian<std::uint32_t>(100, record.data() + 12);
    writeFile(path("bad.qvm"), record);
    writeFile(path("empty.chr"), {});
    const auto attributes = document_.Attributes;
    const auto chr = document_.ChrData;
    const auto spritePalette = document_.SpritePalette;
    const bool couldUndo = dialog_.undoButton()->isEnabled();

    choose(c::LoadMenu, "bad.qvm");
    // A file that is empty or can't be opened is no harm to anyone: its load just does nothing.
    choose(c::LoadBkgChr, "empty.chr");
    choose(c::LoadSpritePalette, "missing.pal");
    ASSERT_EQ(questions_->refusals.size(), 1);
    EXPECT_TRUE(questions_->refusals[0].contains(QDir::toNativeSeparators(path("bad.qvm"))));
    EXPECT_TRUE(questions_->refusals[0].contains(QStringLiteral("type 1 ")));
    expectTile21At10And12(placedTiles());
    EXPECT_EQ(document_.Attributes, attributes);
    EXPECT_EQ(document_.ChrData, chr);
    EXPECT_EQ(document_.SpritePalette, spritePalette);
    dialog_.undoButton()->click();
    EXPECT_TRUE(placedTiles().empty()); // the last step is still the drag
    EXPECT_TRUE(couldUndo);

    // 65 sprites on the screen don't fit a sprite file, which is then not written.
    for (int i = 0; i < 65; ++i)
        dialog_.editor().addSprite(TileEntry{-1, i, 10, 0, 1, 0, 0, 0});
    choose(c::SaveSprites, "many");
    ASSERT_EQ(questions_->refusals.size(), 2);
    EXPECT_TRUE(questions_->refusals[1].contains(QStringLiteral("64")));
    EXPECT_FALSE(QFile::exists(path("many.spl")));
}

} // namespace
} // namespace zunbrix

namespace zunbrix {
namespace {

// The system's save dialog as a person answers it: `name` typed into it, then the question it asks, if any,
// answered by `overwrite`. Returns the path chosen and whether the dialog asked before replacing a file.
struct SaveAnswer {
    QString path;
    bool askedToReplace = false;
};

SaveAnswer typeIntoSaveDialog(const QString& folder, const QString& name, QMessageBox::StandardButton overwrite,
                              const QStringList& filters = {"qvm (*.qvm)"}, int filter = 1)
{
    SaveAnswer answer;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->selectFile(name);
        QTimer::singleShot(0, [&] {
            if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                answer.askedToReplace = true;
                question->button(overwrite)->click();
            }
        });
        QMetaObject::invokeMethod(dialog, "accept");
        if (dialog->isVisible())
            dialog->reject();
    });
    DesignDialogQuestions questions;
    answer.path = questions.chooseFileToSave(nullptr, filters, folder + QStringLiteral("/"), filter).path;
    return answer;
}

TEST(DesignSaveDialog, AsksBeforeReplacingTheFileThatGetsTheAddedExtension)
{
    testing::windowApplication();
    QTemporaryDir folder;
    QFile old(folder.filePath("menu.qvm"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.close();

    const SaveAnswer declined = typeIntoSaveDialog(folder.path(), "menu", QMessageBox::No);
    EXPECT_TRUE(declined.askedToReplace);
    EXPECT_TRUE(declined.path.isEmpty());

    const SaveAnswer accepted = typeIntoSaveDialog(folder.path(), "menu", QMessageBox::Yes);
    EXPECT_TRUE(accepted.askedToReplace);
    EXPECT_EQ(accepted.path, folder.filePath("menu.qvm"));

    // A new name is not asked about; the extension is added as the file type says.
    const SaveAnswer fresh = typeIntoSaveDialog(folder.path(), "other", QMessageBox::No);
    EXPECT_FALSE(fresh.askedToReplace);
    EXPECT_EQ(fresh.path, folder.filePath("other.qvm"));

    // The type chosen gives the extension, also where its name has parentheses of its own.
    const QStringList attributes{"attr (*.attr)", "bin (*.bin)", "attr(MMC5) (*.attr)", "bin(MMC5) (*.bin)"};
    EXPECT_EQ(typeIntoSaveDialog(folder.path(), "table", QMessageBox::No, attributes, 4).path,
              folder.filePath("table.bin"));
}

} // namespace
} // namespace zunbrix
