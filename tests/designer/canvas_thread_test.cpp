#include "designer/canvas_thread.h"

#include "render_fixture.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace zunbrix;
using namespace zunbrix::testing;
using namespace std::chrono_literals;

namespace {

// A drawing that notes which scene it drew and can be held at a gate, so that a test knows what the thread is
// doing; each picture is one pixel holding its drawing's number.
class GatedDrawing {
public:
    CanvasThread::Draw draw()
    {
        return [this](const CanvasScene& scene, Surface& work) {
            std::unique_lock<std::mutex> guard(lock_);
            drawn_ << scene.CaptionText;
            changed_.notify_all();
            changed_.wait(guard, [this] { return open_; });
            work.resize(1, 1);
            work.setPixel(0, 0, static_cast<Pixel>(drawn_.size()));
        };
    }
    CanvasThread::Finished finished()
    {
        return [this] {
            const std::lock_guard<std::mutex> guard(lock_);
            ++finished_;
            changed_.notify_all();
        };
    }

    void open()
    {
        const std::lock_guard<std::mutex> guard(lock_);
        open_ = true;
        changed_.notify_all();
    }
    // Waits until `count` drawings have begun (or `finished` of them have been handed over).
    bool waitForDrawings(qsizetype count, int finished = 0)
    {
        std::unique_lock<std::mutex> guard(lock_);
        return changed_.wait_for(guard, 20s, [&] { return drawn_.size() >= count && finished_ >= finished; });
    }
    QStringList drawn()
    {
        const std::lock_guard<std::mutex> guard(lock_);
        return drawn_;
    }
    int finishedCount()
    {
        const std::lock_guard<std::mutex> guard(lock_);
        return finished_;
    }

private:
    std::mutex lock_;
    std::condition_variable changed_;
    bool open_ = false;
    QStringList drawn_;
    int finished_ = 0;
};

CanvasScene scene(int number)
{
    CanvasScene scene;
    scene.CaptionText = QString::number(number);
    return scene;
}

Pixel pictureOnShow(const CanvasThread& thread)
{
    Pixel shown = 0;
    thread.withDisplay([&shown](const Surface& display) { shown = display.pixel(0, 0); });
    return shown;
}

TEST(CanvasThread, RequestsDuringADrawingFoldIntoOneMoreDrawingOfTheLatestScene)
{
    GatedDrawing drawing;
    CanvasThread thread(drawing.draw(), drawing.finished());
    thread.RequestCanvas(scene(1));
    ASSERT_TRUE(drawing.waitForDrawings(1));
    for (int number = 2; number <= 500; ++number)
        thread.RequestCanvas(scene(number)); // none of these waits for the drawing held at the gate
    drawing.open();
    ASSERT_TRUE(drawing.waitForDrawings(2, 2));
    thread.stop();

    EXPECT_EQ(drawing.drawn(), QStringList({QStringLiteral("1"), QStringLiteral("500")}));
    EXPECT_EQ(drawing.finishedCount(), 2);
    EXPECT_EQ(pictureOnShow(thread), 2u);
}

TEST(CanvasThread, StopLetsTheDrawingUnderWayFinishAndJoins)
{
    GatedDrawing drawing;
    CanvasThread thread(drawing.draw(), drawing.finished());
    thread.RequestCanvas(scene(1));
    ASSERT_TRUE(drawing.waitForDrawings(1));
    thread.RequestCanvas(scene(2));
    std::thread opener([&drawing] {
        std::this_thread::sleep_for(50ms);
        drawing.open();
    });
    thread.stop();
    opener.join();

    // Whatever had begun was handed over; the thread is gone, so nothing asked for now is drawn.
    const qsizetype begun = drawing.drawn().size();
    EXPECT_GE(begun, 1);
    EXPECT_EQ(drawing.finishedCount(), begun);
    EXPECT_EQ(pictureOnShow(thread), static_cast<Pixel>(begun));
    thread.RequestCanvas(scene(3));
    thread.stop();
    EXPECT_EQ(drawing.drawn().size(), begun);

    CanvasThread idle(drawing.draw(), drawing.finished()); // never asked: its destructor joins at once
}

class CanvasThreadWithRenderer : public RenderFixture {};

TEST_F(CanvasThreadWithRenderer, ThePictureOnShowIsTheCanvasOfTheSceneAskedFor)
{
    CanvasRenderer renderer;
    std::mutex lock;
    std::condition_variable done;
    bool finished = false;
    CanvasThread thread([&renderer](const CanvasScene& scene, Surface& work) { renderer.draw(scene, work); },
                        [&] {
                            const std::lock_guard<std::mutex> guard(lock);
                            finished = true;
                            done.notify_all();
                        });
    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    const CanvasScene scene = CaptureCanvasScene(editor_, marks_, atlas_);
    fillTile(kBkgBank, 0, 1); // edits after the request don't reach the drawing's copy
    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    editor_.addBkgTile(Placed(18, 18, 0));
    thread.RequestCanvas(scene);
    {
        std::unique_lock<std::mutex> guard(lock);
        ASSERT_TRUE(done.wait_for(guard, 20s, [&] { return finished; }));
    }
    Surface expected;
    CanvasRenderer().draw(scene, expected);
    thread.withDisplay([&expected](const Surface& display) { EXPECT_TRUE(display == expected); });
    EXPECT_EQ(expected.pixel(300, 300), kGrey2D);
}

} // namespace
