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
#include <QLineEdit>
#include <QMenuBar>
#include <QVBoxLayout>
#include <QMessageBox>
#include <QMouseEvent>
#include <QShortcut>
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
    {DesignView::TargetCharRow, text::TargetLabel, 100},
    {DesignView::SourceCharRow, text::SourceLabel, 100},
    {DesignView::NameTableView, text::NameTableLabel, 90},
    {DesignView::BgChrView, text::ChrLabel, 400},
    {DesignView::AttrView, text::ColorAttributeLabel, 140},
    {DesignView::BgPaletteView, text::BkgPaletteLabel, 256},
    {DesignView::SpPaletteView, text::SpritePaletteLabel, 256},
    {DesignView::MasterPaletteView, text::PaletteLabel, 256},
};
constexpr int kLabelHeight = 18;

// The arrow keys move sprites as the sprite group's arrows do.
int spriteArrowOf(int key)
{
    switch (key) {
    case Qt::Key_Left: return design_command::SpriteLeft;
    case Qt::Key_Right: return design_command::SpriteRight;
    case Qt::Key_Up: return design_command::SpriteUp;
    case Qt::Key_Down: return design_command::SpriteDown;
    default: return 0;
    }
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

CDesignDialog::CDesignDialog(DesignDocument& document, Language language, QWidget* parent,
                             std::unique_ptr<DesignQuestions> questions)
    : QDialog(parent),
      language_(language),
      editor_(document),
      controller_(editor_, atlas_, host_),
      questions_(std::move(questions)),
      canvasThread_([this](const CanvasScene& scene, Surface& work) { renderer_.draw(scene, work); },
                    [this] { Q_EMIT canvasHandedOver(); })
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // The pictures' places are measured in a client area beneath the menu bar, as the gestures expect.
    menuBar_ = new QMenuBar(this);
    addMenus();
    client_ = new QWidget(this);
    client_->setFixedSize(kDesignClientWidth, kDesignClientHeight);
    client_->setMouseTracking(true);
    // The designer's own light violet behind its labels and check boxes, which let it show through.
    QPalette violet = client_->palette();
    violet.setColor(QPalette::Window, QColor(0xBE, 0xB9, 0xFF));
    client_->setPalette(violet);
    client_->setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(menuBar_);
    layout->addWidget(client_);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    for (const ViewPlace& place : kViewPlaces) {
        const auto index = static_cast<std::size_t>(place.view);
        DesignPicture::Source source = [this, index](const auto& show) { show(views_[index]); };
        if (place.view == DesignView::NameTableView)
            source = [this](const auto& show) { canvasThread_.withDisplay(show); };
        auto* picture = new DesignPicture(std::move(source), client_);
        picture->setGeometry(place.left, place.top, place.width, place.height);
        pictures_[index] = picture;
    }
    for (const PictureLabel& caption : kPictureLabels) {
        const ViewPlace& place = viewPlace(caption.view);
        auto* label = new QLabel(client_);
        label->setGeometry(place.left, place.top - kLabelHeight - 2, caption.width, kLabelHeight);
        labels_.emplace_back(label, caption.text);
    }
    // Queued: the canvas thread must not touch the widget.
    connect(this, &CDesignDialog::canvasHandedOver, picture(DesignView::NameTableView),
            qOverload<>(&QWidget::update), Qt::QueuedConnection);

    preview_ = new DesignPicture([this](const auto& show) { show(controller_.preview().picture); }, this,
                                 Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput);
    preview_->setAttribute(Qt::WA_ShowWithoutActivating);

    auto* undoKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), this);
    auto* redoKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y), this);
    connect(undoKey, &QShortcut::activated, this, [this] { runCommand(design_command::Undo); });
    connect(redoKey, &QShortcut::activated, this, [this] { runCommand(design_command::Redo); });

    addControls();
    addFields();
    setLanguage(language);
    updateUndoButtons();
    updateFlipBoxes();
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
    for (const auto& [label, number] : labels_)
        label->setText(StringTable::Get(number, language));
    for (const auto& [button, number] : buttonTexts_)
        button->setText(StringTable::Get(number, language));
    for (const auto& [menu, number] : menuTexts_)
        menu->setTitle(StringTable::Get(number, language));
    for (const auto& [action, number] : actionTexts_)
        action->setText(StringTable::Get(number, language));
}

// Events reach the window in its own points; the gestures take them in the client area's.
Position CDesignDialog::clientPoint(const QMouseEvent* event) const
{
    const QPoint point = event->position().toPoint() - client_->pos();
    return {point.x(), point.y()};
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
        deleteSelection();
        return;
    case Qt::Key_Shift:
        controller_.shiftKeyDown();
        return;
    default:
        // A field passes on the arrows it has no use for (up and down); typing must not move the sprites.
        if (const int arrow = spriteArrowOf(event->key());
            arrow != 0 && event->modifiers() == Qt::NoModifier && !fieldHasFocus())
            runCommand(arrow);
        else
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
    keepDesign();
    QDialog::closeEvent(event);
}

void CDesignDialog::done(int result)
{
    // A dialog ended with a result is closed by Qt without a close event.
    keepDesign();
    QDialog::done(result);
}

void CDesignDialog::keepDesign()
{
    if (saved_)
        return;
    saved_ = true;
    preview_->hide();
    // The canvas thread reads nothing of the document, but it must not outlive the window's last picture.
    canvasThread_.stop();
    CloseDesigner(editor_);
}

bool CDesignDialog::fieldHasFocus() const
{
    const QWidget* focus = focusWidget();
    return focus == captionField_ || focus == textField_;
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
    if (result.flipChecks)
        showFlipChecks(*result.flipChecks);
    if (result.updateFlipBoxes)
        updateFlipBoxes();
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
    showFields();
    apply(GestureResult{ViewSet::all(), true, std::nullopt});
}

void CDesignDialog::deleteSelection()
{
    DeleteSelection(editor_);
    redrawEverything();
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
    undoButton()->setEnabled(editor_.history.undoEnabled);
    redoButton()->setEnabled(editor_.history.redoEnabled);
}

} // namespace zunbrix
