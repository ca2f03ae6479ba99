#include "grFlatDump.h"

#include "grStruct2XML.h"

#include <cstdio>
#include <fstream>

void gr_dump_flat_structure(const dgStructure& structure, const std::string& prefix)
{
    static int number = 0;
    const std::string name = prefix + std::to_string(number++) + ".xml";
    std::ofstream stream(name, std::ios::binary);
    grStruct2XML xml(stream);
    xml.print_xml_header();
    xml.print_comment("Created by gsStructureFlattener::render_structure()");
    xml.print(structure);
    stream.close();
    if (stream)
        std::printf("Wrote %s\n", name.c_str());
    else
        std::fprintf(stderr, "%s cannot be written\n", name.c_str());
}
