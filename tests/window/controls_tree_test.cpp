// The material tree in a real window.
#include "material_library.h"
#include "window/control_fixture.h"

#include <vek/controls.h>

namespace
{

using namespace material_test;

/// 10 materials, 200 below them, 5,000 below those, with labels that do not sort like the keys.
Models threeLevels()
{
    Models models;
    for (int i = 0; i < 5210; ++i) {
        const std::string key = "K" + std::to_string(i);
        models[key] = {"M " + std::to_string(i * 7919 % 9973), {}, 0, 0, i >= 10, i % 2 == 1};
        if (i >= 10)
            models["K" + std::to_string(i < 210 ? i % 10 : 10 + i % 200)].subs.push_back(key);
    }
    return models;
}

TEST(MaterialTreeWindow, ShowsAndSelectsThousandsOfMaterials)
{
    const Library library(threeLevels());
    control_test::Parent parent;
    parent.CreateEx(0, AfxRegisterWndClass(0), L"test", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 300), nullptr, 0);
    CVekMatTreeCtrl tree;
    ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASLINES, CRect(0, 0, 300, 300), &parent, 1));
    EXPECT_FALSE(tree.country());
    CVekString key(L"none");
    for (const wchar_t* sought : {L"nowhere", L"k4711"}) { // the second time over what is there
        EXPECT_FALSE(tree.getSelMat(key)) << "nothing, then the root";
        ASSERT_TRUE(tree.init(VEK::matTreeDrawing, sought, {}));
        EXPECT_TRUE(tree.GetCount() == 5212 && tree.m_items.len() == 5210);
    }
    EXPECT_TRUE(tree.GetImageList(TVSIL_NORMAL) == &tree.m_images && tree.m_images.GetImageCount() == 3);
    EXPECT_TRUE(tree.getSelMat(key) && key == L"K4711" && tree.GetSelectedItem() == tree.m_selItem);
    EXPECT_FALSE(tree.selectMat(L"k17"));
    EXPECT_TRUE(tree.selectMat(L"K17") && tree.getSelMat(key) && key == L"K17");
    const HTREEITEM item = tree.GetSelectedItem(), root = tree.GetRootItem();
    EXPECT_EQ(tree.GetItemText(tree.GetParentItem(item)) + L"/" + tree.GetItemText(item), L"M 5568/M 4974");
    EXPECT_EQ(tree.GetItemText(root) + tree.GetItemText(tree.GetNextSiblingItem(root)), L"BibliothekZeichnung");
    int image = 0, selectedImage = 0;
    EXPECT_TRUE(tree.GetItemImage(item, image, selectedImage) && image == 2 && selectedImage == 2);
    for (const auto& [each, eachKey] : tree.m_items) {
        const HTREEITEM next = tree.GetNextSiblingItem(each);
        ASSERT_TRUE(!next || ::lstrcmpiW(tree.GetItemText(each), tree.GetItemText(next)) <= 0);
        ASSERT_EQ(tree.GetItemData(each), reinterpret_cast<DWORD_PTR>(each));
    }
}

} // namespace
