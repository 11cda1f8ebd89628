#include "../png.h"

#include <png.h>

#include <csetjmp>

namespace
{

void writeBytes(png_structp png, png_bytep data, png_size_t size)
{
    auto* sink = static_cast<VEK::CByteSink*>(png_get_io_ptr(png));
    if (!sink->write({reinterpret_cast<const char*>(data), size}))
        png_error(png, "not written");
}

void flushNothing(png_structp) {}

/// The caller tells what went wrong; libpng would print it as well.
void leave(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void ignore(png_structp, png_const_charp) {}

/// Holds nothing that a jump out of libpng would leave behind.
bool writeAll(png_structp png, png_infop info, VEK::CByteSink& sink, const VEK::CPixels& pixels)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_write_fn(png, &sink, writeBytes, flushNothing);
    png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.width), static_cast<png_uint_32>(pixels.height), 8,
                 PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE); // the smallest for lines on one colour
    png_write_info(png, info);
    png_set_filler(png, 0, PNG_FILLER_AFTER); // leaves the opacity out
    for (int y = 0; y < pixels.height; ++y) {
        const std::uint32_t* row = pixels.data.data() + static_cast<std::size_t>(y) * pixels.width;
        png_write_row(png, reinterpret_cast<png_const_bytep>(row));
    }
    png_write_end(png, info);
    return true;
}

} // namespace

bool canWritePng()
{
    return true;
}

bool writePng(VEK::CByteSink& sink, const VEK::CPixels& pixels)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, ignore);
    if (png == nullptr)
        return false;
    png_infop info = png_create_info_struct(png);
    const bool isWritten = info != nullptr && !pixels.empty() && writeAll(png, info, sink, pixels);
    png_destroy_write_struct(&png, &info);
    return isWritten && sink.commit();
}
