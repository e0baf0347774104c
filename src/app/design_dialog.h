#pragma once

// The menu designer's window: the canvas and the pictures beside it at their fixed places, driven by the
// mouse gestures, with undo and redo. The main window creates it modeless on the process's design document,
// hands over the caption and the sample names through editor() (SetCaption, SetList), calls openDesign() and
// shows it. Closing it (the close button or Escape) saves the design to the settings store; finished() follows.

#include "app/design_picture.h"
#include "designer/canvas_renderer.h"
#include "designer/canvas_thread.h"
#include "designer/design_editor.h"
#include "designer/design_error.h"
#include "designer/gesture_controller.h"
#include "designer/tile_atlas.h"
#include "frame/string_table.h"

#include <QDialog>

#include <array>
#include <optional>
#include <utility>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;

namespace zunbrix {

class CDesignDialog : public QDialog {
    Q_OBJECT

public:
    CDesignDialog(DesignDocument& document, Language language, QWidget* parent = nullptr);
    ~CDesignDialog() override;

    DesignEditor& editor() { return editor_; }
    // Loads the stored design, its history and the window's own values, and draws every picture. False when
    // there are no factory tiles to start from.
    bool openDesign();
    void setLanguage(Language language);

    // The picture showing `view`, for the tests and the screenshots.
    QWidget* picture(DesignView view) const { return pictures_[static_cast<std::size_t>(view)]; }
    // The check box showing the text of that number.
    QCheckBox* checkBox(int text) const;
    QWidget* dragPreview() const { return preview_; }
    QPushButton* undoButton() const { return undoButton_; }
    QPushButton* redoButton() const { return redoButton_; }

Q_SIGNALS:
    // Emitted on the canvas thread when it hands over a new picture; delivered queued.
    void canvasHandedOver();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // Where the gestures find the pictures and the keys.
    class Host : public GestureHost {
    public:
        CanvasFrame canvasFrame(DesignView view) const override { return FixedCanvasFrame(view); }
        bool shiftHeld() const override;
        bool ctrlHeld() const override;
    };

    // Qt hands over the second press of a double click as a press followed by the double click; the gestures
    // take the double click in its place. Judged by the same rule as Qt's: time, distance and button.
    bool secondPressOfDoubleClick(const QMouseEvent* event);
    void apply(const GestureResult& result);
    // Draws the pictures named again; the canvas through its thread.
    void redraw(ViewSet views);
    void refreshView(DesignView view);
    void requestCanvas();
    void showPreview();
    // After the document changed wholesale (undo, redo, delete): every colour and every picture anew.
    void redrawEverything();
    void addCheckBoxes();
    // The check boxes as the editor stands: the gestures drop the quick modes, undo brings a cursor back.
    void showChecks();
    // Undo or Redo; a snapshot that can't be applied is named in a message and the design stays.
    void stepHistory(DesignResult (*step)(DesignEditor&));
    void updateUndoButtons();

    Language language_;
    DesignEditor editor_;
    TileAtlas atlas_;
    Surface fontAtlas_;
    Host host_;
    GestureController controller_;
    std::array<Surface, kViewPlaces.size()> views_;
    std::array<DesignPicture*, kViewPlaces.size()> pictures_{};
    std::vector<std::pair<QLabel*, int>> labels_; // with the number of its text
    std::vector<std::pair<QCheckBox*, int>> checkBoxes_; // with the number of its text
    std::vector<std::pair<QCheckBox*, bool DesignEditor::*>> flagBoxes_;
    QCheckBox* bigCursorBox_ = nullptr;
    QCheckBox* bigSpriteBox_ = nullptr;
    DesignPicture* preview_ = nullptr;
    QPushButton* undoButton_ = nullptr;
    QPushButton* redoButton_ = nullptr;
    std::optional<QPoint> firstPress_; // a left press that a second one may make a double click
    quint64 firstPressTime_ = 0;
    bool saved_ = false;
    CanvasRenderer renderer_; // used on the canvas thread only
    CanvasThread canvasThread_; // last: stopped before what it draws with goes away
};

} // namespace zunbrix
