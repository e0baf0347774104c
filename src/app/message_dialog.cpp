#include "app/message_dialog.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

namespace zunbrix {

namespace {

constexpr int kConfirmText = 265;
constexpr int kYesText = 263;
constexpr int kNoText = 264;

} // namespace

CMessageDialog::CMessageDialog(const QString& message, const QString& title, Buttons buttons, Language language,
                               QWidget* parent)
    : CSmallDialog(language, parent)
{
    setWindowTitle(title);
    message_ = new QPlainTextEdit(message, this);
    message_->setReadOnly(true);
    message_->setMinimumSize(360, 200);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    first_ = new QPushButton(this);
    first_->setDefault(true);
    buttonRow->addWidget(first_);
    if (buttons == Buttons::YesNo) {
        no_ = new QPushButton(this);
        buttonRow->addWidget(no_);
        connect(first_, &QPushButton::clicked, this, [this] { done(kYes); });
        connect(no_, &QPushButton::clicked, this, [this] { done(kNo); });
    } else {
        connect(first_, &QPushButton::clicked, this, [this] { done(kConfirmed); });
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message_);
    layout->addLayout(buttonRow);
    applyTexts();
}

void CMessageDialog::applyTexts()
{
    if (no_ == nullptr) {
        first_->setText(text(kConfirmText));
        return;
    }
    first_->setText(text(kYesText));
    no_->setText(text(kNoText));
}

} // namespace zunbrix
