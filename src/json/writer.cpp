#include <vek/data/iterator.h>
#include <vek/json.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace VEK
{

namespace
{

constexpr std::uint64_t kPlainNan = 0x7FF8000000000000; ///< the bits of "nan"

/// Appends a tree to a text. Each child of a directory begins a new line, a leaf takes one line.
class CTreeWriter
{
public:
    explicit CTreeWriter(std::string& text) : m_text(text) {}

    /// @return false if directories are nested too deep
    bool write(const CVekDataItem& item);

private:
    void tagged(const char* tag) { m_text.append("{\"@").append(tag).append("\": "); }
    void line() { m_text.append(1, '\n').append(static_cast<std::size_t>(m_depth), ' '); }
    void bits(std::uint64_t value);
    void name(const CVekDataKey& key);
    void leaf(const CVekDataItem& item);
    bool directory(const CVekDataItem& item);

    void add(bool value) { m_text += value ? "true" : "false"; }
    void add(int value) { number(value); }
    void add(unsigned long value) { number(value); }
    void add(double value);
    void add(const wchar_t* value) { quoted(platform::utf8Of(value)); }
    void add(const CVekString& value) { add(static_cast<const wchar_t*>(value)); }
    void add(const CVekPoint3d& value) { addAll({value[0], value[1], value[2]}); }
    void add(const CVekMatrix3d& value);
    void add(const CVekVertex& value);
    void add(const CVekVertexArray& value);
    void add(const CVekColor& value);
    void add(const CHatchProp& value);

    template <class T>
    void add(const CVekArrayTempl<T>& values)
    {
        addAll(values);
    }

    template <class Values>
    void addAll(const Values& values)
    {
        const char* separator = "[";
        for (const auto& value : values) {
            m_text += separator;
            add(value);
            separator = ", ";
        }
        m_text += *separator == '[' ? "[]" : "]";
    }
    void addAll(std::initializer_list<double> values) { addAll<std::initializer_list<double>>(values); }

    template <class T>
    void addTagged(const char* tag, const T& value)
    {
        tagged(tag);
        add(value);
        m_text += '}';
    }

    template <class T>
    void number(T value)
    {
        char digits[32];
        m_text.append(digits, std::to_chars(digits, std::end(digits), value).ptr);
    }

    void real(double value);
    void quoted(std::string_view utf8);

    std::string& m_text;
    int m_depth = 0;
};

void CTreeWriter::bits(std::uint64_t value)
{
    for (int shift = 60; shift >= 0; shift -= 4)
        m_text += "0123456789abcdef"[value >> shift & 15];
}

/// A number inside a tagged value: JSON lacks some of them.
void CTreeWriter::add(double value)
{
    std::uint64_t pattern = 0;
    std::memcpy(&pattern, &value, sizeof pattern);
    if (std::isinf(value)) {
        m_text += value > 0 ? "\"inf\"" : "\"-inf\"";
    } else if (pattern == kPlainNan) {
        m_text += "\"nan\"";
    } else if (std::isnan(value)) {
        m_text += "\"0x";
        bits(pattern);
        m_text += '"';
    } else if (value == 0 && std::signbit(value)) {
        m_text += "-0.0"; // -0 would be an integer, which has no such zero
    } else {
        number(value);
    }
}

/// A number as a plain value: it must not look like an integer.
void CTreeWriter::real(double value)
{
    if (!std::isfinite(value))
        return addTagged("double", value);
    const std::size_t start = m_text.size();
    add(value);
    if (m_text.find_first_of(".e", start) == std::string::npos)
        m_text += ".0";
}

void CTreeWriter::quoted(std::string_view utf8)
{
    m_text += '"';
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            m_text.append(1, '\\').append(1, c);
        else if (c == '\n')
            m_text += "\\n";
        else if (static_cast<unsigned char>(c) < 0x20)
            m_text.append("\\u00").append(1, "01"[c >> 4]).append(1, "0123456789abcdef"[c & 15]);
        else
            m_text += c;
    }
    m_text += '"';
}

void CTreeWriter::name(const CVekDataKey& key)
{
    std::string text;
    if (key.isText()) {
        text = platform::utf8Of(static_cast<const wchar_t*>(key));
        if (key.type() == CVekDataKey::keyText2)
            text.insert(0, "#=");
        else if (text[0] == '@' || text[0] == '#')
            text.insert(0, 1, text[0]);
    } else {
        text = "#" + std::to_string(static_cast<int>(key));
    }
    quoted(text);
}

void CTreeWriter::add(const CVekMatrix3d& value)
{
    const CVekMatrix3d::Rows& rows = value;
    const char* separator = "[";
    for (const auto& row : rows) {
        m_text += separator;
        addAll({row[0], row[1], row[2], row[3]});
        separator = ", ";
    }
    m_text += ']';
}

void CTreeWriter::add(const CVekVertex& value)
{
    addAll({value.start[0], value.start[1], value.start[2], value.end[0], value.end[1], value.end[2], value.bulge});
    std::uint64_t tag = 0;
    for (const unsigned char byte : value.tag)
        tag = tag << 8 | byte;
    if (tag) {
        m_text.back() = ',';
        m_text += " \"";
        bits(tag);
        m_text += "\"]";
    }
}

void CTreeWriter::add(const CVekVertexArray& value)
{
    const CVekVector3d& normal = value.normal();
    const bool isUsual = normal[0] == 0 && !std::signbit(normal[0]) && normal[1] == 0 && !std::signbit(normal[1]);
    if (isUsual && normal[2] == 1)
        return addAll(value);
    m_text += "{\"normal\": ";
    add(normal.asPoint());
    m_text += ", \"segments\": ";
    addAll(value);
    m_text += '}';
}

void CTreeWriter::add(const CVekColor& value)
{
    m_text += "{\"index\": ";
    add(static_cast<int>(value.colorIndex()));
    m_text += ", \"rgb\": ";
    add(value.color());
    m_text += ", \"name\": ";
    add(value.colorName());
    m_text += ", \"book\": ";
    add(value.bookName());
    m_text += '}';
}

void CTreeWriter::add(const CHatchProp& value)
{
    m_text += "{\"name\": ";
    add(value.name);
    m_text += ", \"angle\": ";
    add(value.angle);
    m_text += ", \"scale\": ";
    add(value.scale);
    m_text += ", \"crossed\": ";
    add(value.crossed);
    m_text += '}';
}

void CTreeWriter::leaf(const CVekDataItem& item)
{
    switch (item.kind()) {
    case DataKind::boolean: return add(*item.peek<bool>());
    case DataKind::integer: return add(*item.peek<int>());
    case DataKind::unsignedLong: return addTagged("ulong", *item.peek<unsigned long>());
    case DataKind::real: return real(*item.peek<double>());
    case DataKind::text: return add(*item.peek<CVekString>());
    case DataKind::point: return addTagged("point", *item.peek<CVekPoint3d>());
    case DataKind::points: return addTagged("points", *item.peek<CVekPoint3dArray>());
    case DataKind::matrix: return addTagged("matrix", *item.peek<CVekMatrix3d>());
    case DataKind::polyline: return addTagged("polyline", *item.peek<CVekVertexArray>());
    case DataKind::polylines: return addTagged("polylines", *item.peek<VertexArrays>());
    case DataKind::regions: return addTagged("regions", *item.peek<Regions>());
    case DataKind::color: return addTagged("color", *item.peek<CVekColor>());
    case DataKind::unit: return addTagged("unit", static_cast<int>(*item.peek<Vek::lUnit>()));
    case DataKind::hatch: return addTagged("hatch", *item.peek<CHatchProp>());
    case DataKind::integers: {
        const auto& values = *item.peek<CVekArrayTempl<int>>();
        return values.len() ? add(values) : addTagged("ints", values);
    }
    case DataKind::texts: {
        const auto& values = *item.peek<CVekArrayTempl<CVekString>>();
        return values.len() ? add(values) : addTagged("strings", values);
    }
    default: m_text += "null";
    }
}

bool CTreeWriter::directory(const CVekDataItem& item)
{
    if (++m_depth > kJsonDepth)
        return false;
    const char* separator = "{";
    for (CDataIterator child(&item); !child.done(); child.next()) {
        m_text += separator;
        line();
        name(*child->getKey());
        m_text += ": ";
        if (!write(*child.item()))
            return false;
        separator = ",";
    }
    --m_depth;
    if (*separator == ',')
        line();
    m_text += *separator == ',' ? "}" : "{}";
    return true;
}

bool CTreeWriter::write(const CVekDataItem& item)
{
    if (item.isDir())
        return directory(item);
    leaf(item);
    return true;
}

} // namespace

bool jsonWrite(const CVekDataItem& tree, std::string& text, const wchar_t* name, CVekString& error)
{
    std::string written;
    bool tooDeep = false;
    const bool complete = whole(false, [&] {
        tooDeep = !CTreeWriter(written).write(tree);
        written += '\n';
        return true;
    });
    if (complete && !tooDeep) {
        text = std::move(written);
        return true;
    }
    error = CVekString(name) + (complete ? L": directories lie too deep in each other to be saved"
                                         : L": there is no memory for the text of this tree");
    return false;
}

bool jsonSave(const CVekDataItem& tree, const wchar_t* path, CVekString& error)
{
    std::string text;
    if (!jsonWrite(tree, text, path, error))
        return false;
    std::filesystem::path file;
    const bool named = whole(false, [&] {
        file = path ? platform::pathOf(path) : std::filesystem::path();
        return !file.empty();
    });
    if (named && platform::writeFile(file, text))
        return true;
    error = CVekString(path) + L": cannot be written";
    return false;
}

} // namespace VEK
