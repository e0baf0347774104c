#include "menu_fixture.h"

#include "support/private_settings.h"

#include <gtest/gtest.h>

#include <QFileInfo>

#include <array>

namespace zunbrix::testing {
namespace {

constexpr int kBank = 8192;

struct AssemblyCase {
    int board;
    int prgSize;
    int style;
    int pageSize;
    bool custom;
    bool bigCursor;
    bool nameInsertRow;
    int games;
    bool finalData = true;
    int music = 0;
    bool pageNumber = true;
    bool bigSprite = false;
};

// Where the banks of the generated data land, by menu size: 8 KB bank numbers within the image.
struct BankPlace {
    int prgSize;
    int gameDataBank;
    int gameNameBank;
};
constexpr std::array<BankPlace, 3> kBankPlaces = {{{8, 3, 7}, {16, 3, 11}, {32, 3, 24}}};

std::string caseName(const AssemblyCase& c)
{
    static const char* const boards[] = {"Coolboy", "Mindkids", "Coolgirl"};
    return std::string(boards[c.board]) + "_Prg" + std::to_string(c.prgSize) + "_Style" + std::to_string(c.style) +
           "_Page" + std::to_string(c.pageSize) + (c.custom ? "_Custom" : "_BuiltIn") +
           (c.bigCursor ? "_BigCursor" : "_SmallCursor") + (c.nameInsertRow ? "_Spaced" : "_Dense") + "_Games" +
           std::to_string(c.games) + (c.finalData ? "" : "_Plain") + "_Music" + std::to_string(c.music) +
           (c.pageNumber ? "_PageNumber" : "") + (c.bigSprite ? "_TallSprites" : "");
}

// Each axis takes each of its values; the full product of board, size and list length (where bank counts and
// overlaps matter) comes first, then every look with the other axes rotating through their values.
std::vector<AssemblyCase> assemblyCases()
{
    std::vector<AssemblyCase> cases;
    const int sizes[] = {8, 16, 32};
    for (int board = 0; board < 3; ++board) {
        for (int size : sizes) {
            for (int games : {1, 10, 11, 2048}) {
                const int index = static_cast<int>(cases.size());
                cases.push_back({board, size, 0, 10, index % 2 == 1, index % 3 == 0, index % 5 == 0, games});
            }
        }
    }
    const std::pair<int, int> looks[] = {{0, 5}, {0, 10}, {0, 15}, {0, 20}, {1, 5}, {1, 10}, {1, 15}, {1, 20}};
    int turn = 0;
    for (auto [style, page] : looks) {
        for (int variant = 0; variant < 8; ++variant, ++turn) {
            const int games[] = {1, page, page + 1, 2048};
            AssemblyCase c{turn % 3, sizes[(turn / 3) % 3], style, page, (variant & 1) != 0, (variant & 2) != 0,
                           (variant & 4) != 0, games[turn % 4]};
            c.pageNumber = turn % 4 != 1;
            c.bigSprite = turn % 5 == 2;
            cases.push_back(c);
        }
    }
    // The plain board code, the sound effects, and the largest list on the smallest menu with each board.
    cases.push_back({0, 16, 0, 10, false, false, false, 300, false});
    cases.push_back({2, 16, 0, 10, false, false, false, 300, false});
    cases.push_back({1, 8, 1, 20, true, true, false, 45, true, 1});
    cases.push_back({0, 32, 0, 20, false, false, false, 2048, true, 1});
    return cases;
}

QByteArray bank(const QByteArray& rom, int number)
{
    return rom.mid(16 + number * kBank, kBank);
}

int word(const QByteArray& bytes, int offset)
{
    return static_cast<std::uint8_t>(bytes[offset]) | static_cast<std::uint8_t>(bytes[offset + 1]) << 8;
}

void PrintTo(const AssemblyCase& c, std::ostream* os)
{
    *os << caseName(c);
}

class MenuAssembly : public ::testing::TestWithParam<AssemblyCase> {};

TEST_P(MenuAssembly, AssemblesIntoTheMenuImage)
{
    const AssemblyCase& c = GetParam();
    MenuSetup setup;
    setup.board = c.board;
    setup.prgSize = c.prgSize;
    setup.style = c.style;
    setup.pageSize = c.pageSize;
    setup.custom = c.custom;
    setup.bigCursor = c.bigCursor;
    setup.nameInsertRow = c.nameInsertRow;
    setup.finalData = c.finalData;
    setup.music = c.music;
    setup.showPageNumber = c.pageNumber;
    setup.bigSprite = c.bigSprite;
    setup.names = numberedNames(c.games);
    setup.nameTable = QByteArray(960, '\x2E');
    MenuWorkFolder work(setup);
    ASSERT_TRUE(work.ready());

    const auto result = work.assemble();
    ASSERT_EQ(result.exitCode, 0) << result.output.toStdString();
    const QByteArray& rom = result.rom;
    ASSERT_EQ(rom.size(), 16 + c.prgSize * 16384);
    EXPECT_EQ(rom.left(4), QByteArray("NES\x1A"));
    EXPECT_EQ(rom[4], c.prgSize);
    EXPECT_EQ(rom[5], 0);
    EXPECT_EQ(static_cast<std::uint8_t>(rom[6]), 0x41); // mapper 4, vertical in the header
    EXPECT_EQ(rom[7] & 0xF0, 0);

    const int banks = c.prgSize * 2;
    const BankPlace place = *std::find_if(kBankPlaces.begin(), kBankPlaces.end(),
                                          [&](const BankPlace& p) { return p.prgSize == c.prgSize; });
    const QByteArray top = bank(rom, banks - 1);
    // Vectors into the fixed code at $FE00
    for (int vector = 0; vector < 3; ++vector) {
        EXPECT_GE(word(top, 0x1FFA + vector * 2), 0xFE00);
    }
    // Name index at $A800 of the top bank, names from the name bank on
    const QByteArray names = bank(rom, place.gameNameBank);
    EXPECT_EQ(top[0x0800], 0);
    EXPECT_EQ(word(names, 0), 0);
    const int firstName = word(names, 2) - 0xA000;
    EXPECT_EQ(names.mid(firstName, 10), QByteArray("\x09GAME 0000"));
    const int lastNameBank = top[0x0800 + c.games - 1];
    const QByteArray lastNames = bank(rom, place.gameNameBank + lastNameBank);
    const int lastFirst = word(lastNames, 0);
    const int lastName = word(lastNames, 2 + (c.games - 1 - lastFirst) * 2) - 0xA000;
    EXPECT_EQ(lastNames.mid(lastName + 1, 9), setup.names.back().toLatin1());

    // Records at $A000 of the data banks, their index at $A000 of the top bank
    const QByteArray data = bank(rom, place.gameDataBank);
    EXPECT_EQ(word(data, 0), 0);
    if (c.finalData) {
        const auto record = finalRecordBytes(c.board, 0);
        EXPECT_EQ(data.mid(word(data, 2) - 0xA000, static_cast<int>(record.size())),
                  QByteArray(reinterpret_cast<const char*>(record.data()), static_cast<int>(record.size())));
    }
    EXPECT_EQ(top[c.games - 1], (c.games - 1) / (8190 / (c.finalData ? (c.board == 2 ? 14 : 12) : 10)));

    // Stored name table, patterns, the program from $8800 with its lower 2 KB empty
    EXPECT_EQ(top.mid(0x1000, 960), setup.nameTable);
    const QByteArray program = bank(rom, 0x3D & (banks - 1));
    EXPECT_EQ(program.left(0x800), QByteArray(0x800, '\xFF'));
    EXPECT_NE(program.mid(0x800, 16), QByteArray(16, '\xFF'));
    EXPECT_NE(bank(rom, 0x3C & (banks - 1)), QByteArray(kBank, '\0'));
    // No music set: its banks stay empty
    for (int number : {0, 1, 2, 0x3E & (banks - 1)}) {
        EXPECT_EQ(bank(rom, number), QByteArray(kBank, '\xFF')) << "bank " << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Matrix, MenuAssembly, ::testing::ValuesIn(assemblyCases()),
                         [](const ::testing::TestParamInfo<AssemblyCase>& info) {
                             return "Case" + std::to_string(info.index) + "_" + caseName(info.param);
                         });

TEST(MenuAssemblyRefusal, MusicSetsThatAreNotShippedAndSizesWithoutBankTableFail)
{
    for (int music : {2, 3, 4, 5}) {
        MenuSetup setup;
        setup.music = music;
        setup.names = numberedNames(12);
        MenuWorkFolder work(setup);
        ASSERT_TRUE(work.ready());
        const auto result = work.assemble();
        EXPECT_NE(result.exitCode, 0) << "music " << music;
        EXPECT_FALSE(QFileInfo::exists(work.menuFolder() + "/menu.nes")) << "music " << music;
    }
    for (int size : {64, 128}) {
        MenuSetup setup;
        setup.prgSize = size;
        setup.names = numberedNames(12);
        MenuWorkFolder work(setup);
        ASSERT_TRUE(work.ready());
        EXPECT_NE(work.assemble().exitCode, 0) << "size " << size;
    }
}

// The build's own generators and the designer's export of the factory design feed the same sources.
TEST(MenuWithGenerators, AssemblesWithTheBuildsOwnFiles)
{
    for (int board : {0, 2}) {
        for (bool custom : {false, true}) {
            PrivateSettings settings;
            MenuSetup setup;
            setup.board = board;
            setup.prgSize = 16;
            setup.custom = custom;
            setup.pageSize = 20;
            setup.names = numberedNames(700);
            MenuWorkFolder work(setup, GeneratedBy::Generators);
            ASSERT_TRUE(work.ready());
            const auto result = work.assemble();
            ASSERT_EQ(result.exitCode, 0) << result.output.toStdString();
            ASSERT_EQ(result.rom.size(), 16 + 16 * 16384);
            const QByteArray names = bank(result.rom, 11);
            EXPECT_EQ(names.mid(word(names, 2) - 0xA000, 10), QByteArray("\x09GAME 0000"));
            const QByteArray data = bank(result.rom, 3);
            const auto record = finalRecordBytes(board, 0);
            EXPECT_EQ(data.mid(word(data, 2) - 0xA000, static_cast<int>(record.size())),
                      QByteArray(reinterpret_cast<const char*>(record.data()), static_cast<int>(record.size())));
        }
    }
}

} // namespace
} // namespace zunbrix::testing
