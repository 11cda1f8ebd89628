#include <vek/host.h>

#include "core/values/whole.h"
#include "host/host_images.h"

namespace
{

std::wstring textOf(const wchar_t* name)
{
    return name ? name : L"";
}

std::wstring upperOf(const wchar_t* name)
{
    CVekString text(name);
    text.makeUpper();
    return static_cast<const wchar_t*>(text);
}

/// Stores a copy of a value in a table, or removes it; nothing changes when memory runs out.
template <class Map, class NameOf>
void enter(Map& map, NameOf&& nameOf, const typename Map::mapped_type& value, bool remove)
{
    const unsigned long shortages = VEK::memoryShortages();
    try {
        const std::wstring name = nameOf();
        typename Map::mapped_type copy(value);
        if (VEK::memoryShortages() != shortages)
            return;
        if (remove)
            map.erase(name);
        else
            map[name] = std::move(copy);
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
    }
}

/// Calls a function that the host brings along.
int callOwn(const std::wstring& name, resbuf* arguments, VEK::CUniqResbuf& result)
{
    VEK::Regions regions;
    if (name == L"vek_text_to_regl" && VEK::host::textToRegions(arguments, regions)) {
        result = VEK::CUniqResbuf(VEK::mkResbuf(regions));
        return result ? VEK::kHostNormal : VEK::kHostError;
    }
    return name == L"vek_gdx_image_extr" && VEK::host::imageExtrusion(arguments) ? VEK::kHostNormal : VEK::kHostError;
}

} // namespace

bool CVekLocalApp::imageObject(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* parameters)
{
    try {
        return (m_image && m_image(gdx, object, parameters)) || VEK::host::imagePart(gdx, object, parameters);
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
        return false;
    } catch (...) {
        return false;
    }
}

void CVekLocalApp::hatchPatternGet(const wchar_t* name, VekPatternLines& lines)
{
    lines = VEK::whole(VekPatternLines(), [&] {
        const auto pattern = m_patterns.find(upperOf(name));
        return pattern == m_patterns.end() ? VekPatternLines() : pattern->second;
    });
}

void CVekLocalApp::viewMatrix(const wchar_t* name, CVekMatrix3d& matrix)
{
    matrix = VEK::whole(CVekMatrix3d(matrix), [&] {
        const auto view = m_views.find(textOf(name));
        return view == m_views.end() ? matrix : view->second;
    });
}

bool CVekLocalApp::namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create)
{
    const wchar_t* sought = kind ? kind : L"";
    std::size_t number = 0;
    while (number < m_objects.size() && m_objects[number].kind != sought)
        ++number;
    if (number == m_objects.size()) {
        if (!create)
            return false;
        try {
            DataObject object{sought, VEK::CSharedPointer<CVekDataItem>(new CVekDataItem(CVekDataItem::directory))};
            if (!object.tree || !object.tree->isDir())
                return false;
            m_objects.push_back(std::move(object));
        } catch (const std::bad_alloc&) {
            VEK::memoryShort();
            return false;
        }
    }
    name = VEK::CAdsName(static_cast<long long>(number) + 1, 0);
    return true;
}

int CVekLocalApp::callFunction(const wchar_t* name, resbuf* arguments, VEK::CUniqResbuf& result)
{
    try {
        const auto function = m_functions.find(textOf(name));
        if (function == m_functions.end())
            return callOwn(textOf(name), arguments, result);
        const Function callee = function->second; // the call may replace the function by another one
        return callee(arguments, result);
    } catch (const std::bad_alloc&) {
        VEK::memoryShort();
        return VEK::kHostError;
    } catch (...) {
        return VEK::kHostError;
    }
}

VEK::CSharedPointer<CVekDataItem> CVekLocalApp::dataObject(const VEK::CAdsName& name)
{
    const long long number = name[0];
    const bool known = name[1] == 0 && number > 0 && number <= static_cast<long long>(m_objects.size());
    return known ? m_objects[static_cast<std::size_t>(number - 1)].tree : VEK::CSharedPointer<CVekDataItem>();
}

void CVekLocalApp::hatchPatternSet(const wchar_t* name, const VekPatternLines& lines)
{
    enter(
        m_patterns, [&] { return upperOf(name); }, lines, lines.len() == 0);
}

bool CVekLocalApp::hatchPatternFile(const wchar_t* path, CVekString& error)
{
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    const bool whole = VEK::hatchPatternsLoad(patterns, path, error);
    for (const VEK::CHatchPattern& pattern : patterns)
        hatchPatternSet(pattern.name, pattern.lines);
    return whole;
}

void CVekLocalApp::viewMatrixSet(const wchar_t* name, const CVekMatrix3d& matrix)
{
    enter(
        m_views, [&] { return textOf(name); }, matrix, false);
}

void CVekLocalApp::functionSet(const wchar_t* name, Function function)
{
    enter(
        m_functions, [&] { return textOf(name); }, function, !function);
}
