#pragma once

// Installs an implementation of a seam for the lifetime of a scope (a test, the program's run)
// through the seam's own install function, and puts the previous one back at its end.
template <typename Interface, Interface* (*Install)(Interface*)>
class CSeamScope {
public:
    explicit CSeamScope(Interface& implementation) : previous_(Install(&implementation)) {}
    ~CSeamScope() { Install(previous_); }
    CSeamScope(const CSeamScope&) = delete;
    CSeamScope& operator=(const CSeamScope&) = delete;

private:
    Interface* previous_;
};
