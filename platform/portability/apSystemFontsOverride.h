#pragma once

#include "apExport.h"
#include "apSystemFace.h"

#include <vector>

/// Replaces the list of the operating system's faces by a fixed table for the life of the object; private fonts are not
/// in it. Overrides nest and must be destroyed in the reverse order of their construction.
class AP_EXPORT apSystemFontsOverride
{
public:
    explicit apSystemFontsOverride(std::vector<apSystemFace> faces);
    ~apSystemFontsOverride();
    apSystemFontsOverride(const apSystemFontsOverride&) = delete;
    apSystemFontsOverride& operator=(const apSystemFontsOverride&) = delete;

    const std::vector<apSystemFace>& faces() const { return the_faces; }

    /// The override in force, or null.
    static const apSystemFontsOverride* current();

private:
    std::vector<apSystemFace> the_faces;
    apSystemFontsOverride* the_previous;
};
