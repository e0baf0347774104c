#include "frame/registry_store.h"
#include "gamelist/window_close.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(WindowClose, OnlyTheCloseBoxAsksAndHidesAndOnlyWithATray)
{
    const CloseSettings fresh;
    EXPECT_TRUE(AsksBeforeClosing(CloseMarker::CloseBox, fresh, true));
    EXPECT_TRUE(ClosingHides(CloseMarker::CloseBox, fresh, true)) << "Minimize is the answer of a fresh store";
    for (const CloseMarker marker : {CloseMarker::ExitCommand, CloseMarker::Update}) {
        EXPECT_FALSE(AsksBeforeClosing(marker, fresh, true));
        EXPECT_FALSE(ClosingHides(marker, fresh, true));
    }
    // Without a tray the window has nowhere to hide: every close ends the program, unasked.
    EXPECT_FALSE(AsksBeforeClosing(CloseMarker::CloseBox, fresh, false));
    EXPECT_FALSE(ClosingHides(CloseMarker::CloseBox, fresh, false));

    // Any Remember but 0 stops the question; any CloseState but 1 hides.
    EXPECT_FALSE(AsksBeforeClosing(CloseMarker::CloseBox, {2, 0}, true));
    EXPECT_TRUE(ClosingHides(CloseMarker::CloseBox, {1, 2}, true));
    EXPECT_FALSE(ClosingHides(CloseMarker::CloseBox, {1, 1}, true));
}

TEST(WindowClose, StoredAnswerIsReadAndAFreshStoreAsks)
{
    zunbrix::testing::PrivateSettings settings;
    const CloseSettings fresh = ReadCloseSettings();
    EXPECT_EQ(fresh.remember, 0);
    EXPECT_EQ(fresh.closeState, 0);
    const QString key = QStringLiteral("Software\\Zunbrix");
    ASSERT_TRUE(RegistryStore::SetDword(key, QStringLiteral("Remember"), 1));
    ASSERT_TRUE(RegistryStore::SetDword(key, QStringLiteral("CloseState"), 1));
    const CloseSettings stored = ReadCloseSettings();
    EXPECT_EQ(stored.remember, 1);
    EXPECT_EQ(stored.closeState, 1);
}
