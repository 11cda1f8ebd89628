/// @file
/// The hatch patterns that the program draws with.
#pragma once

#include <vek/data/pattern.h>
#include <vek/host.h>

#include <string>

/// A host that knows the program's own patterns, which examples/patterns holds, or those of a file; installed while it
/// lives.
class Patterns
{
public:
    Patterns();
    ~Patterns();
    Patterns(const Patterns&) = delete;
    Patterns& operator=(const Patterns&) = delete;

    /// Takes the patterns of a file in place of the present ones. Throws a failure when it cannot be read.
    void load(const std::string& path);

    const CVekArrayTempl<VEK::CHatchPattern>& all() const { return m_all; }

private:
    void enter();

    CVekArrayTempl<VEK::CHatchPattern> m_all;
    CVekLocalApp m_host;
    CVekApp* m_before;
};

/// The patterns of a file. Throws a failure when it cannot be read.
CVekArrayTempl<VEK::CHatchPattern> patternsOf(const std::string& path);
