#include "menu/art/menu_chr.h"

#include <QByteArray>
#include <QFile>

#include <gtest/gtest.h>
#include <zlib.h>

#include <set>

using namespace zunbrix;

namespace {

constexpr int kTileBytes = 16;
constexpr int kTableBytes = 4096;

QByteArray tileOf(int table, int tile)
{
    const auto chr = MenuChr();
    return QByteArray(reinterpret_cast<const char*>(chr.data()) + table * kTableBytes + tile * kTileBytes, kTileBytes);
}

bool blank(const QByteArray& tile)
{
    return tile == QByteArray(kTileBytes, '\0');
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The pixel rows of a PNG: its IDAT chunks joined and inflated.
QByteArray pngPixels(const QByteArray& png)
{
    QByteArray packed;
    for (qsizetype at = 8; at + 12 <= png.size();) {
        const quint32 length = (quint32(quint8(png[at])) << 24) | (quint32(quint8(png[at + 1])) << 16)
                             | (quint32(quint8(png[at + 2])) << 8) | quint32(quint8(png[at + 3]));
        if (png.mid(at + 4, 4) == "IDAT")
            packed += png.mid(at + 8, length);
        at += 12 + length;
    }
    QByteArray pixels(8 << 20, '\0');
    uLongf size = static_cast<uLongf>(pixels.size());
    if (uncompress(reinterpret_cast<Bytef*>(pixels.data()), &size, reinterpret_cast<const Bytef*>(packed.constData()),
                   static_cast<uLong>(packed.size())) != Z_OK)
        return {};
    pixels.resize(static_cast<qsizetype>(size));
    return pixels;
}

} // namespace

TEST(MenuChr, BothTablesHoldTheFontAtItsCharacterCodes)
{
    std::set<QByteArray> glyphs;
    for (int code = 0; code < 256; ++code) {
        const QByteArray background = tileOf(0, code);
        if (code > 0x20 && code <= 0x5F) {
            EXPECT_FALSE(blank(background)) << "no glyph for code " << code;
            EXPECT_TRUE(glyphs.insert(background).second) << "code " << code << " repeats another glyph";
        } else if (code < 0x1A || code > 0x5F) {
            EXPECT_TRUE(blank(background)) << "stray pixels in background tile " << code;
        }
        if (code >= 0x1A && code <= 0x5F) {
            EXPECT_EQ(tileOf(1, code), background) << "sprite tile " << code << " differs";
        }
    }
    EXPECT_TRUE(blank(tileOf(0, ' ')));
}

TEST(MenuChr, SpriteTableHoldsTheCursors)
{
    for (int tile : {0x1F, 0x1A, 2, 3, 18, 19})
        EXPECT_FALSE(blank(tileOf(1, tile))) << "cursor tile " << tile;
    EXPECT_NE(tileOf(1, 0x1F), tileOf(1, 0x1A));
}

TEST(MenuChr, BuildOutputsMatchTheCompiledTablesAndTheCommittedPreview)
{
    const auto chr = MenuChr();
    EXPECT_EQ(readFile(QStringLiteral(ZUNBRIX_BUILD_DIR "/menu_data/chr_data.bin")),
              QByteArray(reinterpret_cast<const char*>(chr.data()), static_cast<qsizetype>(chr.size())));

    const QByteArray built = pngPixels(readFile(QStringLiteral(ZUNBRIX_BUILD_DIR "/docs/chr_data.png")));
    ASSERT_FALSE(built.isEmpty());
    EXPECT_TRUE(built == pngPixels(readFile(QStringLiteral(ZUNBRIX_SOURCE_DIR "/docs/chr_data.png"))))
        << "docs/chr_data.png is out of date: copy it from the build's docs/chr_data.png";
}
