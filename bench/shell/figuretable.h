#pragma once

#include <string>

/// Prints figures beside their limits, a line for each, and remembers whether one was above.
class FigureTable
{
public:
    explicit FigureTable(const std::string &title);

    void section(const std::string &title);
    void figure(const std::string &what, double value, const char *unit);
    void limited(const std::string &what, double value, const char *unit, double limit);
    void note(const std::string &what, const std::string &text);

    bool allWithin() const { return m_allWithin; }

private:
    bool m_allWithin = true;
};
