#include <vek/controls/window/tree.h>
#include <vek/dialogframe/window/dlg.h>

#include "core/values/whole.h"

#include <string>
#include <unordered_set>
#include <vector>

IMPLEMENT_DYNAMIC(CVekTreeCtrl, CTreeCtrl)
IMPLEMENT_DYNAMIC(CVekMatTreeCtrl, CVekTreeCtrl)

namespace
{

constexpr int kIconSize = 16;
constexpr int kIcons[] = {2001, 2002, 2003}; // by VEK::MatTreeImage

} // namespace

const wchar_t* CVekTreeCtrl::country() const
{
    const CVekDlg* const dialog = DYNAMIC_DOWNCAST(CVekDlg, GetParent());
    return dialog ? dialog->country() : nullptr;
}

const wchar_t* CVekTreeCtrl::GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    CVekDlg* const dialog = DYNAMIC_DOWNCAST(CVekDlg, GetParent());
    return dialog ? dialog->GetMsg(key, builtIn, language) : builtIn;
}

void CVekMatTreeCtrl::PreSubclassWindow()
{
    CVekTreeCtrl::PreSubclassWindow();
    m_images.DeleteImageList();
    m_images.Create(kIconSize, kIconSize, ILC_MASK, 4, 4);
    for (const int id : kIcons) {
        const HANDLE icon = ::LoadImageW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(id),
                                         IMAGE_ICON, kIconSize, kIconSize, LR_DEFAULTCOLOR);
        m_images.Add(static_cast<HICON>(icon));
        ::DestroyIcon(static_cast<HICON>(icon));
    }
    SetImageList(&m_images, TVSIL_NORMAL);
}

bool CVekMatTreeCtrl::init(unsigned flags, const wchar_t* key, const CVekArrayTempl<CVekString>& physKeys)
{
    m_flags = flags;
    m_initMat = key;
    m_selMat = m_initMat;
    if ((flags & VEK::matTreePhys) != 0)
        m_physKeys = physKeys;
    VEK::MatTree tree;
    const auto order = [](const wchar_t* a, const wchar_t* b) { return ::lstrcmpiW(a, b); };
    const bool isRead = VEK::matTree(tree, m_matMgr, {flags, m_selMat, m_physKeys, country(), order});

    SetRedraw(FALSE);
    SetImageList(&m_images, TVSIL_NORMAL); // again: a window that is being created does not take it yet
    DeleteAllItems();
    m_items.removeAll();
    const HTREEITEM library = insert(GetMsg(L"VEK_LIB_027", L"Bibliothek", nullptr), VEK::matImageNone, TVI_ROOT);
    const HTREEITEM drawing = (flags & VEK::matTreeDrawing) == 0
                                  ? nullptr
                                  : insert(GetMsg(L"DLG_SG018", L"Zeichnung", nullptr), VEK::matImageNone, TVI_ROOT);
    m_selItem = library;
    const bool isWhole = isRead && insertMaterials(tree, library, drawing);
    SetRedraw(TRUE);
    Select(m_selItem, TVGN_CARET);
    return isWhole;
}

bool CVekMatTreeCtrl::updLang()
{
    if (!m_selItem || GetCount() == 0)
        return true;
    return VEK::whole(false, [&] {
        const CVekString first = m_initMat;
        CVekString selected;
        getSelMat(selected);
        const auto isOpen = [this](HTREEITEM item) { return (GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED) != 0; };
        const auto forRoots = [this](auto act) {
            for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
                act(root);
        };
        std::vector<bool> openRoots;
        std::unordered_set<std::wstring> open;
        forRoots([&](HTREEITEM root) { openRoots.push_back(isOpen(root)); });
        for (const auto& [item, key] : m_items) {
            if (isOpen(item))
                open.insert(static_cast<const wchar_t*>(key));
        }
        const bool isWhole = init(m_flags, selected, m_physKeys);
        m_initMat = first;
        std::size_t next = 0;
        forRoots([&](HTREEITEM root) { openRoots[next++] ? Expand(root, TVE_EXPAND) : FALSE; });
        for (const auto& [item, key] : m_items) {
            if (open.contains(static_cast<const wchar_t*>(key)))
                Expand(item, TVE_EXPAND);
        }
        return isWhole;
    });
}

bool CVekMatTreeCtrl::insertMaterials(const VEK::MatTree& tree, HTREEITEM library, HTREEITEM drawing)
{
    return VEK::whole(false, [&] {
        std::vector<HTREEITEM> items;
        items.reserve(static_cast<std::size_t>(tree.nodes.len()));
        for (const VEK::MatTreeNode& node : tree.nodes) {
            const VEK::MatTreeMaterial& material = tree.materials[node.material];
            const bool isOfLibrary = node.parent == VEK::MatTreeNode::library;
            const HTREEITEM root = isOfLibrary ? library : drawing;
            const HTREEITEM parent = node.parent < 0 ? root : items[static_cast<std::size_t>(node.parent)];
            const HTREEITEM item = insert(material.text, material.image, parent);
            if (!item)
                return false;
            SetItemData(item, reinterpret_cast<DWORD_PTR>(item));
            m_items[item] = material.key;
            items.push_back(item);
        }
        if (tree.selected >= 0)
            m_selItem = items[static_cast<std::size_t>(tree.selected)];
        return true;
    });
}

HTREEITEM CVekMatTreeCtrl::insert(const wchar_t* text, int image, HTREEITEM parent)
{
    return InsertItem(text, image, image, parent, TVI_LAST);
}

bool CVekMatTreeCtrl::selectMat(const wchar_t* key)
{
    for (const auto& [item, itemKey] : m_items) {
        if (itemKey == key) {
            Select(item, TVGN_CARET);
            return true;
        }
    }
    return false;
}

bool CVekMatTreeCtrl::getSelMat(CVekString& key) const
{
    const CVekString* const found = m_items.get(GetSelectedItem());
    if (found)
        key = *found;
    return found != nullptr;
}
