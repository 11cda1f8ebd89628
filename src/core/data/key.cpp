#include <vek/data/key.h>

CVekDataKey::CVekDataKey(const CVekDataKey& other) : CVekObj()
{
    append(other);
}

CVekDataKey::CVekDataKey(CVekDataKey&& other) noexcept
    : m_type(std::exchange(other.m_type, keyNone)), m_number(std::exchange(other.m_number, 0)),
      m_text(std::move(other.m_text)), m_next(std::move(other.m_next))
{
}

CVekDataKey& CVekDataKey::operator=(const CVekDataKey& other)
{
    m_type = other.m_type;
    m_number = other.m_number;
    setText(other.m_text);
    m_next.reset(); // last: other may be the rest of this path
    return *this;
}

CVekDataKey& CVekDataKey::set(const wchar_t* text)
{
    m_type = text ? keyText : keyNone;
    setText(text);
    m_number = 0;
    m_next.reset();
    return *this;
}

/// Stores the text of the first element, which may be its own.
void CVekDataKey::setText(const wchar_t* text)
{
    const unsigned long shortages = VEK::memoryShortages();
    m_text = text;
    if (VEK::memoryShortages() != shortages)
        m_type = keyLost;
}

/// A new element after this one; null, with this one marked as lost, when memory runs out.
CVekDataKey* CVekDataKey::grow()
{
    m_next.reset(new CVekDataKey);
    if (!m_next)
        m_type = keyLost;
    return m_next.get();
}

CVekDataKey& CVekDataKey::append(const CVekDataKey& tail)
{
    CVekDataKey* end = this;
    while (end->m_next)
        end = end->m_next.get();
    const CVekDataKey* last = end; // tail may be this path
    for (const CVekDataKey* from = &tail; from && from->m_type != keyNone; from = from->next()) {
        const bool done = from == last;
        if (end->m_type != keyNone)
            end = end->grow();
        if (!end)
            break;
        end->m_type = from->m_type;
        end->m_number = from->m_number;
        end->setText(from->m_text);
        if (done)
            break;
    }
    return *this;
}

bool CVekDataKey::operator==(const CVekDataKey& other) const
{
    const CVekDataKey* a = this;
    const CVekDataKey* b = &other;
    while (a && b && a->m_type == b->m_type && a->m_number == b->m_number && a->m_text == b->m_text) {
        a = a->next();
        b = b->next();
    }
    return !a && !b;
}

CVekDataKey& CVekDataKey::build(const Part* parts, std::size_t count)
{
    CVekDataKey path;
    CVekDataKey* end = nullptr;
    for (std::size_t i = 0; i + 1 < count && parts[i].isNumber; i += 2) {
        const int type = parts[i].number;
        const Part& value = parts[i + 1];
        const bool wantsText = type == keyText || type == keyText2;
        if ((!wantsText && type != keyInt) || value.isNumber == wantsText || (wantsText && !value.text))
            break;
        end = end ? end->grow() : &path;
        if (!end)
            break;
        end->m_type = static_cast<keyType>(type);
        if (wantsText)
            end->setText(value.text);
        else
            end->m_number = value.number;
    }
    *this = path; // the first element; the rest follows
    m_next = std::move(path.m_next);
    return *this;
}
