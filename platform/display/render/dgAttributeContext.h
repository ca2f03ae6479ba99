#pragma once

#include "dgEnums.h"
#include "dgExport.h"
#include "dgRef.h"
#include "giXform3.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <utility>
#include <vector>

class dgColourTable;
class dgGraphicalAttribute;
class dgTextFontSlots;
struct dgDrawState;

/// The attributes and the transform in force at one place of a network, with those of the places around it.
class DG_EXPORT dgAttributeContext
{
public:
    dgAttributeContext();
    ~dgAttributeContext();
    dgAttributeContext(const dgAttributeContext&) = delete;
    dgAttributeContext& operator=(const dgAttributeContext&) = delete;

    /// Open and close one level; a pop restores the attributes and the transform exactly.
    void push();
    void pop();

    /// Puts an attribute in force, which is referenced as long as it is.
    void set(const dgGraphicalAttribute& attribute);

    /// Puts an attribute in force whatever is set until the level that is open now is closed.
    void force(const dgGraphicalAttribute& attribute);

    /// Puts a transform in force in place of the present one.
    void place(const giXform3& to_world)
    {
        the_transform = to_world;
        the_transform_changed = true;
    }

    /// The attribute of a type code that was set, or null where the default holds.
    const dgGraphicalAttribute* attribute(int type) const { return the_attributes[type].get(); }

    /// From the coordinates of the present place to world space.
    const giXform3& transform() const { return the_transform; }

    /// Sets state to the attributes in force, the process-wide defaults where none was set. Fonts are looked up by
    /// their slots, indexed colours in the table.
    void resolve(const dgTextFontSlots& fonts, const dgColourTable& colours, dgDrawState& state) const;

    /// True once after each change, and after retell.
    bool state_changed() { return std::exchange(the_state_changed, false); }
    bool transform_changed() { return std::exchange(the_transform_changed, false); }
    void retell() { the_state_changed = the_transform_changed = true; }

private:
    using Attribute = dgRef<dgGraphicalAttribute>;
    struct Undo
    {
        int type;
        Attribute attribute;
    };
    using Types = std::bitset<dgTYPE_LAST_ATTRIBUTE + 1>;
    struct Level
    {
        std::size_t undo_mark;
        Types forced;
        giXform3 transform;
    };

    void put(const dgGraphicalAttribute& attribute);

    std::array<Attribute, dgTYPE_LAST_ATTRIBUTE + 1> the_attributes; // null where the default holds
    Types the_forced;                                                // cannot be set
    std::vector<Undo> the_undo;
    std::vector<Level> the_levels;
    giXform3 the_transform;
    bool the_state_changed = true;
    bool the_transform_changed = true;
};
