#include "app/extern_menu_dialog.h"

#include "gamelist/small_dialog_settings.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace zunbrix {

namespace {

constexpr int kTitleText = 278;
constexpr int kConfirmText = 265;
constexpr int kPathText = 275;
constexpr int kSelectText = 276;

} // namespace

CExtrenMenuDialog::CExtrenMenuDialog(Language language, QWidget* parent)
    : CSmallDialog(language, parent)
{
    pathGroup_ = new QGroupBox(this);
    path_ = new QLineEdit(ReadExternMenuPath(), pathGroup_);
    path_->setMinimumWidth(320);
    select_ = new QPushButton(pathGroup_);
    auto* pathRow = new QHBoxLayout(pathGroup_);
    pathRow->addWidget(path_, 1);
    pathRow->addWidget(select_);

    confirm_ = new QPushButton(this);
    confirm_->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pathGroup_);
    layout->addWidget(confirm_, 0, Qt::AlignRight);

    connect(select_, &QPushButton::clicked, this, &CExtrenMenuDialog::selectFile);
    connect(confirm_, &QPushButton::clicked, this, [this] { storeAndEnd(kConfirmed); });
    applyTexts();
}

void CExtrenMenuDialog::reject()
{
    storeAndEnd(kClosed);
}

void CExtrenMenuDialog::applyTexts()
{
    setWindowTitle(text(kTitleText));
    pathGroup_->setTitle(text(kPathText));
    select_->setText(text(kSelectText));
    confirm_->setText(text(kConfirmText));
}

void CExtrenMenuDialog::selectFile()
{
    // Opened without blocking: the dialog stays live while the user browses, and a choice lands whenever it comes.
    auto* chooser = new QFileDialog(this);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    chooser->setNameFilters({QStringLiteral("asm (*.asm)"), QStringLiteral("nes (*.nes)")});
    connect(chooser, &QFileDialog::fileSelected, this, [this](const QString& file) {
        const QString path = QDir::toNativeSeparators(file);
        path_->setText(path);
        StoreExternMenuPath(path);
    });
    chooser->open();
}

void CExtrenMenuDialog::storeAndEnd(int code)
{
    StoreExternMenuPath(path_->text());
    done(code);
}

} // namespace zunbrix
