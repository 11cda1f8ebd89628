/// @file
/// The source from which a draw pass gets its pictures.
#pragma once

#include <vek/export.h>
#include <vek/values/pixels.h>
#include <vek/values/string.h>

#include <cstddef>
#include <memory>

namespace VEK
{

/// A picture requested by a draw pass. Name, number, size and back colour are those of `loadPicture`.
struct PictureRequest {
    CVekString name;
    int id = 0;
    int cx = 0;
    int cy = 0;
    bool transparent = false; ///< the key colour is left out; an icon leaves out its masked pixels instead
    unsigned long back = 0xFFFFFF;
};

/// Supplies pictures to draw passes. The pixels are shared and never change.
class VEK_API CPictureSource
{
public:
    virtual ~CPictureSource() = default;

    /// A pass begins.
    virtual void begin() {}

    /// @return null if there is no such picture
    virtual std::shared_ptr<const CPixels> picture(const PictureRequest& request) = 0;
};

/// Keeps the pictures of files and programs, so that a picture that is drawn again is not read again. The least
/// recently used is dropped first if there are too many. Threads may share one.
///
/// A file is checked, by its path, modification time and size, at its first use after each `begin`: the next pass shows
/// a changed file, and notices one that appears or disappears. A change that keeps both time and size is not noticed. A
/// damaged or missing file is remembered like a picture; one that cannot be read is tried again.
class VEK_API CPictureCache : public CPictureSource
{
public:
    /// @param limit bytes that the pictures may take; a larger picture is supplied, but not kept
    explicit CPictureCache(std::size_t limit = std::size_t{64} << 20);
    ~CPictureCache() override;
    CPictureCache(const CPictureCache&) = delete;
    CPictureCache& operator=(const CPictureCache&) = delete;

    void begin() override;
    std::shared_ptr<const CPixels> picture(const PictureRequest& request) override;

    /// Bytes taken by the kept pictures.
    std::size_t size() const;

    /// Discards all pictures.
    void clear();

protected:
    /// Reads a picture. Called whenever none is kept.
    /// @param pixels empty if there is no such picture
    /// @return false if another attempt may succeed, so that the result is not kept
    virtual bool load(const PictureRequest& request, CPixels& pixels);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// The cache that draw passes use by default. It exists as long as the process.
VEK_API CPictureCache& pictureCache();

} // namespace VEK
