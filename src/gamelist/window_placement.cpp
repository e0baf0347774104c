#include "gamelist/window_placement.h"

#include "frame/registry_store.h"
#include "gamelist/main_settings.h"

#include <algorithm>

namespace zunbrix {

namespace {

std::optional<int> readInt(const char* name)
{
    quint32 value = 0;
    if (!RegistryStore::GetDword(QLatin1String(kMainSettingsKey), QLatin1String(name), value))
        return std::nullopt;
    return static_cast<int>(value);
}

void writeInt(const char* name, int value)
{
    RegistryStore::SetDword(QLatin1String(kMainSettingsKey), QLatin1String(name), static_cast<quint32>(value));
}

// Start of the room along one axis: from `low`, `length` long, the window `extent` long.
int keptWithin(int coordinate, int extent, int low, int length)
{
    return std::max(low, std::min(coordinate, low + length - extent));
}

} // namespace

WindowPlacement ReadWindowPlacement()
{
    WindowPlacement placement;
    const std::optional<int> width = readInt("SizeX");
    const std::optional<int> height = readInt("SizeY");
    if (width && height && *width > 0 && *height > 0)
        placement.size = QSize(*width, *height);
    const std::optional<int> x = readInt("PosX");
    const std::optional<int> y = readInt("PosY");
    if (x && y)
        placement.position = QPoint(*x, *y);
    return placement;
}

void StoreWindowPlacement(const QRect& geometry)
{
    writeInt("PosX", geometry.x());
    writeInt("PosY", geometry.y());
    writeInt("SizeX", geometry.width());
    writeInt("SizeY", geometry.height());
}

QPoint KeptOnScreen(QPoint position, QSize size, const QRect& workArea)
{
    return {keptWithin(position.x(), size.width(), workArea.left(), workArea.width()),
            keptWithin(position.y(), size.height(), workArea.top(), workArea.height())};
}

} // namespace zunbrix
