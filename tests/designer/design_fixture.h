#pragma once

#include "designer/design_editor.h"
#include "designer/document.h"

#include "support/private_settings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace zunbrix::testing {

// A designer at work on a document whose factory tiles are a synthetic pattern, with private settings and
// a folder for files.
class DesignFixture : public ::testing::Test {
protected:
    DesignFixture()
    {
        for (std::size_t i = 0; i < document_.DefaultChr.size(); ++i)
            document_.DefaultChr[i] = static_cast<std::uint8_t>(i * 7 + 3);
        document_.ChrData = document_.DefaultChr;
        editor_.beginEditing();
    }

    static TileEntry entry(std::int32_t x, std::int32_t y, std::uint8_t tile, bool selected = false)
    {
        TileEntry e;
        e.x = x;
        e.y = y;
        e.tile = tile;
        e.flags = selected ? TileEntry::kSelected : 0;
        return e;
    }

    // A tile view's row far below the view; 16 times it is 2^32, tile 0 for arithmetic that wraps round.
    static constexpr std::int32_t kFarRow = 0x10000000;
    static constexpr std::int32_t kMostX = std::numeric_limits<std::int32_t>::max();
    static constexpr std::int32_t kLeastX = std::numeric_limits<std::int32_t>::min();

    QString path(const QString& name) const { return files_.filePath(name); }

    static void writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::span<std::uint8_t, kTileBytes> tile(int bank, int number) { return document_.tile(bank, number); }
    void fillTile(int bank, int number, std::uint8_t value) { std::ranges::fill(tile(bank, number), value); }
    bool isBlank(int bank, int number)
    {
        const auto bytes = tile(bank, number);
        return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b == 0; });
    }

    PrivateSettings settings_;
    QTemporaryDir files_;
    DesignDocument document_;
    DesignEditor editor_{document_};
};

} // namespace zunbrix::testing
