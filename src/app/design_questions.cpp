#include "app/design_questions.h"

#include "designer/design_file_io.h"

#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace zunbrix {

namespace {

// The save adds the chosen type's extension to a name that lacks it. The dialog takes the name with that
// extension before it accepts, so that the file it asks about replacing is the one that gets written.
class DesignFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        const QStringList chosen = selectedFiles();
        if (acceptMode() == AcceptSave && chosen.size() == 1) {
            // "name (*.ext)": the pattern in the last parentheses; a name may have its own, "bin(MMC5)".
            const QString pattern = selectedNameFilter().section(QLatin1Char('('), -1).chopped(1);
            const QString path = PathWithSaveExtension(chosen.constFirst(), pattern.toLatin1().constData());
            if (path != chosen.constFirst())
                selectFile(path);
        }
        QFileDialog::accept();
    }
};

// Titles come from the system; the dialog keeps to the types offered.
ChosenDesignFile choose(QWidget* parent, QFileDialog::AcceptMode mode, const QStringList& filters,
                        const QString& startPath, int startFilter)
{
    DesignFileDialog dialog(parent, QString(), startPath, filters.join(QStringLiteral(";;")));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.selectNameFilter(filters.value(startFilter - 1, filters.value(0)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    // A platform dialog that reports no type chose the first.
    return {dialog.selectedFiles().constFirst(), std::max(1, int(filters.indexOf(dialog.selectedNameFilter())) + 1)};
}

} // namespace

ChosenDesignFile DesignDialogQuestions::chooseFileToLoad(QWidget* parent, const QStringList& filters,
                                                         const QString& startPath, int startFilter)
{
    return choose(parent, QFileDialog::AcceptOpen, filters, startPath, startFilter);
}

ChosenDesignFile DesignDialogQuestions::chooseFileToSave(QWidget* parent, const QStringList& filters,
                                                         const QString& startPath, int startFilter)
{
    return choose(parent, QFileDialog::AcceptSave, filters, startPath, startFilter);
}

void DesignDialogQuestions::showRefusal(QWidget* parent, const QString& text, const QString& title)
{
    QMessageBox::warning(parent, title, text);
}

} // namespace zunbrix
