#include <vek/data/dir.h>

#include "core/data/chain.h"
#include "core/values/whole.h"

namespace VEK
{

namespace
{

/// Adds the entries of a directory. It walks by parents and places, so that a tree of any depth needs no stack.
void addEntries(CChain& chain, const CVekDataItem& root)
{
    unsigned first = 0;
    const CVekDataItem* item = root.getDir()->children().from(first);
    while (item) {
        chain.node(rbListBegin);
        chain.add(*item->getKey());
        chain.node(rbDot);
        const CVekDataItem* next = nullptr;
        if (const CVekDataDir* dir = item->getDir()) {
            chain.node(rbListBegin);
            first = 0;
            next = dir->children().from(first);
            if (!next)
                chain.node(rbListEnd);
        } else {
            chain.addLeaf(*item);
        }
        if (next) {
            item = next;
            continue;
        }
        chain.node(rbListEnd);
        next = item->getParent()->getDir()->children().after(*item);
        while (!next && item->getParent() != &root) {
            item = item->getParent();
            chain.node(rbListEnd); // of the directory
            chain.node(rbListEnd); // of its entry
            next = item->getParent()->getDir()->children().after(*item);
        }
        item = next;
    }
}

bool beginsDirectory(const CChainReader& in)
{
    CChainReader inside = in;
    return inside.skip(rbListBegin) && (inside.isEntry() || inside.isAt(rbListEnd));
}

/// Reads entries to the end of the directory or the chain.
bool readEntries(CChainReader& in, CVekDataItem& root)
{
    CVekDataItem* dir = &root;
    for (;;) {
        if (in.isEntry()) {
            CVekDataKey key;
            CVekDataItem* child = nullptr;
            if (in.skip(rbListBegin) && in.read(key) && in.skip(rbDot))
                child = dir->makeItem(&key);
            if (!child)
                return false;
            if (beginsDirectory(in)) {
                in.skip(rbListBegin);
                dir = child;
                if (!child->mkDir())
                    return false;
                continue;
            }
            if (!in.readLeaf(*child))
                return false;
        } else if (dir != &root && in.skip(rbListEnd)) {
            dir = dir->getParent();
        } else {
            return dir == &root;
        }
        if (!in.skip(rbListEnd))
            return false;
    }
}

} // namespace

bool fromRb(Regions& value, resbuf*& chain, int)
{
    CChainReader in(chain);
    Regions regions;
    if (!whole(false, [&] { return in.read(regions); }))
        return false;
    value = std::move(regions);
    chain = const_cast<resbuf*>(in.at());
    return true;
}

bool fromRb(CVekDataItem& value, resbuf*& chain, int)
{
    CChainReader in(chain);
    CVekDataItem contents;
    const bool good = whole(false, [&] {
        if (!beginsDirectory(in))
            return in.readLeaf(contents);
        in.skip(rbListBegin);
        return contents.mkDir() && readEntries(in, contents) && in.skip(rbListEnd);
    });
    if (!chain || !good)
        return false;
    value = std::move(contents);
    chain = const_cast<resbuf*>(in.at());
    return true;
}

} // namespace VEK

bool CVekDataItem::setData(resbuf* chain, bool)
{
    const VEK::CUniqResbuf owner(chain);
    VEK::CChainReader in(chain);
    CVekDataItem contents;
    resbuf* rest = chain;
    const bool isBare = !chain || in.isEntry();
    const bool good =
        isBare ? VEK::whole(false, [&] { return contents.mkDir() && VEK::readEntries(in, contents); }) && !in.at()
               : VEK::fromRb(contents, rest, 0) && !rest;
    if (good)
        *this = std::move(contents);
    return good;
}

resbuf* CVekDataItem::mkLisp() const
{
    VEK::CChain chain;
    if (isDir())
        VEK::addEntries(chain, *this);
    else
        chain.addLeaf(*this);
    return chain.take();
}
