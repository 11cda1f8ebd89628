#include "description.h"

#include "failure.h"
#include "input.h"
#include "lettering.h"

#include <vek/bitmaps/picture.h>
#include <vek/data.h>
#include <vek/host.h>

#include "core/platform/platform.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <span>
#include <string_view>

namespace
{

using nlohmann::json;

/// A value and its path, such as "items[3].color". It must not outlive the node from which it was reached.
class Node
{
public:
    Node(const json& value, const std::string& file) : m_value(value), m_file(&file) {}

    [[noreturn]] void fail(const std::string& cause) const { throw Failure(place() + ": " + cause); }

    const json& value() const { return m_value; }
    bool has(const char* member) const { return m_value.contains(member); }
    std::size_t size() const { return m_value.size(); }

    Node at(std::size_t i) const { return {m_value[i], *this, nullptr, i}; }
    Node operator[](const char* member) const { return {m_value.at(member), *this, member, 0}; }

    /// Every member must be one of these, so that a typing mistake does not go unnoticed.
    void expectMembers(std::initializer_list<std::span<const std::string_view>> names) const
    {
        if (!m_value.is_object())
            fail("is no object");
        for (const auto& [member, unused] : m_value.items()) {
            bool known = false;
            for (const auto& list : names)
                known = known || std::find(list.begin(), list.end(), member) != list.end();
            if (!known)
                fail("does not know \"" + member + "\"");
        }
    }

    const Node& expectList(std::size_t least, std::size_t most) const
    {
        if (!m_value.is_array() || size() < least || size() > most)
            fail(most > 64 ? m_value.is_array() ? "is an empty list" : "is no list"
                           : "is no list of " + std::to_string(least) +
                                 (least == most ? "" : " to " + std::to_string(most)) + " values");
        return *this;
    }

    double number() const
    {
        if (!m_value.is_number())
            fail("is no number");
        return m_value.get<double>();
    }
    int integer(int least, int most) const
    {
        const double value = number();
        if (!(value >= least && value <= most) || value != std::trunc(value))
            fail("is no whole number from " + std::to_string(least) + " to " + std::to_string(most));
        return static_cast<int>(value);
    }
    bool yes() const
    {
        if (!m_value.is_boolean())
            fail("is neither true nor false");
        return m_value.get<bool>();
    }
    CVekString text() const
    {
        if (!m_value.is_string())
            fail("is no text");
        return wide(m_value.get<std::string>());
    }

private:
    Node(const json& value, const Node& parent, const char* member, std::size_t index)
        : m_value(value), m_parent(&parent), m_member(member), m_index(index)
    {
    }

    std::string place() const
    {
        if (!m_parent)
            return *m_file;
        const std::string before = m_parent->place();
        if (!m_member)
            return before + "[" + std::to_string(m_index) + "]";
        return before + (m_parent->m_parent ? "." : ": ") + m_member;
    }

    const json& m_value;
    const std::string* m_file = nullptr; ///< of the outermost value
    const Node* m_parent = nullptr;
    const char* m_member = nullptr; ///< of an object; for a list `m_index` is used
    std::size_t m_index = 0;
};

// The members of each kind of object.
constexpr std::string_view kTop[] = {"background", "modes", "pointStyle", "pointSize", "extents", "patterns", "items"};
constexpr std::string_view kCommon[] = {"stack", "color", "mode", "hidden", "noExtents", "screenFixed", "matrix"};
constexpr std::string_view kLines[] = {"linetype", "scale", "width"};
constexpr std::string_view kPolyline[] = {"polyline", "closed"};
constexpr std::string_view kPoint[] = {"point", "style", "size"};
constexpr std::string_view kRegion[] = {"region", "fill", "hatch", "outline"};
constexpr std::string_view kText[] = {"text", "at", "height", "turn", "align"};
constexpr std::string_view kPicture[] = {"picture", "id", "corners", "fullWindow", "transparent"};
constexpr std::string_view kHatch[] = {"name", "angle", "scale", "crossed"};

constexpr std::size_t kAny = SIZE_MAX;

double numberOr(const Node& node, const char* member, double fallback)
{
    return node.has(member) ? node[member].number() : fallback;
}

bool isSet(const Node& node, const char* member)
{
    return node.has(member) && node[member].yes();
}

CVekPoint3d pointOf(const Node& node)
{
    node.expectList(2, 3);
    return {node.at(0).number(), node.at(1).number(), node.size() == 3 ? node.at(2).number() : 0.0};
}

/// A palette index, or "#RRGGBB".
CVekColor colorOf(const Node& node)
{
    CVekColor color;
    if (node.value().is_number()) {
        color.setColorIndex(static_cast<short>(node.integer(-1, 255)));
        return color;
    }
    const std::string text = node.value().is_string() ? node.value().get<std::string>() : "";
    unsigned long rgb = 0;
    const char* end = text.data() + text.size();
    if (text.size() != 7 || text[0] != '#' || std::from_chars(text.data() + 1, end, rgb, 16).ptr != end)
        node.fail("is no colour: neither an index nor \"#RRGGBB\"");
    color.setColor(rgb);
    return color;
}

CVekMatrix3d matrixOf(const Node& node)
{
    CVekMatrix3d m;
    node.expectList(4, 4);
    for (int row = 0; row < 4; ++row) {
        const Node values = node.at(static_cast<std::size_t>(row)).expectList(4, 4);
        for (int column = 0; column < 4; ++column)
            m[row][column] = values.at(static_cast<std::size_t>(column)).number();
    }
    return m;
}

/// A list of points [x, y] or [x, y, bulge], or of segments [x1, y1, z1, x2, y2, z2] with or without a bulge.
CVekVertexArray pathOf(const Node& node, bool closed)
{
    node.expectList(1, kAny);
    CVekVertexArray vl;
    vl.reserve(static_cast<int>(node.size()));
    if (node.at(0).value().is_array() && node.at(0).size() > 3) {
        for (std::size_t i = 0; i < node.size(); ++i) {
            const Node s = node.at(i).expectList(6, 7);
            vl.append(CVekVertex({s.at(0).number(), s.at(1).number(), s.at(2).number()},
                                 {s.at(3).number(), s.at(4).number(), s.at(5).number()},
                                 s.size() == 7 ? s.at(6).number() : 0.0));
        }
        return vl;
    }
    const auto at = [&](std::size_t i) {
        const Node p = node.at(i).expectList(2, 3);
        return CVekPoint3d(p.at(0).number(), p.at(1).number(), 0.0);
    };
    const std::size_t count = closed ? node.size() : node.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const double bulge = node.at(i).expectList(2, 3).size() == 3 ? node.at(i).at(2).number() : 0.0;
        vl.append(CVekVertex(at(i), at((i + 1) % node.size()), bulge));
    }
    return vl;
}

CVekArrayTempl<CVekVertexArray> contoursOf(const Node& node)
{
    node.expectList(1, kAny);
    CVekArrayTempl<CVekVertexArray> contours;
    for (std::size_t i = 0; i < node.size(); ++i)
        contours.append(pathOf(node.at(i), true));
    return contours;
}

VEK::CHatchProp hatchOf(const Node& node)
{
    VEK::CHatchProp hatch;
    if (node.value().is_string()) {
        hatch.name = node.text();
        return hatch;
    }
    node.expectMembers({kHatch});
    if (!node.has("name"))
        node.fail("has no \"name\"");
    hatch.name = node["name"].text();
    hatch.angle = numberOr(node, "angle", 0.0) * std::numbers::pi / 180.0;
    hatch.scale = numberOr(node, "scale", 1.0);
    hatch.crossed = isSet(node, "crossed");
    return hatch;
}

/// The properties shared by all kinds of items.
struct Common {
    CVekArrayTempl<int> stack;
    unsigned long flag = 0;
    CVekColor color;
    CVekMatrix3d matrix;
    CVekPoint3d reference;
};

Common commonOf(const Node& item)
{
    Common common;
    if (item.has("stack")) {
        const Node stack = item["stack"].expectList(0, kAny);
        for (std::size_t i = 0; i < stack.size(); ++i)
            common.stack.append(stack.at(i).integer(-2147483647, 2147483647));
    }
    if (item.has("color"))
        common.color = colorOf(item["color"]);
    if (item.has("mode"))
        common.flag |= static_cast<unsigned long>(item["mode"].integer(0, 15)) << itemColorModeShift;
    if (isSet(item, "hidden"))
        common.flag |= itemHidden;
    if (isSet(item, "noExtents"))
        common.flag |= itemNoExt;
    if (item.has("screenFixed")) {
        common.flag |= itemScreenFixed;
        common.reference = pointOf(item["screenFixed"]);
    }
    if (item.has("matrix"))
        common.matrix = matrixOf(item["matrix"]);
    return common;
}

struct Line {
    CVekArrayTempl<double> type;
    double scale = 1.0;
    unsigned long width = 1;
};

Line lineOf(const Node& item)
{
    Line line;
    if (item.has("linetype")) {
        const Node type = item["linetype"].expectList(1, kAny);
        for (std::size_t i = 0; i < type.size(); ++i)
            line.type.append(type.at(i).number());
    }
    line.scale = numberOr(item, "scale", 1.0);
    if (item.has("width"))
        line.width = static_cast<unsigned long>(item["width"].integer(0, 32767));
    return line;
}

void addPolyline(CVekGDX& gdx, const Node& item)
{
    item.expectMembers({kCommon, kLines, kPolyline});
    const Common common = commonOf(item);
    const Line line = lineOf(item);
    gdx.imageVl(common.stack, common.flag, pathOf(item["polyline"], isSet(item, "closed")), common.color, common.matrix,
                line.type, line.scale, line.width, common.reference);
}

void addPoint(CVekGDX& gdx, const Node& item)
{
    item.expectMembers({kCommon, kPoint});
    const Common common = commonOf(item);
    const unsigned long style =
        item.has("style") ? static_cast<unsigned long>(item["style"].integer(0, 127)) : 0xFFFFFFFF;
    gdx.imagePt(common.stack, common.flag, pointOf(item["point"]), common.color, common.matrix,
                numberOr(item, "size", 0.0), style, common.reference);
}

void addRegion(CVekGDX& gdx, const Node& item)
{
    item.expectMembers({kCommon, kLines, kRegion});
    Common common = commonOf(item);
    const Line line = lineOf(item);
    CVekColor fill;
    if (item.has("fill")) {
        const bool isSwitch = item["fill"].value().is_boolean();
        if (!isSwitch)
            fill = colorOf(item["fill"]);
        if (!isSwitch || item["fill"].yes())
            common.flag |= itemFill;
    }
    VEK::CHatchProp hatch;
    if (item.has("hatch")) {
        common.flag |= itemHatch;
        hatch = hatchOf(item["hatch"]);
    }
    const bool shows = (common.flag & (itemFill | itemHatch)) != 0;
    if (item.has("outline") ? item["outline"].yes() : !shows)
        common.flag |= itemOutline;
    gdx.imageReg(common.stack, common.flag, contoursOf(item["region"]), common.color, common.matrix, line.type,
                 line.scale, line.width, fill, hatch, common.reference);
}

void addTextItem(CVekGDX& gdx, const Node& item)
{
    item.expectMembers({kCommon, kText});
    const Common common = commonOf(item);
    const double height = numberOr(item, "height", 1.0);
    const double turn = numberOr(item, "turn", 0.0) * std::numbers::pi / 180.0;
    CVekMatrix3d scale, rotate, move;
    scale.setToScaling(height, CVekPoint3d::kOrigin);
    rotate.setToRotation(turn, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
    if (item.has("at"))
        move.setToTranslation(pointOf(item["at"]).asVector());
    const CVekMatrix3d place = common.matrix * move * rotate * scale;
    const CVekString text = item["text"].text();
    if (item.has("align")) {
        gdx.imageTxt(common.stack, common.flag, text, common.color, place, item["align"].text(), CVekPoint3d::kOrigin,
                     common.reference);
        return;
    }
    TextLook look;
    look.stack = common.stack;
    look.flag = common.flag;
    look.color = common.color;
    look.reference = common.reference;
    addText(gdx, text, place, look);
}

void addPicture(CVekGDX& gdx, const Node& item)
{
    item.expectMembers({kCommon, kPicture});
    Common common = commonOf(item);
    if (isSet(item, "fullWindow"))
        common.flag |= itemFullWindow;
    if (isSet(item, "transparent"))
        common.flag |= itemTransparent;
    CVekPoint3d first, last;
    if (item.has("corners")) {
        const Node corners = item["corners"].expectList(2, 2);
        first = pointOf(corners.at(0));
        last = pointOf(corners.at(1));
    }
    const int id = item.has("id") ? item["id"].integer(0, 65535) : static_cast<int>(vekNoPicture);
    const CVekString name = item["picture"].text();
    bool transparent = false;
    if (name.len() > 0 && VEK::loadPicture(name, id, 0, 0, transparent, 0xFFFFFF).empty())
        item["picture"].fail("is no picture that can be read: " + utf8(name));
    gdx.imagePicture(common.stack, common.flag, name, id, first, last);
}

void addItem(CVekGDX& gdx, const Node& item)
{
    using Add = void (*)(CVekGDX&, const Node&);
    const std::pair<const char*, Add> kinds[] = {{"polyline", addPolyline},
                                                 {"point", addPoint},
                                                 {"region", addRegion},
                                                 {"text", addTextItem},
                                                 {"picture", addPicture}};
    if (item.value().is_object()) {
        for (const auto& [name, add] : kinds) {
            if (item.has(name))
                return add(gdx, item);
        }
    }
    item.fail("is no polyline, point, region, text or picture");
}

json parsed(const std::string& path)
{
    try {
        return json::parse(readWhole(path));
    } catch (const json::exception& error) {
        const std::string text = error.what(); // "[json.exception...] parse error at line 3, column 5: cause"
        const std::size_t at = text.find("at line");
        throw Failure(path + ": " + (at == text.npos ? text : text.substr(at + 3)));
    }
}

} // namespace

bool isDescription(const std::string& path)
{
    return ending(path) == ".json";
}

void addDescription(CVekGDX& gdx, const std::string& path, Patterns& patterns)
{
    const json tree = parsed(path);
    const Node top(tree, path);
    top.expectMembers({kTop});
    const std::filesystem::path folder = VEK::platform::pathOf(VEK::platform::wideOf(path)).parent_path();
    CVekArrayTempl<CVekString> folders;
    folders.append(VEK::platform::textOf(folder).c_str());
    VEK::filePathSet(folders);

    if (top.has("background"))
        gdx.backColorSet(colorOf(top["background"]));
    if (top.has("modes")) {
        const Node modes = top["modes"].expectList(1, 14);
        for (std::size_t i = 0; i < modes.size(); ++i)
            gdx.ColorTabSet(static_cast<int>(i) + 1, colorOf(modes.at(i)));
    }
    gdx.pdSizeSet(numberOr(top, "pointSize", 0.0));
    if (top.has("pointStyle"))
        gdx.pdModeSet(static_cast<unsigned long>(top["pointStyle"].integer(0, 127)));
    if (top.has("patterns")) {
        const CVekString name = top["patterns"].text();
        CVekString file;
        patterns.load(VEK::fileFind(file, name) ? utf8(file) : utf8(name));
    }
    if (top.has("items")) {
        const Node items = top["items"].expectList(0, kAny);
        for (std::size_t i = 0; i < items.size(); ++i)
            addItem(gdx, items.at(i));
    }
    if (top.has("extents")) {
        const Node extents = top["extents"].expectList(2, 2);
        gdx.extMaxViewSet(pointOf(extents.at(0)), pointOf(extents.at(1)));
    }
}
