#include "scene.h"

#include "shared/lettering.h"

#include <cwchar>
#include <string>

namespace
{

constexpr int kHighlightIndex = 6; // magenta is visible on white, grey and black

std::wstring colorText(const CVekColor& color)
{
    if (color.colorIndex() >= 0 && color.colorIndex() <= 256)
        return L"colour " + std::to_wstring(color.colorIndex());
    wchar_t digits[8];
    std::swprintf(digits, std::size(digits), L"#%06X", static_cast<unsigned>(color.color()) & 0xFFFFFF);
    return digits;
}

std::wstring itemText(const CVekDisplayItem& item)
{
    switch (item.type) {
    case dispPolyline:
        return L"polyline of " + std::to_wstring(item.vl.len()) + (item.vl.len() == 1 ? L" segment" : L" segments");
    case dispPoint: return L"point";
    case dispRegion:
        if (item.flag & itemHatch)
            return std::wstring(L"region hatched ") + static_cast<const wchar_t*>(item.hatch.name);
        return item.flag & itemFill ? L"filled region" : L"region";
    case dispText: return std::wstring(L"text \"") + static_cast<const wchar_t*>(item.txt) + L"\"";
    case dispPicture: return std::wstring(L"picture ") + static_cast<const wchar_t*>(item.txt);
    default: return L"empty item";
    }
}

CVekGDX::Stack pathOf(int number)
{
    CVekGDX::Stack path;
    path.append(number);
    return path;
}

} // namespace

Scene::Object::Object() : CVekGDX(paper().backColorGet(), {}, 0.0, 0, CVekPoint3d::kOrigin, CVekPoint3d::kOrigin) {}

/// Gives every item without a path its own one, since a pick would give all the same, or that of its element.
void Scene::Object::number(const std::vector<ProjectElement>* elements)
{
    int next = stackGet();
    std::size_t element = 0;
    for (int i = 0; i < lenGet(); ++i) {
        while (elements && element < elements->size() && i >= (*elements)[element].end)
            ++element;
        if (displayList[i].stack.len() == 0)
            displayList[i].stack.append(elements ? static_cast<int>(element) + 1 : ++next);
    }
}

Scene::Scene() = default;

void Scene::show(const CataloguePicture& picture)
{
    m_patterns.reset(); // restores the previous host before the next one is installed
    m_patterns = std::make_unique<Patterns>();
    m_picture = Object();
    m_elements = picture.elements;
    const auto finish = [this] {
        CVekColor highlight;
        highlight.setColorIndex(kHighlightIndex);
        if (m_picture.ColorTabLenGet() == 0 || m_elements)
            m_picture.ColorTabSet(VEK::colorHighlight, highlight);
        m_picture.number(m_elements.get());
        m_ownBack = m_picture.backColorGet();
        m_shown = m_picture;
        setBackground(m_isChosen ? &m_chosenBack : nullptr);
    };
    try {
        picture.add(m_picture, *m_patterns);
    } catch (...) {
        finish();
        throw;
    }
    finish();
}

/// A pick reverses the list, and setting a colour mode clears other flags: so the items are copied from the original.
void Scene::highlight(int number)
{
    const CVekMatrix3d view = m_shown.viewMtxGet(), zoom = m_shown.zoomMtxGet();
    const CVekColor back = m_shown.backColorGet();
    m_shown = m_picture;
    m_shown.viewMtxSet(view);
    m_shown.zoomMtxSet(zoom);
    m_shown.backColorSet(back);
    if (number >= 0)
        m_shown.cModeSet(pathOf(number), VEK::colorHighlight);
}

CVekString Scene::describe(int number) const
{
    const CVekArrayTempl<int> items = m_picture.StackToItemNr(pathOf(number));
    if (items.len() == 0)
        return L"";
    const CVekDisplayItem& first = m_picture.getDisplayList()[items[0]];
    if (m_elements && number >= 1 && number <= static_cast<int>(m_elements->size())) {
        const ProjectElement& element = (*m_elements)[static_cast<std::size_t>(number) - 1];
        return element.name + L" (" + element.type + L"), " + std::to_wstring(items.len()).c_str() + L" items, " +
               colorText(first.color).c_str();
    }
    std::wstring text = std::to_wstring(number) + L": ";
    if (items.len() > 1)
        text += L"group of " + std::to_wstring(items.len()) + L", first ";
    text += itemText(first) + L", " + colorText(first.color);
    return text.c_str();
}

void Scene::setBackground(const CVekColor* color)
{
    m_isChosen = color != nullptr;
    if (m_isChosen)
        m_chosenBack = *color;
    m_shown.backColorSet(m_isChosen ? m_chosenBack : m_ownBack);
}
