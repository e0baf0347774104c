#include "multicart/generation_settings.h"

#include "designer/codec.h"
#include "designer/design_settings.h"
#include "frame/registry_store.h"

namespace zunbrix {

namespace {

// The designer stores the cursor choice when it closes; each generation reads it anew, 0 when absent.
int storedBigCursor()
{
    QByteArray value;
    if (!RegistryStore::GetBinary(QString::fromLatin1(design_settings::kKey),
                                  QString::fromLatin1(design_settings::kBigCursor), value)
        || value.isEmpty())
        return 0;
    return static_cast<std::uint8_t>(value[0]);
}

} // namespace

int nameColumnFor(const BuildOptions& options, const DesignDocument& design)
{
    constexpr int kBuiltInNameColumn = 6;
    return options.customEnable ? PpuColumn(design.ItemPpuAddr) : kBuiltInNameColumn;
}

ListLook listLookFor(const BuildOptions& options, const DesignDocument& design)
{
    return {options.showStyle, options.pageSize, options.nameInsertRow, options.customEnable, design.ItemPpuAddr};
}

GameConfig gameConfigFor(const BuildOptions& options, const DesignDocument& design, BoardType boardType,
                         int menuPrgBanks, int gamesTotal, const BankCounts& banks)
{
    GameConfig config;
    config.bigCursor = storedBigCursor();
    config.bigSprite = design.BigSprite;
    config.captionLength = static_cast<int>(design.CaptionText.size());
    config.nameInsertRow = options.nameInsertRow ? 1 : 0;
    config.nameBanks = banks.names;
    config.dataBanks = banks.data;
    config.finalBanks = banks.finalData;
    config.boardType = static_cast<int>(boardType);
    config.menuPrgBanks = menuPrgBanks;
    config.menuMusic = options.menuMusic;
    config.pageTurningSpeed = options.pageTurningSpeed;
    config.customEnable = options.customEnable ? 1 : 0;
    config.gamesTotal = gamesTotal;
    config.showStyle = options.showStyle;
    config.pageNumber = options.pageNumber ? 1 : 0;
    config.pageSize = options.pageSize;
    config.spriteTileCount = static_cast<int>(design.SpriteTileList.size());
    config.cursorArrowTile = design.ArrowTile.tile;
    config.cursorArrowX = design.ArrowTile.x;
    config.cursorArrowY = design.ArrowTile.y;
    config.cursorArrowAttributes = SpriteAttributeByte(design.ArrowTile);
    return config;
}

} // namespace zunbrix
