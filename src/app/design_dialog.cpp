#include "app/design_dialog.h"

#include "designer/design_persistence.h"
#include "designer/document_commands.h"
#include "designer/undo_history.h"
#include "designer/views.h"
#include "frame/text_ids.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyleHints>

namespace zunbrix {

namespace {

// The captions above the pictures; one stands over both tile banks.
struct PictureLabel {
    DesignView view;
    int text;
    int width;
};

constexpr PictureLabel kPictureLabels[] = {
    {DesignView::TargetCharRow, text::TargetLabel, 200},
    {DesignView::SourceCharRow, text::SourceLabel, 200},
    {DesignView::NameTableView, text::NameTableLabel, 200},
    {DesignView::BgChrView, text::ChrLabel, 400},
    {DesignView::AttrView, text::ColorAttributeLabel, 140},
    {DesignView::BgPaletteView, text::BkgPaletteLabel, 256},
    {DesignView::SpPaletteView, text::SpritePaletteLabel, 256},
    {DesignView::MasterPaletteView, text::PaletteLabel, 256},
};
constexpr int kLabelHeight = 18;

// Check boxes that set a flag of the window's own and redraw; they make no undo step.
struct FlagBox {
    int text;
    bool DesignEditor::* flag;
};

constexpr FlagBox kFlagBoxes[] = {
    {text::FillColorCheck, &DesignEditor::FillColor},   {text::DrawLineCheck, &DesignEditor::DrawLine},
    {text::DragTextCheck, &DesignEditor::DragText},     {text::MarkCursorCheck, &DesignEditor::MarkCursor},
    {text::QuickActionCheck, &DesignEditor::QuickStamp},
};

Position clientPoint(const QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    return {point.x(), point.y()};
}

} // namespace

bool CDesignDialog::Host::shiftHeld() const
{
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

bool CDesignDialog::Host::ctrlHeld() const
{
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

CDesignDialog::CDesignDialog(DesignDocument& document, Language language, QWidget* parent)
    : QDialog(parent),
      language_(language),
      editor_(document),
      controller_(editor_, atlas_, host_),
      canvasThread_([this](const CanvasScene& scene, Surface& work) { renderer_.draw(scene, work); },
                    [this] { Q_EMIT canvasHandedOver(); })
{
    setFixedSize(kDesignClientWidth, kDesignClientHeight);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);

    for (const ViewPlace& place : kViewPlaces) {
        const auto index = static_cast<std::size_t>(place.view);
        DesignPicture::Source source = [this, index](const auto& show) { show(views_[index]); };
        if (place.view == DesignView::NameTableView)
            source = [this](const auto& show) { canvasThread_.withDisplay(show); };
        auto* picture = new DesignPicture(std::move(source), this);
        picture->setGeometry(place.left, place.top, place.width, place.height);
        pictures_[index] = picture;
    }
    for (const PictureLabel& caption : kPictureLabels) {
        const ViewPlace& place = viewPlace(caption.view);
        auto* label = new QLabel(this);
        label->setGeometry(place.left, place.top - kLabelHeight - 2, caption.width, kLabelHeight);
        labels_.emplace_back(label, caption.text);
    }
    // Queued: the canvas thread must not touch the widget.
    connect(this, &CDesignDialog::canvasHandedOver, picture(DesignView::NameTableView),
            qOverload<>(&QWidget::update), Qt::QueuedConnection);

    preview_ = new DesignPicture([this](const auto& show) { show(controller_.preview().picture); }, this,
                                 Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput);
    preview_->setAttribute(Qt::WA_ShowWithoutActivating);

    // Beneath the canvas, where the window has room; they leave the keyboard to the window.
    undoButton_ = new QPushButton(this);
    redoButton_ = new QPushButton(this);
    const ViewPlace& canvas = viewPlace(DesignView::NameTableView);
    undoButton_->setGeometry(canvas.left, canvas.top + canvas.height + 16, 96, 28);
    redoButton_->setGeometry(canvas.left + 104, canvas.top + canvas.height + 16, 96, 28);
    for (QPushButton* button : {undoButton_, redoButton_})
        button->setFocusPolicy(Qt::NoFocus);
    connect(undoButton_, &QPushButton::clicked, this, [this] { stepHistory(Undo); });
    connect(redoButton_, &QPushButton::clicked, this, [this] { stepHistory(Redo); });
    auto* undoKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), this);
    auto* redoKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y), this);
    connect(undoKey, &QShortcut::activated, this, [this] { stepHistory(Undo); });
    connect(redoKey, &QShortcut::activated, this, [this] { stepHistory(Redo); });

    addCheckBoxes();
    setLanguage(language);
    updateUndoButtons();
}

// Two columns beneath the undo buttons.
void CDesignDialog::addCheckBoxes()
{
    const ViewPlace& canvas = viewPlace(DesignView::NameTableView);
    const auto add = [this, &canvas](int text) {
        const auto index = static_cast<int>(checkBoxes_.size());
        auto* box = new QCheckBox(this);
        box->setFocusPolicy(Qt::NoFocus);
        box->setGeometry(canvas.left + (index % 2) * 256, canvas.top + canvas.height + 60 + (index / 2) * 26, 248, 22);
        checkBoxes_.emplace_back(box, text);
        return box;
    };
    for (const FlagBox& flagBox : kFlagBoxes) {
        QCheckBox* box = add(flagBox.text);
        flagBoxes_.emplace_back(box, flagBox.flag);
        connect(box, &QCheckBox::toggled, this, [this, flag = flagBox.flag](bool on) {
            editor_.*flag = on;
            redrawEverything();
        });
    }
    bigCursorBox_ = add(text::BigCursorCheck);
    connect(bigCursorBox_, &QCheckBox::toggled, this, [this](bool on) {
        SetBigCursor(editor_, on);
        redrawEverything();
    });
    bigSpriteBox_ = add(text::BigSpriteCheck);
    connect(bigSpriteBox_, &QCheckBox::toggled, this, [this](bool on) {
        SetBigSprite(editor_, on);
        redrawEverything();
    });
}

QCheckBox* CDesignDialog::checkBox(int text) const
{
    for (const auto& [box, number] : checkBoxes_) {
        if (number == text)
            return box;
    }
    return nullptr;
}

void CDesignDialog::showChecks()
{
    for (const auto& [box, flag] : flagBoxes_) {
        const QSignalBlocker quiet(box);
        box->setChecked(editor_.*flag);
    }
    const QSignalBlocker quietCursor(bigCursorBox_);
    bigCursorBox_->setChecked(editor_.BigCursor != 0);
    const QSignalBlocker quietSprite(bigSpriteBox_);
    bigSpriteBox_->setChecked(editor_.document().BigSprite != 0);
}

CDesignDialog::~CDesignDialog()
{
    canvasThread_.stop();
}

bool CDesignDialog::openDesign()
{
    const bool loaded = OpenDesigner(editor_);
    fontAtlas_ = BuildFontAtlas(editor_.document().DefaultChr);
    redrawEverything();
    return loaded;
}

void CDesignDialog::setLanguage(Language language)
{
    language_ = language;
    setWindowTitle(StringTable::Get(text::DesignerTitle, language));
    undoButton_->setText(StringTable::Get(text::UndoButton, language));
    redoButton_->setText(StringTable::Get(text::RedoButton, language));
    for (const auto& [label, number] : labels_)
        label->setText(StringTable::Get(number, language));
    for (const auto& [box, number] : checkBoxes_)
        box->setText(StringTable::Get(number, language));
}

void CDesignDialog::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        if (!secondPressOfDoubleClick(event))
            apply(controller_.buttonDown(clientPoint(event)));
    } else if (event->button() == Qt::MiddleButton)
        apply(controller_.middleButtonDown());
}

void CDesignDialog::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        apply(controller_.doubleClick(clientPoint(event)));
}

void CDesignDialog::mouseMoveEvent(QMouseEvent* event)
{
    apply(controller_.pointerMove(clientPoint(event)));
}

void CDesignDialog::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        apply(controller_.buttonUp(clientPoint(event)));
}

void CDesignDialog::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        return;
    case Qt::Key_Delete:
        DeleteSelection(editor_);
        redrawEverything();
        return;
    case Qt::Key_Shift:
        controller_.shiftKeyDown();
        return;
    default:
        QDialog::keyPressEvent(event);
    }
}

void CDesignDialog::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift && !event->isAutoRepeat())
        apply(controller_.shiftKeyUp());
    else
        QDialog::keyReleaseEvent(event);
}

void CDesignDialog::closeEvent(QCloseEvent* event)
{
    if (!saved_) {
        saved_ = true;
        preview_->hide();
        // The canvas thread reads nothing of the document, but it must not outlive the window's last picture.
        canvasThread_.stop();
        CloseDesigner(editor_);
    }
    QDialog::closeEvent(event);
}

bool CDesignDialog::secondPressOfDoubleClick(const QMouseEvent* event)
{
    const QStyleHints* hints = QGuiApplication::styleHints();
    const QPoint point = event->position().toPoint();
    const bool second = firstPress_ && event->timestamp() - firstPressTime_ < quint64(hints->mouseDoubleClickInterval())
                        && (point - *firstPress_).manhattanLength() <= hints->mouseDoubleClickDistance();
    // A third press starts afresh.
    firstPress_ = second ? std::nullopt : std::optional(point);
    firstPressTime_ = event->timestamp();
    return second;
}

void CDesignDialog::apply(const GestureResult& result)
{
    redraw(result.redraw);
    requestCanvas();
    showPreview();
    showChecks();
    updateUndoButtons();
}

void CDesignDialog::redraw(ViewSet views)
{
    for (const ViewPlace& place : kViewPlaces) {
        if (views.contains(place.view) && place.view != DesignView::NameTableView)
            refreshView(place.view);
    }
}

void CDesignDialog::refreshView(DesignView view)
{
    Surface& surface = views_[static_cast<std::size_t>(view)];
    const GestureMarks& marks = controller_.marks();
    switch (view) {
    case DesignView::TargetCharRow:
        RefreshTargetCharRow(surface, editor_, fontAtlas_);
        break;
    case DesignView::SourceCharRow:
        RefreshSourceCharRow(surface, editor_, atlas_);
        break;
    case DesignView::NameTableView:
        return;
    case DesignView::BgChrView:
        RefreshBgChrView(surface, editor_, marks, atlas_);
        break;
    case DesignView::SpChrView:
        RefreshSpChrView(surface, editor_, marks, atlas_);
        break;
    case DesignView::BgTileEditor:
        RefreshBgTileEditor(surface, editor_, atlas_);
        break;
    case DesignView::SpTileEditor:
        RefreshSpTileEditor(surface, editor_, atlas_);
        break;
    case DesignView::AttrView:
        RefreshAttrView(surface, editor_);
        break;
    case DesignView::BgPaletteView:
        RefreshBgPaletteView(surface, editor_);
        break;
    case DesignView::SpPaletteView:
        RefreshSpPaletteView(surface, editor_);
        break;
    case DesignView::MasterPaletteView:
        RefreshMasterPaletteView(surface, editor_);
        break;
    }
    picture(view)->update();
}

void CDesignDialog::requestCanvas()
{
    canvasThread_.RequestCanvas(CaptureCanvasScene(editor_, controller_.marks(), atlas_));
}

void CDesignDialog::showPreview()
{
    const DragPreview& preview = controller_.preview();
    if (!preview.visible) {
        preview_->hide();
        return;
    }
    preview_->setGeometry(QRect(mapToGlobal(QPoint(preview.place.x, preview.place.y)),
                                QSize(preview.picture.width(), preview.picture.height())));
    preview_->show();
    preview_->update();
}

void CDesignDialog::redrawEverything()
{
    atlas_.RebuildAtlas(editor_.document(), 0, 4, 0, 4);
    apply(GestureResult{ViewSet::all(), false, std::nullopt});
}

void CDesignDialog::stepHistory(DesignResult (*step)(DesignEditor&))
{
    const DesignResult result = step(editor_);
    if (!result.ok())
        QMessageBox::warning(this, StringTable::Get(text::TitleError, language_), result.message());
    redrawEverything();
}

void CDesignDialog::updateUndoButtons()
{
    undoButton_->setEnabled(editor_.history.undoEnabled);
    redoButton_->setEnabled(editor_.history.redoEnabled);
}

} // namespace zunbrix
