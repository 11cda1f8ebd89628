/// @file
/// Slides: vector pictures in AutoCAD's slide format, whose layout is published in that program's customization guide.
///
/// A slide is read from memory and needs no window: a reader passes each of its records to a visitor. Slide coordinates
/// are whole numbers; x runs to the right, y upwards, and the corner opposite to the origin is the slide's highest
/// point.
#pragma once

#include <vek/values/array.h>

#include <cstddef>
#include <span>

namespace VEK
{

/// The bytes of a slide or of a slide library.
using SlideBytes = std::span<const unsigned char>;

/// A position on a slide or on a device.
struct SlidePoint {
    int x = 0;
    int y = 0;

    bool operator==(const SlidePoint&) const = default;
};

/// Receives a slide's records, in file order.
class VEK_API SlideVisitor
{
public:
    virtual ~SlideVisitor() = default;

    /// The header was read; the highest coordinates are from 0 to 65535.
    /// @return false to skip the records
    virtual bool start(int hiX, int hiY) = 0;

    /// A line from one point to another.
    virtual void line(SlidePoint from, SlidePoint to) = 0;

    /// The colour of everything that follows, an index of the AutoCAD Color Index from 0 to 255.
    virtual void color(int index) = 0;

    /// A polygon to be filled and outlined. The last point repeats the first.
    /// @param points valid during the call only
    virtual void fill(std::span<const SlidePoint> points) = 0;
};

/// The parser of slides.
///
/// Use one reader for each place where slides are shown: the byte order of a level 2 slide stays with the reader, since
/// a level 1 slide does not specify one and takes that of the last level 2 slide shown in its place.
///
/// Past the end, a byte reads as 0 and a word as 0xFCFC, the end mark. So a truncated slide gives all complete records
/// and at most one more, and no record, whatever its count, takes more memory than the data that follows it.
class VEK_API SlideReader
{
public:
    /// Reads a slide: its header, then record after record up to the end mark, an invalid record or the end of data.
    ///
    /// The identification text is ignored. Records before an invalid one are kept.
    /// @return false, with no call to the visitor, if the level is neither 1 nor 2 or there is no data; also if memory
    ///     ran out meanwhile, for a fill or in the visitor: the visitor has then not received the whole slide
    bool read(SlideBytes slide, SlideVisitor& visitor);

    /// The byte-order word of the last level 2 slide, as read on a little-endian machine: 0x1234 for little-endian,
    /// 0x3412 for big-endian words. 0 at first.
    unsigned byteOrder() const { return m_byteOrder; }

private:
    class Cursor;

    void readRecords(Cursor& in, SlideVisitor& visitor);
    void readFill(Cursor& in, SlideVisitor& visitor);

    unsigned m_byteOrder = 0;
    CVekArrayTempl<SlidePoint> m_polygon; ///< scratch of the fills
};

/// Maps a slide to a device of whole pixels, whose y runs downwards.
struct VEK_API SlideMapping {
    double scale = 0.0;
    int offsetX = 0;
    int offsetY = 0;
    int hiY = 0;

    /// Fits a slide into a rectangle of the device: as large as possible without distortion, in the middle of the
    /// rectangle's size. The position of the rectangle is ignored, since the device is clipped to it.
    /// @param right, bottom one past the last pixel
    /// @return false, with the mapping unchanged, for a slide without width or height, which shows nothing
    bool set(int left, int top, int right, int bottom, int slideHiX, int slideHiY);

    /// The pixel of a slide point, truncated towards zero.
    SlidePoint map(SlidePoint point) const;
};

} // namespace VEK
