// What the material tree shows: random libraries beside the rules taken literally, and libraries that never end.
#include "material_library.h"

#include <vek/controls.h>

#include <set>

namespace
{

using namespace material_test;

int alphabet(const wchar_t* a, const wchar_t* b)
{
    return CVekString(a).compareNoCase(b);
}

std::string line(int depth, const CVekString& key, const CVekString& text, int image, bool isSelected)
{
    using objects_test::narrow;
    return std::string(static_cast<std::size_t>(depth), ' ') + narrow(key) + "=" + narrow(text) +
           (isSelected ? " selected " : " ") + std::to_string(image) + "\n";
}

/// The rules as they stand, in recursion and without any memory.
struct Literal {
    const Models& models;
    unsigned flags;
    CVekString sought;
    std::set<std::string> way = {};
    int serial = 0, last = -1, selected = -1;

    struct Block {
        std::string key, label;
        CVekString text;
        std::string lines;
    };

    Model of(const std::string& key) const { return models.contains(key) ? models.at(key) : Model(); }
    bool has(const std::string& key, int Model::*kind, int least, std::set<std::string>& seen)
    {
        const Model model = of(key);
        return model.*kind >= least || std::any_of(model.subs.begin(), model.subs.end(), [&](const std::string& sub) {
                   return seen.insert(sub).second && has(sub, kind, least, seen);
               });
    }
    std::vector<Block> build(const Keys& keys, int depth)
    {
        std::vector<Block> blocks;
        for (const std::string& key : keys) {
            if (!way.insert(key).second)
                continue;
            const Model model = of(key);
            const bool isMissed = (flags & 4 && !model.edge) || (flags & 32 && !model.phys);
            const std::string text = model.label.empty() ? key : flags & 2 ? key + "   " + model.label : model.label;
            if (!sought.isNull() && wide(key).compareNoCase(sought) == 0)
                last = serial;
            blocks.push_back({key, model.label, wide(text), {}});
            std::string& lines = blocks.back().lines;
            lines = line(depth, wide(key), wide(text), isMissed ? 0 : 1 + model.isOfDrawing, serial++ == selected);
            for (const Block& below : build(model.subs, depth + 1))
                lines += below.lines;
            way.erase(key);
        }
        std::stable_sort(blocks.begin(), blocks.end(),
                         [](const Block& a, const Block& b) { return alphabet(a.text, b.text) < 0; });
        return blocks;
    }
    std::string top(bool isOfDrawing)
    {
        Keys keys;
        for (const auto& [key, model] : models) {
            std::set<std::string> edges, phys;
            if (!model.isBelow && model.isOfDrawing == isOfDrawing && wide(key).compareNoCase(L"SYSTEM") != 0 &&
                !(flags & 16 && key == "SPACE") && (!(flags & 4) || has(key, &Model::edge, 2, edges)) &&
                (!(flags & 32) || has(key, &Model::phys, 3, phys)))
                keys.push_back(key);
        }
        if (flags & 8 && !isOfDrawing)
            keys.push_back("SYSTEM");
        std::vector<Block> blocks = build(keys, 1);
        std::stable_sort(blocks.begin(), blocks.end(), [](const Block& a, const Block& b) {
            return b.key != "SYSTEM" && (a.key == "SYSTEM" || a.label < b.label);
        });
        std::string lines = isOfDrawing ? "drawing\n" : "library\n";
        for (const Block& block : blocks)
            lines += block.lines;
        return lines;
    }
    std::string all()
    {
        serial = 0;
        const std::string library = top(false); // whose nodes are counted first
        return flags & 1 ? library + top(true) : library;
    }
};

std::string listOf(const VEK::MatTree& tree, bool hasDrawing)
{
    std::string lines[2] = {"library\n", hasDrawing ? "drawing\n" : ""};
    std::vector<int> depths;
    bool isDrawing = false;
    for (int i = 0; i < tree.nodes.len(); ++i) {
        const auto [number, parent] = tree.nodes[i];
        isDrawing = parent < 0 ? parent == VEK::MatTreeNode::drawing : isDrawing;
        depths.push_back(parent < 0 ? 1 : depths.at(static_cast<std::size_t>(parent)) + 1);
        const VEK::MatTreeMaterial& shown = tree.materials[number];
        lines[isDrawing] += line(depths.back(), shown.key, shown.text, shown.image, i == tree.selected);
    }
    return lines[0] + lines[1];
}

TEST(MaterialTree, IsFilteredSortedAndSelectedByTheRules)
{
    std::mt19937 random(5);
    const Keys names = {"B", "a", "A", "SPACE", "SYSTEM", "Space", "System"};
    std::map<std::string, int> seen;
    for (int round = 0; round < 2000; ++round) {
        const Models models = randomModels(random, names);
        const Library library(models);
        const CVekString sought = random() % 3 ? wide(names[random() % 7]) : CVekString();
        Literal literal{models, static_cast<unsigned>(random() % 64), sought};
        literal.all();
        literal.selected = literal.last;
        const std::string expected = literal.all();
        VEK::MatTree tree;
        ASSERT_TRUE(VEK::matTree(tree, {}, {literal.flags, sought, {L"E", L"RHO"}, L"en", alphabet}));
        ASSERT_EQ(listOf(tree, literal.flags & 1), expected) << literal.flags;
        for (const char* what : {" selected", " 0\n", " 2\n", "     ", "SYSTEM"})
            seen[what] += expected.find(what) != std::string::npos;
    }
    for (const auto& [what, count] : seen)
        EXPECT_GT(count, 300) << what;
    EXPECT_EQ(seen.size(), 5u);
}

/// A chain that bites its tail, and layers of two that are each above both of the next layer.
TEST(MaterialTree, EndsWhateverTheLibrary)
{
    Models ring, layers;
    for (int i = 0; i < 3000; ++i)
        ring["R" + std::to_string(i)] = {"", {"R" + std::to_string((i + 1) % 3000)}, 0, 0, i > 0};
    for (int i = 0; i < 60; ++i) {
        const Keys next = {"L" + std::to_string(i / 2 * 2 + 2), "L" + std::to_string(i / 2 * 2 + 3)};
        layers["L" + std::to_string(i)] = {"", i < 58 ? next : Keys(), 0, i == 59 ? 2 : 0, i > 0};
    }
    layers["L0"].subs.push_back("Z");
    layers["Z"] = {"", {"ZZ"}, 0, 0, true};
    for (const auto* models : {&ring, &layers}) {
        const Library library(*models);
        VEK::MatTree tree;
        ASSERT_TRUE(VEK::matTree(tree, {}, {VEK::matTreeEdges * (models == &layers), L"R2", {}, nullptr, alphabet}));
        std::set<int> shown;
        for (const VEK::MatTreeNode& node : tree.nodes)
            shown.insert(node.material);
        EXPECT_EQ(shown.size(), models == &ring ? 256u : 61u) << "levels, and all that is below the first";
        EXPECT_EQ(tree.selected, models == &ring ? 2 : VEK::MatTreeNode::library);
        EXPECT_TRUE(models == &ring ? tree.nodes.len() == 256
                                    : tree.nodes.len() >= 65536 && tree.nodes.len() < 65536 + 122);
    }
}

} // namespace
