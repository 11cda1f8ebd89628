#include <vek/values.h>

#include <cstdio>

int main()
{
    CVekPoint3d a(0.0, 0.0, 0.0), b(3.0, 4.0, 0.0);
    std::printf("%g\n", a.distanceTo(b));
    return a.distanceTo(b) == 5.0 ? 0 : 1;
}
