// Objects that live as long as the process.
#pragma once

/// Holds an object that is never destroyed, so that destructors of other static objects may use it.
template <class T>
union Lasting {
    T object;

    Lasting() : object() {}
    ~Lasting() {}
};
