#include "figuretable.h"

#include <cstdio>

FigureTable::FigureTable(const std::string &title)
{
    std::printf("%-52s %10s %-4s %8s\n", title.c_str(), "figure", "", "limit");
}

void FigureTable::section(const std::string &title)
{
    std::printf("%s\n", title.c_str());
}

void FigureTable::figure(const std::string &what, double value, const char *unit)
{
    std::printf("  %-50s %10.2f %-4s\n", what.c_str(), value, unit);
    std::fflush(stdout);
}

void FigureTable::limited(const std::string &what, double value, const char *unit, double limit)
{
    const bool within = value <= limit;
    m_allWithin = m_allWithin && within;
    std::printf("  %-50s %10.2f %-4s %8.2f %s\n", what.c_str(), value, unit, limit, within ? "ok" : "ABOVE");
    std::fflush(stdout);
}

void FigureTable::note(const std::string &what, const std::string &text)
{
    std::printf("  %-50s %s\n", what.c_str(), text.c_str());
    std::fflush(stdout);
}
