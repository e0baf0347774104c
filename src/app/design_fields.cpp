// The caption field and the field that "Add" takes a text from. Their keys pass through the window first:
// Escape closes, Ctrl+Z and Ctrl+Y step the history, Delete removes the selected items of the screen beside
// its work in the field, Shift starts the rubber band. Both hold 32 characters by refusing keys, not by a
// limit of the field, so a pasted text may be longer.
#include "app/design_dialog.h"

#include "frame/text_ids.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace zunbrix {

namespace {

constexpr int kFieldLimit = 32;

bool isControlKey(const QKeyEvent* event, Qt::Key key)
{
    return event->key() == key && event->modifiers() == Qt::ControlModifier;
}

} // namespace

void CDesignDialog::addFields()
{
    const auto addField = [this](int labelText, int x, int labelWidth, int fieldWidth) {
        auto* label = new QLabel(client_);
        label->setGeometry(x, 18, labelWidth, 18);
        labels_.emplace_back(label, labelText);
        auto* field = new QLineEdit(client_);
        field->setGeometry(x + labelWidth + 2, 16, fieldWidth, 22);
        // On the window's light violet like every other control.
        QPalette violet = field->palette();
        violet.setColor(QPalette::Base, client_->palette().color(QPalette::Window));
        field->setPalette(violet);
        field->installEventFilter(this);
        return field;
    };
    captionField_ = addField(text::CaptionLabel, 120, 56, 236);
    textField_ = addField(text::TextLabel, 424, 46, 232);
    connect(captionField_, &QLineEdit::textChanged, this, [this](const QString& text) { editor_.CaptionEdit = text; });
    connect(textField_, &QLineEdit::textChanged, this, [this](const QString& text) { editor_.CustomTextEdit = text; });
}

void CDesignDialog::showFields()
{
    // Only a different text is set, so that the cursor of a field being typed in stays.
    if (captionField_->text() != editor_.CaptionEdit)
        captionField_->setText(editor_.CaptionEdit);
    if (textField_->text() != editor_.CustomTextEdit)
        textField_->setText(editor_.CustomTextEdit);
}

bool CDesignDialog::eventFilter(QObject* watched, QEvent* event)
{
    auto* field = watched == captionField_ || watched == textField_ ? static_cast<QLineEdit*>(watched) : nullptr;
    if (field == nullptr)
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        return fieldKeyPressed(field, static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        fieldKeyReleased(field, key);
        return key->key() == Qt::Key_Shift; // taken here; the window must not end the band twice
    }
    return false;
}

// True when the key is used up here and the field must not see it.
bool CDesignDialog::fieldKeyPressed(QLineEdit* field, const QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    if (isControlKey(event, Qt::Key_Z) || isControlKey(event, Qt::Key_Y)) {
        runCommand(event->key() == Qt::Key_Z ? design_command::Undo : design_command::Redo);
        return true;
    }
    if (event->key() == Qt::Key_Delete)
        deleteSelection();
    if (event->key() == Qt::Key_Shift) {
        controller_.shiftKeyDown();
        return true;
    }
    if (event->key() == Qt::Key_Backspace)
        return false;
    if (field == textField_)
        return field->text().size() >= kFieldLimit;
    if (editor_.document().CaptionText.size() >= kFieldLimit)
        return true;
    // The canvas shows the caption as it stood before this key; the key's release brings it up to date.
    editor_.document().CaptionText = field->text();
    requestCanvas();
    return false;
}

void CDesignDialog::fieldKeyReleased(QLineEdit* field, const QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift && !event->isAutoRepeat())
        apply(controller_.shiftKeyUp());
    if (field == captionField_) {
        editor_.document().CaptionText = field->text();
        requestCanvas();
    }
}

} // namespace zunbrix
