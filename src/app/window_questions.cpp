#include "app/window_questions.h"

#include "app/close_dialog.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QSystemTrayIcon>
#include <QUrl>

namespace zunbrix {

MessageAnswer DialogQuestions::showMessage(QWidget* parent, const QString& text, const QString& title,
                                           MessageStyle style)
{
    // Texts of the table mark their line breaks as CR LF.
    QString shown = text;
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (style == MessageStyle::YesNo)
        return QMessageBox::question(parent, title, shown, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes
                   ? MessageAnswer::Yes
                   : MessageAnswer::No;
    QMessageBox::information(parent, title, shown);
    return MessageAnswer::Ok;
}

QStringList DialogQuestions::chooseGames(QWidget* parent, const QString& title, const QString& filter,
                                         const QString& startFolder)
{
    return QFileDialog::getOpenFileNames(parent, title, startFolder, filter);
}

QString DialogQuestions::chooseListToLoad(QWidget* parent, const QString& title, const QString& filter,
                                          const QString& startFolder)
{
    return QFileDialog::getOpenFileName(parent, title, startFolder, filter);
}

QString DialogQuestions::chooseListToSave(QWidget* parent, const QString& title, const QString& filter,
                                          const QString& startFolder)
{
    return QFileDialog::getSaveFileName(parent, title, startFolder, filter);
}

std::optional<OutputChoice> DialogQuestions::chooseOutput(QWidget* parent, const QString& title,
                                                          const QStringList& filters, const QString& startFolder,
                                                          OutputType startType)
{
    QString chosenFilter = filters.value(static_cast<int>(startType) - 1);
    const QString path =
        QFileDialog::getSaveFileName(parent, title, startFolder, filters.join(QStringLiteral(";;")), &chosenFilter);
    if (path.isEmpty())
        return std::nullopt;
    return OutputChoice{path, static_cast<OutputType>(filters.indexOf(chosenFilter) + 1)};
}

QString DialogQuestions::chooseFolder(QWidget* parent, const QString& title, const QString& startFolder)
{
    return QFileDialog::getExistingDirectory(parent, title, startFolder);
}

void DialogQuestions::openWithSystem(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool DialogQuestions::askHowToClose(QWidget* parent, Language language)
{
    return CCloseDialog(language, parent).exec() == QDialog::Accepted;
}

bool DialogQuestions::hasSystemTray() const
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

} // namespace zunbrix
