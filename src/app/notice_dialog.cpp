#include "app/notice_dialog.h"

#include "frame/text_ids.h"

namespace zunbrix {

CNoticeDialog::CNoticeDialog(const QString& message, Language language, QWidget* parent)
    : CMessageDialog(message, QString(), Buttons::Confirm, language, parent)
{
    applyTexts();
}

void CNoticeDialog::applyTexts()
{
    CMessageDialog::applyTexts();
    setWindowTitle(text(text::NoticeTitle));
}

} // namespace zunbrix
