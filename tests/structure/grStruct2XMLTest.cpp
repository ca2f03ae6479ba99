#include "grStruct2XML.h"

#include "dgClientStructure.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace
{
std::string xml_of(const dgStructure& structure)
{
    std::ostringstream os;
    grStruct2XML(os).print(structure);
    return os.str();
}

std::string comment_of(std::string_view text)
{
    std::ostringstream os;
    grStruct2XML(os).print_comment(text);
    return os.str();
}
}

TEST(grStruct2XML, writes_type_codes_attributes_and_geometry)
{
    const dgRef<dgStructure> part(new dgClientStructure);
    auto* block = new giTriBlock;
    block->nodes().set(0, {0, 0, 0});
    block->nodes().set(1, {1, 0, 0});
    block->nodes().set(2, {0, 0.1, 0});
    block->triangles().emplace_back(0, 1, 2);
    part->add(new dgTriangleBlock(block, 1));
    const dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgLineColour(gsColour(1, 0, 0.25)));
    root->add(new dgLineColour(gsColour::from_index(7)));
    root->add(new dgLineWidth(1.5));
    root->add(new dgLabel(-5));
    root->add(new dgTransform(giXform3::translation({1, 2, 3})));
    root->add(new dgPolyline({{0, 0, 0}, {1e-7, -2, 3}}));
    root->add(new dgStructureCall(part.get()));
    root->add(new dgStructureCall(nullptr));

    std::ostringstream os;
    grStruct2XML xml(os);
    xml.print_xml_header();
    xml.print_comment("two structures");
    xml.print(*root);
    EXPECT_EQ(os.str(), R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- two structures -->
<structures>
<structure id="1" class="dgClientStructure" elements="8">
<element type="0" kind="attribute" class="dgLineColour">
<colour red="1" green="0" blue="0.25"/>
</element>
<element type="0" kind="attribute" class="dgLineColour">
<colour index="7"/>
</element>
<element type="2" kind="attribute" class="dgLineWidth" value="1.5"/>
<element type="110" kind="other" class="dgLabel" label="-5"/>
<element type="67" kind="attribute" class="dgTransform">
<transform>1 0 0 0 0 1 0 0 0 0 1 0
1 2 3 1</transform>
</element>
<element type="85" kind="primitive" class="dgPolyline" primitive_type="0">
<points count="2">0 0 0 1e-07 -2 3</points>
</element>
<element type="111" kind="other" class="dgStructureCall" calls="2"/>
<element type="111" kind="other" class="dgStructureCall"/>
</structure>
<structure id="2" class="dgClientStructure" elements="1">
<element type="86" kind="primitive" class="dgTriangleBlock" primitive_type="5">
<points count="3">0 0 0 1 0 0 0 0.1 0</points>
<triangles count="1">0 1 2</triangles>
</element>
</structure>
</structures>
)");
}

TEST(grStruct2XML, writes_a_structure_that_calls_itself_once)
{
    const dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgStructureCall(root.get()));
    root->add(new dgStructureCall(root.get()));
    EXPECT_EQ(xml_of(*root), R"(<structures>
<structure id="1" class="dgClientStructure" elements="2">
<element type="111" kind="other" class="dgStructureCall" calls="1"/>
<element type="111" kind="other" class="dgStructureCall" calls="1"/>
</structure>
</structures>
)");
    root->clear(); // takes the circle apart
}

TEST(grStruct2XML, names_numbers_that_are_none_as_schemas_do)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgPolyline({{infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}}));
    EXPECT_NE(xml_of(*root).find("<points count=\"1\">INF -INF NaN</points>"), std::string::npos);
}

TEST(grStruct2XML, comments_stay_comments_whatever_their_text)
{
    EXPECT_EQ(comment_of("a --> b ---"), "<!-- a - -> b - - - -->\n");
    EXPECT_EQ(comment_of("caf\xC3\xA9 \x01"), "<!-- caf\xC3\xA9 ? -->\n");
    EXPECT_EQ(comment_of("caf\xE9"), "<!-- caf? -->\n");
    EXPECT_EQ(comment_of("\xEF\xBF\xBE\xEF\xBF\xBF"), "<!-- ?? -->\n");
}
