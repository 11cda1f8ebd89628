/// @file
/// Where a draw pass gets its pictures from.
#pragma once

#include <vek/export.h>
#include <vek/values/pixels.h>
#include <vek/values/string.h>

#include <cstddef>
#include <memory>

namespace VEK
{

/// A picture as a draw pass asks for it. Name, number, size and back colour are those of `loadPicture`.
struct PictureRequest {
    CVekString name;
    int id = 0;
    int cx = 0;
    int cy = 0;
    bool transparent = false; ///< the key colour is left out, unless it is an icon, which leaves out what it masks
    unsigned long back = 0xFFFFFF;
};

/// Gives pictures to draw passes. The pixels are shared and stay as they are.
class VEK_API CPictureSource
{
public:
    virtual ~CPictureSource() = default;

    /// A pass begins.
    virtual void begin() {}

    /// @return null when there is no such picture
    virtual std::shared_ptr<const CPixels> picture(const PictureRequest& request) = 0;
};

/// Keeps the pictures of files and programs, so that a picture that is drawn again is not read again. What was asked
/// for longest ago goes first when there are too many. Threads may share one.
///
/// A file is looked at, by its path, time of change and size, at its first use behind each `begin`: a changed file is
/// shown anew in the next pass, one that appears or goes away too. A change that keeps both time and size is not
/// noticed. That a file is damaged or missing is kept like a picture; one that cannot be read is tried again.
class VEK_API CPictureCache : public CPictureSource
{
public:
    /// @param limit bytes that the pictures may take; a larger picture is given, but not kept
    explicit CPictureCache(std::size_t limit = std::size_t{64} << 20);
    ~CPictureCache() override;
    CPictureCache(const CPictureCache&) = delete;
    CPictureCache& operator=(const CPictureCache&) = delete;

    void begin() override;
    std::shared_ptr<const CPixels> picture(const PictureRequest& request) override;

    /// Bytes that the kept pictures take.
    std::size_t size() const;

    /// Forgets all pictures.
    void clear();

protected:
    /// Reads a picture. It is called whenever there is none to give.
    /// @param pixels empty where there is no such picture
    /// @return false when another attempt may succeed, so that the result is not kept
    virtual bool load(const PictureRequest& request, CPixels& pixels);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// The cache that draw passes use unless they are told another. It lives as long as the process.
VEK_API CPictureCache& pictureCache();

} // namespace VEK
