#include <vek/dialogframe/replacement.h>
#include <vek/values/memory.h>

namespace VEK
{

void replaceTexts(const CVekArrayTempl<ControlText>& texts, TextControls& controls, bool isDebugged)
{
    for (const ControlText& each : texts) {
        if (!controls.exists())
            return;
        if (!controls.has(each.id)) {
            if (isDebugged) {
                CVekString text;
                text.format(L"\nSetDlgItemText failed:\nDlgID = %d\nKEY = '%s'", static_cast<int>(each.id),
                            static_cast<const wchar_t*>(each.key));
                controls.showMissing(text);
            }
            continue;
        }
        const unsigned long shortages = memoryShortages();
        CVekString builtIn = each.hasBuiltIn ? each.builtIn : CVekString(controls.message(each.key, nullptr));
        if (isDebugged)
            builtIn = L"[" + builtIn + L"]";
        const wchar_t* text = controls.message(each.key, builtIn);
        if (text && memoryShortages() == shortages)
            controls.setText(each.id, text);
    }
}

} // namespace VEK
