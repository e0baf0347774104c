#pragma once

// The menu designer's window: the canvas and the pictures beside it at their fixed places in a client area
// beneath the menu bar, driven by the mouse gestures, the buttons and menu commands (design_commands.cpp),
// the Load and Save buttons (design_files.cpp) and the caption and text fields (design_fields.cpp). The main
// window creates it modeless on the process's design document, hands over the caption and the sample names
// through editor() (SetCaption, SetList), calls openDesign() and shows it. Closing it (the close button,
// Escape or Exit) saves the design to the settings store; finished() follows.

#include "app/design_commands.h"
#include "app/design_picture.h"
#include "app/design_questions.h"
#include "designer/canvas_renderer.h"
#include "designer/canvas_thread.h"
#include "designer/design_editor.h"
#include "designer/design_error.h"
#include "designer/gesture_controller.h"
#include "designer/tile_atlas.h"
#include "frame/string_table.h"

#include <QDialog>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QAbstractButton;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;

namespace zunbrix {

class CDesignDialog : public QDialog {
    Q_OBJECT

public:
    CDesignDialog(DesignDocument& document, Language language, QWidget* parent = nullptr,
                  std::unique_ptr<DesignQuestions> questions = std::make_unique<DesignDialogQuestions>());
    ~CDesignDialog() override;

    DesignEditor& editor() { return editor_; }
    // Loads the stored design, its history and the window's own values, and draws every picture. False when
    // there are no factory tiles to start from.
    bool openDesign();
    void setLanguage(Language language);
    // Ends the window as a close does, saving the design.
    void done(int result) override;

    // Runs the command of that number (design_commands.h) as its button, check box or menu item does.
    void runCommand(int command);

    // For the tests and the screenshots: the area the pictures' places are measured in, the picture showing
    // `view`, the button or check box and the menu item of a command.
    QWidget* client() const { return client_; }
    QWidget* picture(DesignView view) const { return pictures_[static_cast<std::size_t>(view)]; }
    QAbstractButton* control(int command) const;
    QCheckBox* checkBox(int command) const;
    QAction* menuAction(int command) const;
    QMenuBar* menuBar() const { return menuBar_; }
    QLineEdit* captionField() const { return captionField_; }
    QLineEdit* textField() const { return textField_; }
    QWidget* dragPreview() const { return preview_; }
    QAbstractButton* undoButton() const { return control(design_command::Undo); }
    QAbstractButton* redoButton() const { return control(design_command::Redo); }

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
    // The keys of the caption and text fields.
    bool eventFilter(QObject* watched, QEvent* event) override;

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
    Position clientPoint(const QMouseEvent* event) const;
    void apply(const GestureResult& result);
    // Draws the pictures named again; the canvas through its thread.
    void redraw(ViewSet views);
    void refreshView(DesignView view);
    void requestCanvas();
    void showPreview();
    // After the document changed wholesale (undo, redo, delete): every colour and every picture anew.
    void redrawEverything();
    // The buttons, check boxes, fields and labels at their places; the menu bar (design_commands.cpp).
    void addControls();
    void addMenus();
    // The caption and text fields (design_fields.cpp).
    void addFields();
    bool fieldKeyPressed(QLineEdit* field, const QKeyEvent* event);
    bool fieldHasFocus() const;
    void fieldKeyReleased(QLineEdit* field, const QKeyEvent* event);
    // The Load and Save buttons (design_files.cpp); false for any other command.
    bool runFileCommand(int command);
    // The check boxes and display items as the editor stands: the gestures drop the quick modes, undo
    // brings a cursor back; the fields show the caption and text kept.
    void showChecks();
    void showFields();
    void updateFlipBoxes();
    // The flip check boxes show the bits of a sprite taken up or dropped.
    void showFlipChecks(std::uint8_t bits);
    // A command of the Delete key: it works also while a field has the focus.
    void deleteSelection();
    // Undo or Redo; a snapshot that can't be applied is named in a message and the design stays.
    void stepHistory(DesignResult (*step)(DesignEditor&));
    // Once, at the first close: stops the canvas thread and saves the design to the settings store.
    void keepDesign();
    void updateUndoButtons();

    Language language_;
    DesignEditor editor_;
    TileAtlas atlas_;
    Surface fontAtlas_;
    Host host_;
    GestureController controller_;
    std::array<Surface, kViewPlaces.size()> views_;
    std::unique_ptr<DesignQuestions> questions_;
    QMenuBar* menuBar_ = nullptr;
    QWidget* client_ = nullptr;
    std::array<DesignPicture*, kViewPlaces.size()> pictures_{};
    // Each with the number of its text.
    std::vector<std::pair<QLabel*, int>> labels_;
    std::vector<std::pair<QAbstractButton*, int>> buttonTexts_;
    std::vector<std::pair<QMenu*, int>> menuTexts_;
    std::vector<std::pair<QAction*, int>> actionTexts_;
    std::map<int, QAbstractButton*> controls_; // by command
    std::map<int, QAction*> actions_;          // by command
    QLineEdit* captionField_ = nullptr;
    QLineEdit* textField_ = nullptr;
    DesignPicture* preview_ = nullptr;
    std::optional<QPoint> firstPress_; // a left press that a second one may make a double click
    quint64 firstPressTime_ = 0;
    bool saved_ = false;
    CanvasRenderer renderer_; // used on the canvas thread only
    CanvasThread canvasThread_; // last: stopped before what it draws with goes away
};

} // namespace zunbrix
