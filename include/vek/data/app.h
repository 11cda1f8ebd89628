/// @file
/// The host: the program in which the library runs, for example a CAD package.
#pragma once

#include <vek/data/file.h>
#include <vek/data/pattern.h>
#include <vek/data/resbuf.h>

class CVekGDX;

/// The interface to the host, from which a host derives; the order of the operations is part of it.
class VEK_API CVekApp : public CVekObj
{
public:
    /// The code of the unit and length format in which values are shown.
    virtual int defaultUnit() = 0;

    /// The background of display objects and pictures, as a `COLORREF`.
    virtual unsigned long backgroundColor() = 0;

    /// Lets the host draw an object into a display object; the host gets ownership of nothing.
    virtual bool imageObject(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* parameters) = 0;

    /// Returns the lines of a hatch pattern; an unknown name leaves the table empty.
    virtual void hatchPatternGet(const wchar_t* name, VekPatternLines& lines) = 0;

    /// Returns a named view of the drawing; an unknown name leaves the matrix as it is.
    virtual void viewMatrix(const wchar_t* name, CVekMatrix3d& matrix) = 0;

    /// Finds the drawing's data object of a kind, such as "HOLE".
    /// @param name receives the name by which `VEK::dtaOpen` opens it
    /// @param create whether a missing one is created
    virtual bool namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create) = 0;

    /// Calls a function of the host by its name.
    /// @param arguments a chain that the caller still owns; null for none
    /// @param result receives a chain
    /// @return `VEK::kHostNormal`, which is 5100, on success
    virtual int callFunction(const wchar_t* name, resbuf* arguments, VEK::CUniqResbuf& result) = 0;

    /// The data tree of an entity of the drawing, shared with it; null if it has none.
    virtual VEK::CSharedPointer<CVekDataItem> dataObject(const VEK::CAdsName& name);
};

/// The installed host, never null. Without one it is a default host whose operations report failure: the unit code is
/// 2, the background black, nothing is drawn, found or called.
VEK_API CVekApp* vekAppPtr();

/// Installs a host, which the caller still owns and which must live until another one is installed; null installs the
/// default host.
/// @return the previous host
VEK_API CVekApp* vekAppSet(CVekApp* app);
