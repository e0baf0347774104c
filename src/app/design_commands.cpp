// The designer window's buttons, check boxes and menu bar, and what each command does. The commands that
// change the design are the engine's (document_commands, tile_tools, char_mapping), each its own undo step;
// the window only reads its controls and calls them.
#include "app/design_dialog.h"

#include "designer/char_mapping.h"
#include "designer/document_commands.h"
#include "designer/tile_tools.h"
#include "designer/undo_history.h"
#include "frame/text_ids.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>

namespace zunbrix {

namespace {

namespace c = design_command;

enum class ControlKind { Button, CheckBox };

// A button or check box at its place in the client area. The canvases' places are fixed; these fill the room
// left around them, each near what it works on.
struct ControlPlace {
    int command;
    int text; // 0: an arrow, which shows `arrow` in every language
    int x;
    int y;
    int width;
    ControlKind kind = ControlKind::Button;
    char16_t arrow = 0;
};

constexpr int kRowHeight = 22;
constexpr auto kCheck = ControlKind::CheckBox;
constexpr char16_t kLeft = u'\u2190', kUp = u'\u2191', kRight = u'\u2192', kDown = u'\u2193';

constexpr ControlPlace kControls[] = {
    // Beside the character strips: the character map and the quick modes that map by clicking.
    {c::QuickFromBg, text::QuickFromBgCheck, 120, 56, 262, kCheck},
    {c::QuickToBg, text::QuickToBgCheck, 386, 56, 250, kCheck},
    {c::QuickToSp, text::QuickToSpCheck, 640, 56, 230, kCheck},
    {c::ExportCharMap, text::ExportButton, 904, 56, 60},
    {c::ResetCharMap, text::ResetButton, 968, 56, 60},
    // The text list, beside the text field.
    {c::AddText, text::AddButton, 708, 16, 56},
    {c::LoadTextList, text::LoadButton, 862, 16, 54},
    {c::SaveTextList, text::SaveButton, 918, 16, 54},
    {c::ResetTextList, text::ResetButton, 974, 16, 54},
    // Over the canvas: the name table page and the pages of the sample list.
    {c::LoadNameTablePage, text::LoadButton, 110, 100, 54},
    {c::SaveNameTablePage, text::SaveButton, 166, 100, 54},
    {c::ResetNameTablePage, text::ResetButton, 222, 100, 54},
    {c::FirstPage, text::FirstPageButton, 394, 100, 32},
    {c::PreviousPage, text::PreviousPageButton, 428, 100, 32},
    {c::NextPage, text::NextPageButton, 462, 100, 32},
    {c::LastPage, text::LastPageButton, 496, 100, 32},
    // Beneath the canvas: history, the whole menu, the two lists with their arrows, sprite bits.
    {c::Undo, text::UndoButton, 16, 612, 76},
    {c::Redo, text::RedoButton, 96, 612, 76},
    {c::LoadMenu, text::LoadButton, 304, 612, 72},
    {c::SaveMenu, text::SaveButton, 380, 612, 72},
    {c::ResetMenu, text::ResetButton, 456, 612, 72},
    {c::LoadNameTable, text::LoadButton, 16, 666, 54},
    {c::SaveNameTable, text::SaveButton, 72, 666, 54},
    {c::SelectAllBkgTiles, text::SelectAllButton, 128, 666, 84},
    {c::InvertBkgTiles, text::SelectInverseButton, 214, 666, 104},
    {c::ResetBkgTiles, text::ResetButton, 320, 666, 54},
    {c::BkgLeft, 0, 384, 666, 34, ControlKind::Button, kLeft},
    {c::BkgRight, 0, 420, 666, 34, ControlKind::Button, kRight},
    {c::BkgUp, 0, 456, 666, 34, ControlKind::Button, kUp},
    {c::BkgDown, 0, 492, 666, 34, ControlKind::Button, kDown},
    {c::LoadSprites, text::LoadButton, 16, 720, 54},
    {c::SaveSprites, text::SaveButton, 72, 720, 54},
    {c::SelectAllSprites, text::SelectAllButton, 128, 720, 84},
    {c::InvertSprites, text::SelectInverseButton, 214, 720, 104},
    {c::ResetSprites, text::ResetButton, 320, 720, 54},
    {c::SpriteLeft, 0, 384, 720, 34, ControlKind::Button, kLeft},
    {c::SpriteRight, 0, 420, 720, 34, ControlKind::Button, kRight},
    {c::SpriteUp, 0, 456, 720, 34, ControlKind::Button, kUp},
    {c::SpriteDown, 0, 492, 720, 34, ControlKind::Button, kDown},
    {c::SwapSpriteHalves, text::SwapSpriteHalvesButton, 16, 748, 54},
    {c::VerticalFlip, text::VerticalFlipCheck, 84, 748, 130, kCheck},
    {c::HorizontalFlip, text::HorizontalFlipCheck, 216, 748, 140, kCheck},
    {c::BehindBackground, text::BehindBackgroundCheck, 358, 748, 170, kCheck},
    // Beside the zoomed tiles: each bank's file, reset, and the exchange of the two banks.
    {c::LoadBkgChr, text::LoadButton, 682, 388, 120},
    {c::SaveBkgChr, text::SaveButton, 682, 414, 120},
    {c::ResetBkgChr, text::ResetButton, 682, 440, 120},
    {c::SwapChr, text::SwapChrButton, 682, 490, 120},
    {c::LoadSpriteChr, text::LoadButton, 946, 388, 120},
    {c::SaveSpriteChr, text::SaveButton, 946, 414, 120},
    {c::ResetSpriteChr, text::ResetButton, 946, 440, 120},
    // Right of the two palette strips.
    {c::LoadBkgPalette, text::LoadButton, 958, 575, 41},
    {c::SaveBkgPalette, text::SaveButton, 1000, 575, 41},
    {c::ResetBkgPalette, text::ResetButton, 1042, 575, 42},
    {c::LoadSpritePalette, text::LoadButton, 958, 633, 41},
    {c::SaveSpritePalette, text::SaveButton, 1000, 633, 41},
    {c::ResetSpritePalette, text::ResetButton, 1042, 633, 42},
    // Beneath the attribute picture, its arrows in a cross.
    {c::LoadAttributes, text::LoadButton, 546, 732, 48},
    {c::SaveAttributes, text::SaveButton, 596, 732, 48},
    {c::ResetAttributes, text::ResetButton, 646, 732, 48},
    {c::AttrUp, 0, 596, 760, 48, ControlKind::Button, kUp},
    {c::AttrLeft, 0, 546, 786, 48, ControlKind::Button, kLeft},
    {c::AttrRight, 0, 646, 786, 48, ControlKind::Button, kRight},
    {c::AttrDown, 0, 596, 812, 48, ControlKind::Button, kDown},
    // Beneath the master palette: how the canvas edits and shows.
    {c::FillColor, text::FillColorCheck, 698, 770, 190, kCheck},
    {c::DrawLine, text::DrawLineCheck, 890, 770, 190, kCheck},
    {c::DragText, text::DragTextCheck, 698, 794, 190, kCheck},
    {c::MarkCursor, text::MarkCursorCheck, 890, 794, 190, kCheck},
    {c::QuickStamp, text::QuickActionCheck, 698, 818, 190, kCheck},
    {c::BigCursor, text::BigCursorCheck, 890, 818, 190, kCheck},
    {c::BigSprite, text::BigSpriteCheck, 698, 842, 190, kCheck},
};

struct LabelPlace {
    int text;
    int x;
    int y;
    int width;
};

constexpr LabelPlace kLabels[] = {
    {text::TextListLabel, 776, 18, 84},
    {text::BkgTileListLabel, 16, 646, 200},
    {text::SpriteTileListLabel, 16, 700, 200},
    {text::AttributesLabel, 546, 712, 148},
};

// Check boxes that set a flag of the window's own and redraw; they make no undo step. The quick modes are
// dropped by the gestures, which the boxes then show.
struct FlagBox {
    int command;
    bool DesignEditor::* flag;
};

constexpr FlagBox kFlagBoxes[] = {
    {c::FillColor, &DesignEditor::FillColor},     {c::DrawLine, &DesignEditor::DrawLine},
    {c::DragText, &DesignEditor::DragText},       {c::MarkCursor, &DesignEditor::MarkCursor},
    {c::QuickFromBg, &DesignEditor::QuickFromBg}, {c::QuickToBg, &DesignEditor::QuickToBg},
    {c::QuickToSp, &DesignEditor::QuickToSp},     {c::QuickStamp, &DesignEditor::QuickStamp},
};

struct FlipBox {
    int command;
    std::uint8_t bit;
};

constexpr FlipBox kFlipBoxes[] = {
    {c::VerticalFlip, flip_bit::Vertical},
    {c::HorizontalFlip, flip_bit::Horizontal},
    {c::BehindBackground, flip_bit::BehindBackground},
};

// The menu bar: the four popups and their items; command 0 is a separator. The display items carry a check
// mark that shows their flag.
struct MenuItem {
    int command;
    int text;
};

struct Popup {
    int text;
    std::initializer_list<MenuItem> items;
};

const Popup kPopups[] = {
    {text::FileMenu, {{c::Exit, text::ExitItem}}},
    {text::EditMenu,
     {{c::ClearUnusedBkgTiles, text::ClearUnusedBkgItem},
      {c::ClearUnusedSpriteTiles, text::ClearUnusedSpriteItem},
      {0, 0},
      {c::AutoMapUsedCharacters, text::AutoMapUsedItem},
      {c::AutoMapAllCharacters, text::AutoMapAllItem},
      {c::GlyphsToBkgTiles, text::GlyphsToBkgItem},
      {c::GlyphsToSpriteTiles, text::GlyphsToSpriteItem}}},
    {text::TileToolMenu,
     {{c::OrganizeBkgTiles, text::OrganizeBkgItem},
      {c::OrganizeSpriteTiles, text::OrganizeSpriteItem},
      {0, 0},
      {c::CopyBkgToSprite, text::CopyBkgToSpriteItem},
      {c::CopySpriteToBkg, text::CopySpriteToBkgItem},
      {c::SpritesToSingleHeight, text::SpritesToSingleHeightItem},
      {c::ExchangeOddEven, text::ExchangeOddEvenItem},
      {c::BkgTilesToSprites, text::BkgTilesToSpritesItem},
      {0, 0},
      {c::RotateLeftWithBackground, text::RotateLeftWithBackgroundItem},
      {c::RotateRightWithBackground, text::RotateRightWithBackgroundItem},
      {c::RotateLeftWithoutBackground, text::RotateLeftWithoutBackgroundItem},
      {c::RotateRightWithoutBackground, text::RotateRightWithoutBackgroundItem},
      {0, 0},
      {c::RemoveColor0 + 1, text::RemoveColor1Item},
      {c::RemoveColor0 + 2, text::RemoveColor2Item},
      {c::RemoveColor0 + 3, text::RemoveColor3Item},
      {0, 0},
      {c::PixelsUp, text::PixelsUpItem},
      {c::PixelsDown, text::PixelsDownItem},
      {c::PixelsLeft, text::PixelsLeftItem},
      {c::PixelsRight, text::PixelsRightItem},
      {0, 0},
      {c::SwapColors12, text::SwapColors12Item},
      {c::SwapColors13, text::SwapColors13Item},
      {c::SwapColors23, text::SwapColors23Item}}},
    {text::DisplayMenu,
     {{c::ShowBgTile, text::ShowBgTileItem},
      {c::ShowSpTile, text::ShowSpTileItem},
      {c::ShowList, text::ShowListItem},
      {c::ShowCustomText, text::ShowCustomTextItem},
      {c::ShowCaption, text::ShowCaptionItem},
      {c::ShowCursor, text::ShowCursorItem}}},
};

struct DisplayItem {
    int command;
    bool DesignEditor::* flag;
};

constexpr DisplayItem kDisplayItems[] = {
    {c::ShowBgTile, &DesignEditor::Show_Bg_Tile},         {c::ShowSpTile, &DesignEditor::Show_Sp_Tile},
    {c::ShowList, &DesignEditor::Show_List},              {c::ShowCustomText, &DesignEditor::Show_Custom_Text},
    {c::ShowCaption, &DesignEditor::Show_Caption},        {c::ShowCursor, &DesignEditor::Show_Cursor},
};

// Commands that are one call of the engine, each its own undo step (or none where its guard fails).
using EditorCommand = void (*)(DesignEditor&);
struct EngineCommand {
    int command;
    EditorCommand run;
};

const EngineCommand kEngineCommands[] = {
    {c::ResetMenu, ResetEverything},
    {c::ResetNameTablePage, ResetNameTableSection},
    {c::ResetTextList, ResetCustomTexts},
    {c::ResetAttributes, ResetAttributeTable},
    {c::ResetBkgChr, ResetBkgChr},
    {c::ResetSpriteChr, ResetSpriteChr},
    {c::ResetBkgPalette, ResetBkgPalette},
    {c::ResetSpritePalette, ResetSpritePalette},
    {c::ResetBkgTiles, ResetBkgTileList},
    {c::ResetSprites, ResetSpriteList},
    {c::ResetCharMap, ResetCharacterMap},
    {c::SwapChr, SwapChrBanks},
    {c::SelectAllBkgTiles, SelectAllBkgTiles},
    {c::InvertBkgTiles, InvertBkgTileSelection},
    {c::SelectAllSprites, SelectAllSprites},
    {c::InvertSprites, InvertSpriteSelection},
    {c::SwapSpriteHalves, SwapSpriteHalves},
    {c::AddText, AddCustomText},
    {c::BkgLeft, [](DesignEditor& e) { MoveBkgTiles(e, -1, 0); }},
    {c::BkgRight, [](DesignEditor& e) { MoveBkgTiles(e, 1, 0); }},
    {c::BkgUp, [](DesignEditor& e) { MoveBkgTiles(e, 0, -1); }},
    {c::BkgDown, [](DesignEditor& e) { MoveBkgTiles(e, 0, 1); }},
    {c::AttrLeft, [](DesignEditor& e) { ShiftAttributes(e, ShiftDirection::Left); }},
    {c::AttrRight, [](DesignEditor& e) { ShiftAttributes(e, ShiftDirection::Right); }},
    {c::AttrUp, [](DesignEditor& e) { ShiftAttributes(e, ShiftDirection::Up); }},
    {c::AttrDown, [](DesignEditor& e) { ShiftAttributes(e, ShiftDirection::Down); }},
    {c::ClearUnusedBkgTiles, ClearUnusedBkgTiles},
    {c::ClearUnusedSpriteTiles, ClearUnusedSpriteTiles},
    {c::AutoMapUsedCharacters, AutoMapUsedCharacters},
    {c::AutoMapAllCharacters, AutoMapAllCharacters},
    {c::GlyphsToBkgTiles, CopyGlyphsToBkgTiles},
    {c::GlyphsToSpriteTiles, CopyGlyphsToSpriteTiles},
    {c::OrganizeBkgTiles, OrganizeBkgTiles},
    {c::OrganizeSpriteTiles, OrganizeSpriteTiles},
    {c::CopyBkgToSprite, CopyMarkedBkgToSprite},
    {c::CopySpriteToBkg, CopyMarkedSpriteToBkg},
    {c::SpritesToSingleHeight, SpritesToSingleHeight},
    {c::ExchangeOddEven, ExchangeOddEvenSprites},
    {c::BkgTilesToSprites, BkgTilesToSprites},
    {c::RotateLeftWithBackground, [](DesignEditor& e) { RotateColors(e, RotatedColors::All, ColorRotation::Left); }},
    {c::RotateRightWithBackground, [](DesignEditor& e) { RotateColors(e, RotatedColors::All, ColorRotation::Right); }},
    {c::RotateLeftWithoutBackground,
     [](DesignEditor& e) { RotateColors(e, RotatedColors::ExceptBackground, ColorRotation::Left); }},
    {c::RotateRightWithoutBackground,
     [](DesignEditor& e) { RotateColors(e, RotatedColors::ExceptBackground, ColorRotation::Right); }},
    {c::RemoveColor0, [](DesignEditor& e) { RemoveColor(e, 0); }},
    {c::RemoveColor0 + 1, [](DesignEditor& e) { RemoveColor(e, 1); }},
    {c::RemoveColor0 + 2, [](DesignEditor& e) { RemoveColor(e, 2); }},
    {c::RemoveColor0 + 3, [](DesignEditor& e) { RemoveColor(e, 3); }},
    {c::PixelsUp, [](DesignEditor& e) { ShiftPixels(e, ShiftDirection::Up); }},
    {c::PixelsDown, [](DesignEditor& e) { ShiftPixels(e, ShiftDirection::Down); }},
    {c::PixelsLeft, [](DesignEditor& e) { ShiftPixels(e, ShiftDirection::Left); }},
    {c::PixelsRight, [](DesignEditor& e) { ShiftPixels(e, ShiftDirection::Right); }},
    {c::SwapColors12, [](DesignEditor& e) { SwapColors(e, 1, 2); }},
    {c::SwapColors13, [](DesignEditor& e) { SwapColors(e, 1, 3); }},
    {c::SwapColors23, [](DesignEditor& e) { SwapColors(e, 2, 3); }},
};

template <typename Table>
auto findEntry(const Table& table, int command) -> decltype(&*std::begin(table))
{
    for (const auto& entry : table) {
        if (entry.command == command)
            return &entry;
    }
    return nullptr;
}

} // namespace

void CDesignDialog::addControls()
{
    for (const ControlPlace& place : kControls) {
        QAbstractButton* control = nullptr;
        if (place.kind == ControlKind::CheckBox)
            control = new QCheckBox(client_);
        else
            control = new QPushButton(client_);
        // The keyboard stays with the window (arrows, Delete, Shift) unless a field takes it.
        control->setFocusPolicy(Qt::NoFocus);
        control->setGeometry(place.x, place.y, place.width, kRowHeight);
        if (place.text != 0)
            buttonTexts_.emplace_back(control, place.text);
        else
            control->setText(QString(QChar(place.arrow)));
        controls_.emplace(place.command, control);
        connect(control, &QAbstractButton::clicked, this, [this, command = place.command] { runCommand(command); });
    }
    for (const LabelPlace& place : kLabels) {
        auto* label = new QLabel(client_);
        label->setGeometry(place.x, place.y, place.width, kRowHeight - 4);
        labels_.emplace_back(label, place.text);
    }
}

void CDesignDialog::addMenus()
{
    for (const Popup& popup : kPopups) {
        QMenu* menu = menuBar_->addMenu(QString());
        menuTexts_.emplace_back(menu, popup.text);
        for (const MenuItem& item : popup.items) {
            if (item.command == 0) {
                menu->addSeparator();
                continue;
            }
            QAction* action = menu->addAction(QString());
            if (const DisplayItem* display = findEntry(kDisplayItems, item.command)) {
                action->setCheckable(true);
                action->setChecked(editor_.*display->flag);
            }
            actionTexts_.emplace_back(action, item.text);
            actions_.emplace(item.command, action);
            connect(action, &QAction::triggered, this, [this, command = item.command] { runCommand(command); });
        }
    }
}

QAbstractButton* CDesignDialog::control(int command) const
{
    const auto found = controls_.find(command);
    return found == controls_.end() ? nullptr : found->second;
}

QCheckBox* CDesignDialog::checkBox(int command) const
{
    return qobject_cast<QCheckBox*>(control(command));
}

QAction* CDesignDialog::menuAction(int command) const
{
    const auto found = actions_.find(command);
    return found == actions_.end() ? nullptr : found->second;
}

void CDesignDialog::runCommand(int command)
{
    if (runFileCommand(command))
        return;
    const bool checked = control(command) != nullptr && control(command)->isChecked();
    if (const EngineCommand* engine = findEntry(kEngineCommands, command)) {
        engine->run(editor_);
        if (command == c::ResetAttributes)
            controller_.rereadAttribute();
    }
    else if (const FlagBox* box = findEntry(kFlagBoxes, command))
        editor_.*box->flag = checked;
    else if (const FlipBox* flip = findEntry(kFlipBoxes, command))
        SetSpriteFlipBit(editor_, flip->bit, checked);
    else if (const DisplayItem* display = findEntry(kDisplayItems, command))
        editor_.*display->flag = !(editor_.*display->flag);
    else {
        // Sprites move by a pixel, by a cell while Shift is held as the arrow is clicked.
        const int step = host_.shiftHeld() ? 8 : 1;
        switch (command) {
        case c::Undo: stepHistory(Undo); return;
        case c::Redo: stepHistory(Redo); return;
        case c::Exit: close(); return;
        case c::BigCursor: SetBigCursor(editor_, checked); break;
        case c::BigSprite: SetBigSprite(editor_, checked); break;
        case c::SpriteLeft: MoveSprites(editor_, -step, 0); break;
        case c::SpriteRight: MoveSprites(editor_, step, 0); break;
        case c::SpriteUp: MoveSprites(editor_, 0, -step); break;
        case c::SpriteDown: MoveSprites(editor_, 0, step); break;
        case c::FirstPage: editor_.sampleList.firstPage(); break;
        case c::PreviousPage: editor_.sampleList.previousPage(); break;
        case c::NextPage: editor_.sampleList.nextPage(); break;
        case c::LastPage: editor_.sampleList.lastPage(); break;
        default: return;
        }
    }
    redrawEverything();
}

void CDesignDialog::showChecks()
{
    for (const FlagBox& flagBox : kFlagBoxes) {
        QCheckBox* box = checkBox(flagBox.command);
        const QSignalBlocker quiet(box);
        box->setChecked(editor_.*flagBox.flag);
    }
    for (const DisplayItem& item : kDisplayItems)
        menuAction(item.command)->setChecked(editor_.*item.flag);
    for (const auto& [command, on] : {std::pair{c::BigCursor, editor_.BigCursor != 0},
                                      std::pair{c::BigSprite, editor_.document().BigSprite != 0}}) {
        QCheckBox* box = checkBox(command);
        const QSignalBlocker quiet(box);
        box->setChecked(on);
    }
}

void CDesignDialog::updateFlipBoxes()
{
    const bool enabled = FlipBitsEnabled(editor_);
    for (const FlipBox& flip : kFlipBoxes)
        control(flip.command)->setEnabled(enabled);
}

void CDesignDialog::showFlipChecks(std::uint8_t bits)
{
    for (const FlipBox& flip : kFlipBoxes) {
        QAbstractButton* box = control(flip.command);
        const QSignalBlocker quiet(box);
        box->setChecked((bits & flip.bit) != 0);
    }
}

} // namespace zunbrix
