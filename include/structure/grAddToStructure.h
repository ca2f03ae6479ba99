#pragma once

#include "dgEnums.h"
#include "dgRef.h"
#include "grAddRegardless.h"
#include "grAddToStructureFlags.h"
#include "grExport.h"

#include <iosfwd>
#include <memory>

class dgGraphicalAttribute;
class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgPipelineContext;
class dgStructure;

/// Adds elements to a structure and leaves out attributes that change nothing, as far as its flags ask for it.
///
///     grAddToStructure adder(structure);
///     adder.ignore_default_attributes(1);
///     adder.delay_attributes(1);
///     for (...)
///         adder.add(...);
///     adder.flush_attributes(dgPRIMITIVE_ANY);   // only where attributes shall hold behind what was added
///     adder.finished_adding();
///
/// Elements go in at the structure's cursor. An adder serves one filling of one structure. Attributes that are still
/// held back when it is destroyed are never written.
class GR_EXPORT grAddToStructure
{
public:
    /// structure must not be null when something is added. These two keep a counted reference on it: a structure that
    /// nobody else references is destroyed with the adder.
    explicit grAddToStructure(dgStructure* structure);
    grAddToStructure(dgStructure* structure, const grAddToStructureFlags& flags);

    /// With any other mode than dgREFERENCE_COUNTED the structure is not referenced and must outlive the adder.
    grAddToStructure(dgReferenceMode mode, dgStructure* structure);
    grAddToStructure(dgReferenceMode mode, dgStructure* structure, const grAddToStructureFlags& flags);

    ~grAddToStructure();
    grAddToStructure(const grAddToStructure&) = delete;
    grAddToStructure& operator=(const grAddToStructure&) = delete;

    /// Adds an element. An attribute may be dropped or held back; in front of a primitive the attributes held back that
    /// it uses are written; every other element is written. The element is referenced meanwhile: one that nobody
    /// references is destroyed when it is dropped, and must not be used afterwards. A colour index is expanded in the
    /// element itself, even when a later filter drops it.
    void add(dgGraphicalElement* element);

    /// Writes an attribute whatever it is; its colour index alone is expanded. Other elements are added as above.
    void add(grAddRegardless, dgGraphicalElement* element);

    /// Writes the attributes held back that primitives of a type use; dgPRIMITIVE_ANY writes all. Answers 1, also when
    /// nothing is held back; 0 when attributes are not delayed.
    int flush_attributes(dgGraphicalPrimitiveType type);

    /// The same for the type of a primitive. The element type has no effect.
    int flush_attributes(const dgGraphicalPrimitive* primitive, int element_type);

    /// Ends a run of adding: attributes still held back count as ignored from now on. They are not written and stay
    /// held back, so that a second call counts them again.
    void finished_adding() { the_n_ignored_attributes += the_n_delayed_attributes; }

    /// Elements written to the structure.
    int number_added_elements() const { return the_n_added_elements; }
    /// Attributes held back now.
    int number_delayed_attributes() const { return the_n_delayed_attributes; }
    /// Attributes dropped, or superseded while they were held back.
    int number_ignored_attributes() const { return the_n_ignored_attributes; }
    /// Colours expanded from an index.
    int number_expanded_colours() const { return the_n_expanded_colours; }

    // The settings of grAddToStructureFlags.
    int ignore_default_attributes() const { return the_flags.ignore_default_attributes(); }
    void ignore_default_attributes(int on) { the_flags.ignore_default_attributes(on); }
    int delay_attributes() const { return the_flags.delay_attributes(); }
    void delay_attributes(int on) { the_flags.delay_attributes(on); }
    int ignore_line_widths_near_default() const { return the_flags.ignore_line_widths_near_default(); }
    void ignore_line_widths_near_default(int on) { the_flags.ignore_line_widths_near_default(on); }
    double ignore_line_widths_radius() const { return the_flags.ignore_line_widths_radius(); }
    void ignore_line_widths_radius(double pixels) { the_flags.ignore_line_widths_radius(pixels); }
    int expand_colour_indices() const { return the_flags.expand_colour_indices(); }
    void expand_colour_indices(int on) { the_flags.expand_colour_indices(on); }
    const dgAttributeArray* default_attribute_array() const { return the_flags.default_attribute_array(); }
    void default_attribute_array(const dgAttributeArray* attributes) { the_flags.default_attribute_array(attributes); }
    const dgColourTable& colour_table() const { return the_flags.colour_table(); }
    void colour_table(const dgColourTable* table) { the_flags.colour_table(table); }
    int ignore_single_attribute() const { return the_flags.ignore_single_attribute(); }
    void ignore_single_attribute(int type) { the_flags.ignore_single_attribute(type); }
    void no_ignore_single_attribute() { the_flags.no_ignore_single_attribute(); }

    void print(std::ostream& os) const;

private:
    void add_attribute(dgGraphicalAttribute& attribute);
    bool to_be_written(dgGraphicalAttribute& attribute);
    bool default_attribute(const dgGraphicalAttribute& attribute, int type);
    bool near_default_line_width(const dgGraphicalAttribute& attribute) const;
    void expand_colour_index(dgGraphicalAttribute& attribute);
    bool hold_back(dgGraphicalAttribute& attribute);
    bool is_held_back(int type) const { return the_delayed && the_delayed[type]; }
    void release_held_back(int type);
    void write_held_back(dgGraphicalPrimitiveType type);
    void write_held_back(int first_type, int last_type);
    void set_in_force(int type);
    void write(dgGraphicalElement* element);

    grAddToStructureFlags the_flags;
    dgStructure* the_structure;
    dgReferenceMode the_reference_mode;
    int the_structure_position = -1;              // -1 before the first insertion
    std::unique_ptr<int[]> the_in_force;          // per type: 1 once written while ignoring defaults; null: none yet
    dgRef<dgPipelineContext> the_delayed_context; // the latest attribute of each type; null: none yet
    std::unique_ptr<int[]> the_delayed;           // per type: 1 while held back; made with the context
    int the_max_element_types;
    int the_n_added_elements = 0;
    int the_n_delayed_attributes = 0;
    int the_n_ignored_attributes = 0;
    int the_n_expanded_colours = 0;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grAddToStructure& adder);
