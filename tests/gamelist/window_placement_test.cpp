#include "frame/registry_store.h"
#include "gamelist/window_placement.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(WindowPlacement, StoredPlaceComesBackAndAFreshStoreHasNone)
{
    zunbrix::testing::PrivateSettings settings;
    const WindowPlacement fresh = ReadWindowPlacement();
    EXPECT_FALSE(fresh.size || fresh.position);

    StoreWindowPlacement(QRect(-20, 30, 800, 600));
    const WindowPlacement stored = ReadWindowPlacement();
    EXPECT_EQ(stored.size, QSize(800, 600));
    EXPECT_EQ(stored.position, QPoint(-20, 30)) << "a negative coordinate is kept as written";
    quint32 width = 0;
    ASSERT_TRUE(RegistryStore::GetDword(QStringLiteral("Software\\Zunbrix"), QStringLiteral("SizeX"), width));
    EXPECT_EQ(width, 800u);

    // Only a position with both coordinates counts.
    ASSERT_TRUE(RegistryStore::DeleteValue(QStringLiteral("Software\\Zunbrix"), QStringLiteral("PosY")));
    EXPECT_FALSE(ReadWindowPlacement().position);
}

TEST(WindowPlacement, WindowIsKeptOnTheWorkArea)
{
    const QRect workArea(0, 0, 1920, 1040);
    const QSize size(800, 600);
    EXPECT_EQ(KeptOnScreen({100, 200}, size, workArea), QPoint(100, 200));
    EXPECT_EQ(KeptOnScreen({-50, -10}, size, workArea), QPoint(0, 0));
    EXPECT_EQ(KeptOnScreen({1500, 900}, size, workArea), QPoint(1120, 440)) << "moved back to end at the edges";
    EXPECT_EQ(KeptOnScreen({300, 300}, QSize(2500, 1200), workArea), QPoint(0, 0));
    // A second screen to the right, its work area below a panel.
    EXPECT_EQ(KeptOnScreen({1000, 0}, size, QRect(1920, 40, 1280, 984)), QPoint(1920, 40));
}
