// The update service in the real main window (offscreen), against a release location served on 127.0.0.1: the
// window's own dialogs answered by clicks, the program a copy in a temporary folder.
#include "app/export_settings_dialog.h"
#include "app/main_dialog.h"
#include "app/scripted_questions.h"
#include "app/update_dialog.h"
#include "app/window_update.h"
#include "frame/registry_store.h"
#include "gamelist/main_commands.h"
#include "support/generated_file.h"
#include "support/private_settings.h"
#include "update/update_settings.h"
#include "update_testing.h"

#include <QAction>
#include <QCryptographicHash>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace zunbrix {
namespace {

constexpr int kWaitMs = 60000;
const QString kUpdatePath = QStringLiteral("/zunbrix/raw/master/Release/update.json");
const QString kProgramPath = QStringLiteral("/Zunbrix");

// Answers the next modal dialog of type `Dialog` once it is open, while the returned timer lives: the window
// waits in the dialog, so the answer comes from a timer inside its loop.
template <typename Dialog>
std::unique_ptr<QTimer> answerWhenOpen(std::function<void(Dialog&)> answer)
{
    auto poll = std::make_unique<QTimer>();
    QTimer* timer = poll.get();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, answer] {
        if (auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget())) {
            timer->stop();
            answer(*dialog);
        }
    });
    timer->start(20);
    return poll;
}

// Runs the window's events until `done` holds; false after a minute.
bool waitFor(const std::function<bool()>& done)
{
    return QTest::qWaitFor(done, kWaitMs);
}

class WindowUpdateTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        testing::windowApplication();
        RegistryStore::SetString(kUpdateSettingsKey, kReleaseLocationValue, server->url(QStringLiteral("/zunbrix")));
        QFile file(program);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(oldProgram);
        file.close();
        QFile::setPermissions(program, QFile::permissions(program) | QFile::ExeOwner);
        window = std::make_unique<CMainDialog>(std::make_unique<testing::ScriptedQuestions>());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    UpdateFlowSetup setup() const
    {
        UpdateFlowSetup setup;
        setup.currentVersion = VersionNumber::fromText(QStringLiteral("1.0.0.9"));
        setup.programPath = program;
        setup.http = testing::TrustingOptions();
        return setup;
    }

    QByteArray updateJson(const char* version, bool forced, const QByteArray& newProgram = {}) const
    {
        const QString hash = QString::fromLatin1(QCryptographicHash::hash(newProgram, QCryptographicHash::Sha256).toHex());
        return QStringLiteral(R"({"version": "%1", "force_update": %2, "url_x86": "%3", "url_linux_x64": "%3",
                                 "sha256": "%4", "update_describe": {"en-us": "Faster builds"}})")
            .arg(QLatin1String(version), QLatin1String(forced ? "true" : "false"), server->url(kProgramPath), hash)
            .toUtf8();
    }

    const testing::PrivateSettings settings;
    const std::unique_ptr<testing::TestHttpServer> server = testing::TrustedHttpsServer();
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("Zunbrix"));
    const QByteArray oldProgram = "#!/bin/sh\nexit 0\n";
    std::unique_ptr<CMainDialog> window;
};

} // namespace

TEST_F(WindowUpdateTest, CheckUpdateCommandOffersTheNewVersionAndCancelFetchesNothing)
{
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", false)});
    server->serve(kProgramPath, {.body = "the new program"});
    WindowUpdate update(*window, setup());
    QAction* checkUpdate = window->action(command::Update);
    ASSERT_TRUE(checkUpdate->isEnabled());

    QString title;
    QString describe;
    bool confirmEnabled = false;
    const auto answering = answerWhenOpen<CUpdateDialog>([&](CUpdateDialog& offer) {
        title = offer.windowTitle();
        describe = offer.describeBox()->toPlainText();
        confirmEnabled = offer.confirmButton()->isEnabled();
        QTest::mouseClick(offer.cancelButton(), Qt::LeftButton);
    });
    checkUpdate->trigger();
    ASSERT_TRUE(waitFor([&] { return !title.isEmpty(); }));
    EXPECT_EQ(title, QStringLiteral("Current version: 1.0.0.9 Latest version: 1.0.0.10"));
    EXPECT_EQ(describe, QStringLiteral("Faster builds"));
    EXPECT_TRUE(confirmEnabled);
    ASSERT_TRUE(waitFor([&] { return !update.flow().updateRunning() && !update.flow().downloadRunning(); }));
    EXPECT_TRUE(server->rangesAsked(kProgramPath).isEmpty());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowUpdateTest, ConfirmedSettingsDialogChecksSilently)
{
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", false)});
    WindowUpdate update(*window, setup());
    bool offered = false;
    const auto confirming = answerWhenOpen<CExportSettingsDialog>(
        [](CExportSettingsDialog& settings) { QTest::mouseClick(settings.confirmButton(), Qt::LeftButton); });
    const auto refusing = answerWhenOpen<CUpdateDialog>([&](CUpdateDialog& offer) {
        offered = true;
        offer.close();
    });
    window->action(command::ExportSettings)->trigger();
    EXPECT_TRUE(update.flow().updateRunning());
    ASSERT_TRUE(waitFor([&] { return !update.flow().updateRunning(); }));
    EXPECT_FALSE(server->rangesAsked(kUpdatePath).isEmpty());
    // A newer version that is not forced is offered only at the start or to the user who asks.
    EXPECT_FALSE(offered);
}

#ifndef Q_OS_WIN
TEST_F(WindowUpdateTest, ForcedUpdateExitsTheWindowAndStartsTheNewProgramInTheOldOnesPlace)
{
    const QByteArray newProgram = "#!/bin/sh\necho started > started.txt\n";
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", true, newProgram)});
    server->serve(kProgramPath, {.body = newProgram});
    WindowUpdate update(*window, setup());
    QSignalSpy exited(window.get(), &CMainDialog::exited);

    update.start();
    ASSERT_TRUE(waitFor([&] { return exited.count() == 1; }));
    EXPECT_EQ(fileText(program), newProgram.toStdString());
    ASSERT_TRUE(waitFor([&] { return QFile::exists(folder.filePath(QStringLiteral("started.txt"))); }));
}
#endif

} // namespace zunbrix
