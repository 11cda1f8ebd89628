// The material tree in a real window.
#include "material_library.h"
#include "window/control_fixture.h"

#include <vek/controls.h>

namespace
{

using namespace material_test;

/// A label that does not sort like its key.
std::string label(int number)
{
    return "M " + std::to_string(number * 7919 % 9973);
}

/// 10 materials, 200 below them, 5,000 below those.
Models threeLevels()
{
    Models models;
    for (int i = 0; i < 5210; ++i) {
        models["K" + std::to_string(i)] = {label(i), {}, 0, 0, i >= 10, i % 2 == 1};
        if (i >= 10)
            models["K" + std::to_string(i < 210 ? i % 10 : 10 + i % 200)].subs.push_back("K" + std::to_string(i));
    }
    return models;
}

TEST(MaterialTreeWindow, ShowsAndSelectsThousandsOfMaterials)
{
    const Library library(threeLevels());
    control_test::Parent parent;
    ASSERT_TRUE(
        parent.CreateEx(0, AfxRegisterWndClass(0), L"test", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 300), nullptr, 0));
    int handles = 0;
    for (int round = 0; round < 3; ++round) {
        CVekMatTreeCtrl tree;
        ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASLINES, CRect(0, 0, 300, 300), &parent, 1));
        EXPECT_FALSE(tree.country());
        EXPECT_EQ(tree.GetImageList(TVSIL_NORMAL)->GetImageCount(), 3);
        CVekString key(L"none");
        EXPECT_FALSE(tree.getSelMat(key));
        for (const wchar_t* sought : {L"nowhere", L"k4711"}) { // twice, over what is there
            ASSERT_TRUE(tree.init(VEK::matTreeDrawing, sought, {}));
            EXPECT_EQ(tree.GetCount(), 5212u);
            EXPECT_EQ(tree.m_items.len(), 5210);
        }
        EXPECT_TRUE(tree.getSelMat(key) && key == L"K4711" && tree.GetSelectedItem() == tree.m_selItem);
        EXPECT_FALSE(tree.selectMat(L"k17"));
        EXPECT_TRUE(tree.selectMat(L"K17") && tree.getSelMat(key) && key == L"K17");
        EXPECT_EQ(tree.GetItemText(tree.GetSelectedItem()), CString(wide(label(17))));
        EXPECT_EQ(tree.GetItemText(tree.GetParentItem(tree.GetSelectedItem())), CString(wide(label(7))));
        int image = -1, selectedImage = -1;
        EXPECT_TRUE(tree.GetItemImage(tree.GetSelectedItem(), image, selectedImage) && image == 2 &&
                    selectedImage == 2);
        for (const auto& [item, itemKey] : tree.m_items) {
            ASSERT_EQ(tree.GetItemData(item), reinterpret_cast<DWORD_PTR>(item));
            const HTREEITEM next = tree.GetNextSiblingItem(item);
            ASSERT_TRUE(!next || ::lstrcmpiW(tree.GetItemText(item), tree.GetItemText(next)) <= 0);
        }
        const HTREEITEM root = tree.GetRootItem();
        EXPECT_TRUE(tree.GetItemText(root) == L"Bibliothek" &&
                    tree.GetItemText(tree.GetNextSiblingItem(root)) == L"Zeichnung");
        tree.SelectItem(root);
        EXPECT_FALSE(tree.getSelMat(key));
        tree.DestroyWindow();
        handles = round == 0 ? control_test::freeHandles() : handles;
    }
    EXPECT_GE(control_test::freeHandles(), handles - 3) << "a tree keeps nothing";
    parent.DestroyWindow();
}

} // namespace
