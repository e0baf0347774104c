#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace zunbrix {

// A file chosen in one of the designer's file dialogs, with the number (from 1) of the file type chosen.
struct ChosenDesignFile {
    QString path;
    int filter = 1;
};

// Everything the designer asks of its user in a dialog of the system's. The window asks only through this,
// on its own thread, so that tests can answer in place of a person.
class DesignQuestions {
public:
    virtual ~DesignQuestions() = default;

    // `filters` are "name (pattern)" in dialog order; `startFilter` (from 1) is offered first. An empty path
    // when cancelled. Loading needs an existing file; saving asks before overwriting one.
    virtual ChosenDesignFile chooseFileToLoad(QWidget* parent, const QStringList& filters, const QString& startPath,
                                              int startFilter) = 0;
    virtual ChosenDesignFile chooseFileToSave(QWidget* parent, const QStringList& filters, const QString& startPath,
                                              int startFilter) = 0;
    virtual void showRefusal(QWidget* parent, const QString& text, const QString& title) = 0;
};

// The questions as a person gets them: the system's file dialogs and a message box.
class DesignDialogQuestions : public DesignQuestions {
public:
    ChosenDesignFile chooseFileToLoad(QWidget* parent, const QStringList& filters, const QString& startPath,
                                      int startFilter) override;
    ChosenDesignFile chooseFileToSave(QWidget* parent, const QStringList& filters, const QString& startPath,
                                      int startFilter) override;
    void showRefusal(QWidget* parent, const QString& text, const QString& title) override;
};

} // namespace zunbrix
