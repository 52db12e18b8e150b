#include "../runprogram.h"
#include "gallerywindow.h"
#include "qthost/qthost.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

struct Options
{
    std::string m_page;
    std::string m_screenshots;
};

bool parse(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; i += 2) {
        const std::string name = argv[i];
        if (i + 1 == argc || (name != "--page" && name != "--screenshot"))
            return false;
        (name == "--page" ? options.m_page : options.m_screenshots) = argv[i + 1];
    }
    return true;
}

/// Writes one picture of each page, or of the one that was named.
int takeScreenshots(VOXI::QtHost& host, gallery::GalleryWindow& window, const Options& options)
{
    std::filesystem::create_directories(options.m_screenshots);
    for (const std::string& page : gallery::pageNames()) {
        if (!options.m_page.empty() && page != options.m_page)
            continue;
        window.select(page);
        window.settle(page);
        const auto file = std::filesystem::path(options.m_screenshots) / (page + ".png");
        if (!host.saveScreenshot(*window.window(), file.string())) {
            std::fprintf(stderr, "gallery: cannot write %s\n", file.c_str());
            return 1;
        }
        std::printf("%s\n", file.c_str());
    }
    return 0;
}

void sayThereIsNo(const std::string& page)
{
    std::fprintf(stderr, "gallery: there is no page \"%s\"; pages are:", page.c_str());
    for (const std::string& each : gallery::pageNames())
        std::fprintf(stderr, " %s", each.c_str());
    std::fprintf(stderr, "\n");
}

} // namespace

int main(int argc, char** argv)
{
    return apps::runProgram("gallery", argc, argv, [&](VOXI::QtHost& host) {
        Options options;
        if (!parse(argc, argv, options)) {
            std::fprintf(stderr, "usage: gallery [--page NAME] [--screenshot DIR]\n");
            return 2;
        }
        gallery::GalleryWindow window;
        if (!options.m_page.empty() && !window.select(options.m_page)) {
            sayThereIsNo(options.m_page);
            return 2;
        }
        return options.m_screenshots.empty() ? host.exec() : takeScreenshots(host, window, options);
    });
}
