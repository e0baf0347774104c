#include "multicart/flash_writer.h"

#include "multicart/file_area.h"
#include "multicart/shared_work.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <exception>
#include <optional>
#include <thread>
#include <vector>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#endif

namespace zunbrix {

namespace {

// The flash goes to the file in windows of this size, or of one image's area where that is larger. A few
// windows are in memory at once: every core fills one while the last complete one is written.
constexpr std::uint64_t kWindowBytes = 1 << 20;
constexpr std::size_t kWindowsInMemory = 4;

// A stretch of the flash that one image's PRG or CHR takes. Where images share data, one of them writes
// it and the others only prove that their files still hold it.
struct Region {
    std::uint64_t offset;
    std::uint64_t end;
    std::uint64_t dataEnd; // the image's data ends here; the rest of the region stays erased
    std::size_t image;
    bool chr;
    bool writes = true;
    std::size_t window = 0;
};

// A stretch of the flash that goes to the file in one piece, and the regions that lie in it.
struct Window {
    std::uint64_t begin;
    std::uint64_t end;
    std::size_t firstRegion;
    std::size_t endRegion;
};

std::uint32_t prgCopies(const NesImage& image)
{
    return image.prgBanks == 0 ? 0 : image.prgLayoutBanks / image.prgBanks;
}

std::uint32_t regionCrc(const LayoutResult& layout, const Region& region)
{
    const NesImage& image = layout.images[region.image];
    return region.chr ? image.chrCrc32 : image.prgCrc32;
}

std::uint64_t regionDataBytes(const LayoutResult& layout, const Region& region)
{
    const NesImage& image = layout.images[region.image];
    return region.chr ? image.chrBytes : image.prgBytes;
}

// The images' regions in flash order; nothing if an image runs past the ROM's end, or lies on another
// image's bytes without sharing its data there. Images that share start at one offset, and the largest
// region among them writes: a smaller window sees the first copy of the same data.
std::optional<std::vector<Region>> regionsOf(const LayoutResult& layout)
{
    std::vector<Region> regions;
    for (std::size_t i = 0; i < layout.images.size(); ++i) {
        const NesImage& image = layout.images[i];
        const std::uint64_t prg = image.prgOffset;
        const std::uint64_t chr = image.chrOffset;
        regions.push_back({prg, prg + image.prgLayoutBytes, prg + std::uint64_t(prgCopies(image)) * image.prgBytes, i,
                           false});
        regions.push_back({chr, chr + std::max(image.chrBytes, image.chrLayoutBytes), chr + image.chrBytes, i, true});
    }
    std::erase_if(regions, [](const Region& region) { return region.offset == region.end; });
    std::stable_sort(regions.begin(), regions.end(), [](const Region& a, const Region& b) {
        return a.offset != b.offset ? a.offset < b.offset : a.end < b.end;
    });
    const auto sameData = [&](const Region& a, const Region& b) {
        return a.offset == b.offset && regionCrc(layout, a) == regionCrc(layout, b) &&
               regionDataBytes(layout, a) == regionDataBytes(layout, b);
    };
    std::uint64_t coveredEnd = 0;
    for (std::size_t i = 0; i < regions.size(); ++i) {
        Region& region = regions[i];
        if (region.offset < coveredEnd && !sameData(regions[i - 1], region))
            return std::nullopt;
        region.writes = i + 1 == regions.size() || !sameData(region, regions[i + 1]);
        coveredEnd = std::max(coveredEnd, region.end);
    }
    if (coveredEnd > layout.romBytes)
        return std::nullopt;
    return regions;
}

// Cuts the flash, `flashBytes` long, into windows and tells each region its window. A window ends before a
// region that would not fit in it, unless that region starts it.
std::vector<Window> windowsOf(std::vector<Region>& regions, std::uint64_t flashBytes)
{
    std::vector<Window> windows;
    std::size_t next = 0;
    for (std::uint64_t begin = 0; begin < flashBytes;) {
        Window window{begin, std::min(flashBytes, begin + kWindowBytes), next, next};
        for (; next < regions.size() && regions[next].offset < window.end; ++next) {
            if (regions[next].end > window.end) {
                if (regions[next].offset > begin) {
                    window.end = regions[next].offset;
                    break;
                }
                window.end = regions[next].end;
            }
            regions[next].window = windows.size();
        }
        window.endRegion = next;
        windows.push_back(window);
        begin = window.end;
    }
    return windows;
}

// Asks the system to start putting the written bytes on the disk now, so that little is left to wait for
// when the file is committed.
void startWriteback([[maybe_unused]] const QFileDevice& file, [[maybe_unused]] qint64 offset,
                    [[maybe_unused]] qint64 size)
{
#ifdef Q_OS_LINUX
    sync_file_range(file.handle(), offset, size, SYNC_FILE_RANGE_WRITE);
#endif
}

// Merges the images into the flash and writes it to the file from where the file stands. The regions are
// read on every core, each straight into its window; a thread of its own writes every window as soon as
// it is complete, in order, and its buffer then takes a later window.
class FlashStream {
public:
    FlashStream(const LayoutResult& layout, std::vector<Region> regions, std::vector<Window> windows,
                QSaveFile& file, const std::atomic<bool>* stop)
        : layout_(layout), regions_(std::move(regions)), windows_(std::move(windows)), file_(file),
          flashStart_(file.pos()), stop_(stop), unfilled_(windows_.size(), 0)
    {
        std::uint64_t bufferBytes = 0;
        for (const Window& window : windows_)
            bufferBytes = std::max(bufferBytes, window.end - window.begin);
        for (std::size_t i = 0; i < std::min(kWindowsInMemory, windows_.size()); ++i)
            buffers_.push_back(std::make_unique_for_overwrite<char[]>(bufferBytes));
        for (const Region& region : regions_)
            unfilled_[region.window] += fills(region);
    }

    RomWriteResult run()
    {
        std::jthread writer([this] { writeWindows(); });
        bool merged = false;
        try {
            merged = runShared(regions_.size(), [this](std::size_t i) { return mergeRegion(regions_[i]); });
        } catch (...) {
        }
        if (!merged)
            fail({});
        writer.join();
        if (failedImage_)
            return {false, sourceProblem_};
        if (failed_) {
            return {false,
                    {.kind = FileProblemKind::WriteFailed,
                     .path = file_.fileName(),
                     .systemReason = file_.errorString()}};
        }
        return {true, {}};
    }

private:
    static bool fills(const Region& region) { return region.writes && region.dataEnd > region.offset; }

    // Ends the work; a source's problem is kept for the image that comes first in the layout.
    void fail(std::optional<std::size_t> image, const FileProblem& problem = {})
    {
        const std::lock_guard lock(mutex_);
        failed_ = true;
        if (image && (!failedImage_ || *image < *failedImage_)) {
            failedImage_ = image;
            sourceProblem_ = problem;
        }
        changed_.notify_all();
    }

    bool mergeRegion(const Region& region)
    {
        if (stop_ && stop_->load()) {
            fail({});
            return false;
        }
        char* target = nullptr;
        if (fills(region)) {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [&] { return failed_ || region.window < windowsWritten_ + buffers_.size(); });
            if (failed_)
                return false;
            target = buffers_[region.window % buffers_.size()].get() + (region.offset - windows_[region.window].begin);
        }
        FileProblem problem{.kind = FileProblemKind::ReadFailed, .path = layout_.images[region.image].path};
        try {
            problem = readRegion(region, target);
        } catch (const std::exception& error) { // no memory for the piece
            problem.systemReason = QString::fromLocal8Bit(error.what());
        }
        if (problem) {
            fail(region.image, problem);
            return false;
        }
        if (target) {
            const std::lock_guard lock(mutex_);
            if (--unfilled_[region.window] == 0)
                changed_.notify_all();
        }
        return true;
    }

    // Reads the region's data into `target`, or only checks it without one. The data must still be what
    // the image was loaded with.
    FileProblem readRegion(const Region& region, char* target) const
    {
        const NesImage& image = layout_.images[region.image];
        const std::uint64_t bytes = region.chr ? image.chrBytes : prgCopies(image) > 0 ? image.prgBytes : 0;
        if (bytes == 0)
            return {};
        QFile file;
        if (FileProblem problem = openForReading(file, image.path))
            return problem;
        const std::uint64_t fileOffset = region.chr ? image.chrFileOffset() : image.prgFileOffset();
        if (readFileArea(file, fileOffset, bytes, target) != regionCrc(layout_, region))
            return {.kind = FileProblemKind::ChangedSinceRead, .path = image.path};
        // A game whose window was raised sees its PRG mirrored through all of it.
        if (target)
            for (std::uint64_t copy = bytes; copy < region.dataEnd - region.offset; copy += bytes)
                std::memcpy(target + copy, target, bytes);
        return {};
    }

    void writeWindows()
    {
        for (std::size_t i = 0; i < windows_.size(); ++i) {
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, [&] { return failed_ || unfilled_[i] == 0; });
                if (failed_)
                    return;
            }
            const Window& window = windows_[i];
            char* buffer = buffers_[i % buffers_.size()].get();
            eraseGaps(window, buffer);
            const qint64 size = qint64(window.end - window.begin);
            if (file_.write(buffer, size) != size) {
                fail({});
                return;
            }
            startWriteback(file_, flashStart_ + qint64(window.begin), size);
            const std::lock_guard lock(mutex_);
            ++windowsWritten_;
            changed_.notify_all();
        }
    }

    // Erases what no image writes in the window.
    void eraseGaps(const Window& window, char* buffer) const
    {
        std::uint64_t erasedFrom = window.begin;
        for (std::size_t i = window.firstRegion; i < window.endRegion; ++i) {
            const Region& region = regions_[i];
            if (!region.writes)
                continue;
            std::memset(buffer + (erasedFrom - window.begin), 0xFF, region.offset - erasedFrom);
            erasedFrom = region.dataEnd;
        }
        std::memset(buffer + (erasedFrom - window.begin), 0xFF, window.end - erasedFrom);
    }

    const LayoutResult& layout_;
    const std::vector<Region> regions_;
    const std::vector<Window> windows_;
    QSaveFile& file_;
    const qint64 flashStart_;
    const std::atomic<bool>* stop_;
    std::vector<std::unique_ptr<char[]>> buffers_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::size_t> unfilled_; // regions of each window still to be read
    std::size_t windowsWritten_ = 0;
    bool failed_ = false;
    std::optional<std::size_t> failedImage_;
    FileProblem sourceProblem_; // what is wrong with the failed image's file
};

} // namespace

RomWriteResult writeFlashFile(const LayoutResult& layout, const QString& path, const QByteArray& start,
                              std::uint64_t erasedTailBytes, const std::atomic<bool>* stop)
{
    std::optional<std::vector<Region>> regions = regionsOf(layout);
    if (layout.romBytes == 0 || !regions)
        return {false, {}};
    std::vector<Window> windows = windowsOf(*regions, layout.romBytes + erasedTailBytes);
    QSaveFile file(path);
    const auto writeFailed = [&](const QString& reason) {
        return RomWriteResult{false, {.kind = FileProblemKind::WriteFailed, .path = path, .systemReason = reason}};
    };
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(start) != start.size())
        return writeFailed(file.errorString());
    try {
        FlashStream stream(layout, std::move(*regions), std::move(windows), file, stop);
        const RomWriteResult result = stream.run();
        // Up to here the file is a temporary one that is dropped: a stop leaves any earlier output as it was,
        // and no file is at fault.
        if (stop && stop->load())
            return {false, {}};
        if (result.ok && !file.commit())
            return writeFailed(file.errorString());
        return result;
    } catch (const std::exception& error) { // no memory or no thread for the work
        return writeFailed(QString::fromLocal8Bit(error.what()));
    }
}

} // namespace zunbrix
