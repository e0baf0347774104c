#pragma once

#include "frame/string_table.h"
#include "multicart/build_driver.h"

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace zunbrix {

// Everything the main window asks of its user in a dialog of the system's, the files it hands to the system's
// file manager, and whether the desktop has a tray. The window asks only through this, on its own thread, so
// that tests can answer in place of a person.
class WindowQuestions {
public:
    virtual ~WindowQuestions() = default;

    virtual MessageAnswer showMessage(QWidget* parent, const QString& text, const QString& title,
                                      MessageStyle style) = 0;
    // Open: NES images, several at once; empty when cancelled.
    virtual QStringList chooseGames(QWidget* parent, const QString& title, const QString& filter,
                                    const QString& startFolder) = 0;
    // Load and Save of a list file; empty when cancelled.
    virtual QString chooseListToLoad(QWidget* parent, const QString& title, const QString& filter,
                                     const QString& startFolder) = 0;
    virtual QString chooseListToSave(QWidget* parent, const QString& title, const QString& filter,
                                     const QString& startFolder) = 0;
    // The build's output: a file name and one of the three types; `filters` lists them in OutputType order.
    virtual std::optional<OutputChoice> chooseOutput(QWidget* parent, const QString& title, const QStringList& filters,
                                                     const QString& startFolder, OutputType startType) = 0;
    // Export information: the folder to write into; empty when cancelled.
    virtual QString chooseFolder(QWidget* parent, const QString& title, const QString& startFolder) = 0;
    // Opens a file or a folder as the system does on a double click.
    virtual void openWithSystem(const QString& path) = 0;
    // The close question, whose answer is stored as Remember and CloseState; false when it was dismissed
    // without an answer.
    virtual bool askHowToClose(QWidget* parent, Language language) = 0;
    virtual bool hasSystemTray() const = 0;
};

// The questions as a person gets them: message boxes, the system's file dialogs, its file manager.
class DialogQuestions : public WindowQuestions {
public:
    MessageAnswer showMessage(QWidget* parent, const QString& text, const QString& title,
                              MessageStyle style) override;
    QStringList chooseGames(QWidget* parent, const QString& title, const QString& filter,
                            const QString& startFolder) override;
    QString chooseListToLoad(QWidget* parent, const QString& title, const QString& filter,
                             const QString& startFolder) override;
    QString chooseListToSave(QWidget* parent, const QString& title, const QString& filter,
                             const QString& startFolder) override;
    std::optional<OutputChoice> chooseOutput(QWidget* parent, const QString& title, const QStringList& filters,
                                             const QString& startFolder, OutputType startType) override;
    QString chooseFolder(QWidget* parent, const QString& title, const QString& startFolder) override;
    void openWithSystem(const QString& path) override;
    bool askHowToClose(QWidget* parent, Language language) override;
    bool hasSystemTray() const override;
};

} // namespace zunbrix
