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
    CVekArray() = default;
    CVekArray(const CVekArray&) = default;
    CVekArray& operator=(const CVekArray&) = default;

    /// The capacity after `capacity` that fits `wanted` elements: doubled, at least 8. 0 when an int index could not
    /// reach them all.
    static unsigned grownCapacity(unsigned capacity, std::size_t wanted);

    unsigned m_capacity = 0; ///< elements that the block has room for
    unsigned m_length = 0;   ///< logical length
    unsigned m_built = 0;    ///< elements whose constructors have run; those past the length are kept for reuse
};

/// Whether values of a type may be moved by copying their bytes, without a destructor call on the source: trivially
/// copyable types, and those that declare it by `using MovesAsBytes = T`. Such a type also guarantees that copy
/// construction and assignment store the same. A derived class does not inherit the declaration.
template <class T>
inline constexpr bool kVekMovesAsBytes = std::is_trivially_copyable_v<T> || requires
{
    requires std::is_same_v<typename T::MovesAsBytes, T>;
};

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
/// @tparam T a value type with a default constructor and assignment. Its exceptions propagate; the array stays valid.
template <class T>
class CVekArrayTempl : public CVekArray
{
public:
    using MovesAsBytes = CVekArrayTempl; ///< see `kVekMovesAsBytes`

    CVekArrayTempl() = default;
    CVekArrayTempl(std::initializer_list<T> values) : CVekArrayTempl()
    {
        append(values.begin(), static_cast<unsigned>(values.size()));
    }
    CVekArrayTempl(const CVekArrayTempl& other) : CVekArrayTempl() { append(other.m_data, other.m_length); }
    CVekArrayTempl(CVekArrayTempl&& other) noexcept : CVekArray() { exchange(other); }
    ~CVekArrayTempl() override { release(); }

    CVekArrayTempl& operator=(const CVekArrayTempl& other)
    {
        if (this != &other && room(other.m_length)) {
            m_length = 0;
            append(other.m_data, other.m_length);
        }
        return *this;
    }
    CVekArrayTempl& operator=(CVekArrayTempl&& other) noexcept
    {
        exchange(other);
        return *this;
    }

    /// Writing access by the index rules above.
    T& operator[](int index) { return static_cast<unsigned>(index) < m_length ? m_data[index] : farElement(index); }

    /// Reading access by the index rules above.
    const T& operator[](int index) const
    {
        if (static_cast<unsigned>(index) < m_length)
            return m_data[index];
        const int inside = normalized(index);
        return static_cast<unsigned>(inside) < m_length ? m_data[inside] : sharedDefault();
    }

    /// Sets the length; new elements are default values, a negative length gives 0.
    /// @return the new length
    int setLogicalLength(int length) override
    {
        const unsigned wanted = length < 0 ? 0u : static_cast<unsigned>(length);
        if (wanted > m_length && reserve(length)) {
            for (unsigned i = m_length; i < std::min(wanted, m_built); ++i)
                m_data[i] = T();
            build(wanted);
        }
        if (wanted <= m_built)
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
        } else if (&value >= m_data && &value < m_data + m_length) {
            T own(std::move(value));
            append(std::move(own));
        } else if (ensure(std::size_t{m_length} + 1)) {
            put(std::move(value));
        }
    }

    /// Removes one element and closes the gap. The index follows the reading rules; one out of range changes nothing.
    void removeAt(int index)
    {
        const unsigned at = static_cast<unsigned>(normalized(index));
        if (at >= m_length)
            return;
        std::rotate(m_data + at, m_data + at + 1, m_data + m_length);
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
            append(other.m_data, count);
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

    T* begin() { return m_data; }
    T* end() { return m_data + m_length; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_length; }

protected:
    /// Exchanges the elements only.
    void exchange(CVekArrayTempl& other) noexcept
    {
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_length, other.m_length);
        std::swap(m_built, other.m_built);
        std::swap(m_data, other.m_data);
    }

    /// What a derived class adds to `revert`, called once the order is reversed.
    virtual void revertElements() {}

    /// What a derived class adds to `swap`.
    /// @return false when there is nothing
    virtual bool swapRest(CVekArrayTempl&) noexcept { return false; }

private:
    /// Whether a new slot may be copy-constructed, since that stores what assignment to a default value would.
    static constexpr bool kCopies = kVekMovesAsBytes<T>;

    /// A block under construction, freed when an element's constructor or assignment throws.
    struct Block {
        T* data;
        unsigned built = 0;

        explicit Block(std::size_t size) : data(static_cast<T*>(CVekObj::operator new[](size))) {}
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;
        ~Block()
        {
            std::destroy_n(data, built);
            CVekObj::operator delete[](data);
        }
    };

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
        return m_data[at];
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
        if (m_length < m_built) {
            m_data[m_length] = std::forward<V>(value);
        } else if constexpr (kCopies) {
            ::new (static_cast<void*>(m_data + m_built)) T(std::forward<V>(value));
            ++m_built;
        } else {
            ::new (static_cast<void*>(m_data + m_built)) T();
            m_data[m_built++] = std::forward<V>(value);
        }
        ++m_length;
    }

    /// Appends copies; the new length must be valid for an array.
    void append(const T* values, unsigned count)
    {
        if (!room(m_length + count))
            return;
        T* to = m_data + m_length;
        const unsigned used = std::min(count, m_built - m_length);
        std::copy_n(values, used, to);
        if constexpr (kCopies) {
            std::uninitialized_copy_n(values + used, count - used, to + used);
            m_built = std::max(m_built, m_length + count);
        } else {
            build(m_length + count);
            std::copy_n(values + used, count - used, to + used);
        }
        m_length += count;
    }

    void build(unsigned count)
    {
        for (; m_built < count; ++m_built)
            ::new (static_cast<void*>(m_data + m_built)) T();
    }

    bool ensure(std::size_t wanted) { return wanted <= m_capacity || relocate(grownCapacity(m_capacity, wanted)); }

    /// Makes room without spare capacity.
    bool room(unsigned count) { return count <= m_capacity || relocate(count); }

    bool relocate(unsigned capacity)
    {
        const std::size_t size = sizeof(T) * std::size_t{capacity};
        if (capacity == 0)
            return false;
        if constexpr (kVekMovesAsBytes<T>) { // the system remaps the pages of a large block without touching them
            void* block = CVekObj::resize(static_cast<void*>(m_data), size);
            if (!block)
                return false;
            m_data = static_cast<T*>(block);
        } else {
            Block block(size);
            if (!block.data)
                return false;
            if constexpr (std::is_nothrow_move_constructible_v<T>) {
                std::uninitialized_move_n(m_data, m_built, block.data);
                block.built = m_built;
            } else {
                for (; block.built < m_built; ++block.built) {
                    ::new (static_cast<void*>(block.data + block.built)) T();
                }
                std::move(m_data, m_data + m_built, block.data);
            }
            std::swap(m_data, block.data); // frees the old one
        }
        m_capacity = capacity;
        return true;
    }

    void release()
    {
        std::destroy_n(m_data, m_built);
        CVekObj::operator delete[](m_data);
    }

    T* m_data = nullptr;
};
