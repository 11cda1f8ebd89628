// Reads an enhanced metafile back by the published layout alone: judges its structure and draws it anew.
#pragma once

#include <vek/surfaces/recorder.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct EmfFile {
    using Quad = std::array<std::int32_t, 4>;
    struct Record {
        std::uint32_t type = 0;
        std::vector<std::int32_t> words; ///< behind type and size
    };

    std::string fault; ///< empty when the file keeps to the format
    Quad bounds{};
    Quad frame{};
    std::uint32_t handles = 0;
    std::int32_t fineness = 1; ///< units to a pixel
    std::vector<Record> records;
    VEK::CRecorder drawing; ///< what `play` draws

    explicit EmfFile(std::string bytes) : m_bytes(std::move(bytes))
    {
        split();
        if (fault.empty())
            play(drawing);
    }

    int count(std::uint32_t type) const
    {
        int n = 0;
        for (const Record& record : records)
            n += record.type == type;
        return n;
    }

    /// Draws what the file draws, in its units.
    void play(VEK::CSurface& to)
    {
        std::map<std::uint32_t, Look> objects = {{0x80000000, {false, true, 0, 0xFFFFFF}},
                                                 {0x80000005, {false, false, 0, 0}},
                                                 {0x80000007, {true, true, 1, 0}},
                                                 {0x80000008, {true, false, 0, 0}}};
        std::set<std::uint32_t> live;
        Context now;
        std::vector<Context> saved;
        VEK::SurfacePoint position;
        std::optional<Line> path;
        std::int32_t mapMode = 1;
        Quad window{};
        for (const std::uint32_t handle : {now.pen, now.brush})
            apply(to, objects[handle]);
        for (std::size_t i = 1; i + 1 < records.size(); ++i) {
            const Record& r = records[i];
            const auto w = [&](std::size_t k) { return k < r.words.size() ? r.words[k] : (fail("short", i), 0); };
            const auto handle = static_cast<std::uint32_t>(r.words.empty() ? 0 : r.words[0]);
            const auto draw = [&](const Lines& lines) {
                const Look &pen = objects[now.pen], &brush = objects[now.brush];
                if (pen.isOn && brush.isOn && pen.color == brush.color)
                    fail("a line in the colour of the brush, which some readers drop", i);
                for (const Line& line : lines)
                    to.polyline(line.data(), static_cast<int>(line.size()));
            };
            switch (r.type) {
            case 27: position = {double(w(0)), double(w(1))}; break;
            case 54: draw({{position, {double(w(0)), double(w(1))}}}); break;
            case 4:
            case 87: draw(points(r, 0, i)); break;
            case 7:
            case 90: draw(points(r, static_cast<std::size_t>(w(4)), i)); break;
            case 3:
            case 86:
            case 8:
            case 91: {
                const bool isFigure = r.type == 8 || r.type == 91;
                const Lines lines = points(r, isFigure ? static_cast<std::size_t>(w(4)) : 0, i);
                if (path) {
                    path = lines.at(0);
                    break;
                }
                if (isFigure && objects[now.pen].isOn)
                    fail("a figure with an edge around its holes", i);
                for (std::size_t k = 1; k < lines.size(); ++k)
                    to.clipOut(lines[k].data(), static_cast<int>(lines[k].size()));
                to.polygon(lines.at(0).data(), static_cast<int>(lines[0].size()));
                if (isFigure)
                    clip(to, now);
                break;
            }
            case 42: to.ellipse(w(0), w(1), w(2) + fineness, w(3) + fineness); break;
            case 43: to.rectangle(w(0), w(1), w(2) + fineness, w(3) + fineness); break;
            case 15: to.pixel(w(0), w(1), static_cast<unsigned>(w(2))); break;
            case 19:
                if (w(0) != 1)
                    fail("not even-odd", i);
                break;
            case 25: to.background(static_cast<unsigned>(w(0))); break;
            case 30:
                now.clip = {w(0), w(1), w(2), w(3)};
                clip(to, now);
                break;
            case 59: path.emplace(); break;
            case 60: break;
            case 67:
                if (w(0) != 4 || !path || path->empty() || records[i - 1].type != 60)
                    return fail("clip path", i);
                now.holes.push_back(*path);
                path.reset();
                clip(to, now);
                break;
            case 75: now.region = region(r, i); break;
            case 9: window = {w(0), w(1), 0, 0}; break;
            case 11:
                fineness = std::max(window[0] / std::max(w(0), 1), 1);
                if (mapMode != 8 || w(0) * fineness != window[0] || w(1) * fineness != window[1])
                    fail("grid", i);
                break;
            case 17: mapMode = w(0); break;
            case 21:
                if (w(0) != 3)
                    fail("stretching", i);
                break;
            case 76:
            case 77: picture(to, r, now.region, i); break;
            case 33: saved.push_back(now); break;
            case 34:
                if (w(0) != -1 || saved.empty())
                    return fail("nothing to restore", i);
                now = saved.back();
                saved.pop_back();
                clip(to, now);
                for (const std::uint32_t selected : {now.pen, now.brush})
                    apply(to, objects[selected]);
                break;
            case 38:
            case 39: {
                const bool isPen = r.type == 38;
                objects[handle] = {isPen, true, isPen ? w(2) : 0, static_cast<unsigned>(w(isPen ? 4 : 2))};
                if (handle == 0 || handle >= handles || w(1) != 0 || !live.insert(handle).second)
                    fail("bad pen or brush", i);
                break;
            }
            case 37: {
                if (!objects.contains(handle))
                    return fail("selects what is not there", i);
                (objects[handle].isPen ? now.pen : now.brush) = handle;
                apply(to, objects[handle]);
                break;
            }
            case 40: {
                std::vector<Context> all = saved;
                all.push_back(now);
                for (const Context& context : all) {
                    if (context.pen == handle || context.brush == handle)
                        fail("deletes what is in use", i);
                }
                if (live.erase(handle) == 0)
                    fail("deletes what is not there", i);
                objects.erase(handle);
                break;
            }
            default: fail("unknown type " + std::to_string(r.type), i);
            }
        }
        if (!saved.empty())
            fail("unbalanced save", records.size() - 1);
    }

private:
    using Line = std::vector<VEK::SurfacePoint>;
    using Lines = std::vector<Line>;

    struct Look {
        bool isPen, isOn;
        int width; ///< of a pen
        unsigned color;
    };

    struct Context {
        std::uint32_t pen = 0x80000007, brush = 0x80000000; ///< handles
        Quad clip = {-0x10000000, -0x10000000, 0x10000000, 0x10000000};
        Lines holes;
        std::vector<Quad> region; ///< of a picture; empty for none
    };

    std::uint32_t word(std::size_t at) const
    {
        std::uint32_t value = 0;
        for (int i = 3; i >= 0; --i)
            value = value << 8 | static_cast<unsigned char>(m_bytes[at + static_cast<std::size_t>(i)]);
        return value;
    }

    void fail(const std::string& what, std::size_t record)
    {
        if (fault.empty())
            fault = what + " at record " + std::to_string(record);
    }

    void split()
    {
        std::size_t at = 0;
        while (at + 8 <= m_bytes.size() && fault.empty()) {
            const std::size_t size = word(at + 4);
            if (size < 8 || size % 4 != 0 || size > m_bytes.size() - at)
                return fail("bad size", records.size());
            Record record{word(at), {}};
            for (std::size_t i = at + 8; i < at + size; i += 4)
                record.words.push_back(static_cast<std::int32_t>(word(i)));
            records.push_back(record);
            at += size;
        }
        if (at != m_bytes.size() || records.size() < 2 || records[0].type != 1 || records[0].words.size() != 25)
            return fail("no header or loose bytes", 0);
        const auto& h = records[0].words;
        for (std::size_t i = 0; i < 4; ++i) {
            bounds[i] = h[i];
            frame[i] = h[4 + i];
        }
        handles = static_cast<std::uint32_t>(h[12] & 0xFFFF);
        if (h[8] != 0x464D4520 || h[9] != 0x10000 || h[13] != 0 || h[14] != 0 || h[15] != 0)
            fail("bad header", 0);
        if (static_cast<std::uint32_t>(h[10]) != m_bytes.size() || static_cast<std::size_t>(h[11]) != records.size())
            fail("wrong totals", 0);
        if (h[16] <= 0 || h[17] <= 0 || h[18] * 1000 != h[23] || h[19] * 1000 != h[24])
            return fail("bad device", 0);
        for (std::size_t i = 0; i < 4; ++i) { // hundredths of a millimetre, with the last pixels
            const std::int64_t edge = (std::int64_t{bounds[i]} + (i >= 2)) * h[18 + i % 2] * 100 / h[16 + i % 2];
            if (frame[i] != std::clamp<std::int64_t>(edge, INT32_MIN, INT32_MAX))
                fail("frame", 0);
        }
        const Record& last = records.back();
        if (last.type != 14 || last.words != std::vector<std::int32_t>{0, 16, 20})
            fail("no end", records.size() - 1);
    }

    /// The points of a record, after checking that they fill it and that the record's bounds hold them.
    Lines points(const Record& record, std::size_t polys, std::size_t index)
    {
        const bool narrow = record.type >= 85;
        std::size_t at = (polys == 0 ? 5 : 6) + polys, used = at;
        if (record.words.size() < at)
            return fail("short record", index), Lines(1);
        std::vector<std::int32_t> counts(1, record.words[4]);
        if (polys > 0)
            counts.assign(record.words.begin() + 6, record.words.begin() + static_cast<std::ptrdiff_t>(at));
        const std::int32_t all = std::accumulate(counts.begin(), counts.end(), 0);
        used += static_cast<std::size_t>(all) * (narrow ? 1 : 2);
        if (record.words.size() != used || record.words[polys == 0 ? 4 : 5] != all)
            return fail("wrong point count", index), Lines(1);
        Lines lines;
        for (const std::int32_t count : counts) {
            Line& line = lines.emplace_back();
            for (std::int32_t i = 0; i < count; ++i) {
                const std::int32_t first = record.words[at++];
                const std::int32_t x = narrow ? static_cast<std::int16_t>(first) : first;
                const std::int32_t y = narrow ? first >> 16 : record.words[at++];
                if (x < record.words[0] || y < record.words[1] || x > record.words[2] || y > record.words[3])
                    fail("point outside the record's bounds", index);
                line.push_back({double(x), double(y)});
            }
        }
        return lines;
    }

    /// Draws a copied bitmap of 24 bits pixel by pixel. A stretched one tells its own size behind.
    void picture(VEK::CSurface& to, const Record& record, const std::vector<Quad>& region, std::size_t index)
    {
        const auto w = [&](std::size_t k) { return k < record.words.size() ? record.words[k] : 0; };
        const std::size_t more = record.type == 77 ? 2 : 0;
        const std::int32_t x = w(4), y = w(5), width = more ? w(23) : w(6), height = more ? w(24) : w(7);
        const Quad box = {x, y, x + width * fineness - 1, y + height * fineness - 1};
        const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4;
        const std::size_t at = 23 + more; // the header of the bitmap
        const auto bytes = static_cast<std::int32_t>(row * 4 * static_cast<std::size_t>(height));
        const std::int32_t front = 100 + 4 * static_cast<std::int32_t>(more);
        if (!std::equal(box.begin(), box.end(), record.words.begin()) || w(8) != 0xCC0020 || w(19) != front ||
            w(20) != 40 || w(6) != width * fineness || w(7) != height * fineness || w(21) != front + 40 ||
            w(22) != bytes || record.words.size() * 4 != static_cast<std::size_t>(front + 32 + bytes) || w(at) != 40 ||
            w(at + 1) != width || w(at + 2) != height || w(at + 3) != (24 << 16 | 1) || w(at + 4) != 0)
            return fail("picture", index);
        for (std::int32_t i = 0; i < height; ++i) {
            const std::size_t first = at + 10 + row * static_cast<std::size_t>(height - 1 - i);
            const auto octet = [&](std::size_t k) {
                return static_cast<unsigned>(w(first + k / 4) >> k % 4 * 8 & 0xFF);
            };
            for (std::int32_t k = 0; k < width; ++k) {
                const std::int32_t px = x + k * fineness, py = y + i * fineness;
                const std::size_t blue = static_cast<std::size_t>(k) * 3;
                if (region.empty() || std::any_of(region.begin(), region.end(), [&](const Quad& part) {
                        return px >= part[0] && py >= part[1] && px < part[2] && py < part[3];
                    }))
                    to.solidRect(px, py, fineness, fineness,
                                 octet(blue) << 16 | octet(blue + 1) << 8 | octet(blue + 2));
            }
            for (std::size_t k = static_cast<std::size_t>(width) * 3; k < row * 4; ++k) {
                if (octet(k) != 0)
                    fail("rows are not filled up with zeros", index);
            }
        }
    }

    /// The boxes of a clip region.
    std::vector<Quad> region(const Record& r, std::size_t index)
    {
        const auto w = [&](std::size_t k) { return r.words[k]; };
        std::vector<Quad> boxes;
        if (r.words.size() < 10 || w(0) < 32 || r.words.size() * 4 != 8 + static_cast<std::size_t>(w(0)) || w(1) != 1 ||
            w(2) != 32 || w(3) != 1 || w(4) * 16 != w(5) || w(5) != w(0) - 32)
            return fail("clip region", index), boxes;
        for (std::size_t k = 10; k < r.words.size(); k += 4) {
            const Quad& box = boxes.emplace_back(Quad{w(k), w(k + 1), w(k + 2), w(k + 3)});
            for (std::size_t j = 0; j < 2; ++j) {
                if (box[j] < w(6 + j) || box[j + 2] > w(8 + j) || box[j] >= box[j + 2])
                    fail("box of a region", index);
            }
        }
        return boxes;
    }

    static void clip(VEK::CSurface& to, const Context& now)
    {
        to.clipTo(now.clip[0], now.clip[1], now.clip[2], now.clip[3]);
        for (const Line& hole : now.holes)
            to.clipOut(hole.data(), static_cast<int>(hole.size()));
    }

    static void apply(VEK::CSurface& to, const Look& look)
    {
        if (look.isPen)
            look.isOn ? to.pen(look.width, look.color) : to.noPen();
        else
            look.isOn ? to.brush(look.color) : to.noBrush();
    }

    std::string m_bytes;
};
