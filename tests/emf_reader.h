// Reads an enhanced metafile back by the published layout alone: judges its structure and tells what it draws.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

struct EmfFile {
    struct Record {
        std::uint32_t type = 0;
        std::vector<std::int32_t> words; ///< behind type and size
        std::vector<std::int16_t> halves;
    };

    std::string fault; ///< empty when the file keeps to the format
    std::array<std::int32_t, 4> bounds{};
    std::array<std::int32_t, 4> frame{};
    std::uint32_t handles = 0;
    std::int32_t fineness = 1; ///< units to a pixel
    std::vector<Record> records;
    std::string drawing; ///< one line for each thing drawn, with clip, pen and brush in force

    explicit EmfFile(std::string bytes) : m_bytes(std::move(bytes))
    {
        split();
        if (fault.empty())
            play();
    }

    int count(std::uint32_t type) const
    {
        int n = 0;
        for (const Record& record : records)
            n += record.type == type;
        return n;
    }

private:
    struct Context {
        std::string pen = "pen 1 #000000", brush = "brush #ffffff", clip = "all";
        std::uint32_t penHandle = 0, brushHandle = 0;
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
            Record record{word(at), {}, {}};
            for (std::size_t i = at + 8; i < at + size; i += 4) {
                record.words.push_back(static_cast<std::int32_t>(word(i)));
                record.halves.push_back(static_cast<std::int16_t>(word(i) & 0xFFFF));
                record.halves.push_back(static_cast<std::int16_t>(word(i) >> 16));
            }
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

    static std::string color(std::int32_t value)
    {
        char text[16];
        std::snprintf(text, sizeof text, "#%02x%02x%02x", value & 0xFF, value >> 8 & 0xFF, value >> 16 & 0xFF);
        return text;
    }

    /// The points of a record, after checking that they fill it and that the record's bounds hold them.
    std::string points(const Record& record, std::size_t polys, std::size_t index)
    {
        const bool narrow = record.type >= 85;
        const std::size_t head = polys == 0 ? 5 : 6;
        if (record.words.size() < head)
            return fail("short record", index), "";
        std::vector<std::int32_t> ends;
        std::int32_t total = 0;
        for (std::size_t i = 0; i < polys; ++i) {
            total += record.words.at(head + i);
            ends.push_back(total);
        }
        const auto n = static_cast<std::size_t>(record.words[head - 1]);
        if (record.words.size() != head + polys + n * (narrow ? 1 : 2) ||
            (polys > 0 && static_cast<std::size_t>(total) != n))
            return fail("wrong point count", index), "";
        std::ostringstream text;
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t at = head + polys + i * (narrow ? 1 : 2);
            const std::int32_t x = narrow ? record.halves[at * 2] : record.words[at];
            const std::int32_t y = narrow ? record.halves[at * 2 + 1] : record.words[at + 1];
            if (x < record.words[0] || y < record.words[1] || x > record.words[2] || y > record.words[3])
                fail("point outside the record's bounds", index);
            text << ' ' << x << ',' << y;
            for (const std::int32_t end : ends)
                text << (static_cast<std::size_t>(end) == i + 1 && i + 1 < n ? " |" : "");
        }
        return text.str();
    }

    /// Place, size and pixels of a copied bitmap of 24 bits, from the top. A stretched one tells its own size behind.
    std::string picture(const Record& record, std::size_t index)
    {
        const auto w = [&](std::size_t k) { return k < record.words.size() ? record.words[k] : 0; };
        const std::size_t more = record.type == 77 ? 2 : 0;
        const std::int32_t x = w(4), y = w(5), width = more ? w(23) : w(6), height = more ? w(24) : w(7);
        const std::array<std::int32_t, 4> box = {x, y, x + width * fineness - 1, y + height * fineness - 1};
        const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4;
        const std::size_t at = 23 + more; // the header of the bitmap
        const auto bytes = static_cast<std::int32_t>(row * 4 * static_cast<std::size_t>(height));
        const std::int32_t front = 100 + 4 * static_cast<std::int32_t>(more);
        if (!std::equal(box.begin(), box.end(), record.words.begin()) || w(8) != 0xCC0020 || w(19) != front ||
            w(20) != 40 || w(6) != width * fineness || w(7) != height * fineness || w(21) != front + 40 ||
            w(22) != bytes || record.words.size() * 4 != static_cast<std::size_t>(front + 32 + bytes) || w(at) != 40 ||
            w(at + 1) != width || w(at + 2) != height || w(at + 3) != (24 << 16 | 1) || w(at + 4) != 0)
            return fail("picture", index), "";
        std::ostringstream text;
        text << x << ',' << y << ' ' << width << 'x' << height;
        for (std::int32_t i = height - 1; i >= 0; --i) {
            const auto octet = [&](std::size_t k) {
                return w(at + 10 + row * static_cast<std::size_t>(i) + k / 4) >> k % 4 * 8 & 0xFF;
            };
            const auto end = static_cast<std::size_t>(width) * 3;
            for (std::size_t k = 0; k < end; k += 3)
                text << ' ' << color(octet(k) << 16 | octet(k + 1) << 8 | octet(k + 2));
            for (std::size_t k = end; k < row * 4; ++k) {
                if (octet(k) != 0)
                    fail("rows are not filled up with zeros", index);
            }
        }
        return text.str();
    }

    void play()
    {
        std::map<std::uint32_t, std::string> objects = {{0x80000000, "brush #ffffff"},
                                                        {0x80000005, "no brush"},
                                                        {0x80000007, "pen 1 #000000"},
                                                        {0x80000008, "no pen"}};
        Context now;
        std::vector<Context> saved;
        std::string position, path;
        bool inPath = false;
        std::int32_t mapMode = 1;
        std::array<std::int32_t, 2> window{};
        std::ostringstream out;
        for (std::size_t i = 1; i + 1 < records.size(); ++i) {
            const Record& r = records[i];
            const auto w = [&](std::size_t k) { return k < r.words.size() ? r.words[k] : (fail("short", i), 0); };
            const auto handle = static_cast<std::uint32_t>(r.words.empty() ? 0 : r.words[0]);
            const std::string look = now.pen + ", " + now.brush + ", clip " + now.clip + "\n";
            const std::string box = r.words.size() < 4 ? ""
                                                       : " " + std::to_string(w(0)) + "," + std::to_string(w(1)) + " " +
                                                             std::to_string(w(2)) + "," + std::to_string(w(3));
            switch (r.type) {
            case 27: position = std::to_string(w(0)) + "," + std::to_string(w(1)); break;
            case 54: {
                const std::string to = std::to_string(w(0)) + "," + std::to_string(w(1));
                out << "line " << position << ' ' << to << ": " << look;
                position = to;
                break;
            }
            case 4:
            case 87: out << "line" << points(r, 0, i) << ": " << look; break;
            case 3:
            case 86:
                if (inPath)
                    path = points(r, 0, i);
                else
                    out << "polygon" << points(r, 0, i) << ": " << look;
                break;
            case 7:
            case 90: out << "line" << points(r, static_cast<std::size_t>(w(4)), i) << ": " << look; break;
            case 8:
            case 91: out << "polygon" << points(r, static_cast<std::size_t>(w(4)), i) << ": " << look; break;
            case 42: out << "ellipse" << box << ": " << look; break;
            case 43: out << "rectangle" << box << ": " << look; break;
            case 15:
                out << "pixel " << w(0) << ',' << w(1) << ' ' << color(w(2)) << ": clip " << now.clip << '\n';
                break;
            case 19:
                if (w(0) != 1)
                    fail("not even-odd", i);
                break;
            case 25: out << "background " << color(w(0)) << '\n'; break;
            case 30: now.clip = now.clip == "all" ? box.substr(1) : now.clip + " and" + box; break;
            case 59: inPath = true; break;
            case 60: inPath = false; break;
            case 67:
                if (w(0) != 4 || path.empty() || inPath)
                    fail("clip path", i);
                now.clip += " without" + path;
                break;
            case 75: {
                if (w(0) < 32 || r.words.size() * 4 != 8 + static_cast<std::size_t>(w(0)) || w(1) != 1 || w(2) != 32 ||
                    w(3) != 1 || w(4) * 16 != w(5) || w(5) != w(0) - 32)
                    return fail("clip region", i);
                now.clip += " and region";
                for (std::size_t k = 10; k < r.words.size(); k += 4) {
                    now.clip += k == 10 ? " " : " | ";
                    for (std::size_t j = 0; j < 4; ++j) {
                        const bool in = j < 2 ? w(k + j) >= w(6 + j) : w(k + j) <= w(6 + j);
                        if (!in || (j < 2 && w(k + j) >= w(k + j + 2)))
                            fail("box of a region", i);
                        now.clip += std::to_string(w(k + j)) + (j == 1 ? " " : j == 3 ? "" : ",");
                    }
                }
                break;
            }
            case 9: window = {w(0), w(1)}; break;
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
            case 77: out << "picture " << picture(r, i) << ": clip " << now.clip << '\n'; break;
            case 33: saved.push_back(now); break;
            case 34:
                if (w(0) != -1 || saved.empty())
                    return fail("nothing to restore", i);
                now = saved.back();
                saved.pop_back();
                break;
            case 38:
                objects[handle] = "pen " + std::to_string(w(2)) + " " + color(w(4));
                if (handle == 0 || handle >= handles || w(1) != 0 || !m_live.insert(handle).second)
                    fail("bad pen", i);
                break;
            case 39:
                objects[handle] = "brush " + color(w(2));
                if (handle == 0 || handle >= handles || w(1) != 0 || !m_live.insert(handle).second)
                    fail("bad brush", i);
                break;
            case 37:
                if (objects.count(handle) == 0)
                    return fail("selects what is not there", i);
                if (objects[handle].find("pen") != std::string::npos) {
                    now.pen = objects[handle];
                    now.penHandle = handle;
                } else {
                    now.brush = objects[handle];
                    now.brushHandle = handle;
                }
                break;
            case 40: {
                std::vector<Context> all = saved;
                all.push_back(now);
                for (const Context& context : all) {
                    if (context.penHandle == handle || context.brushHandle == handle)
                        fail("deletes what is in use", i);
                }
                if (m_live.erase(handle) == 0)
                    fail("deletes what is not there", i);
                objects.erase(handle);
                break;
            }
            default: fail("unknown type " + std::to_string(r.type), i);
            }
        }
        if (!saved.empty())
            fail("unbalanced save", records.size() - 1);
        drawing = out.str();
    }

    std::string m_bytes;
    std::set<std::uint32_t> m_live;
};
