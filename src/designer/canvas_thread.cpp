#include "designer/canvas_thread.h"

namespace zunbrix {

CanvasThread::CanvasThread(Draw draw, Finished finished)
    : draw_(std::move(draw))
    , finished_(std::move(finished))
    , thread_([this] { run(); })
{
}

CanvasThread::~CanvasThread()
{
    stop();
}

void CanvasThread::RequestCanvas(CanvasScene scene)
{
    {
        const std::lock_guard<std::mutex> guard(lock_);
        if (stopping_)
            return;
        request_ = std::move(scene);
    }
    wake_.notify_one();
}

void CanvasThread::stop()
{
    {
        const std::lock_guard<std::mutex> guard(lock_);
        stopping_ = true;
        request_.reset();
    }
    wake_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void CanvasThread::withDisplay(const std::function<void(const Surface&)>& show) const
{
    const std::lock_guard<std::mutex> guard(lock_);
    show(display_);
}

void CanvasThread::run()
{
    for (;;) {
        CanvasScene scene;
        {
            std::unique_lock<std::mutex> guard(lock_);
            wake_.wait(guard, [this] { return stopping_ || request_.has_value(); });
            if (stopping_)
                return;
            scene = std::move(*request_);
            request_.reset();
        }
        draw_(scene, work_);
        {
            const std::lock_guard<std::mutex> guard(lock_);
            std::swap(display_, work_);
        }
        finished_();
    }
}

} // namespace zunbrix
