#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// Writes what a program is started with to the file that RECORD names, a line for each thing.
int main(int argc, char **argv)
{
    const char *target = std::getenv("RECORD");
    if (!target)
        return 1;
    // Before anything else is opened. The folder's own descriptor, the last one, is left out.
    std::string descriptors;
    for (const auto &each : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const auto file = std::filesystem::read_symlink(each.path(), gone);
        if (file.string().find("/proc/") != 0)
            descriptors += "descriptor " + file.string() + "\n";
    }
    const std::string unfinished = std::string(target) + ".part";
    std::ofstream record(unfinished);
    for (int i = 1; i < argc; ++i)
        record << "argument " << argv[i] << '\n';
    record << descriptors << "folder " << std::filesystem::current_path().string() << '\n'
           << "parent " << getppid() << '\n'
           << "leads " << (getsid(0) == getpid() && getpgrp() == getpid()) << '\n';
    for (char **variable = environ; *variable; ++variable)
        record << "variable " << *variable << '\n';
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigBlk") || line.starts_with("SigIgn"))
            record << "signals " << line << '\n';
    }
    record.close();
    return std::rename(unfinished.c_str(), target);
}
