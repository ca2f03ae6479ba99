#include "vwStructureDump.h"

#include "vwOptions.h"

#include "dgClientStructure.h"
#include "dgLabel.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgStructureCall.h"
#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(vwStructureDump, writes_each_structure_below_its_first_call)
{
    const dgRef<dgStructure> root(new dgClientStructure), part(new dgClientStructure);
    part->add(new dgPolyline({{0, 0, 0}, {1, 0, 0}}));
    part->add(new dgStructureCall(root.get()));
    root->add(new dgLineWidth(1.5));
    root->add(new dgStructureCall(part.get()));
    root->add(new dgLabel(7));
    root->add(new dgStructureCall(part.get()));
    std::ostringstream os;
    vw_write_structure_tree(os, *root);
    EXPECT_EQ(os.str().substr(0, os.str().find("grStructureStats")),
              "structure 1: dgClientStructure, 4 elements\n"
              "  0  dgLineWidth (2)  1.5\n"
              "  1  dgStructureCall (111)  structure 2: dgClientStructure, 2 elements\n"
              "    0  dgPolyline (85)  1 line segments\n"
              "    1  dgStructureCall (111)  structure 1 as above\n"
              "  2  dgLabel (110)  7\n"
              "  3  dgStructureCall (111)  structure 2 as above\n");
    root->clear(); // takes the circle apart
}

TEST(vwStructureDump, reads_files_and_writes_xml)
{
    vwOptions options;
    options.files = {VW_TEST_DATA "/tetrahedron.tarn"};
    options.dump_structure = 1;
    const tsFolder folder;
    options.dump_xml = folder / "x.xml";
    std::ostringstream os;
    std::string error;
    ASSERT_TRUE(vw_dump_structure(options, os, error)) << error;
    EXPECT_NE(os.str().find("dgTriangleBlock (86)  4 triangles, 4 nodes"), std::string::npos) << os.str();
    EXPECT_NE(folder.text("x.xml").find("<!-- tetrahedron.tarn -->\n<structures>"), std::string::npos);

    options.dump_xml = folder / "no/such/folder/x.xml";
    EXPECT_FALSE(vw_dump_structure(options, os, error));
    EXPECT_NE(error.find("no/such/folder/x.xml"), std::string::npos);
    options.dump_xml = options.files[0];
    EXPECT_FALSE(vw_dump_structure(options, os, error));
    EXPECT_NE(error.find("this file is read"), std::string::npos);
}
