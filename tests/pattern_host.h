/// A host with hatch patterns.
#pragma once

#include "shapes.h"

#include <vek/host.h>

/// Installed while it lives.
class PatternHost
{
public:
    /// Adds a pattern of families.
    PatternHost(const wchar_t* name, const std::vector<std::vector<double>>& families) { add(name, families); }
    ~PatternHost() { vekAppSet(m_before); }

    PatternHost& add(const wchar_t* name, const std::vector<std::vector<double>>& families)
    {
        VekPatternLines lines;
        for (const std::vector<double>& family : families)
            lines.append(shapes::numbers(family));
        m_app.hatchPatternSet(name, lines);
        return *this;
    }

    /// How often somebody asked for a pattern.
    int asked() const { return m_app.asked; }

private:
    struct App : CVekLocalApp {
        int asked = 0;

        void hatchPatternGet(const wchar_t* name, VekPatternLines& lines) override
        {
            ++asked;
            CVekLocalApp::hatchPatternGet(name, lines);
        }
    };

    App m_app;
    CVekApp* m_before = vekAppSet(&m_app);
};
