#include "app/window_update.h"

#include "app/main_dialog.h"
#include "app/notice_dialog.h"
#include "app/update_dialog.h"
#include "frame/text_ids.h"

#include <QApplication>

namespace zunbrix {

WindowUpdate::WindowUpdate(CMainDialog& window, UpdateFlowSetup setup)
    : window_(window), flow_(*this, std::move(setup))
{
    QObject::connect(&window_, &CMainDialog::updateCheckAsked, &flow_,
                     [this](bool silent) { flow_.CheckUpdate(false, silent); });
    QObject::connect(&window_, &CMainDialog::exited, &flow_, [this] { flow_.cancel(); });
    window_.setBeforeUpdateExit([this] { flow_.installAtClose(); });
}

Language WindowUpdate::language() const
{
    return window_.language();
}

bool WindowUpdate::modalDialogOpen() const
{
    return QApplication::activeModalWidget() != nullptr;
}

bool WindowUpdate::offerUpdate(const UpdateRecord& record, const VersionNumber& current)
{
    // The find and replace dialog gives way to the offer. A modal dialog stays open, the offer above it: closing
    // the designer or a question could drop the user's work.
    for (QDialog* dialog : window_.findChildren<QDialog*>()) {
        if (dialog->isVisible() && !dialog->isModal())
            dialog->done(0);
    }
    CUpdateDialog offer(record, current, language(), &window_);
    return offer.exec() == CUpdateDialog::kConfirmed;
}

void WindowUpdate::showNotice(const QString& message)
{
    CNoticeDialog(message, language(), &window_).exec();
}

void WindowUpdate::showMessage(const QString& message)
{
    CMessageDialog(message, StringTable::Get(text::TitleTips, language()), CMessageDialog::Buttons::Confirm,
                   language(), &window_)
        .exec();
}

void WindowUpdate::showDownloadTitle(const QString& title)
{
    window_.showTitle(title);
}

void WindowUpdate::closeForUpdate()
{
    window_.closeWithMarker(CloseMarker::Update);
}

} // namespace zunbrix
