#include "designer/canvas_scene.h"

namespace zunbrix {

CanvasScene CaptureCanvasScene(const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas)
{
    const DesignDocument& document = editor.document();
    CanvasScene scene;
    scene.atlas = atlas.share();

    scene.Attributes = document.Attributes;
    scene.BkgPalette = document.BkgPalette;
    scene.SpritePalette = document.SpritePalette;
    scene.CharMapData = document.CharMapData;
    scene.BigSprite = document.BigSprite != 0;

    scene.BkgTileList = document.BkgTileList;
    scene.SpriteTileList = document.SpriteTileList;
    scene.ArrowTile = document.ArrowTile;
    scene.ArrowTileList = document.ArrowTileList;
    scene.BigCursor = editor.BigCursor != 0;
    scene.CustomText = document.CustomText;
    scene.ScratchText = marks.ScratchText;
    scene.CaptionText = document.CaptionText;
    scene.CaptionPos = editor.CaptionPos;
    scene.VisibleLines = editor.sampleList.VisibleLines();
    scene.ItemPos = editor.ItemPos;
    scene.PageNumberText = editor.sampleList.PageNumberText();
    scene.PageNumberPos = editor.PageNumberPos;
    scene.ShowPageNumber = editor.ShowPageNumber;

    scene.AttrCellPos = editor.AttrCellPos;
    scene.AttrQuadPos = editor.AttrQuadPos;
    scene.NameTablePos = editor.NameTablePos;
    if (marks.RubberBand)
        scene.rubberBand = marks.nameTableBand.rect();

    scene.FillColor = editor.FillColor;
    scene.DrawLine = editor.DrawLine;
    scene.MarkCursor = editor.MarkCursor;
    scene.Show_Bg_Tile = editor.Show_Bg_Tile;
    scene.Show_Sp_Tile = editor.Show_Sp_Tile;
    scene.Show_List = editor.Show_List;
    scene.Show_Custom_Text = editor.Show_Custom_Text;
    scene.Show_Caption = editor.Show_Caption;
    scene.Show_Cursor = editor.Show_Cursor;
    return scene;
}

} // namespace zunbrix
