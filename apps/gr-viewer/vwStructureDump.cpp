#include "vwStructureDump.h"

#include "vwModel.h"
#include "vwOptions.h"

#include "flOutputFile.h"

#include "grStruct2XML.h"
#include "grStructureStats.h"

#include "dgColourAttribute.h"
#include "dgGraphicalPrimitive.h"
#include "dgNumberAttribute.h"
#include "dgStructure.h"

#include <algorithm>
#include <iostream>
#include <ostream>
#include <unordered_map>
#include <vector>

namespace
{
constexpr std::size_t max_indent = 80; // columns; deeper levels are no longer set in

std::string title(const dgStructure& structure, int number)
{
    return "structure " + std::to_string(number) + ": " + structure.ut_dynamic_type().name() + ", " +
           std::to_string(structure.nelements()) + (structure.nelements() == 1 ? " element" : " elements");
}

void write_contents(std::ostream& os, const dgGraphicalElement& element)
{
    if (element.kind() == dgELEMENT_PRIMITIVE)
    {
        static const char* const features[] = {" points", " line segments", " triangles"};
        const dgGeometry geometry = static_cast<const dgGraphicalPrimitive&>(element).geometry();
        os << "  " << geometry.nfeatures << features[geometry.topology];
        if (geometry.topology == dgTOPOLOGY_TRIANGLES)
            os << ", " << geometry.npoints << " nodes" << (geometry.normals ? " with normals" : "");
    }
    else if (const auto* colour = ut_cast<const dgColourAttribute>(&element))
        os << "  " << colour->colour();
    else if (const auto* number = ut_cast<const dgNumberAttribute>(&element))
        os << "  " << number->value();
    else if (element.type() == dgTYPE_LABEL)
        os << "  " << element.label();
}

int write_xml(const std::string& file, const vwModel& model, std::string& error)
{
    flOutputFile output;
    if (!output.open(file, error))
        return 0;
    grStruct2XML xml(output.stream());
    xml.print_xml_header();
    xml.print_comment(model.names());
    xml.print(model.root());
    return output.commit(error);
}
}

void vw_write_structure_tree(std::ostream& os, const dgStructure& root)
{
    struct Frame
    {
        const dgStructure* structure;
        int position;
    };
    std::unordered_map<const dgStructure*, int> numbers{{&root, 1}};
    std::vector<Frame> frames{{&root, 0}};
    os << title(root, 1) << '\n';
    while (!frames.empty())
    {
        Frame& frame = frames.back();
        if (frame.position == frame.structure->nelements())
        {
            frames.pop_back();
            continue;
        }
        const int position = frame.position++;
        const dgGraphicalElement& element = *frame.structure->element(position);
        os << std::string(std::min(2 * frames.size(), max_indent), ' ') << position << "  "
           << element.ut_dynamic_type().name() << " (" << element.type() << ")";
        const dgStructure* called = element.called_structure();
        if (called)
        {
            const auto [number, first_call] = numbers.try_emplace(called, static_cast<int>(numbers.size()) + 1);
            if (first_call)
            {
                os << "  " << title(*called, number->second);
                frames.push_back({called, 0});
            }
            else
            {
                os << "  structure " << number->second << " as above";
            }
        }
        else
        {
            write_contents(os, element);
        }
        os << '\n';
    }
    os << grStructureStats(&root);
}

int vw_dump_structure(const vwOptions& options, std::ostream& os, std::string& error)
{
    vwModel model;
    if (!vw_keeps_inputs(options, options.dump_xml, error))
        return 0;
    if (!model.add_files(options.files, std::cerr, error))
        return 0;
    if (options.dump_structure)
        vw_write_structure_tree(os, model.root());
    return options.dump_xml.empty() || write_xml(options.dump_xml, model, error);
}
