#include <vek/json.h>

#include <cstdint>
#include <cstdlib>

/// Whatever can be read produces the same text again from its own text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CVekDataItem tree;
    CVekString error;
    if (!VEK::jsonRead(tree, reinterpret_cast<const char*>(data), size, L"fuzz", error)) {
        if (error.find(L"fuzz:") != 0)
            std::abort();
        return 0;
    }
    std::string text;
    std::string again;
    CVekDataItem back;
    if (!VEK::jsonWrite(tree, text, L"fuzz", error) || !VEK::jsonRead(back, text.data(), text.size(), L"fuzz", error) ||
        !VEK::jsonWrite(back, again, L"fuzz", error) || again != text)
        std::abort();
    CVekDataItem chained;
    if (!chained.setData(tree.mkLisp(), false) || chained.isDir() != tree.isDir())
        std::abort();
    return 0;
}
