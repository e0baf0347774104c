#include "update/range_client.h"

#include "update_testing.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

// A 50 MB program file from a server on 127.0.0.1, in as many parts as the argument says, over HTTPS (argument
// 1) or plain HTTP (0). The throughput is that of the whole fetch, the length query included.
void FetchFiftyMegabytes(benchmark::State& state)
{
    const int parts = static_cast<int>(state.range(0));
    const bool tls = state.range(1) != 0;
    const std::unique_ptr<TestHttpServer> server = tls ? TrustedHttpsServer() : std::make_unique<TestHttpServer>();
    const QByteArray file = PatternedBytes(50 * 1000 * 1000);
    server->serve(QStringLiteral("/program"), {.body = file});
    RangeClient client(TrustingOptions());
    QByteArray buffer(file.size(), '\0');
    for (auto _ : state) {
        const std::optional<qint64> size =
            client.GetToBuffer(server->url(QStringLiteral("/program")), buffer.data(), buffer.size(), nullptr, parts);
        if (size != file.size()) {
            state.SkipWithError("the fetch failed");
            return;
        }
    }
    if (buffer != file)
        state.SkipWithError("the file did not arrive byte-exact");
    state.SetBytesProcessed(state.iterations() * file.size());
    state.SetLabel(tls ? "https" : "http");
}
BENCHMARK(FetchFiftyMegabytes)
    ->ArgsProduct({{1, 8, 64}, {1, 0}})
    ->ArgNames({"parts", "tls"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

} // namespace

// The network layer runs on Qt's events, which need the application object.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
