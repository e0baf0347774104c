// A developer's look at the pictures: writes the factory design's canvas, each view and the views at their
// places in the window as PNG files into designer_pictures/ beside the test, by wrapping each surface's rows
// in a QImage as the window does.

#include "designer/canvas_renderer.h"
#include "designer/views.h"
#include "designer/view_layout.h"

#include "support/private_settings.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

QImage wrap(const Surface& surface)
{
    return QImage(reinterpret_cast<const uchar*>(surface.data()), surface.width(), surface.height(),
                  surface.bytesPerLine(), QImage::Format_RGB32);
}

TEST(DesignPictures, FactoryDesignIsWrittenForALook)
{
    zunbrix::testing::PrivateSettings settings;
    DesignDocument document;
    DesignEditor editor(document);
    QStringList names;
    for (int i = 1; i <= 24; ++i)
        names << QStringLiteral("%1. Sample game %2").arg(i).arg(i);
    editor.SetCaption(DefaultCaption(names.size()));
    ASSERT_TRUE(editor.SetList(names, 20, false));
    editor.SetShowPageNumber(true);
    ASSERT_TRUE(document.LoadDesign());
    editor.beginEditing();
    editor.resetAll();

    TileAtlas atlas;
    atlas.RebuildAtlas(document, 0, 4, 0, 4);
    const GestureMarks marks;
    std::array<Surface, kViewPlaces.size()> views;
    const auto view = [&views](DesignView which) -> Surface& { return views[static_cast<std::size_t>(which)]; };
    CanvasRenderer().draw(CaptureCanvasScene(editor, marks, atlas), view(DesignView::NameTableView));
    RefreshTargetCharRow(view(DesignView::TargetCharRow), editor, BuildFontAtlas(document.DefaultChr));
    RefreshSourceCharRow(view(DesignView::SourceCharRow), editor, atlas);
    RefreshBgChrView(view(DesignView::BgChrView), editor, marks, atlas);
    RefreshSpChrView(view(DesignView::SpChrView), editor, marks, atlas);
    RefreshBgTileEditor(view(DesignView::BgTileEditor), editor, atlas);
    RefreshSpTileEditor(view(DesignView::SpTileEditor), editor, atlas);
    RefreshAttrView(view(DesignView::AttrView), editor);
    RefreshBgPaletteView(view(DesignView::BgPaletteView), editor);
    RefreshSpPaletteView(view(DesignView::SpPaletteView), editor);
    RefreshMasterPaletteView(view(DesignView::MasterPaletteView), editor);

    const QString folder = QDir::currentPath() + QStringLiteral("/designer_pictures");
    ASSERT_TRUE(QDir().mkpath(folder));
    const char* const fileNames[] = {"target_char_row", "source_char_row", "canvas", "bg_chr_view",
                                     "sp_chr_view", "bg_tile_editor", "sp_tile_editor", "attr_view",
                                     "bg_palette_view", "sp_palette_view", "master_palette_view"};
    Surface window(kDesignClientWidth, kDesignClientHeight, 0xBEB9FF);
    for (const ViewPlace& place : kViewPlaces) {
        const Surface& picture = views[static_cast<std::size_t>(place.view)];
        ASSERT_EQ(picture.width(), place.width);
        ASSERT_EQ(picture.height(), place.height);
        const QString file = folder + '/' + QLatin1String(fileNames[static_cast<std::size_t>(place.view)]) + ".png";
        EXPECT_TRUE(wrap(picture).save(file)) << file.toStdString();
        StretchCopy(window, PixelRect::sized(place.left, place.top, place.width, place.height), picture,
                    {0, 0, place.width, place.height});
    }
    EXPECT_TRUE(wrap(window).save(folder + QStringLiteral("/window.png")));
}

} // namespace
