#pragma once

#include "grExport.h"

#include <iosfwd>
#include <string_view>

class dgStructure;

/// Writes a display structure and all that it calls as XML, for looking at and for comparing.
///
///     grStruct2XML xml(stream);
///     xml.print_xml_header();
///     xml.print_comment("Made by the importer");
///     xml.print(root);
///
/// The document is flat, however deep the calls are, so that XML readers with a limit on nesting accept it: a root node
/// "structures" with one node "structure" for each structure reached, in the order in which they are first met, each of
/// them once however often it is called, by itself too. A structure holds one node "element" for each element with its
/// type code, kind and class; then, as far as they apply: "primitive_type", "label", "calls" (the id of the structure
/// called), "value", "index", a colour, a transform of 16 numbers row by row, and points, normals and triangles
/// (three node numbers from 0 each). Coordinates are those of the primitive. Numbers read back exactly.
class GR_EXPORT grStruct2XML
{
public:
    /// The stream must outlive the writer; whether writing went well is asked of the stream.
    explicit grStruct2XML(std::ostream& stream) : the_stream(stream) {}
    grStruct2XML(const grStruct2XML&) = delete;
    grStruct2XML& operator=(const grStruct2XML&) = delete;

    /// The declaration that starts a document.
    void print_xml_header();

    /// A comment, before or behind the structures. Text is UTF-8. Two hyphens in a row, which end a comment, are set
    /// apart; characters that XML does not have and bytes that are no UTF-8 become question marks.
    void print_comment(std::string_view text);

    /// The structures; once for each document. Cursors stay where they are.
    void print(const dgStructure& structure);

private:
    std::ostream& the_stream;
};
