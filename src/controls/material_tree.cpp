#include <vek/controls/material_tree.h>

#include "core/values/whole.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <unordered_map>
#include <vector>

namespace VEK
{

namespace
{

constexpr std::size_t kLevels = 256;
constexpr std::size_t kRepeatedNodes = 65536;

constexpr wchar_t kSystem[] = L"SYSTEM";

bool isSystemKey(const CVekString& key)
{
    return key.compareNoCase(kSystem) == 0;
}

struct Material {
    CVekString key;
    CVekString label;
    CVekString text;
    bool isOfDrawing = false;
    bool isSought = false;   ///< to be selected
    bool hasEdges = false;   ///< its own or, once raised, those of a material below
    bool hasPhys = false;    ///< the same for physical data with all the keys asked for
    bool isOnWay = false;    ///< above the node that is being added
    bool isExpanded = false; ///< what is below it is in the tree already
    int image = matImageNone;
    int rank = 0; ///< in the order of texts
    std::vector<int> subs;
};

/// The materials that a tree may show, by numbers.
class Library
{
public:
    Library(const CMatMgr& manager, const MatTreeRequest& request) : m_manager(manager), m_request(request) {}

    Material& operator[](int number) { return m_materials[static_cast<std::size_t>(number)]; }
    int len() const { return static_cast<int>(m_materials.size()); }

    int number(const CVekString& key)
    {
        const auto [place, isNew] = m_numbers.try_emplace(static_cast<const wchar_t*>(key), len());
        if (isNew)
            m_materials.emplace_back().key = key;
        return place->second;
    }

    /// Reads the materials that have a number, and gives one to those below them.
    void read()
    {
        for (int number = 0; number < len(); ++number)
            read(number);
        if (has(matTreeEdges))
            raise(&Material::hasEdges);
        if (has(matTreePhys))
            raise(&Material::hasPhys);
        rank();
    }

    bool has(MatTreeFlags flag) const { return (m_request.flags & flag) != 0; }

    bool isWanted(int number)
    {
        const Material& material = (*this)[number];
        return (!has(matTreeEdges) || material.hasEdges) && (!has(matTreePhys) || material.hasPhys);
    }

private:
    void read(int number)
    {
        CMatProp prop;
        std::vector<int> subs;
        const CVekString key = (*this)[number].key;
        m_manager.propGet(key, prop);
        subs.reserve(static_cast<std::size_t>(prop.subKeys.len()));
        for (const CVekString& sub : prop.subKeys)
            subs.push_back(this->number(sub));

        Material& material = (*this)[number];
        material.subs = std::move(subs);
        material.label = m_manager.matLabel(key, m_request.language);
        material.text = textOf(key, material.label);
        material.isOfDrawing = m_manager.isShadowMat(key);
        material.isSought = m_request.selected && *m_request.selected && key.compareNoCase(m_request.selected) == 0;
        material.hasEdges = prop.edgeKind == matOwn;
        material.hasPhys = prop.physKind == matOwn && matHasPhys(prop, m_request.physKeys);
        if ((!has(matTreeEdges) || prop.edgeKind != matNone) && (!has(matTreePhys) || prop.physKind != matNone))
            material.image = material.isOfDrawing ? matImageDrawing : matImageLibrary;
    }

    CVekString textOf(const CVekString& key, const CVekString& label) const
    {
        if (label.isNull())
            return key;
        return has(matTreeKeys) ? key + L"   " + label : label;
    }

    /// Gives what a material has to all that are above it, over any number of levels and in circles.
    void raise(bool Material::*mark)
    {
        std::vector<std::vector<int>> above(m_materials.size());
        std::vector<int> marked;
        for (int number = 0; number < len(); ++number) {
            for (const int sub : (*this)[number].subs)
                above[static_cast<std::size_t>(sub)].push_back(number);
            if ((*this)[number].*mark)
                marked.push_back(number);
        }
        while (!marked.empty()) {
            const int number = marked.back();
            marked.pop_back();
            for (const int each : above[static_cast<std::size_t>(number)]) {
                if (!std::exchange((*this)[each].*mark, true))
                    marked.push_back(each);
            }
        }
    }

    /// Texts are compared once: in a language's alphabet that is slow.
    void rank()
    {
        std::vector<int> numbers(m_materials.size());
        std::iota(numbers.begin(), numbers.end(), 0);
        const auto order = [this](int a, int b) { return m_request.order((*this)[a].text, (*this)[b].text); };
        std::stable_sort(numbers.begin(), numbers.end(), [&](int a, int b) { return order(a, b) < 0; });
        for (std::size_t i = 1; i < numbers.size(); ++i)
            (*this)[numbers[i]].rank = (*this)[numbers[i - 1]].rank + (order(numbers[i - 1], numbers[i]) != 0);
    }

    const CMatMgr& m_manager;
    const MatTreeRequest& m_request;
    std::unordered_map<std::wstring, int> m_numbers;
    std::vector<Material> m_materials;
};

/// The nodes of a tree, first in the library's order, in which the last one of several is selected, then sorted.
class Nodes
{
public:
    explicit Nodes(Library& library) : m_library(library) {}

    /// Adds a material with all that is below it.
    void add(int material, int root)
    {
        std::vector<Step> way;
        enter(way, material, root);
        while (!way.empty()) {
            Step& step = way.back();
            const std::vector<int>& subs = m_library[step.material].subs;
            if (step.next < subs.size()) {
                const int sub = subs[step.next++];
                enter(way, sub, step.node);
            } else {
                m_library[step.material].isOnWay = false;
                way.pop_back();
            }
        }
    }

    void sortInto(MatTree& tree)
    {
        groupByParent();
        const auto byRank = [this](int a, int b) { return materialOf(a).rank < materialOf(b).rank; };
        for (int parent = kFirstParent; parent < len(); ++parent)
            std::stable_sort(childrenBegin(parent), childrenEnd(parent), byRank);
        const auto byLabel = [this](int a, int b) { return isBefore(materialOf(a), materialOf(b)); };
        for (const int root : {MatTreeNode::library, MatTreeNode::drawing})
            std::stable_sort(childrenBegin(root), childrenEnd(root), byLabel);

        std::vector<int> places(m_nodes.size()), waiting;
        const auto wait = [&](int parent) {
            for (auto child = childrenEnd(parent); child != childrenBegin(parent);)
                waiting.push_back(*--child);
        };
        wait(MatTreeNode::drawing);
        wait(MatTreeNode::library);
        tree.nodes.reserve(len());
        while (!waiting.empty()) {
            const int node = waiting.back();
            waiting.pop_back();
            const auto [material, parent] = m_nodes[static_cast<std::size_t>(node)];
            places[static_cast<std::size_t>(node)] = tree.nodes.len();
            tree.nodes.append({material, parent < 0 ? parent : places[static_cast<std::size_t>(parent)]});
            wait(node);
        }
        tree.selected = m_selected < 0 ? m_selected : places[static_cast<std::size_t>(m_selected)];
    }

private:
    struct Step {
        int material;
        int node;
        std::size_t next; ///< of its sub-materials
    };

    void enter(std::vector<Step>& way, int number, int parent)
    {
        Material& material = m_library[number];
        if (material.isOnWay)
            return;
        const int node = static_cast<int>(m_nodes.size());
        m_nodes.push_back({number, parent});
        if (material.isSought)
            m_selected = node;
        const bool isShown = material.isExpanded && m_nodes.size() >= kRepeatedNodes;
        if (material.subs.empty() || isShown || way.size() + 1 >= kLevels)
            return;
        material.isExpanded = material.isOnWay = true;
        way.push_back({number, node, 0});
    }

    /// The top level is sorted by labels alone, with "SYSTEM" at the top.
    static bool isBefore(const Material& a, const Material& b)
    {
        const bool isSystem = isSystemKey(a.key);
        return isSystem != isSystemKey(b.key) ? isSystem : a.label < b.label;
    }

    void groupByParent()
    {
        m_starts.assign(m_nodes.size() + 3, 0);
        for (const MatTreeNode& node : m_nodes)
            ++start(node.parent + 1);
        std::partial_sum(m_starts.begin(), m_starts.end(), m_starts.begin());
        std::vector<int> ends(m_starts);
        m_children.resize(m_nodes.size());
        for (int node = 0; node < len(); ++node) {
            int& end = ends[static_cast<std::size_t>(m_nodes[static_cast<std::size_t>(node)].parent - kFirstParent)];
            m_children[static_cast<std::size_t>(end++)] = node;
        }
    }

    int len() const { return static_cast<int>(m_nodes.size()); }
    const Material& materialOf(int node) { return m_library[m_nodes[static_cast<std::size_t>(node)].material]; }
    int& start(int parent) { return m_starts[static_cast<std::size_t>(parent - kFirstParent)]; }
    std::vector<int>::iterator childrenBegin(int parent) { return m_children.begin() + start(parent); }
    std::vector<int>::iterator childrenEnd(int parent) { return childrenBegin(parent + 1); }

    static constexpr int kFirstParent = MatTreeNode::drawing;

    Library& m_library;
    std::vector<MatTreeNode> m_nodes;
    int m_selected = MatTreeNode::library;
    std::vector<int> m_children; ///< by parent
    std::vector<int> m_starts;   ///< where the children of a parent begin, for the roots and the nodes
};

/// The materials directly under the roots.
struct Roots {
    std::vector<int> library;
    std::vector<int> drawing;
};

Roots rootsOf(const CMatMgr& manager, Library& library)
{
    CVekArrayTempl<CVekString> keys;
    manager.matDrawAll(keys, false);
    std::vector<int> found;
    for (const CVekString& key : keys) {
        if (key.isNull() || isSystemKey(key) || (library.has(matTreeNoSpace) && key == L"SPACE") ||
            (!library.has(matTreeDrawing) && manager.isShadowMat(key)))
            continue;
        found.push_back(library.number(key));
    }
    const int system = library.has(matTreeSystem) ? library.number(kSystem) : -1;
    library.read();
    Roots roots;
    for (const int number : found) {
        if (library.isWanted(number))
            (library[number].isOfDrawing ? roots.drawing : roots.library).push_back(number);
    }
    if (system >= 0)
        roots.library.push_back(system);
    return roots;
}

} // namespace

bool matTree(MatTree& tree, const CMatMgr& manager, const MatTreeRequest& request)
{
    MatTree made;
    const bool good = whole(false, [&] {
        Library library(manager, request);
        const Roots roots = rootsOf(manager, library);
        Nodes nodes(library);
        for (const int number : roots.library)
            nodes.add(number, MatTreeNode::library);
        for (const int number : roots.drawing)
            nodes.add(number, MatTreeNode::drawing);
        nodes.sortInto(made);
        made.materials.reserve(library.len());
        for (int number = 0; number < library.len(); ++number)
            made.materials.append({library[number].key, library[number].text, library[number].image});
        return true;
    });
    if (good)
        tree = std::move(made);
    return good;
}

bool matHasPhys(const CMatProp& material, const CVekArrayTempl<CVekString>& physKeys)
{
    return std::all_of(physKeys.begin(), physKeys.end(),
                       [&](const CVekString& key) { return material.phys.get(key) != nullptr; });
}

} // namespace VEK
