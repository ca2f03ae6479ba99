#include "grCacheElement.h"

#include "grTimeoutRenderer.h"

grCacheElement::grCacheElement(dgView* view, int nstats, int generation)
    : the_renderer(std::make_unique<grTimeoutRenderer>(view, nstats)), the_last_used(generation)
{}

grCacheElement::~grCacheElement() = default;

dgView* grCacheElement::view() const
{
    return the_renderer->view();
}
