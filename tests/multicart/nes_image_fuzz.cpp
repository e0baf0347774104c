// libFuzzer target: any bytes as a game file, read as the game list reads it (the header only) and as the
// build reads it (header and checksums); taken or refused, never a crash, hang or leak.
#include "multicart/nes_image.h"

#include "support/fuzz_input_file.h"

using namespace zunbrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString path = testing::FuzzInputFile(QStringLiteral("game.nes"), data, size);
    const GameEntry entry(path);
    if (entry.valid())
        static_cast<void>(entry.mapper() + entry.prgBanks() + entry.chrBanks());
    const NesImage image(path);
    static_cast<void>(image.prgFileOffset() + image.chrFileOffset());
    return 0;
}
