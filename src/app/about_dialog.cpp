#include "app/about_dialog.h"

#include "frame/text_format.h"
#include "frame/version_number.h"
#include "gamelist/small_dialog_settings.h"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace zunbrix {

namespace {

constexpr int kTitleText = 119;
constexpr int kNameAndVersionText = 120;
constexpr int kConfirmText = 122;

} // namespace

CAboutDialog::CAboutDialog(Language language, QWidget* parent)
    : CSmallDialog(language, parent)
{
    version_ = new QLabel(this);
    const QString address = AboutLink();
    link_ = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()), this);
    link_->setTextFormat(Qt::RichText);
    link_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    link_->setOpenExternalLinks(false);
    confirm_ = new QPushButton(this);
    confirm_->setDefault(true);
    setMinimumWidth(300);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(version_);
    layout->addWidget(link_);
    layout->addWidget(confirm_, 0, Qt::AlignRight);

    // The stored address, not the label's markup, is what is opened.
    connect(link_, &QLabel::linkActivated, this, [address] { QDesktopServices::openUrl(QUrl(address)); });
    connect(confirm_, &QPushButton::clicked, this, &QDialog::accept);
    applyTexts();
}

void CAboutDialog::applyTexts()
{
    setWindowTitle(text(kTitleText));
    version_->setText(FormatText(text(kNameAndVersionText), {ExeVersion()}));
    confirm_->setText(text(kConfirmText));
}

} // namespace zunbrix
