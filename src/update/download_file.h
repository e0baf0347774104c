#pragma once

#include "update/http_transfer.h"

#include <QString>

namespace zunbrix {

// Fetches one file whole to disk: the new program. The body goes to a temporary file beside `filePath`, which
// takes that name only when every byte the server announced has come and, with an expected SHA-256, the file
// matches it; otherwise the temporary file is deleted and `filePath` is left as it was.
class DownloadFile : public HttpFetcher {
public:
    explicit DownloadFile(HttpOptions options = {}) : HttpFetcher(std::move(options)) {}

    // `expectedSha256` is the file's hash in hexadecimal, or "" when the release does not give one.
    bool Download(const QString& url, const QString& filePath, const QString& expectedSha256,
                  const ProgressCallback& callback);
};

} // namespace zunbrix
