#pragma once

#include "dgBase.h"
#include "dgElementHolders.h"
#include "dgEnums.h"

#include <iosfwd>

class dgRenderer;
class dgStructure;
class giBox3;

/// One element of a display structure: an attribute, a primitive, a label, a call of another structure or an
/// application's own element. Counted; the structures that hold it keep a reference each.
class DG_EXPORT dgGraphicalElement : public dgBase
{
public:
    ~dgGraphicalElement() override;

    dgGraphicalElementKind kind() const { return static_cast<dgGraphicalElementKind>(the_kind); }

    /// Element type code, 0 to dgS::max_elements() - 1.
    int type() const { return the_type; }

    /// A new element with a count of 0 and contents of its own.
    virtual dgGraphicalElement* copy() const = 0;

    /// Executes the element: an attribute changes the renderer's context, a primitive is drawn under it. An element of
    /// an application's own may edit, clear or drop the structure that it is drawn in; it must not destroy the view
    /// that is drawn, nor take away its root or its renderer.
    virtual void draw(dgRenderer* renderer) const = 0;

    /// Box of a primitive, or of what an application's element draws, in its own coordinates; empty for every other
    /// kind.
    virtual giBox3 bounding_box() const;

    /// 1 for an element that is neither attribute, primitive nor call, yet draws nothing beyond its bounding_box() and
    /// leaves all attributes as they are: it may be left out where its box is out of view. 0 by default: such an
    /// element is always executed.
    virtual int draws_in_box() const { return 0; }

    /// Whether its changes may change where it, or what follows it, is drawn.
    virtual bool changes_bounds() const { return kind() != dgELEMENT_ATTRIBUTE; }

    /// The structure that a call element calls; null for every other element.
    virtual dgStructure* called_structure() const { return nullptr; }

    /// The identifier of a label; 0 for every other element.
    virtual int label() const { return 0; }

    /// Grows whenever the element is changed in place. Stamps of all elements and structures share one count.
    unsigned long long stamp() const { return the_stamp; }

    /// How many times a structure holds the element.
    int times_held_by(const dgStructure* structure) const { return the_holders.count(structure); }

    virtual void print(std::ostream& os) const;

    UT_DECLARE_TYPE(dgGraphicalElement, dgBase);

    // Bookkeeping of the structures that hold the element, by those structures alone.
    void add_holder(dgStructure* holder) { the_holders.add(holder); }
    void remove_holder(dgStructure* holder) { the_holders.remove(holder); }

    // Where a structure that holds the element has it in its compiled form, -1 if none has: to be looked at there
    // first.
    int place_hint() const { return the_place_hint; }
    void place_hint(int place) const { the_place_hint = place; }

protected:
    dgGraphicalElement(dgGraphicalElementKind kind, int type);
    dgGraphicalElement(const dgGraphicalElement& other);
    dgGraphicalElement& operator=(const dgGraphicalElement&) = delete;

    /// To be called after every change in place; tells the structures that hold the element.
    void changed();

    /// Drops what was found out about the contents before a change.
    virtual void forget() {}

private:
    unsigned char the_kind;
    unsigned char the_type;
    mutable int the_place_hint = -1;
    unsigned long long the_stamp;
    dgElementHolders the_holders;
};
