#include <vek/data.h>
#include <vek/json.h>

#include <cstdio>
#include <string>

int main()
{
    const std::string text = R"({"WIDTH": 1.25})";
    CVekDataItem tree;
    CVekString error;
    if (!VEK::jsonRead(tree, text.data(), text.size(), L"text", error))
        return 1;
    std::string written;
    if (!VEK::jsonWrite(tree, written, L"text", error))
        return 1;
    std::printf("%s\n", written.c_str());
    return written.find("1.25") == std::string::npos ? 1 : 0;
}
