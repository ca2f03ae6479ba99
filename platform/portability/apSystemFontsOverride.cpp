#include "apSystemFontsOverride.h"

#include <utility>

namespace
{
apSystemFontsOverride* the_override = nullptr;
}

apSystemFontsOverride::apSystemFontsOverride(std::vector<apSystemFace> faces)
    : the_faces(std::move(faces)), the_previous(std::exchange(the_override, this))
{}

apSystemFontsOverride::~apSystemFontsOverride()
{
    the_override = the_previous;
}

const apSystemFontsOverride* apSystemFontsOverride::current()
{
    return the_override;
}
