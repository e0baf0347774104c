#pragma once

#include "update/http_transfer.h"

#include <QString>

#include <optional>

namespace zunbrix {

// Fetches a file by HTTP or HTTPS into memory in up to 64 byte ranges at once, each on a connection of its own.
// A fetch blocks the calling thread (a worker) and runs that thread's events meanwhile.
class RangeClient : public HttpFetcher {
public:
    explicit RangeClient(HttpOptions options = {}) : HttpFetcher(std::move(options)) {}

    // Fills `buffer` from the start of the file, up to `capacity` bytes: a larger file is cut there. `parts` is
    // held in 1 to 64; a file or capacity below 4096 bytes goes in one part. The result is the number of bytes
    // fetched, or nothing when any part failed or the fetch was cancelled (the buffer may then hold some of it).
    // Every range must come back exactly as asked (206 with its Content-Range): a server that answers with the
    // whole file fails the fetch rather than mixing it up.
    std::optional<qint64> GetToBuffer(const QString& url, char* buffer, qint64 capacity,
                                      const ProgressCallback& callback, int parts);
};

} // namespace zunbrix
