#pragma once

#include "grExport.h"
#include "utCopy.h"

#include <iosfwd>

class grToolFactory;

/// A tool as its factory knows it: the factory, not owned, and the number of the tool within it.
class GR_EXPORT grToolDetail
{
public:
    grToolDetail(grToolFactory* factory, int tool) : the_factory(factory), the_tool(tool) {}
    grToolDetail(utCopyTag, const grToolDetail& other) : the_factory(other.the_factory), the_tool(other.the_tool) {}

    grToolFactory* factory() const { return the_factory; }
    int tool() const { return the_tool; }

    void print(std::ostream& os) const;

protected:
    grToolDetail(const grToolDetail&) = default;
    grToolDetail& operator=(const grToolDetail&) = default;

private:
    grToolFactory* the_factory;
    int the_tool;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grToolDetail& detail);
