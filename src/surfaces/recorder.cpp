#include <vek/surfaces/recorder.h>

#include "core/values/whole.h"

#include <charconv>
#include <cmath>

namespace
{

const char* nameOf(VEK::SurfaceOp op)
{
    switch (op) {
    case VEK::SurfaceOp::clipTo: return "clipTo";
    case VEK::SurfaceOp::clipOut: return "clipOut";
    case VEK::SurfaceOp::clipRestore: return "clipRestore";
    case VEK::SurfaceOp::pen: return "pen";
    case VEK::SurfaceOp::noPen: return "noPen";
    case VEK::SurfaceOp::brush: return "brush";
    case VEK::SurfaceOp::noBrush: return "noBrush";
    case VEK::SurfaceOp::background: return "background";
    case VEK::SurfaceOp::moveTo: return "moveTo";
    case VEK::SurfaceOp::lineTo: return "lineTo";
    case VEK::SurfaceOp::polygon: return "polygon";
    case VEK::SurfaceOp::rectangle: return "rectangle";
    case VEK::SurfaceOp::ellipse: return "ellipse";
    case VEK::SurfaceOp::pixel: return "pixel";
    case VEK::SurfaceOp::solidRect: return "solidRect";
    case VEK::SurfaceOp::picture: return "picture";
    }
    return "";
}

bool hasColor(VEK::SurfaceOp op)
{
    using enum VEK::SurfaceOp;
    return op == pen || op == brush || op == background || op == pixel || op == solidRect;
}

void addNumber(std::string& text, double value)
{
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value + 0.0); // no "-0"
    text.append(digits, end.ptr);
}

} // namespace

namespace VEK
{

std::string SurfaceCall::text() const
{
    return whole(std::string(), [&] {
        std::string text = nameOf(op);
        for (const SurfacePoint& point : points) {
            text += ' ';
            addNumber(text, point.x);
            text += ',';
            addNumber(text, point.y);
        }
        if (op == SurfaceOp::pen)
            text += ' ' + std::to_string(width);
        if (hasColor(op)) {
            text += " #";
            for (int shift : {4, 0, 12, 8, 20, 16})
                text += "0123456789abcdef"[color >> shift & 15u];
        }
        return text;
    });
}

std::string CRecorder::text() const
{
    return whole(std::string(), [&] {
        std::string text;
        for (const SurfaceCall& call : m_calls)
            text += call.text() + '\n';
        return text;
    });
}

void CRecorder::add(SurfaceOp op, const SurfacePoint* points, int count, int width, unsigned color)
{
    whole(false, [&] {
        SurfaceCall call{op, {points, points + count}, width, color};
        if (m_whole) {
            for (SurfacePoint& point : call.points)
                point = {std::trunc(point.x) + 0.0, std::trunc(point.y) + 0.0};
        }
        m_calls.push_back(std::move(call));
        return true;
    });
}

void CRecorder::add(SurfaceOp op, std::initializer_list<SurfacePoint> points, int width, unsigned color)
{
    add(op, points.begin(), static_cast<int>(points.size()), width, color);
}

void CRecorder::clipTo(double left, double top, double right, double bottom)
{
    add(SurfaceOp::clipTo, {{left, top}, {right, bottom}});
}
void CRecorder::clipOut(const SurfacePoint* points, int count)
{
    add(SurfaceOp::clipOut, points, count);
}
void CRecorder::clipRestore()
{
    add(SurfaceOp::clipRestore);
}
void CRecorder::pen(int width, unsigned color)
{
    add(SurfaceOp::pen, {}, width, color);
}
void CRecorder::noPen()
{
    add(SurfaceOp::noPen);
}
void CRecorder::brush(unsigned color)
{
    add(SurfaceOp::brush, {}, 0, color);
}
void CRecorder::noBrush()
{
    add(SurfaceOp::noBrush);
}
void CRecorder::background(unsigned color)
{
    add(SurfaceOp::background, {}, 0, color);
}
void CRecorder::moveTo(double x, double y)
{
    add(SurfaceOp::moveTo, {{x, y}});
}
void CRecorder::lineTo(double x, double y)
{
    add(SurfaceOp::lineTo, {{x, y}});
}
void CRecorder::polygon(const SurfacePoint* points, int count)
{
    add(SurfaceOp::polygon, points, count);
}
void CRecorder::rectangle(double x1, double y1, double x2, double y2)
{
    add(SurfaceOp::rectangle, {{x1, y1}, {x2, y2}});
}
void CRecorder::ellipse(double x1, double y1, double x2, double y2)
{
    add(SurfaceOp::ellipse, {{x1, y1}, {x2, y2}});
}
void CRecorder::pixel(double x, double y, unsigned color)
{
    add(SurfaceOp::pixel, {{x, y}}, 0, color);
}
void CRecorder::solidRect(double x, double y, double width, double height, unsigned color)
{
    add(SurfaceOp::solidRect, {{x, y}, {width, height}}, 0, color);
}
void CRecorder::picture(double x, double y, const CPixels& pixels)
{
    add(SurfaceOp::picture, {{x, y}, {double(pixels.width), double(pixels.height)}});
}

} // namespace VEK
