#pragma once

#include "dgBase.h"
#include "dgElementBuffer.h"
#include "giBox3.h"

#include <algorithm>
#include <iosfwd>
#include <memory>
#include <utility>

class dgCompiledStructure;

/// A display structure: an ordered list of graphical elements with a cursor of its own. Counted; it keeps a counted
/// reference on each of its elements.
///
/// Positions count from 0; the cursor at -1 stands before the first element. Inserting, deleting and moving near the
/// cursor take constant time, whatever the number of elements.
class DG_EXPORT dgStructure : public dgBase
{
public:
    dgStructure();
    ~dgStructure() override;
    dgStructure(const dgStructure&) = delete;
    dgStructure& operator=(const dgStructure&) = delete;

    /// As of every counted object; structures that call each other to any depth are destroyed one after the other.
    void unreference() override;

    int nelements() const { return the_elements.size(); }
    dgGraphicalElement* element(int position) const { return the_elements[position]; }

    /// Moves the cursor. A position past the ends stops there; 0 on an empty structure leaves no current element.
    void set_cursor(int position) { the_cursor = std::clamp(position, -1, nelements() - 1); }
    int cursor() const { return the_cursor; }

    /// The element at the cursor, or null.
    dgGraphicalElement* read() const { return the_cursor >= 0 ? element(the_cursor) : nullptr; }

    /// Move the cursor by one. 0 at the ends, where the cursor stays.
    int next()
    {
        if (the_cursor + 1 >= nelements())
            return 0;
        ++the_cursor;
        return 1;
    }
    int previous()
    {
        if (the_cursor <= 0)
            return 0;
        --the_cursor;
        return 1;
    }

    /// Puts element behind the cursor (before the first one at -1), references it, moves the cursor onto it and
    /// answers its position.
    int insert(dgGraphicalElement* element);

    /// Appends element behind the last one and moves the cursor onto it.
    int add(dgGraphicalElement* element);

    /// Deletes the elements first to last, both included; the cursor falls back to first - 1.
    void delete_range(int first, int last);
    void clear();

    /// Moves the cursor onto the next element of a type code behind it. 0 when there is none: the cursor stays.
    int find(int type);

    /// Box of all primitives through calls and transforms; empty when there are none. Kept until something changes.
    const giBox3& bounding_box() const;

    /// Grows on every insertion, deletion and change in place of this structure's own elements.
    unsigned long long stamp() const { return the_stamp; }

    /// Grows with insertions and deletions alone, not with changes in place.
    unsigned long long content_stamp() const { return the_content_stamp; }

    /// The largest stamp of this structure and of all that it calls.
    unsigned long long network_stamp() const;

    virtual void print(std::ostream& os) const;

    UT_DECLARE_TYPE(dgStructure, dgBase);

    // For the renderer: the form in which the structure is drawn, made again after insertions and deletions.
    dgCompiledStructure& compiled() const;

    // For walks through networks. While one is under way, what is taken out of the structure is kept for it.
    static unsigned long long new_walk();
    unsigned long long walk() const { return the_walk; }
    unsigned long long open_walk(unsigned long long walk) const { return std::exchange(the_walk, walk); }
    void close_walk(unsigned long long before) const;

    // For elements held by this structure.
    void element_changed(const dgGraphicalElement& element);

private:
    struct Retired;
    void contents_changed();
    void retire_compiled() const;
    Retired& retired() const;

    dgElementBuffer the_elements;
    int the_cursor = -1;
    unsigned long long the_stamp;
    unsigned long long the_content_stamp;
    mutable giBox3 the_box;
    mutable unsigned long long the_box_stamp = 0; // network stamp that the box belongs to, 0: none yet
    mutable unsigned long long the_walk = 0;      // the walk that is under way here, 0: none
    mutable unsigned long long the_visit = 0;     // the last that asked for the network's stamp
    mutable std::unique_ptr<dgCompiledStructure> the_compiled;
    mutable std::unique_ptr<Retired> the_retired; // until no walk is under way
};

DG_EXPORT std::ostream& operator<<(std::ostream& os, const dgStructure& structure);
