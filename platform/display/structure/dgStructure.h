#pragma once

#include "dgBase.h"
#include "dgBounds.h"
#include "dgElementBuffer.h"
#include "dgElementHolders.h"
#include "giBox3.h"

#include <algorithm>
#include <iosfwd>
#include <memory>
#include <utility>
#include <vector>

class dgCompiledStructure;
struct dgDrawQuality;

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

    /// Box of all primitives through calls and transforms; empty when there are none. Kept until something in the
    /// network changes that it depends on; then found again by a look at that, and at what reaches farthest.
    const giBox3& bounding_box() const;

    /// Grows on every insertion, deletion and change in place of this structure's own elements.
    unsigned long long stamp() const { return the_stamp; }

    /// Grows with insertions and deletions alone, not with changes in place.
    unsigned long long content_stamp() const { return the_content_stamp; }

    /// Grows whenever the stamp of this structure or of one that it calls does. Takes constant time.
    unsigned long long network_stamp() const;

    virtual void print(std::ostream& os) const;

    UT_DECLARE_TYPE(dgStructure, dgBase);

    // For the renderer: the form in which the structure is drawn, made again after insertions and deletions.
    dgCompiledStructure& compiled() const;

    // For gsFullQuality: the quality of drawings that begin here, in place of the renderer's; null for that. Copied.
    const dgDrawQuality* draw_quality() const { return the_draw_quality.get(); }
    void draw_quality(const dgDrawQuality* quality);

    // For walks through networks. While one is under way, what is taken out of the structure is kept for it.
    static unsigned long long new_walk();
    unsigned long long walk() const { return the_walk; }
    unsigned long long open_walk(unsigned long long walk) const { return std::exchange(the_walk, walk); }
    void close_walk(unsigned long long before) const;

    // For elements held by this structure.
    void element_changed(const dgGraphicalElement& element);

    // For drawing, picking and fitting: where the network is drawn, found when it is not known. known_bounds answers
    // false, and tells nothing, while they are being found, which is when calls make a circle.
    const dgBounds& bounds() const;
    bool known_bounds(dgBounds& bounds) const;

    // Grows whenever the bounds of any structure are no longer known.
    static unsigned long long bounds_changes();

    // How many times a structure calls this one, and one of the steps that do; 0 if none is known.
    int times_called_by(const dgStructure& structure) const { return the_callers.count(&structure); }
    int call_hint() const { return the_call_hint; }
    void call_hint(int step) const { the_call_hint = step; }

private:
    struct Retired;
    void contents_changed();
    void network_changed();
    void lose_bounds();
    void find_bounds() const;
    const dgStructure* next_without_bounds(std::size_t& next) const;
    void update_bounds() const;
    void retire_compiled() const;
    Retired& retired() const;

    dgElementBuffer the_elements;
    int the_cursor = -1;
    unsigned long long the_stamp;
    unsigned long long the_content_stamp;
    dgElementHolders the_callers; // structures that hold calls of this one
    mutable unsigned long long the_network_stamp;
    unsigned long long the_told_in = 0; // round of questions in which callers were last told of a change
    mutable int the_call_hint = 0;
    mutable bool the_box_known = false, the_bounds_known = false, the_bounds_sought = false;
    mutable giBox3 the_box;                                    // while known, so are the bounds
    mutable dgBounds the_bounds;                               // while known, so are those of all that is called
    mutable std::vector<const dgStructure*> the_changed_calls; // whose bounds were lost since this one's were known
    mutable unsigned long long the_walk = 0;                   // the walk that is under way here, 0: none
    std::unique_ptr<const dgDrawQuality> the_draw_quality;
    mutable std::unique_ptr<dgCompiledStructure> the_compiled;
    mutable std::unique_ptr<Retired> the_retired; // until no walk is under way
};

DG_EXPORT std::ostream& operator<<(std::ostream& os, const dgStructure& structure);
