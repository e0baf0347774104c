#pragma once

#include "app/window_questions.h"
#include "gamelist/small_dialog_settings.h"

#include <QApplication>
#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

namespace zunbrix::testing {

// The window's questions answered by a script in place of a person; every message is kept to be read back.
class ScriptedQuestions : public WindowQuestions {
public:
    struct Message {
        QString text;
        QString title;
        MessageStyle style;
    };

    std::vector<Message> messages;
    MessageAnswer yesNoAnswer = MessageAnswer::Yes;
    QStringList games;
    QString listToLoad;
    QString listToSave;
    std::optional<OutputChoice> output;
    QString folder;
    QStringList opened;
    QStringList startFolders;     // where each file dialog started
    std::function<void()> whileChoosingOutput; // runs while the build waits for the output's name
    bool trayAvailable = true;
    // The close question's answer, stored as its dialog stores it; none dismisses the question.
    struct CloseAnswer {
        bool remember;
        CloseChoice choice;
    };
    std::optional<CloseAnswer> closeAnswer = CloseAnswer{false, CloseChoice::Exit};
    int closeQuestions = 0;

    MessageAnswer showMessage(QWidget*, const QString& text, const QString& title, MessageStyle style) override
    {
        messages.push_back({text, title, style});
        return style == MessageStyle::YesNo ? yesNoAnswer : MessageAnswer::Ok;
    }
    QStringList chooseGames(QWidget*, const QString&, const QString&, const QString& startFolder) override
    {
        startFolders.push_back(startFolder);
        return games;
    }
    QString chooseListToLoad(QWidget*, const QString&, const QString&, const QString& startFolder) override
    {
        startFolders.push_back(startFolder);
        return listToLoad;
    }
    QString chooseListToSave(QWidget*, const QString&, const QString&, const QString& startFolder) override
    {
        startFolders.push_back(startFolder);
        return listToSave;
    }
    std::optional<OutputChoice> chooseOutput(QWidget*, const QString&, const QStringList&, const QString& startFolder,
                                             OutputType) override
    {
        startFolders.push_back(startFolder);
        if (whileChoosingOutput)
            whileChoosingOutput();
        return output;
    }
    QString chooseFolder(QWidget*, const QString&, const QString& startFolder) override
    {
        startFolders.push_back(startFolder);
        return folder;
    }
    void openWithSystem(const QString& path) override { opened.push_back(path); }
    bool askHowToClose(QWidget*, Language) override
    {
        ++closeQuestions;
        if (!closeAnswer)
            return false;
        StoreCloseRemember(closeAnswer->remember);
        StoreCloseChoice(closeAnswer->choice);
        return true;
    }
    bool hasSystemTray() const override { return trayAvailable; }
};

// The one application of a test or tool program, on the platform given by QT_QPA_PLATFORM, or with no
// screen at all ("offscreen") when none is given.
inline QApplication& windowApplication()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "zunbrix-gui";
    static char* argv[] = {name, nullptr};
    // Left to the end of the process: destroyed among the statics at exit it would outlive the devices of
    // QTest's events it owns, and crash there.
    static QApplication* application = new QApplication(argc, argv);
    return *application;
}

} // namespace zunbrix::testing
