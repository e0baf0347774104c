#pragma once

// Draws the canvas off the window's thread, so that a drag never waits for a picture.
//
// The window asks for a picture with the scene it should show. Requests that arrive while the thread is busy
// are folded into one: the thread always draws the latest scene, and drops the ones it never got to. A
// finished picture is handed over under one lock, together with the request box, by exchanging it with the
// one on show; the window reads the picture on show under the same lock.

#include "designer/canvas_scene.h"
#include "designer/surface.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace zunbrix {

class CanvasThread {
public:
    using Draw = std::function<void(const CanvasScene& scene, Surface& work)>;
    // Runs on the canvas thread after each handover: the place to ask the window for a repaint.
    using Finished = std::function<void()>;

    // Starts the thread. `draw` paints a whole picture of the scene into the work surface.
    CanvasThread(Draw draw, Finished finished);
    // Stops and joins.
    ~CanvasThread();
    CanvasThread(const CanvasThread&) = delete;
    CanvasThread& operator=(const CanvasThread&) = delete;

    // Wakes the thread to draw `scene`, replacing a request it has not begun. Never waits for a drawing.
    void RequestCanvas(CanvasScene scene);
    // Lets a drawing under way finish, drops what is still asked for, and joins the thread. Later requests
    // are ignored.
    void stop();

    // Calls `show` with the picture on show, under the handover lock: keep it short.
    void withDisplay(const std::function<void(const Surface&)>& show) const;

private:
    void run();

    Draw draw_;
    Finished finished_;
    mutable std::mutex lock_; // the request box, the stop flag and the picture on show
    std::condition_variable wake_;
    std::optional<CanvasScene> request_;
    bool stopping_ = false;
    Surface display_;
    Surface work_; // the canvas thread's own
    std::thread thread_;
};

} // namespace zunbrix
