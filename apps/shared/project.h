/// @file
/// Projects: an assembly and further objects in one data file. docs/project-file.md tells the form.
#pragma once

#include <vek/data/config.h>
#include <vek/display.h>

#include <functional>
#include <string>
#include <vector>

/// Whether a file is a project, as a `.json` file is that has one of its keys.
bool isProject(const std::string& path);

/// Which object is drawn, and how. What is not set is as the object's own parameters say.
struct ObjectWish {
    std::string kind;   ///< "bgr", "fsheet", "bar", "drill", "hole" or "extr"; empty for the project's first object
    std::string object; ///< its name; empty for the first one of the kind
    std::string view;
    std::string active;
    bool full = false;
    bool coord = false;
    bool ucs = false;
    int mode = 0;
};

struct ProjectObject {
    CVekString name; ///< that of the file for the project's own assembly
    std::string kind;
    const CVekDataItem* item; ///< belongs to the project
};

/// An element of an assembly, as it lies in a display object.
struct ProjectElement {
    CVekString name;
    CVekString type;
    int end; ///< the number of items when it was drawn, those of the elements before it included
};

/// A project, whose configuration is in force while it lives. Its members throw a failure where told.
class Project
{
public:
    /// Throws a failure when a file cannot be read.
    explicit Project(const std::string& path);

    const std::vector<ProjectObject>& objects() const { return m_objects; }

    /// Throws a failure when there is no such object.
    const ProjectObject& find(const ObjectWish& wish) const;

    /// Draws an object in the configured colours, or fails: for a wish that has no place with its kind, too.
    void draw(CVekGDX& gdx, const ObjectWish& wish) const;

    /// Draws an assembly as `draw` does, each element by itself, in a view and at a scale.
    /// @return where the items of each element end
    std::vector<ProjectElement> drawElements(CVekGDX& gdx, const ObjectWish& wish, double scale) const;

    /// The elements of an assembly in the order of drawing.
    std::vector<ProjectElement> elements(const ProjectObject& object) const;

private:
    using Found = std::function<void(CVekDataItem& merged, CVekDataItem& entry, const CVekString& name)>;

    void configure(const CVekDataItem* roots);
    CVekDataItem dataOf(const ProjectObject& object) const;
    void forEachElement(CVekDataItem& data, CVekDataItem* parm, const Found& found) const;
    void check(const ProjectObject& object, const ObjectWish& wish) const;

    std::string m_path;
    VEK::CCfgBackup m_before{true};
    CVekDataItem m_root{CVekDataItem::directory};
    std::vector<ProjectObject> m_objects;
};
