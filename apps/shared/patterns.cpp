#include "patterns.h"

#include "failure.h"
#include "input.h"

#include <string_view>

/// The text of examples/patterns/vek.pat, written here by the build.
extern const std::string_view ownPatterns;

CVekArrayTempl<VEK::CHatchPattern> patternsOf(const std::string& path)
{
    const std::string bytes = readWhole(path);
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    CVekString error;
    if (!VEK::hatchPatternsRead(patterns, bytes.data(), bytes.size(), wide(path), error))
        throw Failure(utf8(error));
    if (patterns.len() == 0)
        throw Failure(path + ": holds no patterns");
    return patterns;
}

Patterns::Patterns()
{
    CVekString error;
    VEK::hatchPatternsRead(m_all, ownPatterns.data(), ownPatterns.size(), L"vek.pat", error);
    enter();
    m_before = vekAppSet(&m_host);
}

Patterns::~Patterns()
{
    vekAppSet(m_before);
}

void Patterns::load(const std::string& path)
{
    CVekArrayTempl<VEK::CHatchPattern> patterns = patternsOf(path);
    for (const VEK::CHatchPattern& pattern : m_all)
        m_host.hatchPatternSet(pattern.name, {});
    m_all = std::move(patterns);
    enter();
}

void Patterns::enter()
{
    for (const VEK::CHatchPattern& pattern : m_all)
        m_host.hatchPatternSet(pattern.name, pattern.lines);
}
