#include "app/update_dialog.h"

#include "frame/text_format.h"
#include "frame/text_ids.h"
#include "update/update_decisions.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

#include <utility>

namespace zunbrix {

namespace {

constexpr int kConfirmText = 122;
constexpr int kCancelText = 184;
// The offer's own colour, light blue.
constexpr QRgb kBackground = qRgb(0xC8, 0xE1, 0xFF);

} // namespace

CUpdateDialog::CUpdateDialog(UpdateRecord record, const VersionNumber& current, Language language, QWidget* parent)
    : CSmallDialog(language, parent), record_(std::move(record)), current_(current)
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(kBackground));
    setPalette(colours);
    setAutoFillBackground(true);

    describe_ = new QPlainTextEdit(this);
    describe_->setReadOnly(true);
    describe_->setMinimumSize(420, 220);
    confirm_ = new QPushButton(this);
    confirm_->setDefault(true);
    confirm_->setEnabled(CanInstallUpdate(current_, record_));
    cancel_ = new QPushButton(this);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addWidget(confirm_);
    buttonRow->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(describe_);
    layout->addLayout(buttonRow);

    connect(confirm_, &QPushButton::clicked, this, [this] { done(kConfirmed); });
    connect(cancel_, &QPushButton::clicked, this, [this] { done(kCancelled); });
    applyTexts();
}

void CUpdateDialog::applyTexts()
{
    setWindowTitle(FormatText(text(text::UpdateVersionsTitle), {current_.toText(), record_.version}));
    describe_->setPlainText(TextFor(record_.updateDescribe, language()));
    confirm_->setText(text(kConfirmText));
    cancel_->setText(text(kCancelText));
}

} // namespace zunbrix
