/// @file
/// The hatch patterns that the program draws with.
#pragma once

#include <vek/data/pattern.h>
#include <vek/host.h>

#include <string>

/// A host that provides the program's own patterns, from examples/patterns, or those of a file; installed during its
/// lifetime.
class Patterns
{
public:
    Patterns();
    ~Patterns();
    Patterns(const Patterns&) = delete;
    Patterns& operator=(const Patterns&) = delete;

    /// Replaces the patterns by those of a file. Throws a failure if it cannot be read.
    void load(const std::string& path);

    const CVekArrayTempl<VEK::CHatchPattern>& all() const { return m_all; }

private:
    void enter();

    CVekArrayTempl<VEK::CHatchPattern> m_all;
    CVekLocalApp m_host;
    CVekApp* m_before;
};

/// The patterns of a file. Throws a failure if it cannot be read.
CVekArrayTempl<VEK::CHatchPattern> patternsOf(const std::string& path);
