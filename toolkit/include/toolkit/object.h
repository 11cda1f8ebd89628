/// @file
/// Objects that know their class at run time.
#pragma once

#include <toolkit/base.h>

class CObject;

/// Run-time information about a class. It is in the module that implements the class, so that there is only one per
/// class.
struct AFX_EXPORTED CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();       ///< null for a class that cannot be created from its run-time class
    CRuntimeClass* (*m_pfnGetBaseClass)(); ///< null for CObject

    /// A new object, owned by the caller; null if the class cannot create one.
    CObject* CreateObject();
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass* GetThisClass();                                                                              \
    virtual CRuntimeClass* GetRuntimeClass() const;

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
    static CObject* CreateObject();

#define AFX_IMPLEMENT_CLASS(class_name, base_class_name, create)                                                       \
    CRuntimeClass* class_name::GetThisClass()                                                                          \
    {                                                                                                                  \
        static CRuntimeClass it = {#class_name, static_cast<int>(sizeof(class_name)), 0xFFFF, create,                  \
                                   &base_class_name::GetThisClass};                                                    \
        return &it;                                                                                                    \
    }                                                                                                                  \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                                 \
    {                                                                                                                  \
        return GetThisClass();                                                                                         \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) AFX_IMPLEMENT_CLASS(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject* class_name::CreateObject()                                                                                \
    {                                                                                                                  \
        return new class_name;                                                                                         \
    }                                                                                                                  \
    AFX_IMPLEMENT_CLASS(class_name, base_class_name, &class_name::CreateObject)

/// The root of all classes here.
class AFX_EXPORTED CObject
{
    DECLARE_DYNAMIC(CObject)

public:
    virtual ~CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    BOOL IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }

protected:
    CObject() = default;
};

/// The object cast to a class; null if it is null or not of that class.
inline CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}
#define DYNAMIC_DOWNCAST(class_name, object)                                                                           \
    static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object))
#define STATIC_DOWNCAST(class_name, object) static_cast<class_name*>(object)
