// A stand-in console tool for the process tests: what it does is chosen by its first argument.
//   silent              exit 0 without output
//   hang                sleep (until killed; gives up after a minute)
//   print OUT ERR CODE  print OUT on stdout, then ERR on stderr, exit with CODE
//   big BYTES           print BYTES bytes of a repeating pattern
//   cwd                 print the current folder
//   args ...            print the count of arguments, then each in brackets
//   touch NAME          create the empty file NAME in the current folder
//   zero                print "ab", a zero byte, "cd"
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "hang") {
        std::this_thread::sleep_for(std::chrono::seconds(60));
        return 0;
    }
    if (mode == "print" && argc == 5) {
        std::fputs(argv[2], stdout);
        std::fflush(stdout);
        std::fputs(argv[3], stderr);
        return std::atoi(argv[4]);
    }
    if (mode == "big" && argc == 3) {
        const long bytes = std::atol(argv[2]);
        for (long i = 0; i < bytes; ++i)
            std::putchar('a' + static_cast<int>(i % 26));
        return 0;
    }
    if (mode == "cwd") {
        std::fputs(std::filesystem::current_path().string().c_str(), stdout);
        return 0;
    }
    if (mode == "args") {
        std::printf("%d", argc - 2);
        for (int i = 2; i < argc; ++i)
            std::printf("[%s]", argv[i]);
        return 0;
    }
    if (mode == "touch" && argc == 3) {
        std::ofstream(argv[2]).flush();
        return 0;
    }
    if (mode == "zero") {
        std::fwrite("ab\0cd", 1, 5, stdout);
        return 0;
    }
    return mode == "silent" ? 0 : 2;
}
