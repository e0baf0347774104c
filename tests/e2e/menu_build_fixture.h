#pragma once

// A test that builds menus with the real program and starts them in FCEUX: private settings, a temporary
// folder for the games, the ROM and the runs, and a list file of small games under the names given.
#include "e2e/fceux_runner.h"
#include "gamelist/list_file.h"
#include "multicart/synthetic_rom.h"
#include "support/private_settings.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zunbrix::e2e {

class MenuBuildTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
        ASSERT_TRUE(folder.isValid());
    }

    QString path(const QString& name) const { return folder.filePath(name); }

    // Writes one small game for each name and the list file `listName` that holds them all, checked, under
    // these names. False when the list file could not be written.
    bool writeNamedGames(const QString& listName, const QStringList& names) const
    {
        std::vector<GameEntry> list;
        for (int i = 0; i < names.size(); ++i) {
            list.emplace_back(zunbrix::testing::writeRom(path(QStringLiteral("game%1.nes").arg(i)),
                                                         {.mapper = 0, .prgBanks = 1, .chrBanks = 1,
                                                          .seed = static_cast<std::uint32_t>(i + 1)}));
            list.back().name = names[i];
            list.back().checked = true;
        }
        return SaveListFile(path(listName), list).has_value();
    }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
};

} // namespace zunbrix::e2e
