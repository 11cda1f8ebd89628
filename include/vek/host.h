/// @file
/// A ready host for programs without a CAD package.
#pragma once

#include <vek/data/app.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// A host for programs without a CAD package: a drawing in memory, and functions, views and hatch patterns that the
/// program registers.
///
/// It draws drills and standard parts seen along their axis, and brings the functions "vek_text_to_regl", in the stroke
/// font, and "vek_gdx_image_extr" along. What the program registers comes first.
class VEK_API CVekLocalApp : public CVekApp
{
public:
    using Function = std::function<int(resbuf* arguments, VEK::CUniqResbuf& result)>;
    using Image = std::function<bool(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* parameters)>;

    int defaultUnit() override { return m_defaultUnit; }
    unsigned long backgroundColor() override { return m_backgroundColor; }
    bool imageObject(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* parameters) override;
    void hatchPatternGet(const wchar_t* name, VekPatternLines& lines) override;
    void viewMatrix(const wchar_t* name, CVekMatrix3d& matrix) override;
    bool namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create) override;
    int callFunction(const wchar_t* name, resbuf* arguments, VEK::CUniqResbuf& result) override;
    VEK::CSharedPointer<CVekDataItem> dataObject(const VEK::CAdsName& name) override;

    /// The values that `defaultUnit` and `backgroundColor` return, initially 2 and black.
    void defaultUnitSet(int unit) { m_defaultUnit = unit; }
    void backgroundColorSet(unsigned long colorRef) { m_backgroundColor = colorRef; }

    /// Registers a hatch pattern; an empty table removes it. Names are case-insensitive.
    void hatchPatternSet(const wchar_t* name, const VekPatternLines& lines);

    /// Registers the hatch patterns of a file; see `VEK::hatchPatternsLoad`. An existing name gets the lines of the
    /// file; if a name occurs twice in the file, the later pattern is used.
    /// @return false, with the patterns before the error registered, if the file could not be read to its end
    bool hatchPatternFile(const wchar_t* path, CVekString& error);

    /// Registers a named view.
    void viewMatrixSet(const wchar_t* name, const CVekMatrix3d& matrix);

    /// Registers a function, also in place of one that the host brings along; an empty one removes the name. Its return
    /// value is the status of the call.
    void functionSet(const wchar_t* name, Function function);

    /// Sets the function that draws objects. Where it is empty or gives false the host draws by itself: a drill, whose
    /// diameter is "D", as a circle with its centre cross, and a standard part, which has "DIN" too, as what is seen
    /// along its axis, in the colour of its layer, as one polyline.
    void imageObjectSet(Image image) { m_image = std::move(image); }

private:
    struct DataObject {
        std::wstring kind;
        VEK::CSharedPointer<CVekDataItem> tree;
    };

    int m_defaultUnit = 2;
    unsigned long m_backgroundColor = 0;
    std::map<std::wstring, VekPatternLines> m_patterns;
    std::map<std::wstring, CVekMatrix3d> m_views;
    std::map<std::wstring, Function> m_functions;
    std::vector<DataObject> m_objects; ///< an entity's name is its index here plus one
    Image m_image;
};
