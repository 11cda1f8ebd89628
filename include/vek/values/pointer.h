/// @file
/// Owners of heap objects.
#pragma once

#include <vek/values/object.h>

#include <mutex>
#include <utility>
#include <vector>

namespace VEK
{

/// The base of shared pointers: the index of an entry in one table of the process, which holds a reference count and
/// the pointer. It is the only type of the library that several threads may use at once: different holders of one
/// object may be in different threads, but each holder is used by one thread at a time.
class VEK_API CPtrMap : public CVekObj
{
public:
    /// An entry of the table.
    struct Data {
        int refs = 0;        ///< 0 for a free entry
        void* ptr = nullptr; ///< null once it was released
        int nextFree = -1;   ///< chain of free entries
    };

    CPtrMap() = default;
    CPtrMap(const CPtrMap& other);
    CPtrMap(CPtrMap&& other) noexcept : CVekObj(), m_index(std::exchange(other.m_index, -1)) {}
    CPtrMap& operator=(const CPtrMap&) = delete;

    /// Number of holders of the entry; 0 without one.
    int refCount() const;

    /// The pointer; null without an entry and after a release through any holder.
    void* ptr() const;

    /// Creates an entry with one reference. Each call creates a separate entry: give a raw pointer to one holder only,
    /// and copy that holder to share.
    /// @return false, and the caller still owns the object, for null, for a holder that has an entry already, and when
    /// memory runs out
    bool newRef(void* object);

    /// Releases the entry; the holder then has none.
    /// @return the pointer, which the caller must delete, if this was its last holder; otherwise null
    void* decrRef();

    static std::vector<Data>& m_DataArr; ///< the table; guarded by `m_CrSec`, and never destroyed
    static std::mutex& m_CrSec;

protected:
    /// Takes the pointer out of the table, so that every holder reads null and none deletes it.
    void* releasePtr();

private:
    int m_index = -1;

    friend void swapEntries(CPtrMap& a, CPtrMap& b) noexcept { std::swap(a.m_index, b.m_index); }
};

/// A holder that shares an object with its copies; the last one deletes it. It takes ownership of a raw pointer, and
/// deletes it at once when memory for its entry runs out.
template <class T>
class CSharedPointer : public CPtrMap
{
public:
    CSharedPointer() = default;
    CSharedPointer(std::nullptr_t) {}
    explicit CSharedPointer(T* object)
    {
        if (!newRef(object))
            delete object;
    }
    CSharedPointer(const CSharedPointer& other) = default;
    CSharedPointer(CSharedPointer&& other) noexcept = default;
    ~CSharedPointer() override { delete static_cast<T*>(decrRef()); }
    CSharedPointer& operator=(CSharedPointer other) noexcept
    {
        swapEntries(*this, other);
        return *this;
    }

    operator T*() const { return static_cast<T*>(ptr()); }
    T* operator->() const { return static_cast<T*>(ptr()); }

    /// Hands the object to the caller without deleting it; every holder then reads null.
    T* release() { return static_cast<T*>(releasePtr()); }
};

/// The sole owner of an object, which takes ownership of a raw pointer. It has the operations of shared pointers too,
/// without an entry in the table.
template <class T>
class CUniqPointer : public CVekObj
{
public:
    CUniqPointer() = default;
    CUniqPointer(std::nullptr_t) {}
    explicit CUniqPointer(T* object) : m_object(object) {}
    CUniqPointer(CUniqPointer&& other) noexcept : CVekObj(), m_object(other.release()) {}
    CUniqPointer(const CUniqPointer&) = delete;
    ~CUniqPointer() override { delete m_object; }
    CUniqPointer& operator=(CUniqPointer other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    operator T*() const { return m_object; }
    T* operator->() const { return m_object; }

    int refCount() const { return m_object ? 1 : 0; }
    T* ptr() const { return m_object; }

    /// Takes ownership of an object.
    /// @return false, and the caller still owns the object, for null and for an owner that has one already
    bool newRef(T* object)
    {
        if (!object || m_object)
            return false;
        m_object = object;
        return true;
    }

    /// Hands the object to the caller, who must delete it.
    T* decrRef() { return release(); }

    /// Hands the object to the caller.
    T* release() { return std::exchange(m_object, nullptr); }

private:
    T* m_object = nullptr;
};

} // namespace VEK
