#include "startrounds.h"

#include "measuredprocess.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace std::chrono_literals;

namespace {

// Lines of text and hairlines below one another, with empty lines of pixels between them.
int bandsOf(const zeltest::XScreen::Pixels &pixels)
{
    int bands = 0;
    bool wasEmpty = true;
    for (int y = 0; y < pixels.height; ++y) {
        const auto begin = pixels.argb.begin() + std::ptrdiff_t(y) * pixels.width;
        const bool isEmpty = std::all_of(
            begin, begin + pixels.width, [begin](std::uint32_t pixel) { return pixel == *begin; });
        bands += wasEmpty && !isEmpty;
        wasEmpty = isEmpty;
    }
    return bands;
}

bool showsRows(zeltest::XScreen &screen, zeltest::XScreen::Window window)
{
    constexpr int Some = 3;
    const auto place = screen.geometry(window);
    return bandsOf(
               screen.grab(window, {place.width / 3, place.height / 2, place.width / 3, place.height / 3}))
        >= Some;
}

} // namespace

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

void writeRecentList(int records)
{
    const std::filesystem::path home = std::getenv("HOME");
    const std::filesystem::path data = std::getenv("XDG_DATA_HOME");
    std::filesystem::create_directories(data);
    std::filesystem::create_directories(home / "Documents");
    std::ofstream list(data / "recently-used.xbel");
    list << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\" "
            "xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\" "
            "xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\">\n";
    const char *suffixes[] = {"odt", "pdf", "ods", "png", "txt"};
    for (int i = 0; i < records; ++i) {
        const std::string name = "Document " + std::to_string(i) + "." + suffixes[i % 5];
        std::ofstream(home / "Documents" / name) << i;
        char time[40];
        std::snprintf(
            time, sizeof time, "2026-%02d-%02dT%02d:%02d:00Z", 1 + i % 10, 1 + i % 28, i % 24, i % 60);
        list << "<bookmark href=\"file://" << (home / "Documents").string() << "/Document%20" << i << "."
             << suffixes[i % 5] << "\" added=\"" << time << "\" modified=\"" << time << "\" visited=\""
             << time
             << "\"><info><metadata owner=\"http://freedesktop.org\"><mime:mime-type "
                "type=\"application/octet-stream\"/></metadata></info></bookmark>\n";
    }
    list << "</xbel>\n";
}

bool startOnce(zeltest::XScreen &screen, Program &program, bool measureMemory)
{
    MeasuredProcess process({program.path});
    const auto window = screen.waitForTitle(program.title, 30s);
    program.mapped.push_back(process.sinceExec().count());
    if (window == 0)
        return false;
    if (program.hasRows) {
        if (!screen.waitUntilShown(
                window, [&] { return showsRows(screen, window); }, 30s))
            return false;
        program.rows.push_back(process.sinceExec().count());
    }
    if (measureMemory) {
        screen.waitUntilPainted(window, 1500ms, 20s);
        program.pss.push_back(double(process.pssKilobytes()) / 1024);
    }
    return true;
}

bool startTurnByTurn(zeltest::XScreen &screen, Program &one, Program &other, int rounds)
{
    for (int round = -1; round < rounds; ++round) {
        for (Program *program : {&one, &other}) {
            if (!startOnce(screen, *program, round < 5))
                return false;
            if (round < 0) {
                program->mapped.clear();
                program->pss.clear();
                program->rows.clear();
            }
        }
    }
    return true;
}
