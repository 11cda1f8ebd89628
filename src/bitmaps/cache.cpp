#include <vek/bitmaps/source.h>

#include "bitmaps/load.h"
#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <vek/data/text.h>

#include <filesystem>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <tuple>

namespace VEK
{
namespace
{

namespace fs = std::filesystem;

using Key = std::tuple<std::wstring, int, int, int, bool, unsigned long>;

Key keyOf(const PictureRequest& request)
{
    const wchar_t* const name = request.name;
    return {name ? name : L"", request.id, request.cx, request.cy, request.transparent, request.back};
}

/// Identifies the version of a file; empty for a picture that is not from a file or does not exist.
struct Stamp {
    std::wstring path;
    fs::file_time_type time;
    std::uintmax_t size = 0;

    bool operator==(const Stamp& other) const = default;
};

Stamp stampOf(const CVekString& name)
{
    CVekString found;
    if (name.isNull() || !fileFind(found, name))
        return {};
    Stamp stamp;
    stamp.path = static_cast<const wchar_t*>(found);
    const fs::path path = platform::pathOf(stamp.path);
    std::error_code error;
    stamp.time = fs::last_write_time(path, error);
    stamp.size = fs::file_size(path, error);
    return stamp;
}

struct Entry {
    Key key;
    Stamp stamp;
    unsigned long long pass = 0; ///< in which the file was last checked
    std::shared_ptr<const CPixels> pixels;

    std::size_t cost() const
    {
        constexpr std::size_t kOverhead = 512; // of the entry itself and its nodes in list and map
        return kOverhead + (std::get<0>(key).size() * 2 + stamp.path.size()) * sizeof(wchar_t) +
               (pixels ? pixels->data.size() * sizeof(std::uint32_t) : 0);
    }
};

} // namespace

struct CPictureCache::State {
    using Entries = std::list<Entry>;

    explicit State(std::size_t most) : limit(most) {}

    const std::size_t limit;
    std::mutex mutex;
    unsigned long long pass = 0;
    std::size_t size = 0;
    Entries entries; ///< most recently used first
    std::map<Key, Entries::iterator> places;

    void remove(Entries::iterator entry)
    {
        size -= entry->cost();
        places.erase(entry->key);
        entries.erase(entry);
    }

    void keep(Entry&& entry)
    {
        if (const auto old = places.find(entry.key); old != places.end())
            remove(old->second);
        const std::size_t cost = entry.cost();
        if (cost > limit)
            return;
        while (size + cost > limit)
            remove(std::prev(entries.end()));
        entries.push_front(std::move(entry));
        try {
            places.emplace(entries.front().key, entries.begin());
        } catch (...) {
            entries.pop_front();
            throw;
        }
        size += cost;
    }
};

CPictureCache::CPictureCache(std::size_t limit)
    : m_state(whole(std::unique_ptr<State>(), [&] { return std::make_unique<State>(limit); }))
{
}

CPictureCache::~CPictureCache() = default;

void CPictureCache::begin()
{
    if (!m_state)
        return;
    const std::lock_guard lock(m_state->mutex);
    ++m_state->pass;
}

std::size_t CPictureCache::size() const
{
    if (!m_state)
        return 0;
    const std::lock_guard lock(m_state->mutex);
    return m_state->size;
}

void CPictureCache::clear()
{
    if (!m_state)
        return;
    const std::lock_guard lock(m_state->mutex);
    m_state->places.clear();
    m_state->entries.clear();
    m_state->size = 0;
}

std::shared_ptr<const CPixels> CPictureCache::picture(const PictureRequest& request)
{
    using Picture = std::shared_ptr<const CPixels>;
    if (!m_state)
        return nullptr;
    State& state = *m_state;
    const unsigned long shortages = memoryShortages();
    return whole(Picture(), [&]() -> Picture {
        Entry entry{keyOf(request), {}, 0, nullptr};
        // The entry if it is still valid: its file was checked in this pass, or is checked now and unchanged.
        const auto kept = [&](bool isLooked) {
            const auto place = state.places.find(entry.key);
            if (place == state.places.end())
                return false;
            Entry& found = *place->second;
            if (isLooked && found.stamp == entry.stamp)
                found.pass = entry.pass;
            if (found.pass != entry.pass)
                return false;
            state.entries.splice(state.entries.begin(), state.entries, place->second);
            entry.pixels = found.pixels;
            return true;
        };
        // No lock is held while files are checked and read.
        {
            const std::lock_guard lock(state.mutex);
            entry.pass = state.pass;
            if (kept(false))
                return entry.pixels;
        }
        entry.stamp = stampOf(request.name);
        if (memoryShortages() != shortages) // the file may only seem to be missing
            return nullptr;
        {
            const std::lock_guard lock(state.mutex);
            if (kept(true))
                return entry.pixels;
        }
        CPixels pixels;
        const bool isKept = load(request, pixels);
        if (!pixels.empty())
            entry.pixels = std::make_shared<const CPixels>(std::move(pixels));
        const Picture result = entry.pixels;
        if (isKept && memoryShortages() == shortages) {
            const std::lock_guard lock(state.mutex);
            state.keep(std::move(entry));
        }
        return result;
    });
}

bool CPictureCache::load(const PictureRequest& request, CPixels& pixels)
{
    bool transparent = request.transparent;
    const LoadResult result =
        tryLoadPicture(request.name, request.id, request.cx, request.cy, transparent, request.back, pixels);
    if (transparent)
        leaveOut(pixels, keyColor(pixels));
    return result != LoadResult::unread;
}

CPictureCache& pictureCache()
{
    static CPictureCache cache;
    return cache;
}

} // namespace VEK
