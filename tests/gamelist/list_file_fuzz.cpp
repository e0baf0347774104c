// libFuzzer target: any bytes as a list file (.qvl), read as an INI document and as a game list; never a
// crash, hang or leak. What was read, saved and read again is the same document.
#include "frame/ini_file.h"
#include "gamelist/list_file.h"

#include "support/fuzz_input_file.h"

using namespace zunbrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    IniFile ini(testing::FuzzInputFile(QStringLiteral("list.qvl"), data, size), true);
    if (!ini.Load())
        __builtin_trap();
    // Room for a few entries, so that a large count looks for a few files, not thousands.
    constexpr int kRoom = 64;
    std::vector<GameEntry> entries;
    const ListLoadResult loaded = LoadListFile(ini, entries, kRoom);
    if (loaded.added < 0 || entries.size() != static_cast<std::size_t>(loaded.added) || loaded.added > kRoom)
        __builtin_trap();

    // Text that UTF-8 can't carry (a lone surrogate of a UTF-16 file) is replaced at the first save; from
    // then on a save and a load give the same document.
    IniFile saved(testing::FuzzFolder().filePath(QStringLiteral("saved.qvl")), true);
    saved.Parse(QByteArray("\xEF\xBB\xBF") + ini.ToText().toUtf8());
    if (!saved.Save())
        __builtin_trap();
    IniFile again(saved.Path(), true);
    if (!again.Load() || again.ToText() != saved.ToText())
        __builtin_trap();
    return 0;
}
