#include "app/close_dialog.h"

#include "gamelist/small_dialog_settings.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>

namespace zunbrix {

namespace {

constexpr int kTitleText = 123;
constexpr int kRememberText = 172;
constexpr int kMinimizeText = 173;
constexpr int kExitText = 174;

} // namespace

CCloseDialog::CCloseDialog(Language language, QWidget* parent)
    : CSmallDialog(language, parent)
{
    remember_ = new QCheckBox(this);
    minimize_ = new QPushButton(this);
    exit_ = new QPushButton(this);
    minimize_->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(minimize_);
    buttons->addWidget(exit_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(remember_);
    layout->addLayout(buttons);

    connect(remember_, &QCheckBox::toggled, this, &StoreCloseRemember);
    connect(minimize_, &QPushButton::clicked, this, [this] {
        StoreCloseChoice(CloseChoice::Minimize);
        accept();
    });
    connect(exit_, &QPushButton::clicked, this, [this] {
        StoreCloseChoice(CloseChoice::Exit);
        accept();
    });
    applyTexts();
}

void CCloseDialog::applyTexts()
{
    setWindowTitle(text(kTitleText));
    remember_->setText(text(kRememberText));
    minimize_->setText(text(kMinimizeText));
    exit_->setText(text(kExitText));
}

} // namespace zunbrix
