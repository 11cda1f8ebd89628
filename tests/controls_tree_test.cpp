// What the material tree shows: random libraries beside the rules taken literally, and libraries that never end.
#include "objects_data.h"

#include <vek/controls.h>
#include <vek/data.h>
#include <vek/host.h>

#include <functional>
#include <map>
#include <set>

namespace
{

using objects_test::narrow, VEK::dataSet;

using Keys = std::vector<std::string>;

struct Model {
    std::string label;
    Keys subs;
    int phys = 0, edge = 0; ///< kinds; 3 for own data with the key asked for
    bool isBelow = false, isOfDrawing = false;
};

int alphabet(const wchar_t* a, const wchar_t* b)
{
    return CVekString(a).compareNoCase(b);
}

CVekString wide(const std::string& text)
{
    return VEK::fromUtf8(text.data(), static_cast<unsigned>(text.size()));
}

CVekArrayTempl<CVekString> wide(const Keys& texts)
{
    CVekArrayTempl<CVekString> list;
    for (const std::string& text : texts)
        list.append(wide(text));
    return list;
}

/// A library and a drawing with these materials.
class Library
{
public:
    explicit Library(const std::map<std::string, Model>& materials)
    {
        m_backup.attach(nullptr);
        vekAppSet(&m_host);
        VEK::CAdsName name;
        m_host.namedDataObject(name, L"MAT", true);
        VEK::cfgMgrPtr()->tree()->remove(L"*MAT*");
        CVekDataItem* const places[] = {VEK::cfg_dir_make(L"*MAT*"), m_host.dataObject(name)};
        for (const auto& [key, model] : materials) {
            CVekDataItem* const item = places[model.isOfDrawing]->makeDir(wide(key));
            dataSet(item, L"LABEL", wide(model.label));
            dataSet(item, L"SUBS", wide(model.subs));
            dataSet(item, L"SUB", model.isBelow);
            if (model.phys == 1)
                dataSet(item, L"PHYS", L"B");
            if (model.phys > 1)
                dataSet(item, L"PHYS\\E", 1.0);
            if (model.phys > 2)
                dataSet(item, L"PHYS\\rho", 1.0);
            if (model.edge == 1)
                dataSet(item, L"EDGE", L"B");
            if (model.edge > 1)
                dataSet(item, L"EDGE", wide(Keys(model.edge - 2u, "R1")));
        }
    }
    ~Library() { vekAppSet(nullptr); }

private:
    VEK::CCfgBackup m_backup{true};
    CVekLocalApp m_host;
};

/// The rules by themselves, over and over.
struct Literal {
    std::map<std::string, Model> materials;
    unsigned flags;
    std::string sought;
    std::multiset<std::string> way;
    int serial = 0, selected = -1;

    struct Node {
        std::string key, text;
        int image, serial;
        std::vector<Node> below;
    };

    bool has(const std::string& key, int Model::*kind, std::set<std::string>& seen)
    {
        const Model& model = materials[key];
        return (kind == &Model::phys ? model.phys == 3 : model.edge > 1) ||
               std::any_of(model.subs.begin(), model.subs.end(),
                           [&](const auto& sub) { return seen.insert(sub).second && has(sub, kind, seen); });
    }
    bool passes(const std::string& key)
    {
        std::set<std::string> edges, phys;
        return (!(flags & 4) || has(key, &Model::edge, edges)) && (!(flags & 32) || has(key, &Model::phys, phys));
    }
    std::vector<Node> build(const Keys& keys)
    {
        std::vector<Node> nodes;
        for (const std::string& key : keys) {
            if (way.count(key))
                continue;
            const Model model = materials[key];
            const bool isMissed = (flags & 4 && !model.edge) || (flags & 32 && !model.phys);
            const std::string shown = flags & 2             ? key + (model.label.empty() ? "" : "   " + model.label)
                                      : model.label.empty() ? key
                                                            : model.label;
            nodes.push_back({key, shown, isMissed ? 0 : 1 + model.isOfDrawing, serial++, {}});
            if (!sought.empty() && wide(key).compareNoCase(wide(sought)) == 0)
                selected = nodes.back().serial;
            const auto entered = way.insert(key);
            nodes.back().below = build(model.subs);
            way.erase(entered);
        }
        std::stable_sort(nodes.begin(), nodes.end(),
                         [](const Node& a, const Node& b) { return alphabet(wide(a.text), wide(b.text)) < 0; });
        return nodes;
    }
    std::vector<Node> top(bool isOfDrawing)
    {
        Keys keys;
        for (const auto& [key, model] : std::map(materials)) {
            const bool isSystem = wide(key).compareNoCase(L"SYSTEM") == 0;
            if (!model.isBelow && model.isOfDrawing == isOfDrawing && !isSystem && !(flags & 16 && key == "SPACE") &&
                passes(key))
                keys.push_back(key);
        }
        if (flags & 8 && !isOfDrawing)
            keys.push_back("SYSTEM");
        std::vector<Node> nodes = build(keys);
        std::stable_sort(nodes.begin(), nodes.end(), [&](const Node& a, const Node& b) {
            const bool first = a.key == "SYSTEM", second = b.key == "SYSTEM";
            return first != second ? first : materials[a.key].label < materials[b.key].label;
        });
        return nodes;
    }
};

std::string line(int parent, const std::string& key, const std::string& text, int image, bool isSelected)
{
    return std::to_string(parent) + " " + key + "=" + text + (isSelected ? "!" : " ") + std::to_string(image) + "\n";
}

TEST(MaterialTree, IsFilteredSortedAndSelectedByTheRules)
{
    std::mt19937 random(5);
    const auto draw = [&](unsigned count) { return static_cast<int>(random() % count); };
    const std::string names[] = {"B", "a", "A", "SPACE", "SYSTEM", "c", "System", "none"},
                      labels[] = {"", "x", "Y", "y"};
    int judged = 0, selected = 0, missed = 0;
    for (int round = 0; round < 2000; ++round) {
        std::map<std::string, Model> materials;
        for (const std::string& name : names) {
            if (draw(4) == 0 || name == "none")
                continue;
            Model& model = materials[name];
            model = {labels[draw(4)], {}, draw(4), draw(4), draw(3) == 0, draw(4) == 0};
            for (int i = draw(4); i > 0; --i)
                model.subs.push_back(names[draw(8)]);
        }
        const Library library(materials);
        Literal literal{materials, static_cast<unsigned>(draw(64)), draw(3) ? names[draw(8)] : "", {}};
        std::string expected;
        int count = 0;
        const std::function<void(const std::vector<Literal::Node>&, int)> list = [&](const auto& nodes, int parent) {
            for (const Literal::Node& node : nodes) {
                const bool isSelected = node.serial == literal.selected;
                expected += line(parent, node.key, node.text, node.image, isSelected);
                missed += node.image == 0;
                selected += isSelected;
                list(node.below, count++);
            }
        };
        const std::vector<Literal::Node> below = literal.top(false);
        const std::vector<Literal::Node> drawing = literal.flags & 1 ? literal.top(true) : below;
        list(below, -1);
        if (literal.flags & 1)
            list(drawing, -2);
        judged += count;

        VEK::MatTree tree;
        const CVekString sought = wide(literal.sought);
        ASSERT_TRUE(VEK::matTree(tree, {}, {literal.flags, sought, {L"E", L"RHO"}, L"en", alphabet}));
        std::string got;
        for (int i = 0; i < tree.nodes.len(); ++i) {
            const VEK::MatTreeNode& node = tree.nodes[i];
            const VEK::MatTreeMaterial& material = tree.materials[node.material];
            got += line(node.parent, narrow(material.key), narrow(material.text), material.image, i == tree.selected);
        }
        ASSERT_EQ(got, expected) << literal.flags << " " << literal.sought;
    }
    EXPECT_GT(judged, 5000);
    EXPECT_GT(selected, 300);
    EXPECT_GT(missed, 500);
}

/// A chain that bites its tail, and layers of two that are each above both of the next layer.
TEST(MaterialTree, EndsWhateverTheLibrary)
{
    std::map<std::string, Model> ring, layers;
    for (int i = 0; i < 3000; ++i)
        ring["R" + std::to_string(i)] = {"", {"R" + std::to_string((i + 1) % 3000)}, 0, 0, i > 0, false};
    for (int i = 0; i < 60; ++i) {
        const Keys next = {"L" + std::to_string(i / 2 * 2 + 2), "L" + std::to_string(i / 2 * 2 + 3)};
        layers["L" + std::to_string(i)] = {"", i < 58 ? next : Keys(), 0, i == 59 ? 2 : 0, i > 0, false};
    }
    for (const auto* materials : {&ring, &layers}) {
        const Library library(*materials);
        VEK::MatTree tree;
        ASSERT_TRUE(VEK::matTree(tree, {}, {materials == &layers ? 4u : 0u, L"R2", {}, nullptr, alphabet}));
        std::set<int> shown;
        for (const VEK::MatTreeNode& node : tree.nodes)
            shown.insert(node.material);
        if (materials == &ring) {
            EXPECT_EQ(tree.nodes.len(), 256) << "levels";
            EXPECT_EQ(tree.selected, 2);
        } else {
            EXPECT_EQ(shown.size(), 59u) << "one of the top layer";
            EXPECT_GT(tree.nodes.len(), 65535);
            EXPECT_LT(tree.nodes.len(), 65536 + 2 * 60);
        }
    }
}

} // namespace
