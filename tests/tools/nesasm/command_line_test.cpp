// The calling contract that the build and users rely on: banner, usage, exit status, file names, options.
#include "nesasm_runner.h"

using namespace zunbrix::testing;

namespace {

const std::string kBanner = "NES Assembler (v3.2.0.7 Bulid Date: 20240701)\n";
const std::string kUsage = "nesasm [-options] [-? (for help)] infile\n";

} // namespace

TEST(NesasmCommandLine, HelpAndUsage)
{
    AsmFolder folder;
    const AsmFolder::Run help = folder.run({"-?"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.output.substr(0, kBanner.size() + kUsage.size()), kBanner + kUsage);
    EXPECT_NE(help.output.find("-raw    : prevent adding a ROM header\n"), std::string::npos);

    const AsmFolder::Run bare = folder.run({});
    EXPECT_EQ(bare.exitCode, 1);
    EXPECT_EQ(bare.output.substr(0, kBanner.size() + kUsage.size()), kBanner + kUsage);

    for (const QStringList& arguments : {QStringList{"-cd", "x.asm"}, QStringList{"-bank", "1", "x.asm"},
                                         QStringList{"-zz", "x.asm"}, QStringList{"-l", "7", "x.asm"}}) {
        const AsmFolder::Run refused = folder.run(arguments);
        EXPECT_EQ(refused.exitCode, 1) << refused.output;
        EXPECT_NE(refused.output.find(kUsage), std::string::npos);
    }
    EXPECT_NE(folder.run({"-cd", "x.asm"}).output.find("Option -cd is not supported by this assembler!"), std::string::npos);
}

TEST(NesasmCommandLine, InputAndOutputNames)
{
    AsmFolder folder;
    folder.write("src/prog.asm", "  .DB 1\n");
    // No extension: .asm is added; the output lies beside the input.
    const AsmFolder::Run run = folder.run({"src/prog"});
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output, kBanner);
    EXPECT_EQ(folder.read("src/prog.nes").size(), 16u + 0x2000);

    EXPECT_EQ(folder.run({"-raw", "-out", "other.bin", "src/prog.asm"}).exitCode, 0);
    EXPECT_EQ(folder.read("other.bin").size(), 0x2000u);

    const AsmFolder::Run missing = folder.run({"absent"});
    EXPECT_EQ(missing.exitCode, 255); // -1 as the system reports it
    EXPECT_EQ(missing.output, kBanner + "Can not open input file 'absent.asm'!\n");
}

TEST(NesasmCommandLine, FillSegmentUsageAndListing)
{
    AsmFolder folder;
    folder.write("main.asm", "  .BANK 1\n  .ORG $8000\nStart: LDA #$12\n  .DB 1, 2, 3, 4, 5, 6, 7, 8, 9\n");
    const AsmFolder::Run run = folder.run({"-raw", "-fill", "00", "-s", "-l", "3", "main.asm"});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    const std::vector<std::uint8_t> image = folder.read("main.nes");
    ASSERT_EQ(image.size(), 2u * 0x2000);
    EXPECT_EQ(image[0], 0x00);
    EXPECT_EQ(image[0x2000], 0xA9);
    EXPECT_EQ(image[0x200B], 0x00);
    EXPECT_NE(run.output.find("bank   0   used     0 bytes   free  8192 bytes\n"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("bank   1   used    11 bytes   free  8181 bytes\n"), std::string::npos) << run.output;

    const std::vector<std::uint8_t> listing = folder.read("main.lst");
    const std::string text(listing.begin(), listing.end());
    EXPECT_NE(text.find("00003  01:8000  A9 12                   Start: LDA #$12\n"), std::string::npos) << text;
    EXPECT_NE(text.find("00004  01:8002  01 02 03 04 05 06 07 08   .DB 1, 2, 3, 4, 5, 6, 7, 8, 9\n"
                        "                09 "),
              std::string::npos)
        << text;
}

TEST(NesasmCommandLine, FaultsInIncludedFilesShowTheChain)
{
    AsmFolder folder;
    folder.write("build/game_config.asm", "PAGE_SIZE = 20\n  LDA #PAGE_SIZE +\n");
    folder.write("main.asm", "  INCLUDE \"build/game_config.asm\"\n  .DB 1000\n");
    const AsmFolder::Run run = folder.run({"main.asm"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, kBanner +
                              "#[1]   main.asm\n"
                              "#[2]   build/game_config.asm\n"
                              "00002    LDA #PAGE_SIZE +\n"
                              "       Syntax error!\n"
                              "#[1]   main.asm\n"
                              "00002    .DB 1000\n"
                              "       Value out of range!\n"
                              "# 2 error(s)\n");
}
