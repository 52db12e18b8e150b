#include "../runprogram.h"
#include "explorerwindow.h"
#include "qthost/qthost.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

struct Options
{
    std::string m_file;
    std::string m_screenshot;
};

bool parse(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--screenshot" && i + 1 < argc)
            options.m_screenshot = argv[++i];
        else if (argument.starts_with("-") || !options.m_file.empty())
            return false;
        else
            options.m_file = argument;
    }
    return true;
}

void takeScreenshot(VOXI::QtHost& host, explorer::ExplorerWindow& window, const std::string& file)
{
    const bool isWritten = host.saveScreenshot(*window.window(), file);
    if (!isWritten)
        std::fprintf(stderr, "explorer: cannot write %s\n", file.c_str());
    VOXI::QtHost::quit(isWritten ? 0 : 1);
}

} // namespace

int main(int argc, char** argv)
{
    return apps::runProgram("explorer", argc, argv, [&](VOXI::QtHost& host) {
        Options options;
        if (!parse(argc, argv, options)) {
            std::fprintf(stderr, "usage: explorer [FILE.db] [--screenshot FILE.png]\n");
            return 2;
        }
        explorer::ExplorerWindow window;
        if (!options.m_screenshot.empty())
            window.whenSettled([&] { takeScreenshot(host, window, options.m_screenshot); });
        if (!options.m_file.empty())
            window.open(options.m_file);
        else
            window.openSample(std::filesystem::temp_directory_path() / "voxi-shop.db");
        return host.exec();
    });
}
