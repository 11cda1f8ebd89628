/// @file
/// The growable array used for every list of the system.
#pragma once

#include <vek/values/object.h>

#include <algorithm>
#include <climits>
#include <initializer_list>
#include <memory>
#include <type_traits>
#include <utility>

/// Untyped base of the array family.
class VEK_API CVekArray : public CVekObj
{
public:
    /// Number of elements.
    int len() const { return static_cast<int>(m_length); }

    /// Sets the number of elements; see `CVekArrayTempl`.
    virtual int setLogicalLength(int length) = 0;

protected:
    explicit CVekArray(unsigned capacity) : m_capacity(capacity) {}
    CVekArray(const CVekArray&) = default;
    CVekArray& operator=(const CVekArray&) = default;

    /// The capacity after `capacity` that fits `wanted` elements: doubled, at least 8. 0 when an int index could not
    /// reach them all.
    static unsigned grownCapacity(unsigned capacity, std::size_t wanted);

    unsigned m_capacity;   ///< elements for which there is room
    unsigned m_length = 0; ///< logical length
};

/// Whether values of a type may be moved by copying their bytes, without a destructor call on the source: trivially
/// copyable types, and those that declare it by `using MovesAsBytes = T`. Such a type also guarantees that copy
/// construction and assignment store the same. A derived class does not inherit the declaration.
template <class T>
inline constexpr bool kVekMovesAsBytes = std::is_trivially_copyable_v<T> || requires
{
    requires std::is_same_v<typename T::MovesAsBytes, T>;
};

/// Whether values of a type hold nothing that a destructor frees, so that an array drops them without a call and writes
/// new ones over them: trivially copyable types, and those moved as bytes that declare it by `using OwnsNothing = T`.
template <class T>
inline constexpr bool kVekOwnsNothing = std::is_trivially_copyable_v<T> || (kVekMovesAsBytes<T> && requires {
                                            requires std::is_same_v<typename T::OwnsNothing, T>;
                                        });

/// Growable array of values. A copy is deep.
///
/// Index rules, which callers rely on: -1 is the last element, -2 the one before it, and a lower index is taken modulo
/// the length. Writing access at or past the end grows the array to that index. Reading access past the end, and any
/// negative index of an empty array, gives a shared default element.
///
/// Each such access resets the shared default element, whatever was written to it before.
///
/// Elements are stored by assignment, also when an array is copied: an element holds what its type's assignment copies.
///
/// Growth doubles the capacity and moves the elements; those whose move may throw are assigned to new slots instead,
/// never copy-constructed. Elements past a reduced length stay constructed and keep their memory for reuse. When memory
/// runs out the array stays as it was; see `<vek/values/memory.h>`.
///
/// Plain elements that fit into a pointer stand in the array itself, so that the path (7) and the line type {1.0} need
/// no block. A pointer to an element is valid until the array grows, is moved or exchanged.
///
/// @tparam T a value type with a default constructor and assignment. Its exceptions propagate; the array stays valid.
template <class T>
class CVekArrayTempl : public CVekArray
{
public:
    using MovesAsBytes = CVekArrayTempl; ///< see `kVekMovesAsBytes`

    CVekArrayTempl() : CVekArray(kOwn) {}
    CVekArrayTempl(std::initializer_list<T> values) : CVekArrayTempl()
    {
        append(values.begin(), static_cast<unsigned>(values.size()));
    }
    CVekArrayTempl(const CVekArrayTempl& other) : CVekArrayTempl() { append(other.begin(), other.m_length); }
    CVekArrayTempl(CVekArrayTempl&& other) noexcept : CVekArrayTempl() { exchange(other); }
    ~CVekArrayTempl() override { release(); }

    CVekArrayTempl& operator=(const CVekArrayTempl& other)
    {
        if (this != &other && room(other.m_length)) {
            m_length = 0;
            append(other.begin(), other.m_length);
        }
        return *this;
    }
    CVekArrayTempl& operator=(CVekArrayTempl&& other) noexcept
    {
        exchange(other);
        return *this;
    }

    /// Writing access by the index rules above.
    T& operator[](int index) { return static_cast<unsigned>(index) < m_length ? begin()[index] : farElement(index); }

    /// Reading access by the index rules above.
    const T& operator[](int index) const
    {
        if (static_cast<unsigned>(index) < m_length)
            return begin()[index];
        const int inside = normalized(index);
        return static_cast<unsigned>(inside) < m_length ? begin()[inside] : sharedDefault();
    }

    /// Sets the length; new elements are default values, a negative length gives 0.
    /// @return the new length
    int setLogicalLength(int length) override
    {
        const unsigned wanted = length < 0 ? 0u : static_cast<unsigned>(length);
        if (wanted > m_length) {
            if (!ensure(wanted))
                return len();
            if constexpr (kVekOwnsNothing<T>) {
                std::uninitialized_value_construct(end(), begin() + wanted);
            } else {
                T* const kept = begin() + std::min(wanted, builtOf(begin()));
                std::for_each(end(), kept, [](T& old) { old = T(); });
                build(wanted);
            }
        }
        m_length = wanted;
        return len();
    }

    /// Makes room for `capacity` elements, so that appending up to that number needs no growth.
    /// @return false when memory runs out
    bool reserve(int capacity) { return capacity <= 0 || ensure(static_cast<std::size_t>(capacity)); }

    /// The same without spare room, for an array whose final length is known.
    bool reserveExactly(int capacity) { return capacity <= 0 || room(static_cast<unsigned>(capacity)); }

    /// Adds a copy at the end. The value may be an element of this very array.
    void append(const T& value)
    {
        if (m_length < m_capacity)
            put(value);
        else
            append(T(value));
    }

    /// Moves a value to the end.
    void append(T&& value)
    {
        if (m_length < m_capacity) {
            put(std::move(value));
        } else if (&value >= begin() && &value < end()) {
            T own(std::move(value));
            append(std::move(own));
        } else if (ensure(std::size_t{m_length} + 1)) {
            put(std::move(value));
        }
    }

    /// The slot behind the last element, for building an element where it will stand; it belongs to the array once
    /// `appendSpare` is called.
    /// @param isNew receives whether it is a default value, and not one that stood there before
    /// @return null if there is no room
    T* spare(bool& isNew)
    {
        if (m_length == m_capacity)
            return nullptr;
        T* const slot = end();
        isNew = true;
        if constexpr (kHead > 0) {
            isNew = m_length == builtOf(begin());
            build(m_length + 1);
        } else {
            ::new (static_cast<void*>(slot)) T();
        }
        return slot;
    }
    void appendSpare() { ++m_length; }

    /// Removes one element and closes the gap. The index follows the reading rules; one out of range changes nothing.
    void removeAt(int index)
    {
        const unsigned at = static_cast<unsigned>(normalized(index));
        if (at >= m_length)
            return;
        std::rotate(begin() + at, begin() + at + 1, end());
        --m_length;
    }

    /// Linear search.
    /// @param index receives the position of the first equal element, unchanged if there is none
    bool indexOf(const T& value, int& index) const
    {
        const T* hit = std::find(begin(), end(), value);
        if (hit == end())
            return false;
        index = static_cast<int>(hit - begin());
        return true;
    }

    /// Appends copies of all elements of another array, which may be this one.
    CVekArrayTempl& operator+=(const CVekArrayTempl& other)
    {
        const unsigned count = other.m_length;
        if (ensure(std::size_t{m_length} + count))
            append(other.begin(), count);
        return *this;
    }

    /// Appends all elements of another array by moving them; the other one is then empty. Both stay as they were when
    /// memory runs out.
    CVekArrayTempl& operator+=(CVekArrayTempl&& other)
    {
        if (this == &other)
            return *this;
        if (m_length == 0) {
            exchange(other);
        } else if (ensure(std::size_t{m_length} + other.m_length)) {
            for (T& value : other)
                put(std::move(value));
        } else {
            return *this;
        }
        other.m_length = 0;
        return *this;
    }

    /// Sorts ascending by `<`.
    void sort() { std::sort(begin(), end()); }

    /// Reverses the order, and the direction of elements that have one.
    void revert()
    {
        std::reverse(begin(), end());
        revertElements();
    }

    /// Exchanges the contents, including what either array holds besides its elements.
    void swap(CVekArrayTempl& other) noexcept
    {
        exchange(other);
        if (!swapRest(other))
            other.swapRest(*this);
    }

    bool operator==(const CVekArrayTempl& other) const
    {
        return m_length == other.m_length && std::equal(begin(), end(), other.begin());
    }

    T* begin()
    {
        if constexpr (kOwn > 0) {
            if (m_capacity == kOwn)
                return m_room.own;
        }
        return m_room.block;
    }
    T* end() { return begin() + m_length; }
    const T* begin() const { return const_cast<CVekArrayTempl*>(this)->begin(); }
    const T* end() const { return begin() + m_length; }

protected:
    /// Exchanges the elements only.
    void exchange(CVekArrayTempl& other) noexcept
    {
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_length, other.m_length);
        std::swap(m_room, other.m_room);
    }

    /// What a derived class adds to `revert`, called once the order is reversed.
    virtual void revertElements() {}

    /// What a derived class adds to `swap`.
    /// @return false when there is nothing
    virtual bool swapRest(CVekArrayTempl&) noexcept { return false; }

private:
    /// Whether a new slot may be copy-constructed, since that stores what assignment to a default value would.
    static constexpr bool kCopies = kVekMovesAsBytes<T>;

    /// For how many elements there is room in the array itself.
    static constexpr unsigned kOwn =
        std::is_trivial_v<T> && sizeof(T) <= sizeof(void*) ? static_cast<unsigned>(sizeof(void*) / sizeof(T)) : 0;

    /// The bytes of a block before its first element. They hold the number of elements whose constructors have run,
    /// those past the length included, unless nothing depends on it.
    static constexpr std::size_t kHead = kVekOwnsNothing<T> ? 0 : std::max(alignof(T), sizeof(unsigned));

    /// Where the elements stand: here up to that capacity, in a block above it.
    union Room {
        T* block = nullptr; ///< the first element of the block
        std::conditional_t<(kOwn > 0), T, char> own[kOwn > 0 ? kOwn : 1];
    };

    /// A block under construction, freed when an element's constructor or assignment throws.
    struct Block {
        T* data;

        explicit Block(std::size_t size) : data(firstOf(CVekObj::operator new[](kHead + size))) {}
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;
        ~Block() { drop(data); }
    };

    /// The first element of a block, of which none is built yet if it is new; null for no block.
    static T* firstOf(void* block, bool isNew = true)
    {
        if (!block)
            return nullptr;
        T* first = reinterpret_cast<T*>(static_cast<char*>(block) + kHead);
        if (kHead > 0 && isNew)
            ::new (block) unsigned(0);
        return first;
    }
    static void* blockOf(T* first) { return first ? reinterpret_cast<char*>(first) - kHead : nullptr; }

    /// How many elements of a block are built.
    static unsigned& builtOf(T* first)
    {
        return *static_cast<unsigned*>(static_cast<void*>(reinterpret_cast<char*>(first) - kHead));
    }

    static void drop(T* first)
    {
        if constexpr (kHead > 0) {
            if (first)
                std::destroy_n(first, builtOf(first));
        }
        CVekObj::operator delete[](blockOf(first));
    }

    int normalized(int index) const
    {
        if (index >= 0 || m_length == 0)
            return index;
        const int length = len();
        return (length + index % length) % length;
    }

    T& farElement(int index)
    {
        const int at = normalized(index);
        if (at < 0)
            return sharedDefault();
        if (at >= len() && (at == INT_MAX || setLogicalLength(at + 1) <= at))
            return sharedDefault();
        return begin()[at];
    }

    static T& sharedDefault()
    {
        static T element{};
        element = T();
        return element;
    }

    template <class V>
    void put(V&& value)
    {
        T* slot = end();
        if constexpr (kHead > 0) {
            if (unsigned& built = builtOf(begin()); m_length < built) {
                *slot = std::forward<V>(value);
            } else if constexpr (kCopies) {
                ::new (static_cast<void*>(slot)) T(std::forward<V>(value));
                ++built;
            } else {
                ::new (static_cast<void*>(slot)) T();
                ++built;
                *slot = std::forward<V>(value);
            }
        } else {
            ::new (static_cast<void*>(slot)) T(std::forward<V>(value));
        }
        ++m_length;
    }

    /// Appends copies; the new length must be valid for an array.
    void append(const T* values, unsigned count)
    {
        if (count == 0 || !room(m_length + count))
            return;
        T* to = end();
        unsigned used = 0;
        if constexpr (kHead > 0) {
            used = std::min(count, builtOf(begin()) - m_length);
            std::copy_n(values, used, to);
        }
        if constexpr (kCopies) {
            std::uninitialized_copy_n(values + used, count - used, to + used);
            if constexpr (kHead > 0)
                builtOf(begin()) += count - used;
        } else {
            build(m_length + count);
            std::copy_n(values + used, count - used, to + used);
        }
        m_length += count;
    }

    /// Has the elements up to a number built that the capacity allows.
    void build(unsigned count)
    {
        T* const first = begin();
        for (unsigned& built = builtOf(first); built < count; ++built)
            ::new (static_cast<void*>(first + built)) T();
    }

    bool ensure(std::size_t wanted) { return wanted <= m_capacity || relocate(grownCapacity(m_capacity, wanted)); }

    /// Makes room without spare capacity.
    bool room(unsigned count) { return count <= m_capacity || relocate(count); }

    bool relocate(unsigned capacity)
    {
        const std::size_t size = sizeof(T) * std::size_t{capacity};
        if (capacity == 0)
            return false;
        T* const block = m_capacity > kOwn ? m_room.block : nullptr;
        if constexpr (kVekMovesAsBytes<T>) { // the system remaps the pages of a large block without touching them
            T* const moved = firstOf(CVekObj::resize(blockOf(block), kHead + size), block == nullptr);
            if (!moved)
                return false;
            if constexpr (kOwn > 0) {
                if (!block)
                    std::copy_n(m_room.own, m_length, moved);
            }
            m_room.block = moved;
        } else {
            Block grown(size);
            if (!grown.data)
                return false;
            const unsigned count = block ? builtOf(block) : 0;
            unsigned& built = builtOf(grown.data);
            if constexpr (std::is_nothrow_move_constructible_v<T>) {
                std::uninitialized_move_n(block, count, grown.data);
                built = count;
            } else {
                for (; built < count; ++built)
                    ::new (static_cast<void*>(grown.data + built)) T();
                std::move(block, block + count, grown.data);
            }
            std::swap(m_room.block, grown.data); // frees the old one
        }
        m_capacity = capacity;
        return true;
    }

    void release()
    {
        if (m_capacity > kOwn)
            drop(m_room.block);
    }

    Room m_room;
};
